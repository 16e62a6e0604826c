// SPDX-License-Identifier: MIT
#include <tz/thread/TzTHRInvalidPointer.h>

TzTHRInvalidPointer::TzTHRInvalidPointer(const TzCString& text) : Tzxmsg(text) {}

TzTHRInvalidPointer::~TzTHRInvalidPointer() = default;
