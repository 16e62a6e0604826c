// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlElementImp.h>

#include <utility>

TzXmlElementImp::TzXmlElementImp() : TzXmlElementImp(TzXmlName()) {}

TzXmlElementImp::TzXmlElementImp(TzXmlName name)
    : TzXmlElementImp(std::move(name), std::in_place_type<TzXmlAttributeSet>) {}

TzXmlElementImp::TzXmlElementImp(const TzXmlElementImp& other)
    : TzXmlElementImp(other.name_, other.list()) {}

TzXmlElementImp& TzXmlElementImp::operator=(const TzXmlElementImp& other) {
    if (this != &other) {
        name_ = other.name_;
        list() = other.list();
    }
    return *this;
}

void TzXmlElementImp::setName(const TzXmlName& name) { name_ = name; }

[[gnu::hot]] TzXmlName& TzXmlElementImp::getName() { return name_; }

[[gnu::hot]] const TzXmlName& TzXmlElementImp::getName() const { return name_; }

void TzXmlElementImp::addNamespaceAttribute(const TzXmlNamespace& declared) {
    list().addDeclaration(declared);
}

TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzXmlNamespace& declared) {
    TzXmlAttribute* found = list().findDeclaration(declared.getPrefix());
    return found != list().end() && found->getValue() == declared.getUri() ? found : list().end();
}

const TzXmlAttribute*
TzXmlElementImp::findNamespaceAttribute(const TzXmlNamespace& declared) const {
    const TzXmlAttribute* found = list().findDeclaration(declared.getPrefix());
    return found != attributesEnd() && found->getValue() == declared.getUri() ? found
                                                                              : attributesEnd();
}

TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzCString& prefix) {
    return list().findDeclaration(prefix);
}

const TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzCString& prefix) const {
    return list().findDeclaration(prefix);
}

void TzXmlElementImp::removeNamespaceAttribute(const TzCString& prefix) {
    list().erase(TzXmlName(prefix, TzXmlNamespace::getXmlns()));
}

void TzXmlElementImp::removeNamespaceAttribute(const TzXmlNamespace& declared) {
    TzXmlAttribute* found = findNamespaceAttribute(declared);
    if (found != list().end()) {
        list().erase(found);
    }
}

void TzXmlElementImp::setDefaultNamespaceAttribute(const TzCString& uri) {
    list().addDeclaration(TzXmlNamespace({}, uri));
}

void TzXmlElementImp::setDefaultNamespaceAttribute(const TzXmlNamespace& declared) {
    setDefaultNamespaceAttribute(declared.getUri());
}

void TzXmlElementImp::unsetDefaultNamespaceAttribute() { removeNamespaceAttribute(TzCString()); }

TzCString TzXmlElementImp::getDefaultNamespaceAttribute() const {
    const TzXmlAttribute* found = findNamespaceAttribute(TzCString());
    return found == attributesEnd() ? TzCString() : found->getValue();
}

const TzXmlAttribute* TzXmlElementImp::attributesBegin() const { return list().begin(); }

TzXmlAttribute* TzXmlElementImp::attributesBegin() { return list().begin(); }

const TzXmlAttribute* TzXmlElementImp::attributesEnd() const { return list().end(); }

TzXmlAttribute* TzXmlElementImp::attributesEnd() { return list().end(); }

std::size_t TzXmlElementImp::attributeCount() const { return list().size(); }

void TzXmlElementImp::clearAttributes() { list().clear(); }

void TzXmlElementImp::addAttribute(const TzXmlAttribute& attribute) { list().add(attribute); }

void TzXmlElementImp::addAttribute(const TzXmlName& name, const TzCString& value) {
    list().add(name, value);
}

void TzXmlElementImp::removeAttribute(TzXmlAttribute* position) { list().erase(position); }

void TzXmlElementImp::removeAttribute(const TzXmlAttribute& attribute) {
    TzXmlAttribute* found = list().find(attribute);
    if (found != list().end()) {
        list().erase(found);
    }
}

void TzXmlElementImp::removeAttribute(const TzXmlName& name) { list().erase(name); }

TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlAttribute& attribute) {
    return list().find(attribute);
}

const TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlAttribute& attribute) const {
    return list().find(attribute);
}

TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlName& name) { return list().find(name); }

const TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlName& name) const {
    return list().find(name);
}

bool TzXmlElementImp::hasAttribute(const TzXmlAttribute& attribute) const {
    return findAttribute(attribute) != attributesEnd();
}

bool TzXmlElementImp::hasAttribute(const TzXmlName& name) const {
    return findAttribute(name) != attributesEnd();
}

TzXmlAttributeSet& TzXmlElementImp::getAttributes() { return list(); }

const TzXmlAttributeSet& TzXmlElementImp::getAttributes() const { return list(); }
