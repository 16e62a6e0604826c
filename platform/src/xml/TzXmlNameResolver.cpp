// SPDX-License-Identifier: MIT
#include "TzXmlNameResolver.h"

namespace {

/// Prefixes out of scope are remembered up to this many; messages repeat their declarations.
constexpr std::size_t RememberedPrefixes = 64;

bool isReserved(std::string_view prefix) noexcept { return prefix == "xml" || prefix == "xmlns"; }

} // namespace

std::size_t TzXmlNameResolver::declare(std::string_view prefix, std::string_view uri) {
    if (isReserved(prefix)) {
        return 0;
    }
    auto found = bindings_.find(prefix);
    if (found == bindings_.end() && uri.empty()) {
        return 0;
    }
    if (found == bindings_.end()) {
        found = bindings_.emplace(prefix, Binding{TzXmlNamespace(prefix, {}), {}, 0}).first;
    }
    Binding& binding = found->second;
    if (binding.current.getUri() == uri) {
        return 0;
    }
    if (binding.former.getUri() != uri || uri.empty()) {
        binding.former = TzXmlNamespace(prefix, uri);
    }
    changes_.push_back({found, binding.current, scope_});
    binding.current = binding.former;
    ++binding.depth;
    scope_ = ++latestScope_;
    return 1;
}

void TzXmlNameResolver::undo(std::size_t count) noexcept {
    for (; count > 0; --count) {
        Change& change = changes_.back();
        Binding& binding = change.binding->second;
        binding.former = std::move(binding.current);
        binding.current = std::move(change.previous);
        scope_ = change.previousScope;
        if (--binding.depth == 0 && bindings_.size() > RememberedPrefixes) {
            bindings_.erase(change.binding);
        }
        changes_.pop_back();
    }
}

void TzXmlNameResolver::resolveAnew(Kind kind, TzXmlNameCache& cache, std::string_view spelling,
                                    TzXmlName& name) {
    TzXmlNameCache::Entry* entry = cache.place(spelling);
    if (entry == nullptr) {
        spellOut(kind, spelling, name);
        return;
    }
    if (!entry->holds(spelling) && !cache.take(*entry, spelling)) {
        entry = cache.place(spelling);
        cache.take(*entry, spelling);
    }
    spellOut(kind, spelling, entry->name);
    entry->scope = scope_;
    name = entry->name;
}

void TzXmlNameResolver::spellOut(Kind kind, std::string_view spelling, TzXmlName& name) {
    const bool isAttribute = kind == Kind::Attribute;
    if (isAttribute && spelling == "xmlns") {
        spelling = "xmlns:";
    }
    const std::size_t colon = spelling.find(':');
    const bool hasColon = colon != std::string_view::npos;
    const std::string_view prefix = spelling.substr(0, hasColon ? colon : 0);
    name.setLocalName(spelling.substr(hasColon ? colon + 1 : 0));
    name.setNamespace(isAttribute && prefix.empty() ? TzXmlNamespace::getEmptyNamespace()
                                                    : bound(prefix));
}

const TzXmlNamespace& TzXmlNameResolver::bound(std::string_view prefix) {
    if (prefix == "xmlns") {
        return TzXmlNamespace::getXmlns();
    }
    if (prefix == "xml") {
        return TzXmlNamespace::getXml();
    }
    const auto found = bindings_.find(prefix);
    if (found != bindings_.end()) {
        return found->second.current;
    }
    unbound_ = TzXmlNamespace(prefix, {});
    return unbound_;
}
