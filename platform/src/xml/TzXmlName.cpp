// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlName.h>

TzXmlName::TzXmlName(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        localName_ = text;
    } else {
        localName_ = text.substr(colon + 1);
        namespace_ = TzXmlNamespace(text.substr(0, colon), {});
    }
}

TzCString TzXmlName::getQualifiedName() const {
    TzCString text;
    appendQualifiedName(text);
    return text;
}

void TzXmlName::appendQualifiedName(TzCString& text) const {
    const TzCString& prefix = getPrefix();
    text += prefix;
    // The declaration of the default namespace is the one prefixed name without a local part.
    if (!prefix.empty() && !(localName_.empty() && prefix == "xmlns")) {
        text += ':';
    }
    text += localName_;
}

TzCString TzXmlName::getUniqueName() const {
    const TzCString& uri = getUri();
    return uri.empty() ? localName_ : uri + ':' + localName_;
}
