// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

/// A program that runs beside the test, its standard output read through a pipe. Killed, if it
/// still runs, with this object.
class ChildProcess {
public:
    /// Starts `command`, whose first part is the path of the program. `std::runtime_error` when
    /// that fails.
    explicit ChildProcess(const std::vector<std::string>& command);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next line of its output without the line feed; what there is when the output ends.
    std::string readLine();
    /// The rest of its output, to its end.
    std::string readAll();
    /// Sends it a signal.
    void signal(int number) const;
    /// Waits for its end: the exit status, or minus the number of the signal that ended it.
    int wait();
    /// The process id.
    pid_t pid() const noexcept { return pid_; }

private:
    bool readMore();

    pid_t pid_ = -1;
    int output_ = -1;
    std::string read_;
};
