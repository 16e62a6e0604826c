// SPDX-License-Identifier: MIT
#include "TzSoapHttpUrl.h"

#include "TzSoapCurl.h"
#include "TzSoapHttpSecrets.h"

namespace {

using namespace TzSoapCurl;

/// A part of `url`, "" without it.
TzCString partOf(CURLU* url, CURLUPart part, unsigned int flags = 0) {
    char* text = nullptr;
    const CURLUcode code = curl_url_get(url, part, &text, flags);
    const Text owner(text);
    if (code == CURLUE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    return code == CURLUE_OK && text != nullptr ? TzCString(text) : TzCString();
}

bool set(CURLU* url, CURLUPart part, const char* text) {
    const CURLUcode code = curl_url_set(url, part, text, 0);
    if (code == CURLUE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    return code == CURLUE_OK;
}

} // namespace

std::optional<TzSoapHttpUrl> TzSoapHttpUrl::parse(const TzCString& text,
                                                  const TzSoapHttpUrl* base) {
    const auto owner = owned<Url>(curl_url());
    CURLU* const url = owner.get();
    if ((base != nullptr && !set(url, CURLUPART_URL, base->text.c_str())) ||
        text.find('\0') != TzCString::npos || !set(url, CURLUPART_URL, text.c_str())) {
        return std::nullopt;
    }
    TzSoapHttpUrl parsed;
    parsed.user = partOf(url, CURLUPART_USER, CURLU_URLDECODE);
    parsed.password = partOf(url, CURLUPART_PASSWORD, CURLU_URLDECODE);
    for (const CURLUPart secret : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_FRAGMENT}) {
        set(url, secret, nullptr);
    }
    parsed.scheme = partOf(url, CURLUPART_SCHEME);
    parsed.host = partOf(url, CURLUPART_HOST);
    parsed.port = partOf(url, CURLUPART_PORT, CURLU_DEFAULT_PORT);
    parsed.text = partOf(url, CURLUPART_URL);
    const bool isHttp = parsed.scheme == "http" || parsed.scheme == "https";
    return isHttp && !parsed.host.empty() ? std::optional(parsed) : std::nullopt;
}

TzCString TzSoapHttpUrl::shown(std::string_view text) {
    constexpr std::string_view Separator = "://";
    const std::size_t at = text.rfind('@');
    if (at == std::string_view::npos) {
        return TzCString(text);
    }
    const std::size_t scheme = text.substr(0, at).find(Separator);
    const std::size_t begin = scheme == std::string_view::npos ? 0 : scheme + Separator.size();
    return TzCString(text.substr(0, begin)).append(TzSoapHttpSecrets::Mask).append(text.substr(at));
}

bool TzSoapHttpUrl::sameOrigin(const TzSoapHttpUrl& other) const noexcept {
    return scheme == other.scheme && port == other.port && tzEqualIgnoreCase(host, other.host);
}
