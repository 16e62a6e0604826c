// SPDX-License-Identifier: MIT
#include "http/TestProxy.h"

#include "http/LoopbackSocket.h"

#include <array>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int PollMilliseconds = 50;
constexpr char Version = 5;
constexpr char NoAuthentication = 0;
constexpr char ByPassword = 2;

/// The number in the byte at `at`; 0 when it did not come.
std::size_t numberIn(const std::string& bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

void say(int client, const std::string& bytes) {
    send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

} // namespace

TestProxy::TestProxy(Kind kind, std::string user, std::string password)
    : kind_(kind), user_(std::move(user)), password_(std::move(password)),
      listener_(loopback::listener(port_)), thread_([this] { serve(); }) {}

TestProxy::~TestProxy() {
    isStopping_ = true;
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

std::vector<std::string> TestProxy::asked() const {
    const std::lock_guard lock(mutex_);
    return asked_;
}

std::string TestProxy::heard() const {
    const std::lock_guard lock(mutex_);
    return heard_;
}

void TestProxy::serve() {
    for (int client = 0; client >= 0;) {
        client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0) {
            handle(client);
            close(client);
        }
    }
}

void TestProxy::handle(int client) {
    const std::string host = kind_ == Connect ? hostByConnect(client) : hostBySocks(client);
    if (host.empty()) {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        asked_.push_back(host);
    }
    const int server = loopback::connection(std::stoi(host.substr(host.rfind(':') + 1)));
    say(client, kind_ == Connect ? "HTTP/1.1 200 Connection established\r\n\r\n"
                                 : std::string("\x05\0\0\x01\0\0\0\0\0\0", 10));
    relay(client, server);
    close(server);
}

/// The next `bytes`, fewer when no more come.
std::string TestProxy::take(int client, std::size_t bytes) {
    std::string taken(bytes, '\0');
    const ssize_t got = bytes == 0 ? 0 : recv(client, taken.data(), bytes, MSG_WAITALL);
    taken.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    const std::lock_guard lock(mutex_);
    heard_ += taken;
    return taken;
}

/// The host of CONNECT; "" when the client is refused.
std::string TestProxy::hostByConnect(int client) {
    std::string head;
    while (!head.ends_with("\r\n\r\n")) {
        const std::string next = take(client, 1);
        if (next.empty()) {
            return "";
        }
        head += next;
    }
    if (!user_.empty() && head.find("Proxy-Authorization: ") == std::string::npos) {
        say(client, "HTTP/1.1 407 Proxy Authentication Required\r\nContent-Length: 0\r\n\r\n");
        return "";
    }
    const std::size_t host = head.find(' ') + 1;
    return head.substr(host, head.find(' ', host) - host);
}

/// Whether the client may ask for a host.
bool TestProxy::greetSocks(int client) {
    const std::string methods = take(client, numberIn(take(client, 2), 1));
    if (user_.empty()) {
        say(client, {Version, NoAuthentication});
        return methods.find(NoAuthentication) != std::string::npos;
    }
    say(client, {Version, ByPassword});
    const std::string user = take(client, numberIn(take(client, 2), 1));
    const std::string password = take(client, numberIn(take(client, 1), 0));
    const bool isGood = user == user_ && password == password_;
    say(client, {1, isGood ? '\0' : '\1'});
    return isGood;
}

/// The host that a client of SOCKS asks for; "" when it is refused.
std::string TestProxy::hostBySocks(int client) {
    if (!greetSocks(client)) {
        return "";
    }
    constexpr std::size_t Name = 3;
    constexpr std::size_t AddressSize = 4;
    const std::size_t form = numberIn(take(client, 4), 3);
    std::string host = take(client, form == Name ? numberIn(take(client, 1), 0) : AddressSize);
    if (form != Name) {
        host = "address";
    }
    const std::string port = take(client, 2);
    return host + ':' + std::to_string(numberIn(port, 0) * 256 + numberIn(port, 1));
}

/// Hands on what either side says until one of them ends.
void TestProxy::relay(int client, int server) const {
    std::array<pollfd, 2> sides = {{{client, POLLIN, 0}, {server, POLLIN, 0}}};
    std::array<char, 16384> bytes;
    while (!isStopping_) {
        poll(sides.data(), sides.size(), PollMilliseconds);
        for (std::size_t i = 0; i < sides.size(); ++i) {
            if (sides[i].revents == 0) {
                continue;
            }
            const ssize_t got = recv(sides[i].fd, bytes.data(), bytes.size(), 0);
            if (got <= 0) {
                return;
            }
            say(sides[1 - i].fd, {bytes.data(), static_cast<std::size_t>(got)});
        }
    }
}
