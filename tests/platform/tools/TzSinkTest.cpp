// SPDX-License-Identifier: MIT
//
// Functions, streams and file descriptors that take texts, and what happens when they fail.
#include <tz/tools/TzSink.h>

#include <tz/tools/TzWriteError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace std::string_literals;

/// Takes so many characters and no more.
class FullBuffer final : public std::streambuf {
public:
    explicit FullBuffer(std::size_t room) : text_(room, '\0') {
        setp(text_.data(), text_.data() + room);
    }
    std::string taken() const { return {pbase(), pptr()}; }

private:
    std::string text_;
};

/// The two ends of a connection that does not block, with little room between them.
class Connection {
public:
    explicit Connection(int flags = SOCK_NONBLOCK) {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | flags, 0, ends_), 0);
        const int size = 4096;
        setsockopt(ends_[0], SOL_SOCKET, SO_SNDBUF, &size, sizeof size);
    }
    ~Connection() {
        close(ends_[0]);
        close(ends_[1]);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    int writer() const { return ends_[0]; }
    /// Reads until `size` bytes came.
    std::string read(std::size_t size) const {
        fcntl(ends_[1], F_SETFL, 0);
        std::string text(size, '\0');
        std::size_t at = 0;
        while (at < size) {
            const ssize_t got = ::read(ends_[1], text.data() + at, size - at);
            if (got <= 0) {
                break;
            }
            at += static_cast<std::size_t>(got);
        }
        text.resize(at);
        return text;
    }

private:
    int ends_[2];
};

std::string longText() {
    std::string text;
    for (int i = 0; text.size() < 1000000; ++i) {
        text += std::to_string(i) + ' ';
    }
    return text;
}

std::atomic<int> interruptions{0};

} // namespace

TEST(TzSink, CallsAFunction) {
    std::vector<std::string> pieces;
    const auto take = [&pieces](std::string_view piece) { pieces.emplace_back(piece); };
    const TzSink sink(take);
    sink.take("a");
    sink.take("");
    sink.take("\0b"s);
    EXPECT_EQ(pieces, (std::vector<std::string>{"a", "\0b"s}));
}

TEST(TzSink, CallsAFunctionThatChanges) {
    std::size_t count = 0;
    auto take = [count](std::string_view piece) mutable {
        count += piece.size();
        return count;
    };
    const TzSink sink(take);
    const TzSink copy = sink;
    sink.take("abc");
    copy.take("de");
    EXPECT_EQ(take("f"), 6U);
}

TEST(TzSink, LetsWhatTheFunctionThrowsPass) {
    const auto take = [](std::string_view) { throw std::runtime_error("no"); };
    EXPECT_THROW(TzSink(take).take("a"), std::runtime_error);
    EXPECT_NO_THROW(TzSink(take).take(""));
}

TEST(TzSink, WritesToAStream) {
    std::ostringstream stream;
    const TzSink sink(stream);
    sink.take("a\0b"s);
    sink.take("c");
    EXPECT_EQ(stream.str(), "a\0bc"s);
}

TEST(TzSink, ReportsAFullStream) {
    FullBuffer buffer(3);
    std::ostream stream(&buffer);
    const TzSink sink(stream);
    sink.take("ab");
    EXPECT_EQ(textThrown<TzWriteError>([&] { sink.take("cd"); }), "the stream cannot be written");
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(buffer.taken(), "abc");
    EXPECT_EQ(textThrown<TzWriteError>([&] { sink.take("e"); }), "the stream cannot be written");
}

TEST(TzSink, LetsWhatAStreamThrowsPass) {
    FullBuffer buffer(1);
    std::ostream stream(&buffer);
    stream.exceptions(std::ios::badbit);
    EXPECT_THROW(TzSink(stream).take("ab"), std::ios_base::failure);
}

TEST(TzSink, WritesToADescriptorThatTakesParts) {
    const Connection connection;
    const std::string text = longText();
    std::string got;
    std::thread reader([&] { got = connection.read(text.size()); });
    TzSink::toDescriptor(connection.writer()).take(text);
    reader.join();
    EXPECT_EQ(got, text);
}

TEST(TzSink, GoesOnAfterAnInterruptedWrite) {
    struct sigaction action = {};
    struct sigaction before = {};
    action.sa_handler = [](int) { ++interruptions; }; // without SA_RESTART
    sigaction(SIGUSR1, &action, &before);
    const Connection connection(0);
    const std::string text = longText();
    interruptions = 0;
    std::string got;
    const pthread_t writer = pthread_self();
    std::thread reader([&] {
        // The writer blocks, because nobody reads: each signal interrupts it.
        for (int i = 0; i < 20; ++i) {
            pthread_kill(writer, SIGUSR1);
            usleep(2000);
        }
        got = connection.read(text.size());
    });
    TzSink::toDescriptor(connection.writer()).take(text);
    reader.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_GT(interruptions, 0);
    EXPECT_EQ(got, text);
}

TEST(TzSink, ReportsAClosedDescriptor) {
    const int descriptor = open("/dev/null", O_WRONLY);
    close(descriptor);
    try {
        TzSink::toDescriptor(descriptor).take("a");
        FAIL() << "nothing was thrown";
    } catch (const TzWriteError& error) {
        EXPECT_EQ(error.asString(), "the file descriptor cannot be written: Bad file descriptor");
        EXPECT_EQ(error.getNumber(), EBADF);
    }
}

TEST(TzSink, ReportsAFullDevice) {
    const int descriptor = open("/dev/full", O_WRONLY);
    const std::string text =
        textThrown<TzWriteError>([descriptor] { TzSink::toDescriptor(descriptor).take("a"); });
    close(descriptor);
    EXPECT_EQ(text, "the file descriptor cannot be written: No space left on device");
}

TEST(TzSink, LeavesADescriptorAloneWithoutText) {
    EXPECT_NO_THROW(TzSink::toDescriptor(-1).take(""));
}
