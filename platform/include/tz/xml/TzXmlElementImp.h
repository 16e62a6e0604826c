// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <utility>

/// An element: a name and a list of attributes, namespace declarations among them.
///
/// There is one attribute list per element: its own, or the one that a derived class hands in. Not
/// locked: one element is used by one thread at a time.
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
    virtual ~TzXmlElementImp();

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
    bool isBare() const noexcept { return attributes_->empty(); }

protected:
    /// An element whose attribute list the derived class holds: it must call `useAttributes` in its
    /// constructor.
    TzXmlElementImp(TzXmlName name, std::nullptr_t) noexcept
        : name_(std::move(name)), attributes_(nullptr), ownsAttributes_(false) {}

    /// Makes `attributes`, a member of the derived class, the attribute list.
    void useAttributes(TzXmlAttributeSet& attributes) noexcept { attributes_ = &attributes; }

    /// Copies the name alone: for derived classes that copy their list themselves.
    void assignName(const TzXmlElementImp& other) { name_ = other.name_; }

private:
    TzXmlName name_;
    TzXmlAttributeSet* attributes_;
    bool ownsAttributes_; // false where a derived class holds the list
};
