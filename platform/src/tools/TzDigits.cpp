// SPDX-License-Identifier: MIT
#include "tools/TzDigits.h"

#include <string>

namespace TzDigits {

void appendPadded(TzCString& text, unsigned number, std::size_t width) {
    const TzCString digits = std::to_string(number);
    text.append(width > digits.size() ? width - digits.size() : 0, '0');
    text += digits;
}

void appendBillionths(TzCString& text, std::uint32_t billionths) {
    if (billionths != 0) {
        text += '.';
        appendPadded(text, billionths, BillionthsDigits);
        text.erase(text.find_last_not_of('0') + 1);
    }
}

} // namespace TzDigits
