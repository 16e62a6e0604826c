// SPDX-License-Identifier: MIT
#include "xml/TzXmlNameResolver.h"

#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlUtils.h>

#include <utility>

namespace {

/// Prefixes out of scope are remembered up to this many; messages repeat their declarations.
constexpr std::size_t RememberedPrefixes = 64;

bool isReserved(std::string_view prefix) noexcept {
    // Called for every prefix; the first two characters exclude nearly all of them.
    return prefix.size() >= 3 && prefix[0] == 'x' && prefix[1] == 'm' &&
           (prefix == "xml" || prefix == "xmlns");
}

/// `spelling` split at its first colon, unless what follows the colon is not a name: then the colon
/// is a part of the local name.
TzTextTools::SplitName splitSpelling(std::string_view spelling) noexcept {
    const TzTextTools::SplitName split = TzTextTools::splitName(spelling);
    const std::string_view rest = split.localName;
    const bool separates = !rest.empty() && (!split.prefix.empty() ||
                                             (rest.front() != ':' && TzXmlUtils::isName(rest)));
    return split.hasColon && separates ? split : TzTextTools::SplitName{{}, spelling, false};
}

} // namespace

TzXmlNameResolver::TzXmlNameResolver() {
    constexpr std::size_t UsualDeclarations = 8;
    changes_.reserve(UsualDeclarations);
}

std::size_t TzXmlNameResolver::declare(std::string_view prefix, std::string_view uri) {
    if (isReserved(prefix)) {
        return 0;
    }
    auto found = bindings_.find(prefix);
    const bool isBound = found != bindings_.end() && found->second.depth > 0;
    if (isBound ? found->second.current.getUri() == uri : uri.empty()) {
        return 0;
    }
    if (found == bindings_.end()) {
        found = bindings_.emplace(prefix, Binding()).first;
    }
    Binding& binding = found->second;
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

void TzXmlNameResolver::resolveAnew(TzXmlNameCache& cache, Kind kind, const TzXmlNameText& spelling,
                                    TzXmlName& name, std::uint64_t& stamp) {
    const Parts parts = spellOut(kind, spelling.text());
    if (!TzXmlSpellingText::accepts(spelling)) {
        name = maker_.make(parts.localName, parts.nameSpace);
        stamp = 0;
        return;
    }
    TzXmlNameCache::Entry* entry = &cache.place(spelling);
    if (!entry->spelling.is(spelling)) {
        entry = &cache.take(spelling);
    }
    if (entry->stamp == 0 || entry->name.getNamespace() != parts.nameSpace) {
        entry->name = maker_.make(parts.localName, parts.nameSpace);
        entry->stamp = ++latestStamp_;
    }
    entry->scope = scope_;
    name = entry->name;
    stamp = entry->stamp;
}

TzXmlNameResolver::Parts TzXmlNameResolver::spellOut(Kind kind, std::string_view spelling) {
    const bool isAttribute = kind == Kind::Attribute;
    if (isAttribute && spelling == "xmlns") {
        return {{}, TzXmlNamespace::getXmlns()};
    }
    const TzTextTools::SplitName name = splitSpelling(spelling);
    return {name.localName, isAttribute && name.prefix.empty() ? TzXmlNamespace::getEmptyNamespace()
                                                               : bound(name.prefix)};
}

const TzXmlNamespace& TzXmlNameResolver::bound(std::string_view prefix) {
    if (isReserved(prefix)) {
        return prefix == "xml" ? TzXmlNamespace::getXml() : TzXmlNamespace::getXmlns();
    }
    if (const TzXmlNamespace* declared = find(prefix)) {
        return *declared;
    }
    unbound_ = TzXmlNamespace(prefix, {});
    return unbound_;
}

const TzXmlNamespace* TzXmlNameResolver::find(std::string_view prefix) const noexcept {
    const auto found = bindings_.find(prefix);
    return found != bindings_.end() && found->second.depth > 0 ? &found->second.current : nullptr;
}
