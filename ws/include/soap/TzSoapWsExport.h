// SPDX-License-Identifier: MIT
#pragma once

/// Marks a class of the WS-* library as part of its interface. Everything without this mark stays
/// hidden inside the shared object.
#define TZSOAP_WS_API __attribute__((visibility("default")))
