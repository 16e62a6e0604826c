// SPDX-License-Identifier: MIT
#include <tz/tools/TzUtcOffset.h>

#include "tools/TzDigits.h"

TzCString TzUtcOffset::asString() const {
    if (isZ_) {
        return "Z";
    }
    const auto minutes = static_cast<unsigned>(std::chrono::abs(ahead_).count());
    TzCString text(1, ahead_.count() < 0 ? '-' : '+');
    TzDigits::appendPadded(text, minutes / 60, 2);
    text += ':';
    TzDigits::appendPadded(text, minutes % 60, 2);
    return text;
}
