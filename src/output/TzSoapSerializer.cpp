// SPDX-License-Identifier: MIT
#include <soap/TzSoapSerializer.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapLasting.h"
#include "output/TzSoapOutputPath.h"
#include "output/TzSoapSerializerRules.h"

#include <cstddef>
#include <numeric>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

/// The element that a handle of any kind stands for.
template <typename Handle> const TzSoapElementImp& elementOf(const Handle& handle) {
    return TzSoapAccess::body(handle);
}

TzSoapTagName tagOf(const TzSoapType& value) {
    return TzSoapTagName::of(elementOf(value).getName());
}

const TzSoapOutputContext::Kind& serializerKind() noexcept {
    static const TzSoapOutputContext::Kind kind{TzSoapSerializerRules::instance(),
                                                typeid(TzSoapSerializer), "TzSoapSerializer"};
    return kind;
}

/// A new package with the parts of `package`: handles share a package, and parts that are added
/// later must not appear in copies.
TzMimeMultipart copyOf(const TzMimeMultipart& package) {
    TzMimeMultipart copy;
    for (std::size_t i = 0; i < package.getPartCount(); ++i) {
        copy.insertPart(package.getPart(i));
    }
    return copy;
}

} // namespace

/// The text and the package that a serializer fills, and how it does that.
struct TzSoapSerializer::Owned {
    Owned() {
        const TzSoapVersion& soap = path.context.soap();
        path.context.takePrefixes(soap.getSoapEnv().getPrefix(), soap.getSoapEnc().getPrefix());
    }
    Owned(const Owned& other)
        : text(other.text), parts(copyOf(other.parts)), path(other.path.context),
          pushed(other.allOpen()) {
        adopt();
    }
    Owned& operator=(const Owned& other) {
        if (this != &other) {
            Owned copy(other);
            path.assign(copy.path);
            pushed.swap(copy.pushed);
            text = copy.text;
            parts = copy.parts;
            adopt();
        }
        return *this;
    }
    ~Owned() = default;

    /// The scope of an element that a derived class writes.
    void push(const TzSoapElementImp& element) {
        TzSoapScope& scope = path.context.scope();
        pushed.push_back(scope.depth() + 1);
        scope.open();
        path.startTag.begin(element.getAttributeSet());
        scope.setOwnStyle(element.getEncodingStyleAttribute());
    }
    void pop() noexcept {
        TzSoapScope& scope = path.context.scope();
        while (!pushed.empty() && pushed.back() > scope.depth()) {
            pushed.pop_back(); // an element around it is closed already
        }
        if (!pushed.empty() && pushed.back() == scope.depth()) {
            scope.closeTo(scope.depth() - 1);
            pushed.pop_back();
        }
    }

    TzXmlStringWriter text;
    TzMimeMultipart parts;
    TzSoapOutputPath path{serializerKind(), &text, &parts};
    std::vector<std::size_t> pushed; // depth of the elements that a derived class opened

private:
    void adopt() noexcept {
        path.context.setXml(&text);
        path.context.setMultipart(&parts);
    }
    // Nothing else would close the elements that are open while a serializer is copied.
    std::vector<std::size_t> allOpen() const {
        std::vector<std::size_t> depths(path.context.scope().depth());
        std::iota(depths.begin(), depths.end(), std::size_t{1});
        return depths;
    }
};

// Real strings and a real name, made before any object of the program.
TZSOAP_EARLY const TzCString TzSoapSerializer::Fault = "Fault";
TZSOAP_EARLY const TzCString TzSoapSerializer::Prefix(TzSoapStartTag::PrefixBase);
TZSOAP_EARLY const TzXmlName TzSoapSerializer::UnknownName = TzSoapTagName::unnamedName();

TzSoapSerializer::TzSoapSerializer() : owned_(std::make_unique<Owned>()) {}

TzSoapSerializer::TzSoapSerializer(const TzSoapSerializer& other)
    : TzSoapConstVisitor(other), owned_(std::make_unique<Owned>(*other.owned_)) {}

TzSoapSerializer& TzSoapSerializer::operator=(const TzSoapSerializer& other) {
    *owned_ = *other.owned_;
    return *this;
}

TzSoapSerializer::~TzSoapSerializer() = default;

void TzSoapSerializer::setCompact(bool compact) { owned_->path.context.setCompact(compact); }

TzCString TzSoapSerializer::getSerializedString() const& { return owned_->text.getString(); }

TzCString TzSoapSerializer::getSerializedString() && { return owned_->text.takeString(); }

TzMimeMultipart TzSoapSerializer::getMultipart() const { return copyOf(owned_->parts); }

void TzSoapSerializer::visit(const TzSoapMisunderstoodType& value) { owned_->path.write(value); }

void TzSoapSerializer::visit(const TzSoapReferenceType& value) { owned_->path.write(*this, value); }

void TzSoapSerializer::visit(const TzSoapUserDefinedType& value) { owned_->path.write(value); }

void TzSoapSerializer::visit(const TzSoapSimpleType& value) { owned_->path.write(value); }

void TzSoapSerializer::visit(const TzSoapFault& fault) { owned_->path.write(*this, fault); }

void TzSoapSerializer::visit(const TzSoapCompositeType& value) { owned_->path.write(*this, value); }

void TzSoapSerializer::visit(const TzSoapSparseArrayType& value) {
    owned_->path.write(*this, value);
}

void TzSoapSerializer::visit(const TzSoapCompactArrayType& value) {
    owned_->path.write(*this, value);
}

void TzSoapSerializer::visit(const TzSoapArrayType&) {}

void TzSoapSerializer::visit(const TzSoapType& value) { owned_->path.write(value); }

void TzSoapSerializer::visit(const TzSoapBody& body) { owned_->path.write(*this, body); }

void TzSoapSerializer::visit(const TzSoapHeader& header) { owned_->path.write(*this, header); }

void TzSoapSerializer::visit(const TzSoapMessage& message) { owned_->path.write(*this, message); }

void TzSoapSerializer::verifyQualifiedName(const TzXmlName& name) {
    owned_->path.startTag.qualifyName(name);
}

TzXmlAttribute TzSoapSerializer::getVerifiedAttribute(const TzXmlAttribute& attribute) {
    TzXmlAttribute copy = attribute;
    if (attribute.getName().getUri().empty() || attribute.isNamespaceDeclaration()) {
        return copy;
    }
    const TzSoapOutputContext& context = owned_->path.context;
    if (context.isInEnvelope() || context.isStandalone()) {
        adjustSoapAttributeVersion(copy);
    }
    const TzCString prefix = copy.getName().getPrefix();
    copy.getName().setPrefix(owned_->path.startTag.boundPrefix(prefix, copy.getName()));
    return copy;
}

bool TzSoapSerializer::adjustSoapAttributeVersion(TzXmlAttribute& attribute) const {
    const TzSoapStartTag& startTag = owned_->path.startTag;
    TzSoapVersion::SoapAttribute which{};
    if (!startTag.isOfOtherVersion(attribute.getName(), which)) {
        return false;
    }
    TzXmlName name = startTag.soap().getSoapAttributeQName(which);
    if (!name.isEmpty()) {
        name.setPrefix(startTag.soapPrefix(name));
    }
    attribute.setName(std::move(name));
    return true;
}

TzCString TzSoapSerializer::getUniquePrefix(const TzCString& prefix, const TzCString& uri) const {
    return TzSoapSerializerRules::instance().uniquePrefix(owned_->path.context.scope(), prefix,
                                                          uri);
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapMessage& message) {
    owned_->push(elementOf(message));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapHeader& header) {
    owned_->push(elementOf(header));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapBody& body) {
    owned_->push(elementOf(body));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapType& value) {
    owned_->push(elementOf(value));
}

void TzSoapSerializer::popNamesAndEncodings(const TzSoapMessage&) { owned_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapHeader&) { owned_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapBody&) { owned_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapType&) { owned_->pop(); }

void TzSoapSerializer::populateAttributeSet(const TzSoapMessage& message) {
    owned_->path.startTag.collectBlock(elementOf(message));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapHeader& header) {
    owned_->path.startTag.collectBlock(elementOf(header));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapBody& body) {
    owned_->path.startTag.collectBlock(elementOf(body));
    owned_->path.startTag.collectRoot(elementOf(body));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapType& value) {
    TzSoapStartTag& startTag = owned_->path.startTag;
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    startTag.collectValue(body, body.getTypeValue(), {});
    if (const auto* array = dynamic_cast<const TzSoapArrayTypeImp*>(&body)) {
        startTag.collectShape(*array);
    } else if (const auto* reference = dynamic_cast<const TzSoapReferenceTypeImp*>(&body)) {
        startTag.renameReference(*reference);
    }
}

void TzSoapSerializer::clearAttributeSet() { owned_->path.startTag.clear(); }

bool TzSoapSerializer::isEncodingStylePresent(const TzCString& style) const {
    return TzSoapSerializerRules::isStylePresent(owned_->path.context.scope(), style);
}

TzCString TzSoapSerializer::getLastSpecifiedEncodingStyle() const {
    return TzCString(owned_->path.context.scope().outerStyle());
}

bool TzSoapSerializer::getLastSpecifiedEncodingStyleState() const { return true; }

void TzSoapSerializer::ensureSoapEncodingStyleIsPresent(const TzSoapType& value) {
    if (!elementOf(value).hasEncodingStyleAttribute()) {
        owned_->path.startTag.ensureStyle();
    }
}

void TzSoapSerializer::writeNamespaceAttributes() { owned_->path.startTag.writeDeclarations(); }

void TzSoapSerializer::writeNonNamespaceAttributes() { owned_->path.startTag.writeAttributes(); }

void TzSoapSerializer::writeQualifiedName(const TzXmlName& name) {
    owned_->path.startTag.writeElementName(TzSoapTagName::of(name));
}

void TzSoapSerializer::writeTypeStartTag(const TzSoapType& value, bool newline) {
    owned_->path.startTag.write(tagOf(value));
    owned_->text.write(TzXmlWriter::EndTag);
    if (newline) {
        owned_->text.writeNewLine();
    }
    clearAttributeSet();
}

void TzSoapSerializer::writeTypeEmptyTag(const TzSoapType& value) {
    owned_->path.startTag.write(tagOf(value));
    owned_->text.writeMarkupLine(TzXmlWriter::UnpairedTag);
    clearAttributeSet();
}

void TzSoapSerializer::writeTypeEndTag(const TzSoapType& value) {
    tagOf(value).writeEndTag(owned_->text);
}

void TzSoapSerializer::writeSubCode(const TzSoapFault& fault, unsigned int count,
                                    unsigned int index) {
    owned_->path.faults.writeSubcodes(TzSoapAccess::body(fault), index, count);
}
