// SPDX-License-Identifier: MIT
#include "http/EchoServer.h"
#include "http/HostileRequests.h"
#include "http/RawConnection.h"
#include "support/ReadValues.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

#ifdef __SANITIZE_THREAD__
constexpr std::chrono::seconds LoadTime(10);
#else
constexpr std::chrono::seconds LoadTime(3);
#endif
constexpr unsigned Clients = 200;
constexpr unsigned HalfOpeners = 8;
constexpr std::size_t LargestRequest = 512U << 10U;

const TzXmlNamespace& space() {
    static const TzXmlNamespace instance("m", "urn:example:echo");
    return instance;
}

/// What went wrong in any thread.
class Failures {
public:
    void add(const std::string& what) {
        const std::lock_guard lock(mutex_);
        if (texts_.size() < MostShown) {
            texts_.push_back(what);
        }
        ++count_;
    }
    void expectNone() {
        const std::lock_guard lock(mutex_);
        EXPECT_EQ(count_, 0U);
        for (const std::string& text : texts_) {
            ADD_FAILURE() << text;
        }
    }

private:
    static constexpr std::size_t MostShown = 10;

    std::mutex mutex_;
    std::vector<std::string> texts_;
    std::size_t count_ = 0;
};

/// A client that sends what no other client sends, and knows what has to come back.
class LoadClient {
public:
    LoadClient(const EchoServer& server, unsigned number, Failures& failures)
        : server_(server), http_(server.client()), random_(number), number_(number),
          failures_(failures) {}

    void runUntil(Clock::time_point end) {
        while (Clock::now() < end) {
            switch (pick(10)) {
            case 0:
                sendHostile();
                break;
            case 1:
                sendRaw();
                break;
            default:
                sendGood();
            }
            ++sent_;
        }
    }
    std::size_t sent() const noexcept { return sent_; }

private:
    unsigned pick(std::size_t choices) { return static_cast<unsigned>(random_() % choices); }

    void fail(const std::string& what) {
        failures_.add("client " + std::to_string(number_) + ", request " + std::to_string(sent_) +
                      ": " + what);
    }

    /// A text that only this request has.
    std::string ownText() {
        std::string text =
            std::to_string(number_) + "-" + std::to_string(sent_) + " <&> é \U0001F600";
        return text.append(pick(2000), static_cast<char>('a' + pick(26)));
    }

    TzSoapMessage makeRequest(const std::string& text, bool attached) {
        TzSoapMessage message(pick(2) == 0 ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2);
        TzSoapCompositeType operation(TzXmlName("echoLoad", space()));
        operation.appendChild(TzSoapSimpleType("text", text, TzSoapContentBase::xsdString, true));
        TzSoapCompactArrayType array(TzXmlName("numbers"), "xsd:int", 10U, 0U);
        for (unsigned int i = 0; i < 10; ++i) {
            array[i] = TzSoapSimpleType("n", i * number_, TzSoapContentBase::xsdInt, true);
        }
        operation.appendChild(array);
        if (attached) {
            TzMimePart part;
            part.insertHeader(TzMimeContentIdHeader("<part>"));
            part.setBody(text + '\0');
            operation.appendChild(TzSoapReferenceType(TzXmlName("part"), part));
        }
        message.getSoapHeader().appendHeaderEntry(
            TzSoapSimpleType(TzXmlName("echo", space()), text, TzSoapContentBase::xsdString, true),
            true);
        message.getSoapBody().appendEntry(operation);
        return message;
    }

    HttpAnswer post(const std::string& contentType, const std::string& body) {
        const httplib::Result result = http_.Post("/", body, contentType);
        if (!result) {
            fail("no answer: " + httplib::to_string(result.error()));
            return {};
        }
        return {result->status, result->get_header_value("Content-Type"), result->body};
    }

    void sendGood() {
        const std::string text = ownText();
        const bool attached = pick(5) == 0;
        const TzSoapMessage request = makeRequest(text, attached);
        TzSoapHttpTransportContext context;
        const std::string body = TzSoapHttpBinding::pack(request, context);
        const HttpAnswer answer =
            post(context.find(TzSoapHttpBinding::getContentTypeLabel())->second, body);
        if (answer.status != 200) {
            return fail("status " + std::to_string(answer.status) + "\n" + answer.body);
        }
        try {
            expectEchoed(request, messageIn(answer), text, attached);
        } catch (const std::exception& error) {
            fail(error.what());
        }
    }

    void expectEchoed(const TzSoapMessage& request, const TzSoapMessage& answer,
                      const std::string& text, bool attached) {
        const TzSoapType& response = *answer.getSoapBody().entriesBegin();
        const TzSoapCompactArrayType numbers = compact(child(response, "numbers"));
        bool same = answer.getVersion() == request.getVersion() &&
                    response.getName() == TzXmlName("echoLoadResponse", space()) &&
                    textOf(child(response, "text")) == text && numbers.entries() == 10 &&
                    textOf(*answer.getSoapHeader().entriesBegin()) == text;
        for (unsigned int i = 0; same && i < 10; ++i) {
            same = textOf(numbers[i]) == std::to_string(i * number_);
        }
        if (same && attached) {
            same = reference(child(response, "part")).getMimeReference().getBody() == text + '\0';
        }
        if (!same) {
            fail("another answer came back:\n" + answer.asString());
        }
    }

    void sendHostile() {
        const HostileRequest& request = hostileRequests()[pick(hostileRequests().size())];
        if (pick(20) == 0) {
            const HttpAnswer answer = post("text/xml", std::string(LargestRequest + 1, ' '));
            if (answer.status != 413) {
                fail("too large a request: status " + std::to_string(answer.status));
            }
            return;
        }
        const HttpAnswer answer = post(request.contentType, request.body);
        if (!isRefusal(answer)) {
            fail(request.what + ": status " + std::to_string(answer.status) + "\n" + answer.body);
        }
    }

    void sendRaw() {
        RawConnection connection(server_.port());
        connection.send(brokenHttp()[pick(brokenHttp().size())]);
        connection.finishSending();
        const std::string answer = connection.readAll();
        if (answer.starts_with("HTTP/1.1 2")) {
            fail("an answer to what is not HTTP:\n" + answer);
        }
    }

    const EchoServer& server_;
    httplib::Client http_;
    std::minstd_rand random_;
    unsigned number_;
    Failures& failures_;
    std::size_t sent_ = 0;
};

/// Keeps a connection open on which a request begins and does not end, over and over.
void keepHalfOpen(const EchoServer& server, unsigned number, Clock::time_point end) {
    while (Clock::now() < end) {
        const RawConnection connection(server.port());
        if (number % 2 == 0) {
            connection.send("POST / HTTP/1.1\r\nContent-Length: 100\r\n\r\n<e:Envelope");
        }
        // Until the server has had enough of it.
        connection.readAll();
    }
}

/// How many files and connections the process has open.
std::ptrdiff_t openFiles(pid_t process) {
    const std::filesystem::directory_iterator files("/proc/" + std::to_string(process) + "/fd");
    return std::distance(begin(files), end(files));
}

} // namespace

TEST(EchoServerThread, ServesManyClientsAmongHostileOnes) {
    // The server may end a connection on which a client still sends.
    std::signal(SIGPIPE, SIG_IGN);
    EchoServer server(std::to_string(LargestRequest));
    const std::ptrdiff_t openBefore = openFiles(server.process().pid());
    Failures failures;
    std::atomic<std::size_t> sent = 0;
    const Clock::time_point end = Clock::now() + LoadTime;
    std::vector<std::thread> threads;
    for (unsigned number = 0; number < Clients; ++number) {
        threads.emplace_back([&, number] {
            try {
                LoadClient client(server, number, failures);
                client.runUntil(end);
                sent += client.sent();
            } catch (const std::exception& error) {
                failures.add(error.what());
            }
        });
    }
    for (unsigned number = 0; number < HalfOpeners; ++number) {
        threads.emplace_back([&, number] { keepHalfOpen(server, number, end); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    failures.expectNone();
    std::cout << sent << " requests\n";
    EXPECT_GT(sent, Clients);
    // The last connections end when nothing more comes on them.
    const Clock::time_point patience = Clock::now() + std::chrono::seconds(60);
    while (openFiles(server.process().pid()) > openBefore && Clock::now() < patience) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(openFiles(server.process().pid()), openBefore);
    // A sanitizer in the server makes its exit status another one when it found something.
    EXPECT_EQ(server.stop(SIGTERM), 0);
}
