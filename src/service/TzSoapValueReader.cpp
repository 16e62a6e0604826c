// SPDX-License-Identifier: MIT
#include <soap/TzSoapValueReader.h>

#include <soap/TzSoapCast.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapSchemaTypes.h"
#include "service/TzSoapTextForms.h"
#include "values/TzSoapFollow.h"
#include "values/TzSoapValueText.h"

#include <algorithm>
#include <array>
#include <optional>
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

[[noreturn]] void fail(TzCString text) { TzThrow(TzXmlBadArgError(TzMessage(std::move(text)))); }

} // namespace

template <typename Value> Value TzSoapValueReader::read() const {
    const char* const wanted = TzSoapTextForms::Wanted<Value>;
    std::optional<Value> value = TzSoapTextForms::read<Value>(trimmed(wanted));
    if (!value) {
        refuse(wanted);
    }
    return *std::move(value);
}

TzSoapValueReader::TzSoapValueReader(const TzSoapType& value)
    : value_(follow(value)), null_(TzSoapTextForms::isNil(TzSoapAccess::body(value_))) {
    const auto simple = tzSoapCast<TzSoapSimpleType>(value_);
    if (!simple && !null_) {
        fail(TzSoapValueText::notOfKind(value_, "a simple value"));
    }
    if (!null_) {
        text_ = simple->getString();
    }
}

TzSoapType TzSoapValueReader::follow(const TzSoapType& value) { return tzSoapFollow(value); }

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

bool TzSoapValueReader::getBool() const { return read<bool>(); }

int TzSoapValueReader::getInt() const { return read<int>(); }

unsigned int TzSoapValueReader::getUnsignedInt() const { return read<unsigned int>(); }

short TzSoapValueReader::getShort() const { return read<short>(); }

unsigned short TzSoapValueReader::getUnsignedShort() const { return read<unsigned short>(); }

long TzSoapValueReader::getLong() const { return read<long>(); }

unsigned long TzSoapValueReader::getUnsignedLong() const { return read<unsigned long>(); }

long long TzSoapValueReader::getLongLong() const { return read<long long>(); }

unsigned long long TzSoapValueReader::getUnsignedLongLong() const {
    return read<unsigned long long>();
}

float TzSoapValueReader::getFloat() const { return read<float>(); }

double TzSoapValueReader::getDouble() const { return read<double>(); }

long double TzSoapValueReader::getLongDouble() const { return read<long double>(); }

TzDecimalPortable TzSoapValueReader::getDecimal() const { return read<TzDecimalPortable>(); }

TzDate TzSoapValueReader::getDate() const { return read<TzDate>(); }

TzDateTime TzSoapValueReader::getDateTime() const { return read<TzDateTime>(); }

std::chrono::sys_days TzSoapValueReader::getSysDays() const { return getDate().getSysDays(); }

std::chrono::sys_time<std::chrono::nanoseconds> TzSoapValueReader::getSysTime() const {
    return read<std::chrono::sys_time<std::chrono::nanoseconds>>();
}

TzXmlDuration TzSoapValueReader::getDuration() const { return read<TzXmlDuration>(); }

TzCString TzSoapValueReader::getBytes() const {
    const bool hex = TzSoapSchemaTypes::at(getType()).getter == TzSoapGetter::HexBytes;
    const char* const wanted = TzSoapTextForms::wantedBytes(hex);
    std::optional<TzCString> bytes = TzSoapTextForms::readBytes(trimmed(wanted), hex);
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
