// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlAttributeSet.h>

#include "xml/TzXmlAttributeIndex.h"

#include <algorithm>
#include <iterator>

void TzXmlAttribute::reportRenaming() const noexcept { index_->noteRenaming(*this); }

TzXmlAttributeSet::List::List() noexcept = default;

// A copy makes a new index when it needs one.
TzXmlAttributeSet::List::List(const List& other)
    : TzTMonitor(other), attributes(other.attributes) {}

TzXmlAttributeSet::List::~List() = default;

TzXmlAttributeSet::TzXmlAttributeSet(const TzXmlAttributeSet& other)
    : list_(other.empty() ? nullptr : std::make_unique<List>(*other.list_)) {}

TzXmlAttributeSet::TzXmlAttributeSet(TzXmlAttributeSet&& other) noexcept = default;

TzXmlAttributeSet& TzXmlAttributeSet::operator=(const TzXmlAttributeSet& other) {
    if (this != &other) {
        *this = TzXmlAttributeSet(other);
    }
    return *this;
}

TzXmlAttributeSet& TzXmlAttributeSet::operator=(TzXmlAttributeSet&& other) noexcept {
    list_ = std::exchange(other.list_, nullptr);
    return *this;
}

TzXmlAttributeSet::~TzXmlAttributeSet() = default;

std::size_t TzXmlAttributeSet::List::find(const TzXmlNamespace& nameSpace,
                                          std::string_view localName) {
    const Guard guard(lock());
    // Out of the list meanwhile, so that an index that failed half-way is gone.
    std::unique_ptr<TzXmlAttributeIndex> asked = std::move(index);
    if (asked == nullptr) {
        asked = std::make_unique<TzXmlAttributeIndex>(attributes);
    }
    const std::size_t found = asked->find(nameSpace, localName);
    index = std::move(asked);
    return found;
}

TzXmlAttributeSet::iterator TzXmlAttributeSet::find(const TzXmlAttribute& attribute) {
    const iterator found = find(attribute.getName());
    return found != end() && found->getValue() == attribute.getValue() ? found : end();
}

TzXmlAttributeSet::const_iterator TzXmlAttributeSet::find(const TzXmlAttribute& attribute) const {
    const const_iterator found = find(attribute.getName());
    return found != end() && found->getValue() == attribute.getValue() ? found : end();
}

void TzXmlAttributeSet::add(TzXmlAttribute attribute) {
    const TzXmlName& name = std::as_const(attribute).getName();
    if (name.getLocalName() == "xmlns" && name.getNamespace().isEmpty()) {
        attribute.setName(TzXmlName({}, TzXmlNamespace::getXmlns()));
    }
    const iterator found = find(name);
    const bool there = found != end() &&
                       isExact(std::as_const(*found).getName().getNamespace(), name.getNamespace());
    if (there) {
        *found = std::move(attribute);
    } else {
        append(std::move(attribute));
    }
}

void TzXmlAttributeSet::add(TzXmlName name, TzCString value) {
    add(TzXmlAttribute(std::move(name), std::move(value)));
}

void TzXmlAttributeSet::addDeclaration(const TzXmlNamespace& declared) {
    add(TzXmlName(declared.getPrefix(), TzXmlNamespace::getXmlns()), declared.getUri());
}

TzXmlAttributeSet::List& TzXmlAttributeSet::made() {
    if (list_ == nullptr) {
        list_ = std::make_unique<List>();
    }
    return *list_;
}

void TzXmlAttributeSet::reserve(std::size_t count) {
    List& list = made();
    if (count <= list.attributes.capacity()) {
        return;
    }
    std::vector<TzXmlAttribute> larger;
    larger.reserve(count);
    // Moving does not rename.
    if (list.index != nullptr) {
        list.index->ignoreFrom(0);
    }
    std::move(list.attributes.begin(), list.attributes.end(), std::back_inserter(larger));
    list.attributes.swap(larger);
    if (list.index != nullptr) {
        list.index->listenFrom(0);
    }
}

void TzXmlAttributeSet::append(TzXmlAttribute attribute) {
    constexpr std::size_t Fewest = 1;
    List& list = made();
    std::vector<TzXmlAttribute>& attributes = list.attributes;
    if (attributes.size() == attributes.capacity()) {
        reserve(std::max(2 * attributes.size(), Fewest));
    }
    // The index is moved out meanwhile: if adding the name throws, the list has no index.
    std::unique_ptr<TzXmlAttributeIndex> index = std::move(list.index);
    if (index != nullptr) {
        index->add(std::as_const(attribute).getName());
    }
    attributes.push_back(std::move(attribute));
    if (index != nullptr) {
        index->listenFrom(attributes.size() - 1);
        list.index = std::move(index);
    }
}

void TzXmlAttributeSet::erase(iterator position) {
    std::vector<TzXmlAttribute>& attributes = list_->attributes;
    std::unique_ptr<TzXmlAttributeIndex>& index = list_->index;
    const auto at = static_cast<std::size_t>(position - first());
    if (index != nullptr) {
        index->remove(at);
        index->ignoreFrom(at); // closing up does not rename
    }
    attributes.erase(attributes.begin() + static_cast<std::ptrdiff_t>(at));
    if (index != nullptr) {
        index->listenFrom(at);
        if (attributes.size() < IndexedFrom || !index->isWorthIt()) {
            index.reset();
        }
    }
}

void TzXmlAttributeSet::erase(const TzXmlName& name) {
    const iterator found = find(name);
    if (found != end()) {
        erase(found);
    }
}

void TzXmlAttributeSet::clear() noexcept {
    if (list_ != nullptr) {
        list_->index.reset();
        list_->attributes.clear();
    }
}
