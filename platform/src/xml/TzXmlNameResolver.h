// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlNameCache.h"
#include "xml/TzXmlNameText.h"

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

/// Finds the namespaces of the names of a document while its elements open and close.
///
/// All names under one declaration share its record. The cost of a declaration or of a new name is
/// logarithmic in the number of prefixes in scope, whatever the prefixes are; a name met before
/// under the same declarations costs one comparison of its text.
///
/// The caller owns the place for a name and the stamp beside it (0 at first) and uses them again
/// and again: a place that holds the name already is left unchanged.
class TzXmlNameResolver {
public:
    TzXmlNameResolver();

    /// Declares a namespace for what follows. The number of declarations to undo later: 0 or 1.
    std::size_t declare(std::string_view prefix, std::string_view uri);
    /// Undoes the latest `count` declarations.
    void undo(std::size_t count) noexcept;

    /// The namespace that a declaration in force gives `prefix`, null without one.
    const TzXmlNamespace* find(std::string_view prefix) const noexcept;
    /// The number of the bindings in force, from 1: different for different states.
    std::uint64_t scope() const noexcept { return scope_; }

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
    /// What a prefix stands for.
    struct Binding {
        TzXmlNamespace current;
        TzXmlNamespace former; // the latest one undone, for a declaration that is repeated
        std::size_t depth = 0; // declarations in force, shadowed ones included; 0: not bound
    };
    using Bindings = std::map<TzCString, Binding, std::less<>>;
    /// How to take back one declaration.
    struct Change {
        Bindings::iterator binding;
        TzXmlNamespace previous;
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
        const TzXmlNameCache::Entry& entry = cache.place(spelling);
        if (entry.scope != scope_ || !entry.spelling.is(spelling)) {
            resolveAnew(cache, kind, spelling, name, stamp);
        } else if (entry.stamp != stamp) {
            name = entry.name;
            stamp = entry.stamp;
        }
    }
    void resolveAnew(TzXmlNameCache& cache, Kind kind, const TzXmlNameText& spelling,
                     TzXmlName& name, std::uint64_t& stamp);
    Parts spellOut(Kind kind, std::string_view spelling);
    const TzXmlNamespace& bound(std::string_view prefix);

    Bindings bindings_;
    std::vector<Change> changes_;
    std::uint64_t scope_ = 1; // a number for each state of the bindings
    std::uint64_t latestScope_ = 1;
    std::uint64_t latestStamp_ = 0;
    TzXmlNamespace unbound_;
    TzXmlNameMaker maker_;
    TzXmlNameCache elements_;
    TzXmlNameCache attributes_;
};
