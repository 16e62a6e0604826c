// SPDX-License-Identifier: MIT
#include <tz/tools/TzWriteError.h>

TzWriteError::TzWriteError(const TzCString& text, int number) : Tzxmsg(text), number_(number) {}

TzWriteError::~TzWriteError() = default;
