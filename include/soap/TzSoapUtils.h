// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <list>
#include <optional>
#include <string_view>

class TzDate;
class TzDateTime;
class TzSoapElementImp;
class TzSoapParseContext;
class TzXmlAttributeSet;

/// Operations and constant texts that reading, model and packaging share.
///
/// Static, without state, usable from any thread on different arguments. The texts are made before
/// any object of the program is constructed and outlive all of them.
class TZSOAP_API TzSoapUtils {
public:
    /// What a text looks like.
    enum MessageEncoding : int {
        NoEncoding = 0,   ///< Neither a MIME header nor an envelope was recognised.
        XmlEncoding = 1,  ///< A bare envelope.
        MimeEncoding = 2, ///< A MIME message.
    };

    static constexpr char BlankUtf8 = ' ';       ///< The blank.
    static constexpr char NewlineUtf8 = '\n';    ///< The line feed.
    static constexpr char TabUtf8 = '\t';        ///< The tab.
    static constexpr int MinDateLength = 10;     ///< Characters of a date.
    static constexpr int MinTimeLength = 8;      ///< Characters of a time of day.
    static constexpr int MinDateTimeLength = 19; ///< Characters of a date, "T" and a time of day.

    static const TzCString Blank;               ///< " "
    static const TzCString Colon;               ///< ":"
    static const TzCString EmptyString;         ///< ""
    static const TzCString Hyphen;              ///< "-"
    static const TzCString Hypen;               ///< "-", kept beside `Hyphen`.
    static const TzCString Minus;               ///< "-"
    static const TzCString Plus;                ///< "+"
    static const TzCString Newline;             ///< A line feed.
    static const TzCString Tab;                 ///< A tab.
    static const TzCString WhiteSpace;          ///< Blank, line feed and tab.
    static const TzCString TimeSeparator;       ///< "T"
    static const TzCString UTimeZone;           ///< "Z"
    static const TzCString TZD;                 ///< "Z+-", what a time-zone designator begins with.
    static const TzCString ISO8601Date;         ///< "%Y-%m-%d"
    static const TzCString ISO8601DateFormat;   ///< "%Y-%m-%d"
    static const TzCString ISO8601Format;       ///< "%Y-%m-%dT%X"
    static const TzCString ISO8601Time;         ///< "T%X"
    static const TzCString TrueTag;             ///< "true"
    static const TzCString arrayString;         ///< "Array"
    static const TzCString badString;           ///< "Bad"
    static const TzCString compositeString;     ///< "Composite"
    static const TzCString genericString;       ///< "Generic"
    static const TzCString misunderstoodString; ///< "Misunderstood"
    static const TzCString pcdataString;        ///< "Pcdata"
    static const TzCString referenceString;     ///< "Reference"
    static const TzCString simpleString;        ///< "Simple"
    static const TzCString userDefinedString;   ///< "UserDefined"

    TzSoapUtils() = delete;

    /// The date as ISO 8601 text; `TzXmlBadArgError` for a date that does not exist.
    static TzCString convertDateToISOString(const TzDate& date);
    /// The date and time as ISO 8601 text; `TzXmlBadArgError` for a time that does not exist.
    static TzCString convertDateTimeToISOString(const TzDateTime& dateTime);
    /// The date that an ISO 8601 text states; `TzXmlBadArgError` when it states none.
    static TzDate convertISODateStringToDate(const TzCString& text);
    /// The date and time that an ISO 8601 text states; `TzXmlBadArgError` when it states none.
    static TzDateTime convertISODateStringToDateTime(const TzCString& text);

    /// Splits an arrayType before its last '[': "xsd:int[][3]" into "xsd:int[]" and "[3]". Without
    /// '[' both outputs are left alone.
    static void getElementTypeAndSize(const TzCString& arrayType, TzCString& type, TzCString& size);
    /// `MimeEncoding` when "Content-Type" occurs anywhere, in any case; otherwise `XmlEncoding`
    /// when "Envelope" does, in this case; otherwise `NoEncoding`. O(text).
    static MessageEncoding getMessageEncoding(const TzCString& text);
    /// Whether the text is a MIME multipart: does not begin with "<" in its first two characters
    /// and names "Multipart" anywhere after "Content-Type:", both in any case. O(text).
    static bool isMimeMultipart(const TzCString& text);

    /// Replaces `list` by the URIs of an encodingStyle value, white space between them: one empty
    /// entry for an empty text, an empty list for a text of white space.
    static void stringToEncodingList(const TzCString& text, std::list<TzCString>& list);
    /// The first URI of an encodingStyle value, "" for an empty list; a part of `text`.
    static std::string_view firstEncodingStyle(std::string_view text) noexcept;

    /// The value of the encodingStyle attribute in the element's attribute set, "" if absent.
    static TzCString getEncodingStyleAttributeUri(TzSoapElementImp* element);
    /// Removes the encodingStyle attribute from the element's attribute set unless it is empty.
    static void removeEncodingStyleAttribute(TzSoapElementImp* element);
    /// Removes the encodingStyle attribute and makes its value the element's encoding style.
    static void removeAndFixEncodingStyleAttribute(TzSoapElementImp* element);
    /// Turns the offset attribute of an array's body into its offset, 0 on axes that it does not
    /// name, and removes the attributes that state its type and size. `TzXmlBadArgError`
    /// BAD_INDEX_STRING for an invalid offset.
    static void removeAndFixArrayTypeAttributes(TzSoapElementImp* array,
                                                TzSoapVersion::Version version);

    /// Gives `element` the attributes that were read for it: those that SOAP defines in the version
    /// being read and the type become its properties, the others are added to its attribute set.
    /// The type's prefix is resolved by `context`, the latest version is assumed without one.
    static void copyAttributes(const TzXmlAttributeSet& attributes, TzSoapElementImp& element,
                               TzSoapParseContext* context);
    /// Gives `element` the attributes by taking them out of the set instead of copying them: what
    /// is left in it is unspecified.
    static void copyAttributes(TzXmlAttributeSet&& attributes, TzSoapElementImp& element,
                               TzSoapParseContext* context);
    /// Begins `element` at its start tag: takes the name, adds the attributes as they are and makes
    /// a non-empty encodingStyle among them the element's encoding style. The encodingStyle among
    /// `attributes`, empty or not; null without one.
    static const TzCString* beginElement(TzSoapElementImp& element, const TzXmlName& name,
                                         const TzXmlAttributeSet& attributes);

    /// The attributes as markup: a blank before each, names qualified, values not escaped.
    static TzCString getAttributesAsString(const TzXmlAttributeSet& attributes);
    /// The name that the type attribute states, the empty name without one. Its prefix is resolved
    /// by `context`, then by the declarations among `attributes`; an unbound one has the empty URI.
    static TzXmlName getTypeValue(const TzXmlAttributeSet& attributes, TzSoapParseContext* context);
};
