// SPDX-License-Identifier: MIT
#include "conversion/TzSoapElementConversion.h"

#include "output/TzSoapInlineTargets.h"

#include <soap/TzSoapMessage.h>

#include <utility>

namespace {

/// A reference text that the version with one attribute for both kinds of reference understands.
TzCString withMark(const TzCString& text) { return text.starts_with('#') ? text : '#' + text; }

/// What a reference to a value keeps its text under in the model, whatever the version.
const TzXmlName& usualReference() {
    return TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(TzSoapVersion::Ref);
}

/// The URI that an element declares for `prefix`, null where it does not.
template <typename Element>
const TzCString* declared(const Element& element, const TzCString& prefix) {
    const auto* const found = element.findNamespaceAttribute(prefix);
    return found == element.attributesEnd() ? nullptr : &found->getValue();
}

} // namespace

void TzSoapElementConversion::convert(TzSoapDraft& draft, Reference reference) {
    convertNames(draft);
    if (!draft.state().getAttributeSet().empty()) {
        convertAttributes(draft, reference);
    }
    if (draft.state().hasProperties()) {
        convertProperties(draft);
    }
}

void TzSoapElementConversion::convertNames(TzSoapDraft& draft) {
    const TzXmlName& name = draft.state().getName();
    if (terms_.isSpeltReport(name)) {
        draft.edit().setName(TzSoapVersion::getLatestSoapVersion().getSoapElementQName(
            TzSoapVersion::Misunderstood));
    } else if (isOfUpgrade(name)) {
        keepUpgrade(draft);
    } else if (const auto converted = terms_.anyNameSpace(name.getNamespace())) {
        draft.edit().getName().setNamespace(*converted);
    } else if (terms_.isLost(name.getNamespace()) && !terms_.isReport(name)) {
        losses_.add("element " + TzSoapLosses::shown(name.asString()) + " of " + name.getUri(),
                    TzSoapLosses::KeptAsItIs);
    }
    const TzXmlName& type = draft.state().getTypeValue();
    if (const auto converted = terms_.nameSpace(type.getNamespace())) {
        draft.edit().setTypeAttribute(TzXmlName(type.getLocalName(), *converted));
    }
}

bool TzSoapElementConversion::isOfUpgrade(const TzXmlName& name) const {
    using Table = TzSoapVersionTable;
    const TzXmlName& upgrade = terms_.sourceTerm(Table::UpgradeEntry);
    return !upgrade.isEmpty() && terms_.targetTerm(Table::UpgradeEntry).isEmpty() &&
           (name == upgrade || name == terms_.sourceTerm(Table::SupportedEnvelope));
}

// It lists envelopes of whatever version, so it stays as it is, under a prefix that no writer takes
// for that of the message's own envelope.
void TzSoapElementConversion::keepUpgrade(TzSoapDraft& draft) {
    const TzXmlName name = draft.state().getName();
    if (name == terms_.sourceTerm(TzSoapVersionTable::UpgradeEntry)) {
        losses_.add("element " + TzSoapLosses::shown(name.asString()) + " of " + name.getUri(),
                    TzSoapLosses::KeptAsItIs);
        upgrade_ = &draft.original();
    } else {
        bindListedName(draft);
    }
    draft.edit().setName(
        TzXmlName(name.getLocalName(), TzXmlNamespace(freePrefix(upgradePrefix_, "upgrade"),
                                                      name.getNamespace().getUri())));
}

void TzSoapElementConversion::bindListedName(TzSoapDraft& draft) {
    const TzXmlName attribute("qname");
    const auto* const text = draft.state().findAttribute(attribute);
    if (text == draft.state().attributesEnd()) {
        return;
    }
    const TzXmlName listed(text->getValue());
    if (const TzCString* const uri = uriForListed(draft.original(), listed.getPrefix())) {
        const TzXmlNamespace bound(freePrefix(listedPrefix_, "ns"), *uri);
        TzSoapAttributeSet& attributes = draft.edit().getAttributeSet();
        attributes.addDeclaration(bound);
        attributes.add(attribute, TzXmlName(listed.getLocalName(), bound).asString());
    }
}

const TzCString* TzSoapElementConversion::uriForListed(const TzSoapElementImp& element,
                                                       const TzCString& prefix) const {
    const TzCString* uri = declared(element, prefix);
    if (uri == nullptr && upgrade_ != nullptr) {
        uri = declared(*upgrade_, prefix);
    }
    if (uri == nullptr) {
        uri = declared(message_->getSoapHeader(), prefix);
    }
    return uri != nullptr ? uri : declared(*message_, prefix);
}

const TzCString& TzSoapElementConversion::freePrefix(TzCString& known,
                                                     std::string_view base) const {
    const auto isTaken = [this](const TzCString& prefix) {
        return declared(message_->getSoapHeader(), prefix) != nullptr ||
               declared(*message_, prefix) != nullptr;
    };
    if (known.empty()) {
        TzCString prefix(base);
        for (unsigned int number = 1; isTaken(prefix); ++number) {
            prefix = TzCString(base) + std::to_string(number);
        }
        known = std::move(prefix);
    }
    return known;
}

void TzSoapElementConversion::convertProperties(TzSoapDraft& draft) {
    element_ = &draft.state();
    if (element_->hasEncodingStyleAttribute()) {
        draft.edit().shareEncodingStyle(style(element_->sharedEncodingStyle()));
    }
    if (element_->isRootAttributeSet() && !terms_.hasAttribute(TzSoapVersion::Root)) {
        loseAttribute(terms_.source().getSoapAttributeQName(TzSoapVersion::Root),
                      TzSoapLosses::LeftOut);
        draft.edit().removeRootAttribute();
    }
    if (!element_->getActorAttribute().empty()) {
        // The attribute that was read reports the loss.
        const TzCString& actor = element_->getActorAttribute();
        draft.edit().setActor(element_->isVerbatim() ? terms_.role(actor).uri : role(actor));
    }
}

void TzSoapElementConversion::convertAttributes(TzSoapDraft& draft, Reference reference) {
    converted_ = TzSoapAttributeSet();
    text_.clear();
    element_ = &draft.edit();
    for (const TzXmlAttribute& attribute : element_->getAttributeSet()) {
        const TzXmlName& name = attribute.getName();
        if (attribute.isNamespaceDeclaration() && isOfUpgrade(element_->getName())) {
            converted_.add(attribute);
        } else if (attribute.isNamespaceDeclaration()) {
            const auto declared = terms_.anyNameSpace(attribute.declaredNamespace());
            converted_.add(name, declared ? declared->getUri() : attribute.getValue());
        } else if (name.getUri().empty()) {
            convertPlain(attribute, reference);
        } else if (const auto home = terms_.nameSpace(name.getNamespace())) {
            convertOwn(attribute, *home, reference);
        } else {
            convertForeign(attribute);
        }
    }
    if (!text_.empty()) {
        const TzXmlName& own = terms_.target().getSoapAttributeQName(TzSoapVersion::Ref);
        // An unqualified name needs no prefix; the writer spells it as the version does.
        converted_.add(own.getUri().empty() ? own : usualReference(), std::move(text_));
    }
    draft.edit().getAttributeSet() = std::move(converted_);
}

void TzSoapElementConversion::convertPlain(const TzXmlAttribute& attribute, Reference reference) {
    const TzXmlName& name = attribute.getName();
    const bool isOwn = isOwnText(name, reference);
    if (isOwn && reference == Reference::Waiting) {
        text_ = withMark(attribute.getValue());
    } else if (!isOwn && (wouldRefer(name, reference) || wouldName(attribute, reference))) {
        const TzXmlName free = freeName(name);
        loseAttribute(name, "became " + free.getLocalName());
        converted_.add(free, attribute.getValue());
    } else {
        converted_.add(attribute);
    }
}

bool TzSoapElementConversion::isOwnText(const TzXmlName& name, Reference reference) const {
    switch (reference) {
    case Reference::Waiting:
        return name == terms_.source().getSoapAttributeQName(TzSoapVersion::Ref);
    case Reference::Settled:
        return name == usualReference();
    case Reference::Mime:
        return name == terms_.source().getSoapAttributeQName(TzSoapVersion::Href);
    default:
        return false;
    }
}

bool TzSoapElementConversion::wouldRefer(const TzXmlName& name, Reference reference) const {
    const TzSoapVersion& target = terms_.target();
    if (reference == Reference::Block) {
        return false;
    }
    if (reference == Reference::Waiting &&
        name == target.getSoapAttributeQName(TzSoapVersion::Ref)) {
        return true; // the reference text takes its place
    }
    return (name == target.getSoapAttributeQName(TzSoapVersion::Ref) ||
            name == target.getSoapAttributeQName(TzSoapVersion::Href)) &&
           !(name == terms_.source().getSoapAttributeQName(TzSoapVersion::Ref) ||
             name == terms_.source().getSoapAttributeQName(TzSoapVersion::Href));
}

bool TzSoapElementConversion::wouldName(const TzXmlAttribute& attribute,
                                        Reference reference) const {
    const TzXmlName& id = terms_.targetTerm(TzSoapVersionTable::Id);
    return reference != Reference::Block && attribute.getName() == id &&
           !(id == terms_.sourceTerm(TzSoapVersionTable::Id)) &&
           !targets_->isReferredTo(attribute.getValue());
}

TzXmlName TzSoapElementConversion::freeName(const TzXmlName& name) const {
    for (unsigned int number = 1;; ++number) {
        TzXmlName candidate(name.getLocalName() + std::to_string(number));
        const TzSoapAttributeSet& taken = element_->getAttributeSet();
        if (taken.find(candidate) == taken.end()) {
            return candidate;
        }
    }
}

bool TzSoapElementConversion::convertTerm(const TzXmlAttribute& attribute, const TzXmlName& moved) {
    using Table = TzSoapVersionTable;
    for (const Table::Term term : {Table::Id, Table::NodeType, Table::Relay}) {
        const TzXmlName& own = terms_.sourceTerm(term);
        const TzXmlName& counterpart = terms_.targetTerm(term);
        const bool isOwn = !own.isEmpty() && attribute.getName() == own;
        if (isOwn && !counterpart.isEmpty()) {
            converted_.add(counterpart.getUri().empty() ? counterpart : moved,
                           attribute.getValue());
        } else if (isOwn || moved == counterpart) {
            loseAttribute(attribute.getName(), TzSoapLosses::LeftOut);
        }
        if (isOwn || moved == counterpart) {
            return true;
        }
    }
    return false;
}

void TzSoapElementConversion::convertReference(const TzXmlAttribute& attribute,
                                               Reference reference) {
    switch (reference) {
    case Reference::Waiting:
        text_ = withMark(attribute.getValue());
        return;
    case Reference::Settled:
        converted_.add(usualReference(), withMark(attribute.getValue()));
        return;
    default:
        loseAttribute(attribute.getName(), TzSoapLosses::LeftOut);
    }
}

void TzSoapElementConversion::convertOwn(const TzXmlAttribute& attribute,
                                         const TzXmlNamespace& home, Reference reference) {
    const TzXmlName& name = attribute.getName();
    const TzXmlName moved(name.getLocalName(), home);
    if (convertTerm(attribute, moved)) {
        return;
    }
    const auto called = TzSoapVersionTerms::attributeCalled(name.getLocalName());
    if (!called) {
        converted_.add(moved, attribute.getValue());
        return;
    }
    const TzSoapVersion::SoapAttribute kind = *called;
    if (kind == TzSoapVersion::Ref && terms_.isSourceName(name, kind)) {
        return convertReference(attribute, reference);
    }
    const TzXmlName& counterpart = terms_.target().getSoapAttributeQName(kind);
    if (!terms_.isSourceName(name, kind)) {
        // It has no meaning, so it must not get one.
        if (moved == counterpart) {
            return loseAttribute(name, TzSoapLosses::LeftOut);
        }
        if (counterpart.getUri().empty() && !counterpart.isEmpty()) {
            loseAttribute(name, TzSoapLosses::KeptAsItIs);
        }
        converted_.add(moved, attribute.getValue());
    } else if (counterpart.isEmpty() || isStyleOfBlock(kind)) {
        loseAttribute(name, TzSoapLosses::LeftOut);
    } else {
        converted_.add(TzXmlName(counterpart.getLocalName(), home),
                       valueOf(kind, attribute.getValue()));
    }
}

// Only an element that was read literally has it among its attributes.
bool TzSoapElementConversion::isStyleOfBlock(TzSoapVersion::SoapAttribute attribute) const {
    return attribute == TzSoapVersion::EncodingStyle && element_->isVerbatim() &&
           !terms_.habits().blocksStateStyle && terms_.isTargetBlock(element_->getName());
}

void TzSoapElementConversion::convertForeign(const TzXmlAttribute& attribute) {
    // Had no meaning so far. Deliberate: the offset of an element is always named as in SOAP 1.2.
    const TzXmlName& name = attribute.getName();
    const TzXmlName& offset =
        TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(TzSoapVersion::Offset);
    if (terms_.isTargetName(name) && !(name == offset)) {
        loseAttribute(name, TzSoapLosses::LeftOut);
    } else {
        converted_.add(attribute);
    }
}

const TzSoapElementConversion::Style& TzSoapElementConversion::style(const Style& text) {
    const auto [known, isNew] = styles_.try_emplace(&*text, text, Style());
    if (isNew) {
        known->second.second = Style(terms_.encodingStyle(*text));
    }
    return known->second.second;
}

TzCString TzSoapElementConversion::valueOf(TzSoapVersion::SoapAttribute attribute,
                                           const TzCString& value) {
    switch (attribute) {
    case TzSoapVersion::EncodingStyle:
        return terms_.encodingStyle(value);
    case TzSoapVersion::Actor:
        return role(value);
    case TzSoapVersion::MustUnderstand:
        return terms_.flag(value);
    case TzSoapVersion::Position:
    case TzSoapVersion::Offset:
        return terms_.index(value);
    default:
        return value;
    }
}

TzCString TzSoapElementConversion::role(const TzCString& uri) {
    const TzSoapVersionTerms::Role converted = terms_.role(uri);
    if (!converted.known) {
        losses_.add("role " + TzSoapLosses::shown(uri) + " of " +
                        TzSoapLosses::shown(element_->getName().asString()),
                    TzSoapLosses::KeptAsItIs);
    }
    return converted.uri;
}

void TzSoapElementConversion::loseAttribute(const TzXmlName& name, std::string_view how) {
    losses_.add("attribute " + TzSoapLosses::shown(name.asString()) + " of " +
                    TzSoapLosses::shown(element_->getName().asString()),
                how);
}
