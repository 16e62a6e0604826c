// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzTCountingBody.h>

/// The counted body that handles refer to.
using TzBodyBase = TzTCountingBody<TzMutexLock>;
