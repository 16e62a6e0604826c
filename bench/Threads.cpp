// SPDX-License-Identifier: MIT
#include "Isolated.h"
#include "Peers.h"
#include "Subject.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Work = std::function<void()>;

constexpr int Rounds = 31;
constexpr auto RoundTime = std::chrono::milliseconds(40);

/// What one operation takes, divided by the number of threads.
struct Seconds {
    double elapsed;
    double processor; ///< Of the processors that the threads had; other programs do not count.
};

double processorSeconds() {
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Repeats `work` on each of `count` threads for one round.
Seconds secondsOfOne(const Work& work, std::size_t count) {
    std::atomic<std::size_t> done{0};
    const double processor = processorSeconds();
    const Clock::time_point start = Clock::now();
    const auto run = [&] {
        std::size_t own = 0;
        for (const auto end = Clock::now() + RoundTime; Clock::now() < end; own += 8) {
            for (int i = 0; i < 8; ++i) {
                work();
            }
        }
        done += own;
    };
    std::vector<std::thread> others;
    for (std::size_t i = 1; i < count; ++i) {
        others.emplace_back(run);
    }
    run();
    for (std::thread& other : others) {
        other.join();
    }
    const std::chrono::duration<double> taken = Clock::now() - start;
    const auto operations = static_cast<double>(done.load());
    return {taken.count() / operations,
            (processorSeconds() - processor) / operations / static_cast<double>(count)};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// A thread that waits as long as the object lives: the process has a second thread then.
class SecondThread {
public:
    SecondThread() : thread_([this] { wait(); }) {}
    ~SecondThread() {
        {
            const std::lock_guard<std::mutex> guard(mutex_);
            ended_ = true;
        }
        condition_.notify_one();
        thread_.join();
    }
    SecondThread(const SecondThread&) = delete;
    SecondThread& operator=(const SecondThread&) = delete;

private:
    void wait() {
        std::unique_lock<std::mutex> lock(mutex_);
        condition_.wait(lock, [this] { return ended_; });
    }

    std::mutex mutex_;
    std::condition_variable condition_;
    bool ended_ = false;
    std::thread thread_;
};

} // namespace

void isolated::measureThreads(MedianReporter& measured) {
    const SharedSubject subject = subjects::request();
    const std::string& text = subject->text();
    const std::pair<const char*, Work> all[] = {{"tzsoap",
                                                 [&text] {
                                                     TzSoapMessage message;
                                                     message.extract(text);
                                                 }},
                                                {"expat", [&text] { peers::expatNoOp(text); }}};
    const SecondThread second;
    std::vector<double> elapsed[2][2];
    std::vector<double> processor[2][2];
    // In turn, so that other programs on the machine slow all of them down.
    for (int round = 0; round < Rounds; ++round) {
        for (const std::size_t count : {1, 2}) {
            for (std::size_t which = 0; which < 2; ++which) {
                const Seconds seconds = secondsOfOne(all[which].second, count);
                elapsed[which][count - 1].push_back(seconds.elapsed);
                processor[which][count - 1].push_back(seconds.processor);
            }
        }
    }
    for (std::size_t which = 0; which < 2; ++which) {
        for (const std::size_t count : {1, 2}) {
            const std::string name =
                std::string("threads/read/S/") + all[which].first + "/" + std::to_string(count);
            measured.note(name, median(processor[which][count - 1]));
            measured.note(name + "/elapsed", median(elapsed[which][count - 1]));
            std::printf("%-40s %10.5f ms, %10.5f ms elapsed\n", name.c_str(),
                        1e3 * measured.median(name), 1e3 * measured.median(name + "/elapsed"));
        }
    }
}
