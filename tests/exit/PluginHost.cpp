// SPDX-License-Identifier: MIT

// A program that knows nothing of the library and loads a plugin which uses it: "keep" leaves the
// plugin to the end of the process, "unload" unloads and loads it again before.

#include <cstdio>
#include <string>

#include <dlfcn.h>

namespace {

int fail() {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        return 2;
    }
    const int rounds = std::string(arguments[2]) == "unload" ? 3 : 1;
    for (int round = 0; round < rounds; ++round) {
        void* const plugin = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
        if (plugin == nullptr) {
            return fail();
        }
        void* const use = dlsym(plugin, "usePlugin");
        if (use == nullptr) {
            return fail();
        }
        reinterpret_cast<void (*)()>(use)();
        if (rounds > 1 && dlclose(plugin) != 0) {
            return fail();
        }
    }
}
