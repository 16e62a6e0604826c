// SPDX-License-Identifier: MIT
#include "tools/TzPlatformLasting.h"

// The earliest priority: made before and destroyed after every object of the program, even
// where the libraries are linked into it.
[[gnu::init_priority(101)]] constinit TzLastingList tzPlatformObjects;
