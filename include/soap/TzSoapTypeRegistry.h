// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/xml/TzXmlName.h>

#include <map>

/// The XML Schema types of elements that carry no type attribute, filled by the application.
///
/// A message has one. A value type: copies copy all entries. Not locked: one object is used by one
/// thread at a time, or by many that only look up.
class TZSOAP_API TzSoapTypeRegistry {
public:
    /// A registry without entries.
    TzSoapTypeRegistry();
    TzSoapTypeRegistry(const TzSoapTypeRegistry& other);
    TzSoapTypeRegistry(TzSoapTypeRegistry&& other) noexcept;
    TzSoapTypeRegistry& operator=(const TzSoapTypeRegistry& other);
    TzSoapTypeRegistry& operator=(TzSoapTypeRegistry&& other) noexcept;
    virtual ~TzSoapTypeRegistry();

    /// Gives elements named `element` the type `type`, unless they have one already: the first
    /// registration wins. O(log entries).
    void registerType(const TzXmlName& element, const TzXmlName& type);
    /// The type of elements named `element`; `TzXmlBadArgError` NO_TYPE with the qualified name
    /// otherwise. O(log entries).
    TzXmlName lookupType(const TzXmlName& element) const;
    /// Whether elements named `element` have a type. O(log entries).
    bool typeExists(const TzXmlName& element) const;
    /// Whether the registry is empty.
    bool empty() const noexcept { return types_.empty(); }

private:
    std::map<TzXmlName, TzXmlName> types_;
};
