// SPDX-License-Identifier: MIT
#include <tz/thread/TzTHRIllegalUsage.h>

TzTHRIllegalUsage::TzTHRIllegalUsage(const TzCString& text) : Tzxmsg(text) {}

TzTHRIllegalUsage::~TzTHRIllegalUsage() = default;
