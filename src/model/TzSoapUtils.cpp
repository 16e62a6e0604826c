// SPDX-License-Identifier: MIT
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapParseContext.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlUtils.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapLasting.h"
#include "model/TzSoapMessageForm.h"
#include "reading/TzSoapReadingState.h"

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

/// The first of `attributes` that states a type, null when none does.
const TzXmlAttribute* findType(const TzXmlAttributeSet& attributes) {
    for (const TzXmlAttribute& attribute : attributes) {
        if (TzSoapAttributeSet::matchTypeAttributeName(attribute.getName())) {
            return &attribute;
        }
    }
    return nullptr;
}

/// The encodingStyle among `attributes`, that of the latest version that states one; null without.
const TzXmlAttribute* findEncodingStyle(const TzXmlAttributeSet& attributes) {
    for (const TzSoapVersion::Version version : {TzSoapVersion::V1_2, TzSoapVersion::V1_1}) {
        const auto* found = attributes.find(
            TzSoapVersion::getSoapAttributeName(TzSoapVersion::EncodingStyle, version));
        if (found != attributes.end()) {
            return found;
        }
    }
    return nullptr;
}

/// The name that `text` spells, its prefix resolved as far as there is a reading.
TzXmlName resolve(std::string_view text, TzSoapParseContext* context) {
    return context != nullptr ? TzSoapAccess::reading(*context).resolveName(text) : TzXmlName(text);
}

/// Whether a received boolean says yes.
bool isTrue(const TzCString& text) {
    return text == TzSoapUtils::TrueTag || text == TzSoapAttributeSet::getTrueAttributeValue();
}

/// Adds attributes that another set held, where no two have one name.
class AttributeAdder {
public:
    explicit AttributeAdder(TzSoapAttributeSet& set) : set_(set), fresh_(set.empty()) {}

    /// Copies a `const` attribute and moves any other.
    template <typename Attribute> void add(Attribute& attribute) {
        if (fresh_) {
            set_.append(std::move(attribute));
        } else {
            set_.add(std::move(attribute));
        }
    }

private:
    TzSoapAttributeSet& set_;
    bool fresh_;
};

/// Gives the attributes of a start tag to an element.
class AttributeReader {
public:
    AttributeReader(TzSoapElementImp& element, TzSoapParseContext* context)
        : element_(element), context_(context), others_(element.getAttributeSet()),
          version_(context != nullptr ? context->getVersion() : TzSoapVersion::getLatestVersion()) {
    }

    /// `Attributes` may be const: what is kept is copied then, otherwise moved.
    template <typename Attributes> void read(Attributes& attributes) {
        const TzXmlAttribute* type = nullptr;
        for (auto& attribute : attributes) {
            if (TzSoapAttributeSet::matchTypeAttributeName(attribute.getName())) {
                type = &attribute;
            } else if (!takeProperty(attribute)) {
                others_.add(attribute);
            }
        }
        // Last, for the declarations among the others may bind its prefix.
        if (type != nullptr) {
            element_.setTypeAttribute(resolve(type->getValue(), context_));
        }
    }

private:
    bool is(const TzXmlAttribute& attribute, TzSoapVersion::SoapAttribute kind) const {
        return TzSoapVersion::matchSoapAttributeName(attribute.getName(), kind, version_);
    }

    /// Makes an attribute that SOAP defines a property of the element; false for any other one.
    bool takeProperty(const TzXmlAttribute& attribute) {
        if (attribute.getName().getUri().empty() || attribute.isNamespaceDeclaration()) {
            return false;
        }
        if (is(attribute, TzSoapVersion::MustUnderstand)) {
            element_.setMustUnderstand(isTrue(attribute.getValue()));
        } else if (is(attribute, TzSoapVersion::EncodingStyle)) {
            element_.setEncodingStyle(attribute.getValue());
        } else if (is(attribute, TzSoapVersion::Actor)) {
            element_.setActor(attribute.getValue());
        } else if (is(attribute, TzSoapVersion::Root)) {
            element_.setRoot(isTrue(attribute.getValue()));
        } else {
            return false;
        }
        return true;
    }

    TzSoapElementImp& element_;
    TzSoapParseContext* context_;
    AttributeAdder others_;
    TzSoapVersion::Version version_;
};

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
    // Both are complete before an output that may be the input changes.
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

void TzSoapUtils::removeAndFixArrayTypeAttributes(TzSoapElementImp* array,
                                                  TzSoapVersion::Version version) {
    TzSoapAttributeSet& attributes = array->getAttributeSet();
    if (const TzCString offset = attributes.getOffsetAttribute(); !offset.empty()) {
        attributes.removeOffsetAttribute();
        auto& body = static_cast<TzSoapArrayTypeImp&>(*array);
        TzSoapArrayTypeImp::Index index = TzSoapArrayTypeImp::stringToVector(offset, false);
        // Axes that the text does not name begin at 0.
        index.resize(std::max<std::size_t>(index.size(), body.getDimension()));
        body.setOffset(index);
    }
    attributes.removeArrayTypeAttribute();
    for (const auto kind : {TzSoapVersion::ItemType, TzSoapVersion::ArraySize}) {
        attributes.erase(TzSoapVersion::getSoapAttributeName(kind, version));
    }
}

void TzSoapUtils::copyAttributes(const TzXmlAttributeSet& attributes, TzSoapElementImp& element,
                                 TzSoapParseContext* context) {
    AttributeReader(element, context).read(attributes);
}

void TzSoapUtils::copyAttributes(TzXmlAttributeSet&& attributes, TzSoapElementImp& element,
                                 TzSoapParseContext* context) {
    AttributeReader(element, context).read(attributes);
}

const TzCString* TzSoapUtils::beginElement(TzSoapElementImp& element, const TzXmlName& name,
                                           const TzXmlAttributeSet& attributes) {
    element.setName(name);
    // Never among the attributes of an element that goes on: to take it out again costs as much as
    // there are.
    const TzXmlAttribute* style = findEncodingStyle(attributes);
    const bool stated = style != nullptr && !style->getValue().empty();
    TzSoapAttributeSet& others = element.getAttributeSet();
    // Only for the first of many elements of one name: room made for each would be copied each
    // time.
    if (const std::size_t count = attributes.size() - (stated ? 1 : 0);
        others.empty() && count > 0) {
        others.reserve(count);
    }
    AttributeAdder adder(others);
    for (const TzXmlAttribute& attribute : attributes) {
        if (!stated || &attribute != style) {
            adder.add(attribute);
        }
    }
    if (stated) {
        element.setEncodingStyle(style->getValue());
    }
    return style == nullptr ? nullptr : &style->getValue();
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

TzXmlName TzSoapUtils::getTypeValue(const TzXmlAttributeSet& attributes,
                                    TzSoapParseContext* context) {
    const TzXmlAttribute* type = findType(attributes);
    if (type == nullptr) {
        return {};
    }
    TzXmlName name = resolve(type->getValue(), context);
    if (name.getUri().empty()) {
        const auto* declared = attributes.findDeclaration(name.getPrefix());
        if (declared != attributes.end()) {
            name.setNamespace(declared->declaredNamespace());
        }
    }
    return name;
}
