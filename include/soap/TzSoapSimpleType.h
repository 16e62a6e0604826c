// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzPointerArgument.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlText.h>

#include <chrono>
#include <concepts>
#include <ratio>
#include <string_view>

class TzDecimalPortable;
class TzSoapSimpleTypeImp;
class TzXmlDuration;

/// A unit of time in which a time of day can be stated.
template <typename Duration>
concept TzSoapFinerThanDays = std::integral<typename Duration::rep> &&
    std::ratio_less_v<typename Duration::period, std::chrono::days::period>;

/// Handle of a simple value: the text of one XML Schema built-in type.
///
/// The value is held as text; typed setters and getters convert, without a look at any locale.
/// Every operation on a handle without a body throws `TzTHRInvalidPointer` "Invalid pointer".
/// Threads: see `TzSoapType`; writing a value whose type is shown changes it.
class TZSOAP_API TzSoapSimpleType : public TzSoapType {
public:
    /// A value without name and text, type `xsdUnknown`.
    TzSoapSimpleType();
    TzSoapSimpleType(const TzSoapSimpleType&) noexcept = default;
    TzSoapSimpleType(TzSoapSimpleType&&) noexcept = default;
    TzSoapSimpleType& operator=(const TzSoapSimpleType&) noexcept = default;
    TzSoapSimpleType& operator=(TzSoapSimpleType&&) noexcept = default;
    ~TzSoapSimpleType() override;

    /// @name A value named `name` with the text that the setter for the same kind of value stores.
    /// `type` and `typeShouldBeEncoded` are kept as given: neither is checked against the value. A
    /// date that does not exist is a `TzXmlBadArgError`, as is a text that is a null pointer. A
    /// `float` or `double` is written in six digits (`exact` writes all), a `long double` exactly.
    /// @{
    TzSoapSimpleType(const TzXmlName& name, const TzCString& value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, std::string_view value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, const char* value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, bool value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, int value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, unsigned int value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, short value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, unsigned short value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, long value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, unsigned long value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, long long value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, unsigned long long value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, float value, SchemaType type, bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, double value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, long double value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, const TzDate& value, SchemaType type,
                     bool typeShouldBeEncoded);
    /// A date without offset.
    TzSoapSimpleType(const TzXmlName& name, std::chrono::year_month_day value, SchemaType type,
                     bool typeShouldBeEncoded);
    /// A date without offset.
    TzSoapSimpleType(const TzXmlName& name, std::same_as<std::chrono::sys_days> auto value,
                     SchemaType type, bool typeShouldBeEncoded)
        : TzSoapSimpleType(name, TzDate(value), type, typeShouldBeEncoded) {}
    TzSoapSimpleType(const TzXmlName& name, const TzDateTime& value, SchemaType type,
                     bool typeShouldBeEncoded);
    /// A date and time in UTC.
    template <typename Duration>
    requires TzSoapFinerThanDays<Duration>
    TzSoapSimpleType(const TzXmlName& name, std::chrono::sys_time<Duration> value, SchemaType type,
                     bool typeShouldBeEncoded)
        : TzSoapSimpleType(name, TzDateTime(value), type, typeShouldBeEncoded) {}
    TzSoapSimpleType(const TzXmlName& name, const TzDecimalPortable& value, SchemaType type,
                     bool typeShouldBeEncoded);
    TzSoapSimpleType(const TzXmlName& name, const TzXmlDuration& value, SchemaType type,
                     bool typeShouldBeEncoded);
    /// Any other pointer would be taken for a boolean.
    TzSoapSimpleType(const TzXmlName& name, TzStrayPointer auto value, SchemaType type,
                     bool typeShouldBeEncoded) = delete;
    /// @}

    /// @name A value named `name` with the shortest text that reads back as exactly `value`; "INF",
    /// "-INF" or "NaN" where that is the value. Otherwise as by the constructors.
    /// @{
    static TzSoapSimpleType exact(const TzXmlName& name, float value, SchemaType type,
                                  bool typeShouldBeEncoded);
    static TzSoapSimpleType exact(const TzXmlName& name, double value, SchemaType type,
                                  bool typeShouldBeEncoded);
    static TzSoapSimpleType exact(const TzXmlName& name, long double value, SchemaType type,
                                  bool typeShouldBeEncoded);
    /// @}

    /// A new value with a copy of the content.
    TzSoapSimpleType copy() const;

    /// The type of the text; `xsdUnknown` unless set. The element's type attribute is
    /// `TzSoapType::getType`.
    SchemaType getType() const;
    /// Whether the type is written; false unless set.
    bool getTypeShouldBeEncoded() const;
    /// Sets whether the type is written.
    void setTypeShouldBeEncoded(bool encode);
    /// A pointer would be taken for true.
    void setTypeShouldBeEncoded(TzPointerArgument auto encode) = delete;

    /// Stores a text that is in its lexical form already, whatever its type: no check.
    void setEncodedString(const TzCString& text, SchemaType type);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setEncodedString(TzXmlText auto text, SchemaType type) {
        setEncodedString(tzXmlText(text), type);
    }
    /// Stores a string; `TzXmlError` "wrong type" for any type but `xsdString`.
    void setString(const TzCString& text, SchemaType type);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setString(TzXmlText auto text, SchemaType type) { setString(tzXmlText(text), type); }
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
    /// Stores a number as `xsdDouble`, exactly as `setExactFloat` does; a receiver that reads it
    /// into a `double` rounds it.
    void setLongDouble(long double value);
    /// Stores a date; `TzXmlError` "wrong type" for any type but `xsdDateTime` and `xsdDate`
    /// (`xsdTime` is refused here), `TzXmlBadArgError` for a date that does not exist.
    void setDate(const TzDate& value, SchemaType type);
    /// Stores a date without offset; errors as for a `TzDate`.
    void setDate(std::chrono::year_month_day value, SchemaType type);
    /// Stores a date without offset; errors as for a `TzDate`.
    void setDate(std::same_as<std::chrono::sys_days> auto value, SchemaType type) {
        setDate(TzDate(value), type);
    }
    /// Stores a date and time; `TzXmlError` "wrong type" for any type but `xsdDateTime`, `xsdTime`
    /// and `xsdDate`, `TzXmlBadArgError` for a time that does not exist.
    void setDateTime(const TzDateTime& value, SchemaType type);
    /// Stores a date and time in UTC; errors as for a `TzDateTime`.
    template <typename Duration>
    requires TzSoapFinerThanDays<Duration>
    void setDateTime(std::chrono::sys_time<Duration> value, SchemaType type) {
        setDateTime(TzDateTime(value), type);
    }
    /// Stores a decimal; `TzXmlError` "wrong type" for any type but `xsdDecimal`.
    void setDecimal(const TzDecimalPortable& value, SchemaType type);
    /// Stores a duration as `xsdDuration`.
    void setDuration(const TzXmlDuration& value);

    /// The text; the type does not matter to this and the other getters.
    TzCString getString() const;
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
    /// The day of the date that the text states, whatever its offset; `TzXmlBadArgError` when it
    /// states none.
    std::chrono::sys_days getSysDays() const;
    /// The instant that the text states, UTC unless it states an offset. `TzXmlBadArgError` when it
    /// states none, `TzBadValueError` for one outside of the years 1678 to 2261.
    std::chrono::sys_time<std::chrono::nanoseconds> getSysTime() const;
    /// The decimal that the text states; `TzBadValueError` when it states none.
    TzDecimalPortable getDecimal() const;
    /// The duration that the text states; `TzXmlBadArgError` when it states none.
    TzXmlDuration getDuration() const;

protected:
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapSimpleTypeImp& body() const;

private:
    friend struct TzSoapAccess;

    explicit TzSoapSimpleType(TzSoapSimpleTypeImp* body) noexcept;
};
