// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapTransportContext.h>
#include <tz/tools/TzCString.h>

/// The properties of an HTTP exchange as header lines; it has operations for the SOAP
/// action.
///
/// A value: copies copy the properties. Values are written as they stand, so a value with a line
/// break writes another header line: transports must not send properties that came from
/// elsewhere unchecked. Not locked: one context is used by one thread at a time.
class TZSOAP_API TzSoapHttpTransportContext : public TzSoapTransportContext {
public:
    /// A context without properties.
    TzSoapHttpTransportContext();
    /// Copies the properties. O(properties).
    TzSoapHttpTransportContext(const TzSoapHttpTransportContext& other);
    /// Takes the properties over.
    TzSoapHttpTransportContext(TzSoapHttpTransportContext&& other) noexcept;
    /// Replaces the properties by copies. O(properties).
    TzSoapHttpTransportContext& operator=(const TzSoapHttpTransportContext& other);
    /// Replaces the properties by those it takes over.
    TzSoapHttpTransportContext& operator=(TzSoapHttpTransportContext&& other) noexcept;
    ~TzSoapHttpTransportContext() override;

    /// Sets the property "SOAPAction".
    void setSoapAction(const TzCString& action);
    /// The property "SOAPAction", "" if absent. O(log properties).
    TzCString getSoapAction() const;
    /// "SOAPAction".
    static TzCString getSoapActionLabel();

    /// Takes the SOAP action out of header text: from the first line that holds "SOAPAction" and a
    /// colon, what follows the first colon, continuation lines included, exactly as it stands. The
    /// other properties are kept; without such a line nothing is added. O(length).
    void extract(const TzCString& text) override;
    /// A line for each property in name order: name, ":", value and a line feed. O(length).
    TzCString asString() const override;

private:
    static const TzCString SoapActionLabel;
};
