// SPDX-License-Identifier: MIT
#include "output/TzSoapSerializerOutput.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapReferenceTypeImp.h>

#include <algorithm>

namespace {

/// `number` in decimal plus one; "" counts as 0.
TzCString increment(std::string_view number) {
    TzCString digits(number.substr(std::min(number.find_first_not_of('0'), number.size())));
    auto digit = digits.rbegin();
    for (; digit != digits.rend() && *digit == '9'; ++digit) {
        *digit = '0';
    }
    if (digit == digits.rend()) {
        return digits.insert(0, 1, '1');
    }
    ++*digit;
    return digits;
}

/// The next candidate behind `prefix`: with its trailing number, 0 without one, plus one.
TzCString nextPrefix(std::string_view prefix) {
    if (prefix.empty()) {
        prefix = TzSoapTagOutput::PrefixBase;
    }
    const std::size_t stem = prefix.find_last_not_of("0123456789") + 1;
    return TzCString(prefix.substr(0, stem)).append(increment(prefix.substr(stem)));
}

} // namespace

TzSoapSerializerOutput::TzSoapSerializerOutput(const std::type_info& visitor)
    : TzSoapOutput(&string_, &multipart_, visitor, "TzSoapSerializer") {
    takePrefixes(soap().getSoapEnv().getPrefix(), soap().getSoapEnc().getPrefix());
}

TzSoapSerializerOutput::TzSoapSerializerOutput(const TzSoapSerializerOutput& other)
    : TzSoapOutput(other), string_(other.string_), multipart_(other.copyOfParts()) {
    setText(&string_);
    setMultipart(&multipart_);
    separate();
}

TzSoapSerializerOutput& TzSoapSerializerOutput::operator=(const TzSoapSerializerOutput& other) {
    if (this != &other) {
        pushed_.clear();
        TzSoapOutput::operator=(other);
        setText(&string_);
        setMultipart(&multipart_);
        string_ = other.string_;
        multipart_ = other.copyOfParts();
        separate();
    }
    return *this;
}

TzSoapSerializerOutput::~TzSoapSerializerOutput() = default;

TzMimeMultipart TzSoapSerializerOutput::copyOfParts() const {
    // Handles to a package share it: the parts that are still to come must not appear in copies.
    TzMimeMultipart copy;
    for (std::size_t i = 0; i < multipart_.getPartCount(); ++i) {
        copy.insertPart(multipart_.getPart(i));
    }
    return copy;
}

void TzSoapSerializerOutput::push(const TzSoapElementImp& element) {
    pushed_.push_back(std::make_unique<Element>(*this, element.getAttributeSet()));
    setOwnStyle(element.getEncodingStyleAttribute());
}

void TzSoapSerializerOutput::pop() noexcept {
    if (!pushed_.empty()) {
        pushed_.pop_back();
    }
}

bool TzSoapSerializerOutput::adjustVersion(TzXmlAttribute& attribute) const {
    TzSoapVersion::SoapAttribute which{};
    if (!isOfOtherVersion(attribute.getName(), which)) {
        return false;
    }
    TzXmlName name = soap().getSoapAttributeQName(which);
    if (!name.isEmpty()) {
        name.setPrefix(soapPrefix(name));
    }
    attribute.setName(std::move(name));
    return true;
}

TzXmlAttribute TzSoapSerializerOutput::verified(const TzXmlAttribute& attribute) {
    TzXmlAttribute copy = attribute;
    if (attribute.getName().getUri().empty() || attribute.isNamespaceDeclaration()) {
        return copy;
    }
    if (isInEnvelope() || isStandalone()) {
        adjustVersion(copy);
    }
    const TzCString prefix = copy.getName().getPrefix();
    copy.getName().setPrefix(boundPrefix(prefix, copy.getName()));
    return copy;
}

void TzSoapSerializerOutput::collectValueOf(const TzSoapTypeImp& value) {
    collectAttributes(value);
    if (const auto* array = dynamic_cast<const TzSoapArrayTypeImp*>(&value)) {
        collectShape(*array);
    } else if (const auto* reference = dynamic_cast<const TzSoapReferenceTypeImp*>(&value)) {
        renameReference(*reference);
    }
}

bool TzSoapSerializerOutput::isStylePresent(std::string_view style) const noexcept {
    const std::string_view inForce = outerStyle();
    return !inForce.empty() && inForce == style;
}

void TzSoapSerializerOutput::writeSubcodesOf(const TzSoapFaultImp& fault, unsigned int first,
                                             unsigned int count) {
    writeSubcodes(faultName(fault), fault, first, count);
}

void TzSoapSerializerOutput::collectBodyProperties(const TzSoapElementImp& body) {
    collectRoot(body);
}

TzCString TzSoapSerializerOutput::uniquePrefix(std::string_view prefix,
                                               std::string_view uri) const {
    TzCString current(prefix);
    for (;;) {
        const TzCString& bound = uriForPrefix(current);
        if (bound.empty() || bound == uri) {
            return current;
        }
        current = nextPrefix(current);
    }
}

void TzSoapSerializerOutput::enterDeclarations(const TzXmlAttributeSet& attributes) {
    for (const TzXmlAttribute& attribute : attributes) {
        if (attribute.isNamespaceDeclaration()) {
            declare(attribute.declaredNamespace());
        }
    }
}

void TzSoapSerializerOutput::collectDeclaration(const TzXmlAttribute&) {}

void TzSoapSerializerOutput::collectStyle(std::string_view style) {
    if (!style.empty() && !isStylePresent(style)) {
        collectSoap(TzSoapVersion::EncodingStyle, style);
    }
    setOwnStyle(style);
}

void TzSoapSerializerOutput::doQualifyStyle() {}

void TzSoapSerializerOutput::writeStyle() {}
