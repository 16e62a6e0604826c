// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>

/// The value that `value` stands for: itself, or what it refers to, through up to 100 references in
/// a row; the last of these when it has no value. O(references in a row).
TzSoapType tzSoapFollow(const TzSoapType& value);
