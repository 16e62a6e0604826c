// SPDX-License-Identifier: MIT
#include <soap/TzSoapElementHandle.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapTypeImp.h>

// Defined here so that no header of a handle needs those of the bodies.

template <typename Handle> TzSoapElementImp& TzSoapElementHandle<Handle>::element() const {
    return static_cast<const Handle&>(*this).elementBody();
}

template <typename Handle> const TzXmlName& TzSoapElementHandle<Handle>::getName() const {
    return constElement().getName();
}

template <typename Handle>
void TzSoapElementHandle<Handle>::addAttribute(const TzXmlName& name, const TzCString& value) {
    element().addAttribute(name, value);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::addAttribute(const TzXmlAttribute& attribute) {
    element().addAttribute(attribute);
}

template <typename Handle> std::size_t TzSoapElementHandle<Handle>::attributeCount() const {
    return constElement().attributeCount();
}

template <typename Handle> TzXmlAttribute* TzSoapElementHandle<Handle>::attributesBegin() {
    return element().attributesBegin();
}

template <typename Handle>
const TzXmlAttribute* TzSoapElementHandle<Handle>::attributesBegin() const {
    return constElement().attributesBegin();
}

template <typename Handle> TzXmlAttribute* TzSoapElementHandle<Handle>::attributesEnd() {
    return element().attributesEnd();
}

template <typename Handle>
const TzXmlAttribute* TzSoapElementHandle<Handle>::attributesEnd() const {
    return constElement().attributesEnd();
}

template <typename Handle> void TzSoapElementHandle<Handle>::clearAttributes() {
    element().clearAttributes();
}

template <typename Handle>
TzXmlAttribute* TzSoapElementHandle<Handle>::findAttribute(const TzXmlName& name) {
    return element().findAttribute(name);
}

template <typename Handle>
const TzXmlAttribute* TzSoapElementHandle<Handle>::findAttribute(const TzXmlName& name) const {
    return constElement().findAttribute(name);
}

template <typename Handle>
TzXmlAttribute* TzSoapElementHandle<Handle>::findAttribute(const TzXmlAttribute& attribute) {
    return element().findAttribute(attribute);
}

template <typename Handle>
const TzXmlAttribute*
TzSoapElementHandle<Handle>::findAttribute(const TzXmlAttribute& attribute) const {
    return constElement().findAttribute(attribute);
}

template <typename Handle>
bool TzSoapElementHandle<Handle>::hasAttribute(const TzXmlName& name) const {
    return constElement().hasAttribute(name);
}

template <typename Handle>
bool TzSoapElementHandle<Handle>::hasAttribute(const TzXmlAttribute& attribute) const {
    return constElement().hasAttribute(attribute);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::removeAttribute(const TzXmlName& name) {
    element().removeAttribute(name);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::removeAttribute(const TzXmlAttribute& attribute) {
    element().removeAttribute(attribute);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::removeAttribute(TzXmlAttribute* position) {
    element().removeAttribute(position);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::addNamespaceAttribute(const TzCString& prefix,
                                                        const TzCString& uri) {
    element().addNamespaceAttribute(TzXmlNamespace(prefix, uri));
}

template <typename Handle>
void TzSoapElementHandle<Handle>::addNamespaceAttribute(const TzXmlNamespace& declared) {
    element().addNamespaceAttribute(declared);
}

template <typename Handle>
TzXmlAttribute* TzSoapElementHandle<Handle>::findNamespaceAttribute(const TzCString& prefix) {
    return element().findNamespaceAttribute(prefix);
}

template <typename Handle>
const TzXmlAttribute*
TzSoapElementHandle<Handle>::findNamespaceAttribute(const TzCString& prefix) const {
    return constElement().findNamespaceAttribute(prefix);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::removeNamespaceAttribute(const TzCString& prefix) {
    element().removeNamespaceAttribute(prefix);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::removeNamespaceAttribute(const TzXmlNamespace& declared) {
    element().removeNamespaceAttribute(declared);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::setDefaultNamespaceAttribute(const TzCString& uri) {
    element().setDefaultNamespaceAttribute(uri);
}

template <typename Handle>
void TzSoapElementHandle<Handle>::setDefaultNamespaceAttribute(const TzXmlNamespace& declared) {
    element().setDefaultNamespaceAttribute(declared);
}

template <typename Handle> void TzSoapElementHandle<Handle>::unsetDefaultNamespaceAttribute() {
    element().unsetDefaultNamespaceAttribute();
}

template <typename Handle>
TzCString TzSoapElementHandle<Handle>::getDefaultNamespaceAttribute() const {
    return constElement().getDefaultNamespaceAttribute();
}

template <typename Handle>
TzCString TzSoapElementHandle<Handle>::getEncodingStyleAttribute() const {
    return constElement().getEncodingStyleAttribute();
}

template <typename Handle>
void TzSoapElementHandle<Handle>::setEncodingStyle(const TzCString& style) {
    element().setEncodingStyle(style);
}

template <typename Handle> bool TzSoapElementHandle<Handle>::hasEncodingStyleAttribute() const {
    return constElement().hasEncodingStyleAttribute();
}

template <typename Handle> void TzSoapElementHandle<Handle>::removeEncodingStyleAttribute() {
    element().removeEncodingStyleAttribute();
}

template <typename Handle> const TzCString& TzSoapElementHandle<Handle>::getIdAttribute() const {
    return constElement().getIdAttribute();
}

template <typename Handle> void TzSoapElementHandle<Handle>::setIdAttribute(const TzCString& id) {
    element().setIdAttribute(id);
}

template <typename Handle> void TzSoapElementHandle<Handle>::removeIdAttribute() {
    element().removeIdAttribute();
}

template <typename Handle> bool TzSoapElementHandle<Handle>::getRoot() const {
    return constElement().getRoot();
}

template <typename Handle> TzCString TzSoapElementHandle<Handle>::getRootAttribute() const {
    return constElement().getRootAttribute();
}

template <typename Handle> void TzSoapElementHandle<Handle>::setRoot(bool root) {
    element().setRoot(root);
}

template <typename Handle> bool TzSoapElementHandle<Handle>::isRootAttributeSet() const {
    return constElement().isRootAttributeSet();
}

template <typename Handle> void TzSoapElementHandle<Handle>::removeRootAttribute() {
    element().removeRootAttribute();
}

template <typename Handle> const TzXmlName& TzSoapElementHandle<Handle>::getType() const {
    return constElement().getTypeValue();
}

template <typename Handle> TzCString TzSoapElementHandle<Handle>::getTypeAttribute() const {
    return constElement().getTypeAttribute();
}

template <typename Handle>
void TzSoapElementHandle<Handle>::setTypeAttribute(const TzXmlName& type) {
    element().setTypeAttribute(type);
}

template <typename Handle> void TzSoapElementHandle<Handle>::removeTypeAttribute() {
    element().removeTypeAttribute();
}

template class TzSoapElementHandle<TzSoapBody>;
template class TzSoapElementHandle<TzSoapHeader>;
template class TzSoapElementHandle<TzSoapMessage>;
template class TzSoapElementHandle<TzSoapType>;
