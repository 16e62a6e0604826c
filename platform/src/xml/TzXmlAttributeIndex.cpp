// SPDX-License-Identifier: MIT
#include "xml/TzXmlAttributeIndex.h"

#include <new>

TzXmlAttributeIndex::TzXmlAttributeIndex(std::vector<TzXmlAttribute>& attributes)
    : attributes_(attributes), byUri_(Less<false>{&names_}), byPrefix_(Less<true>{&names_}) {
    for (const TzXmlAttribute& attribute : attributes) {
        add(attribute.getName());
    }
    listenFrom(0);
}

TzXmlAttributeIndex::~TzXmlAttributeIndex() { ignoreFrom(0); }

void TzXmlAttributeIndex::setListener(std::size_t position,
                                      TzXmlAttributeIndex* listener) noexcept {
    for (std::size_t at = position; at < attributes_.size(); ++at) {
        attributes_[at].index_ = listener;
    }
}

void TzXmlAttributeIndex::noteRenaming(const TzXmlAttribute& attribute) noexcept {
    const Number number = numbers_[static_cast<std::size_t>(&attribute - attributes_.data())];
    if (!renamed_.empty() && renamed_.back() == number) {
        return;
    }
    if (renamed_.size() >= numbers_.size()) {
        allRenamed_ = true;
        renamed_.clear();
    }
    try {
        renamed_.push_back(number);
    } catch (const std::bad_alloc&) {
        allRenamed_ = true;
    }
}

template <typename Numbers>
std::size_t TzXmlAttributeIndex::firstOf(const Numbers& numbers, const Key& key) const {
    const auto found = numbers.lower_bound(key);
    const bool equal = found != numbers.end() &&
                       numbers.key_comp().compare(numbers.key_comp().keyOf(*found), key) == 0;
    return equal ? positions_[*found] : attributes_.size();
}

std::size_t TzXmlAttributeIndex::find(const TzXmlNamespace& nameSpace, std::string_view localName) {
    settle();
    if (nameSpace.getUri().empty()) {
        const std::size_t same = firstOf(byPrefix_, {localName, nameSpace.getPrefix()});
        if (same != attributes_.size()) {
            return same;
        }
    }
    return firstOf(byUri_, {localName, nameSpace.getUri()});
}

void TzXmlAttributeIndex::add(const TzXmlName& name) {
    const Number number = names_.size();
    names_.push_back(name);
    positions_.push_back(numbers_.size());
    numbers_.push_back(number);
    enter(number);
}

void TzXmlAttributeIndex::remove(std::size_t position) noexcept {
    const Number removed = numbers_[position];
    leave(removed);
    names_[removed] = TzXmlName();
    std::erase(renamed_, removed);
    numbers_.erase(numbers_.begin() + static_cast<std::ptrdiff_t>(position));
    for (std::size_t moved = position; moved < numbers_.size(); ++moved) {
        positions_[numbers_[moved]] = moved;
    }
}

void TzXmlAttributeIndex::settle() {
    if (allRenamed_) {
        for (const Number number : numbers_) {
            compare(number);
        }
        allRenamed_ = false;
    }
    for (const Number number : renamed_) {
        compare(number);
    }
    renamed_.clear();
}

void TzXmlAttributeIndex::compare(Number number) {
    const TzXmlAttribute& attribute = attributes_[positions_[number]];
    if (!attribute.getName().isSame(names_[number])) {
        leave(number);
        names_[number] = attribute.getName();
        enter(number);
    }
}

void TzXmlAttributeIndex::enter(Number number) {
    byUri_.insert(number);
    if (names_[number].getUri().empty()) {
        byPrefix_.insert(number);
    }
}

void TzXmlAttributeIndex::leave(Number number) noexcept {
    byUri_.erase(number);
    byPrefix_.erase(number);
}
