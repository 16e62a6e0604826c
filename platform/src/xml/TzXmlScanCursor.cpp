// SPDX-License-Identifier: MIT
#include "xml/TzXmlScanCursor.h"

#include "xml/TzXmlScanUtf8.h"

namespace {

constexpr std::uint32_t LastCharacter = 0x10FFFF;

/// The value of a hexadecimal digit, more than that of any digit for other bytes.
constexpr std::uint32_t digitOf(char byte) noexcept {
    if (byte >= '0' && byte <= '9') {
        return static_cast<std::uint32_t>(byte - '0');
    }
    const int letter = (byte | 0x20) - 'a';
    return letter >= 0 && letter < 6 ? static_cast<std::uint32_t>(letter + 10) : 16;
}

} // namespace

/// Passes characters of several bytes. False where one is malformed or not allowed.
bool TzXmlScanCursor::passWide() noexcept {
    while (!atEnd() && !TzXmlScanBytes::isAscii(*at_)) {
        const std::size_t length = TzXmlScanUtf8::lengthOf(rest());
        if (length == 0) {
            return false;
        }
        at_ += length;
    }
    return true;
}

bool TzXmlScanCursor::readReference(std::uint32_t& code) noexcept {
    constexpr struct {
        std::string_view spelling;
        char character;
    } Known[] = {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
    for (const auto& known : Known) {
        if (pass(known.spelling)) {
            code = static_cast<std::uint8_t>(known.character);
            return true;
        }
    }
    return pass("&#") && readNumber(code);
}

bool TzXmlScanCursor::readNumber(std::uint32_t& code) noexcept {
    const std::uint32_t base = pass('x') ? 16 : 10;
    code = 0; // no character, if no digit follows
    for (; !atEnd() && digitOf(*at_) < base; ++at_) {
        code = code * base + digitOf(*at_);
        if (code > LastCharacter) {
            return false;
        }
    }
    return pass(';') && TzXmlScanUtf8::isCharacter(code);
}
