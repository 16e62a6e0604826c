// SPDX-License-Identifier: MIT
#include "output/TzSoapStartTag.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapBooleanText.h"

#include <algorithm>

namespace {

/// The word for a boolean that is stated by a digit; any other text as it is.
std::string_view booleanWord(std::string_view text) noexcept {
    return text == "1" ? "true" : text == "0" ? "false" : text;
}

/// Whether `prefix` belongs to a namespace other than `uri`.
bool isReserved(std::string_view prefix, std::string_view uri) {
    if (!prefix.starts_with("xm")) {
        return false; // at once
    }
    const TzXmlNamespace& xml = TzXmlNamespace::getXml();
    return prefix == TzXmlNamespace::XmlnsPrefix ||
           (prefix == xml.getPrefix() && uri != xml.getUri());
}

/// Whether the innermost declarations of `all` can be written as they stand.
bool areReady(const TzSoapDeclarations& all) {
    const std::string_view xmlns = TzXmlNamespace::getXmlns().getUri();
    for (std::size_t i = all.innermost(); i < all.size(); ++i) {
        const auto [prefix, uri] = all[i];
        if (!(prefix.empty() || TzXmlUtils::isNameToken(prefix)) || isReserved(prefix, uri) ||
            uri == xmlns || !TzXmlWriter::isPlain(uri)) {
            return false;
        }
    }
    return !all.innermostText().empty();
}

[[noreturn]] void refuse(const TzCString& reason) { TzThrow(TzXmlBadArgError(TzMessage(reason))); }

[[noreturn]] void refuseName(std::string_view prefix, std::string_view colon,
                             std::string_view local) {
    refuse(TzCString("\"").append(prefix).append(colon).append(local) + "\" is no name of XML");
}

} // namespace

void TzSoapStartTag::reset() noexcept {
    clear();
    ready_.clear();
    schemaInstanceBoundAt_ = 0;
    encodedAt_ = 0;
}

void TzSoapStartTag::qualifyName(const TzXmlName& name) {
    needsDefault_ = name.getPrefix().empty() && !name.getUri().empty();
    if (scope().needsDeclaration(name)) {
        scope().declare(name.getNamespace());
    }
}

[[gnu::hot]] void TzSoapStartTag::collectBlock(const TzSoapElementImp& element) {
    const bool statesNone = !context_.habits().blocksStateStyle;
    const bool styleStated = element.hasProperties() && element.hasEncodingStyleAttribute();
    collectOwn(element, styleStated || statesNone);
    if (styleStated && !statesNone) {
        collectStyle(element.getEncodingStyleAttribute());
    }
}

void TzSoapStartTag::collectValue(const TzSoapTypeImp& value, const TzXmlName& type,
                                  std::string_view position) {
    const bool properties = value.hasProperties();
    const bool styleStated = properties && value.hasEncodingStyleAttribute();
    collectOwn(value, styleStated);
    collectPosition(position);
    if (styleStated) {
        collectStyle(value.getEncodingStyleAttribute());
    }
    if (properties) {
        collectProperties(value);
    }
    collectType(type);
    if (properties && !value.getActorAttribute().empty() && !isCollected(TzSoapVersion::Actor)) {
        collectSoap(TzSoapVersion::Actor, value.getActorAttribute());
    }
}

void TzSoapStartTag::collectPosition(std::string_view position) {
    if (!position.empty()) {
        collectSoap(TzSoapVersion::Position, position);
    }
}

[[gnu::hot]] void TzSoapStartTag::collectOwn(const TzSoapElementImp& element, bool styleStated) {
    const bool translates = context_.rules().style().translatesAttributes;
    for (const TzXmlAttribute& attribute : element.getAttributeSet()) {
        if (attribute.isNamespaceDeclaration()) {
            collectDeclaration(attribute);
        } else if (translates) {
            collectOwn(attribute, styleStated);
        } else {
            collectPlain(element, attribute);
        }
    }
}

void TzSoapStartTag::collectDeclaration(const TzXmlAttribute& attribute) {
    const std::string_view prefix = attribute.getName().getLocalName();
    const std::string_view uri = attribute.getValue();
    if (!needsDefault_ || !prefix.empty() || !uri.empty()) {
        context_.rules().collectDeclaration(scope(), prefix, uri);
    }
}

void TzSoapStartTag::collectPlain(const TzSoapElementImp& element,
                                  const TzXmlAttribute& attribute) {
    const TzXmlName& name = attribute.getName();
    const bool qualified = !name.getUri().empty();
    if (!context_.habits().refersByFragment && !qualified && collectId(attribute)) {
        return;
    }
    if (qualified && element.isVerbatim() && !saysWhat(element, attribute)) {
        return;
    }
    // An attribute without prefix has no namespace, whatever the default one is.
    const std::string_view prefix = name.getPrefix();
    const bool lacksPrefix = qualified && prefix.empty();
    const bool isNil = !element.isVerbatim() && name == TzSoapAttributeSet::getNullAttributeName();
    const std::string_view value = attribute.getValue();
    attributes_.addOwn({&name, boundPrefix(lacksPrefix ? PrefixBase : prefix, name),
                        isNil ? booleanWord(value) : value});
}

bool TzSoapStartTag::saysWhat(const TzSoapElementImp& element,
                              const TzXmlAttribute& attribute) const {
    const TzXmlName& name = attribute.getName();
    if (name == TzSoapAttributeSet::getTypeAttributeName()) {
        return !element.getTypeValue().isEmpty();
    }
    if (name == soap().getSoapAttributeQName(TzSoapVersion::MustUnderstand)) {
        return !element.getMustUnderstandAttribute().empty() &&
               tzSoapIsTrue(attribute.getValue()) == element.getMustUnderstand();
    }
    return name != soap().getSoapAttributeQName(TzSoapVersion::Actor) ||
           attribute.getValue() == element.getActorAttribute();
}

[[gnu::hot]] void TzSoapStartTag::collectOwn(const TzXmlAttribute& attribute, bool styleStated) {
    const TzXmlName& name = attribute.getName();
    if (name.getUri().empty()) {
        if (context_.habits().refersByFragment || !collectId(attribute)) {
            attributes_.addOwn({&name, name.getPrefix(), attribute.getValue()});
        }
    } else if (name == soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle)) {
        if (!styleStated) {
            collectStyle(attribute.getValue());
        }
    } else if (!collectOfOtherVersion(attribute, styleStated) && !collectEncodedId(attribute)) {
        attributes_.addOwn({&name, boundPrefix(name.getPrefix(), name), attribute.getValue()});
    }
}

bool TzSoapStartTag::isOfOtherVersion(const TzXmlName& name,
                                      TzSoapVersion::SoapAttribute& attribute) const {
    TzSoapVersion::Version found{};
    return TzSoapVersion::isSoapAttribute(name, attribute, found) && found != context_.version();
}

bool TzSoapStartTag::collectOfOtherVersion(const TzXmlAttribute& attribute, bool styleStated) {
    TzSoapVersion::SoapAttribute which{};
    if ((!context_.isInEnvelope() && !context_.isStandalone()) ||
        !isOfOtherVersion(attribute.getName(), which)) {
        return false;
    }
    if (which != TzSoapVersion::EncodingStyle) {
        collectSoap(which, attribute.getValue());
    } else if (!styleStated) {
        collectStyle(attribute.getValue());
    }
    return true;
}

bool TzSoapStartTag::collectId(const TzXmlAttribute& attribute) {
    // An id that no reference names is an attribute of the application.
    const bool isId = TzSoapAttributeSet::matchIdAttributeName(attribute.getName()) &&
                      context_.targets().isReferredTo(attribute.getValue());
    if (isId) {
        collectMade(context_.table().term(TzSoapVersionTable::Id), attribute.getValue());
    }
    return isId;
}

bool TzSoapStartTag::collectEncodedId(const TzXmlAttribute& attribute) {
    const TzXmlName& encoded = TzSoapVersionTable::soap12Rec().term(TzSoapVersionTable::Id);
    const TzXmlName& own = context_.table().term(TzSoapVersionTable::Id);
    const bool isOfOther = attribute.getName() == encoded && !(own == encoded);
    if (isOfOther) {
        collectMade(own, attribute.getValue());
    }
    return isOfOther;
}

void TzSoapStartTag::collectProperties(const TzSoapTypeImp& value) {
    if (context_.rules().style().statesEncoding) {
        collectRoot(value);
    }
    if (value.getMustUnderstand() && !isCollected(TzSoapVersion::MustUnderstand)) {
        collectSoap(TzSoapVersion::MustUnderstand,
                    attributes_.keep(value.getMustUnderstandAttribute(context_.version())));
    }
}

void TzSoapStartTag::collectType(const TzXmlName& type) {
    if (!type.isEmpty()) {
        const std::string_view prefix =
            scope().hasExactNames() ? boundPrefix(type.getPrefix(), type) : type.getPrefix();
        const std::string_view colon = prefix.empty() ? std::string_view() : TzXmlWriter::Colon;
        const std::string_view text = attributes_.keep(prefix, colon, type.getLocalName());
        if (!attributes_.replaceValue(TzSoapAttributeSet::getTypeAttributeName(), text)) {
            collectSchemaInstance(TzSoapAttributeSet::getTypeAttributeName(), text);
        }
    }
}

void TzSoapStartTag::collectShape(const TzSoapArrayTypeImp& array) {
    if (!context_.rules().style().statesEncoding) {
        return;
    }
    // SOAP 1.1 has arrayType, SOAP 1.2 itemType and arraySize; what the version lacks is skipped.
    const TzSoapVersion::Version version = context_.version();
    if (!context_.habits().itemTypeIsOptional || !array.getElementType().empty()) {
        collectSoap(TzSoapVersion::ItemType, array.getElementType());
    }
    collectSoap(TzSoapVersion::ArraySize, attributes_.keep(array.getBoundsAsString(version)));
    collectSoap(TzSoapVersion::ArrayType, attributes_.keep(array.getArrayType()));
    const std::string_view offset = attributes_.keep(array.getOffsetAttribute(version));
    if (!offset.empty()) {
        collectSoap(TzSoapVersion::Offset, offset);
    }
}

void TzSoapStartTag::collectSchemaInstance(const TzXmlName& name, std::string_view value) {
    std::string_view prefix = name.getPrefix();
    if (schemaInstanceBoundAt_ != scope().declarationChanges()) {
        prefix = boundPrefix(prefix, name);
        if (prefix == name.getPrefix()) {
            schemaInstanceBoundAt_ = scope().declarationChanges();
        }
    }
    attributes_.addMade({&name, prefix, value});
}

void TzSoapStartTag::renameReference(const TzSoapReferenceTypeImp& reference) {
    const TzSoapVersion::SoapAttribute attribute =
        reference.isSoapReference() ? TzSoapVersion::Ref : TzSoapVersion::Href;
    const TzXmlName& encoded = TzSoapVersionTable::soap12Rec().attribute(attribute);
    const TzXmlName& latest =
        TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(attribute);
    const TzXmlName& own = soap().getSoapAttributeQName(attribute);
    const bool isEncoded = attributes_.find(encoded) != nullptr;
    const TzSoapTagAttributes::Attribute* const text =
        isEncoded ? attributes_.find(encoded) : attributes_.find(latest);
    if (text == nullptr) {
        return;
    }
    std::string_view value = text->value;
    if (attribute == TzSoapVersion::Ref && !context_.habits().refersByFragment) {
        value.remove_prefix(value.starts_with('#') ? 1 : 0);
    } else if (attribute == TzSoapVersion::Ref && isEncoded && !value.starts_with('#')) {
        value = attributes_.keep('#' + TzCString(value));
    }
    const std::string_view prefix =
        own.getUri().empty() ? own.getPrefix() : boundPrefix(soapPrefix(own), own);
    attributes_.rename(isEncoded ? encoded : latest, {&own, prefix, value});
}

void TzSoapStartTag::collectRoot(const TzSoapElementImp& element) {
    if (element.isRootAttributeSet()) {
        collectSoap(TzSoapVersion::Root, attributes_.keep(element.getRootAttribute()));
    }
}

bool TzSoapStartTag::isCollected(TzSoapVersion::SoapAttribute attribute) const {
    return !context_.rules().style().translatesAttributes &&
           attributes_.contains(soap().getSoapAttributeQName(attribute));
}

void TzSoapStartTag::collectSoap(TzSoapVersion::SoapAttribute attribute, std::string_view value) {
    const TzXmlName& name = soap().getSoapAttributeQName(attribute);
    if (!name.isEmpty()) {
        collectMade(name, value);
    }
}

void TzSoapStartTag::collectMade(const TzXmlName& name, std::string_view value) {
    const std::string_view prefix =
        name.getUri().empty() ? name.getPrefix() : boundPrefix(soapPrefix(name), name);
    attributes_.addMade({&name, prefix, value});
}

void TzSoapStartTag::bindStyle() {
    const TzCString& prefix = scope().envelopePrefix();
    // Deliberate: the prefix stays where it means the envelope of another version, as it does when
    // a program writes a message in a version that is not its own.
    stylePrefix_ =
        meansEnvelope(scope().uriFor(prefix))
            ? prefix
            : boundPrefix(prefix, soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle));
}

bool TzSoapStartTag::meansEnvelope(std::string_view uri) const {
    const auto isEnvelopeOf = [uri](TzSoapVersion::Version version) {
        return uri ==
               TzSoapVersionTable::of(version).nameSpace(TzSoapVersionTable::Envelope).getUri();
    };
    return uri == context_.table().nameSpace(TzSoapVersionTable::Envelope).getUri() ||
           std::any_of(TzSoapVersionTable::Supported.begin(), TzSoapVersionTable::Supported.end(),
                       isEnvelopeOf);
}

std::string_view TzSoapStartTag::soapPrefix(const TzXmlName& name) const {
    if (name.getNamespace().sameUri(soap().getSoapEnv())) {
        return scope().envelopePrefix();
    }
    return name.getNamespace().sameUri(soap().getSoapEnc()) ? scope().encodingPrefix()
                                                            : name.getPrefix();
}

std::string_view TzSoapStartTag::boundPrefix(std::string_view prefix, const TzXmlName& name) {
    const TzCString& uri = name.getUri();
    const std::string_view bound = scope().uriFor(prefix);
    if (bound == uri || uri.empty()) {
        return prefix;
    }
    if (bound.empty()) {
        scope().declare(prefix, uri);
        return prefix;
    }
    const std::string_view unique =
        attributes_.keep(context_.rules().uniquePrefix(scope(), prefix, uri));
    scope().declare(unique, uri);
    return unique;
}

void TzSoapStartTag::ensureStyle() {
    if (encodedAt_ == scope().styleChanges() || scope().isStyleStated()) {
        return;
    }
    if (!context_.rules().style().statesEncoding ||
        context_.table().isSettled(scope().outerStyle())) {
        encodedAt_ = scope().styleChanges();
    } else {
        collectStyle(soap().getSoapEncodingStyle());
    }
}

void TzSoapStartTag::lookFurther() {
    TzSoapScope& around = scope();
    if (!context_.rules().style().statesEncoding ||
        context_.table().isSettled(around.styleInForce())) {
        encodedAt_ = around.styleChanges();
    }
    const TzXmlNamespace& xsi = TzSoapAttributeSet::getTypeAttributeName().getNamespace();
    if (around.uriFor(xsi.getPrefix()) == xsi.getUri()) {
        schemaInstanceBoundAt_ = around.declarationChanges();
    }
}

[[gnu::hot]] bool TzSoapStartTag::hasShortProperties(const TzSoapTypeImp& value) const {
    if (value.hasEncodingStyleAttribute() ||
        (value.isRootAttributeSet() && context_.rules().style().statesEncoding)) {
        return false;
    }
    const TzXmlNamespace& envelope = context_.table().nameSpace(TzSoapVersionTable::Envelope);
    return scope().uriFor(scope().envelopePrefix()) == envelope.getUri();
}

[[gnu::hot]] bool TzSoapStartTag::writeShort(const TzSoapTagName& tag, const TzXmlName& name,
                                             const TzSoapTypeImp& value, const TzXmlName& type) {
    if (!needsNothing(tag, name, value, type) || !(type.isEmpty() || type.isWritable()) ||
        !hasShortProperties(value)) {
        return false;
    }
    const bool understands = value.getMustUnderstand();
    const TzCString mustUnderstand =
        understands ? value.getMustUnderstandAttribute(context_.version()) : TzCString();
    TzXmlWriter& xml = context_.xml();
    xml.writeMarkup(TzXmlWriter::StartTag, tag);
    if (understands) {
        writeSoap(TzSoapVersion::MustUnderstand, mustUnderstand);
    }
    if (!type.isEmpty()) {
        xml.writeMarkup(Brief::TypeOpen, TzSoapTagName::of(type), TzXmlWriter::Quotes);
    }
    if (const TzCString& actor = value.getActorAttribute(); !actor.empty()) {
        writeSoap(TzSoapVersion::Actor, actor);
    }
    return true;
}

[[gnu::hot]] void TzSoapStartTag::writeSoap(TzSoapVersion::SoapAttribute attribute,
                                            std::string_view value) {
    const TzXmlName& name = context_.table().attribute(attribute);
    if (name.isEmpty()) {
        return;
    }
    const std::string_view prefix = scope().envelopePrefix();
    if (prefix == name.getPrefix() && name.isWritable() && TzXmlWriter::isPlain(value)) {
        context_.xml().writeMarkup(" ", std::string_view(name.qualifiedText()),
                                   TzXmlWriter::EqualToAndQuotes, value, TzXmlWriter::Quotes);
    } else {
        checkName(prefix, name);
        writeAttribute(prefix, name.getLocalName(), value);
    }
}

const TzSoapReadyTags::Tags* TzSoapStartTag::makeReady(const TzXmlName& name,
                                                       const TzSoapTypeImp& value,
                                                       const TzXmlName& type, bool typeIsPlain) {
    const TzSoapTagName tag = TzSoapTagName::of(name);
    Brief brief;
    TzSoapReadyTags::Tags tags;
    const auto setStart = [&](const auto&... rest) {
        return tags.start.set(TzXmlWriter::StartTag, tag, rest...);
    };
    const bool isReady = isBrief(tag, name, value, type, typeIsPlain, brief) &&
                         brief.pass(setStart) &&
                         tags.end.set(TzXmlWriter::StartEndTag, tag, TzXmlWriter::EndTag);
    return isReady ? ready_.remember(name, type,
                                     {scope().declarationChanges(), scope().styleChanges()}, tags)
                   : nullptr;
}

void TzSoapStartTag::writeElementName(const TzSoapTagName& name) {
    if (!name.isWritable && (!(name.prefix.empty() || TzXmlUtils::isName(name.prefix)) ||
                             !(name.colon.empty() ? TzXmlUtils::isName(name.local)
                                                  : TzXmlUtils::isNameToken(name.local)))) {
        refuseName(name.prefix, name.colon, name.local);
    }
    context_.xml().writeMarkup(name);
    if (name.isUnnamed) {
        scope().declare(TzSoapTagName::unnamedName().getNamespace());
    }
}

void TzSoapStartTag::write(const TzSoapTagName& name) {
    context_.xml().writeMarkup(TzXmlWriter::StartTag);
    writeElementName(name);
    writeDeclarations();
    if (scope().isStyleStated()) {
        context_.rules().writeStyle(*this);
    }
    writeAttributes();
}

[[gnu::hot]] void TzSoapStartTag::writeBlock(const TzSoapTagName& name) {
    const bool isBare = attributes_.empty() && !scope().hasDeclarations() &&
                        !scope().isStyleStated() && name.isWritable && !name.isUnnamed;
    if (isBare) {
        name.writeStartTag(context_.xml());
        context_.xml().writeNewLine();
    } else {
        write(name);
        context_.xml().writeMarkupLine(TzXmlWriter::EndTag);
    }
    context_.xml().incrementIndent();
}

void TzSoapStartTag::writeDeclarations() {
    if (!scope().hasDeclarations()) {
        return;
    }
    const TzSoapDeclarations& all = scope().declarations();
    if (areReady(all)) {
        return context_.xml().write(all.innermostText());
    }
    for (std::size_t i = all.innermost(); i < all.size(); ++i) {
        const auto [prefix, uri] = all[i];
        if (uri != TzXmlNamespace::getXmlns().getUri()) {
            writeDeclaration(prefix, uri);
        }
    }
}

bool TzSoapStartTag::hasReadyDeclarations() const {
    return scope().hasDeclarations() && areReady(scope().declarations());
}

TzCString TzSoapStartTag::styleAttribute() const {
    if (!scope().isStyleStated()) {
        return {};
    }
    const TzXmlName& name = soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle);
    return TzCString(" ")
        .append(stylePrefix_)
        .append(TzXmlWriter::Colon)
        .append(name.getLocalName())
        .append(TzXmlWriter::EqualToAndQuotes)
        .append(scope().ownStyle())
        .append(TzXmlWriter::Quotes);
}

void TzSoapStartTag::writeDeclaration(std::string_view prefix, std::string_view uri) {
    constexpr std::string_view Xmlns = TzXmlNamespace::XmlnsPrefix;
    if (prefix.empty()) {
        return writeAttribute({}, Xmlns, uri);
    }
    if (!TzXmlUtils::isNameToken(prefix) || isReserved(prefix, uri)) {
        refuse(TzCString("the prefix \"").append(prefix) + "\" cannot be declared for \"" +
               TzCString(uri) + '"');
    }
    writeAttribute(Xmlns, prefix, uri);
}

void TzSoapStartTag::checkName(std::string_view prefix, const TzXmlName& name) {
    const bool isWritable = prefix == name.getPrefix()
                                ? name.isWritable()
                                : TzXmlUtils::isQualifiedName(prefix, name.getLocalName());
    if (!isWritable) {
        refuseName(prefix, prefix.empty() ? std::string_view() : TzXmlWriter::Colon,
                   name.getLocalName());
    }
    if (prefix.empty() && name.getLocalName() == TzXmlNamespace::XmlnsPrefix) {
        refuse("\"xmlns\" names a declaration, not an attribute");
    }
}

void TzSoapStartTag::writeAttributes() {
    for (const TzSoapTagAttributes::Attribute& each : attributes_) {
        checkName(each.prefix, *each.name);
        writeAttribute(each.prefix, each.name->getLocalName(), each.value);
    }
}
