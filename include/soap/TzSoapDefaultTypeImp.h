// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapTypeImp.h>

#include <cstddef>

/// Body of a placeholder value: refuses every operation but its kind, its type value, nil and the
/// attribute list. A refusal is `TzXmlError` BAD_USAGE naming "TzSoapDefaultType". Only the
/// reference count is locked.
class TZSOAP_API TzSoapDefaultTypeImp : public TzSoapTypeImp {
public:
    /// A placeholder.
    TzSoapDefaultTypeImp();
    ~TzSoapDefaultTypeImp() override;

    /// The kind as text: "Default".
    static const TzCString DefaultString;

    /// "Default".
    const TzCString& getSoapTypeIdAsString() const override;

    /// @name Refused operations
    /// Each throws `TzXmlError` BAD_USAGE before it reads or changes anything.
    /// @{
    void setName(const TzXmlName&) override;
    TzXmlName& getName() override;
    const TzXmlName& getName() const override;
    void addNamespaceAttribute(const TzXmlNamespace&) override;
    TzXmlAttribute* findNamespaceAttribute(const TzXmlNamespace&) override;
    const TzXmlAttribute* findNamespaceAttribute(const TzXmlNamespace&) const override;
    TzXmlAttribute* findNamespaceAttribute(const TzCString&) override;
    const TzXmlAttribute* findNamespaceAttribute(const TzCString&) const override;
    void removeNamespaceAttribute(const TzCString&) override;
    void removeNamespaceAttribute(const TzXmlNamespace&) override;
    void setDefaultNamespaceAttribute(const TzCString&) override;
    void setDefaultNamespaceAttribute(const TzXmlNamespace&) override;
    void unsetDefaultNamespaceAttribute() override;
    TzCString getDefaultNamespaceAttribute() const override;
    const TzXmlAttribute* attributesBegin() const override;
    TzXmlAttribute* attributesBegin() override;
    const TzXmlAttribute* attributesEnd() const override;
    TzXmlAttribute* attributesEnd() override;
    std::size_t attributeCount() const override;
    void clearAttributes() override;
    void addAttribute(const TzXmlAttribute&) override;
    void addAttribute(const TzXmlName&, const TzCString&) override;
    void removeAttribute(TzXmlAttribute*) override;
    void removeAttribute(const TzXmlAttribute&) override;
    void removeAttribute(const TzXmlName&) override;
    TzXmlAttribute* findAttribute(const TzXmlAttribute&) override;
    const TzXmlAttribute* findAttribute(const TzXmlAttribute&) const override;
    TzXmlAttribute* findAttribute(const TzXmlName&) override;
    const TzXmlAttribute* findAttribute(const TzXmlName&) const override;
    bool hasAttribute(const TzXmlAttribute&) const override;
    bool hasAttribute(const TzXmlName&) const override;
    TzCString getEncodingStyleAttribute() const override;
    void setEncodingStyle(const TzCString&) override;
    bool hasEncodingStyleAttribute() const override;
    void removeEncodingStyleAttribute() override;
    const TzCString& getIdAttribute() const override;
    void setIdAttribute(const TzCString&) override;
    void removeIdAttribute() override;
    TzCString getRootAttribute() const override;
    bool getRoot() const override;
    void setRoot(bool) override;
    bool isRootAttributeSet() const override;
    void removeRootAttribute() override;
    TzCString getTypeAttribute() const override;
    void setTypeAttribute(const TzXmlName&) override;
    void removeTypeAttribute() override;
    const TzCString& getActorAttribute() const override;
    void setActor(const TzCString&) override;
    void removeActorAttribute() override;
    bool getMustUnderstand() const override;
    void setMustUnderstand(bool) override;
    void removeMustUnderstandAttribute() override;
    TzCString getMustUnderstandAttribute() const override;
    TzCString getMustUnderstandAttribute(TzSoapVersion::Version) const override;
    TzCString getOffsetAttribute() const override;
    void setOffsetAttribute(const TzCString&) override;
    void removeOffsetAttribute() override;
    TzSoapElementImp* clone() const override;
    void setEscapeText(TzSoapContentBase::EscapeText) override;
    TzSoapContentBase::EscapeText getEscapeText() const override;
    /// @}
};
