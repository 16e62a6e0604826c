// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

#include <chrono>
#include <string_view>

class TzDate;
class TzDateTime;
class TzDecimalPortable;
class TzXmlDuration;

/// Reads a simple value of another program: it accepts every lexical form of XML Schema, white
/// space around it does not matter, and what cannot be read is an error instead of 0.
///
/// A reference stands for the value that it refers to. The getters look at the text only, not at
/// the stated type. All of them but `getString` throw `TzXmlBadArgError` with the element's name
/// and text when the value is nil or its text is of another form. Reads only: the value is not
/// changed. Threads: as for the value.
class TZSOAP_API TzSoapValueReader {
public:
    /// Reads `value`, shared with it. `TzXmlBadArgError` unless the value is, or refers to, a
    /// simple or nil value. An array position that holds no item is nil, too.
    /// O(references in a row).
    explicit TzSoapValueReader(const TzSoapType& value);

    /// The value that `value` stands for: itself, or what it refers to, through any number of
    /// references (up to 100) in a row; the last of them when it has no value. Good for composites
    /// and arrays too. O(references in a row).
    static TzSoapType follow(const TzSoapType& value);

    /// Whether the value is nil: xsi:nil (or the older xsi:null) is "1" or "true", or there is no
    /// item.
    bool isNull() const noexcept { return null_; }
    /// The stated type, whatever its prefix: the names of XML Schema in their right spelling
    /// ("QName", "Name", "NCName") beside those of `TzSoapSimpleType::getType`, "base64" of the
    /// SOAP encoding, and "timeInstant", "timeDuration" and "uriReference" of the first drafts.
    /// `xsdUnknown` for any other.
    TzSoapContentBase::SchemaType getType() const;

    /// The text as it stands, "" for nil.
    const TzCString& getString() const noexcept { return text_; }
    /// "1" and "true" are true, "0" and "false" are false.
    bool getBool() const;
    /// A whole number that fits, with or without sign.
    int getInt() const;
    /// A whole number that fits, with or without sign.
    unsigned int getUnsignedInt() const;
    /// A whole number that fits, with or without sign.
    short getShort() const;
    /// A whole number that fits, with or without sign.
    unsigned short getUnsignedShort() const;
    /// A whole number that fits, with or without sign.
    long getLong() const;
    /// A whole number that fits, with or without sign.
    unsigned long getUnsignedLong() const;
    /// A whole number that fits, with or without sign.
    long long getLongLong() const;
    /// A whole number that fits, with or without sign.
    unsigned long long getUnsignedLongLong() const;
    /// A number, "INF", "-INF" or "NaN" (these in any case). One too large for the type is
    /// infinite, one too small is 0.
    float getFloat() const;
    /// A number as for `getFloat`.
    double getDouble() const;
    /// A number as for `getFloat`.
    long double getLongDouble() const;
    /// A number of any length.
    TzDecimalPortable getDecimal() const;
    /// A date, with or without zone; of a date and time the date.
    TzDate getDate() const;
    /// A date and time, with or without fraction and zone; a date is the midnight it begins with, a
    /// time is on 1970-01-01.
    TzDateTime getDateTime() const;
    /// The day of a date, whatever its offset; of a date and time the day that it states.
    std::chrono::sys_days getSysDays() const;
    /// The instant of a date and time in the forms of `getDateTime`, UTC unless it states an
    /// offset, in the years 1678 to 2261.
    std::chrono::sys_time<std::chrono::nanoseconds> getSysTime() const;
    /// A duration.
    TzXmlDuration getDuration() const;
    /// The bytes that base64 text stands for, with or without line breaks; of a value whose type is
    /// hexBinary those that its hexadecimal digits stand for.
    TzCString getBytes() const;

private:
    [[noreturn]] void refuse(const char* wanted) const;
    std::string_view trimmed(const char* wanted) const;
    template <typename Value> Value read() const;

    TzSoapType value_;
    TzCString text_;
    bool null_ = false;
};
