// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

/// An element: a name and a list of attributes, namespace declarations among them.
///
/// There is one attribute list per element, whose class a derived class may choose. Not locked: one
/// element is used by one thread at a time.
class TZ_PLATFORM_API TzXmlElementImp {
public:
    /// An element without name and attributes.
    TzXmlElementImp();
    /// An element named `name` without attributes.
    explicit TzXmlElementImp(TzXmlName name);
    /// Copies name and attributes.
    TzXmlElementImp(const TzXmlElementImp& other);
    /// Copies name and attributes.
    TzXmlElementImp& operator=(const TzXmlElementImp& other);
    virtual ~TzXmlElementImp() {
        if (!list().isBare()) {
            list().~TzXmlAttributeSet();
        }
    }

    /// Replaces the name.
    virtual void setName(const TzXmlName& name);
    /// The name.
    virtual TzXmlName& getName();
    /// The name.
    virtual const TzXmlName& getName() const;

    /// Declares a namespace; a prefix declared already takes the new URI.
    virtual void addNamespaceAttribute(const TzXmlNamespace& declared);
    /// The declaration with that prefix and URI, `attributesEnd()` if absent.
    virtual TzXmlAttribute* findNamespaceAttribute(const TzXmlNamespace& declared);
    /// The declaration with that prefix and URI, `attributesEnd()` if absent.
    virtual const TzXmlAttribute* findNamespaceAttribute(const TzXmlNamespace& declared) const;
    /// The declaration of `prefix` ("" is the default namespace), `attributesEnd()` if absent.
    virtual TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix);
    /// The declaration of `prefix` ("" is the default namespace), `attributesEnd()` if absent.
    virtual const TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix) const;
    /// Removes the declaration of `prefix`, if any.
    virtual void removeNamespaceAttribute(const TzCString& prefix);
    /// Removes the declaration whose prefix and URI both equal, if any.
    virtual void removeNamespaceAttribute(const TzXmlNamespace& declared);
    /// Declares `uri` as the default namespace.
    virtual void setDefaultNamespaceAttribute(const TzCString& uri);
    /// Declares the URI of `declared` as the default namespace.
    virtual void setDefaultNamespaceAttribute(const TzXmlNamespace& declared);
    /// Removes the declaration of the default namespace, if any.
    virtual void unsetDefaultNamespaceAttribute();
    /// The URI declared as the default namespace, "" if absent.
    virtual TzCString getDefaultNamespaceAttribute() const;

    /// The first attribute.
    virtual const TzXmlAttribute* attributesBegin() const;
    /// The first attribute.
    virtual TzXmlAttribute* attributesBegin();
    /// Position after the last attribute.
    virtual const TzXmlAttribute* attributesEnd() const;
    /// Position after the last attribute.
    virtual TzXmlAttribute* attributesEnd();
    /// Number of attributes, declarations included.
    virtual std::size_t attributeCount() const;
    /// Removes all attributes.
    virtual void clearAttributes();
    /// Adds an attribute; one of the same name takes the new value in place.
    virtual void addAttribute(const TzXmlAttribute& attribute);
    /// Adds the attribute `name`; one of the same name takes the new value in place.
    virtual void addAttribute(const TzXmlName& name, const TzCString& value);
    /// Removes the attribute at that position.
    virtual void removeAttribute(TzXmlAttribute* position);
    /// Removes the attribute with that name and value, if any.
    virtual void removeAttribute(const TzXmlAttribute& attribute);
    /// Removes the attribute of that name, if any.
    virtual void removeAttribute(const TzXmlName& name);
    /// The attribute with that name and value, `attributesEnd()` if absent.
    virtual TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute);
    /// The attribute with that name and value, `attributesEnd()` if absent.
    virtual const TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute) const;
    /// The attribute of that name, `attributesEnd()` if absent.
    virtual TzXmlAttribute* findAttribute(const TzXmlName& name);
    /// The attribute of that name, `attributesEnd()` if absent.
    virtual const TzXmlAttribute* findAttribute(const TzXmlName& name) const;
    /// Whether there is an attribute with that name and value.
    virtual bool hasAttribute(const TzXmlAttribute& attribute) const;
    /// Whether there is an attribute of that name.
    virtual bool hasAttribute(const TzXmlName& name) const;
    /// The attribute list.
    virtual TzXmlAttributeSet& getAttributes();
    /// The attribute list.
    virtual const TzXmlAttributeSet& getAttributes() const;
    /// Whether the list is empty. Not virtual, because it is the most frequent call.
    bool isBare() const noexcept { return list().empty(); }

protected:
    /// An element whose attribute list is of the class `Set`, which is derived from
    /// `TzXmlAttributeSet` and adds no data.
    template <typename Set> TzXmlElementImp(TzXmlName name, std::in_place_type_t<Set> /*unused*/);
    /// The same with a copy of `attributes`.
    template <typename Set> TzXmlElementImp(TzXmlName name, const Set& attributes);

    /// The attribute list, which is of the class `Set` because the constructor said so.
    template <typename Set> Set& listAs() noexcept { return static_cast<Set&>(list()); }
    /// The attribute list, which is of the class `Set` because the constructor said so.
    template <typename Set> const Set& listAs() const noexcept {
        return static_cast<const Set&>(list());
    }

private:
    template <typename Set, typename... Source> void makeList(const Source&... source) {
        static_assert(std::is_base_of_v<TzXmlAttributeSet, Set>);
        static_assert(sizeof(Set) == sizeof(TzXmlAttributeSet));
        ::new (static_cast<void*>(room_.data())) Set(source...);
    }
    TzXmlAttributeSet& list() noexcept {
        return *std::launder(reinterpret_cast<TzXmlAttributeSet*>(room_.data()));
    }
    const TzXmlAttributeSet& list() const noexcept {
        return *std::launder(reinterpret_cast<const TzXmlAttributeSet*>(room_.data()));
    }

    TzXmlName name_;
    // The list lies here whatever its class is, so that it takes no pointer to find it.
    alignas(TzXmlAttributeSet) std::array<std::byte, sizeof(TzXmlAttributeSet)> room_;
};

template <typename Set>
TzXmlElementImp::TzXmlElementImp(TzXmlName name, std::in_place_type_t<Set> /*unused*/)
    : name_(std::move(name)) {
    makeList<Set>();
}

template <typename Set>
TzXmlElementImp::TzXmlElementImp(TzXmlName name, const Set& attributes) : name_(std::move(name)) {
    makeList<Set>(attributes);
}
