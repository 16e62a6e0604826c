// SPDX-License-Identifier: MIT
#include "support/StackUse.h"

#include "support/Instrumented.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t Size = std::size_t{64} << 20;

void* run(void* action) {
    (*static_cast<const std::function<void()>*>(action))();
    return nullptr;
}

/// Runs `action` on a thread whose stack is `stack`.
void runOn(void* stack, std::function<void()> action) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, stack, Size);
    pthread_t thread{};
    const int failure = pthread_create(&thread, &attributes, run, &action);
    EXPECT_EQ(failure, 0);
    if (failure == 0) {
        pthread_join(thread, nullptr);
    }
    pthread_attr_destroy(&attributes);
}

/// Bytes from the lowest page of `stack` that was touched up to its end.
std::size_t touched(void* stack) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> pages(Size / page);
    EXPECT_EQ(mincore(stack, Size, pages.data()), 0);
    const auto lowest = std::find_if(pages.begin(), pages.end(),
                                     [](unsigned char state) { return (state & 1U) != 0; });
    return static_cast<std::size_t>(pages.end() - lowest) * page;
}

} // namespace

std::size_t stackUse(const std::function<void()>& action) {
    void* const stack =
        mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (stack == MAP_FAILED) {
        ADD_FAILURE() << "no memory for a stack";
        return 0;
    }
    madvise(stack, Size, MADV_NOHUGEPAGE);
    runOn(stack, action);
    const std::size_t used = touched(stack);
    munmap(stack, Size);
    return Instrumented ? 0 : used;
}
