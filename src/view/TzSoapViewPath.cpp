// SPDX-License-Identifier: MIT
#include "view/TzSoapViewPath.h"

#include <algorithm>

void tzSoapRefuseAttribute(const TzCString& path, std::string_view localName,
                           const std::optional<std::string_view>& uri) {
    const TzCString missing = tzSoapJoined(path, TzCString("@").append(localName));
    const TzCString which = uri ? missing + ' ' + TzSoapMembers::inNamespace(*uri) : missing;
    throw TzSoapMissingError(missing, which + " is missing");
}

const TzXmlAttribute* tzSoapFindAttribute(const TzSoapTypeImp& element, std::string_view localName,
                                          const std::optional<std::string_view>& uri) {
    const TzSoapAttributeSet& set = element.getAttributeSet();
    const auto* const found =
        std::find_if(set.begin(), set.end(), [&](const TzXmlAttribute& attribute) {
            return !attribute.isNamespaceDeclaration() &&
                   TzSoapMembers::matches(attribute.getName(), localName, uri);
        });
    return found == set.end() ? nullptr : found;
}
