// SPDX-License-Identifier: MIT
#pragma once

#include <httplib.h>

#include <string>
#include <thread>

/// A service within the test that gives one answer to everything and keeps what it was sent.
class CannedService {
public:
    CannedService(int status, const std::string& contentType, const std::string& body);
    ~CannedService();
    CannedService(const CannedService&) = delete;
    CannedService& operator=(const CannedService&) = delete;

    /// Where it listens.
    const std::string& url() const noexcept { return url_; }
    /// The value of a header line of the last request, "" without one. Only when the caller is
    /// done.
    std::string header(const std::string& name) const { return last_.get_header_value(name); }
    /// The body of the last request. Only when the caller is done.
    const std::string& body() const noexcept { return last_.body; }
    /// The path of the last request with its query. Only when the caller is done.
    const std::string& target() const noexcept { return last_.target; }

private:
    httplib::Server server_;
    std::string url_;
    httplib::Request last_;
    std::thread thread_;
};
