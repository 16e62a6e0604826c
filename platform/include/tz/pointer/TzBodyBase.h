// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzTCountingBody.h>

/// The counted body behind every handle.
using TzBodyBase = TzTCountingBody<TzMutexLock>;
