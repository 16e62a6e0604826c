// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleType.h>

#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include "model/TzSoapBodyAs.h"

using SchemaType = TzSoapContentBase::SchemaType;

TzSoapSimpleType::TzSoapSimpleType() : TzSoapSimpleType(new TzSoapSimpleTypeImp()) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzCString& value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, std::string_view value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const char* value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, bool value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, int value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, unsigned int value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, short value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, unsigned short value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, long value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, unsigned long value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, long long value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, unsigned long long value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, float value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, double value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, long double value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDate& value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, std::chrono::year_month_day value,
                                   SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleType(name, TzDate(value), type, typeShouldBeEncoded) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDateTime& value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDecimalPortable& value,
                                   SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzXmlDuration& value,
                                   SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType TzSoapSimpleType::exact(const TzXmlName& name, float value, SchemaType type,
                                         bool typeShouldBeEncoded) {
    return {name, TzXmlSchemaUtils::ConvertTypeToString(value), type, typeShouldBeEncoded};
}

TzSoapSimpleType TzSoapSimpleType::exact(const TzXmlName& name, double value, SchemaType type,
                                         bool typeShouldBeEncoded) {
    return {name, TzXmlSchemaUtils::ConvertTypeToString(value), type, typeShouldBeEncoded};
}

TzSoapSimpleType TzSoapSimpleType::exact(const TzXmlName& name, long double value, SchemaType type,
                                         bool typeShouldBeEncoded) {
    return {name, TzXmlSchemaUtils::ConvertTypeToString(value), type, typeShouldBeEncoded};
}

TzSoapSimpleType::TzSoapSimpleType(TzSoapSimpleTypeImp* body) noexcept : TzSoapType(body) {}

TzSoapSimpleType::~TzSoapSimpleType() = default;

TzSoapSimpleTypeImp& TzSoapSimpleType::body() const {
    return tzSoapBodyAs<TzSoapSimpleTypeImp>(bodyBase(), "TzSoapSimpleType");
}

TzSoapSimpleType TzSoapSimpleType::copy() const {
    return TzSoapSimpleType(static_cast<TzSoapSimpleTypeImp*>(body().clone()));
}

SchemaType TzSoapSimpleType::getType() const { return body().getType(); }

bool TzSoapSimpleType::getTypeShouldBeEncoded() const { return body().getTypeShouldBeEncoded(); }

void TzSoapSimpleType::setTypeShouldBeEncoded(bool encode) {
    body().setTypeShouldBeEncoded(encode);
}

void TzSoapSimpleType::setEncodedString(const TzCString& text, SchemaType type) {
    body().setEncodedString(text, type);
}

void TzSoapSimpleType::setString(const TzCString& text, SchemaType type) {
    body().setString(text, type);
}

void TzSoapSimpleType::setBool(bool value) { body().setBool(value); }

void TzSoapSimpleType::setInt(int value) { body().setInt(value); }

void TzSoapSimpleType::setUnsignedInt(unsigned int value) { body().setUnsignedInt(value); }

void TzSoapSimpleType::setShort(short value) { body().setShort(value); }

void TzSoapSimpleType::setUnsignedShort(unsigned short value) { body().setUnsignedShort(value); }

void TzSoapSimpleType::setLong(long value) { body().setLong(value); }

void TzSoapSimpleType::setUnsignedLong(unsigned long value) { body().setUnsignedLong(value); }

void TzSoapSimpleType::setFloat(float value) { body().setFloat(value); }

void TzSoapSimpleType::setDouble(double value) { body().setDouble(value); }

void TzSoapSimpleType::setLongLong(long long value) { body().setLongLong(value); }

void TzSoapSimpleType::setUnsignedLongLong(unsigned long long value) {
    body().setUnsignedLongLong(value);
}

void TzSoapSimpleType::setExactFloat(float value) { body().setExactFloat(value); }

void TzSoapSimpleType::setExactDouble(double value) { body().setExactDouble(value); }

void TzSoapSimpleType::setLongDouble(long double value) { body().setLongDouble(value); }

void TzSoapSimpleType::setDate(const TzDate& value, SchemaType type) {
    body().setDate(value, type);
}

void TzSoapSimpleType::setDate(std::chrono::year_month_day value, SchemaType type) {
    setDate(TzDate(value), type);
}

void TzSoapSimpleType::setDateTime(const TzDateTime& value, SchemaType type) {
    body().setDateTime(value, type);
}

void TzSoapSimpleType::setDecimal(const TzDecimalPortable& value, SchemaType type) {
    body().setDecimal(value, type);
}

void TzSoapSimpleType::setDuration(const TzXmlDuration& value) { body().setDuration(value); }

TzCString TzSoapSimpleType::getString() const { return body().getString(); }

bool TzSoapSimpleType::getBool() const { return body().getBool(); }

int TzSoapSimpleType::getInt() const { return body().getInt(); }

unsigned int TzSoapSimpleType::getUnsignedInt() const { return body().getUnsignedInt(); }

short TzSoapSimpleType::getShort() const { return body().getShort(); }

unsigned short TzSoapSimpleType::getUnsignedShort() const { return body().getUnsignedShort(); }

long TzSoapSimpleType::getLong() const { return body().getLong(); }

unsigned long TzSoapSimpleType::getUnsignedLong() const { return body().getUnsignedLong(); }

float TzSoapSimpleType::getFloat() const { return body().getFloat(); }

double TzSoapSimpleType::getDouble() const { return body().getDouble(); }

TzDate TzSoapSimpleType::getDate() const { return body().getDate(); }

TzDateTime TzSoapSimpleType::getDateTime() const { return body().getDateTime(); }

std::chrono::sys_days TzSoapSimpleType::getSysDays() const { return getDate().getSysDays(); }

std::chrono::sys_time<std::chrono::nanoseconds> TzSoapSimpleType::getSysTime() const {
    return getDateTime().getSysTime();
}

TzDecimalPortable TzSoapSimpleType::getDecimal() const { return body().getDecimal(); }

TzXmlDuration TzSoapSimpleType::getDuration() const { return body().getDuration(); }
