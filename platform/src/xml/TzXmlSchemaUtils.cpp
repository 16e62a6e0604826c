// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSchemaUtils.h>

#include <array>
#include <charconv>
#include <cmath>

namespace {

template <typename Number> TzCString exactly(Number number) {
    if (std::isnan(number)) {
        return "NaN";
    }
    if (std::isinf(number)) {
        return number > 0 ? "INF" : "-INF";
    }
    std::array<char, 64> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

} // namespace

TzCString TzXmlSchemaUtils::ConvertTypeToString(float number) { return exactly(number); }

TzCString TzXmlSchemaUtils::ConvertTypeToString(double number) { return exactly(number); }

TzCString TzXmlSchemaUtils::ConvertTypeToString(long double number) { return exactly(number); }
