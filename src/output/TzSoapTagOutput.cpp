// SPDX-License-Identifier: MIT
#include "output/TzSoapTagOutput.h"
#include "model/TzSoapLasting.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include <utility>

namespace {

/// The attribute that states a type, around its value.
constexpr std::string_view BriefTypeOpen = " xsi:type=\"";
constexpr std::string_view BriefTypeClose = "\">";

} // namespace

TzSoapTagOutput::Element::Element(TzSoapTagOutput& output)
    : output_(output), indentation_(output.text().getIndentation()),
      scopes_(output.state().namespaces.depth()), styles_(output.state().styles.size()),
      outerScopes_(output.outerScopes_), outerStyles_(output.outerStyles_) {
    output.open();
}

TzSoapTagOutput::Element::Element(TzSoapTagOutput& output, const TzXmlAttributeSet& attributes)
    : Element(output) {
    if (!attributes.empty()) {
        output.enterDeclarations(attributes);
    }
}

TzSoapTagOutput::Element::~Element() {
    output_.close(scopes_, styles_);
    output_.outerScopes_ = outerScopes_;
    output_.outerStyles_ = outerStyles_;
    output_.text().setIndentation(indentation_);
}

TzSoapTagOutput::TzSoapTagOutput(TzXmlWriter* text)
    : text_(text), soap_(&TzSoapVersion::getLatestSoapVersion()),
      state_(std::make_shared<TzSoapOutputState>()) {
    state_->soap = soap_;
}

TzSoapTagOutput::~TzSoapTagOutput() = default;

void TzSoapTagOutput::setVersion(TzSoapVersion::Version version) {
    soap_ = &TzSoapVersion::getSoapVersion(version);
    encodedAt_ = NeverEncoded;
    if (top_) {
        state_->soap = soap_;
    }
}

void TzSoapTagOutput::separate() {
    if (top_) {
        state_ = std::make_shared<TzSoapOutputState>(*state_);
    }
}

void TzSoapTagOutput::refuseDepth() {
    TzThrow(TzXmlDomainError(TzMessage("Elements nested deeper than " +
                                       TzXmlSchemaUtils::ConvertTypeToString(DepthLimit) +
                                       " levels are not written")));
}

void TzSoapTagOutput::open() {
    TzSoapOutputState& state = *state_;
    checkDepth(1);
    state.attributes.clear();
    outerScopes_ = state.namespaces.depth();
    outerStyles_ = state.styles.size();
    ++state.depth;
}

void TzSoapTagOutput::close(std::size_t scopes, std::size_t styles) noexcept {
    TzSoapOutputState& state = *state_;
    --state.depth;
    state.styles.shrink(styles);
    if (state.namespaces.depth() != scopes) {
        state.namespaces.popScope();
        ++state.scopeChanges;
    }
}

void TzSoapTagOutput::takePrefixes(const TzCString& envelope, const TzCString& encoding) {
    if (top_) {
        state_->envelopePrefix = envelope;
        state_->encodingPrefix = encoding;
    }
}

const TzCString& TzSoapTagOutput::envelopePrefix() const {
    return state_->envelopePrefix.empty() ? state_->soap->getSoapEnv().getPrefix()
                                          : state_->envelopePrefix;
}

const TzCString& TzSoapTagOutput::encodingPrefix() const {
    return state_->encodingPrefix.empty() ? state_->soap->getSoapEnc().getPrefix()
                                          : state_->encodingPrefix;
}

const TzXmlName& TzSoapTagOutput::unnamedName() {
    static TzSoapLasting<const TzXmlName> unnamed(
        [] { return TzXmlName("unnamed", TzXmlNamespace("tznone", "urn:tz-soap:unnamed")); });
    return *unnamed;
}

TzSoapTagOutput::TagName TzSoapTagOutput::unnamed() noexcept {
    const TzXmlName& name = unnamedName();
    return {name.getPrefix(), TzXmlWriter::Colon, name.getLocalName(), true};
}

void TzSoapTagOutput::declare(const TzXmlNamespace& declared) {
    if (declared.getUri().empty() && !declared.getPrefix().empty()) {
        return;
    }
    TzSoapOutputState& state = *state_;
    if (state.namespaces.depth() == outerScopes_) {
        state.namespaces.pushScope(); // most elements declare nothing and need no scope
    }
    state.namespaces.add(declared);
    ++state.scopeChanges;
}

void TzSoapTagOutput::declareUnbound(std::string_view prefix, const TzCString& uri) {
    if (uriForPrefix(prefix).empty()) {
        declare(TzXmlNamespace(prefix, uri));
    }
}

bool TzSoapTagOutput::needsDeclaration(const TzXmlName& name) const noexcept {
    const TzXmlNamespace& needed = name.getNamespace();
    if (needed.getUri().empty() || needed.getPrefix() == TzXmlNamespace::getXmlns().getPrefix()) {
        return false;
    }
    // A prefix that is bound stays as it is, whatever its URI; only the default namespace changes.
    const TzCString& bound = uriForPrefix(needed.getPrefix());
    return needed.getPrefix().empty() ? bound != needed.getUri() : bound.empty();
}

void TzSoapTagOutput::qualifyName(const TzXmlName& name) {
    if (needsDeclaration(name)) {
        declare(name.getNamespace());
    }
}

void TzSoapTagOutput::collectAttributes(const TzSoapElementImp& element) {
    const bool styleStated = element.hasProperties() && element.hasEncodingStyleAttribute();
    collectOwn(element, styleStated);
    if (styleStated) {
        collectStyleOf(element);
    }
}

void TzSoapTagOutput::collectAttributes(const TzSoapTypeImp& value) {
    const bool properties = value.hasProperties();
    const bool styleStated = properties && value.hasEncodingStyleAttribute();
    collectOwn(value, styleStated);
    collectPosition();
    if (styleStated) {
        collectStyleOf(value);
    }
    if (properties) {
        collectProperties(value);
    }
    collectType(value.getTypeValue());
    if (properties && !value.getActorAttribute().empty()) {
        collectSoap(TzSoapVersion::Actor, value.getActorAttribute());
    }
}

void TzSoapTagOutput::collectBodyProperties(const TzSoapElementImp&) {}

void TzSoapTagOutput::collectPosition() {
    if (!position_.empty()) {
        collectSoap(TzSoapVersion::Position, state_->attributes.keep(std::exchange(position_, {})));
    }
}

void TzSoapTagOutput::collectStyleOf(const TzSoapElementImp& element) {
    collectStyle(state_->attributes.keep(element.getEncodingStyleAttribute()));
}

void TzSoapTagOutput::collectOwn(const TzSoapElementImp& element, bool styleStated) {
    for (const TzXmlAttribute& attribute : element.getAttributeSet()) {
        collectOwn(attribute, styleStated);
    }
}

void TzSoapTagOutput::collectOwn(const TzXmlAttribute& attribute, bool styleStated) {
    const TzXmlName& name = attribute.getName();
    if (attribute.isNamespaceDeclaration()) {
        collectDeclaration(attribute);
    } else if (name.getUri().empty()) {
        state_->attributes.addOwn({&name, name.getPrefix(), attribute.getValue()});
    } else if (name == soap_->getSoapAttributeQName(TzSoapVersion::EncodingStyle)) {
        if (!styleStated) {
            collectStyle(attribute.getValue());
        }
    } else if (!collectOfOtherVersion(attribute, styleStated)) {
        state_->attributes.addOwn(
            {&name, boundPrefix(name.getPrefix(), name), attribute.getValue()});
    }
}

bool TzSoapTagOutput::isOfOtherVersion(const TzXmlName& name,
                                       TzSoapVersion::SoapAttribute& attribute) const {
    TzSoapVersion::Version found{};
    return TzSoapVersion::isSoapAttribute(name, attribute, found) && found != version();
}

bool TzSoapTagOutput::collectOfOtherVersion(const TzXmlAttribute& attribute, bool styleStated) {
    TzSoapVersion::SoapAttribute which{};
    if ((!inEnvelope_ && !standalone_) || !isOfOtherVersion(attribute.getName(), which)) {
        return false;
    }
    if (which != TzSoapVersion::EncodingStyle) {
        collectSoap(which, attribute.getValue());
    } else if (!styleStated) {
        collectStyle(attribute.getValue());
    }
    return true;
}

void TzSoapTagOutput::collectProperties(const TzSoapTypeImp& value) {
    collectRoot(value);
    if (value.getMustUnderstand()) {
        collectSoap(TzSoapVersion::MustUnderstand,
                    state_->attributes.keep(value.getMustUnderstandAttribute(version())));
    }
}

void TzSoapTagOutput::collectType(const TzXmlName& type) {
    if (!type.isEmpty()) {
        TzCString& text = state_->attributes.newText();
        type.appendQualifiedName(text);
        collectSchemaInstance(TzSoapAttributeSet::getTypeAttributeName(), text);
    }
}

void TzSoapTagOutput::collectShape(const TzSoapArrayTypeImp& array) {
    // A version has either the one or the other two of these; what it has not is left out.
    TzSoapTagAttributes& attributes = state_->attributes;
    collectSoap(TzSoapVersion::ItemType, array.getElementType());
    collectSoap(TzSoapVersion::ArraySize, attributes.keep(array.getBoundsAsString(version())));
    collectSoap(TzSoapVersion::ArrayType, attributes.keep(array.getArrayType()));
    const std::string_view offset = attributes.keep(array.getOffsetAttribute(version()));
    if (!offset.empty()) {
        collectSoap(TzSoapVersion::Offset, offset);
    }
}

void TzSoapTagOutput::collectSchemaInstance(const TzXmlName& name, std::string_view value) {
    TzSoapOutputState& state = *state_;
    std::string_view prefix = name.getPrefix();
    if (state.schemaInstanceBoundAt != state.scopeChanges) {
        prefix = boundPrefix(prefix, name);
        if (prefix == name.getPrefix()) {
            state.schemaInstanceBoundAt = state.scopeChanges;
        }
    }
    state.attributes.addMade({&name, prefix, value});
}

void TzSoapTagOutput::renameReference(const TzSoapReferenceTypeImp& reference) {
    const TzSoapVersion::SoapAttribute attribute =
        reference.isSoapReference() ? TzSoapVersion::Ref : TzSoapVersion::Href;
    const TzXmlName& latest =
        TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(attribute);
    state_->attributes.rename(latest, soap_->getSoapAttributeQName(attribute));
}

void TzSoapTagOutput::collectRoot(const TzSoapElementImp& element) {
    if (element.isRootAttributeSet()) {
        collectSoap(TzSoapVersion::Root, state_->attributes.keep(element.getRootAttribute()));
    }
}

void TzSoapTagOutput::collectSoap(TzSoapVersion::SoapAttribute attribute, std::string_view value) {
    const TzXmlName& name = soap_->getSoapAttributeQName(attribute);
    if (!name.isEmpty()) {
        state_->attributes.addMade({&name, boundPrefix(soapPrefix(name), name), value});
    }
}

std::string_view TzSoapTagOutput::soapPrefix(const TzXmlName& name) const {
    if (name.getNamespace().sameUri(soap_->getSoapEnv())) {
        return envelopePrefix();
    }
    return name.getNamespace().sameUri(soap_->getSoapEnc()) ? encodingPrefix() : name.getPrefix();
}

std::string_view TzSoapTagOutput::boundPrefix(std::string_view prefix, const TzXmlName& name) {
    const TzCString& uri = name.getUri();
    const TzCString& bound = uriForPrefix(prefix);
    if (bound == uri || uri.empty()) {
        return prefix;
    }
    if (bound.empty()) {
        declare(prefix == name.getPrefix() ? name.getNamespace() : TzXmlNamespace(prefix, uri));
        return prefix;
    }
    const std::string_view unique = state_->attributes.keep(uniquePrefix(prefix, uri));
    declare(TzXmlNamespace(unique, uri));
    return unique;
}

void TzSoapTagOutput::setOwnStyle(std::string_view style) {
    state_->styles.shrink(outerStyles_);
    if (!style.empty()) {
        state_->styles.push(style);
    }
}

void TzSoapTagOutput::ensureStyle() {
    if (encodedAt_ == state_->styles.changes() || isStyleStated()) {
        return;
    }
    const TzCString& style = soap_->getSoapEncodingStyle();
    if (outerStyle() == style) {
        encodedAt_ = state_->styles.changes();
    } else {
        collectStyle(style);
    }
}

bool TzSoapTagOutput::isBrief(const TagName& tag, const TzXmlName& name, const TzSoapTypeImp& value,
                              bool typeIsPlain, BriefStart& brief) const {
    const TzSoapOutputState& state = *state_;
    if (!value.getAttributeSet().empty() || value.hasProperties() || !position_.empty() ||
        encodedAt_ != state.styles.changes() || tag.unnamed || needsDeclaration(name)) {
        return false;
    }
    const TzXmlName& type = value.getTypeValue();
    if (type.isEmpty()) {
        return true;
    }
    const TagName text = tagName(type);
    if (state.schemaInstanceBoundAt != state.scopeChanges ||
        !(typeIsPlain || (TzXmlWriter::isPlain(text.prefix) && TzXmlWriter::isPlain(text.local)))) {
        return false;
    }
    brief = {BriefTypeOpen, text.prefix, text.colon, text.local, BriefTypeClose};
    return true;
}

void TzSoapTagOutput::writeElementName(const TagName& name) {
    writeName(name);
    if (name.unnamed) {
        declare(unnamedName().getNamespace());
    }
}

void TzSoapTagOutput::writeStartTag(const TagName& name) {
    text_->writeMarkup(TzXmlWriter::StartTag);
    writeElementName(name);
    writeDeclarations();
    if (isStyleStated()) {
        writeStyle();
    }
    writeAttributes();
}

void TzSoapTagOutput::writeEndTag(const TagName& name) {
    text_->writeMarkupLine(TzXmlWriter::StartEndTag, name.prefix, name.colon, name.local,
                           TzXmlWriter::EndTag);
}

void TzSoapTagOutput::writeDeclarations() {
    if (state_->namespaces.depth() == outerScopes_) {
        return;
    }
    const TzXmlNamespace& xmlns = TzXmlNamespace::getXmlns();
    for (const TzXmlNamespace& each : state_->namespaces) {
        if (each.sameUri(xmlns)) {
            continue;
        }
        if (each.getPrefix().empty()) {
            text_->writeAttribute(xmlns.getPrefix(), each.getUri());
        } else {
            text_->writeQualifiedAttribute(xmlns.getPrefix(), each.getPrefix(), each.getUri());
        }
    }
}

void TzSoapTagOutput::writeAttributes() {
    for (const TzSoapTagAttributes::Attribute& each : state_->attributes) {
        text_->writeQualifiedAttribute(each.prefix, each.name->getLocalName(), each.value);
    }
}
