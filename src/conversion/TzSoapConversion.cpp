// SPDX-License-Identifier: MIT
#include "conversion/TzSoapConversion.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapHeldValues.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

using Reference = TzSoapElementConversion::Reference;

/// The first prefix that `element` declares for `uri`, "" without a short one: every
/// array will contain it.
TzCString prefixFor(const TzSoapElementImp& element, const TzCString& uri) {
    constexpr std::size_t Longest = 128;
    const auto* const found =
        std::find_if(element.attributesBegin(), element.attributesEnd(),
                     [&uri](const TzXmlAttribute& attribute) {
                         const TzCString& prefix = attribute.getName().getLocalName();
                         return attribute.isNamespaceDeclaration() && attribute.getValue() == uri &&
                                !prefix.empty() && prefix.size() <= Longest;
                     });
    return found != element.attributesEnd() ? found->getName().getLocalName() : TzCString();
}

Reference referenceOf(const TzSoapTypeImp& value) {
    if (value.getSoapTypeId() != TzSoapContentBase::Reference) {
        return Reference::None;
    }
    const auto& reference = static_cast<const TzSoapReferenceTypeImp&>(value);
    if (!reference.isSoapReference()) {
        return Reference::Mime;
    }
    return reference.hasReference() ? Reference::Settled : Reference::Waiting;
}

} // namespace

TzSoapConversion::TzSoapConversion(TzSoapMessage& message, const TzSoapVersion& target)
    : message_(message), terms_(message.getSoapVersion(), target), elements_(terms_, losses_),
      fault_(terms_, losses_) {}

std::vector<TzCString> TzSoapConversion::run() {
    findTargets();
    elements_.setTargets(targets_);
    elements_.setMessage(message_);
    if (terms_.habits().targetsInline && !isLiteral()) {
        findTargetEntries();
    }
    prepareEnvelope();
    prepareHeader();
    prepareBody();
    TzSoapAccess::body(message_).setVersion(terms_.target().getVersion());
    apply();
    return losses_.take();
}

bool TzSoapConversion::isLiteral() const { return message_.getStyle() == TzSoapStyle::Literal; }

void TzSoapConversion::findTargets() {
    TzSoapHeader& header = message_.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        targets_.add(TzSoapAccess::body(*entry));
    }
    TzSoapBody& body = message_.getSoapBody();
    if (body.hasSoapFault()) {
        targets_.add(TzSoapAccess::body(body.getSoapFault().getDetails()));
    }
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        targets_.add(TzSoapAccess::body(*entry));
    }
}

void TzSoapConversion::findTargetEntries() {
    TzSoapBody& body = message_.getSoapBody();
    TzSoapInlineTargets kept;
    std::vector<TzSoapBody::iterator> candidates;
    TzSoapHeader& header = message_.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        kept.add(TzSoapAccess::body(*entry));
    }
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        const bool isRoot =
            entry->isRootAttributeSet() ? entry->getRoot() : entry == body.entriesBegin();
        if (isRoot || entry->getIdAttribute().empty()) {
            kept.add(TzSoapAccess::body(*entry));
        } else {
            candidates.push_back(entry);
        }
    }
    // What nothing that stays leads to would be lost.
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(moved_),
                 [&kept](const TzSoapBody::iterator& entry) {
                     return kept.isReferredTo(entry->getIdAttribute());
                 });
}

void TzSoapConversion::prepareEnvelope() {
    TzSoapDraft draft(TzSoapAccess::body(message_), changes_);
    elements_.convert(draft, Reference::Block);
    TzSoapElementImp& state = draft.edit();
    // An undeclared prefix is the default prefix of the old version.
    if (state.findNamespaceAttribute(state.getName().getPrefix()) == state.attributesEnd()) {
        state.getName().setNamespace(terms_.target().getSoapEnv());
    }
    soapPrefix_ = state.getName().getPrefix();
    const TzXmlNamespace& encoding = terms_.target().getSoapEnc();
    encodingPrefix_ = prefixFor(state, encoding.getUri());
    if (encodingPrefix_.empty()) {
        encodingPrefix_ = encoding.getPrefix();
    }
    style_ = takeStyle(state, Style());
}

TzSoapConversion::Style TzSoapConversion::takeStyle(TzSoapElementImp& container,
                                                    const Style& around) {
    if (container.isVerbatim()) {
        return around; // an attribute like any other
    }
    Style style = container.sharedEncodingStyle();
    container.removeEncodingStyleAttribute();
    container.getAttributeSet().removeEncodingStyleAttribute();
    return style->empty() ? around : style;
}

void TzSoapConversion::loseTextBefore(TzSoapHeader::iterator entry) {
    const TzSoapHeaderImp& header = TzSoapAccess::body(message_.getSoapHeader());
    const TzCString& text = header.entries().textBefore(entry);
    if (!TzXmlUtils::trim(text).empty()) {
        losses_.add("text before header entry " + TzSoapLosses::shown(entry->getName().asString()),
                    TzSoapLosses::LeftOut);
    }
}

TzSoapConversion::Style TzSoapConversion::prepareBlock(TzSoapElementImp& block,
                                                       TzSoapVersion::SoapElement element) {
    TzSoapDraft draft(block, changes_);
    const TzXmlName& name = terms_.target().getSoapElementQName(element);
    // Where prefixes stay, another one need not be bound.
    draft.edit().setName(isLiteral()
                             ? TzXmlName(name.getLocalName(),
                                         TzXmlNamespace(block.getName().getPrefix(), name.getUri()))
                             : name);
    elements_.convert(draft, Reference::Block);
    return takeStyle(draft.edit(), style_);
}

void TzSoapConversion::prepareHeader() {
    TzSoapHeader& header = message_.getSoapHeader();
    const Style style = prepareBlock(TzSoapAccess::body(header), TzSoapVersion::Header);
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        const bool report = entry->getSoapTypeId() == TzSoapContentBase::Misunderstood;
        if (report && !terms_.hasMisunderstood()) {
            losses_.add("header entry " + TzSoapLosses::shown(entry->getName().asString()),
                        TzSoapLosses::LeftOut);
            loseTextBefore(entry);
            leftOut_.push_back(entry);
        } else {
            prepareEntry(*entry, style);
        }
    }
}

void TzSoapConversion::prepareBody() {
    TzSoapBody& body = message_.getSoapBody();
    const Style style = prepareBlock(TzSoapAccess::body(body), TzSoapVersion::Body);
    if (body.hasSoapFault()) {
        const TzSoapFaultImp& fault = TzSoapAccess::body(body.getSoapFault());
        fault_.prepare(fault, soapPrefix_);
        prepareDetail(TzSoapAccess::body(fault.getDetails()), style);
    }
    inBody_ = true;
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        prepareEntry(*entry, style);
    }
}

void TzSoapConversion::prepareDetail(TzSoapTypeImp& detail, const Style& style) {
    if (met_.isNew(detail)) {
        TzSoapDraft draft(detail, changes_);
        draft.edit().setName(terms_.target().getSoapElementQName(TzSoapVersion::FaultDetail));
        prepareValue(detail, draft);
        stateStyle(draft, styleOf(detail, style));
        walk();
    }
}

TzSoapConversion::Style TzSoapConversion::styleOf(const TzSoapTypeImp& entry,
                                                  const Style& style) const {
    // The writer states the encoding style of SOAP itself.
    return terms_.isOwnStyle(*style) || entry.hasEncodingStyleAttribute() ? Style() : style;
}

void TzSoapConversion::stateStyle(TzSoapDraft& draft, const Style& style) {
    if (!style->empty()) {
        draft.edit().shareEncodingStyle(style);
    }
}

void TzSoapConversion::prepareEntry(TzSoapType& entry, const Style& style) {
    if (TzSoapArrayTypeImp::isPlaceholder(entry)) {
        return;
    }
    TzSoapTypeImp& value = TzSoapAccess::body(entry);
    const Style stated = styleOf(value, style);
    if (met_.isNew(value)) {
        if (!stated->empty()) {
            stated_.emplace(&value, stated);
        }
        prepareEntryValue(value, stated);
        walk();
    } else if (const auto before = stated_.find(&value);
               *stated != *(before == stated_.end() ? Style() : before->second)) {
        // One value cannot state two styles; what it holds stays shared.
        replaced_.emplace_back(&entry, entry.copy());
        prepareEntryValue(TzSoapAccess::body(replaced_.back().second), stated);
        waiting_.clear();
    }
}

void TzSoapConversion::prepareEntryValue(TzSoapTypeImp& value, const Style& style) {
    TzSoapDraft draft(value, changes_);
    prepareName(draft);
    prepareValue(value, draft);
    stateStyle(draft, style);
}

void TzSoapConversion::prepareName(TzSoapDraft& entry) {
    const TzXmlName name = entry.state().getName();
    if (inBody_ && terms_.isTargetFault(name)) {
        losses_.add("element " + TzSoapLosses::shown(name.asString()) + " of " + name.getUri(),
                    "became " + name.getLocalName());
        entry.edit().setName(TzXmlName(name.getLocalName()));
    }
}

void TzSoapConversion::prepareValue(TzSoapTypeImp& value, TzSoapDraft& draft) {
    elements_.convert(draft, isLiteral() ? Reference::Block : referenceOf(value));
    const std::size_t before = waiting_.size();
    switch (value.getSoapTypeId()) {
    case TzSoapContentBase::Array:
        prepareArray(static_cast<TzSoapArrayTypeImp&>(value));
        break;
    case TzSoapContentBase::UserDefined:
        return lookAtMarkup(static_cast<const TzSoapUserDefinedTypeImp&>(value));
    default:
        break;
    }
    TzSoapHeldValues::forEachHeld(value, [this](const TzSoapType& held) { enqueue(held); });
    // Reverse, so that the first child is popped next and losses come in document order.
    std::reverse(waiting_.begin() + static_cast<std::ptrdiff_t>(before), waiting_.end());
}

void TzSoapConversion::enqueue(const TzSoapType& value) {
    if (!TzSoapArrayTypeImp::isPlaceholder(value)) {
        TzSoapTypeImp& body = TzSoapAccess::body(value);
        if (met_.isNew(body)) {
            waiting_.push_back(&body);
        }
    }
}

void TzSoapConversion::walk() {
    while (!waiting_.empty()) {
        TzSoapTypeImp& value = *waiting_.back();
        waiting_.pop_back();
        TzSoapDraft draft(value, changes_);
        prepareValue(value, draft);
    }
}

void TzSoapConversion::loseGaps(TzSoapArrayTypeImp& array) {
    bool hasGaps = !TzSoapArrayTypeImp::isDefaultOffset(array.getOffsetIndex());
    if (array.isSparse()) {
        std::uint64_t end = 0;
        for (const auto& [index, item] : static_cast<TzSoapSparseArrayImp&>(array)) {
            end = std::max<std::uint64_t>(end, array.indexToLinear(index, true) + 1ULL);
        }
        hasGaps = hasGaps || end > array.entries();
    }
    if (hasGaps) {
        losses_.add("positions without an item of " +
                        TzSoapLosses::shown(array.getName().asString()),
                    "become nil items");
    }
}

void TzSoapConversion::prepareArray(TzSoapArrayTypeImp& array) {
    if (!terms_.hasAttribute(TzSoapVersion::Position)) {
        loseGaps(array);
    }
    // Inner arrays state their shape themselves.
    const TzCString& itemType = array.getElementType();
    if (terms_.itemTypeIsName() && itemType.find('[') != TzCString::npos) {
        itemTypes_.emplace_back(&array, encodingPrefix_ + ":Array");
        losses_.add("item type " + TzSoapLosses::shown(itemType) + " of " +
                        TzSoapLosses::shown(array.getName().asString()),
                    "became " + itemTypes_.back().second);
    }
}

void TzSoapConversion::lookAtMarkup(const TzSoapUserDefinedTypeImp& value) {
    const TzSoapVersion& source = terms_.source();
    const TzCString& markup = value.getValue();
    if (!value.getActorAttribute().empty() ||
        markup.find(source.getSoapEnv().getUri()) != TzCString::npos ||
        markup.find(source.getSoapEnc().getUri()) != TzCString::npos) {
        losses_.add("markup of " + TzSoapLosses::shown(value.getName().asString()),
                    TzSoapLosses::KeptAsItIs);
    }
}

void TzSoapConversion::apply() noexcept {
    for (TzSoapDraft::Change& change : changes_) {
        change.element->takeElement(change.state);
    }
    for (auto& [array, itemType] : itemTypes_) {
        array->setElementType(std::move(itemType));
    }
    for (auto& [place, value] : replaced_) {
        *place = std::move(value);
    }
    for (const TzSoapHeader::iterator entry : leftOut_) {
        TzSoapAccess::body(message_.getSoapHeader()).entries().erase(entry);
    }
    TzSoapBody& body = message_.getSoapBody();
    for (const TzSoapBody::iterator entry : moved_) {
        TzSoapAccess::body(body).entries().erase(entry);
    }
    if (body.hasSoapFault()) {
        fault_.apply(TzSoapAccess::body(body.getSoapFault()));
    }
    TzSoapAccess::body(message_).setSoapEncodingPrefix(std::move(encodingPrefix_));
}
