// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <string_view>
#include <utility>

class TzXmlAttributeIndex;

/// An attribute: a name and a text value.
///
/// A namespace declaration is an attribute in the namespace `TzXmlNamespace::getXmlns()` whose
/// local part is the declared prefix (empty for the default namespace) and whose value is the URI.
class TZ_PLATFORM_API TzXmlAttribute {
public:
    /// A value that attributes share: a long text that many of them have takes its memory once.
    using SharedValue = TzSharedRecord<TzCString>;

    /// An attribute without name and value.
    TzXmlAttribute() noexcept = default;
    /// The attribute `name` with `value`.
    TzXmlAttribute(TzXmlName name, TzCString value)
        : name_(std::move(name)), value_(std::move(value)) {}
    // An attribute that is assigned or moved from takes another name, of which its list hears.
    TzXmlAttribute(const TzXmlAttribute& other)
        : name_(other.name_), value_(other.value_), shared_(other.shared_) {}
    TzXmlAttribute(TzXmlAttribute&& other) noexcept
        : name_(std::move(other.getName())), value_(std::move(other.value_)),
          shared_(std::move(other.shared_)) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): each of the members handles it
    TzXmlAttribute& operator=(const TzXmlAttribute& other) {
        value_ = other.value_;
        shared_ = other.shared_;
        getName() = other.name_;
        return *this;
    }
    TzXmlAttribute& operator=(TzXmlAttribute&& other) noexcept {
        value_ = std::move(other.value_);
        shared_ = std::move(other.shared_);
        getName() = std::move(other.getName());
        return *this;
    }
    ~TzXmlAttribute() = default;

    /// The name.
    const TzXmlName& getName() const noexcept { return name_; }
    /// The name, to change it in place: look-ups in the attribute's list see that, unless the
    /// reference was kept over one of them.
    TzXmlName& getName() noexcept {
        if (index_ != nullptr) {
            reportRenaming();
        }
        return name_;
    }
    /// The value as text, not escaped.
    const TzCString& getValue() const noexcept { return shared_.isSet() ? *shared_ : value_; }
    /// Replaces the name.
    void setName(TzXmlName name) { getName() = std::move(name); }
    /// Replaces the value.
    void setValue(TzCString value) {
        value_ = std::move(value);
        shared_ = SharedValue();
    }
    /// Replaces the value by a copy of `value`, in the memory of the old one where it suffices.
    void assignValue(std::string_view value) {
        value_.assign(value);
        shared_ = SharedValue();
    }
    /// Empties the value; its memory is kept, and nothing of what it ever held is left there.
    void wipeValue() {
        value_.assign(value_.capacity(), '\0');
        value_.clear();
        shared_ = SharedValue();
    }
    /// Replaces the value by `value`, which others may share.
    void shareValue(SharedValue value) {
        shared_ = std::move(value);
        value_ = TzCString();
    }
    /// Whether this is a namespace declaration.
    bool isNamespaceDeclaration() const noexcept {
        return std::string_view(name_.getPrefix()) == TzXmlNamespace::XmlnsPrefix;
    }
    /// The namespace that a declaration declares: the local part as prefix, the value as URI.
    TzXmlNamespace declaredNamespace() const { return {name_.getLocalName(), getValue()}; }

    /// Name and value both equal.
    friend bool operator==(const TzXmlAttribute& left, const TzXmlAttribute& right) noexcept {
        return left.name_ == right.name_ && left.getValue() == right.getValue();
    }

private:
    friend class TzXmlAttributeIndex;

    void reportRenaming() const noexcept;

    TzXmlName name_;
    TzCString value_;
    SharedValue shared_;                   // replaces the other value where it is set
    TzXmlAttributeIndex* index_ = nullptr; // that of its list, if there is one; never copied
};
