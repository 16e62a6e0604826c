// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlNameCache.h"
#include "xml/TzXmlNameText.h"

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

/// Finds the namespaces of the names of a document while its elements open and close; then of the
/// next document.
///
/// All names under one declaration share its record. The cost of a declaration or of a new name is
/// logarithmic in the number of prefixes in scope, whatever the prefixes are; a name met before
/// under the same declarations, in this document or an earlier one, costs one comparison of its
/// text.
///
/// The caller owns the place for a name and the stamp beside it (0 at first) and uses them again
/// and again, with this resolver only: a place that holds the name already is left unchanged.
class TzXmlNameResolver {
public:
    TzXmlNameResolver();

    /// Declares a namespace for what follows. The number of declarations to undo later: 0 or 1.
    std::size_t declare(std::string_view prefix, std::string_view uri);
    /// Undoes the latest `count` declarations.
    void undo(std::size_t count) noexcept;
    /// Undoes all declarations; another document may follow.
    void endDocument() noexcept;

    /// The namespace that a declaration in force gives `prefix`, null without one.
    const TzXmlNamespace* find(std::string_view prefix) const noexcept;
    /// The number of the bindings in force, from 1 in each document: different for different ones.
    std::uint64_t scope() const noexcept { return scope_; }
    /// The number of what the bindings in force say: a declaration that is repeated leads to the
    /// same number again, in another document, too.
    std::uint64_t state() const noexcept { return state_; }
    /// Bytes of memory that it holds at most, its own size left out. Only grows: what was made is
    /// counted, because the names of a document may live on and hold what they share.
    std::size_t bytes() const noexcept;

    /// Makes `name` the name of the element spelt `spelling`: without prefix in the default
    /// namespace.
    void resolveElement(std::string_view spelling, TzXmlName& name, std::uint64_t& stamp) {
        resolve(elements_, Kind::Element, spelling, name, stamp);
    }
    /// Makes `name` the name of the attribute spelt `spelling`: without prefix in no namespace.
    void resolveAttribute(std::string_view spelling, TzXmlName& name, std::uint64_t& stamp) {
        resolve(attributes_, Kind::Attribute, spelling, name, stamp);
    }

private:
    /// A namespace that a prefix once stood for, and how its declaration changed the state.
    struct Meaning {
        TzXmlNamespace nameSpace;
        std::uint64_t before = 0; // 0: none
        std::uint64_t after = 0;
    };
    /// What a prefix stands for. Its latest meanings are for declarations that are repeated, as
    /// they are from document to document: names that are known under a state are known again.
    struct Binding {
        TzXmlNamespace current;
        std::size_t depth = 0; // declarations in force, shadowed ones included; 0: not bound
        std::array<Meaning, 4> meanings;
        std::size_t nextMeaning = 0;
    };
    using Bindings = std::map<TzCString, Binding, std::less<>>;
    /// How to take back one declaration.
    struct Change {
        Bindings::iterator binding;
        TzXmlNamespace previous;
        std::uint64_t previousState;
        std::uint64_t previousScope;
    };
    enum class Kind { Element, Attribute };
    /// A name that is not made yet.
    struct Parts {
        std::string_view localName;
        const TzXmlNamespace& nameSpace;
    };

    void resolve(TzXmlNameCache& cache, Kind kind, std::string_view text, TzXmlName& name,
                 std::uint64_t& stamp) {
        const TzXmlNameText spelling(text);
        const TzXmlNameCache::Entry* const entry = cache.find(spelling);
        if (entry == nullptr || entry->state != state_) {
            resolveAnew(cache, kind, spelling, name, stamp);
        } else if (entry->stamp != stamp) {
            name = entry->name;
            stamp = entry->stamp;
        }
    }
    void resolveAnew(TzXmlNameCache& cache, Kind kind, const TzXmlNameText& spelling,
                     TzXmlName& name, std::uint64_t& stamp);
    Parts spellOut(Kind kind, std::string_view spelling);
    const TzXmlNamespace& bound(std::string_view prefix);
    const Meaning& mean(Binding& binding, std::string_view prefix, std::string_view uri);
    TzXmlNamespace makeNamespace(std::string_view prefix, std::string_view uri);
    TzXmlName makeName(const Parts& parts);

    Bindings bindings_;
    std::vector<Change> changes_;
    // Never used for another state.
    std::uint64_t state_ = 1;
    std::uint64_t latestState_ = 1;
    std::uint64_t scope_ = 1;
    std::uint64_t latestScope_ = 1;
    std::uint64_t latestStamp_ = 0;
    TzXmlNamespace unbound_;
    TzXmlNameMaker maker_;
    TzXmlNameCache elements_;
    TzXmlNameCache attributes_;
    std::size_t bytes_ = 0; // of bindings, namespaces and the texts of names
};
