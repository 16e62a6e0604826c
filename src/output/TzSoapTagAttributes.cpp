// SPDX-License-Identifier: MIT
#include "output/TzSoapTagAttributes.h"

#include <algorithm>
#include <utility>

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
    const auto known = position(*attribute.name);
    if (known != attributes_.end()) {
        *known = attribute;
        return;
    }
    made_.push_back(attributes_.size());
    attributes_.push_back(attribute);
}

bool TzSoapTagAttributes::replaceValue(const TzXmlName& name, std::string_view value) {
    const auto known = position(name);
    const bool isKnown = known != attributes_.end();
    if (isKnown) {
        known->value = value;
    }
    return isKnown;
}

const TzSoapTagAttributes::Attribute* TzSoapTagAttributes::find(const TzXmlName& name) const {
    const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                    [&](const Attribute& each) { return *each.name == name; });
    return found == attributes_.end() ? nullptr : &*found;
}

void TzSoapTagAttributes::rename(const TzXmlName& from, const Attribute& to) {
    const auto renamed = position(from);
    if (renamed == attributes_.end()) {
        return;
    }
    const auto replaced = position(*to.name);
    if (replaced == attributes_.end() || replaced == renamed) {
        *renamed = to;
        return;
    }
    *replaced = to;
    attributes_.erase(renamed);
}

std::vector<TzSoapTagAttributes::Attribute>::iterator
TzSoapTagAttributes::position(const TzXmlName& name) {
    return std::find_if(attributes_.begin(), attributes_.end(),
                        [&](const Attribute& each) { return *each.name == name; });
}

TzCString& TzSoapTagAttributes::newText() {
    if (textsUsed_ == texts_.size()) {
        texts_.push_back(std::make_unique<TzCString>());
    }
    TzCString& text = *texts_[textsUsed_++];
    text.clear();
    return text;
}

std::string_view TzSoapTagAttributes::keep(TzCString text) { return newText() = std::move(text); }
