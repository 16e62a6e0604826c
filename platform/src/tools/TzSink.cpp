// SPDX-License-Identifier: MIT
#include <tz/tools/TzSink.h>

#include <tz/tools/TzCString.h>
#include <tz/tools/TzWriteError.h>

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ostream>

namespace {

[[noreturn]] void refuse(int number) {
    const char* const reason = strerrordesc_np(number); // the same in every locale
    throw TzWriteError(
        "the file descriptor cannot be written: " +
            (reason != nullptr ? TzCString(reason) : "error " + std::to_string(number)),
        number);
}

/// Waits until the descriptor, which does not block, takes something.
void waitFor(int descriptor) {
    pollfd awaited{descriptor, POLLOUT, 0};
    if (poll(&awaited, 1, -1) < 0 && errno != EINTR) {
        refuse(errno);
    }
}

/// How many of the bytes the descriptor took; 0 when it has to be asked again.
std::size_t writeSome(int descriptor, std::string_view bytes) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written > 0) {
        return static_cast<std::size_t>(written);
    }
    if (written == 0) {
        throw TzWriteError("the file descriptor takes no bytes");
    }
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
        waitFor(descriptor);
    } else if (errno != EINTR) {
        refuse(errno);
    }
    return 0;
}

} // namespace

TzSink::TzSink(std::ostream& stream) noexcept : take_(&writeToStream), object_(&stream) {}

TzSink TzSink::toDescriptor(int descriptor) noexcept {
    TzSink sink(&writeToDescriptor);
    sink.descriptor_ = descriptor;
    return sink;
}

void TzSink::writeToStream(const TzSink& sink, std::string_view piece) {
    auto& stream = *static_cast<std::ostream*>(sink.object_);
    if (!stream.write(piece.data(), static_cast<std::streamsize>(piece.size()))) {
        throw TzWriteError("the stream cannot be written");
    }
}

void TzSink::writeToDescriptor(const TzSink& sink, std::string_view piece) {
    while (!piece.empty()) {
        piece.remove_prefix(writeSome(sink.descriptor_, piece));
    }
}
