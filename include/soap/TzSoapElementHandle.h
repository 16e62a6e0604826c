// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapElementImp.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <cstddef>

/// The operations on an element's name, attributes and namespaces that every element handle offers.
///
/// `Handle` is the class that derives from this one; each operation acts on the handle's body and
/// throws `TzTHRInvalidPointer` "Invalid pointer" when there is none. Handles that share a body see
/// each other's changes. Holds no data. Threads: the rule of `Handle`.
template <typename Handle> class TzSoapElementHandle {
public:
    /// The element's name.
    const TzXmlName& getName() const { return constElement().getName(); }

    /// Adds the attribute `name`; one of that name takes the new value in place.
    void addAttribute(const TzXmlName& name, const TzCString& value) {
        element().addAttribute(name, value);
    }
    /// Adds an attribute; one of that name takes the new value in place.
    void addAttribute(const TzXmlAttribute& attribute) { element().addAttribute(attribute); }
    /// Number of attributes, namespace declarations included.
    std::size_t attributeCount() const { return constElement().attributeCount(); }
    /// The first attribute; positions are valid until the attributes change.
    TzXmlAttribute* attributesBegin() { return element().attributesBegin(); }
    /// The first attribute.
    const TzXmlAttribute* attributesBegin() const { return constElement().attributesBegin(); }
    /// Behind the last attribute.
    TzXmlAttribute* attributesEnd() { return element().attributesEnd(); }
    /// Behind the last attribute.
    const TzXmlAttribute* attributesEnd() const { return constElement().attributesEnd(); }
    /// Removes all attributes, declarations included.
    void clearAttributes() { element().clearAttributes(); }
    /// The attribute of that name, `attributesEnd()` if there is none.
    TzXmlAttribute* findAttribute(const TzXmlName& name) { return element().findAttribute(name); }
    /// The attribute of that name, `attributesEnd()` if there is none.
    const TzXmlAttribute* findAttribute(const TzXmlName& name) const {
        return constElement().findAttribute(name);
    }
    /// The attribute with that name and value, `attributesEnd()` if there is none.
    TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute) {
        return element().findAttribute(attribute);
    }
    /// The attribute with that name and value, `attributesEnd()` if there is none.
    const TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute) const {
        return constElement().findAttribute(attribute);
    }
    /// Whether there is an attribute of that name.
    bool hasAttribute(const TzXmlName& name) const { return constElement().hasAttribute(name); }
    /// Whether there is an attribute with that name and value.
    bool hasAttribute(const TzXmlAttribute& attribute) const {
        return constElement().hasAttribute(attribute);
    }
    /// Removes the attribute of that name, if any.
    void removeAttribute(const TzXmlName& name) { element().removeAttribute(name); }
    /// Removes the attribute with that name and value, if any.
    void removeAttribute(const TzXmlAttribute& attribute) { element().removeAttribute(attribute); }
    /// Removes the attribute at that position.
    void removeAttribute(TzXmlAttribute* position) { element().removeAttribute(position); }

    /// Declares the namespace `uri` under `prefix`; a prefix declared already takes the new URI.
    void addNamespaceAttribute(const TzCString& prefix, const TzCString& uri) {
        element().addNamespaceAttribute(TzXmlNamespace(prefix, uri));
    }
    /// Declares a namespace; a prefix declared already takes the new URI.
    void addNamespaceAttribute(const TzXmlNamespace& declared) {
        element().addNamespaceAttribute(declared);
    }
    /// The declaration of `prefix`, `attributesEnd()` if there is none.
    TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix) {
        return element().findNamespaceAttribute(prefix);
    }
    /// The declaration of `prefix`, `attributesEnd()` if there is none.
    const TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix) const {
        return constElement().findNamespaceAttribute(prefix);
    }
    /// Removes the declaration of `prefix`, if any.
    void removeNamespaceAttribute(const TzCString& prefix) {
        element().removeNamespaceAttribute(prefix);
    }
    /// Removes the declaration whose prefix and URI both equal, if any.
    void removeNamespaceAttribute(const TzXmlNamespace& declared) {
        element().removeNamespaceAttribute(declared);
    }
    /// Declares `uri` as the default namespace.
    void setDefaultNamespaceAttribute(const TzCString& uri) {
        element().setDefaultNamespaceAttribute(uri);
    }
    /// Declares the URI of `declared` as the default namespace.
    void setDefaultNamespaceAttribute(const TzXmlNamespace& declared) {
        element().setDefaultNamespaceAttribute(declared);
    }
    /// Removes the declaration of the default namespace, if any.
    void unsetDefaultNamespaceAttribute() { element().unsetDefaultNamespaceAttribute(); }
    /// The URI declared as the default namespace, "" when none is.
    TzCString getDefaultNamespaceAttribute() const {
        return constElement().getDefaultNamespaceAttribute();
    }

    /// The encodingStyle text, "" when absent.
    TzCString getEncodingStyleAttribute() const {
        return constElement().getEncodingStyleAttribute();
    }
    /// Replaces the encodingStyle text as a whole; "" means absent.
    void setEncodingStyle(const TzCString& style) { element().setEncodingStyle(style); }
    /// Whether there is an encodingStyle text.
    bool hasEncodingStyleAttribute() const { return constElement().hasEncodingStyleAttribute(); }
    /// Removes the encodingStyle text.
    void removeEncodingStyleAttribute() { element().removeEncodingStyleAttribute(); }
    /// The id, "" when absent.
    const TzCString& getIdAttribute() const { return constElement().getIdAttribute(); }
    /// Sets the id.
    void setIdAttribute(const TzCString& id) { element().setIdAttribute(id); }
    /// Removes the id.
    void removeIdAttribute() { element().removeIdAttribute(); }
    /// Root; false when not set.
    bool getRoot() const { return constElement().getRoot(); }
    /// "1" or "0", "" when root is not set.
    TzCString getRootAttribute() const { return constElement().getRootAttribute(); }
    /// Sets root.
    void setRoot(bool root) { element().setRoot(root); }
    /// Whether root is set.
    bool isRootAttributeSet() const { return constElement().isRootAttributeSet(); }
    /// Unsets root.
    void removeRootAttribute() { element().removeRootAttribute(); }
    /// The type, the empty name when absent.
    const TzXmlName& getType() const { return constElement().getTypeValue(); }
    /// The qualified name of the type, "" when absent.
    TzCString getTypeAttribute() const { return constElement().getTypeAttribute(); }
    /// Sets the type.
    void setTypeAttribute(const TzXmlName& type) { element().setTypeAttribute(type); }
    /// Removes the type.
    void removeTypeAttribute() { element().removeTypeAttribute(); }

protected:
    TzSoapElementHandle() = default;
    TzSoapElementHandle(const TzSoapElementHandle&) = default;
    TzSoapElementHandle& operator=(const TzSoapElementHandle&) = default;
    ~TzSoapElementHandle() = default;

private:
    TzSoapElementImp& element() const { return static_cast<const Handle&>(*this).elementBody(); }
    const TzSoapElementImp& constElement() const { return element(); }
};
