// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>

#include <map>

/// The properties that travel beside a message: names and values, ordered by name byte by byte.
///
/// A base of values: copies copy the properties. Names that differ in case are different
/// properties. Nothing is checked, so a transport must refuse line breaks in what it did not make
/// itself. Not locked: one context is used by one thread at a time.
class TZSOAP_API TzSoapTransportContext {
public:
    /// The properties by name.
    using Properties = std::map<TzCString, TzCString>;
    /// Position of a property whose value may be changed in place.
    using iterator = Properties::iterator;
    /// Position of a property.
    using const_iterator = Properties::const_iterator;

    /// A context without properties.
    TzSoapTransportContext();
    /// Copies the properties. O(properties).
    TzSoapTransportContext(const TzSoapTransportContext& other);
    /// Takes the properties over.
    TzSoapTransportContext(TzSoapTransportContext&& other) noexcept;
    /// Replaces the properties by copies. O(properties).
    TzSoapTransportContext& operator=(const TzSoapTransportContext& other);
    /// Replaces the properties by those it takes over.
    TzSoapTransportContext& operator=(TzSoapTransportContext&& other) noexcept;
    virtual ~TzSoapTransportContext();

    /// Takes properties out of the transport's header text.
    virtual void extract(const TzCString& text) = 0;
    /// The properties as the transport's header text.
    virtual TzCString asString() const = 0;

    /// Sets the property `name`, replacing its value if it is there. O(log properties).
    void add(const TzCString& name, const TzCString& value);
    /// Removes the property `name`, if it is there. O(log properties).
    void remove(const TzCString& name);
    /// Removes all properties. O(properties).
    void clear() noexcept;
    /// Position of the property `name`, `end()` if absent. O(log properties).
    iterator find(const TzCString& name);
    /// Position of the property `name`, `end()` if absent. O(log properties).
    const_iterator find(const TzCString& name) const;
    /// Position of the first property in name order.
    iterator begin() noexcept { return properties_.begin(); }
    /// Position of the first property in name order.
    const_iterator begin() const noexcept { return properties_.begin(); }
    /// Position after the last property.
    iterator end() noexcept { return properties_.end(); }
    /// Position after the last property.
    const_iterator end() const noexcept { return properties_.end(); }

private:
    Properties properties_;
};
