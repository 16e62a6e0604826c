// SPDX-License-Identifier: MIT
#include <soap/TzSoapValueList.h>

#include <soap/TzSoapAttributeSet.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapPrefetch.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <new>
#include <utility>

namespace {

/// Finds values named `name`.
struct Named {
    const TzXmlName& name;

    bool operator()(const TzSoapType& value) const { return value.getName() == name; }
};

} // namespace

struct TzSoapValueList::Texts : std::map<const TzSoapType*, TzCString> {};

TzSoapValueList::TzSoapValueList() noexcept = default;

TzSoapValueList::TzSoapValueList(TzSoapValueList&& other) noexcept
    : texts_(std::exchange(other.texts_, nullptr)) {
    takeValues(other);
}

TzSoapValueList& TzSoapValueList::operator=(TzSoapValueList&& other) noexcept {
    TzSoapValueList taken(std::move(other));
    clear();
    takeValues(taken);
    std::swap(texts_, taken.texts_);
    return *this;
}

TzSoapValueList::TzSoapValueList(const TzSoapValueList& other) : TzSoapValueList() {
    for (const TzSoapType& value : other) { // if it fails, the destructor runs
        append(value);
    }
    copyTextOf(other);
}

TzSoapValueList& TzSoapValueList::operator=(const TzSoapValueList& other) {
    if (this != &other) {
        *this = TzSoapValueList(other);
    }
    return *this;
}

TzSoapValueList::~TzSoapValueList() { clear(); }

[[gnu::hot]] void TzSoapValueList::clear() noexcept {
    // The list is empty before the first value ends, whoever looks at it then.
    TzSoapValueLink* link = ends_.next;
    TzSoapValueLink* const last = &ends_;
    ends_.previous->next = nullptr;
    ends_ = {last, last};
    size_ = 0;
    clearText();
    // The last value is not linked to the list any more.
    TzSoapPrefetch prefetch(iterator(link != last ? link : nullptr), iterator(nullptr));
    while (link != nullptr && link != last) {
        prefetch.step();
        release(static_cast<TzSoapValueNode*>(std::exchange(link, link->next)));
    }
}

/// Takes over the values of `other`; this list has none.
void TzSoapValueList::takeValues(TzSoapValueList& other) noexcept {
    if (other.size_ > 0) {
        ends_ = std::exchange(other.ends_, {&other.ends_, &other.ends_});
        ends_.next->previous = &ends_;
        ends_.previous->next = &ends_;
        size_ = std::exchange(other.size_, 0);
    }
}

[[gnu::hot]] TzSoapValueList::iterator TzSoapValueList::add(const_iterator position,
                                                            TzSoapValueNode* node) noexcept {
    node->previous = position.link_->previous;
    node->next = position.link_;
    node->previous->next = node;
    node->next->previous = node;
    ++size_;
    const iterator added(node);
    if (texts_ != nullptr) {
        moveText(position, added);
    }
    return added;
}

[[gnu::hot]] void TzSoapValueList::append(TzSoapType&& value, TzBlocks& blocks) {
    void* const room = blocks.room(sizeof(TzSoapValueNode));
    add(end(), ::new (room) TzSoapValueNode(std::move(value), blocks.use(sizeof(TzSoapValueNode))));
}

TzSoapValueNode* TzSoapValueList::unlink(const_iterator position) noexcept {
    auto* const node = static_cast<TzSoapValueNode*>(position.link_);
    node->previous->next = node->next;
    node->next->previous = node->previous;
    --size_;
    return node;
}

TzSoapValueList::iterator TzSoapValueList::drop(const_iterator position) noexcept {
    TzSoapValueNode* const node = unlink(position);
    const iterator next(node->next);
    release(node);
    return next;
}

[[gnu::hot]] void TzSoapValueList::release(TzSoapValueNode* node) noexcept {
    TzBlocks::Block* const block = node->block;
    if (block == nullptr) {
        delete node;
    } else {
        node->~TzSoapValueNode();
        TzBlocks::leave(block, node, sizeof(TzSoapValueNode));
    }
}

void TzSoapValueList::copyTextOf(const TzSoapValueList& other) {
    if (!other.hasText()) {
        return;
    }
    auto place = begin();
    for (auto position = other.begin(); position != other.end(); ++position, ++place) {
        setTextBefore(place, other.textBefore(position));
    }
    setTextBefore(end(), other.textBefore(other.end()));
}

[[gnu::hot]] bool TzSoapValueList::hasText() const noexcept {
    return texts_ != nullptr && !texts_->empty();
}

void TzSoapValueList::clearText() noexcept { delete std::exchange(texts_, nullptr); }

const TzCString& TzSoapValueList::textBefore(const_iterator position) const noexcept {
    const TzCString& none = TzSoapAttributeSet::getEmptyString();
    if (texts_ == nullptr) {
        return none;
    }
    const auto found = texts_->find(keyOf(position));
    return found == texts_->end() ? none : found->second;
}

void TzSoapValueList::setTextBefore(const_iterator position, TzCString text) {
    if (!text.empty()) {
        if (texts_ == nullptr) {
            texts_ = new Texts();
        }
        (*texts_)[keyOf(position)] = std::move(text);
    } else if (texts_ != nullptr) {
        texts_->erase(keyOf(position));
    }
}

void TzSoapValueList::moveText(const_iterator from, const_iterator to) noexcept {
    Texts::node_type text = texts_->extract(keyOf(from));
    if (!text.empty()) {
        text.key() = keyOf(to);
        texts_->insert(std::move(text));
    }
}

void TzSoapValueList::joinText(const_iterator removed) {
    const auto text = texts_->find(keyOf(removed));
    if (text == texts_->end()) {
        return;
    }
    // White space sets the value off only.
    if (TzXmlUtils::trim(text->second).empty()) {
        texts_->erase(text);
        return;
    }
    const auto next = texts_->find(keyOf(std::next(removed)));
    if (next == texts_->end()) {
        moveText(removed, std::next(removed));
    } else {
        text->second += next->second;
        next->second = std::move(text->second);
        texts_->erase(text);
    }
}

void TzSoapValueList::eraseText(const_iterator position) noexcept {
    texts_->erase(keyOf(position));
}

TzSoapValueList::iterator TzSoapValueList::find(const TzXmlName& name) {
    return std::find_if(begin(), end(), Named{name});
}

TzSoapValueList::const_iterator TzSoapValueList::find(const TzXmlName& name) const {
    return std::find_if(begin(), end(), Named{name});
}

void TzSoapValueList::remove(const TzXmlName& name) {
    const auto found = find(name);
    if (found != end()) {
        remove(found);
    }
}

void TzSoapValueList::removeAll(const TzXmlName& name) {
    // They live until all are found, because the name may belong to one of them.
    TzSoapValueList removed;
    for (auto position = begin(); position != end();) {
        const auto next = std::next(position);
        if (position->getName() == name) {
            if (texts_ != nullptr) {
                joinText(position);
            }
            removed.add(removed.end(), unlink(position));
        }
        position = next;
    }
}

TzSoapValueList TzSoapValueList::copyValues() const {
    TzSoapValueList copies;
    for (const TzSoapType& value : *this) {
        copies.append(value.copy());
    }
    copies.copyTextOf(*this);
    return copies;
}

bool TzSoapValueList::sharesValues(const TzSoapValueList& other) const noexcept {
    return std::equal(begin(), end(), other.begin(), other.end(),
                      &TzSoapAccess::sameBody<TzSoapType>);
}
