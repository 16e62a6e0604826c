// SPDX-License-Identifier: MIT
#include "reading/TzSoapTypeNames.h"

#include <soap/TzSoapAttributeSet.h>
#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlSAXParser.h>

#include <algorithm>
#include <utility>

namespace {

/// What `declaration` declares: the record of the parser's names where it is the same.
TzXmlNamespace namespaceOf(const TzXmlAttribute& declaration, const TzXmlSAXParser* parser) {
    const TzCString& prefix = declaration.getName().getLocalName();
    const TzXmlNamespace* parsed = parser == nullptr ? nullptr : parser->findNamespace(prefix);
    const bool same = parsed != nullptr && parsed->getUri() == declaration.getValue();
    return same ? *parsed : declaration.declaredNamespace();
}

} // namespace

TzSoapTypeNames::TzSoapTypeNames() : typeAttribute_(TzSoapAttributeSet::getTypeAttributeName()) {}

void TzSoapTypeNames::close() noexcept {
    elements_.pop_back();
    indexed_ = std::min(indexed_, elements_.size());
}

void TzSoapTypeNames::reindex(const TzXmlSAXParser* parser) {
    while (index_.depth() > indexed_) {
        leave();
    }
    for (; indexed_ < elements_.size(); ++indexed_) {
        enter(*elements_[indexed_], parser);
    }
}

void TzSoapTypeNames::enter(const TzXmlElementImp& element, const TzXmlSAXParser* parser) {
    index_.pushScope();
    if (element.isBare()) {
        return;
    }
    for (const TzXmlAttribute& attribute : element.getAttributes()) {
        if (attribute.getName().getNamespace().sameUri(TzXmlNamespace::getXmlns())) {
            index_.add(namespaceOf(attribute, parser));
        }
    }
    if (index_.begin() != index_.end()) {
        ++scope_;
    }
}

void TzSoapTypeNames::leave() noexcept {
    if (index_.begin() != index_.end()) {
        ++scope_;
    }
    index_.popScope();
}

const TzCString& TzSoapTypeNames::walkFor(std::string_view prefix) const noexcept {
    for (auto element = elements_.rbegin(); element != elements_.rend(); ++element) {
        if ((*element)->isBare()) {
            continue;
        }
        const TzXmlAttributeSet& attributes = std::as_const(**element).getAttributes();
        if (const auto* found = attributes.findDeclaration(prefix); found != attributes.end()) {
            return found->getValue();
        }
    }
    return TzXmlNamespace::getEmptyNamespace().getUri();
}

const TzCString& TzSoapTypeNames::uriFor(std::string_view prefix, const TzXmlSAXParser* parser) {
    if (exposed_) {
        return walkFor(prefix);
    }
    update(parser);
    return index_.getURIForPrefix(prefix);
}

[[gnu::hot]] const TzXmlName& TzSoapTypeNames::resolve(std::string_view text,
                                                       const TzXmlSAXParser* parser) {
    if (!exposed_) {
        update(parser);
        for (const RecentName& recent : recent_) {
            if (recent.scope == scope_ && recent.text == text) {
                return recent.name;
            }
        }
    }
    RecentName& found = resolveAnew(text);
    found.scope = scope_;
    return found.name;
}

TzSoapTypeNames::RecentName& TzSoapTypeNames::resolveAnew(std::string_view text) {
    const TzTextTools::SplitName split = TzTextTools::splitName(text);
    const TzXmlNamespace* const declared = exposed_ ? nullptr : index_.find(split.prefix);
    const TzCString& uri = exposed_ ? walkFor(split.prefix) : index_.getURIForPrefix(split.prefix);
    for (RecentName& recent : recent_) {
        if (recent.text == text && recent.name.getUri() == uri) {
            return recent;
        }
    }
    RecentName& place = recent_[nextRecent_++ % recent_.size()];
    place.scope = 0;
    place.text = text;
    place.name = maker_.make(split.localName,
                             declared != nullptr ? *declared : TzXmlNamespace(split.prefix, uri));
    return place;
}

bool TzSoapTypeNames::isType(const TzXmlName& name) {
    if (!TzSoapAttributeSet::matchTypeAttributeName(name)) {
        return false;
    }
    typeAttribute_ = name;
    return true;
}

void TzSoapTypeNames::clear() noexcept {
    elements_.clear();
    indexed_ = 0;
    while (index_.depth() > 0) {
        leave();
    }
    recent_.fill({});
}
