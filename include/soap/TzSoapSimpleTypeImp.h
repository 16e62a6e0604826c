// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzPointerArgument.h>
#include <tz/xml/TzXmlName.h>

#include <string_view>

class TzDate;
class TzDateTime;
class TzDecimalPortable;
class TzXmlDuration;

/// Body of a simple value: a text and the XML Schema type that the text is meant to have.
///
/// Numbers are converted without a look at any locale. Only the reference count is locked.
class TZSOAP_API TzSoapSimpleTypeImp : public TzSoapTypeImp {
public:
    /// Type of the text.
    using SchemaType = TzSoapContentBase::SchemaType;

    /// A value without name and text, type `xsdUnknown`.
    TzSoapSimpleTypeImp();
    /// Copies everything; the count starts anew.
    TzSoapSimpleTypeImp(const TzSoapSimpleTypeImp& other);
    TzSoapSimpleTypeImp& operator=(const TzSoapSimpleTypeImp& other) = default;
    ~TzSoapSimpleTypeImp() override = default;

    /// @name A value named `name` with the text that the setter for the same kind of value stores.
    /// `type` and `typeShouldBeEncoded` are kept as given: neither is checked against the value. A
    /// date that does not exist is a `TzXmlBadArgError`, as is a text that is a null pointer. A
    /// `float` or `double` is written in six digits, a `long double` exactly.
    /// @{
    TzSoapSimpleTypeImp(TzXmlName name, const TzCString& value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, TzCString&& value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, std::string_view value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, const char* value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, bool value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, int value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, unsigned int value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, short value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, unsigned short value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, long value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, unsigned long value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, long long value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, unsigned long long value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, float value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, double value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, long double value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, const TzDate& value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, const TzDateTime& value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, const TzDecimalPortable& value, SchemaType type,
                        bool typeShouldBeEncoded);
    TzSoapSimpleTypeImp(TzXmlName name, const TzXmlDuration& value, SchemaType type,
                        bool typeShouldBeEncoded);
    /// Any other pointer would be taken for a boolean.
    TzSoapSimpleTypeImp(TzXmlName name, TzStrayPointer auto value, SchemaType type,
                        bool typeShouldBeEncoded) = delete;
    /// @}

    /// `Simple`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "Simple".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with a copy of the content.
    TzSoapElementImp* clone() const override;

    /// The type of the text; `xsdUnknown` unless set.
    SchemaType getType() const noexcept { return type_; }
    /// Whether the type is written; false unless set.
    bool getTypeShouldBeEncoded() const noexcept { return typeShouldBeEncoded_; }
    /// Sets whether the type is written.
    void setTypeShouldBeEncoded(bool encode) noexcept { typeShouldBeEncoded_ = encode; }

    /// Stores a text that is in its lexical form already, whatever its type: no check.
    void setEncodedString(const TzCString& text, SchemaType type);
    /// Stores such a text without copying it.
    void setEncodedString(TzCString&& text, SchemaType type) noexcept;
    /// Stores a string; `TzXmlError` "wrong type" for any type but `xsdString`.
    void setString(const TzCString& text, SchemaType type);
    /// Stores "1" or "0" as `xsdBoolean`.
    void setBool(bool value);
    /// A pointer, even to the text "false", would be taken for true.
    void setBool(TzPointerArgument auto value) = delete;
    /// Stores a number as `xsdInt`.
    void setInt(int value);
    /// Stores a number as `xsdUnsignedInt`.
    void setUnsignedInt(unsigned int value);
    /// Stores a number as `xsdShort`.
    void setShort(short value);
    /// Stores a number as `xsdUnsignedShort`.
    void setUnsignedShort(unsigned short value);
    /// Stores a number as `xsdLong`.
    void setLong(long value);
    /// Stores a number as `xsdUnsignedLong`.
    void setUnsignedLong(unsigned long value);
    /// Stores a number as `xsdLong`.
    void setLongLong(long long value);
    /// Stores a number as `xsdUnsignedLong`.
    void setUnsignedLongLong(unsigned long long value);
    /// Stores a number as `xsdFloat`, in six significant digits.
    void setFloat(float value);
    /// Stores a number as `xsdDouble`, in six significant digits.
    void setDouble(double value);
    /// Stores a number as `xsdFloat`: the shortest text that reads back as exactly this number,
    /// "INF", "-INF" or "NaN".
    void setExactFloat(float value);
    /// Stores a number as `xsdDouble`, exactly as `setExactFloat` does.
    void setExactDouble(double value);
    /// Stores a number as `xsdDouble`, exactly as `setExactFloat` does.
    void setLongDouble(long double value);
    /// Stores a date; `TzXmlError` "wrong type" for any type but `xsdDateTime` and `xsdDate`
    /// (`xsdTime` is refused here), `TzXmlBadArgError` for a date that does not exist.
    void setDate(const TzDate& value, SchemaType type);
    /// Stores a date and time; `TzXmlError` "wrong type" for any type but `xsdDateTime`, `xsdTime`
    /// and `xsdDate`, `TzXmlBadArgError` for a time that does not exist.
    void setDateTime(const TzDateTime& value, SchemaType type);
    /// Stores a decimal; `TzXmlError` "wrong type" for any type but `xsdDecimal`.
    void setDecimal(const TzDecimalPortable& value, SchemaType type);
    /// Stores a duration as `xsdDuration`.
    void setDuration(const TzXmlDuration& value);

    /// The text as it is stored, without a copy; valid until the value changes.
    const TzCString& text() const noexcept { return value_; }
    /// The text; `type` does not matter to this and the other getters.
    TzCString getString() const { return value_; }
    /// Whether the text is "1": "true" is false.
    bool getBool() const;
    /// The number at the beginning of the text as `atoi` reads it; 0 without one.
    int getInt() const;
    /// The number that `getInt` returns, reinterpreted: "-1" gives the largest value.
    unsigned int getUnsignedInt() const;
    /// The number that `getInt` returns, cut to the low bits.
    short getShort() const;
    /// The number that `getInt` returns, cut to the low bits.
    unsigned short getUnsignedShort() const;
    /// The number at the beginning of the text as `atol` reads it; 0 without one.
    long getLong() const;
    /// The number that `getLong` returns, reinterpreted; one above the largest `long` is lost.
    unsigned long getUnsignedLong() const;
    /// The number at the beginning of the text as `atof` reads it; 0 without one.
    float getFloat() const;
    /// The number at the beginning of the text as `atof` reads it; 0 without one.
    double getDouble() const;
    /// The date that the text states; `TzXmlBadArgError` when it states none.
    TzDate getDate() const;
    /// The date and time that the text states; `TzXmlBadArgError` when it states none.
    TzDateTime getDateTime() const;
    /// The decimal that the text states; `TzBadValueError` when it states none.
    TzDecimalPortable getDecimal() const;
    /// The duration that the text states; `TzXmlBadArgError` when it states none.
    TzXmlDuration getDuration() const;

private:
    static bool stringType(SchemaType type) noexcept;
    static bool decimalType(SchemaType type) noexcept;
    static bool dateType(SchemaType type) noexcept;
    static void require(bool accepted);

    // Small members first: they fill what the base leaves over.
    bool typeShouldBeEncoded_ = false;
    SchemaType type_ = TzSoapContentBase::xsdUnknown;
    TzCString value_;
};
