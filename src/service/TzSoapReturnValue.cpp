// SPDX-License-Identifier: MIT
#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/xml/TzXmlUtils.h>

#include <algorithm>

std::optional<TzSoapType> TzSoap12RecVersion::findReturnValue(const TzSoapType& answer) {
    const auto members = tzSoapCast<TzSoapCompositeType>(answer);
    if (!members || members->childCount() == 0) {
        return std::nullopt;
    }
    const auto begin = members->childrenBegin();
    const auto end = members->childrenEnd();
    const auto naming = std::find_if(
        begin, end, [](const TzSoapType& each) { return each.getName() == getRpcResultName(); });
    const auto text = naming == end ? std::nullopt : tzSoapCast<TzSoapSimpleType>(*naming);
    if (!text) {
        return *begin;
    }
    const TzXmlName wanted(TzCString(TzXmlUtils::trim(text->getString())));
    const auto found = std::find_if(begin, end, [&wanted](const TzSoapType& each) {
        return each.getName().getQualifiedName() == wanted.getQualifiedName() &&
               !(each.getName() == getRpcResultName());
    });
    return found == end ? std::nullopt : std::optional<TzSoapType>(*found);
}
