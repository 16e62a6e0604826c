// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <thread>

/// A service within the test that answers one request with bytes as they are, HTTP or not, and may
/// never end.
class RawService {
public:
    /// Answers `bytes` and then, without end, `repeated` unless that is empty.
    RawService(std::string bytes, std::string repeated);
    ~RawService();
    RawService(const RawService&) = delete;
    RawService& operator=(const RawService&) = delete;

    /// Where it listens.
    const std::string& url() const noexcept { return url_; }

private:
    void serve(const std::string& bytes, const std::string& repeated) const;

    int listener_ = -1;
    std::string url_;
    std::thread thread_;
};
