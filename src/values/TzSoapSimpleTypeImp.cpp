// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleTypeImp.h>

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapUtils.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlSchemaUtils.h>
#include <tz/xml/TzXmlText.h>

#include "model/TzSoapSchemaTypes.h"
#include "values/TzSoapNumberText.h"

#include <algorithm>
#include <limits>
#include <utility>

using Content = TzSoapContentBase;
using SchemaType = TzSoapContentBase::SchemaType;

namespace {

// How each kind of value becomes text.

template <typename Number> TzCString textOf(Number number) {
    return TzSoapNumberText::fromNumber(number);
}

// Six digits are the rule for the smaller types only.
TzCString textOf(long double value) { return TzXmlSchemaUtils::ConvertTypeToString(value); }

TzCString textOf(bool value) {
    return value ? TzSoapAttributeSet::getTrueAttributeValue()
                 : TzSoapAttributeSet::getFalseAttributeValue();
}

TzCString textOf(const TzDate& value) { return TzSoapUtils::convertDateToISOString(value); }

TzCString textOf(const TzDateTime& value) { return TzSoapUtils::convertDateTimeToISOString(value); }

TzCString textOf(const TzDecimalPortable& value) { return value.asString(); }

TzCString textOf(const TzXmlDuration& value) { return value.asString(); }

} // namespace

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp() = default;

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(const TzSoapSimpleTypeImp& other) = default;

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, TzCString&& value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapTypeImp(std::move(name)), typeShouldBeEncoded_(typeShouldBeEncoded), type_(type),
      value_(std::move(value)) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const TzCString& value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), TzCString(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, std::string_view value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), TzCString(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const char* value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), tzXmlText(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, bool value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, int value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, unsigned int value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, short value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, unsigned short value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, long value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, unsigned long value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, long long value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, unsigned long long value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, float value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, double value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, long double value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const TzDate& value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const TzDateTime& value, SchemaType type,
                                         bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const TzDecimalPortable& value,
                                         SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

TzSoapSimpleTypeImp::TzSoapSimpleTypeImp(TzXmlName name, const TzXmlDuration& value,
                                         SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleTypeImp(std::move(name), textOf(value), type, typeShouldBeEncoded) {}

[[gnu::hot]] Content::SoapTypeId TzSoapSimpleTypeImp::getSoapTypeId() const {
    return Content::Simple;
}

const TzCString& TzSoapSimpleTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::simpleString;
}

TzSoapElementImp* TzSoapSimpleTypeImp::clone() const { return new TzSoapSimpleTypeImp(*this); }

bool TzSoapSimpleTypeImp::stringType(SchemaType type) noexcept {
    return TzSoapSchemaTypes::at(type).getter == TzSoapGetter::String;
}

bool TzSoapSimpleTypeImp::decimalType(SchemaType type) noexcept {
    return TzSoapSchemaTypes::at(type).getter == TzSoapGetter::Decimal;
}

bool TzSoapSimpleTypeImp::dateType(SchemaType type) noexcept {
    const TzSoapGetter getter = TzSoapSchemaTypes::at(type).getter;
    return getter == TzSoapGetter::DateTime || getter == TzSoapGetter::Time ||
           getter == TzSoapGetter::Date;
}

void TzSoapSimpleTypeImp::require(bool accepted) {
    if (!accepted) {
        TzThrow(TzXmlError(TzCString("wrong type")));
    }
}

[[gnu::hot]] void TzSoapSimpleTypeImp::setEncodedString(const TzCString& text, SchemaType type) {
    value_ = text;
    type_ = type;
}

[[gnu::hot]] void TzSoapSimpleTypeImp::setEncodedString(TzCString&& text,
                                                        SchemaType type) noexcept {
    value_ = std::move(text);
    type_ = type;
}

void TzSoapSimpleTypeImp::setString(const TzCString& text, SchemaType type) {
    require(stringType(type));
    setEncodedString(text, type);
}

void TzSoapSimpleTypeImp::setBool(bool value) {
    setEncodedString(textOf(value), Content::xsdBoolean);
}

void TzSoapSimpleTypeImp::setInt(int value) { setEncodedString(textOf(value), Content::xsdInt); }

void TzSoapSimpleTypeImp::setUnsignedInt(unsigned int value) {
    setEncodedString(textOf(value), Content::xsdUnsignedInt);
}

void TzSoapSimpleTypeImp::setShort(short value) {
    setEncodedString(textOf(value), Content::xsdShort);
}

void TzSoapSimpleTypeImp::setUnsignedShort(unsigned short value) {
    setEncodedString(textOf(value), Content::xsdUnsignedShort);
}

void TzSoapSimpleTypeImp::setLong(long value) { setEncodedString(textOf(value), Content::xsdLong); }

void TzSoapSimpleTypeImp::setUnsignedLong(unsigned long value) {
    setEncodedString(textOf(value), Content::xsdUnsignedLong);
}

void TzSoapSimpleTypeImp::setFloat(float value) {
    setEncodedString(textOf(value), Content::xsdFloat);
}

void TzSoapSimpleTypeImp::setDouble(double value) {
    setEncodedString(textOf(value), Content::xsdDouble);
}

void TzSoapSimpleTypeImp::setLongLong(long long value) {
    setEncodedString(textOf(value), Content::xsdLong);
}

void TzSoapSimpleTypeImp::setUnsignedLongLong(unsigned long long value) {
    setEncodedString(textOf(value), Content::xsdUnsignedLong);
}

void TzSoapSimpleTypeImp::setExactFloat(float value) {
    setEncodedString(TzXmlSchemaUtils::ConvertTypeToString(value), Content::xsdFloat);
}

void TzSoapSimpleTypeImp::setExactDouble(double value) {
    setEncodedString(TzXmlSchemaUtils::ConvertTypeToString(value), Content::xsdDouble);
}

void TzSoapSimpleTypeImp::setLongDouble(long double value) {
    setEncodedString(textOf(value), Content::xsdDouble);
}

void TzSoapSimpleTypeImp::setDate(const TzDate& value, SchemaType type) {
    // A date has no time of day to write.
    require(dateType(type) && TzSoapSchemaTypes::at(type).getter != TzSoapGetter::Time);
    setEncodedString(textOf(value), type);
}

void TzSoapSimpleTypeImp::setDateTime(const TzDateTime& value, SchemaType type) {
    require(dateType(type));
    setEncodedString(textOf(value), type);
}

void TzSoapSimpleTypeImp::setDecimal(const TzDecimalPortable& value, SchemaType type) {
    require(decimalType(type));
    setEncodedString(textOf(value), type);
}

void TzSoapSimpleTypeImp::setDuration(const TzXmlDuration& value) {
    setEncodedString(textOf(value), Content::xsdDuration);
}

bool TzSoapSimpleTypeImp::getBool() const {
    return value_ == TzSoapAttributeSet::getTrueAttributeValue();
}

int TzSoapSimpleTypeImp::getInt() const {
    return static_cast<int>(TzSoapNumberText::toInteger(value_));
}

unsigned int TzSoapSimpleTypeImp::getUnsignedInt() const {
    return static_cast<unsigned int>(getInt());
}

short TzSoapSimpleTypeImp::getShort() const { return static_cast<short>(getInt()); }

unsigned short TzSoapSimpleTypeImp::getUnsignedShort() const {
    return static_cast<unsigned short>(getInt());
}

long TzSoapSimpleTypeImp::getLong() const {
    using Limits = std::numeric_limits<long>;
    return static_cast<long>(
        std::clamp<long long>(TzSoapNumberText::toInteger(value_), Limits::min(), Limits::max()));
}

unsigned long TzSoapSimpleTypeImp::getUnsignedLong() const {
    return static_cast<unsigned long>(getLong());
}

float TzSoapSimpleTypeImp::getFloat() const { return static_cast<float>(getDouble()); }

double TzSoapSimpleTypeImp::getDouble() const { return TzSoapNumberText::toReal(value_); }

TzDate TzSoapSimpleTypeImp::getDate() const {
    return TzSoapUtils::convertISODateStringToDate(value_);
}

TzDateTime TzSoapSimpleTypeImp::getDateTime() const {
    return TzSoapUtils::convertISODateStringToDateTime(value_);
}

TzDecimalPortable TzSoapSimpleTypeImp::getDecimal() const { return TzDecimalPortable(value_); }

TzXmlDuration TzSoapSimpleTypeImp::getDuration() const { return TzXmlDuration(value_); }
