// SPDX-License-Identifier: MIT
#include "http/LoopbackSocket.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

sockaddr_in addressOf(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

[[noreturn]] void fail(int made, const char* what) {
    const int error = errno;
    close(made);
    throw std::system_error(error, std::generic_category(), what);
}

int makeSocket() { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

} // namespace

int loopback::listener(int& port) {
    const int made = makeSocket();
    sockaddr_in address = addressOf(0);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(made, generic, size) != 0 || listen(made, 1) != 0 ||
        getsockname(made, generic, &size) != 0) {
        fail(made, "listen");
    }
    port = ntohs(address.sin_port);
    return made;
}

int loopback::connection(int port) {
    const int made = makeSocket();
    const sockaddr_in address = addressOf(port);
    if (connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        fail(made, "connect");
    }
    return made;
}
