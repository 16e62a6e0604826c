// SPDX-License-Identifier: MIT
#include "TzSoapHttpTransfer.h"

#include "TzSoapSigpipeBlock.h"

#include <soap/TzSoapHttpBinding.h>

#include <algorithm>
#include <functional>
#include <new>
#include <string_view>

namespace {

using Options = TzSoapHttpOptions;
using Error = TzSoapTransportError;

constexpr long Yes = 1;
constexpr int PollMilliseconds = 1000; // libcurl's own timers end it earlier
constexpr char Protocols[] = "http,https";

unsigned long authenticationOf(Options::Authentication authentication) {
    switch (authentication) {
    case Options::Basic:
        return CURLAUTH_BASIC;
    case Options::Digest:
        return CURLAUTH_DIGEST;
    case Options::Ntlm:
        return CURLAUTH_NTLM;
    case Options::Negotiate:
        return CURLAUTH_NEGOTIATE;
    case Options::Any:
        return CURLAUTH_ANY;
    case Options::Bearer:
        return CURLAUTH_BEARER;
    }
    return CURLAUTH_BASIC;
}

long versionOf(Options::HttpVersion version) {
    switch (version) {
    case Options::Http1:
        return CURL_HTTP_VERSION_1_1;
    case Options::Http2WithoutUpgrade:
        return CURL_HTTP_VERSION_2_PRIOR_KNOWLEDGE;
    case Options::Negotiated:
        break;
    }
    return CURL_HTTP_VERSION_2TLS;
}

/// Gives a session back to its pool.
class Borrowed {
public:
    explicit Borrowed(TzSoapHttpPool& pool) : pool_(pool), session_(pool.take()) {}
    ~Borrowed() { pool_.giveBack(std::move(session_)); }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;
    TzSoapHttpPool::Session& session() noexcept { return session_; }

private:
    TzSoapHttpPool& pool_;
    TzSoapHttpPool::Session session_;
};

/// As long as it lives, a transfer is under way.
class Underway {
public:
    Underway(CURLM* multi, CURL* easy) : multi_(multi), easy_(easy) {
        if (curl_multi_add_handle(multi_, easy_) != CURLM_OK) {
            throw std::bad_alloc();
        }
    }
    ~Underway() { curl_multi_remove_handle(multi_, easy_); }
    Underway(const Underway&) = delete;
    Underway& operator=(const Underway&) = delete;

private:
    CURLM* multi_;
    CURL* easy_;
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view Space = " \t\r\n";
    const std::size_t from = std::min(text.find_first_not_of(Space), text.size());
    return text.substr(from, text.find_last_not_of(Space) + 1 - from);
}

} // namespace

TzSoapHttpReply TzSoapHttpTransfer::run(TzSoapHttpPool& pool, const TzSoapHttpPost& post) {
    const TzSoapSigpipeBlock quiet;
    Borrowed borrowed(pool);
    TzSoapHttpTransfer transfer(borrowed.session(), post);
    transfer.setRequest();
    transfer.setCallbacks();
    transfer.setLimits();
    transfer.setTls();
    transfer.setCredentials();
    transfer.setProxy();
    transfer.finish(transfer.perform());
    return std::move(transfer.reply_);
}

/// An option that this libcurl does not know is a failure: it may be one of security.
template <typename Value> void TzSoapHttpTransfer::set(CURLoption option, Value value) {
    const CURLcode code = curl_easy_setopt(easy_, option, value);
    if (code == CURLE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    if (code != CURLE_OK) {
        fail(code);
    }
}

/// Sets a text unless it is empty.
void TzSoapHttpTransfer::setText(CURLoption option, const TzCString& text) {
    if (!text.empty()) {
        set(option, text.c_str());
    }
}

void TzSoapHttpTransfer::addLine(const TzCString& line) {
    curl_slist* const longer = curl_slist_append(lines_.get(), line.c_str());
    if (longer == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(lines_.release()); // it is the beginning of the longer one
    lines_.reset(longer);
}

void TzSoapHttpTransfer::setRequest() {
    set(CURLOPT_ERRORBUFFER, error_.data());
    set(CURLOPT_URL, post_.url.text.c_str());
#if LIBCURL_VERSION_NUM >= 0x075500
    set(CURLOPT_PROTOCOLS_STR, Protocols);
#else
    set(CURLOPT_PROTOCOLS, static_cast<long>(CURLPROTO_HTTP | CURLPROTO_HTTPS));
#endif
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    set(CURLOPT_HTTP_VERSION, versionOf(post_.options.httpVersion));
    if (post_.options.httpVersion == Options::Http2WithoutUpgrade) {
        set(CURLOPT_FORBID_REUSE, Yes); // libcurl 7.88 fails on the second request
    }
    set(CURLOPT_POST, Yes);
    set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(post_.body.size()));
    set(CURLOPT_POSTFIELDS, post_.body.data());
    for (const auto& [name, value] : post_.headers) {
        addLine(value.empty() ? name + ';' : TzCString(name).append(": ").append(value));
    }
    addLine("Expect:"); // or a server that does not know it lets large requests wait for a second
    set(CURLOPT_HTTPHEADER, lines_.get());
    if (post_.options.compression) {
        set(CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
    }
    if (post_.options.cookies) {
        set(CURLOPT_COOKIEFILE, "");
    }
}

void TzSoapHttpTransfer::setCallbacks() {
    set(CURLOPT_NOSIGNAL, Yes);
    set(CURLOPT_HEADERFUNCTION, &TzSoapHttpTransfer::takeHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &TzSoapHttpTransfer::takeBody);
    set(CURLOPT_WRITEDATA, this);
}

void TzSoapHttpTransfer::setLimits() {
    // 0 would be libcurl's own limit.
    const auto connect = post_.options.connectTimeout;
    set(CURLOPT_CONNECTTIMEOUT_MS,
        static_cast<long>(connect.count() > 0 ? connect.count() : post_.timeout.count()));
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(post_.timeout.count()));
}

void TzSoapHttpTransfer::setTls() {
    const Options& options = post_.options;
    const long checks = options.insecure ? 0L : 1L;
    const long names = options.insecure ? 0L : 2L;
    set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    set(CURLOPT_SSL_VERIFYPEER, checks);
    set(CURLOPT_SSL_VERIFYHOST, names);
    set(CURLOPT_PROXY_SSL_VERIFYPEER, checks);
    set(CURLOPT_PROXY_SSL_VERIFYHOST, names);
    if (!options.caFile.empty()) {
        // The system's authorities are not trusted besides.
        set(CURLOPT_CAINFO, options.caFile.c_str());
        set(CURLOPT_CAPATH, static_cast<char*>(nullptr));
        set(CURLOPT_PROXY_CAINFO, options.caFile.c_str());
        set(CURLOPT_PROXY_CAPATH, static_cast<char*>(nullptr));
    }
    setText(CURLOPT_PINNEDPUBLICKEY, options.pinnedKey);
    if (post_.isOrigin) {
        setText(CURLOPT_SSLCERT, options.certificateFile);
        setText(CURLOPT_SSLKEY, options.keyFile);
        setText(CURLOPT_KEYPASSWD, options.keyPassword);
    }
}

void TzSoapHttpTransfer::setCredentials() {
    const Options::Credentials& who = post_.credentials;
    const bool isBearer = who.authentication == Options::Bearer;
    const bool needsUser = !isBearer && who.authentication != Options::Negotiate;
    if (!post_.isOrigin || (needsUser && who.user.empty()) || (isBearer && who.password.empty())) {
        return;
    }
    set(CURLOPT_HTTPAUTH, static_cast<long>(authenticationOf(who.authentication)));
    if (isBearer) {
        set(CURLOPT_XOAUTH2_BEARER, who.password.c_str());
    } else {
        set(CURLOPT_USERNAME, who.user.c_str());
        set(CURLOPT_PASSWORD, who.password.c_str());
    }
}

void TzSoapHttpTransfer::setProxy() {
    const Options& options = post_.options;
    set(CURLOPT_PROXY, options.proxy.c_str()); // "": none, whatever the environment says
    set(CURLOPT_NOPROXY, "");
    if (!options.proxy.empty() && !options.proxyCredentials.user.empty()) {
        set(CURLOPT_PROXYAUTH,
            static_cast<long>(authenticationOf(options.proxyCredentials.authentication)));
        set(CURLOPT_PROXYUSERNAME, options.proxyCredentials.user.c_str());
        set(CURLOPT_PROXYPASSWORD, options.proxyCredentials.password.c_str());
    }
}

bool TzSoapHttpTransfer::isCancelled() const noexcept {
    return std::any_of(post_.stops.begin(), post_.stops.end(),
                       [](const std::stop_token& stop) { return stop.stop_requested(); });
}

CURLcode TzSoapHttpTransfer::perform() {
    const Underway underway(multi_, easy_);
    const auto wake = [multi = multi_] { curl_multi_wakeup(multi); };
    const std::stop_callback first(post_.stops[0], wake);
    const std::stop_callback second(post_.stops[1], wake);
    int running = 1;
    while (running > 0 && !isCancelled()) {
        const CURLMcode code = curl_multi_perform(multi_, &running);
        if (code != CURLM_OK ||
            (running > 0 &&
             curl_multi_poll(multi_, nullptr, 0, PollMilliseconds, nullptr) != CURLM_OK)) {
            return CURLE_FAILED_INIT;
        }
    }
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_, &left);
    return message == nullptr ? CURLE_ABORTED_BY_CALLBACK : message->data.result;
}

void TzSoapHttpTransfer::finish(CURLcode code) {
    if (failure_ != nullptr) {
        std::rethrow_exception(failure_);
    }
    if (code == CURLE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    long status = 0;
    curl_easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &status);
    reply_.status = static_cast<int>(status);
    if (code == CURLE_OK && !headerEnded_) { // libcurl takes what came for all
        code = CURLE_PARTIAL_FILE;
    }
    if (code != CURLE_OK) {
        fail(code);
    }
}

Error::Phase TzSoapHttpTransfer::phaseReached() const {
    const auto reached = [this](CURLINFO info) {
        curl_off_t value = 0;
        curl_easy_getinfo(easy_, info, &value);
        return value;
    };
    if (reached(CURLINFO_PRETRANSFER_TIME_T) > 0) {
        const curl_off_t sent = reached(CURLINFO_SIZE_UPLOAD_T);
        return sent < static_cast<curl_off_t>(post_.body.size()) && reply_.status == 0
                   ? Error::Send
                   : Error::Receive;
    }
    long port = 0; // known as soon as there is a connection, its time only after TLS
    curl_easy_getinfo(easy_, CURLINFO_LOCAL_PORT, &port);
    if (port > 0 || reached(CURLINFO_CONNECT_TIME_T) > 0) {
        long tunnel = 0;
        curl_easy_getinfo(easy_, CURLINFO_HTTP_CONNECTCODE, &tunnel);
        const bool isAtProxy = !post_.options.proxy.empty() && tunnel / 100 != 2;
        return isAtProxy ? Error::Connect : Error::Tls;
    }
    return reached(CURLINFO_NAMELOOKUP_TIME_T) > 0 ? Error::Connect : Error::Resolve;
}

Error::Phase TzSoapHttpTransfer::phaseOf(CURLcode code) const {
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return Error::Resolve;
    case CURLE_COULDNT_CONNECT:
    case CURLE_PROXY:
        return Error::Connect;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_CIPHER:
    case CURLE_USE_SSL_FAILED:
        return Error::Tls;
    case CURLE_SEND_ERROR:
        return Error::Send;
    default:
        return phaseReached();
    }
}

void TzSoapHttpTransfer::fail(CURLcode code) {
    Error::Cause cause = code == CURLE_OPERATION_TIMEDOUT ? Error::TimedOut : Error::Failed;
    TzCString text = "no answer: ";
    if (tooLarge_ != nullptr) {
        cause = Error::TooLarge;
        text = tooLarge_;
        reply_.body.clear();
    } else if (code == CURLE_ABORTED_BY_CALLBACK && isCancelled()) {
        cause = Error::Cancelled;
        text += "the call was cancelled";
    } else {
        text += error_[0] != '\0' ? error_.data() : curl_easy_strerror(code);
    }
    throw Error(phaseOf(code), cause, post_.url.text, text,
                {reply_.status, std::move(reply_.contentType), std::move(reply_.body)});
}

/// Runs `take`, whose exceptions must not cross libcurl; what libcurl wants to hear.
template <typename Take>
std::size_t TzSoapHttpTransfer::guarded(std::size_t size, const Take& take) noexcept {
    try {
        return take() ? size : 0;
    } catch (const std::exception&) {
        failure_ = std::current_exception();
        return 0;
    }
}

std::size_t TzSoapHttpTransfer::takeHeader(char* data, std::size_t size, std::size_t count,
                                           void* self) {
    auto* const transfer = static_cast<TzSoapHttpTransfer*>(self);
    const std::string_view line(data, size * count);
    const std::size_t taken =
        transfer->guarded(line.size(), [&] { return transfer->takeLine(line); });
    return taken;
}

bool TzSoapHttpTransfer::takeLine(std::string_view line) {
    headerBytes_ += line.size();
    if (headerBytes_ > post_.options.largestHeader) {
        tooLarge_ = "the header of the answer is larger than the options allow";
        return false;
    }
    if (line.starts_with("HTTP/")) { // an interim answer, or one that asked for credentials
        reply_ = {};
        headerEnded_ = false;
        return true;
    }
    headerEnded_ = headerEnded_ || trimmed(line).empty();
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || !reply_.body.empty()) { // trailers change nothing
        return true;
    }
    const TzCString name(trimmed(line.substr(0, colon)));
    const TzCString value(trimmed(line.substr(colon + 1)));
    if (tzEqualIgnoreCase(name, TzSoapHttpBinding::getContentTypeLabel())) {
        if (!reply_.contentType.empty()) {
            return true; // the first holds
        }
        reply_.contentType = value;
    } else if (tzEqualIgnoreCase(name, "Location")) {
        reply_.location = reply_.location.empty() ? value : reply_.location;
    }
    const auto known = reply_.headers.find(name);
    if (known == reply_.headers.end()) {
        reply_.headers.add(name, value);
    } else {
        known->second.append(", ").append(value);
    }
    return true;
}

std::size_t TzSoapHttpTransfer::takeBody(char* data, std::size_t size, std::size_t count,
                                         void* self) {
    auto* const transfer = static_cast<TzSoapHttpTransfer*>(self);
    const std::string_view piece(data, size * count);
    return transfer->guarded(piece.size(), [&] {
        TzCString& body = transfer->reply_.body;
        if (piece.size() > transfer->post_.options.largestAnswer - body.size()) {
            transfer->tooLarge_ = "the answer is larger than the options allow";
            return false;
        }
        body.append(piece);
        return true;
    });
}
