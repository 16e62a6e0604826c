// SPDX-License-Identifier: MIT
#include <tz/tools/TzDecimalPortable.h>

#include <tz/tools/TzBadValueError.h>

#include "TzTextReader.h"

#include <algorithm>
#include <ostream>

namespace {

/// The exponent as a shift of the point to the right, 0 without one.
std::ptrdiff_t readExponent(TzTextReader& reader, std::string_view text) {
    if (!reader.take('e') && !reader.take('E')) {
        return 0;
    }
    const bool negative = reader.take('-');
    if (!negative) {
        reader.take('+');
    }
    std::string_view digits = reader.digits();
    if (digits.empty()) {
        reader.fail();
    }
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    // Looked at before any zero is written: a short text must not ask for a long number.
    const unsigned value = digits.size() > 4 ? TzDecimalPortable::ExponentLimit + 1
                                             : TzTextReader(digits).number(digits.size());
    if (reader.complete() && value > TzDecimalPortable::ExponentLimit) {
        throw TzBadValueError(tzQuoted(text) + " has an exponent beyond " +
                              std::to_string(TzDecimalPortable::ExponentLimit));
    }
    return negative ? -static_cast<std::ptrdiff_t>(value) : static_cast<std::ptrdiff_t>(value);
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

TzDecimalPortable::TzDecimalPortable(std::string_view text) {
    TzTextReader reader(text);
    const bool negative = reader.take('-');
    if (!negative) {
        reader.take('+');
    }
    const std::string_view whole = reader.digits();
    const std::string_view fraction = reader.take('.') ? reader.digits() : std::string_view();
    const std::ptrdiff_t exponent = readExponent(reader, text);
    TzCString digits(whole);
    digits += fraction;
    if (!reader.complete() || digits.empty()) {
        throw TzBadValueError(tzQuoted(text) + " is not a decimal number");
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
