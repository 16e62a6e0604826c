// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzLasting.h>

/// What this library makes on first use.
extern TzLastingList tzPlatformObjects;

/// A function-local static of this library.
template <typename Value> using TzPlatformLasting = TzLasting<tzPlatformObjects, Value>;
