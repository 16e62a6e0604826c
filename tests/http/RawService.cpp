// SPDX-License-Identifier: MIT
#include "http/RawService.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <system_error>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

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

RawService::RawService(std::string bytes, std::string repeated)
    : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, generic, size) != 0 || listen(listener_, 1) != 0 ||
        getsockname(listener_, generic, &size) != 0) {
        fail("listen");
    }
    url_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/";
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
