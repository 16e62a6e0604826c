// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlNamespaceStack.h>

#include <algorithm>

namespace {

/// Fewer declarations than this are searched one by one.
constexpr std::size_t IndexedFrom = 32;

constexpr std::size_t None = static_cast<std::size_t>(-1);

} // namespace

void TzXmlNamespaceStack::pushScope() { scopes_.push_back(declarations_.size()); }

void TzXmlNamespaceStack::popScope() noexcept {
    if (scopes_.empty()) {
        return;
    }
    const std::size_t from = scopes_.back();
    forgetPositions(from);
    declarations_.erase(declarations_.begin() + static_cast<std::ptrdiff_t>(from),
                        declarations_.end());
    scopes_.pop_back();
}

void TzXmlNamespaceStack::add(const TzXmlNamespace& declared) {
    if (scopes_.empty()) {
        pushScope();
    }
    const std::size_t known = search(declared.getPrefix());
    if (known != None && known >= scopes_.back()) {
        declarations_[known] = declared;
        return;
    }
    declarations_.push_back(declared);
    if (declarations_.size() >= IndexedFrom) {
        index();
    }
}

const TzCString& TzXmlNamespaceStack::getURIForPrefix(std::string_view prefix) const noexcept {
    const TzXmlNamespace* found = find(prefix);
    return (found != nullptr ? *found : TzXmlNamespace::getEmptyNamespace()).getUri();
}

const TzXmlNamespace* TzXmlNamespaceStack::find(std::string_view prefix) const noexcept {
    const std::size_t position = search(prefix);
    return position == None ? nullptr : &declarations_[position];
}

TzXmlNamespaceStack::const_iterator TzXmlNamespaceStack::begin() const noexcept {
    const std::size_t from = scopes_.empty() ? 0 : scopes_.back();
    return declarations_.begin() + static_cast<std::ptrdiff_t>(from);
}

std::size_t TzXmlNamespaceStack::search(std::string_view prefix) const noexcept {
    if (!positions_.empty()) {
        const auto found = positions_.find(prefix);
        return found == positions_.end() ? None : found->second.back();
    }
    const auto found =
        std::find_if(declarations_.rbegin(), declarations_.rend(),
                     [&](const TzXmlNamespace& each) { return each.getPrefix() == prefix; });
    // Before the first declaration: None.
    return static_cast<std::size_t>(declarations_.rend() - found) - 1;
}

void TzXmlNamespaceStack::index() {
    // The index is moved out meanwhile: if finishing it throws, the stack has no index.
    Positions positions;
    positions.swap(positions_);
    for (std::size_t i = positions.empty() ? 0 : declarations_.size() - 1; i < declarations_.size();
         ++i) {
        positions[declarations_[i].getPrefix()].push_back(i);
    }
    positions_.swap(positions);
}

void TzXmlNamespaceStack::forgetPositions(std::size_t from) noexcept {
    if (from < IndexedFrom) {
        positions_.clear();
        return;
    }
    for (std::size_t i = from; i < declarations_.size() && !positions_.empty(); ++i) {
        const auto found = positions_.find(declarations_[i].getPrefix());
        found->second.pop_back();
        if (found->second.empty()) {
            positions_.erase(found);
        }
    }
}
