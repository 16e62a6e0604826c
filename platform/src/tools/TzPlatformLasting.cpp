// SPDX-License-Identifier: MIT
#include "tools/TzPlatformLasting.h"

// The earliest priority there is: made before, destroyed after every object of the program, also
// where the libraries are linked into it.
[[gnu::init_priority(101)]] constinit TzLastingList tzPlatformObjects;
