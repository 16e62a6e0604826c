// SPDX-License-Identifier: MIT
//
// An echo service over HTTP to start your own from. Any rpc operation named "echo..." answers its
// parameters, header entries named "echo" in its namespace are answered too. Put your operations in
// place of `echo`; everything around it is what every service needs.
//
//     echo_server [PORT [LARGEST_REQUEST]]      port 0: any; ends on SIGTERM and SIGINT
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapNode.h>
#include <tz/tools/Tzxmsg.h>

#include <httplib.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <future>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using Base = TzSoapContentBase;

constexpr char Namespace[] = "urn:example:echo";
constexpr char Host[] = "127.0.0.1";
constexpr std::size_t LargestRequest = 8U << 20U;
constexpr std::size_t DeepestRequest = 100;
constexpr std::size_t Threads = 64;

/// Which header entries are ours, and which of them we understand.
const TzSoapNode& node() {
    static const TzSoapNode instance({Namespace},
                                     {TzXmlName("echo", TzXmlNamespace("", Namespace))});
    return instance;
}

/// Keeps the header entries that are meant for us and understood; the answer gets them.
void answerHeader(TzSoapHeader& header) {
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd();) {
        if (node().isTargetOf(*entry) && node().understands(entry->getName())) {
            entry->removeActorAttribute();
            entry->removeMustUnderstandAttribute();
            ++entry;
        } else {
            entry = header.removeHeaderEntry(entry);
        }
    }
}

/// The service itself. An echo turns the request into the answer, so values keep all that they
/// refer to: namespaces, other values, attachments. Other services begin with an empty message.
TzSoapMessage echo(TzSoapMessage& request, TzSoapType& operation) {
    answerHeader(request.getSoapHeader());
    const TzXmlName& name = operation.getName();
    operation.setName(TzXmlName(name.getLocalName() + "Response", name.getNamespace()));
    request.setProlog(TzXmlProlog());
    request.addReceivedAttachments();
    return request;
}

/// The answer to a request that was read.
TzSoapMessage answerTo(TzSoapMessage& request) {
    const std::vector<TzXmlName> misunderstood = node().findMisunderstood(request);
    if (!misunderstood.empty()) {
        return TzSoapFaultMessage::makeMustUnderstand(request.getVersion(), misunderstood);
    }
    // Entries with a false root attribute are values that others refer to.
    TzSoapBody& body = request.getSoapBody();
    const auto operation = std::find_if(body.begin(), body.end(), [](const TzSoapType& entry) {
        return entry.getRoot() || !entry.isRootAttributeSet();
    });
    if (body.hasFaultElement() || operation == body.end()) {
        return TzSoapFaultMessage::make(request.getVersion(), TzSoapVersion::Client,
                                        "The request holds no operation");
    }
    if (request.hasUserDefinedValues()) {
        return TzSoapFaultMessage::make(request.getVersion(), TzSoapVersion::DataEncodingUnknown,
                                        "A value is in an encoding that is not known here");
    }
    const Base::SoapTypeId kind = operation->getSoapTypeId();
    if (!operation->getName().getLocalName().starts_with("echo") ||
        (kind != Base::Composite && kind != Base::Simple)) {
        return TzSoapFaultMessage::make(
            request.getVersion(), TzSoapVersion::Client, TzSoapVersion::ProcedureNotPresent,
            "There is no operation " + operation->getName().getLocalName());
    }
    return echo(request, *operation);
}

/// Reads the request in `body` and packs the answer, which may be a fault, into `response`.
void serve(const TzSoapHttpTransportContext& headers, const std::string& body,
           httplib::Response& response) {
    TzSoapMessage request(TzSoapHttpBinding::getVersion(headers, body));
    request.setReadLimits({.depth = DeepestRequest});
    TzSoapMessage answer;
    TzSoapHttpTransportContext answerHeaders;
    std::string text;
    try {
        TzSoapHttpBinding::unpack(headers, body, request);
        answer = answerTo(request);
        text = TzSoapHttpBinding::pack(answer, answerHeaders);
    } catch (const Tzxmsg& error) {
        // The version is known as soon as the envelope was met.
        answer = TzSoapFaultMessage::makeFrom(request.getVersion(), error);
        text = TzSoapHttpBinding::pack(answer, answerHeaders);
    }
    response.status = TzSoapHttpBinding::getStatus(answer);
    response.headers.insert(answerHeaders.begin(), answerHeaders.end());
    response.body = std::move(text);
}

/// Collects the body piece by piece, so that the limit applies to its unzipped size, and serves it.
/// Reads a body that is too large to its end, within limits, because the answer would be lost
/// otherwise.
void receive(std::size_t largest, const httplib::Request& http, httplib::Response& response,
             const httplib::ContentReader& read) {
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
    TzSoapHttpTransportContext headers;
    headers.add("Content-Type", http.get_header_value("Content-Type"));
    serve(headers, body, response);
}

/// Serves until a signal comes; the exit status. Requests under way get their answers.
int runUntilSignal(httplib::Server& server, const sigset_t& signals) {
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
    return listening.get() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const int wanted = argc > 1 ? std::stoi(argv[1]) : 0;
    const std::size_t largest = argc > 2 ? std::stoul(argv[2]) : LargestRequest;
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr); // for all threads: one waits for them

    httplib::Server server;
    server.new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    // One request for each connection: cpp-httplib would take what was left of a body for the next.
    server.set_payload_max_length(largest).set_keep_alive_max_count(1).set_tcp_nodelay(true);
    int listener = -1;
    server.set_socket_options([&listener](socket_t made) { // a port that is taken stays taken
        const int yes = 1;
        setsockopt(made, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        listener = made;
    });
    server.Post("/", [largest](const auto& http, auto& response, const auto& read) {
        receive(largest, http, response, read);
    });
    const int port = wanted == 0 ? server.bind_to_any_port(Host) : wanted;
    if (wanted != 0 && !server.bind_to_port(Host, wanted)) {
        std::cerr << "echo_server: port " << wanted << " cannot be had\n";
        return 1;
    }
    listen(listener, SOMAXCONN); // more connections may wait than cpp-httplib lets
    std::cout << "listening on http://" << Host << ':' << port << '/' << std::endl;
    return runUntilSignal(server, signals);
}
