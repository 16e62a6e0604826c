// SPDX-License-Identifier: MIT

// A plugin that uses the library, also while it is unloaded.

#include "UseLibrary.h"

namespace {

/// Uses the library when it is destroyed.
struct Last {
    ~Last() {
        useLibrary("the destructor of a plugin's global object");
        endUse();
    }
};

const Last global;

} // namespace

extern "C" [[gnu::visibility("default")]] void usePlugin() { useLibrary("the plugin"); }
