// SPDX-License-Identifier: MIT
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapElementImp.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlUtils.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapLasting.h"
#include "model/TzSoapMessageForm.h"

#include <algorithm>
#include <utility>

// Real strings, so that they serve wherever a TzCString is taken: constructed before any object of
// the program can use them.
TZSOAP_EARLY const TzCString TzSoapUtils::Blank = " ";
TZSOAP_EARLY const TzCString TzSoapUtils::Colon = ":";
TZSOAP_EARLY const TzCString TzSoapUtils::EmptyString;
TZSOAP_EARLY const TzCString TzSoapUtils::Hyphen = "-";
TZSOAP_EARLY const TzCString TzSoapUtils::Hypen = "-";
TZSOAP_EARLY const TzCString TzSoapUtils::Minus = "-";
TZSOAP_EARLY const TzCString TzSoapUtils::Plus = "+";
TZSOAP_EARLY const TzCString TzSoapUtils::Newline = "\n";
TZSOAP_EARLY const TzCString TzSoapUtils::Tab = "\t";
TZSOAP_EARLY const TzCString TzSoapUtils::WhiteSpace = " \n\t";
TZSOAP_EARLY const TzCString TzSoapUtils::TimeSeparator = "T";
TZSOAP_EARLY const TzCString TzSoapUtils::UTimeZone = "Z";
TZSOAP_EARLY const TzCString TzSoapUtils::TZD = "Z+-";
TZSOAP_EARLY const TzCString TzSoapUtils::ISO8601Date = "%Y-%m-%d";
TZSOAP_EARLY const TzCString TzSoapUtils::ISO8601DateFormat = "%Y-%m-%d";
TZSOAP_EARLY const TzCString TzSoapUtils::ISO8601Format = "%Y-%m-%dT%X";
TZSOAP_EARLY const TzCString TzSoapUtils::ISO8601Time = "T%X";
TZSOAP_EARLY const TzCString TzSoapUtils::TrueTag = "true";
TZSOAP_EARLY const TzCString TzSoapUtils::arrayString = "Array";
TZSOAP_EARLY const TzCString TzSoapUtils::badString = "Bad";
TZSOAP_EARLY const TzCString TzSoapUtils::compositeString = "Composite";
TZSOAP_EARLY const TzCString TzSoapUtils::genericString = "Generic";
TZSOAP_EARLY const TzCString TzSoapUtils::misunderstoodString = "Misunderstood";
TZSOAP_EARLY const TzCString TzSoapUtils::pcdataString = "Pcdata";
TZSOAP_EARLY const TzCString TzSoapUtils::referenceString = "Reference";
TZSOAP_EARLY const TzCString TzSoapUtils::simpleString = "Simple";
TZSOAP_EARLY const TzCString TzSoapUtils::userDefinedString = "UserDefined";

namespace {

/// Takes the next entry out of `rest`: a run of characters other than white space, empty at the
/// end.
std::string_view nextEntry(std::string_view& rest) noexcept {
    const auto* const begin = std::find_if_not(rest.begin(), rest.end(), TzXmlUtils::isWhiteSpace);
    const auto* const end = std::find_if(begin, rest.end(), TzXmlUtils::isWhiteSpace);
    rest.remove_prefix(static_cast<std::size_t>(end - rest.begin()));
    return {begin, end};
}

} // namespace

TzCString TzSoapUtils::convertDateToISOString(const TzDate& date) {
    return TzXmlUtils::convertDateToISOString(date);
}

TzCString TzSoapUtils::convertDateTimeToISOString(const TzDateTime& dateTime) {
    return TzXmlUtils::convertDateTimeToISOString(dateTime, TzXmlUtils::ISO8601Format);
}

TzDate TzSoapUtils::convertISODateStringToDate(const TzCString& text) {
    return TzXmlUtils::convertISODateStringToDate(text);
}

TzDateTime TzSoapUtils::convertISODateStringToDateTime(const TzCString& text) {
    return TzXmlUtils::convertISODateStringToDateTime(text);
}

void TzSoapUtils::getElementTypeAndSize(const TzCString& arrayType, TzCString& type,
                                        TzCString& size) {
    const std::size_t bracket = arrayType.rfind('[');
    if (bracket == TzCString::npos) {
        return;
    }
    // Complete both before assigning: an output may be the input.
    TzCString typePart = arrayType.substr(0, bracket);
    TzCString sizePart = arrayType.substr(bracket);
    type = std::move(typePart);
    size = std::move(sizePart);
}

TzSoapUtils::MessageEncoding TzSoapUtils::getMessageEncoding(const TzCString& text) {
    if (tzFindIgnoreCase(text, "Content-Type") != TzCString::npos) {
        return MimeEncoding;
    }
    const TzXmlName& envelope = TzSoapVersion::getSoapElementName(
        TzSoapVersion::Envelope, TzSoapVersion::getLatestVersion());
    return text.find(envelope.getLocalName()) != TzCString::npos ? XmlEncoding : NoEncoding;
}

bool TzSoapUtils::isMimeMultipart(const TzCString& text) { return tzSoapIsMimeMultipart(text); }

bool tzSoapIsMimeMultipart(std::string_view text) noexcept {
    if (text.substr(0, 2).find(TzXmlWriter::StartTag) != std::string_view::npos) {
        return false;
    }
    const std::size_t header = tzFindIgnoreCase(text, "Content-Type:");
    return header != TzCString::npos &&
           tzFindIgnoreCase(text, "Multipart", header) != TzCString::npos;
}

void TzSoapUtils::stringToEncodingList(const TzCString& text, std::list<TzCString>& list) {
    std::list<TzCString> entries;
    if (text.empty()) {
        entries.emplace_back();
    }
    std::string_view rest = text;
    for (auto entry = nextEntry(rest); !entry.empty(); entry = nextEntry(rest)) {
        entries.emplace_back(entry);
    }
    list = std::move(entries);
}

std::string_view TzSoapUtils::firstEncodingStyle(std::string_view text) noexcept {
    return nextEntry(text);
}

TzCString TzSoapUtils::getEncodingStyleAttributeUri(TzSoapElementImp* element) {
    return element->getAttributeSet().getEncodingStyleAttribute();
}

void TzSoapUtils::removeEncodingStyleAttribute(TzSoapElementImp* element) {
    TzSoapAttributeSet& attributes = element->getAttributeSet();
    if (!attributes.getEncodingStyleAttribute().empty()) {
        attributes.removeEncodingStyleAttribute();
    }
}

void TzSoapUtils::removeAndFixEncodingStyleAttribute(TzSoapElementImp* element) {
    const TzCString style = getEncodingStyleAttributeUri(element);
    if (!style.empty()) {
        removeEncodingStyleAttribute(element);
        element->setEncodingStyle(style);
    }
}

TzCString TzSoapUtils::getAttributesAsString(const TzXmlAttributeSet& attributes) {
    TzCString markup;
    for (const TzXmlAttribute& attribute : attributes) {
        markup += BlankUtf8;
        attribute.getName().appendQualifiedName(markup);
        markup += TzXmlWriter::EqualToAndQuotes;
        markup += attribute.getValue();
        markup += TzXmlWriter::Quotes;
    }
    return markup;
}
