// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMaking.h>
#include <soap/TzSoapPlace.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzDate.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include <chrono>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

class TzDecimalPortable;
class TzXmlDuration;

/// Bytes, as base64Binary has them; as hexBinary where a field or the value says so.
struct TzSoapBytes {
    /// The bytes.
    TzCString value;

    /// Whether the bytes are equal.
    friend bool operator==(const TzSoapBytes&, const TzSoapBytes&) = default;
};

/// The texts of an enumeration: specialised for each, with `texts`, an array of `TzSoapEnumText`.
///
///     template <> struct TzSoapEnum<Color> {
///         static constexpr TzSoapEnumText<Color> texts[] = {{Color::Red, "red"},
///                                                           {Color::Blue, "blue"}};
///     };
template <typename Enumeration> struct TzSoapEnum;

/// A row of the texts of an enumeration.
template <typename Enumeration> struct TzSoapEnumText {
    Enumeration value;     ///< The enumerator; the first row of several is what is written.
    std::string_view text; ///< Its text, exactly.
};

/// How a type of the program is read from an element and made into one: specialised for the types
/// that `TzSoapView::as` names, and by programs for classes of their own.
///
/// A class that stands for a text has `static constexpr TzSoapContentBase::SchemaType type`,
/// `static void read(const TzSoapPlace&, Value&)` and
/// `static TzCString toText(const Value&, TzSoapContentBase::SchemaType)`; any other has `read` and
/// `static TzSoapType make(const Value&, const TzXmlName&, TzSoapMaking&)`.
template <typename Value> struct TzSoapCodec {
    static_assert(!std::same_as<Value, Value>,
                  "TzSoap: this type is neither read nor written: declare the members of a struct "
                  "in TzSoapFields, the texts of an enumeration in TzSoapEnum, or specialise "
                  "TzSoapCodec (characters, pointers and references are none of them)");
};

/// A whole number that has a type in XML Schema: no truth value, no character.
template <typename Number>
concept TzSoapWholeNumber =
    std::integral<Number> && !std::same_as<Number, bool> && !std::same_as<Number, char> &&
    !std::same_as<Number, wchar_t> && !std::same_as<Number, char8_t> &&
    !std::same_as<Number, char16_t> && !std::same_as<Number, char32_t>;

/// An enumeration with a `TzSoapEnum`.
template <typename Enumeration>
concept TzSoapTextEnum = std::is_enum_v<Enumeration> && requires {
    TzSoapEnum<Enumeration>::texts;
};

/// Texts that codecs make.
namespace TzSoapCodecText {

/// The text of a date; `TzXmlBadArgError` for one that does not exist.
TZSOAP_API TzCString of(const TzDate& value);
/// The text of a date and time; `TzXmlBadArgError` for one that does not exist.
TZSOAP_API TzCString of(const TzDateTime& value);
/// The text of a decimal.
TZSOAP_API TzCString of(const TzDecimalPortable& value);
/// The text of a duration.
TZSOAP_API TzCString of(const TzXmlDuration& value);
/// Base64 or, with `hex`, hexadecimal digits.
TZSOAP_API TzCString ofBytes(std::string_view bytes, bool hex);
/// Throws `TzXmlBadArgError`: an enumerator, `number`, has no text.
[[noreturn]] TZSOAP_API void refuseEnumerator(long long number);
/// Throws `TzXmlBadArgError` at `place`: the text there is not one of `texts`.
[[noreturn]] TZSOAP_API void refuseText(const TzSoapPlace& place,
                                        const std::vector<std::string_view>& texts);
/// The text without the white space around it.
TZSOAP_API std::string_view trimmed(std::string_view text) noexcept;

} // namespace TzSoapCodecText

/// Reads what `TzSoapPlace::get` reads: the base of the codecs of such types.
template <typename Value, TzSoapContentBase::SchemaType Type> struct TzSoapTextCodec {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = Type;
    /// Reads the value.
    static void read(const TzSoapPlace& place, Value& value) { value = place.get<Value>(); }
    /// The text of the value.
    static TzCString toText(const Value& value, TzSoapContentBase::SchemaType) {
        return TzSoapCodecText::of(value);
    }
};

/// A boolean.
template <> struct TzSoapCodec<bool> : TzSoapTextCodec<bool, TzSoapContentBase::xsdBoolean> {
    /// "true" or "false".
    static TzCString toText(bool value, TzSoapContentBase::SchemaType) {
        return value ? "true" : "false";
    }
};

/// The schema type of a whole number, by its size and sign.
template <TzSoapWholeNumber Number>
inline constexpr TzSoapContentBase::SchemaType TzSoapNumberType = [] {
    using Content = TzSoapContentBase;
    constexpr bool isSigned = std::is_signed_v<Number>;
    switch (sizeof(Number)) {
    case 1:
        return isSigned ? Content::xsdByte : Content::xsdUnsignedByte;
    case 2:
        return isSigned ? Content::xsdShort : Content::xsdUnsignedShort;
    case 4:
        return isSigned ? Content::xsdInt : Content::xsdUnsignedInt;
    default:
        return isSigned ? Content::xsdLong : Content::xsdUnsignedLong;
    }
}();

/// A whole number that fits.
template <TzSoapWholeNumber Number>
struct TzSoapCodec<Number> : TzSoapTextCodec<Number, TzSoapNumberType<Number>> {
    /// Its digits.
    static TzCString toText(Number value, TzSoapContentBase::SchemaType) {
        return std::to_string(value);
    }
};

/// A number with a point; the text reads back as exactly the same number.
template <std::floating_point Number>
struct TzSoapCodec<Number>
    : TzSoapTextCodec<Number, std::same_as<Number, float> ? TzSoapContentBase::xsdFloat
                                                          : TzSoapContentBase::xsdDouble> {
    /// The shortest text that reads back as exactly this number, "INF", "-INF" or "NaN".
    static TzCString toText(Number value, TzSoapContentBase::SchemaType) {
        return TzXmlSchemaUtils::ConvertTypeToString(value);
    }
};

/// A text, white space included.
template <> struct TzSoapCodec<TzCString> {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdString;
    /// Reads the text.
    static void read(const TzSoapPlace& place, TzCString& value) { value = place.getText(); }
    /// The text itself.
    static TzCString toText(const TzCString& value, TzSoapContentBase::SchemaType) { return value; }
};

/// A decimal of any length.
template <>
struct TzSoapCodec<TzDecimalPortable>
    : TzSoapTextCodec<TzDecimalPortable, TzSoapContentBase::xsdDecimal> {};

/// A date.
template <> struct TzSoapCodec<TzDate> : TzSoapTextCodec<TzDate, TzSoapContentBase::xsdDate> {};

/// A date and time.
template <>
struct TzSoapCodec<TzDateTime> : TzSoapTextCodec<TzDateTime, TzSoapContentBase::xsdDateTime> {};

/// A duration.
template <>
struct TzSoapCodec<TzXmlDuration> : TzSoapTextCodec<TzXmlDuration, TzSoapContentBase::xsdDuration> {
};

/// A day: the date, whatever its offset; without one when it is written.
template <> struct TzSoapCodec<std::chrono::sys_days> {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdDate;
    /// Reads the day.
    static void read(const TzSoapPlace& place, std::chrono::sys_days& value) {
        value = place.get<TzDate>().getSysDays();
    }
    /// The date.
    static TzCString toText(std::chrono::sys_days value, TzSoapContentBase::SchemaType) {
        return TzSoapCodecText::of(TzDate(value));
    }
};

/// An instant, in the years 1678 to 2261: a date and time, UTC unless it states an offset. Written
/// in UTC. What is finer than `Duration` is left out, towards the past.
template <typename Duration>
requires TzSoapFinerThanDays<Duration>
struct TzSoapCodec<std::chrono::sys_time<Duration>> {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdDateTime;
    /// Reads the instant.
    static void read(const TzSoapPlace& place, std::chrono::sys_time<Duration>& value) {
        using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;
        value = std::chrono::floor<Duration>(place.get<Instant>());
    }
    /// The date and time in UTC.
    static TzCString toText(std::chrono::sys_time<Duration> value, TzSoapContentBase::SchemaType) {
        return TzSoapCodecText::of(TzDateTime(value));
    }
};

/// Bytes.
template <> struct TzSoapCodec<TzSoapBytes> {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdBase64Binary;
    /// Reads the bytes.
    static void read(const TzSoapPlace& place, TzSoapBytes& value) {
        value.value = place.getBytes();
    }
    /// Base64, or hexadecimal digits for hexBinary.
    static TzCString toText(const TzSoapBytes& value, TzSoapContentBase::SchemaType stated) {
        return TzSoapCodecText::ofBytes(value.value, stated == TzSoapContentBase::xsdHexBinary);
    }
};

/// An enumeration, by its table of texts.
template <TzSoapTextEnum Enumeration> struct TzSoapCodec<Enumeration> {
    /// The type that a value has unless a field says otherwise.
    static constexpr TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdString;
    /// Reads the enumerator. O(enumerators).
    static void read(const TzSoapPlace& place, Enumeration& value) {
        const std::string_view text = TzSoapCodecText::trimmed(place.getText());
        for (const TzSoapEnumText<Enumeration>& row : TzSoapEnum<Enumeration>::texts) {
            if (row.text == text) {
                value = row.value;
                return;
            }
        }
        std::vector<std::string_view> texts;
        for (const TzSoapEnumText<Enumeration>& row : TzSoapEnum<Enumeration>::texts) {
            texts.push_back(row.text);
        }
        TzSoapCodecText::refuseText(place, texts);
    }
    /// The text of the enumerator; `TzXmlBadArgError` for one without. O(enumerators).
    static TzCString toText(Enumeration value, TzSoapContentBase::SchemaType) {
        for (const TzSoapEnumText<Enumeration>& row : TzSoapEnum<Enumeration>::texts) {
            if (row.value == value) {
                return TzCString(row.text);
            }
        }
        TzSoapCodecText::refuseEnumerator(static_cast<long long>(value));
    }
};

/// The value itself, shared, a reference followed.
template <> struct TzSoapCodec<TzSoapType> {
    /// Takes the value.
    static void read(const TzSoapPlace& place, TzSoapType& value) { value = place.getValue(); }
    /// A copy of the value that is named `name`.
    static TzSoapType make(const TzSoapType& value, const TzXmlName& name, TzSoapMaking&) {
        TzSoapType copy = value.copy();
        copy.setName(name);
        return copy;
    }
};

/// A value, or none for a nil element.
template <typename Value> struct TzSoapCodec<std::optional<Value>> {
    /// Reads the value if there is one.
    static void read(const TzSoapPlace& place, std::optional<Value>& value) {
        value.reset();
        if (!place.isNil()) {
            value = TzSoapPlace::read<Value>(place);
        }
    }
    /// The element of the value, a nil one for none.
    static TzSoapType make(const std::optional<Value>& value, const TzXmlName& name,
                           TzSoapMaking& making) {
        return value ? making.make(*value, name) : TzSoapMaking::makeNil(name);
    }
};

/// The members of an element, whatever their names: an encoded array or any list.
template <typename Value> struct TzSoapCodec<std::vector<Value>> {
    /// Reads all members.
    static void read(const TzSoapPlace& place, std::vector<Value>& values) {
        values.clear();
        place.eachMember([&values](const TzSoapPlace& member) {
            values.push_back(TzSoapPlace::read<Value>(member));
        });
    }
    /// A list of elements named "item".
    static TzSoapType make(const std::vector<Value>& values, const TzXmlName& name,
                           TzSoapMaking& making) {
        return make(values, name, TzXmlName("item"), making, TzSoapContentBase::xsdUnknown);
    }
    /// A list of elements named `item`, of type `type` if that is known.
    static TzSoapType make(const std::vector<Value>& values, const TzXmlName& name,
                           const TzXmlName& item, TzSoapMaking& making,
                           TzSoapContentBase::SchemaType type) {
        std::vector<TzSoapType> items;
        items.reserve(values.size());
        for (const auto& value : values) {
            items.push_back(making.make<Value>(value, item, type));
        }
        if constexpr (TzSoapHasText<Value>) {
            type = TzSoapMaking::typeOf<Value>(type);
        }
        return making.makeList(name, std::move(items), type);
    }
};
