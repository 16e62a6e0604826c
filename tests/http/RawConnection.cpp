// SPDX-License-Identifier: MIT
#include "http/RawConnection.h"

#include "http/LoopbackSocket.h"

#include <array>

#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

RawConnection::RawConnection(int port) : socket_(loopback::connection(port)) {
    const timeval patience{10, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
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
