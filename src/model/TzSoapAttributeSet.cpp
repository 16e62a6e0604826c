// SPDX-License-Identifier: MIT
#include <soap/TzSoapAttributeSet.h>

#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"

#include <algorithm>
#include <array>
#include <utility>

using Version = TzSoapVersion::Version;
using Attribute = TzSoapVersion::SoapAttribute;

namespace {

// Deliberate: without the carriage return, which therefore becomes part of a URI.
constexpr std::array<char, 3> StyleSeparators = {TzXmlUtils::BlankUtf8, TzXmlUtils::NewlineUtf8,
                                                 TzXmlUtils::TabUtf8};
constexpr std::string_view WhiteSpace(StyleSeparators.data(), StyleSeparators.size());

} // namespace

TzSoapAttributeSet::TzSoapAttributeSet(const TzSoapAttributeSet&) = default;

TzSoapAttributeSet::TzSoapAttributeSet(TzSoapAttributeSet&&) noexcept = default;

TzSoapAttributeSet& TzSoapAttributeSet::operator=(const TzSoapAttributeSet&) = default;

TzSoapAttributeSet& TzSoapAttributeSet::operator=(TzSoapAttributeSet&&) noexcept = default;

TzSoapAttributeSet::~TzSoapAttributeSet() = default;

// mustUnderstand

bool TzSoapAttributeSet::getMustUnderstandAttribute() const {
    return isTrueAt(getSoapAttribute(TzSoapVersion::MustUnderstand));
}

bool TzSoapAttributeSet::getMustUnderstandAttribute(Version version) const {
    return isTrueAt(findOf(TzSoapVersion::MustUnderstand, version));
}

void TzSoapAttributeSet::setMustUnderstandAttribute(bool value, Version version) {
    set(TzSoapVersion::MustUnderstand, version, booleanValue(value));
}

void TzSoapAttributeSet::removeMustUnderstandAttribute() { remove(TzSoapVersion::MustUnderstand); }

bool TzSoapAttributeSet::isMustUnderstandAttributeSet() const {
    return isBooleanAt(getSoapAttribute(TzSoapVersion::MustUnderstand));
}

// root

bool TzSoapAttributeSet::getRootAttribute() const {
    return isTrueAt(getSoapAttribute(TzSoapVersion::Root));
}

bool TzSoapAttributeSet::getRootAttribute(Version version) const {
    return isTrueAt(findOf(TzSoapVersion::Root, version));
}

void TzSoapAttributeSet::setRootAttribute(bool value, Version version) {
    set(TzSoapVersion::Root, version, booleanValue(value));
}

void TzSoapAttributeSet::removeRootAttribute() { remove(TzSoapVersion::Root); }

bool TzSoapAttributeSet::isRootAttributeSet() const {
    return isBooleanAt(getSoapAttribute(TzSoapVersion::Root));
}

// actor, role

const TzCString& TzSoapAttributeSet::getActorAttribute() const {
    return valueAt(getSoapAttribute(TzSoapVersion::Actor));
}

const TzCString& TzSoapAttributeSet::getActorAttribute(Version version) const {
    return valueAt(findOf(TzSoapVersion::Actor, version));
}

void TzSoapAttributeSet::setActorAttribute(const TzCString& actor, Version version) {
    set(TzSoapVersion::Actor, version, actor);
}

void TzSoapAttributeSet::removeActorAttribute() { remove(TzSoapVersion::Actor); }

// encodingStyle

const TzCString& TzSoapAttributeSet::getEncodingStyleAttribute() const {
    return valueAt(getSoapAttribute(TzSoapVersion::EncodingStyle));
}

const TzCString& TzSoapAttributeSet::getEncodingStyleAttribute(Version version) const {
    return valueAt(findOf(TzSoapVersion::EncodingStyle, version));
}

void TzSoapAttributeSet::setEncodingStyleAttribute(const TzCString& style, Version version) {
    set(TzSoapVersion::EncodingStyle, version, normalisedStyle(style));
}

void TzSoapAttributeSet::removeEncodingStyleAttribute() { remove(TzSoapVersion::EncodingStyle); }

bool TzSoapAttributeSet::hasEncodingStyleAttribute() const {
    return getSoapAttribute(TzSoapVersion::EncodingStyle) != end();
}

// arrayType

const TzCString& TzSoapAttributeSet::getArrayTypeAttribute() const {
    return valueAt(getSoapAttribute(TzSoapVersion::ArrayType));
}

const TzCString& TzSoapAttributeSet::getArrayTypeAttribute(Version version) const {
    return valueAt(findOf(TzSoapVersion::ArrayType, version));
}

void TzSoapAttributeSet::setArrayTypeAttribute(const TzCString& arrayType, Version version) {
    set(TzSoapVersion::ArrayType, version, arrayType);
}

void TzSoapAttributeSet::removeArrayTypeAttribute() { remove(TzSoapVersion::ArrayType); }

// position

const TzCString& TzSoapAttributeSet::getPositionAttribute() const {
    return valueAt(getSoapAttribute(TzSoapVersion::Position));
}

const TzCString& TzSoapAttributeSet::getPositionAttribute(Version version) const {
    return valueAt(findOf(TzSoapVersion::Position, version));
}

void TzSoapAttributeSet::setPositionAttribute(const TzCString& position, Version version) {
    set(TzSoapVersion::Position, version, position);
}

bool TzSoapAttributeSet::hasPositionAttribute() const {
    return getSoapAttribute(TzSoapVersion::Position) != end();
}

void TzSoapAttributeSet::removePositionAttribute() { remove(TzSoapVersion::Position); }

// offset

const TzCString& TzSoapAttributeSet::getOffsetAttribute() const {
    return valueAt(getSoapAttribute(TzSoapVersion::Offset));
}

const TzCString& TzSoapAttributeSet::getOffsetAttribute(Version version) const {
    return valueAt(findOf(TzSoapVersion::Offset, version));
}

void TzSoapAttributeSet::setOffsetAttribute(const TzCString& offset, Version version) {
    set(TzSoapVersion::Offset, version, offset);
}

void TzSoapAttributeSet::removeOffsetAttribute() { remove(TzSoapVersion::Offset); }

// id, nil

const TzXmlName& TzSoapAttributeSet::idName() const {
    const TzXmlName& encoded = TzSoapVersionTable::soap12Rec().term(TzSoapVersionTable::Id);
    return empty() || find(encoded) == end() ? getIdAttributeName() : encoded;
}

const TzCString& TzSoapAttributeSet::getIdAttribute() const { return valueAt(find(idName())); }

void TzSoapAttributeSet::setIdAttribute(const TzCString& id) { add(idName(), id); }

void TzSoapAttributeSet::removeIdAttribute() { erase(idName()); }

bool TzSoapAttributeSet::getNullAttribute() const { return isTrueAt(find(getNullAttributeName())); }

void TzSoapAttributeSet::setNullAttribute(bool value) {
    add(getNullAttributeName(), booleanValue(value));
}

void TzSoapAttributeSet::removeNullAttribute() { erase(getNullAttributeName()); }

// Fixed names and values

const TzCString& TzSoapAttributeSet::getTrueAttributeValue() {
    static TzSoapLasting<const TzCString> value([] { return TzCString("1"); });
    return *value;
}

const TzCString& TzSoapAttributeSet::getFalseAttributeValue() {
    static TzSoapLasting<const TzCString> value([] { return TzCString("0"); });
    return *value;
}

const TzXmlName& TzSoapAttributeSet::getIdAttributeName() {
    static TzSoapLasting<const TzXmlName> name(
        [] { return TzXmlName("id", TzXmlNamespace::getEmptyNamespace()); });
    return *name;
}

const TzXmlName& TzSoapAttributeSet::getTypeAttributeName() {
    static TzSoapLasting<const TzXmlName> name(
        [] { return TzXmlName("type", TzXmlNamespace::getXsi()); });
    return *name;
}

const TzXmlName& TzSoapAttributeSet::getNullAttributeName() {
    static TzSoapLasting<const TzXmlName> name(
        [] { return TzXmlName("nil", TzXmlNamespace::getXsi()); });
    return *name;
}

const TzCString& TzSoapAttributeSet::getEmptyString() {
    static TzSoapLasting<const TzCString> value([] { return TzCString(); });
    return *value;
}

bool TzSoapAttributeSet::matchIdAttributeName(const TzXmlName& name) {
    return name == getIdAttributeName();
}

bool TzSoapAttributeSet::matchTypeAttributeName(const TzXmlName& name) {
    return name.getLocalName() == getTypeAttributeName().getLocalName() &&
           TzXmlNamespace::matchXsi(name.getNamespace());
}

// Look-up

const TzXmlAttribute* TzSoapAttributeSet::findOf(Attribute attribute, Version version) const {
    const TzXmlName& name = TzSoapVersion::getSoapAttributeName(attribute, version);
    return name.isEmpty() ? end() : find(name);
}

const TzXmlAttribute* TzSoapAttributeSet::getSoapAttribute(Attribute attribute,
                                                           Version& found) const {
    if (empty()) {
        return end();
    }
    for (const Version version : TzSoapVersionTable::Supported) {
        const TzXmlAttribute* position = findOf(attribute, version);
        if (position != end()) {
            found = version;
            return position;
        }
    }
    return end();
}

const TzXmlAttribute* TzSoapAttributeSet::getSoapAttribute(Attribute attribute) const {
    Version ignored{};
    return getSoapAttribute(attribute, ignored);
}

// The look-up of the base for changes drops the index, even if it finds nothing. The position
// only serves to erase, which drops the index anyway.
TzXmlAttribute* TzSoapAttributeSet::getSoapAttribute(Attribute attribute, Version& found) {
    return const_cast<TzXmlAttribute*>(std::as_const(*this).getSoapAttribute(attribute, found));
}

TzXmlAttribute* TzSoapAttributeSet::getSoapAttribute(Attribute attribute) {
    Version ignored{};
    return getSoapAttribute(attribute, ignored);
}

const TzCString& TzSoapAttributeSet::valueAt(const TzXmlAttribute* position) const {
    return position == end() ? getEmptyString() : position->getValue();
}

bool TzSoapAttributeSet::isTrueAt(const TzXmlAttribute* position) const {
    return position != end() && position->getValue() == getTrueAttributeValue();
}

bool TzSoapAttributeSet::isBooleanAt(const TzXmlAttribute* position) const {
    return isTrueAt(position) ||
           (position != end() && position->getValue() == getFalseAttributeValue());
}

const TzCString& TzSoapAttributeSet::booleanValue(bool value) {
    return value ? getTrueAttributeValue() : getFalseAttributeValue();
}

// Changes

void TzSoapAttributeSet::set(Attribute attribute, Version version, TzCString value) {
    const TzXmlName& name = TzSoapVersion::getSoapAttributeName(attribute, version);
    // An attribute without a name could never be written.
    if (!name.isEmpty()) {
        add(name, std::move(value));
    }
}

void TzSoapAttributeSet::remove(Attribute attribute) {
    TzXmlAttribute* position = getSoapAttribute(attribute);
    if (position != end()) {
        erase(position);
    }
}

TzCString TzSoapAttributeSet::normalisedStyle(std::string_view style) {
    TzCString result;
    std::size_t start = style.find_first_not_of(WhiteSpace);
    while (start != std::string_view::npos) {
        const std::size_t end = std::min(style.find_first_of(WhiteSpace, start), style.size());
        if (!result.empty()) {
            result += TzXmlUtils::BlankUtf8;
        }
        result += style.substr(start, end - start);
        start = style.find_first_not_of(WhiteSpace, end);
    }
    return result;
}
