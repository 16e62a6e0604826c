// SPDX-License-Identifier: MIT
#include "http/RawConnection.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

RawConnection::RawConnection(int port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const timeval patience{10, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        const int error = errno;
        close(socket_);
        throw std::system_error(error, std::generic_category(), "connect");
    }
}

RawConnection::~RawConnection() { close(socket_); }

void RawConnection::send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

void RawConnection::finishSending() const { shutdown(socket_, SHUT_WR); }

std::string RawConnection::readAll() const {
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t count = 1; count > 0;) {
        count = recv(socket_, buffer.data(), buffer.size(), 0);
        text.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return text;
}
