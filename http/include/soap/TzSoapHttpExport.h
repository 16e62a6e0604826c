// SPDX-License-Identifier: MIT
#pragma once

/// Marks a class of the HTTP client as part of its interface. Everything without this mark stays
/// hidden inside the shared object.
#define TZSOAP_HTTP_API __attribute__((visibility("default")))
