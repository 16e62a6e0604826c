// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

#include <csignal>

/// As long as it lives, the thread that made it gets no SIGPIPE from a connection that the other
/// side closed: TLS libraries write without MSG_NOSIGNAL.
class TzSoapSigpipeBlock {
public:
    TzSoapSigpipeBlock() noexcept {
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    ~TzSoapSigpipeBlock() {
        if (!wasPending_) {
            const timespec now{};
            sigtimedwait(&pipe_, nullptr, &now); // takes the one that came meanwhile
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    TzSoapSigpipeBlock(const TzSoapSigpipeBlock&) = delete;
    TzSoapSigpipeBlock& operator=(const TzSoapSigpipeBlock&) = delete;

private:
    sigset_t pipe_{};
    sigset_t before_{};
    bool wasPending_ = false;
};
