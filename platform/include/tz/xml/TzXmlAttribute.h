// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <string_view>
#include <utility>

/// An attribute: a name and a text value.
///
/// A namespace declaration is an attribute in the namespace `TzXmlNamespace::getXmlns()` whose
/// local part is the declared prefix (empty for the default namespace) and whose value is the URI.
class TZ_PLATFORM_API TzXmlAttribute {
public:
    /// An attribute without name and value.
    TzXmlAttribute() noexcept = default;
    /// The attribute `name` with `value`.
    TzXmlAttribute(TzXmlName name, TzCString value)
        : name_(std::move(name)), value_(std::move(value)) {}

    /// The name.
    const TzXmlName& getName() const noexcept { return name_; }
    /// The name, to change it in place (its namespace and local part decide what the list finds).
    TzXmlName& getName() noexcept { return name_; }
    /// The value as text, not escaped.
    const TzCString& getValue() const noexcept { return value_; }
    /// Replaces the name.
    void setName(TzXmlName name) { name_ = std::move(name); }
    /// Replaces the value.
    void setValue(TzCString value) { value_ = std::move(value); }
    /// Replaces the value by a copy of `value`, in the memory of the old one where it suffices.
    void assignValue(std::string_view value) { value_.assign(value); }
    /// Whether this is a namespace declaration.
    bool isNamespaceDeclaration() const noexcept {
        return name_.getPrefix() == TzXmlNamespace::getXmlns().getPrefix();
    }
    /// The namespace that a declaration declares: the local part as prefix, the value as URI.
    TzXmlNamespace declaredNamespace() const { return {name_.getLocalName(), value_}; }

    /// Name and value both equal.
    friend bool operator==(const TzXmlAttribute& left, const TzXmlAttribute& right) noexcept {
        return left.name_ == right.name_ && left.value_ == right.value_;
    }

private:
    TzXmlName name_;
    TzCString value_;
};
