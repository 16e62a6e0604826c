// SPDX-License-Identifier: MIT
#include "service/TzSoapTextForms.h"

#include <soap/TzSoapDefaultTypeImp.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/tools/TzBadValueError.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

#include "values/TzSoapNumberText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>
#include <type_traits>

namespace {

using Nanoseconds = std::chrono::sys_time<std::chrono::nanoseconds>;

bool isNilAttribute(const TzXmlAttribute& attribute) {
    const TzXmlName& name = attribute.getName();
    return (name.getLocalName() == "nil" || name.getLocalName() == "null") &&
           TzXmlNamespace::matchXsi(name.getNamespace());
}

/// The digits of a number after its sign.
struct Signed {
    std::string_view digits;
    bool negative;
};

Signed splitSign(std::string_view text) noexcept {
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative || text.starts_with('+') ? 1 : 0);
    return {text, negative};
}

/// The number that the whole of `text` states, without sign; nothing when it states none.
template <typename Number> std::optional<Number> whole(std::string_view text) noexcept {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

template <typename Number> constexpr Number Infinite = std::numeric_limits<Number>::infinity();

/// The number with a point that the whole of `text` states. One outside of the type's range is
/// infinite or 0.
template <typename Number> std::optional<Number> point(std::string_view text) noexcept {
    if (tzEqualIgnoreCase(text, "inf")) {
        return Infinite<Number>;
    }
    Number number{};
    const char* const end = text.data() + text.size();
    // from_chars also accepts "inf", "nan" and a second '-'.
    const bool begins = !text.empty() && (text[0] == '.' || (text[0] >= '0' && text[0] <= '9'));
    const auto [ptr, error] = std::from_chars(text.data(), end, number);
    if (!begins || ptr != end) {
        return {};
    }
    if (error == std::errc::result_out_of_range) {
        return TzSoapNumberText::toReal(text) > 1 ? Infinite<Number> : Number();
    }
    return number;
}

template <typename Number> std::optional<Number> integer(std::string_view text) noexcept {
    using Limits = std::numeric_limits<Number>;
    using Size = std::make_unsigned_t<Number>;
    const auto [digits, negative] = splitSign(text);
    const auto size = whole<Size>(digits);
    constexpr auto largest = static_cast<Size>(Limits::max());
    constexpr auto smallest = static_cast<Size>(Size() - static_cast<Size>(Limits::min()));
    if (!size || *size > (negative ? smallest : largest)) {
        return {};
    }
    return static_cast<Number>(negative ? static_cast<Size>(Size() - *size) : *size);
}

template <typename Number> std::optional<Number> real(std::string_view text) noexcept {
    if (tzEqualIgnoreCase(text, "nan")) {
        return std::numeric_limits<Number>::quiet_NaN();
    }
    const auto [digits, negative] = splitSign(text);
    const auto size = point<Number>(digits);
    return size && negative ? std::optional(-*size) : size;
}

TzDateTime dateTime(std::string_view text) {
    const bool hasTime = text.find('T') != std::string_view::npos || text.find(':') == 2;
    return hasTime ? TzXmlUtils::convertISODateStringToDateTime(text)
                   : TzDateTime(TzXmlUtils::convertISODateStringToDate(text), 0, 0, 0);
}

TzDate date(std::string_view text) {
    return text.find('T') == std::string_view::npos
               ? TzXmlUtils::convertISODateStringToDate(text)
               : TzXmlUtils::convertISODateStringToDateTime(text).getDate();
}

/// A value of a class that reads texts; nothing when that refuses this one.
template <typename Value> std::optional<Value> parsed(std::string_view text) {
    try {
        if constexpr (std::is_same_v<Value, TzDate>) {
            return date(text);
        } else if constexpr (std::is_same_v<Value, TzDateTime>) {
            return dateTime(text);
        } else if constexpr (std::is_same_v<Value, Nanoseconds>) {
            return dateTime(text).getSysTime();
        } else {
            return Value(text);
        }
    } catch (const TzXmlBadArgError&) {
        return {};
    } catch (const TzBadValueError&) {
        return {};
    }
}

std::optional<bool> boolean(std::string_view text) noexcept {
    if (text == "1" || text == "true") {
        return true;
    }
    return text == "0" || text == "false" ? std::optional(false) : std::nullopt;
}

std::optional<TzCString> fromHex(std::string_view text) {
    TzCString bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        const std::optional<char> byte = TzTextTools::hexByte(text.substr(i));
        if (!byte) {
            return {};
        }
        bytes += *byte;
    }
    return text.size() % 2 == 0 ? std::optional(bytes) : std::nullopt;
}

} // namespace

namespace TzSoapTextForms {

template <typename Value> std::optional<Value> read(std::string_view text) {
    if constexpr (std::is_same_v<Value, bool>) {
        return boolean(text);
    } else if constexpr (std::is_floating_point_v<Value>) {
        return real<Value>(text);
    } else if constexpr (std::is_integral_v<Value>) {
        return integer<Value>(text);
    } else {
        return parsed<Value>(text);
    }
}

template std::optional<bool> read(std::string_view);
template std::optional<signed char> read(std::string_view);
template std::optional<unsigned char> read(std::string_view);
template std::optional<short> read(std::string_view);
template std::optional<unsigned short> read(std::string_view);
template std::optional<int> read(std::string_view);
template std::optional<unsigned int> read(std::string_view);
template std::optional<long> read(std::string_view);
template std::optional<unsigned long> read(std::string_view);
template std::optional<long long> read(std::string_view);
template std::optional<unsigned long long> read(std::string_view);
template std::optional<float> read(std::string_view);
template std::optional<double> read(std::string_view);
template std::optional<long double> read(std::string_view);
template std::optional<TzDecimalPortable> read(std::string_view);
template std::optional<TzDate> read(std::string_view);
template std::optional<TzDateTime> read(std::string_view);
template std::optional<Nanoseconds> read(std::string_view);
template std::optional<TzXmlDuration> read(std::string_view);

std::optional<TzCString> readBytes(std::string_view text, bool hex) {
    return hex ? fromHex(text) : TzMimeBase64::decode(text);
}

bool isNil(const TzSoapTypeImp& value) {
    const TzSoapAttributeSet& attributes = value.getAttributeSet();
    const auto states = [](const TzXmlAttribute& attribute) {
        return isNilAttribute(attribute) &&
               read<bool>(TzXmlUtils::trim(attribute.getValue())).value_or(false);
    };
    return std::any_of(attributes.begin(), attributes.end(), states) ||
           (value.getSoapTypeId() == TzSoapContentBase::Generic &&
            dynamic_cast<const TzSoapDefaultTypeImp*>(&value) != nullptr);
}

} // namespace TzSoapTextForms
