// SPDX-License-Identifier: MIT
#include "http/RawService.h"

#include "http/LoopbackSocket.h"

#include <array>
#include <chrono>
#include <string_view>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Sends all of `bytes`; false when the other side does not want them.
bool sendAll(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

} // namespace

RawService::RawService(std::string bytes, std::string repeated) {
    int port = 0;
    listener_ = loopback::listener(port);
    url_ = "http://127.0.0.1:" + std::to_string(port) + "/";
    thread_ = std::thread([this, bytes = std::move(bytes), repeated = std::move(repeated)] {
        serve(bytes, repeated);
    });
}

RawService::~RawService() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

void RawService::serve(const std::string& bytes, const std::string& repeated) const {
    const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    std::array<char, 65536> request;
    bool wanted = connection >= 0 && recv(connection, request.data(), request.size(), 0) > 0 &&
                  sendAll(connection, bytes);
    while (wanted && !repeated.empty()) {
        // Not as fast as it could: what is tested is the end, not the memory of this machine.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        wanted = sendAll(connection, repeated);
    }
    close(connection);
}
