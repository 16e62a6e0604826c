// SPDX-License-Identifier: MIT
#pragma once

/// `check` runs after everything else at exit: after the exit handlers, the destructors of global
/// objects and the unloading of all libraries. It must need none of them.
[[gnu::visibility("default")]] void lastWord(void (*check)());
