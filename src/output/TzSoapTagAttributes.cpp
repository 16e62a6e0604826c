// SPDX-License-Identifier: MIT
#include "output/TzSoapTagAttributes.h"

void TzSoapTagAttributes::addOwn(const Attribute& attribute) {
    for (const std::size_t position : made_) {
        if (*attributes_[position].name == *attribute.name) {
            attributes_[position] = attribute;
            return;
        }
    }
    attributes_.push_back(attribute);
}

void TzSoapTagAttributes::addMade(const Attribute& attribute) {
    Attribute* const known = positionIn(attributes_, *attribute.name);
    if (known != attributes_.end()) {
        *known = attribute;
        return;
    }
    made_.push_back(attributes_.size());
    attributes_.push_back(attribute);
}

bool TzSoapTagAttributes::replaceValue(const TzXmlName& name, std::string_view value) {
    Attribute* const known = positionIn(attributes_, name);
    const bool isKnown = known != attributes_.end();
    if (isKnown) {
        known->value = value;
    }
    return isKnown;
}

const TzSoapTagAttributes::Attribute* TzSoapTagAttributes::find(const TzXmlName& name) const {
    const Attribute* const found = positionIn(attributes_, name);
    return found == attributes_.end() ? nullptr : found;
}

void TzSoapTagAttributes::rename(const TzXmlName& from, const Attribute& to) {
    Attribute* const renamed = positionIn(attributes_, from);
    if (renamed == attributes_.end()) {
        return;
    }
    Attribute* const replaced = positionIn(attributes_, *to.name);
    if (replaced == attributes_.end() || replaced == renamed) {
        *renamed = to;
        return;
    }
    *replaced = to;
    attributes_.erase(renamed);
}

char* TzSoapTagAttributes::ownRoomFor(std::size_t size) {
    longTexts_.push_back(std::unique_ptr<char[]>(new char[size]));
    return longTexts_.back().get();
}
