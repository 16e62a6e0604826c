// SPDX-License-Identifier: MIT
#include "values/TzSoapNumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <limits>

namespace {

/// A number without the white space and the sign before it.
struct Unsigned {
    std::string_view digits;
    bool negative = false;
};

Unsigned passSign(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    Unsigned number{text};
    if (text.starts_with('-') || text.starts_with('+')) {
        number.negative = text.front() == '-';
        number.digits.remove_prefix(1);
    }
    // One sign only: from_chars would accept another '-'.
    if (number.digits.starts_with('-')) {
        number.digits = {};
    }
    return number;
}

const char* endOf(std::string_view text) noexcept { return text.data() + text.size(); }

/// Whether a number that no `double` can hold is too large for it rather than too small.
bool tooLarge(std::string_view number, bool hexadecimal) noexcept {
    const std::size_t marked = number.find_first_of(hexadecimal ? "pP" : "eE");
    const std::string_view digits = number.substr(0, marked);
    constexpr long long limit = std::numeric_limits<long long>::max() / 8;
    const long long exponent =
        marked == std::string_view::npos
            ? 0
            : std::clamp(TzSoapNumberText::toInteger(number.substr(marked + 1)), -limit, limit);
    const auto point = static_cast<long long>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<long long>(digits.find_first_not_of("0."));
    return exponent + (point - first) * (hexadecimal ? 4 : 1) > 0;
}

/// Whether the digits are hexadecimal; "0x" without such a digit is a decimal 0.
bool isHexadecimal(std::string_view digits) noexcept {
    if (!digits.starts_with("0x") && !digits.starts_with("0X")) {
        return false;
    }
    const std::size_t first = digits.substr(2).starts_with('.') ? 3 : 2;
    return digits.find_first_of("0123456789abcdefABCDEF", first) == first;
}

template <std::integral Number> char* format(char* from, char* to, Number number) {
    return std::to_chars(from, to, number).ptr;
}

template <std::floating_point Number> char* format(char* from, char* to, Number number) {
    return std::to_chars(from, to, number, std::chars_format::general, 6).ptr;
}

} // namespace

namespace TzSoapNumberText {

long long toInteger(std::string_view text) noexcept {
    using Limits = std::numeric_limits<long long>;
    const Unsigned number = passSign(text);
    unsigned long long size = 0;
    const auto [end, error] = std::from_chars(number.digits.data(), endOf(number.digits), size);
    constexpr auto largest = static_cast<unsigned long long>(Limits::max());
    if (error == std::errc::result_out_of_range || size > largest) {
        return number.negative ? Limits::min() : Limits::max();
    }
    return number.negative ? -static_cast<long long>(size) : static_cast<long long>(size);
}

double toReal(std::string_view text) noexcept {
    auto [digits, negative] = passSign(text);
    const bool hexadecimal = isHexadecimal(digits);
    digits.remove_prefix(hexadecimal ? 2 : 0);
    double size = 0;
    const auto form = hexadecimal ? std::chars_format::hex : std::chars_format::general;
    const auto [end, error] = std::from_chars(digits.data(), endOf(digits), size, form);
    if (error == std::errc::invalid_argument) {
        return 0;
    }
    if (error == std::errc::result_out_of_range) {
        digits = digits.substr(0, static_cast<std::size_t>(end - digits.data()));
        size = tooLarge(digits, hexadecimal) ? std::numeric_limits<double>::infinity() : 0;
    }
    return negative ? -size : size;
}

template <typename Number> TzCString fromNumber(Number number) {
    std::array<char, 32> text;
    char* const end = format(text.data(), text.data() + text.size(), number);
    return {text.data(), end};
}

template TzCString fromNumber(int number);
template TzCString fromNumber(unsigned int number);
template TzCString fromNumber(short number);
template TzCString fromNumber(unsigned short number);
template TzCString fromNumber(long number);
template TzCString fromNumber(unsigned long number);
template TzCString fromNumber(long long number);
template TzCString fromNumber(unsigned long long number);
template TzCString fromNumber(float number);
template TzCString fromNumber(double number);

} // namespace TzSoapNumberText
