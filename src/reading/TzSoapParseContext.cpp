// SPDX-License-Identifier: MIT
#include <soap/TzSoapParseContext.h>

#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapReferenceToMimePartImp.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlSAXParser.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapMimeLookup.h"
#include "reading/TzSoapRings.h"
#include "reading/TzSoapTypeHandlers.h"

#include <algorithm>
#include <limits>
#include <typeinfo>
#include <utility>

namespace {

/// Sets of handlers that outlive a reading; usual texts nest less deep.
constexpr std::size_t MostSpareHandlers = 16;

/// The id that a reference text names: with or without the mark of a fragment.
std::string_view idOf(std::string_view href) noexcept {
    return href.starts_with('#') ? href.substr(1) : href;
}

/// Gives a reference its part. A derived class takes it in its own way.
void referToPart(TzSoapReferenceTypeImp& reference, const TzSoapMimeLookup::Found& found) {
    if (typeid(reference) == typeid(TzSoapReferenceToMimePartImp)) {
        static_cast<TzSoapReferenceToMimePartImp&>(reference).refer(found.part, found.text);
    } else {
        reference.setReference(found.part);
    }
}

} // namespace

TzSoapParseContext::TzSoapParseContext()
    : unfilledLimit_(TzSoapReadLimits().unfilledArrayPositions), unfilledLeft_(unfilledLimit_),
      uriLimit_(TzSoapReadLimits().uriLength),
      typeAttribute_(TzSoapAttributeSet::getTypeAttributeName()) {}

TzSoapParseContext::~TzSoapParseContext() = default;

void TzSoapParseContext::fileId(const TzSoapType& value) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (body.getAttributeSet().empty()) {
        return;
    }
    const TzCString& id = body.getIdAttribute();
    // An id that an earlier part of the message had and a reference named is taken, too.
    if (!id.empty() && !forgotten_.contains(id) && idEntries_.try_emplace(id, value).second) {
        newIds_.push_back(id);
    }
}

TzSoapVersion::Version TzSoapParseContext::getVersion() const {
    return soapMessageImp_ != nullptr ? soapMessageImp_->getVersion()
                                      : TzSoapVersion::getLatestVersion();
}

void TzSoapParseContext::pushEncodingStyle(const TzCString& style) {
    if (style.size() > uriLimit_) {
        const std::size_t line = parser_ == nullptr ? 0 : parser_->getLine();
        const std::size_t column = parser_ == nullptr ? 0 : parser_->getColumn();
        TzThrow(tzWithDetail(TzXmlParseError::at("an encoding style is too long", line, column),
                             "the limit is " + std::to_string(uriLimit_)));
    }
    encodingStyles_.push(style);
}

const TzCString& TzSoapParseContext::uriForPrefix(std::string_view prefix) const {
    for (auto element = namespaces_.rbegin(); element != namespaces_.rend(); ++element) {
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

TzCString TzSoapParseContext::getNsUriForPrefix(const TzCString& prefix) const {
    return uriForPrefix(prefix);
}

const TzXmlNamespace& TzSoapParseContext::sharedNamespace(std::string_view prefix,
                                                          std::string_view uri) {
    const TzXmlNamespace* declared = parser_ == nullptr ? nullptr : parser_->findNamespace(prefix);
    if (declared != nullptr && declared->getUri() == uri) {
        return *declared;
    }
    const ByText::Text text(prefix, uri);
    const auto known = sharedNamespaces_.find(text);
    return known != sharedNamespaces_.end() ? *known
                                            : *sharedNamespaces_.emplace(prefix, uri).first;
}

TzSoapParseContext::ScopeMark TzSoapParseContext::markOf(std::size_t depth) const noexcept {
    return {parser_ == nullptr ? 0 : parser_->getNamespaceScope(), depth,
            depth == 0 ? nullptr : namespaces_[depth - 1]};
}

// Elements open and close between two names, and pooled bodies come again at one address; with the
// parser's number, the depth and the innermost element all as before, so are the declarations. The
// elements that are bare declare nothing, so the ones above the innermost other one do not count.
void TzSoapParseContext::noteScopes() {
    std::size_t depth = namespaces_.size();
    ScopeMark mark = markOf(depth);
    if (mark == latestMark_ && mark.declarations != 0) {
        return;
    }
    latestMark_ = mark;
    while (depth > 0 && namespaces_[depth - 1]->isBare()) {
        --depth;
    }
    mark = markOf(depth);
    if (mark != scopeMark_ || mark.declarations == 0) {
        scopeMark_ = mark;
        ++scopes_;
    }
}

const TzXmlName& TzSoapParseContext::resolveName(std::string_view text) {
    noteScopes();
    for (const RecentName& recent : recentNames_) {
        if (recent.scopes == scopes_ && recent.text == text) {
            return recent.name;
        }
    }
    RecentName& found = resolveAnew(text);
    found.scopes = scopes_;
    return found.name;
}

TzSoapParseContext::RecentName& TzSoapParseContext::resolveAnew(std::string_view text) {
    const std::size_t colon = text.find(':');
    const bool prefixed = colon != std::string_view::npos;
    const std::string_view prefix = prefixed ? text.substr(0, colon) : std::string_view();
    const TzCString& uri = uriForPrefix(prefix);
    for (RecentName& recent : recentNames_) {
        if (recent.text == text && recent.name.getUri() == uri) {
            return recent;
        }
    }
    RecentName& place = recentNames_[nextRecent_++ % recentNames_.size()];
    place.text = text;
    place.name =
        nameMaker_.make(prefixed ? text.substr(colon + 1) : text, sharedNamespace(prefix, uri));
    return place;
}

bool TzSoapParseContext::isType(const TzXmlName& name) {
    if (!TzSoapAttributeSet::matchTypeAttributeName(name)) {
        return false;
    }
    typeAttribute_ = name;
    return true;
}

TzSoapParseContext::References& TzSoapParseContext::getReferences() {
    for (References::value_type& added : addedReferences_) {
        references_.insert(std::move(added));
    }
    addedReferences_.clear();
    return references_;
}

void TzSoapParseContext::addReference(const TzCString& href, TzSoapReferenceTypeImp& reference) {
    keep(TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(&reference)));
    addedReferences_.emplace_back(href, &reference);
}

const TzSoapType* TzSoapParseContext::findTarget(std::string_view href) {
    const TzCString id(idOf(href));
    if (const auto named = forgotten_.find(id); named != forgotten_.end()) {
        return &named->second;
    }
    const auto filed = idEntries_.find(id);
    return filed == idEntries_.end()
               ? nullptr
               : &forgotten_.insert(idEntries_.extract(filed)).position->second;
}

void TzSoapParseContext::refer(TzSoapReferenceTypeImp& reference, const TzSoapType& target) {
    resolved_.push_back(&static_cast<TzSoapReferenceToSoapTypeImp&>(reference));
    reference.setReference(target);
}

bool TzSoapParseContext::resolve(const TzCString& href, TzSoapReferenceTypeImp& reference,
                                 TzSoapMimeLookup& lookup) {
    if (reference.isSoapReference()) {
        const TzSoapType* target = findTarget(href);
        if (target == nullptr) {
            return false;
        }
        refer(reference, *target);
        return true;
    }
    if (const auto found = lookup.find(href)) {
        referToPart(reference, *found);
    }
    forgetId(TzCString(idOf(href)));
    return true; // the package does not change: there is nothing to try again later
}

void TzSoapParseContext::resolveEarlierReferences() {
    for (const TzCString& id : newIds_) {
        const auto [first, last] = unresolved_.equal_range(id);
        const TzSoapType* target = first == last ? nullptr : findTarget(id);
        if (target == nullptr) {
            continue;
        }
        for (auto waiting = first; waiting != last; ++waiting) {
            refer(*waiting->second, *target);
        }
        unresolved_.erase(first, last);
    }
    newIds_.clear();
}

void TzSoapParseContext::forgetId(const TzCString& id) {
    const auto named = idEntries_.find(id);
    if (named != idEntries_.end()) {
        forgotten_.insert(idEntries_.extract(named));
    }
}

void TzSoapParseContext::resolveOrRemember(const References::value_type& entry,
                                           TzSoapMimeLookup& lookup) {
    if (!resolve(entry.first, *entry.second, lookup)) {
        unresolved_.emplace(idOf(entry.first), entry.second);
    }
}

void TzSoapParseContext::resolveAndClearIdReferences() {
    resolveEarlierReferences();
    TzSoapMimeLookup lookup(mimeMultipart_);
    for (const References::value_type& entry : references_) {
        resolveOrRemember(entry, lookup);
    }
    for (const References::value_type& entry : addedReferences_) {
        resolveOrRemember(entry, lookup);
    }
    references_.clear();
    addedReferences_.clear();
}

void TzSoapParseContext::keepTargets() {
    tzSoapCloseRings(resolved_);
    resolved_.clear();
}

void TzSoapParseContext::dropTargets() noexcept {
    for (TzSoapReferenceToSoapTypeImp* reference : resolved_) {
        reference->clearReference();
    }
    resolved_.clear();
}

void TzSoapParseContext::setLimits(const TzSoapReadLimits& limits, std::size_t textSize) {
    constexpr std::size_t Most = std::numeric_limits<std::size_t>::max();
    const std::size_t positions = limits.unfilledArrayPositions;
    unfilledLimit_ = positions > Most - textSize ? Most : positions + textSize;
    unfilledLeft_ = unfilledLimit_;
    uriLimit_ = limits.uriLength;
}

bool TzSoapParseContext::takeUnfilledPositions(std::size_t positions) noexcept {
    if (positions > unfilledLeft_) {
        return false;
    }
    unfilledLeft_ -= positions;
    return true;
}

void TzSoapParseContext::noteDroppedText(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), TzXmlUtils::isWhiteSpace)) {
        return;
    }
    if (droppedText_.count++ == 0 && parser_ != nullptr) {
        droppedText_.line = parser_->getLine();
        droppedText_.column = parser_->getColumn();
    }
}

void TzSoapParseContext::clear() {
    droppedText_ = {};
    encodingStyles_.clear();
    namespaces_.clear();
    references_.clear();
    unresolved_.clear();
    idEntries_.clear();
    forgotten_.clear();
    sharedNamespaces_.clear();
    recentNames_.fill({});
    // What one text needed much of is not kept for the next.
    decltype(addedReferences_)().swap(addedReferences_);
    decltype(newIds_)().swap(newIds_);
    decltype(resolved_)().swap(resolved_);
    decltype(kept_)().swap(kept_);
    if (spareHandlers_.size() > MostSpareHandlers) {
        spareHandlers_.resize(MostSpareHandlers);
    }
}

std::unique_ptr<TzSoapTypeHandlers> TzSoapParseContext::borrowTypeHandlers() {
    if (spareHandlers_.empty()) {
        return std::make_unique<TzSoapTypeHandlers>();
    }
    std::unique_ptr<TzSoapTypeHandlers> handlers = std::move(spareHandlers_.back());
    spareHandlers_.pop_back();
    return handlers;
}

void TzSoapParseContext::returnTypeHandlers(std::unique_ptr<TzSoapTypeHandlers> handlers) {
    spareHandlers_.push_back(std::move(handlers));
}
