// SPDX-License-Identifier: MIT
#include <soap/TzSoapValueReader.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/tools/TzBadValueError.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapSchemaTypes.h"
#include "values/TzSoapFollow.h"
#include "values/TzSoapNumberText.h"
#include "values/TzSoapValueText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

namespace {

using Content = TzSoapContentBase;

/// Name of a type that peers send, and the type that is meant.
struct Alias {
    std::string_view name;
    Content::SchemaType type;
};

constexpr std::array<Alias, 7> Aliases = {{
    {"QName", Content::xsdQName},
    {"Name", Content::xsdName},
    {"NCName", Content::xsdNCName},
    {"base64", Content::xsdBase64Binary},
    {"timeInstant", Content::xsdDateTime},
    {"timeDuration", Content::xsdDuration},
    {"uriReference", Content::xsdAnyURI},
}};

std::optional<bool> toBool(std::string_view text) noexcept {
    if (text == "1" || text == "true") {
        return true;
    }
    return text == "0" || text == "false" ? std::optional(false) : std::nullopt;
}

bool isNullAttribute(const TzXmlAttribute& attribute) {
    const TzXmlName& name = attribute.getName();
    return (name.getLocalName() == "nil" || name.getLocalName() == "null") &&
           TzXmlNamespace::matchXsi(name.getNamespace());
}

[[noreturn]] void fail(TzCString text) { TzThrow(TzXmlBadArgError(TzMessage(std::move(text)))); }

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

TzDateTime toDateTime(std::string_view text) {
    const bool hasTime = text.find('T') != std::string_view::npos || text.find(':') == 2;
    return hasTime ? TzXmlUtils::convertISODateStringToDateTime(text)
                   : TzDateTime(TzXmlUtils::convertISODateStringToDate(text), 0, 0, 0);
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

// Replaces the errors of the classes that read texts by those of this class.
template <typename Reader>
auto TzSoapValueReader::parsed(const char* wanted, const Reader& reader) const {
    const std::string_view text = trimmed(wanted);
    try {
        return reader(text);
    } catch (const TzXmlBadArgError&) {
        refuse(wanted);
    } catch (const TzBadValueError&) {
        refuse(wanted);
    }
}

TzSoapValueReader::TzSoapValueReader(const TzSoapType& value) : value_(follow(value)) {
    readNull();
    const auto simple = tzSoapCast<TzSoapSimpleType>(value_);
    if (!simple && !null_) {
        fail(TzSoapValueText::notOfKind(value_, "a simple value"));
    }
    if (!null_) {
        text_ = simple->getString();
    }
}

TzSoapType TzSoapValueReader::follow(const TzSoapType& value) { return tzSoapFollow(value); }

void TzSoapValueReader::readNull() {
    if (TzSoapArrayTypeImp::isPlaceholder(value_)) {
        null_ = true;
        return;
    }
    const TzSoapType& value = value_;
    null_ = std::any_of(value.attributesBegin(), value.attributesEnd(),
                        [](const TzXmlAttribute& attribute) {
                            return isNullAttribute(attribute) &&
                                   toBool(TzXmlUtils::trim(attribute.getValue())).value_or(false);
                        });
}

TzSoapContentBase::SchemaType TzSoapValueReader::getType() const {
    const auto simple = tzSoapCast<TzSoapSimpleType>(value_);
    if (simple && simple->getType() != Content::xsdUnknown) {
        return simple->getType();
    }
    const TzCString& name = value_.getType().getLocalName();
    const auto* const alias = std::find_if(Aliases.begin(), Aliases.end(),
                                           [&](const Alias& entry) { return entry.name == name; });
    return alias != Aliases.end() ? alias->type : Content::schemaTypeFromName(name);
}

bool TzSoapValueReader::getBool() const {
    constexpr const char* wanted = "a boolean";
    const std::optional<bool> value = toBool(trimmed(wanted));
    if (!value) {
        refuse(wanted);
    }
    return *value;
}

int TzSoapValueReader::getInt() const { return integer<int>("an int"); }

unsigned int TzSoapValueReader::getUnsignedInt() const {
    return integer<unsigned int>("an unsigned int");
}

short TzSoapValueReader::getShort() const { return integer<short>("a short"); }

unsigned short TzSoapValueReader::getUnsignedShort() const {
    return integer<unsigned short>("an unsigned short");
}

long TzSoapValueReader::getLong() const { return integer<long>("a long"); }

unsigned long TzSoapValueReader::getUnsignedLong() const {
    return integer<unsigned long>("an unsigned long");
}

long long TzSoapValueReader::getLongLong() const { return integer<long long>("a long long"); }

unsigned long long TzSoapValueReader::getUnsignedLongLong() const {
    return integer<unsigned long long>("an unsigned long long");
}

float TzSoapValueReader::getFloat() const { return real<float>("a float"); }

double TzSoapValueReader::getDouble() const { return real<double>("a double"); }

long double TzSoapValueReader::getLongDouble() const { return real<long double>("a number"); }

TzDecimalPortable TzSoapValueReader::getDecimal() const {
    return parsed("a decimal", [](std::string_view text) { return TzDecimalPortable(text); });
}

TzDate TzSoapValueReader::getDate() const {
    return parsed("a date", [](std::string_view text) {
        return text.find('T') == std::string_view::npos
                   ? TzXmlUtils::convertISODateStringToDate(text)
                   : TzXmlUtils::convertISODateStringToDateTime(text).getDate();
    });
}

TzDateTime TzSoapValueReader::getDateTime() const { return parsed("a date and time", toDateTime); }

std::chrono::sys_days TzSoapValueReader::getSysDays() const { return getDate().getSysDays(); }

std::chrono::sys_time<std::chrono::nanoseconds> TzSoapValueReader::getSysTime() const {
    return parsed("a date and time from 1678 to 2261",
                  [](std::string_view text) { return toDateTime(text).getSysTime(); });
}

TzXmlDuration TzSoapValueReader::getDuration() const {
    return parsed("a duration", [](std::string_view text) { return TzXmlDuration(text); });
}

TzCString TzSoapValueReader::getBytes() const {
    const bool hex = TzSoapSchemaTypes::at(getType()).getter == TzSoapGetter::HexBytes;
    const char* const wanted = hex ? "hexadecimal digits" : "base64";
    const std::string_view text = trimmed(wanted);
    std::optional<TzCString> bytes = hex ? fromHex(text) : TzMimeBase64::decode(text);
    if (!bytes) {
        refuse(wanted);
    }
    return *std::move(bytes);
}

void TzSoapValueReader::refuse(const char* wanted) const {
    fail(null_ ? TzSoapValueText::described(value_) + " is nil, not " + wanted
               : TzSoapValueText::described(value_) + ": " + tzQuoted(text_) + " is not " + wanted);
}

std::string_view TzSoapValueReader::trimmed(const char* wanted) const {
    if (null_) {
        refuse(wanted);
    }
    return TzXmlUtils::trim(text_);
}

template <typename Number> Number TzSoapValueReader::integer(const char* wanted) const {
    using Limits = std::numeric_limits<Number>;
    using Size = std::make_unsigned_t<Number>;
    const auto [digits, negative] = splitSign(trimmed(wanted));
    const auto size = whole<Size>(digits);
    constexpr auto largest = static_cast<Size>(Limits::max());
    constexpr auto smallest = static_cast<Size>(Size() - static_cast<Size>(Limits::min()));
    if (!size || *size > (negative ? smallest : largest)) {
        refuse(wanted);
    }
    return static_cast<Number>(negative ? static_cast<Size>(Size() - *size) : *size);
}

template <typename Number> Number TzSoapValueReader::real(const char* wanted) const {
    const std::string_view text = trimmed(wanted);
    if (tzEqualIgnoreCase(text, "nan")) {
        return std::numeric_limits<Number>::quiet_NaN();
    }
    const auto [digits, negative] = splitSign(text);
    const auto size = point<Number>(digits);
    if (!size) {
        refuse(wanted);
    }
    return negative ? -*size : *size;
}
