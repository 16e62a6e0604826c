// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespace.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

/// The namespace declarations in force, scope within scope.
///
/// Not locked: one stack is used by one thread at a time. Copies hold all scopes.
class TZ_PLATFORM_API TzXmlNamespaceStack {
public:
    /// Position of a declaration.
    using const_iterator = std::vector<TzXmlNamespace>::const_iterator;

    /// Opens a scope without declarations.
    void pushScope();
    /// Closes the innermost scope and forgets its declarations; nothing happens without a scope.
    void popScope() noexcept;
    /// Number of open scopes.
    std::size_t depth() const noexcept { return scopes_.size(); }

    /// Declares a namespace in the innermost scope (opening one if necessary); a prefix
    /// declared there already takes the new URI.
    void add(const TzXmlNamespace& declared);
    /// The URI bound to `prefix`, innermost scope first; "" when unbound. O(log declarations).
    const TzCString& getURIForPrefix(std::string_view prefix) const noexcept;
    /// The declaration of `prefix`, innermost scope first; null if absent; valid until the
    /// next change. O(log declarations).
    const TzXmlNamespace* find(std::string_view prefix) const noexcept;

    /// First declaration of the innermost scope, in order of addition.
    const_iterator begin() const noexcept;
    /// Position after the last declaration of the innermost scope, and of all.
    const_iterator end() const noexcept { return declarations_.end(); }

    /// The declarations of all scopes, outermost first, in order of addition; those that others
    /// hide, too.
    const std::vector<TzXmlNamespace>& all() const noexcept { return declarations_; }

private:
    using Positions = std::map<TzCString, std::vector<std::size_t>, std::less<>>;

    std::size_t search(std::string_view prefix) const noexcept;
    void index();
    void forgetPositions(std::size_t from) noexcept;

    std::vector<TzXmlNamespace> declarations_;
    std::vector<std::size_t> scopes_; // where each scope begins in declarations_
    Positions positions_; // of each prefix, rising; empty while there are few declarations
};
