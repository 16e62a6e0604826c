// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <string_view>

class TzDate;
class TzDateTime;

/// White space of XML, qualified names in text and the ISO 8601 forms of dates.
///
/// Static operations without state, usable from any thread; they ignore the locale.
class TZ_PLATFORM_API TzXmlUtils {
public:
    static constexpr char BlankUtf8 = ' ';    ///< The blank.
    static constexpr char NewlineUtf8 = '\n'; ///< The line feed.
    static constexpr char TabUtf8 = '\t';     ///< The tab.

    /// The white space of XML: blank, line feed, tab, carriage return.
    static constexpr std::string_view WhiteSpace = " \n\t\r";
    /// Whether `character` is white space of XML.
    static constexpr bool isWhiteSpace(char character) noexcept {
        return character == ' ' || character == '\n' || character == '\t' || character == '\r';
    }
    /// Date, "T" and time of day.
    static constexpr std::string_view ISO8601Format = "%Y-%m-%dT%X";

    TzXmlUtils() = delete;

    /// `text` without the white space at its ends.
    static std::string_view trim(std::string_view text) noexcept;
    /// `text`, which stays the caller's; `TzXmlBadArgError` for a null pointer.
    static std::string_view requireText(const char* text);

    /// Whether `text` is a name of XML 1.0 (fifth edition, production Name), which elements and
    /// attributes can have. O(text).
    static bool isName(std::string_view text) noexcept;
    /// Whether `text` can follow the first character of a name (production Nmtoken). O(text).
    static bool isNameToken(std::string_view text) noexcept;
    /// Whether prefix, ":" and local part make a name, or the local part alone without a prefix.
    /// O(texts).
    static bool isQualifiedName(std::string_view prefix, std::string_view localName) noexcept;

    /// Splits `text` at its first ':'; without one the prefix is "". `text` must not be a part of
    /// `prefix` or `localName`.
    static void getPrefixAndLocalName(std::string_view text, TzCString& prefix,
                                      TzCString& localName);

    /// "YYYY-MM-DD", and the offset if the date has one; `TzXmlBadArgError` for an invalid date.
    static TzCString convertDateToISOString(const TzDate& date);
    /// `dateTime` in `format`: %Y %m %d %H %M %S, %F for the date, %X and %T for the 24-hour time,
    /// %% for '%', other characters unchanged.
    /// A fraction that is not 0 follows the seconds; the offset, if the time has one, ends the
    /// text. `TzXmlBadArgError` for an invalid time or another
    /// directive.
    static TzCString convertDateTimeToISOString(const TzDateTime& dateTime,
                                                std::string_view format = ISO8601Format);

    /// The date "YYYY-MM-DD", optionally with "Z", "+hh:mm" or "-hh:mm"; `TzXmlBadArgError` for any
    /// other text.
    static TzDate convertISODateStringToDate(std::string_view text);
    /// The time "YYYY-MM-DDThh:mm:ss", optionally with a fraction and with "Z", "+hh:mm" or
    /// "-hh:mm"; "24:00:00" is the next midnight; "hh:mm:ss" and "Thh:mm:ss" alone are on
    /// 1970-01-01. `TzXmlBadArgError` for any other text. Digits of the fraction after the ninth
    /// are dropped.
    static TzDateTime convertISODateStringToDateTime(std::string_view text);
};
