// SPDX-License-Identifier: MIT
#include "http/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void require(int error, const std::string& what) {
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), what);
    }
}

/// What a new process does before the program begins.
class Actions {
public:
    Actions() { require(posix_spawn_file_actions_init(&actions_), "file actions"); }
    ~Actions() { posix_spawn_file_actions_destroy(&actions_); }
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;

    /// Makes `from` the standard output.
    void setOutput(int from) {
        require(posix_spawn_file_actions_adddup2(&actions_, from, STDOUT_FILENO), "output");
    }
    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command) {
    std::array<int, 2> ends{};
    require(pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno, "pipe");
    output_ = ends[0];
    std::vector<char*> arguments;
    for (const std::string& part : command) {
        arguments.push_back(const_cast<char*>(part.c_str()));
    }
    arguments.push_back(nullptr);
    Actions actions;
    actions.setOutput(ends[1]);
    const int error =
        posix_spawn(&pid_, arguments[0], actions.get(), nullptr, arguments.data(), environ);
    close(ends[1]);
    require(error, command[0]);
}

ChildProcess::~ChildProcess() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        wait();
    }
    close(output_);
}

bool ChildProcess::readMore() {
    std::array<char, 4096> buffer;
    ssize_t count = 0;
    do {
        count = read(output_, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    if (count > 0) {
        read_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return count > 0;
}

std::string ChildProcess::readLine() {
    std::size_t end = read_.find('\n');
    while (end == std::string::npos && readMore()) {
        end = read_.find('\n');
    }
    const std::string line = read_.substr(0, end);
    read_.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

std::string ChildProcess::readAll() {
    while (readMore()) {
    }
    return std::exchange(read_, {});
}

void ChildProcess::signal(int number) const { kill(pid_, number); }

int ChildProcess::wait() {
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
