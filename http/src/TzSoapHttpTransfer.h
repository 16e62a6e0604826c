// SPDX-License-Identifier: MIT
#pragma once

#include "TzSoapCurl.h"
#include "TzSoapHttpPool.h"
#include "TzSoapHttpUrl.h"

#include <soap/TzSoapHttpOptions.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapTransportError.h>
#include <tz/tools/TzCString.h>

#include <array>
#include <chrono>
#include <exception>
#include <stop_token>
#include <utility>
#include <vector>

/// What a transfer sends, and to whom.
struct TzSoapHttpPost {
    const TzSoapHttpUrl& url;
    const std::vector<std::pair<TzCString, TzCString>>& headers;
    const TzCString& body;
    const TzSoapHttpOptions& options;
    const TzSoapHttpOptions::Credentials& credentials;
    bool isOrigin;                               ///< Whether credentials and certificate go there.
    std::chrono::milliseconds timeout;           ///< 0 for no limit.
    const std::array<std::stop_token, 2>& stops; ///< Any of them cancels.
};

/// What came back. A plain value.
struct TzSoapHttpReply {
    int status = 0;
    TzSoapHttpTransportContext headers;
    TzCString contentType;
    TzCString location; ///< "" without one.
    TzCString body;
};

/// One request and its answer, on one session of the pool.
class TzSoapHttpTransfer {
public:
    /// Posts `post` and waits for the whole answer. `TzSoapTransportError` without one,
    /// `std::bad_alloc`.
    static TzSoapHttpReply run(TzSoapHttpPool& pool, const TzSoapHttpPost& post);

private:
    TzSoapHttpTransfer(TzSoapHttpPool::Session& session, const TzSoapHttpPost& post) noexcept
        : easy_(session.easy.get()), multi_(session.multi.get()), post_(post) {}

    template <typename Value> void set(CURLoption option, Value value);
    void setText(CURLoption option, const TzCString& text);
    void addLine(const TzCString& line);
    void setRequest();
    void setCallbacks();
    void setLimits();
    void setTls();
    void setCredentials();
    void setProxy();
    bool isCancelled() const noexcept;
    CURLcode perform();
    void finish(CURLcode code);
    TzSoapTransportError::Phase phaseOf(CURLcode code) const;
    TzSoapTransportError::Phase phaseReached() const;
    [[noreturn]] void fail(CURLcode code);

    static std::size_t takeHeader(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t takeBody(char* data, std::size_t size, std::size_t count, void* self);
    template <typename Take> std::size_t guarded(std::size_t size, const Take& take) noexcept;
    bool takeLine(std::string_view line);

    CURL* easy_;
    CURLM* multi_;
    const TzSoapHttpPost& post_;
    TzSoapCurl::List lines_;
    std::array<char, CURL_ERROR_SIZE> error_{};
    TzSoapHttpReply reply_;
    std::size_t headerBytes_ = 0;
    bool headerEnded_ = false;
    std::exception_ptr failure_;
    const char* tooLarge_ = nullptr; ///< What is larger than allowed.
};
