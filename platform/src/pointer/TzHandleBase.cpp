// SPDX-License-Identifier: MIT
#include <tz/pointer/TzHandleBase.h>

#include <tz/thread/TzTHRInvalidPointer.h>

void TzHandleBase::throwInvalidPointer() { throw TzTHRInvalidPointer("Invalid pointer"); }
