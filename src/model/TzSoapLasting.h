// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzLasting.h>

/// Makes a global object of this library before, and destroys it after, every one of the program,
/// also where the library is linked into it.
#define TZSOAP_EARLY [[gnu::init_priority(103)]]

/// What this library makes on first use.
extern TzLastingList tzSoapObjects;

/// A function-local static of this library.
template <typename Value> using TzSoapLasting = TzLasting<tzSoapObjects, Value>;
