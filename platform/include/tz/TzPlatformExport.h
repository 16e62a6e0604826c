// SPDX-License-Identifier: MIT
#pragma once

/// Marks a class or function of the platform library as part of its interface. Everything without
/// this mark stays hidden inside the shared object.
#define TZ_PLATFORM_API __attribute__((visibility("default")))
