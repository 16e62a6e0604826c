// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlUtils.h>

#include <optional>
#include <string_view>

/// The name of a member or an attribute as a program asks for it: a local name in any namespace, or
/// a local name and a namespace.
///
/// A parameter only: it refers to the texts that it was made from and does not outlive them. In
/// calls it is `"total"`, `{"total", "urn:orders"}`, or any text or `TzXmlName`.
class TzSoapMemberName {
public:
    /// `localName` in any namespace.
    TzSoapMemberName(std::string_view localName) noexcept : localName_(localName) {}
    /// `localName` in any namespace.
    TzSoapMemberName(const TzCString& localName) noexcept : localName_(localName) {}
    /// `localName` in any namespace; `TzXmlBadArgError` for a null pointer.
    TzSoapMemberName(const char* localName) : localName_(TzXmlUtils::requireText(localName)) {}
    /// `localName` in the namespace `uri`, "" for none.
    TzSoapMemberName(std::string_view localName, std::string_view uri) noexcept
        : localName_(localName), uri_(uri) {}
    /// `localName` in the namespace `uri`, "" for none; `TzXmlBadArgError` for a null pointer.
    TzSoapMemberName(const char* localName, const char* uri)
        : localName_(TzXmlUtils::requireText(localName)), uri_(TzXmlUtils::requireText(uri)) {}
    /// Local part and URI of `name`, whatever its prefix.
    TzSoapMemberName(const TzXmlName& name) noexcept
        : localName_(name.getLocalName()), uri_(name.getUri()) {}

    /// The local name.
    std::string_view getLocalName() const noexcept { return localName_; }
    /// The namespace's URI, empty for any namespace.
    const std::optional<std::string_view>& getUri() const noexcept { return uri_; }
    /// Whether `name` is meant: its local part and, unless any will do, its URI are equal.
    bool matches(const TzXmlName& name) const noexcept {
        return name.getLocalName() == localName_ && (!uri_ || name.getUri() == *uri_);
    }

private:
    std::string_view localName_;
    std::optional<std::string_view> uri_;
};
