// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespace.h>

#include <string_view>
#include <utility>

/// A qualified name of XML: a local part and a namespace.
///
/// Equality and order look at URI and local part; the prefix is only how texts spell it. A value
/// type: one object belongs to one thread at a time.
class TZ_PLATFORM_API TzXmlName {
public:
    /// The empty name.
    TzXmlName() noexcept = default;
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    TzXmlName(std::string_view text);
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    TzXmlName(const TzCString& text) : TzXmlName(std::string_view(text)) {}
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    TzXmlName(const char* text) : TzXmlName(std::string_view(text)) {}
    /// The name `localName` in the namespace `nameSpace`.
    TzXmlName(std::string_view localName, TzXmlNamespace nameSpace)
        : localName_(localName), namespace_(std::move(nameSpace)) {}

    /// The local part, "" for the empty name.
    const TzCString& getLocalName() const noexcept { return localName_; }
    /// The prefix, "" for none.
    const TzCString& getPrefix() const noexcept { return namespace_.getPrefix(); }
    /// The namespace's URI, "" for none.
    const TzCString& getUri() const noexcept { return namespace_.getUri(); }
    /// The namespace.
    const TzXmlNamespace& getNamespace() const noexcept { return namespace_; }
    /// Replaces the local part.
    void setLocalName(std::string_view localName) { localName_ = localName; }
    /// Replaces the prefix, local part and URI stay.
    void setPrefix(std::string_view prefix) { namespace_.setPrefix(prefix); }
    /// Replaces prefix and URI, the local part stays.
    void setNamespace(const TzXmlNamespace& nameSpace) { namespace_ = nameSpace; }
    /// Whether there is no local part.
    bool isEmpty() const noexcept { return localName_.empty(); }

    /// Prefix, ":" and local part; the local part alone without prefix; "xmlns" for the declaration
    /// of the default namespace.
    TzCString getQualifiedName() const;
    /// Appends what `getQualifiedName` returns to `text`.
    void appendQualifiedName(TzCString& text) const;
    /// The same text as `getQualifiedName`.
    TzCString asString() const { return getQualifiedName(); }
    /// URI, ":" and local part; the local part alone without URI.
    TzCString getUniqueName() const;

    /// URI and local part equal, prefixes not compared.
    friend bool operator==(const TzXmlName& left, const TzXmlName& right) noexcept {
        return left.localName_ == right.localName_ && left.namespace_.sameUri(right.namespace_);
    }
    /// Order by URI, then by local part, byte by byte.
    friend bool operator<(const TzXmlName& left, const TzXmlName& right) noexcept {
        const int order = left.getUri().compare(right.getUri());
        return order < 0 || (order == 0 && left.localName_ < right.localName_);
    }

private:
    TzCString localName_;
    TzXmlNamespace namespace_;
};
