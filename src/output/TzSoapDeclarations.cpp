// SPDX-License-Identifier: MIT
#include "output/TzSoapDeclarations.h"

#include <cstring>
#include <utility>

namespace {

/// What stands before, in and after a declaration.
constexpr std::string_view Opening = " xmlns:";
constexpr std::string_view Middle = "=\"";
constexpr std::string_view Closing = "\"";

template <typename Word> Word load(const char* bytes) noexcept {
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

} // namespace

[[gnu::hot]] void TzSoapDeclarations::closeScope() noexcept {
    const Scope scope = scopes_.back();
    for (std::size_t i = entries_.size(); i > scope.entries && !index_.empty(); --i) {
        const auto known = index_.find((*this)[i - 1].prefix);
        if (entries_[i - 1].hidden == None) {
            index_.erase(known);
        } else {
            known->second = entries_[i - 1].hidden;
        }
    }
    entries_.shrink(scope.entries);
    texts_.shrink(scope.texts);
    scopes_.pop_back();
    if (entries_.size() < IndexedFrom) {
        index_.clear();
    }
}

void TzSoapDeclarations::add(std::string_view prefix, std::string_view uri) {
    const std::size_t known = find(prefix);
    if (known == None || known < innermost()) {
        return addNew(prefix, uri);
    }
    makeRoom(prefix, uri);
    put(entries_[known], prefix, uri);
    scopes_.back().isReplaced = true;
}

void TzSoapDeclarations::addNew(std::string_view prefix, std::string_view uri) {
    // Room comes first, so that nothing fails half-way.
    makeRoom(prefix, uri);
    entries_.push_back({headOf(prefix), 0, 0, 0, 0, None});
    put(entries_.back(), prefix, uri);
    if (entries_.size() >= IndexedFrom) {
        index();
    }
}

void TzSoapDeclarations::makeRoom(std::string_view prefix, std::string_view uri) {
    texts_.reserve(texts_.size() + Opening.size() + prefix.size() + Middle.size() + uri.size() +
                   Closing.size());
}

void TzSoapDeclarations::put(Entry& entry, std::string_view prefix, std::string_view uri) {
    // There is no colon before an empty prefix.
    const std::string_view opening = Opening.substr(0, Opening.size() - (prefix.empty() ? 1 : 0));
    const std::size_t begin = texts_.size();
    entry.at = begin + opening.size();
    entry.prefix = prefix.size();
    entry.uriAt = prefix.size() + Middle.size();
    entry.uri = uri.size();
    char* to = texts_.extend(opening.size() + entry.uriAt + uri.size() + Closing.size());
    to += opening.copy(to, opening.size());
    to += prefix.copy(to, prefix.size());
    to += Middle.copy(to, Middle.size());
    to += uri.copy(to, uri.size());
    Closing.copy(to, Closing.size());
}

std::uint64_t TzSoapDeclarations::headOf(std::string_view text) noexcept {
    const std::size_t size = text.size();
    const char* const bytes = text.data();
    if (size >= 8) {
        return load<std::uint64_t>(bytes);
    }
    if (size >= 4) {
        return load<std::uint32_t>(bytes) | std::uint64_t{load<std::uint32_t>(bytes + size - 4)}
                                                << 32U;
    }
    const auto byteAt = [bytes](std::size_t at) {
        return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[at]));
    };
    return size == 0 ? 0 : byteAt(0) | byteAt(size / 2) << 8U | byteAt(size - 1) << 16U;
}

bool TzSoapDeclarations::isPrefix(const Entry& entry, std::uint64_t head,
                                  std::string_view prefix) const noexcept {
    return entry.head == head && entry.prefix == prefix.size() &&
           (prefix.size() <= sizeof head ||
            std::memcmp(texts_.begin() + entry.at, prefix.data(), prefix.size()) == 0);
}

[[gnu::hot]] std::size_t TzSoapDeclarations::find(std::string_view prefix) const noexcept {
    if (!index_.empty()) {
        const auto found = index_.find(prefix);
        return found == index_.end() ? None : found->second;
    }
    const std::uint64_t head = headOf(prefix);
    std::size_t position = entries_.size();
    while (position > 0 && !isPrefix(entries_[position - 1], head, prefix)) {
        --position;
    }
    return position - 1; // None before the first one
}

void TzSoapDeclarations::index() {
    // Out of this object meanwhile: if finishing it throws, there is no index.
    Index index;
    index.swap(index_);
    for (std::size_t i = index.empty() ? 0 : entries_.size() - 1; i < entries_.size(); ++i) {
        hide(i, index);
    }
    index_.swap(index);
}

void TzSoapDeclarations::hide(std::size_t position, Index& index) {
    const auto [known, isNew] = index.try_emplace(TzCString((*this)[position].prefix), position);
    entries_[position].hidden = isNew ? None : std::exchange(known->second, position);
}
