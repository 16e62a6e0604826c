// SPDX-License-Identifier: MIT
#include "conversion/TzSoapElementConversion.h"

#include <utility>

namespace {

/// A reference text that the version with one attribute for both kinds of reference understands.
TzCString withMark(const TzCString& text) { return text.starts_with('#') ? text : '#' + text; }

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
    if (const auto converted = terms_.nameSpace(name.getNamespace())) {
        draft.edit().getName().setNamespace(*converted);
    } else if (terms_.isLost(name.getNamespace())) {
        losses_.add("element " + TzSoapLosses::shown(name.asString()) + " of " + name.getUri(),
                    TzSoapLosses::KeptAsItIs);
    }
    const TzXmlName& type = draft.state().getTypeValue();
    if (const auto converted = terms_.nameSpace(type.getNamespace())) {
        draft.edit().setTypeAttribute(TzXmlName(type.getLocalName(), *converted));
    }
}

void TzSoapElementConversion::convertProperties(TzSoapDraft& draft) {
    element_ = &draft.state();
    if (element_->hasEncodingStyleAttribute()) {
        draft.edit().shareEncodingStyle(style(element_->sharedEncodingStyle()));
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
        if (attribute.isNamespaceDeclaration()) {
            const auto declared = terms_.nameSpace(attribute.declaredNamespace());
            converted_.add(name, declared ? declared->getUri() : attribute.getValue());
        } else if (name.getUri().empty()) {
            convertPlain(attribute, reference);
        } else if (const auto home = terms_.nameSpace(name.getNamespace())) {
            convertOwn(attribute, *home);
        } else {
            convertForeign(attribute);
        }
    }
    if (!text_.empty()) {
        converted_.add(terms_.target().getSoapAttributeQName(TzSoapVersion::Ref), std::move(text_));
    }
    draft.edit().getAttributeSet() = std::move(converted_);
}

void TzSoapElementConversion::convertPlain(const TzXmlAttribute& attribute, Reference reference) {
    const TzXmlName& name = attribute.getName();
    const bool isOwn = isOwnText(name, reference);
    if (isOwn && reference == Reference::Waiting) {
        text_ = withMark(attribute.getValue());
    } else if (!isOwn && wouldRefer(name, reference)) {
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
        return name == TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(
                           TzSoapVersion::Ref); // whatever the version
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

TzXmlName TzSoapElementConversion::freeName(const TzXmlName& name) const {
    for (unsigned int number = 1;; ++number) {
        TzXmlName candidate(name.getLocalName() + std::to_string(number));
        const TzSoapAttributeSet& taken = element_->getAttributeSet();
        if (taken.find(candidate) == taken.end()) {
            return candidate;
        }
    }
}

void TzSoapElementConversion::convertOwn(const TzXmlAttribute& attribute,
                                         const TzXmlNamespace& home) {
    const TzXmlName& name = attribute.getName();
    const TzXmlName moved(name.getLocalName(), home);
    TzSoapVersion::SoapAttribute kind{};
    TzSoapVersion::Version version{};
    if (!TzSoapVersion::isSoapAttribute(name, kind, version)) {
        converted_.add(moved, attribute.getValue());
        return;
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
    } else if (counterpart.isEmpty()) {
        loseAttribute(name, TzSoapLosses::LeftOut);
    } else {
        converted_.add(TzXmlName(counterpart.getLocalName(), home),
                       valueOf(kind, attribute.getValue()));
    }
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
