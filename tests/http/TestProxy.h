// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A proxy within the test, by CONNECT of HTTP or by SOCKS 5, which serves one connection after the
/// other. Whatever host it is asked for: it connects to this machine.
class TestProxy {
public:
    enum Kind { Connect, Socks5 };

    /// Lets in who shows `user` and `password`, everybody when `user` is empty; CONNECT is
    /// refused with 407 to all others.
    explicit TestProxy(Kind kind, std::string user = "", std::string password = "");
    ~TestProxy();
    TestProxy(const TestProxy&) = delete;
    TestProxy& operator=(const TestProxy&) = delete;

    /// Its address, "127.0.0.1:" and the port.
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }
    /// The hosts, as names or addresses with ports, that it was asked for.
    std::vector<std::string> asked() const;
    /// All that the clients said before they were connected.
    std::string heard() const;

private:
    void serve();
    void handle(int client);
    bool greetSocks(int client);
    std::string hostBySocks(int client);
    std::string hostByConnect(int client);
    std::string take(int client, std::size_t bytes);
    void relay(int client, int server) const;

    Kind kind_;
    std::string user_;
    std::string password_;
    int port_ = 0;
    int listener_;
    std::atomic<bool> isStopping_ = false;
    mutable std::mutex mutex_;
    std::vector<std::string> asked_;
    std::string heard_;
    std::thread thread_;
};
