// SPDX-License-Identifier: MIT
#include <tz/tools/TzBadValueError.h>

TzBadValueError::TzBadValueError(const TzCString& text) : Tzxmsg(text) {}

TzBadValueError::~TzBadValueError() = default;
