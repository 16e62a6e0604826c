// SPDX-License-Identifier: MIT
#include <soap/TzSoapMemberAccess.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlUtils.h>

#include "service/TzSoapMemberPath.h"

template <typename Handle>
TzSoapType TzSoapMemberAccess<Handle>::getChild(const TzXmlName& name) const {
    return getChild(std::string_view(name.getLocalName()), name.getUri());
}

template <typename Handle>
TzSoapType TzSoapMemberAccess<Handle>::getChild(std::string_view localName,
                                                std::string_view uri) const {
    return TzSoapMemberPath(localName, uri).get(static_cast<const Handle&>(*this));
}

template <typename Handle>
TzSoapType TzSoapMemberAccess<Handle>::getChild(std::string_view path) const {
    return TzSoapMemberPath(path).get(static_cast<const Handle&>(*this));
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(const TzXmlName& name) const {
    return findChildValue(std::string_view(name.getLocalName()), name.getUri());
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(std::string_view localName,
                                                                     std::string_view uri) const {
    return TzSoapMemberPath(localName, uri).find(static_cast<const Handle&>(*this));
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(std::string_view path) const {
    return TzSoapMemberPath(path).find(static_cast<const Handle&>(*this));
}

template <typename Handle>
TzSoapType TzSoapMemberAccess<Handle>::getChild(const TzCString& path) const {
    return getChild(std::string_view(path));
}

template <typename Handle> TzSoapType TzSoapMemberAccess<Handle>::getChild(const char* path) const {
    return getChild(TzXmlUtils::requireText(path));
}

template <typename Handle>
TzSoapType TzSoapMemberAccess<Handle>::getChild(const char* localName, const char* uri) const {
    return getChild(TzXmlUtils::requireText(localName), TzXmlUtils::requireText(uri));
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(const TzCString& path) const {
    return findChildValue(std::string_view(path));
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(const char* path) const {
    return findChildValue(TzXmlUtils::requireText(path));
}

template <typename Handle>
std::optional<TzSoapType> TzSoapMemberAccess<Handle>::findChildValue(const char* localName,
                                                                     const char* uri) const {
    return findChildValue(TzXmlUtils::requireText(localName), TzXmlUtils::requireText(uri));
}

template class TzSoapMemberAccess<TzSoapBody>;
template class TzSoapMemberAccess<TzSoapHeader>;
template class TzSoapMemberAccess<TzSoapType>;
