// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzPointerArgument.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlText.h>

#include <cstddef>

class TzSoapElementImp;

/// The operations on an element's name, attributes and namespaces that every element handle offers.
///
/// `Handle` is the class that derives from this one; each operation acts on the handle's body and
/// throws `TzTHRInvalidPointer` "Invalid pointer" without one. Handles that share a body see
/// each other's changes. Operations that take a text take a `std::string_view` and a `const char*`
/// as well; a null pointer is a `TzXmlBadArgError`. Holds no data. Threads: the rule of `Handle`.
template <typename Handle> class TZSOAP_API TzSoapElementHandle {
public:
    /// The element's name.
    const TzXmlName& getName() const;

    /// Adds the attribute `name`; one of that name takes the new value in place.
    void addAttribute(const TzXmlName& name, const TzCString& value);
    /// Adds the attribute `name`; one of that name takes the new value in place.
    void addAttribute(const TzXmlName& name, TzXmlText auto value) {
        addAttribute(name, tzXmlText(value));
    }
    /// Adds an attribute; one of that name takes the new value in place.
    void addAttribute(const TzXmlAttribute& attribute);
    /// Number of attributes, namespace declarations included.
    std::size_t attributeCount() const;
    /// The first attribute; positions are valid until the attributes change.
    TzXmlAttribute* attributesBegin();
    /// The first attribute.
    const TzXmlAttribute* attributesBegin() const;
    /// One past the last attribute.
    TzXmlAttribute* attributesEnd();
    /// One past the last attribute.
    const TzXmlAttribute* attributesEnd() const;
    /// Removes all attributes, declarations included.
    void clearAttributes();
    /// The attribute of that name, `attributesEnd()` if absent.
    TzXmlAttribute* findAttribute(const TzXmlName& name);
    /// The attribute of that name, `attributesEnd()` if absent.
    const TzXmlAttribute* findAttribute(const TzXmlName& name) const;
    /// The attribute with that name and value, `attributesEnd()` if absent.
    TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute);
    /// The attribute with that name and value, `attributesEnd()` if absent.
    const TzXmlAttribute* findAttribute(const TzXmlAttribute& attribute) const;
    /// Whether there is an attribute of that name.
    bool hasAttribute(const TzXmlName& name) const;
    /// Whether there is an attribute with that name and value.
    bool hasAttribute(const TzXmlAttribute& attribute) const;
    /// Removes the attribute of that name, if any.
    void removeAttribute(const TzXmlName& name);
    /// Removes the attribute with that name and value, if any.
    void removeAttribute(const TzXmlAttribute& attribute);
    /// Removes the attribute at that position.
    void removeAttribute(TzXmlAttribute* position);

    /// Declares the namespace `uri` under `prefix`; a prefix declared already takes the new URI.
    void addNamespaceAttribute(const TzCString& prefix, const TzCString& uri);
    /// Declares the namespace `uri` under `prefix`; a prefix declared already takes the new URI.
    void addNamespaceAttribute(TzXmlText auto prefix, TzXmlText auto uri) {
        addNamespaceAttribute(tzXmlText(prefix), tzXmlText(uri));
    }
    /// Declares a namespace; a prefix declared already takes the new URI.
    void addNamespaceAttribute(const TzXmlNamespace& declared);
    /// The declaration of `prefix`, `attributesEnd()` if absent.
    TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix);
    /// The declaration of `prefix`, `attributesEnd()` if absent.
    const TzXmlAttribute* findNamespaceAttribute(const TzCString& prefix) const;
    /// The declaration of `prefix`, `attributesEnd()` if absent.
    TzXmlAttribute* findNamespaceAttribute(TzXmlText auto prefix) {
        return findNamespaceAttribute(tzXmlText(prefix));
    }
    /// The declaration of `prefix`, `attributesEnd()` if absent.
    const TzXmlAttribute* findNamespaceAttribute(TzXmlText auto prefix) const {
        return findNamespaceAttribute(tzXmlText(prefix));
    }
    /// Removes the declaration of `prefix`, if any.
    void removeNamespaceAttribute(const TzCString& prefix);
    /// Removes the declaration of `prefix`, if any.
    void removeNamespaceAttribute(TzXmlText auto prefix) {
        removeNamespaceAttribute(tzXmlText(prefix));
    }
    /// Removes the declaration whose prefix and URI both equal, if any.
    void removeNamespaceAttribute(const TzXmlNamespace& declared);
    /// Declares `uri` as the default namespace.
    void setDefaultNamespaceAttribute(const TzCString& uri);
    /// Declares `uri` as the default namespace.
    void setDefaultNamespaceAttribute(TzXmlText auto uri) {
        setDefaultNamespaceAttribute(tzXmlText(uri));
    }
    /// Declares the URI of `declared` as the default namespace.
    void setDefaultNamespaceAttribute(const TzXmlNamespace& declared);
    /// Removes the declaration of the default namespace, if any.
    void unsetDefaultNamespaceAttribute();
    /// The URI declared as the default namespace, "" when none is.
    TzCString getDefaultNamespaceAttribute() const;

    /// The encodingStyle text, "" when absent.
    TzCString getEncodingStyleAttribute() const;
    /// Replaces the encodingStyle text as a whole; "" means absent.
    void setEncodingStyle(const TzCString& style);
    /// Replaces the encodingStyle text as a whole; "" means absent.
    void setEncodingStyle(TzXmlText auto style) { setEncodingStyle(tzXmlText(style)); }
    /// Whether there is an encodingStyle text.
    bool hasEncodingStyleAttribute() const;
    /// Removes the encodingStyle text.
    void removeEncodingStyleAttribute();
    /// The id, "" when absent.
    const TzCString& getIdAttribute() const;
    /// Sets the id.
    void setIdAttribute(const TzCString& id);
    /// Sets the id.
    void setIdAttribute(TzXmlText auto id) { setIdAttribute(tzXmlText(id)); }
    /// Removes the id.
    void removeIdAttribute();
    /// Root; false when not set.
    bool getRoot() const;
    /// "1" or "0", "" when root is not set.
    TzCString getRootAttribute() const;
    /// Sets root.
    void setRoot(bool root);
    /// A pointer, even to the text "0", would be taken for true.
    void setRoot(TzPointerArgument auto root) = delete;
    /// Whether root is set.
    bool isRootAttributeSet() const;
    /// Unsets root.
    void removeRootAttribute();
    /// The type, the empty name when absent.
    const TzXmlName& getType() const;
    /// The qualified name of the type, "" when absent.
    TzCString getTypeAttribute() const;
    /// Sets the type.
    void setTypeAttribute(const TzXmlName& type);
    /// Removes the type.
    void removeTypeAttribute();

protected:
    TzSoapElementHandle() = default;
    TzSoapElementHandle(const TzSoapElementHandle&) = default;
    TzSoapElementHandle& operator=(const TzSoapElementHandle&) = default;
    ~TzSoapElementHandle() = default;

private:
    TzSoapElementImp& element() const;
    const TzSoapElementImp& constElement() const { return element(); }
};
