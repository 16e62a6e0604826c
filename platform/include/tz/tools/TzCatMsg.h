// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// One entry of a message catalogue: constant, statically initialised, never freed.
struct TzCatMsg {
    const char* domain; ///< Catalogue the entry belongs to.
    std::uint32_t id;   ///< Number of the entry within all catalogues.
    const char* text;   ///< Text with "%s" and "%d" as places for arguments.
};
