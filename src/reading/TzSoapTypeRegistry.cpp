// SPDX-License-Identifier: MIT
#include <soap/TzSoapTypeRegistry.h>

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

TzSoapTypeRegistry::TzSoapTypeRegistry() = default;

TzSoapTypeRegistry::TzSoapTypeRegistry(const TzSoapTypeRegistry&) = default;

TzSoapTypeRegistry::TzSoapTypeRegistry(TzSoapTypeRegistry&&) noexcept = default;

TzSoapTypeRegistry& TzSoapTypeRegistry::operator=(const TzSoapTypeRegistry&) = default;

TzSoapTypeRegistry& TzSoapTypeRegistry::operator=(TzSoapTypeRegistry&&) noexcept = default;

TzSoapTypeRegistry::~TzSoapTypeRegistry() = default;

void TzSoapTypeRegistry::registerType(const TzXmlName& element, const TzXmlName& type) {
    types_.try_emplace(element, type);
}

TzXmlName TzSoapTypeRegistry::lookupType(const TzXmlName& element) const {
    const auto found = types_.find(element);
    if (found == types_.end()) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_NO_TYPE(), element.getQualifiedName())));
    }
    return found->second;
}

bool TzSoapTypeRegistry::typeExists(const TzXmlName& element) const {
    return types_.contains(element);
}
