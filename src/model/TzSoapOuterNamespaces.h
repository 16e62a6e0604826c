// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlNamespaceStack.h>

#include <map>
#include <string_view>
#include <vector>

class TzXmlAttributeSet;
class TzXmlName;

/// Finds, while an element is read, the prefixes that its names and types use and that are declared
/// around it.
class TzSoapOuterNamespaces {
public:
    /// Prefixes and what they stand for around the element.
    using Used = std::map<TzCString, TzCString, std::less<>>;

    /// Opens a scope of `scopes` for what `attributes` declare; false, and nothing opened, when
    /// they declare nothing.
    static bool openScope(TzXmlNamespaceStack& scopes, const TzXmlAttributeSet& attributes);

    /// The element itself or one within it starts. O(attributes * log declarations).
    void open(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    /// It ends.
    void close();
    /// The prefixes used so far that no element within declares. One without namespace is not
    /// bound, but for the empty one, which stands for no namespace.
    const Used& used() const noexcept { return used_; }
    /// The same as declarations, in the order of the prefixes; those that are not bound are left
    /// out.
    std::vector<TzXmlNamespace> declarations() const;

    /// The prefix of `nameSpace` is used, in a text of the innermost element.
    void use(const TzXmlNamespace& nameSpace);

private:
    TzXmlNamespaceStack within_;
    std::vector<bool> declares_; // for each open element
    Used used_;
};
