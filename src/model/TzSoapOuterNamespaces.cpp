// SPDX-License-Identifier: MIT
#include "model/TzSoapOuterNamespaces.h"

#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

bool TzSoapOuterNamespaces::openScope(TzXmlNamespaceStack& scopes,
                                      const TzXmlAttributeSet& attributes) {
    bool declares = false;
    for (const TzXmlAttribute& attribute : attributes) {
        if (attribute.isNamespaceDeclaration()) {
            if (!declares) {
                scopes.pushScope();
                declares = true;
            }
            scopes.add(attribute.declaredNamespace());
        }
    }
    return declares;
}

void TzSoapOuterNamespaces::open(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    declares_.push_back(openScope(within_, attributes));
    use(name.getNamespace());
    for (const TzXmlAttribute& attribute : attributes) {
        // An attribute without prefix has no namespace.
        if (!attribute.isNamespaceDeclaration() && !attribute.getName().getPrefix().empty()) {
            use(attribute.getName().getNamespace());
        }
    }
}

void TzSoapOuterNamespaces::close() {
    if (declares_.back()) {
        within_.popScope();
    }
    declares_.pop_back();
}

void TzSoapOuterNamespaces::use(const TzXmlNamespace& nameSpace) {
    const TzCString& prefix = nameSpace.getPrefix();
    if (nameSpace.sameUri(TzXmlNamespace::getXml()) || within_.find(prefix) != nullptr) {
        return;
    }
    if (used_.find(prefix) == used_.end()) {
        used_.emplace(prefix, nameSpace.getUri());
    }
}

std::vector<TzXmlNamespace> TzSoapOuterNamespaces::declarations() const {
    std::vector<TzXmlNamespace> found;
    for (const auto& [prefix, uri] : used_) {
        if (prefix.empty() || !uri.empty()) {
            found.emplace_back(prefix, uri);
        }
    }
    return found;
}
