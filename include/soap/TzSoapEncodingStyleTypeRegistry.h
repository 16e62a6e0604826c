// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <map>

/// The types that the application decodes itself although their encoding style is that of SOAP.
///
/// The reader asks the one object of the process; others can be made and used as values, copies
/// copy all entries. Not locked: register before several threads read, afterwards only look up.
class TZSOAP_API TzSoapEncodingStyleTypeRegistry {
public:
    /// A registry without entries, apart from the one of the process.
    TzSoapEncodingStyleTypeRegistry();
    TzSoapEncodingStyleTypeRegistry(const TzSoapEncodingStyleTypeRegistry& other);
    TzSoapEncodingStyleTypeRegistry(TzSoapEncodingStyleTypeRegistry&& other) noexcept;
    TzSoapEncodingStyleTypeRegistry& operator=(const TzSoapEncodingStyleTypeRegistry& other);
    TzSoapEncodingStyleTypeRegistry& operator=(TzSoapEncodingStyleTypeRegistry&& other) noexcept;
    ~TzSoapEncodingStyleTypeRegistry();

    /// The registry of the process, made at the first call (by one thread, if several make it at
    /// once) and never destroyed.
    static TzSoapEncodingStyleTypeRegistry* getRegistry();

    /// Adds the pair, even if it is there already. O(log entries).
    void registerType(const TzCString& encodingStyle, const TzXmlName& type);
    /// Whether there is an entry of exactly this URI and type name. O(entries).
    bool lookupType(const TzCString& encodingStyle, const TzXmlName& type) const;
    /// Whether the registry is empty.
    bool empty() const noexcept { return styles_.empty(); }

private:
    std::multimap<TzCString, TzXmlName> styles_;
};
