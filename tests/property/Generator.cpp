// SPDX-License-Identifier: MIT
#include "property/Generator.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>

#include "model/TzSoapAccess.h"

#include <array>
#include <limits>

namespace {

using Base = TzSoapContentBase;

constexpr int MostDepth = 4;

/// Pieces of text that tend to go wrong on the wire.
constexpr std::array<const char*, 14> Pieces = {
    "a",   "Z9",  " ",   "\n",       "\t",    "\r",           "&",
    "<x>", "]]>", "\"'", "\xC3\xBC", "&amp;", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
};

} // namespace

unsigned int Generator::below(unsigned int limit) {
    // Not a distribution of the library: those differ from one standard library to the next.
    return static_cast<unsigned int>(random_()) % limit;
}

std::string Generator::word() {
    std::string word(1, static_cast<char>('a' + below(26)));
    for (unsigned int i = below(8); i > 0; --i) {
        word += static_cast<char>('a' + below(26));
    }
    return word;
}

std::string Generator::text() {
    std::string text;
    for (unsigned int i = below(6); i > 0; --i) {
        text += Pieces[below(Pieces.size())];
    }
    return text;
}

TzXmlName Generator::name() {
    static const std::array<TzXmlNamespace, 3> namespaces = {
        TzXmlNamespace("m", "urn:one"), TzXmlNamespace("n", "urn:two"),
        TzXmlNamespace("o", "http://example.org/three")};
    return chance(60) ? TzXmlName(word()) : TzXmlName(word(), namespaces[below(3)]);
}

TzSoapSimpleType Generator::simple() {
    const bool labelled = chance(70);
    switch (below(8)) {
    case 0:
        return {name(), static_cast<int>(random_()), Base::xsdInt, labelled};
    case 1:
        return {name(), static_cast<double>(below(1000000)) / 64, Base::xsdDouble, labelled};
    case 2:
        return {name(), chance(50), Base::xsdBoolean, labelled};
    case 3:
        return {name(), "2026-11-21T12:34:56Z", Base::xsdDateTime, labelled};
    case 4:
        return {name(), static_cast<long>(random_()) << 31, Base::xsdLong, labelled};
    case 5:
        return {name(), static_cast<unsigned short>(random_()), Base::xsdUnsignedShort, labelled};
    default:
        return plainText();
    }
}

TzSoapSimpleType Generator::plainText() {
    TzSoapSimpleType value(name(), text(), Base::xsdString, chance(70));
    if (chance(10)) {
        value.setNull(true);
        value.setEncodedString(TzCString(), Base::xsdString);
    }
    if (chance(10)) {
        value.addAttribute(TzXmlName(word()), text());
    }
    return value;
}

TzSoapCompositeType Generator::composite(int depth) {
    TzSoapCompositeType composite(name());
    for (unsigned int i = 1 + below(5); i > 0; --i) {
        composite.appendChild(value(depth + 1));
    }
    if (chance(10)) {
        composite.setTypeAttribute(TzXmlName(word(), TzXmlNamespace("t", "urn:types")));
    }
    if (chance(10)) {
        composite.setRoot(chance(50));
    }
    return composite;
}

TzSoapType Generator::compactArray(int depth) {
    std::vector<unsigned int> bounds;
    for (unsigned int axes = 1 + below(3); axes > 0; --axes) {
        bounds.push_back(1 + below(3));
    }
    TzSoapCompactArrayType array(name(), "xsd:anyType", bounds,
                                 std::vector<unsigned int>(bounds.size(), 0));
    for (unsigned int i = 0; i < array.entries(); ++i) {
        array(i) = value(depth + 1);
    }
    return array;
}

TzSoapType Generator::sparseArray(int depth) {
    TzSoapSparseArrayType array(name(), "xsd:anyType", 50);
    for (unsigned int i = 1 + below(4); i > 0; --i) {
        array(below(50)) = valueWithoutMarkup(depth + 1);
    }
    return array;
}

TzSoapType Generator::reference() {
    if (targets_.empty() || chance(30)) {
        TzSoapSimpleType target(TzXmlName(word()), text(), Base::xsdString, true);
        target.setIdAttribute("id" + std::to_string(targets_.size()));
        targets_.push_back(target);
    }
    return TzSoapReferenceType(name(), targets_[below(static_cast<unsigned int>(targets_.size()))]);
}

TzSoapType Generator::userDefined() {
    // As reading keeps an element: two blanks before its attributes, the style among them.
    const std::string name = word();
    const std::string style = "urn:application:" + word();
    auto* body = new TzSoapUserDefinedTypeImp(TzXmlName(name), {});
    const auto value = TzSoapAccess::handle<TzSoapUserDefinedType>(body);
    body->setEncodingStyle(style);
    body->setValue("<" + name + "  " + envelopePrefix_ + ":encodingStyle=\"" + style + "\">" +
                   word() + "<" + name + " ></" + name + "></" + name + ">");
    return value;
}

TzSoapType Generator::value(int depth) {
    // Markup has its own name and no position, whatever a detail or a sparse array says of it.
    return chance(5) ? userDefined() : valueWithoutMarkup(depth);
}

TzSoapType Generator::valueWithoutMarkup(int depth) {
    const unsigned int kind = below(100);
    if (depth >= MostDepth || kind < 55) {
        return simple();
    }
    if (kind < 80) {
        return composite(depth);
    }
    if (kind < 87) {
        return compactArray(depth);
    }
    return kind < 93 ? sparseArray(depth) : reference();
}

void Generator::addHeader(TzSoapMessage& message) {
    TzSoapHeader& header = message.getSoapHeader();
    for (unsigned int i = below(3); i > 0; --i) {
        const TzSoapType entry = chance(60) ? TzSoapType(simple()) : TzSoapType(composite(2));
        if (chance(50)) {
            header.appendHeaderEntry(entry, true, TzCString("urn:actor:" + word()));
        } else {
            header.appendHeaderEntry(entry, TzCString("urn:actor"));
        }
    }
    if (chance(10)) {
        header.appendHeaderEntry(
            TzSoapMisunderstoodType(TzXmlName(word(), TzXmlNamespace("l", "urn:" + word()))),
            TzCString("urn:actor"));
    }
}

void Generator::addFault(TzSoapMessage& message) {
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Server));
    fault.setReason(text());
    fault.setNode("urn:node:" + word());
    for (unsigned int i = below(3); i > 0; --i) {
        fault.addDetailEntry(word(), valueWithoutMarkup(2));
    }
    if (message.getVersion() == TzSoapVersion::V1_2) {
        fault.setRole("urn:role:" + word());
        for (unsigned int i = below(4); i > 0; --i) {
            fault.addSubcode(TzXmlName(word(), TzXmlNamespace("c", "urn:codes")));
        }
    }
}

TzSoapMessage Generator::message() {
    targets_.clear();
    TzSoapMessage message(chance(50) ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2);
    envelopePrefix_ = message.getSoapPrefix();
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    if (chance(50)) {
        message.addNamespaceAttribute(TzXmlNamespace::getXsi());
    }
    if (chance(50)) {
        message.setEncodingStyle(message.getSoapVersion().getSoapEncodingStyle());
    }
    addHeader(message);
    if (chance(20)) {
        addFault(message);
    }
    for (unsigned int i = below(4); i > 0; --i) {
        message.getSoapBody().appendEntry(value(0));
    }
    return message;
}
