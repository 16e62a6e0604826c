// SPDX-License-Identifier: MIT
#include <soap/TzSoapFaultImp.h>

#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapParseContext.h>
#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapFaultSpellingReader.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapDetailReader.h"
#include "reading/TzSoapReadingState.h"

#include <string_view>
#include <utility>

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapFaultImp";

} // namespace

// In the order of the comparisons with an element.
const TzSoapFaultImp::Transition TzSoapFaultImp::Transitions[] = {
    {TzSoapVersion::FaultCode, State::Code},       {TzSoapVersion::FaultValue, State::SubcodeValue},
    {TzSoapVersion::FaultSubcode, State::Subcode}, {TzSoapVersion::FaultString, State::Reason},
    {TzSoapVersion::FaultActor, State::Node},      {TzSoapVersion::FaultRole, State::Role},
    {TzSoapVersion::FaultDetail, State::Detail},
};

void TzSoapFaultImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                              TzSoapParseContext* context) {
    acceptEvents(context);
    name_ = name;
    state_ = State::None;
    textIsUnused_ = false;
    reasonsAreOld_ = true;
    scopes_.clear();
    // The attributes are not kept, but codes may use the prefixes that they declare.
    element_ = std::make_unique<TzXmlElementImp>(name);
    element_->getAttributes() = attributes;
    spelling_.reset();
    spellingReader_.reset();
    if (TzSoapAccess::reading(*context).isLiteral()) {
        spellingReader_ =
            std::make_unique<TzSoapFaultSpellingReader>(*context->getParser(), name, attributes);
    }
    TzSoapAccess::reading(*context).names.open(*element_);
}

void TzSoapFaultImp::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    static_cast<void>(reading(Unit, 88));
    scopes_.push_back(attributes);
    state_ = stateAfter(name);
    if (state_ == State::ReasonText) {
        noteUnusedText();
        text_.clear(); // that of the text before must not become this one's
    }
    if (state_ == State::Detail) {
        readDetail(name, attributes);
    } else if (spellingReader_ != nullptr) {
        spellingReader_->open(name, attributes);
    }
}

// Here because reading keeps the text among the entries as well.
void TzSoapFaultImp::setDetailText(const TzCString& text) {
    detailText_ = text;
    TzSoapAccess::body(details_).children().clearText();
}

TzSoapFaultImp::State TzSoapFaultImp::stateAfter(const TzXmlName& name) const {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(version_);
    for (const Transition& transition : Transitions) {
        if (names.matchSoapElement(name, transition.element)) {
            const bool codeValue = transition.state == State::SubcodeValue && state_ == State::Code;
            return codeValue ? State::CodeValue : transition.state;
        }
    }
    const TzSoapVersionTable& table = TzSoapVersionTable::of(version_);
    const TzXmlName& text = table.term(TzSoapVersionTable::ReasonText);
    if (!text.isEmpty() && name == text) {
        return State::ReasonText;
    }
    const auto other = table.habits().readsFaultsOf;
    return other && scopes_.size() == 1 ? stateAfter(name, *other) : state_;
}

TzSoapFaultImp::State TzSoapFaultImp::stateAfter(const TzXmlName& name,
                                                 TzSoapVersion::Version other) const {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(other);
    for (const Transition& transition : Transitions) {
        if (names.matchSoapElement(name, transition.element)) {
            return transition.state == State::Code ? State::CodeValue : transition.state;
        }
    }
    return state_;
}

void TzSoapFaultImp::readDetail(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    // The detail receives the events from here on, its end included.
    scopes_.pop_back();
    state_ = State::None;
    detailReader_ = std::make_unique<TzSoapDetailReader>(TzSoapAccess::body(details_), detailText_,
                                                         spellingReader_.get());
    detailReader_->populate(name, attributes, context());
}

void TzSoapFaultImp::characters(const TzCString& text) {
    static_cast<void>(reading(Unit, 116));
    noteUnusedText();
    text_ = text;
    textIsUnused_ = true;
}

void TzSoapFaultImp::noteUnusedText() {
    if (std::exchange(textIsUnused_, false)) {
        TzSoapAccess::reading(*context()).noteDroppedText(text_);
    }
}

void TzSoapFaultImp::endElement(const TzXmlName&) {
    TzSoapTypeNames& names = TzSoapAccess::reading(reading(Unit, 122)).names;
    if (names.isEmpty()) {
        refuseEvent(Unit, 123);
    }
    textIsUnused_ = textIsUnused_ && !takesText();
    noteUnusedText();
    setValue();
    if (!scopes_.empty()) {
        scopes_.pop_back();
        if (spellingReader_ != nullptr) {
            spellingReader_->close();
        }
        return;
    }
    keepSpelling();
    names.close();
    element_.reset();
    detailReader_.reset();
    declineEvents();
}

void TzSoapFaultImp::keepSpelling() {
    const auto reader = std::move(spellingReader_);
    if (reader == nullptr) {
        return;
    }
    spelling_ = reader->finish();
    if (spelling_ != nullptr) {
        spelling_->detail = detailReader_ != nullptr ? &TzSoapAccess::body(details_) : nullptr;
        spelling_->name = name_;
        spelling_->code = code_;
        spelling_->subcodes = subcodes_;
        spelling_->reasons = reasons_;
        spelling_->node = node_;
        spelling_->role = role_;
    }
}

bool TzSoapFaultImp::takesText() const noexcept {
    switch (state_) {
    case State::Code:
        // A version with an element for the value has no code in this place.
        return TzSoapVersion::getSoapElementName(TzSoapVersion::FaultValue, version_).isEmpty();
    case State::CodeValue:
    case State::SubcodeValue:
    case State::Reason:
    case State::ReasonText:
    case State::Node:
    case State::Role:
        return true;
    case State::None:
    case State::Subcode:
    case State::Detail:
        break;
    }
    return false;
}

void TzSoapFaultImp::setValue() {
    const State state = takesText() ? state_ : State::None;
    state_ = State::None;
    switch (state) {
    case State::Code:
    case State::CodeValue:
        readCode_ = codeFromText();
        code_ = readCode_.asRead;
        break;
    case State::SubcodeValue:
        readSubcodes_.push_back(codeFromText());
        subcodes_.push_back(readSubcodes_.back().asRead);
        break;
    case State::Reason:
        takeReason(false);
        break;
    case State::ReasonText:
        takeReason(true);
        break;
    case State::Node:
        node_ = text_;
        break;
    case State::Role:
        role_ = text_;
        break;
    case State::None:
    case State::Subcode:
    case State::Detail:
        break;
    }
}

void TzSoapFaultImp::takeReason(bool isElement) {
    const TzSoapVersionTable& table = TzSoapVersionTable::of(version_);
    const bool hasElements = !table.term(TzSoapVersionTable::ReasonText).isEmpty();
    if (!isElement && hasElements && TzXmlUtils::trim(text_).empty()) {
        return; // only the space before the end of its elements
    }
    if (!hasElements || std::exchange(reasonsAreOld_, false)) {
        reasons_.clear();
    }
    TzSoapReason reason{text_, {}};
    const TzXmlName language("lang", TzXmlNamespace::getXml());
    if (!scopes_.empty()) {
        const auto* const found = scopes_.back().find(language);
        reason.language = found == scopes_.back().end() ? TzCString() : found->getValue();
    }
    reasons_.push_back(std::move(reason));
}

TzSoapFaultImp::ReadName TzSoapFaultImp::codeFromText() const {
    ReadName name{convertToFaultcode(text_), {}, subcodes_.size()};
    const std::string_view value = TzXmlUtils::trim(text_);
    name.value = value.size() < text_.size() ? convertToFaultcode(TzCString(value)) : name.asRead;
    if (spellingReader_ != nullptr) {
        spellingReader_->useCode(name.value);
    }
    return name;
}

TzXmlName TzSoapFaultImp::convertToFaultcode(const TzCString& text) const {
    const TzTextTools::SplitName split = TzTextTools::splitName(text);
    if (!split.hasColon) {
        return TzXmlName(text, TzXmlNamespace::getEmptyNamespace());
    }
    const TzCString prefix(split.prefix);
    return TzXmlName(split.localName, TzXmlNamespace(prefix, uriForPrefix(prefix)));
}

TzCString TzSoapFaultImp::uriForPrefix(const TzCString& prefix) const {
    for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
        const TzXmlAttribute* declared = scope->findDeclaration(prefix);
        if (declared != scope->end()) {
            if (!declared->getValue().empty()) {
                return declared->getValue();
            }
            break;
        }
    }
    return context()->getNsUriForPrefix(prefix);
}
