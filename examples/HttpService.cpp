// SPDX-License-Identifier: MIT
//
// What a server over cpp-httplib needs beside a dispatcher: limits, signals, its port.
#include "HttpService.h"

#include <soap/TzSoapDispatcher.h>

#include <httplib.h>

#include <chrono>
#include <csignal>
#include <future>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>

#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr char Host[] = "127.0.0.1";
constexpr std::size_t Threads = 64;

/// Collects the body piece by piece, so that the limit applies to its unzipped size, and has it
/// answered. Reads a body that is too large to its end, within limits, because the answer would be
/// lost otherwise.
void receive(const TzSoapDispatcher& service, std::size_t largest, const httplib::Request& http,
             httplib::Response& response, const httplib::ContentReader& read) {
    constexpr int BadRequest = 400;
    constexpr int TooLarge = 413;
    constexpr std::size_t Patience = 4;
    std::string body;
    std::size_t received = 0;
    const auto take = [&](const char* data, std::size_t size) {
        received += size;
        body.append(data, received <= largest ? size : 0);
        return received <= Patience * largest;
    };
    const bool isForm = http.is_multipart_form_data();
    const bool complete = isForm ? read([](const auto&) { return true; }, take) : read(take);
    if (received > largest || response.status == TooLarge) {
        response.status = TooLarge;
        return;
    }
    if (!complete || isForm) {
        response.status = BadRequest;
        return;
    }
    TzSoapHttpAnswer answer =
        service.answer({http.get_header_value("Content-Type"), http.get_header_value("SOAPAction"),
                        std::move(body)});
    response.status = answer.status;
    response.headers.insert(answer.headers.begin(), answer.headers.end());
    response.body = std::move(answer.body);
}

/// Keeps SIGTERM and SIGINT from all threads: one waits for them.
sigset_t blockSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

/// The port that `server` gets.
int bindTo(httplib::Server& server, int wanted) {
    int listener = -1;
    server.set_socket_options([&listener](socket_t made) { // a port that is taken stays taken
        const int yes = 1;
        setsockopt(made, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        listener = made;
    });
    const int port = wanted == 0 ? server.bind_to_any_port(Host) : wanted;
    if (port < 0 || (wanted != 0 && !server.bind_to_port(Host, wanted))) {
        throw std::runtime_error("port " + std::to_string(wanted) + " cannot be had");
    }
    listen(listener, SOMAXCONN); // more connections may wait than cpp-httplib lets
    return port;
}

/// Serves until a signal comes.
void run(httplib::Server& server, const sigset_t& signals) {
    std::future<bool> listening = std::async(std::launch::async, [&server] {
        const bool good = server.listen_after_bind();
        kill(getpid(), SIGTERM); // after a failure nothing else wakes the main thread
        return good;
    });
    int signal = 0;
    sigwait(&signals, &signal);
    while (!server.is_running() &&
           listening.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
    }
    server.stop();
    if (!listening.get()) {
        throw std::runtime_error("the server ended by itself");
    }
}

} // namespace

void serveUntilSignal(const TzSoapDispatcher& service, int port, std::size_t largestRequest) {
    const sigset_t signals = blockSignals();
    httplib::Server server;
    server.new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    // One request for each connection: cpp-httplib would take what was left of a body for the next.
    server.set_payload_max_length(largestRequest).set_keep_alive_max_count(1).set_tcp_nodelay(true);
    server.Post("/",
                [&service, largestRequest](const auto& http, auto& response, const auto& read) {
                    receive(service, largestRequest, http, response, read);
                });
    const int got = bindTo(server, port);
    std::cout << "listening on http://" << Host << ':' << got << '/' << std::endl;
    run(server, signals);
}
