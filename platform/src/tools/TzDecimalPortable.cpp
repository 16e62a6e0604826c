// SPDX-License-Identifier: MIT
#include <tz/tools/TzDecimalPortable.h>

#include <tz/tools/TzBadValueError.h>

#include "tools/TzTextReader.h"

#include <algorithm>
#include <ostream>

namespace {

/// Passes over a sign, if one comes next; whether it was '-'.
bool readSign(TzTextReader& reader) noexcept {
    const bool negative = reader.take('-');
    if (!negative) {
        reader.take('+');
    }
    return negative;
}

constexpr std::ptrdiff_t Limit = TzDecimalPortable::ExponentLimit;

/// The exponent that comes next, 0 without one; anything beyond the limit is as good as one beyond.
std::ptrdiff_t readExponent(TzTextReader& reader) noexcept {
    if (!reader.take('e') && !reader.take('E')) {
        return 0;
    }
    const bool negative = readSign(reader);
    if (!reader.atDigit()) {
        reader.fail();
    }
    std::string_view digits = reader.digits();
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    constexpr std::size_t DigitsOfLimit = 4;
    const std::ptrdiff_t value =
        digits.size() > DigitsOfLimit
            ? Limit + 1
            : static_cast<std::ptrdiff_t>(TzTextReader(digits).number(digits.size()));
    return negative ? -value : value;
}

/// The digits of a number with the point before the one at `point`, which may lie outside of them.
TzCString withPoint(TzCString digits, std::ptrdiff_t point) {
    if (point < 0) {
        digits.insert(0, static_cast<std::size_t>(-point), '0');
        point = 0;
    }
    const auto whole = static_cast<std::size_t>(point);
    digits.resize(std::max(digits.size(), whole), '0');
    const std::size_t leading = std::min(digits.find_first_not_of('0'), whole);
    TzCString number = leading == whole ? "0" : digits.substr(leading, whole - leading);
    if (whole < digits.size()) {
        number.append(1, '.').append(digits, whole);
    }
    return number;
}

} // namespace

TzDecimalPortable::TzDecimalPortable(const char* text)
    : TzDecimalPortable(text == nullptr ? std::string_view() : std::string_view(text)) {}

TzDecimalPortable::TzDecimalPortable(std::string_view text) {
    TzTextReader reader(text);
    const bool negative = readSign(reader);
    const std::string_view whole = reader.digits();
    const std::string_view fraction = reader.take('.') ? reader.digits() : std::string_view();
    const std::ptrdiff_t exponent = readExponent(reader);
    TzCString digits(whole);
    digits += fraction;
    if (!reader.complete() || digits.empty()) {
        throw TzBadValueError(tzQuoted(text) + " is not a decimal number");
    }
    // Check before writing any zero: a short text must not cause a long number.
    if (exponent > Limit || exponent < -Limit) {
        throw TzBadValueError(tzQuoted(text) + " has an exponent beyond " + std::to_string(Limit));
    }
    const bool zero = digits.find_first_not_of('0') == TzCString::npos;
    text_ = withPoint(std::move(digits), static_cast<std::ptrdiff_t>(whole.size()) + exponent);
    if (negative && !zero) {
        text_.insert(0, 1, '-');
    }
}

std::ostream& operator<<(std::ostream& stream, const TzDecimalPortable& number) {
    const TzCString& text = number.asString();
    stream.width(0);
    return stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}
