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

/// Names, namespaces and scopes that take more than this are not remembered for the next text.
constexpr std::size_t LongText = 64;
constexpr std::size_t LongNamespace = 256;
constexpr std::size_t ManyDeclarations = 16;

bool isDeclaration(const TzXmlAttribute& attribute) {
    return attribute.getName().getNamespace().sameUri(TzXmlNamespace::getXmlns());
}

/// Whether `attributes` declare what `declared` says, in that order, and nothing else.
bool declare(const TzXmlAttributeSet& attributes, const std::vector<TzXmlNamespace>& declared) {
    auto next = declared.begin();
    for (const TzXmlAttribute& attribute : attributes) {
        if (!isDeclaration(attribute)) {
            continue;
        }
        if (next == declared.end() || next->getPrefix() != attribute.getName().getLocalName() ||
            next->getUri() != attribute.getValue()) {
            return false;
        }
        ++next;
    }
    return next == declared.end();
}

bool isLong(const TzXmlNamespace& nameSpace) noexcept {
    return nameSpace.getPrefix().size() + nameSpace.getUri().size() > LongNamespace;
}

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
    scopes_.push_back(scope());
    if (element.isBare()) {
        return;
    }
    const TzXmlAttributeSet& attributes = element.getAttributes();
    if (std::none_of(attributes.begin(), attributes.end(), isDeclaration)) {
        return;
    }
    const RecentScope& met = meet(attributes, parser);
    for (const TzXmlNamespace& declared : met.declared) {
        index_.add(declared);
    }
    scopes_.back() = met.after;
}

/// The declarations among `attributes`, which follow those in the index.
const TzSoapTypeNames::RecentScope& TzSoapTypeNames::meet(const TzXmlAttributeSet& attributes,
                                                          const TzXmlSAXParser* parser) {
    for (const RecentScope& recent : recentScopes_) {
        if (recent.before == scope() && declare(attributes, recent.declared)) {
            return recent;
        }
    }
    RecentScope& fresh = recentScopes_[nextRecentScope_++ % recentScopes_.size()];
    fresh.before = 0; // until it is complete
    fresh.declared.clear();
    for (const TzXmlAttribute& attribute : attributes) {
        if (isDeclaration(attribute)) {
            fresh.declared.push_back(namespaceOf(attribute, parser));
        }
    }
    fresh.before = scope();
    fresh.after = ++latestScope_;
    hasLong_ = hasLong_ || fresh.declared.size() > ManyDeclarations ||
               std::any_of(fresh.declared.begin(), fresh.declared.end(), isLong);
    return fresh;
}

// An element that did not enter wholly is in the index, but has no scope perhaps.
void TzSoapTypeNames::leave() noexcept {
    index_.popScope();
    scopes_.erase(scopes_.begin() +
                      static_cast<std::ptrdiff_t>(std::min(index_.depth(), scopes_.size())),
                  scopes_.end());
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

[[gnu::hot]] const TzSoapTypeNames::RecentName&
TzSoapTypeNames::find(std::string_view text, const TzXmlSAXParser* parser) {
    if (!exposed_) {
        update(parser);
        const std::uint64_t now = scope();
        for (const RecentName& recent : recent_) {
            if (recent.scope == now && recent.text == text) {
                return recent;
            }
        }
    }
    RecentName& found = resolveAnew(text);
    found.scope = exposed_ ? 0 : scope();
    return found;
}

TzSoapTypeNames::RecentName& TzSoapTypeNames::resolveAnew(std::string_view text) {
    const TzTextTools::SplitName split = TzTextTools::splitName(text);
    const TzXmlNamespace* const declared = exposed_ ? nullptr : index_.find(split.prefix);
    const TzCString& uri = exposed_              ? walkFor(split.prefix)
                           : declared != nullptr ? declared->getUri()
                                                 : TzXmlNamespace::getEmptyNamespace().getUri();
    for (RecentName& recent : recent_) {
        if (recent.text == text && recent.name.getUri() == uri) {
            return recent;
        }
    }
    // A text never stands beside a name that is not its own, even without memory for the rest.
    TzXmlName name = maker_.make(
        split.localName, declared != nullptr ? *declared : TzXmlNamespace(split.prefix, uri));
    RecentName& place = recent_[nextRecent_++ % recent_.size()];
    place.scope = 0;
    place.text = text;
    place.name = std::move(name);
    place.schemaType = TzSoapContentBase::schemaTypeFromName(split.localName);
    hasLong_ = hasLong_ || text.size() > LongText || isLong(place.name.getNamespace());
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
    if (std::exchange(hasLong_, false)) {
        recent_.fill({});
        recentScopes_.fill({});
    }
}
