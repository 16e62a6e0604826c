// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleType.h>

#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzXmlDuration.h>

#include "model/TzSoapBodyAs.h"

using SchemaType = TzSoapContentBase::SchemaType;

TzSoapSimpleType::TzSoapSimpleType() : TzSoapSimpleType(new TzSoapSimpleTypeImp()) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzCString& value, SchemaType type,
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

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, float value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, double value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDate& value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDateTime& value, SchemaType type,
                                   bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzDecimalPortable& value,
                                   SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

TzSoapSimpleType::TzSoapSimpleType(const TzXmlName& name, const TzXmlDuration& value,
                                   SchemaType type, bool typeShouldBeEncoded)
    : TzSoapSimpleType(new TzSoapSimpleTypeImp(name, value, type, typeShouldBeEncoded)) {}

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

void TzSoapSimpleType::setDate(const TzDate& value, SchemaType type) {
    body().setDate(value, type);
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

TzDecimalPortable TzSoapSimpleType::getDecimal() const { return body().getDecimal(); }

TzXmlDuration TzSoapSimpleType::getDuration() const { return body().getDuration(); }
