// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <vector>

class Tzxmsg;

/// Makes the messages with which a receiver refuses a request: a fault in the body, and an XML
/// declaration.
///
/// Static, without state, usable from any thread.
class TZSOAP_API TzSoapFaultMessage {
public:
    TzSoapFaultMessage() = delete;

    /// A fault with a code and a reason. A code that `version` does not have, such as
    /// DataEncodingUnknown in SOAP 1.1, becomes Client (Sender). `TzXmlError` UNKNOWN_VERSION for
    /// an unknown version.
    static TzSoapMessage make(TzSoapVersion::Version version, TzSoapVersion::SoapFaultCode code,
                              const TzCString& reason);
    /// A fault that also has a subcode if `version` has subcodes. `TzXmlError` INVALID_FAULT_CODE
    /// for an unknown subcode.
    static TzSoapMessage make(TzSoapVersion::Version version, TzSoapVersion::SoapFaultCode code,
                              TzSoapVersion::SoapSubFaultCode subcode, const TzCString& reason);
    /// The MustUnderstand fault for header entries that were not understood; in SOAP 1.2 with a
    /// Misunderstood (NotUnderstood) entry for each in the header, under a prefix that means
    /// nothing else there. O(names).
    static TzSoapMessage makeMustUnderstand(TzSoapVersion::Version version,
                                            const std::vector<TzXmlName>& names);
    /// The VersionMismatch fault; in `V1_2Rec` with an Upgrade entry in the header that lists the
    /// envelopes of `supported`, the most wanted first. `TzXmlError` UNKNOWN_VERSION for an unknown
    /// version.
    static TzSoapMessage makeVersionMismatch(TzSoapVersion::Version version,
                                             const std::vector<TzSoapVersion::Version>& supported,
                                             const TzCString& reason);
    /// The names of the envelopes that the Upgrade entries in the header of `message` list, in
    /// order; none without such an entry. A name whose prefix is not declared has no namespace.
    /// O(header entries and their children).
    static std::vector<TzXmlName> getSupportedEnvelopes(const TzSoapMessage& message);
    /// The fault for an error met while a request was read or its values were taken:
    /// VersionMismatch for the envelope of an unknown version, Client (Sender) for any other
    /// `TzXmlParseError` and for `TzXmlBoundsError` and `TzXmlBadArgError`, Server (Receiver) for
    /// the rest. Its reason is the error's text, after the line and column where the error has
    /// them.
    static TzSoapMessage makeFrom(TzSoapVersion::Version version, const Tzxmsg& error);
};
