// SPDX-License-Identifier: MIT

// Uses the library in every place at the end of a process: the first time in main, then from exit
// handlers registered before and after that, from the destructors of global objects and of objects
// of the thread. Afterwards all that the library took by operator new must have been given back.

#include "LastWord.h"
#include "UseLibrary.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

#include <unistd.h>

namespace {

std::ptrdiff_t live = 0;

/// Uses the library when it is destroyed.
struct Last {
    const char* place;
    ~Last() { useLibrary(place); }
};

const Last global{"the destructor of a global object"};
thread_local const Last ofThread{"the destructor of an object of the thread"};

void firstHandler() { useLibrary("a handler registered before the first use"); }
void secondHandler() { useLibrary("a handler registered after the first use"); }

/// Blocks that stay: the text to compare with in `useLibrary`.
std::ptrdiff_t expected = 0;

void expectNothingLeft() {
    if (live != expected) {
        std::fprintf(stderr, "%td blocks are left, %td expected\n", live, expected);
        _exit(1);
    }
}

} // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++live;
    return block;
}
void operator delete(void* block) noexcept {
    live -= block != nullptr ? 1 : 0;
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

int main() {
    lastWord(expectNothingLeft);
    static_cast<void>(ofThread.place);
    std::atexit(firstHandler);
    useLibrary("main");
    std::atexit(secondHandler);
    // The string of the first text and its characters.
    expected = 2;
}
