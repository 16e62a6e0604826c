// SPDX-License-Identifier: MIT
#include "conversion/TzSoapLosses.h"

TzCString TzSoapLosses::shown(std::string_view text) {
    constexpr std::size_t Longest = 128;
    if (text.size() <= Longest) {
        return TzCString(text);
    }
    std::size_t end = Longest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end; // within a character
    }
    return TzCString(text.substr(0, end)) + "...";
}
