// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

/// A parameter of a media type.
struct TzMimeParameter {
    TzCString name;
    TzCString value;
};
