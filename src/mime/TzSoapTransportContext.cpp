// SPDX-License-Identifier: MIT
#include <soap/TzSoapTransportContext.h>

TzSoapTransportContext::TzSoapTransportContext() = default;

TzSoapTransportContext::TzSoapTransportContext(const TzSoapTransportContext&) = default;

TzSoapTransportContext::TzSoapTransportContext(TzSoapTransportContext&&) noexcept = default;

TzSoapTransportContext& TzSoapTransportContext::operator=(const TzSoapTransportContext&) = default;

TzSoapTransportContext&
TzSoapTransportContext::operator=(TzSoapTransportContext&&) noexcept = default;

TzSoapTransportContext::~TzSoapTransportContext() = default;

void TzSoapTransportContext::add(const TzCString& name, const TzCString& value) {
    properties_.insert_or_assign(name, value);
}

void TzSoapTransportContext::remove(const TzCString& name) { properties_.erase(name); }

void TzSoapTransportContext::clear() noexcept { properties_.clear(); }

TzSoapTransportContext::iterator TzSoapTransportContext::find(const TzCString& name) {
    return properties_.find(name);
}

TzSoapTransportContext::const_iterator TzSoapTransportContext::find(const TzCString& name) const {
    return properties_.find(name);
}
