// SPDX-License-Identifier: MIT
#include <soap/TzSoapEncodingStyleTypeRegistry.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>

using Registry = TzSoapEncodingStyleTypeRegistry;

TzSoapEncodingStyleTypeRegistry::TzSoapEncodingStyleTypeRegistry() = default;

TzSoapEncodingStyleTypeRegistry::TzSoapEncodingStyleTypeRegistry(const Registry&) = default;

TzSoapEncodingStyleTypeRegistry::TzSoapEncodingStyleTypeRegistry(Registry&&) noexcept = default;

Registry& TzSoapEncodingStyleTypeRegistry::operator=(const Registry&) = default;

Registry& TzSoapEncodingStyleTypeRegistry::operator=(Registry&&) noexcept = default;

TzSoapEncodingStyleTypeRegistry::~TzSoapEncodingStyleTypeRegistry() = default;

Registry* TzSoapEncodingStyleTypeRegistry::getRegistry() {
    // Never destroyed, so that messages may still be read while the process ends. It lies in static
    // memory, because memory of the heap would be lost when the library is unloaded.
    alignas(Registry) static std::array<std::byte, sizeof(Registry)> room;
    static Registry* const theRegistry = ::new (static_cast<void*>(room.data())) Registry;
    return theRegistry;
}

void TzSoapEncodingStyleTypeRegistry::registerType(const TzCString& encodingStyle,
                                                   const TzXmlName& type) {
    styles_.emplace(encodingStyle, type);
}

bool TzSoapEncodingStyleTypeRegistry::lookupType(const TzCString& encodingStyle,
                                                 const TzXmlName& type) const {
    return std::any_of(styles_.begin(), styles_.end(), [&](const auto& entry) {
        return entry.first == encodingStyle && entry.second == type;
    });
}
