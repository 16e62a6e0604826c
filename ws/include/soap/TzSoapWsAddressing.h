// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <soap/TzSoapWsEndpoint.h>
#include <soap/TzSoapWsExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <optional>
#include <vector>

class TzSoapMessage;
class TzSoapNode;

/// The addressing properties of a message: header entries of WS-Addressing 1.0, in the namespace
/// "http://www.w3.org/2005/08/addressing".
///
/// A plain value: read it from a request, make that of the answer with `answerTo`, write it into
/// the answer. Errors that the sender of a message made are `TzSoapFaultError`, with the codes that
/// WS-Addressing 1.0 - SOAP Binding (6.4) prescribes for them. Threads: as for the message.
struct TZSOAP_WS_API TzSoapWsAddressing {
    /// The namespace of all these entries.
    static constexpr char Namespace[] = "http://www.w3.org/2005/08/addressing";
    /// The action of faults that WS-Addressing itself prescribes.
    static constexpr char FaultAction[] = "http://www.w3.org/2005/08/addressing/fault";
    /// The action of other faults that SOAP prescribes, such as MustUnderstand.
    static constexpr char SoapFaultAction[] = "http://www.w3.org/2005/08/addressing/soap/fault";

    /// Another message that this one is about.
    struct Relation {
        /// That this message is the answer to the other one.
        static constexpr char Reply[] = "http://www.w3.org/2005/08/addressing/reply";

        TzCString messageId;    ///< The identifier of the other message.
        TzCString type = Reply; ///< What it is to this one.
    };

    TzCString to = TzSoapWsEndpoint::Anonymous; ///< The address of the receiver.
    TzCString action;                           ///< What the message asks for, a URI.
    TzCString messageId;                        ///< A URI for this message; "" for none.
    std::vector<Relation> relatesTo;            ///< What the message is about.
    std::optional<TzSoapWsEndpoint> from;       ///< Where the message comes from.
    std::optional<TzSoapWsEndpoint> replyTo;    ///< Where answers go; anonymous unless set.
    std::optional<TzSoapWsEndpoint> faultTo;    ///< Where faults go; as answers unless set.
    /// Entries that the receiver asked for in an endpoint reference; each is written with
    /// IsReferenceParameter, and read from entries with it.
    std::vector<TzSoapType> referenceParameters;

    /// Whether `message` has entries of WS-Addressing that are meant for `node`. O(entries).
    static bool isUsed(const TzSoapMessage& message, const TzSoapNode& node);
    /// The properties of `message` as `node` sees them; other entries do not matter.
    /// `TzSoapFaultError`: InvalidAddressingHeader with InvalidCardinality for an entry that stands
    /// twice, with MissingAddressInEPR for an endpoint without address;
    /// MessageAddressingHeaderRequired without an Action. O(entries and what they hold).
    static TzSoapWsAddressing read(const TzSoapMessage& message, const TzSoapNode& node);
    /// As above for a receiver with the roles that every receiver has.
    static TzSoapWsAddressing read(const TzSoapMessage& message);
    /// The names of the entries that `read` understands, for `TzSoapNode::addUnderstood`.
    static const std::vector<TzXmlName>& entryNames();

    /// Puts the properties into the header of `message`: To and Action always, the others if they
    /// are set. Replaces the entries of WS-Addressing that were there. They must be understood if
    /// `mustUnderstand`. `TzXmlBadArgError` without an action. O(entries).
    void write(TzSoapMessage& message, bool mustUnderstand = false) const;

    /// The properties of the answer to this request: it goes to `replyTo`, relates to `messageId`
    /// and carries the reference parameters that were asked for.
    TzSoapWsAddressing answer(const TzCString& answerAction) const;
    /// The properties of a fault in answer to this request: it goes to `faultTo`, or to `replyTo`
    /// unless that is set.
    TzSoapWsAddressing faultAnswer(const TzCString& faultAction = SoapFaultAction) const;

    /// `TzSoapFaultError` ActionMismatch, in the version of the request, unless the action is
    /// `httpAction`, the SOAPAction or the parameter "action" that the request came with. Quotes
    /// around it do not matter; "" fits every action.
    void checkAction(TzSoapVersion::Version version, const TzCString& httpAction) const;

    /// A new identifier, "urn:uuid:" and a random UUID (RFC 9562, 5.4). `std::runtime_error` when
    /// the system gives no random bytes.
    static TzCString makeMessageId();
};
