// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlName.h>

#include <optional>
#include <vector>

class TzSoapCompositeType;
class TzSoapType;

/// A fault as an exception: thrown by a client for the fault that a service answers, and by the
/// operations of a service, whose dispatcher answers with it. One with an HTTP status came from
/// another service; a dispatcher does not answer with that.
///
/// The text is "fault SOAP-ENV:Server: out of paper". Copies share the message. Constant members
/// may be called on several threads at once, but for what the message shares.
class TZSOAP_API TzSoapFaultError : public Tzxmsg {
public:
    /// A fault that is answered in the version of the request; `getMessage` shows it in `V1_2Rec`.
    /// A code that a version does not have becomes Client (Sender) there.
    TzSoapFaultError(TzSoapVersion::SoapFaultCode code, const TzCString& reason);
    /// A fault that also has a subcode in the versions that have subcodes.
    TzSoapFaultError(TzSoapVersion::SoapFaultCode code, TzSoapVersion::SoapSubFaultCode subcode,
                     const TzCString& reason);
    /// The fault in `message`, shared, which came with an HTTP status; 0 for none, also of a fault
    /// that was received and is to be answered.
    explicit TzSoapFaultError(const TzSoapMessage& message, int httpStatus = 0);
    TzSoapFaultError(const TzSoapFaultError&) = default;
    TzSoapFaultError& operator=(const TzSoapFaultError&) = default;
    ~TzSoapFaultError() override;

    /// The fault for a request to an operation that is not there: Client (Sender) with the subcode
    /// ProcedureNotPresent.
    static TzSoapFaultError procedureNotPresent(const TzXmlName& operation);
    /// The fault for parameters that cannot be read, as `error` says: Client (Sender) with the
    /// subcode BadArguments. Its reason is the error's text, which may quote the request.
    static TzSoapFaultError badArguments(const Tzxmsg& error);

    /// Appends a value, shared, to the detail. Returns this.
    TzSoapFaultError& addDetailEntry(const TzSoapType& entry);

    /// The code, its prefix resolved; the empty name for a fault without one.
    TzXmlName getCode() const;
    /// The subcodes, the general ones first.
    std::vector<TzXmlName> getSubcodes() const;
    /// The reason, the first if there are several.
    TzCString getReason() const;
    /// The detail and its entries, shared.
    TzSoapCompositeType getDetail() const;
    /// The HTTP status that the fault came with; 0 for none.
    int getHttpStatus() const noexcept { return status_; }
    /// The message that holds the fault, shared.
    const TzSoapMessage& getMessage() const noexcept { return message_; }

    /// A new message of `version` and `style` with this fault. Where the fault came in a message:
    /// that message, shared, a converted copy for another version, in its own style. `TzXmlError`
    /// UNKNOWN_VERSION for an unknown version. O(fault).
    TzSoapMessage makeMessage(TzSoapVersion::Version version,
                              TzSoapStyle style = TzSoapStyle::Encoded) const;

private:
    TzSoapMessage message_;
    int status_ = 0;
    std::optional<TzSoapVersion::SoapFaultCode> code_; ///< None for a fault that was received.
    std::optional<TzSoapVersion::SoapSubFaultCode> subcode_;
};
