// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlElementImp.h>

#include <utility>

TzXmlElementImp::TzXmlElementImp() : TzXmlElementImp(TzXmlName()) {}

TzXmlElementImp::TzXmlElementImp(TzXmlName name)
    : name_(std::move(name)), attributes_(new TzXmlAttributeSet()), ownsAttributes_(true) {}

TzXmlElementImp::TzXmlElementImp(const TzXmlElementImp& other)
    : name_(other.name_), attributes_(new TzXmlAttributeSet(*other.attributes_)),
      ownsAttributes_(true) {}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): left to the members
TzXmlElementImp& TzXmlElementImp::operator=(const TzXmlElementImp& other) {
    name_ = other.name_;
    *attributes_ = *other.attributes_;
    return *this;
}

TzXmlElementImp::~TzXmlElementImp() {
    if (ownsAttributes_) {
        delete attributes_;
    }
}

void TzXmlElementImp::setName(const TzXmlName& name) { name_ = name; }

TzXmlName& TzXmlElementImp::getName() { return name_; }

const TzXmlName& TzXmlElementImp::getName() const { return name_; }

void TzXmlElementImp::addNamespaceAttribute(const TzXmlNamespace& declared) {
    attributes_->addDeclaration(declared);
}

TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzXmlNamespace& declared) {
    TzXmlAttribute* found = attributes_->findDeclaration(declared.getPrefix());
    return found != attributes_->end() && found->getValue() == declared.getUri()
               ? found
               : attributes_->end();
}

const TzXmlAttribute*
TzXmlElementImp::findNamespaceAttribute(const TzXmlNamespace& declared) const {
    const TzXmlAttribute* found = std::as_const(*attributes_).findDeclaration(declared.getPrefix());
    return found != attributesEnd() && found->getValue() == declared.getUri() ? found
                                                                              : attributesEnd();
}

TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzCString& prefix) {
    return attributes_->findDeclaration(prefix);
}

const TzXmlAttribute* TzXmlElementImp::findNamespaceAttribute(const TzCString& prefix) const {
    return std::as_const(*attributes_).findDeclaration(prefix);
}

void TzXmlElementImp::removeNamespaceAttribute(const TzCString& prefix) {
    attributes_->erase(TzXmlName(prefix, TzXmlNamespace::getXmlns()));
}

void TzXmlElementImp::removeNamespaceAttribute(const TzXmlNamespace& declared) {
    TzXmlAttribute* found = findNamespaceAttribute(declared);
    if (found != attributes_->end()) {
        attributes_->erase(found);
    }
}

void TzXmlElementImp::setDefaultNamespaceAttribute(const TzCString& uri) {
    attributes_->addDeclaration(TzXmlNamespace({}, uri));
}

void TzXmlElementImp::setDefaultNamespaceAttribute(const TzXmlNamespace& declared) {
    setDefaultNamespaceAttribute(declared.getUri());
}

void TzXmlElementImp::unsetDefaultNamespaceAttribute() { removeNamespaceAttribute(TzCString()); }

TzCString TzXmlElementImp::getDefaultNamespaceAttribute() const {
    const TzXmlAttribute* found = findNamespaceAttribute(TzCString());
    return found == attributesEnd() ? TzCString() : found->getValue();
}

const TzXmlAttribute* TzXmlElementImp::attributesBegin() const {
    return std::as_const(*attributes_).begin();
}

TzXmlAttribute* TzXmlElementImp::attributesBegin() { return attributes_->begin(); }

const TzXmlAttribute* TzXmlElementImp::attributesEnd() const {
    return std::as_const(*attributes_).end();
}

TzXmlAttribute* TzXmlElementImp::attributesEnd() { return attributes_->end(); }

std::size_t TzXmlElementImp::attributeCount() const { return attributes_->size(); }

void TzXmlElementImp::clearAttributes() { attributes_->clear(); }

void TzXmlElementImp::addAttribute(const TzXmlAttribute& attribute) { attributes_->add(attribute); }

void TzXmlElementImp::addAttribute(const TzXmlName& name, const TzCString& value) {
    attributes_->add(name, value);
}

void TzXmlElementImp::removeAttribute(TzXmlAttribute* position) { attributes_->erase(position); }

void TzXmlElementImp::removeAttribute(const TzXmlAttribute& attribute) {
    TzXmlAttribute* found = attributes_->find(attribute);
    if (found != attributes_->end()) {
        attributes_->erase(found);
    }
}

void TzXmlElementImp::removeAttribute(const TzXmlName& name) { attributes_->erase(name); }

TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlAttribute& attribute) {
    return attributes_->find(attribute);
}

const TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlAttribute& attribute) const {
    return std::as_const(*attributes_).find(attribute);
}

TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlName& name) {
    return attributes_->find(name);
}

const TzXmlAttribute* TzXmlElementImp::findAttribute(const TzXmlName& name) const {
    return std::as_const(*attributes_).find(name);
}

bool TzXmlElementImp::hasAttribute(const TzXmlAttribute& attribute) const {
    return findAttribute(attribute) != attributesEnd();
}

bool TzXmlElementImp::hasAttribute(const TzXmlName& name) const {
    return findAttribute(name) != attributesEnd();
}

TzXmlAttributeSet& TzXmlElementImp::getAttributes() { return *attributes_; }

const TzXmlAttributeSet& TzXmlElementImp::getAttributes() const { return *attributes_; }
