// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlNamespace.h>

#include "tools/TzPlatformLasting.h"

#include <array>

TzXmlNamespace::TzXmlNamespace(std::string_view prefix, std::string_view uri) {
    if (!prefix.empty() || !uri.empty()) {
        text_ = TzSharedRecord(Text{TzCString(prefix), TzCString(uri)});
    }
}

void TzXmlNamespace::setPrefix(std::string_view prefix) {
    *this = TzXmlNamespace(prefix, getUri());
}

void TzXmlNamespace::setUri(std::string_view uri) { *this = TzXmlNamespace(getPrefix(), uri); }

bool TzXmlNamespace::isEmpty() const noexcept { return getUri().empty() && getPrefix().empty(); }

const TzXmlNamespace& TzXmlNamespace::getEmptyNamespace() {
    static TzPlatformLasting<const TzXmlNamespace> instance([] { return TzXmlNamespace(); });
    return *instance;
}

const TzXmlNamespace& TzXmlNamespace::getXmlns() {
    static TzPlatformLasting<const TzXmlNamespace> instance(
        [] { return TzXmlNamespace(XmlnsPrefix, "http://www.w3.org/2000/xmlns/"); });
    return *instance;
}

const TzXmlNamespace& TzXmlNamespace::getXml() {
    static TzPlatformLasting<const TzXmlNamespace> instance(
        [] { return TzXmlNamespace("xml", "http://www.w3.org/XML/1998/namespace"); });
    return *instance;
}

const TzXmlNamespace& TzXmlNamespace::getXsi() {
    static TzPlatformLasting<const TzXmlNamespace> instance(
        [] { return TzXmlNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance"); });
    return *instance;
}

const TzXmlNamespace& TzXmlNamespace::getXsd() {
    static TzPlatformLasting<const TzXmlNamespace> instance(
        [] { return TzXmlNamespace("xsd", "http://www.w3.org/2001/XMLSchema"); });
    return *instance;
}

bool TzXmlNamespace::matchXsi(const TzXmlNamespace& candidate) noexcept {
    // Senders of the drafts' time still use the two older URIs.
    static constexpr std::array<std::string_view, 3> Uris = {
        "http://www.w3.org/2001/XMLSchema-instance",
        "http://www.w3.org/2000/10/XMLSchema-instance",
        "http://www.w3.org/1999/XMLSchema-instance",
    };
    for (const std::string_view uri : Uris) {
        if (candidate.getUri() == uri) {
            return true;
        }
    }
    return false;
}
