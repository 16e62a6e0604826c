// SPDX-License-Identifier: MIT
#include <soap/TzSoapElementImp.h>

#include <tz/tools/Tzxmsg.h>

#include "model/TzSoapVersionTable.h"

#include <utility>

namespace {

/// The two texts of a boolean attribute.
struct BooleanTexts {
    const char* whenTrue;
    const char* whenFalse;
};

constexpr BooleanTexts Words = {"true", "false"};
constexpr BooleanTexts Digits = {"1", "0"};

/// How each version spells mustUnderstand.
const BooleanTexts& mustUnderstandTexts(TzSoapVersion::Version version) {
    const TzSoapVersionTable* const table = TzSoapVersionTable::find(version);
    if (table == nullptr) {
        throw Tzxmsg("Unrecognized TzSoapVersion::Version");
    }
    return table->habits().booleansAreWords ? Words : Digits;
}

TzCString textOf(const BooleanTexts& texts, bool value) {
    return value ? texts.whenTrue : texts.whenFalse;
}

const TzXmlName& offsetName() {
    return TzSoapVersion::getSoapAttributeName(TzSoapVersion::Offset,
                                               TzSoapVersion::getLatestVersion());
}

} // namespace

[[gnu::hot]] TzSoapElementImp::TzSoapElementImp() : TzSoapElementImp(TzXmlName()) {}

[[gnu::hot]] TzSoapElementImp::TzSoapElementImp(TzXmlName name)
    : TzXmlElementImp(std::move(name), std::in_place_type<TzSoapAttributeSet>) {}

[[gnu::hot]] TzSoapElementImp::TzSoapElementImp(const TzSoapElementImp& other)
    : TzXmlElementImp(other.TzXmlElementImp::getName(), other.getAttributeSet()),
      texts_(other.texts_ ? std::make_unique<Texts>(*other.texts_) : nullptr), type_(other.type_),
      mustUnderstand_(other.mustUnderstand_), root_(other.root_), verbatim_(other.verbatim_),
      escapeText_(other.escapeText_) {}

TzSoapElementImp& TzSoapElementImp::operator=(const TzSoapElementImp& other) {
    if (this != &other) {
        TzXmlElementImp::operator=(other);
        texts_ = other.texts_ ? std::make_unique<Texts>(*other.texts_) : nullptr;
        type_ = other.type_;
        mustUnderstand_ = other.mustUnderstand_;
        root_ = other.root_;
        verbatim_ = other.verbatim_;
        escapeText_ = other.escapeText_;
    }
    return *this;
}

void TzSoapElementImp::clearElement() {
    getAttributeSet().clear();
    texts_.reset();
    type_ = TzXmlName();
    mustUnderstand_ = Flag::Absent;
    root_ = Flag::Absent;
    verbatim_ = false;
}

void TzSoapElementImp::takeElement(TzSoapElementImp& other) noexcept {
    TzXmlElementImp::getName() = std::exchange(other.TzXmlElementImp::getName(), TzXmlName());
    getAttributeSet() = std::move(other.getAttributeSet());
    texts_ = std::move(other.texts_);
    type_ = std::exchange(other.type_, TzXmlName());
    mustUnderstand_ = std::exchange(other.mustUnderstand_, Flag::Absent);
    root_ = std::exchange(other.root_, Flag::Absent);
    verbatim_ = std::exchange(other.verbatim_, false);
}

TzSoapElementImp::Texts& TzSoapElementImp::texts() {
    if (texts_ == nullptr) {
        texts_ = std::make_unique<Texts>();
    }
    return *texts_;
}

TzCString TzSoapElementImp::getEncodingStyleAttribute() const {
    return texts_ != nullptr ? *texts_->encodingStyle : TzCString();
}

void TzSoapElementImp::setEncodingStyle(const TzCString& style) {
    shareEncodingStyle(style.empty() ? TzSharedRecord<TzCString>()
                                     : TzSharedRecord<TzCString>(style));
}

void TzSoapElementImp::shareEncodingStyle(const TzSharedRecord<TzCString>& style) {
    if (texts_ != nullptr || !style->empty()) {
        texts().encodingStyle = style;
    }
}

[[gnu::hot]] TzSharedRecord<TzCString> TzSoapElementImp::sharedEncodingStyle() const noexcept {
    return texts_ != nullptr ? texts_->encodingStyle : TzSharedRecord<TzCString>();
}

[[gnu::hot]] bool TzSoapElementImp::hasEncodingStyleAttribute() const {
    return texts_ != nullptr && !texts_->encodingStyle->empty();
}

void TzSoapElementImp::removeEncodingStyleAttribute() {
    if (texts_ != nullptr) {
        texts_->encodingStyle = TzSharedRecord<TzCString>();
    }
}

const TzCString& TzSoapElementImp::getIdAttribute() const {
    return getAttributeSet().getIdAttribute();
}

void TzSoapElementImp::setIdAttribute(const TzCString& id) { getAttributeSet().setIdAttribute(id); }

void TzSoapElementImp::removeIdAttribute() { getAttributeSet().removeIdAttribute(); }

TzCString TzSoapElementImp::getRootAttribute() const {
    return root_ == Flag::Absent ? TzCString() : textOf(Digits, root_ == Flag::True);
}

bool TzSoapElementImp::getRoot() const { return root_ == Flag::True; }

void TzSoapElementImp::setRoot(bool root) { root_ = root ? Flag::True : Flag::False; }

[[gnu::hot]] bool TzSoapElementImp::isRootAttributeSet() const { return root_ != Flag::Absent; }

void TzSoapElementImp::removeRootAttribute() { root_ = Flag::Absent; }

[[gnu::hot]] const TzXmlName& TzSoapElementImp::getTypeValue() const { return type_; }

TzCString TzSoapElementImp::getTypeAttribute() const { return type_.getQualifiedName(); }

[[gnu::hot]] void TzSoapElementImp::setTypeAttribute(const TzXmlName& type) { type_ = type; }

void TzSoapElementImp::removeTypeAttribute() { type_ = TzXmlName(); }

[[gnu::hot]] const TzCString& TzSoapElementImp::getActorAttribute() const {
    return texts_ != nullptr ? texts_->actor : TzSoapAttributeSet::getEmptyString();
}

void TzSoapElementImp::setActor(const TzCString& actor) {
    if (texts_ != nullptr || !actor.empty()) {
        texts().actor = actor;
    }
}

void TzSoapElementImp::removeActorAttribute() {
    if (texts_ != nullptr) {
        texts_->actor.clear();
    }
}

[[gnu::hot]] bool TzSoapElementImp::getMustUnderstand() const {
    return mustUnderstand_ == Flag::True;
}

void TzSoapElementImp::setMustUnderstand(bool mustUnderstand) {
    mustUnderstand_ = mustUnderstand ? Flag::True : Flag::False;
}

void TzSoapElementImp::removeMustUnderstandAttribute() { mustUnderstand_ = Flag::Absent; }

TzCString TzSoapElementImp::getMustUnderstandAttribute() const {
    return mustUnderstand_ == Flag::Absent ? TzCString()
                                           : textOf(Words, mustUnderstand_ == Flag::True);
}

[[gnu::hot]] TzCString
TzSoapElementImp::getMustUnderstandAttribute(TzSoapVersion::Version version) const {
    return mustUnderstand_ == Flag::Absent
               ? TzCString()
               : textOf(mustUnderstandTexts(version), mustUnderstand_ == Flag::True);
}

TzCString TzSoapElementImp::getOffsetAttribute() const {
    const auto* found = getAttributeSet().find(offsetName());
    return found == getAttributeSet().end() ? TzCString() : found->getValue();
}

void TzSoapElementImp::setOffsetAttribute(const TzCString& offset) {
    getAttributeSet().add(offsetName(), offset);
}

void TzSoapElementImp::removeOffsetAttribute() { getAttributeSet().erase(offsetName()); }
