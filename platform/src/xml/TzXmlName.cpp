// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlName.h>

#include <tz/tools/TzTextTools.h>

#include <utility>

TzXmlName::TzXmlName(std::string_view text) {
    const TzTextTools::SplitName name = TzTextTools::splitName(text);
    *this = TzXmlName(name.localName, TzXmlNamespace(name.prefix, {}));
}

TzXmlName::TzXmlName(std::string_view localName, TzXmlNamespace nameSpace) {
    if (!localName.empty() || !nameSpace.isEmpty()) {
        parts_ = TzSharedRecord(partsOf(localName, std::move(nameSpace)));
    }
}

bool TzXmlName::findWritable() const noexcept {
    const bool isWritable = TzXmlUtils::isQualifiedName(getPrefix(), getLocalName());
    parts_->finding.store(isWritable ? Finding::Writable : Finding::Refused);
    return isWritable;
}

void TzXmlName::setLocalName(std::string_view localName) {
    *this = TzXmlName(localName, getNamespace());
}

void TzXmlName::setPrefix(std::string_view prefix) {
    *this = TzXmlName(getLocalName(), TzXmlNamespace(prefix, getUri()));
}

void TzXmlName::setNamespace(const TzXmlNamespace& nameSpace) {
    if (getUri() == nameSpace.getUri() && getPrefix() == nameSpace.getPrefix()) {
        return;
    }
    *this = TzXmlName(getLocalName(), nameSpace);
}

TzCString TzXmlName::qualify(std::string_view prefix, std::string_view localName) {
    TzCString text;
    text.reserve(prefix.size() + 1 + localName.size());
    text += prefix;
    // The declaration of the default namespace is the one prefixed name without a local part.
    if (!(localName.empty() && prefix == "xmlns")) {
        text += ':';
    }
    text += localName;
    return text;
}

TzCString TzXmlName::getUniqueName() const {
    const TzCString& uri = getUri();
    return uri.empty() ? getLocalName() : uri + ':' + getLocalName();
}
