// SPDX-License-Identifier: MIT
#include "reading/TzSoapReferenceTable.h"

#include <soap/TzSoapReferenceToMimePartImp.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapReferenceTypeImp.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapMimeLookup.h"
#include "reading/TzSoapRings.h"

#include <typeinfo>
#include <utility>

namespace {

/// The id that a reference text names: with or without the mark of a fragment.
std::string_view idOf(std::string_view href) noexcept {
    return href.starts_with('#') ? href.substr(1) : href;
}

/// Gives a reference its part, which a derived class may handle differently.
void referToPart(TzSoapReferenceTypeImp& reference, const TzSoapMimeLookup::Found& found) {
    if (typeid(reference) == typeid(TzSoapReferenceToMimePartImp)) {
        static_cast<TzSoapReferenceToMimePartImp&>(reference).refer(found.part, found.text);
    } else {
        reference.setReference(found.part);
    }
}

} // namespace

TzSoapReferenceTable::References& TzSoapReferenceTable::references() {
    for (References::value_type& one : added_) {
        references_.insert(std::move(one));
    }
    added_.clear();
    return references_;
}

void TzSoapReferenceTable::add(const TzCString& href, TzSoapReferenceTypeImp& reference) {
    keep(TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(&reference)));
    added_.emplace_back(href, &reference);
}

[[gnu::hot]] void TzSoapReferenceTable::fileId(const TzSoapType& value) {
    const TzSoapAttributeSet& attributes =
        std::as_const(TzSoapAccess::body(value)).getAttributeSet();
    if (attributes.empty()) {
        return;
    }
    const auto* const found =
        attributes.find(idName_ != nullptr ? *idName_ : TzSoapAttributeSet::getIdAttributeName());
    if (found == attributes.end()) {
        return;
    }
    const TzCString& id = found->getValue();
    // An id that an earlier block of the message had and a reference named is taken, too.
    if (!id.empty() && !namedIds_.contains(id) && idEntries_.try_emplace(id, value).second) {
        newIds_.push_back(id);
    }
}

const TzSoapType* TzSoapReferenceTable::findTarget(std::string_view href) {
    const TzCString id(idOf(href));
    if (const auto named = namedIds_.find(id); named != namedIds_.end()) {
        return &named->second;
    }
    const auto filed = idEntries_.find(id);
    return filed == idEntries_.end()
               ? nullptr
               : &namedIds_.insert(idEntries_.extract(filed)).position->second;
}

void TzSoapReferenceTable::refer(TzSoapReferenceTypeImp& reference, const TzSoapType& target) {
    resolved_.push_back(&static_cast<TzSoapReferenceToSoapTypeImp&>(reference));
    reference.setReference(target);
}

bool TzSoapReferenceTable::resolveOne(const TzCString& href, TzSoapReferenceTypeImp& reference,
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
    return true; // the package does not change: a later attempt would find nothing either
}

void TzSoapReferenceTable::resolveEarlier() {
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

void TzSoapReferenceTable::forgetId(const TzCString& id) {
    const auto named = idEntries_.find(id);
    if (named != idEntries_.end()) {
        namedIds_.insert(idEntries_.extract(named));
    }
}

void TzSoapReferenceTable::resolveOrRemember(const References::value_type& entry,
                                             TzSoapMimeLookup& lookup) {
    if (!resolveOne(entry.first, *entry.second, lookup)) {
        unresolved_.emplace(idOf(entry.first), entry.second);
    }
}

void TzSoapReferenceTable::resolve(const TzMimeMultipart& package) {
    resolveEarlier();
    TzSoapMimeLookup lookup(package);
    for (const References::value_type& entry : references_) {
        resolveOrRemember(entry, lookup);
    }
    for (const References::value_type& entry : added_) {
        resolveOrRemember(entry, lookup);
    }
    references_.clear();
    added_.clear();
}

void TzSoapReferenceTable::keepTargets() {
    tzSoapCloseRings(resolved_);
    resolved_.clear();
}

void TzSoapReferenceTable::dropTargets() noexcept {
    for (TzSoapReferenceToSoapTypeImp* reference : resolved_) {
        reference->clearReference();
    }
    resolved_.clear();
}

void TzSoapReferenceTable::clear() noexcept {
    idName_ = nullptr;
    references_.clear();
    unresolved_.clear();
    idEntries_.clear();
    namedIds_.clear();
    // Released, because one large text may have needed much.
    decltype(added_)().swap(added_);
    decltype(newIds_)().swap(newIds_);
    decltype(resolved_)().swap(resolved_);
    decltype(kept_)().swap(kept_);
}
