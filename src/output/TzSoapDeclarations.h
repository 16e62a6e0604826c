// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "output/TzSoapInlineVector.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>

/// The namespace declarations in force at the end of the output, scope within scope.
///
/// Keeps all of them in one text, spelt as a tag spells them when nothing needs escaping. A
/// declaration therefore needs no allocation, and a tag copies the declarations of its element
/// together.
class TzSoapDeclarations {
public:
    /// One declaration; valid until the next change of the declarations.
    struct Declaration {
        std::string_view prefix;
        std::string_view uri;
    };

    /// Becomes a copy of `other`; both must hold fewer declarations than are searched by an index.
    void assign(const TzSoapDeclarations& other) {
        entries_.assign(other.entries_);
        scopes_.assign(other.scopes_);
        texts_.assign(other.texts_);
    }
    /// Opens a scope without declarations.
    void openScope() { scopes_.push_back({entries_.size(), texts_.size(), false}); }
    /// Closes the innermost scope, which must be there, and forgets its declarations.
    void closeScope() noexcept;
    /// Number of open scopes.
    std::size_t scopeCount() const noexcept { return scopes_.size(); }

    /// Declares `uri` in the innermost scope, which must be there; a prefix declared there already
    /// takes the new URI. Neither argument may refer to a text that this object returned.
    void add(std::string_view prefix, std::string_view uri);
    /// As `add`, for a prefix that is not declared in the innermost scope.
    void addNew(std::string_view prefix, std::string_view uri);
    /// The URI bound to `prefix`, innermost scope first; "" when unbound. Valid until the next
    /// change. O(log declarations).
    std::string_view uriFor(std::string_view prefix) const noexcept {
        const std::size_t position = find(prefix);
        return position == None ? std::string_view() : (*this)[position].uri;
    }

    /// Number of declarations of all scopes; those that others hide, too.
    std::size_t size() const noexcept { return entries_.size(); }
    /// Position of the first declaration of the innermost scope, which must be there.
    std::size_t innermost() const noexcept { return scopes_.back().entries; }
    /// The declaration at `position`, outermost first, in order of addition.
    Declaration operator[](std::size_t position) const noexcept {
        const Entry& entry = entries_[position];
        const char* const text = texts_.begin() + entry.at;
        return {{text, entry.prefix}, {text + entry.uriAt, entry.uri}};
    }
    /// The declarations of the innermost scope, which must be there, as attributes that are not
    /// escaped, each with a blank before it; "" when they do not stand together.
    std::string_view innermostText() const noexcept {
        const Scope& scope = scopes_.back();
        const std::size_t size = scope.isReplaced ? 0 : texts_.size() - scope.texts;
        return {texts_.begin() + scope.texts, size};
    }

private:
    /// Fewer declarations than this are searched one by one.
    static constexpr std::size_t IndexedFrom = 32;
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    /// What was there when a scope was opened.
    struct Scope {
        std::size_t entries;
        std::size_t texts;
        bool isReplaced; // whether one of its declarations took the place of another
    };
    struct Entry {
        std::uint64_t head; // of the prefix
        std::size_t at;     // where the prefix stands
        std::size_t prefix; // its size
        std::size_t uriAt;  // where the URI stands, from there
        std::size_t uri;    // its size
        std::size_t hidden; // the entry of that prefix around it, None without one or an index
    };
    /// The innermost entry of each prefix.
    using Index = std::map<TzCString, std::size_t, std::less<>>;

    // The first eight bytes of a text, or what tells a shorter one from others of its size: most
    // prefixes differ there or are no longer.
    static std::uint64_t headOf(std::string_view text) noexcept;
    bool isPrefix(const Entry& entry, std::uint64_t head, std::string_view prefix) const noexcept;
    std::size_t find(std::string_view prefix) const noexcept;
    void makeRoom(std::string_view prefix, std::string_view uri);
    void put(Entry& entry, std::string_view prefix, std::string_view uri);
    void index();
    void hide(std::size_t position, Index& index);

    TzSoapInlineVector<Entry, 8> entries_;
    TzSoapInlineVector<Scope, 8> scopes_;
    TzSoapInlineVector<char, 512> texts_;
    Index index_; // empty while there are few declarations
};
