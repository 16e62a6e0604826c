// SPDX-License-Identifier: MIT
#include "xml/TzXmlNameResolver.h"

#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlUtils.h>

#include <utility>

namespace {

/// Prefixes out of scope are remembered up to this many; messages repeat their declarations.
constexpr std::size_t RememberedPrefixes = 64;

/// Roughly what an allocator adds to a block of memory.
constexpr std::size_t BlockBytes = 16;

/// What a map adds to each of its values.
constexpr std::size_t NodeBytes = 4 * sizeof(void*) + BlockBytes;

/// Memory of a string beside its own size.
std::size_t bytesOf(const TzCString& text) noexcept {
    constexpr std::size_t Inside = 15;
    return text.capacity() > Inside ? text.capacity() + 1 + BlockBytes : 0;
}

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
        bytes_ += NodeBytes + sizeof(Bindings::value_type) + bytesOf(found->first);
    }
    Binding& binding = found->second;
    const Meaning& meaning = mean(binding, prefix, uri);
    changes_.push_back({found, binding.current, state_, scope_});
    binding.current = meaning.nameSpace;
    ++binding.depth;
    state_ = meaning.after;
    scope_ = ++latestScope_;
    return 1;
}

/// What `prefix` means when `uri` is declared for it now.
const TzXmlNameResolver::Meaning& TzXmlNameResolver::mean(Binding& binding, std::string_view prefix,
                                                          std::string_view uri) {
    const Meaning* like = nullptr; // from another state
    for (const Meaning& meaning : binding.meanings) {
        if (meaning.before != 0 && meaning.nameSpace.getUri() == uri) {
            if (meaning.before == state_) {
                return meaning;
            }
            like = &meaning;
        }
    }
    TzXmlNamespace nameSpace = like != nullptr ? like->nameSpace : makeNamespace(prefix, uri);
    Meaning& fresh = binding.meanings[binding.nextMeaning++ % binding.meanings.size()];
    fresh = {std::move(nameSpace), state_, ++latestState_};
    return fresh;
}

void TzXmlNameResolver::undo(std::size_t count) noexcept {
    for (; count > 0; --count) {
        Change& change = changes_.back();
        Binding& binding = change.binding->second;
        binding.current = std::move(change.previous);
        state_ = change.previousState;
        scope_ = change.previousScope;
        if (--binding.depth == 0 && bindings_.size() > RememberedPrefixes) {
            bindings_.erase(change.binding);
        }
        changes_.pop_back();
    }
}

void TzXmlNameResolver::endDocument() noexcept {
    undo(changes_.size());
    latestScope_ = scope_;
}

std::size_t TzXmlNameResolver::bytes() const noexcept {
    return bytes_ + changes_.capacity() * sizeof(Change) + maker_.bytes() + elements_.bytes() +
           attributes_.bytes();
}

void TzXmlNameResolver::resolveAnew(TzXmlNameCache& cache, Kind kind, const TzXmlNameText& spelling,
                                    TzXmlName& name, std::uint64_t& stamp) {
    const Parts parts = spellOut(kind, spelling.text());
    if (!TzXmlSpellingText::accepts(spelling)) {
        name = makeName(parts);
        stamp = 0;
        return;
    }
    TzXmlNameCache::Entry* entry = cache.find(spelling);
    if (entry == nullptr) {
        entry = &cache.take(spelling);
    }
    if (entry->stamp == 0 || entry->name.getNamespace() != parts.nameSpace) {
        entry->name = makeName(parts);
        entry->stamp = ++latestStamp_;
    }
    entry->state = state_;
    name = entry->name;
    stamp = entry->stamp;
}

TzXmlName TzXmlNameResolver::makeName(const Parts& parts) {
    TzXmlName name = maker_.make(parts.localName, parts.nameSpace);
    bytes_ += bytesOf(name.getLocalName()) + bytesOf(name.qualifiedText());
    return name;
}

TzXmlNamespace TzXmlNameResolver::makeNamespace(std::string_view prefix, std::string_view uri) {
    TzXmlNamespace nameSpace(prefix, uri);
    if (!nameSpace.isEmpty()) {
        // The record: two strings and a count.
        bytes_ += 3 * sizeof(TzCString) + BlockBytes + bytesOf(nameSpace.getPrefix()) +
                  bytesOf(nameSpace.getUri());
    }
    return nameSpace;
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
    unbound_ = makeNamespace(prefix, {});
    return unbound_;
}

const TzXmlNamespace* TzXmlNameResolver::find(std::string_view prefix) const noexcept {
    const auto found = bindings_.find(prefix);
    return found != bindings_.end() && found->second.depth > 0 ? &found->second.current : nullptr;
}
