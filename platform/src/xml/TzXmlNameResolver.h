// SPDX-License-Identifier: MIT
#pragma once

#include "TzXmlNameCache.h"

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
class TzXmlNameResolver {
public:
    /// Declares a namespace for what follows. The number of declarations to undo later: 0 or 1.
    std::size_t declare(std::string_view prefix, std::string_view uri);
    /// Undoes the latest `count` declarations.
    void undo(std::size_t count) noexcept;

    /// Makes `name` the name of the element spelt `spelling`: without prefix in the default
    /// namespace.
    void resolveElement(std::string_view spelling, TzXmlName& name) {
        resolve(Kind::Element, elements_, spelling, name);
    }
    /// Makes `name` the name of the attribute spelt `spelling`: without prefix in no namespace.
    void resolveAttribute(std::string_view spelling, TzXmlName& name) {
        resolve(Kind::Attribute, attributes_, spelling, name);
    }

private:
    /// What a prefix stands for.
    struct Binding {
        TzXmlNamespace current; // of the prefix and an empty URI where it is not bound
        TzXmlNamespace former;  // the latest one undone, for a declaration that is repeated
        std::size_t depth = 0;  // declarations in force, shadowed ones included
    };
    using Bindings = std::map<TzCString, Binding, std::less<>>;
    /// How to take back one declaration.
    struct Change {
        Bindings::iterator binding;
        TzXmlNamespace previous;
        std::uint64_t previousScope;
    };
    enum class Kind { Element, Attribute };

    void resolve(Kind kind, TzXmlNameCache& cache, std::string_view spelling, TzXmlName& name) {
        const TzXmlNameCache::Entry* entry = cache.place(spelling);
        if (entry != nullptr && entry->scope == scope_ && entry->holds(spelling)) {
            name = entry->name;
        } else {
            resolveAnew(kind, cache, spelling, name);
        }
    }
    void resolveAnew(Kind kind, TzXmlNameCache& cache, std::string_view spelling, TzXmlName& name);
    void spellOut(Kind kind, std::string_view spelling, TzXmlName& name);
    const TzXmlNamespace& bound(std::string_view prefix);

    Bindings bindings_;
    std::vector<Change> changes_;
    std::uint64_t scope_ = 1; // a number for each state of the bindings
    std::uint64_t latestScope_ = 1;
    TzXmlNamespace unbound_;
    TzXmlNameCache elements_;
    TzXmlNameCache attributes_;
};
