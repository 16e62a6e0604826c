// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

class TzSoapVersionTable;

/// Every name, namespace and role that differs between the versions of SOAP.
///
/// One object per version answers for it; the static operations take a version and forward, or
/// recognise what was met while reading. Everything returned by reference is made on first use,
/// never changes and lasts until all exit handlers of the process and all destructors of global
/// objects have run. All operations are O(1) and, but for the first use and the errors, allocate
/// nothing. Any number of threads may use the class at once, the first use included.
class TZSOAP_API TzSoapVersion {
    friend class TzSoapVersionTable;

public:
    /// Version of an envelope.
    ///
    /// Look-ups without a version, such as `isSupportedVersion`, `isSoapEnv` and
    /// `isSoapAttribute`, know the first two only; "either version" below means these. Messages of
    /// `V1_2Rec` are written when a program makes them, and read when the message's
    /// `TzSoapReadLimits` say so; `isKnownVersion` recognises all three.
    enum Version : int {
        V1_1 = 1,       ///< SOAP 1.1.
        V1_2 = 2,       ///< SOAP 1.2, the namespaces of June 2002; the latest by default.
        V1_2Rec = 2003, ///< SOAP 1.2 as recommended in 2003, the SOAP 1.2 of living services.
    };

    /// Attributes that SOAP defines.
    enum SoapAttribute : int {
        EncodingStyle = 0,  ///< "encodingStyle", envelope namespace.
        MustUnderstand = 1, ///< "mustUnderstand", envelope namespace.
        Actor = 2,          ///< "actor" in 1.1, "role" in 1.2, envelope namespace.
        Root = 3,           ///< "root", encoding namespace; not in `V1_2Rec`.
        ArrayType = 4,      ///< "arrayType", encoding namespace, 1.1 only.
        Position = 5,       ///< "position", encoding namespace; not in `V1_2Rec`.
        Offset = 6,         ///< "offset", encoding namespace; not in `V1_2Rec`.
        ItemType = 7,       ///< "itemType", encoding namespace, 1.2 only.
        ArraySize = 8,      ///< "arraySize", encoding namespace, 1.2 only.
        Ref = 9,   ///< The version's own reference attribute: "href" in 1.1, "ref" in 1.2, in
                   ///< the encoding namespace in `V1_2Rec`.
        Href = 10, ///< "href" in both, unqualified.
    };

    /// Elements that SOAP defines.
    enum SoapElement : int {
        Envelope = 0,       ///< "Envelope".
        Body = 1,           ///< "Body".
        Header = 2,         ///< "Header".
        Fault = 3,          ///< "Fault".
        FaultCode = 4,      ///< "faultcode" (unqualified) in 1.1, "Code" in 1.2.
        FaultString = 5,    ///< "faultstring" (unqualified) in 1.1, "Reason" in 1.2.
        FaultActor = 6,     ///< "faultactor" (unqualified) in 1.1, "Node" in 1.2.
        FaultRole = 7,      ///< "Role", 1.2 only.
        FaultDetail = 8,    ///< "detail" (unqualified) in 1.1, "Detail" in 1.2.
        FaultSubcode = 9,   ///< "Subcode", 1.2 only.
        FaultValue = 10,    ///< "Value", 1.2 only.
        Misunderstood = 11, ///< "Misunderstood", faults namespace, 1.2 only; "NotUnderstood",
                            ///< envelope namespace, in `V1_2Rec`.
    };

    /// Fault codes. Scoped, because `MustUnderstand` is an attribute too; the other enumerators are
    /// also members of the class itself.
    enum class SoapFaultCode : int {
        VersionMismatch = 0,     ///< "VersionMismatch".
        MustUnderstand = 1,      ///< "MustUnderstand".
        Server = 2,              ///< "Server" in 1.1, "Receiver" in 1.2.
        Client = 3,              ///< "Client" in 1.1, "Sender" in 1.2.
        DataEncodingUnknown = 4, ///< "DataEncodingUnknown", 1.2 only.
        DTDNotSupported = 5,     ///< "DTDNotSupported", 1.2 only, not in `V1_2Rec`.
    };
    using SoapFaultCode::Client;
    using SoapFaultCode::DataEncodingUnknown;
    using SoapFaultCode::DTDNotSupported;
    using SoapFaultCode::Server;
    using SoapFaultCode::VersionMismatch;

    /// Fault subcodes, 1.2 only.
    enum SoapSubFaultCode : int {
        MissingID = 0,    ///< "MissingID", encoding namespace.
        UnTypedValue = 1, ///< "UnTypedValue", "UntypedValue" in `V1_2Rec`, encoding namespace.
        ProcedureNotPresent = 2, ///< "ProcedureNotPresent", rpc namespace.
        BadArguments = 3,        ///< "BadArguments", rpc namespace.
    };

    /// Roles that a header entry can be meant for.
    enum SoapRole : int {
        Next = 0,             ///< Whoever receives the message next.
        None = 1,             ///< Nobody, 1.2 only.
        UltimateReceiver = 2, ///< The last receiver, 1.2 only.
    };

    /// Copies nothing: there is nothing to copy.
    TzSoapVersion(const TzSoapVersion& other) noexcept;
    /// Copies nothing.
    TzSoapVersion& operator=(const TzSoapVersion& other) noexcept;
    virtual ~TzSoapVersion();

    /// The version that this object answers for.
    virtual Version getVersion() const = 0;
    /// The envelope namespace.
    virtual const TzXmlNamespace& getSoapEnv() const = 0;
    /// The encoding namespace.
    virtual const TzXmlNamespace& getSoapEnc() const = 0;
    /// The faults namespace; empty here and in 1.1.
    virtual const TzXmlNamespace& getSoapFault() const;
    /// The rpc namespace; empty here and in 1.1.
    virtual const TzXmlNamespace& getSoapRpc() const;
    /// The upgrade namespace; empty here and in 1.1.
    virtual const TzXmlNamespace& getSoapUpgrade() const;
    /// The URI of `role`, "" where the version lacks it; "" here.
    virtual const TzCString& getSoapRole(SoapRole role) const;
    /// The name of a fault code; `TzXmlError` INVALID_FAULT_CODE where the version lacks it.
    virtual const TzXmlName& getFaultCode(SoapFaultCode code) const = 0;
    /// The name of a fault subcode; `TzXmlError` INVALID_FAULT_CODE where the version lacks it.
    virtual const TzXmlName& getSubFaultCode(SoapSubFaultCode code) const = 0;
    /// The version's encoding style: the URI of its encoding namespace.
    virtual const TzCString& getSoapEncodingStyle() const = 0;
    /// Whether `candidate` stands for the envelope namespace (see `matchNamespaces`).
    virtual bool matchSoapEnv(const TzXmlNamespace& candidate) const = 0;
    /// Whether `candidate` stands for the encoding namespace.
    virtual bool matchSoapEnc(const TzXmlNamespace& candidate) const = 0;
    /// Whether `candidate` stands for the rpc namespace; false here and in 1.1.
    virtual bool matchSoapRpc(const TzXmlNamespace& candidate) const;
    /// Whether `candidate` stands for the faults namespace; false here and in 1.1.
    virtual bool matchSoapFault(const TzXmlNamespace& candidate) const;
    /// Whether `candidate` stands for the upgrade namespace; false here and in 1.1.
    virtual bool matchSoapUpgrade(const TzXmlNamespace& candidate) const;
    /// The name of an attribute; the empty name where the version lacks it.
    virtual const TzXmlName& getSoapAttributeQName(SoapAttribute attribute) const = 0;
    /// The name of an element; the empty name where the version lacks it.
    virtual const TzXmlName& getSoapElementQName(SoapElement element) const = 0;
    /// Whether `name` is this version's `element`: the same local part, the namespaces matched like
    /// those of envelopes. Never true for an element that the version lacks.
    bool matchSoapElement(const TzXmlName& name, SoapElement element) const;

    /// The object of `version`; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    static TzSoapVersion& getSoapVersion(Version version);
    /// The object of the latest version.
    static TzSoapVersion& getLatestSoapVersion();
    /// The latest version.
    static Version getLatestVersion() noexcept { return V1_2; }

    /// Whether `candidate` is the envelope namespace of a version, tried from the latest on, and of
    /// which; `version` is left alone if it is not.
    static bool isSupportedVersion(const TzXmlNamespace& candidate, Version& version);
    /// Whether `candidate` is the envelope namespace of any version, `V1_2Rec` included, and of
    /// which; `version` is left alone if it is not. The URI of `V1_2Rec` must be spelt exactly.
    static bool isKnownVersion(const TzXmlNamespace& candidate, Version& version);
    /// Whether `uri` is the envelope namespace of a version.
    static bool isSoapEnv(const TzCString& uri);
    /// Whether `uri` is the envelope namespace of a version, and of which (set only if it is).
    static bool isSoapEnv(const TzCString& uri, Version& version);
    /// Whether `uri` is the encoding namespace of a version.
    static bool isSoapEnc(const TzCString& uri);
    /// Whether `uri` is the encoding namespace of a version, and of which (set only if it is).
    static bool isSoapEnc(const TzCString& uri, Version& version);
    /// Whether `uri` is the encoding style of a version; does what `isSoapEnc` does.
    static bool isSoapEncodingStyle(const TzCString& uri);
    /// Whether `uri` is the encoding style of a version, and of which (set only if it is).
    static bool isSoapEncodingStyle(const TzCString& uri, Version& version);
    /// Whether `name` is an attribute of SOAP in an envelope or encoding namespace.
    static bool isSoapAttribute(const TzXmlName& name);
    /// Which attribute of SOAP `name` is. The version is that of the namespace, and set as soon as
    /// that is one of SOAP, while the local part may be that of either version; `attribute` is left
    /// alone if the local part is unknown.
    static bool isSoapAttribute(const TzXmlName& name, SoapAttribute& attribute, Version& version);
    /// The name of an attribute in `version`; the empty name where the version lacks it,
    /// `TzXmlError` UNKNOWN_VERSION for an unknown version.
    static const TzXmlName& getSoapAttributeName(SoapAttribute attribute, Version version);
    /// The name of an element in `version`; the empty name where the version lacks it, `TzXmlError`
    /// UNKNOWN_VERSION for an unknown version.
    static const TzXmlName& getSoapElementName(SoapElement element, Version version);
    /// Whether `name` is the name of that attribute in `version`; false for an unknown
    /// attribute, `TzXmlError` UNKNOWN_VERSION for an unknown version.
    static bool matchSoapAttributeName(const TzXmlName& name, SoapAttribute attribute,
                                       Version version);
    /// Whether `name` is a fault code of either version in the envelope namespace of either
    /// version.
    static bool isSoapFaultCode(const TzXmlName& name);
    /// Which fault code `name` is; `code` is left alone if it is not one.
    static bool isSoapFaultCode(const TzXmlName& name, SoapFaultCode& code);
    /// The fault code that `name` is; `TzXmlError` INVALID_FAULT_CODE for any other name.
    static SoapFaultCode getSoapFaultCode(const TzXmlName& name);

protected:
    static const TzCString EnvelopeTag;            ///< "Envelope", element.
    static const TzCString BodyTag;                ///< "Body", element.
    static const TzCString HeaderTag;              ///< "Header", element.
    static const TzCString FaultTag;               ///< "Fault", element.
    static const TzCString EncodingStyleTag;       ///< "encodingStyle", attribute.
    static const TzCString MustUnderstandTag;      ///< "mustUnderstand", attribute.
    static const TzCString RootTag;                ///< "root", attribute.
    static const TzCString PositionTag;            ///< "position", attribute.
    static const TzCString OffsetTag;              ///< "offset", attribute.
    static const TzCString VersionMismatchTag;     ///< "VersionMismatch", fault code.
    static const TzCString MustUnderstandFaultTag; ///< "MustUnderstand", fault code.
    static const TzCString ClientTag;              ///< "Client", fault code of 1.1.
    static const TzCString ServerTag;              ///< "Server", fault code of 1.1.
    static const TzCString ReceiverTag;            ///< "Receiver", fault code of 1.2.
    static const TzCString SenderTag;              ///< "Sender", fault code of 1.2.
    static const TzCString DataEncodingUnknownTag; ///< "DataEncodingUnknown", fault code of 1.2.
    static const TzCString DTDNotSupportedTag;     ///< "DTDNotSupported", fault code of 1.2.
    static const TzCString ProcedureNotPresentTag; ///< "ProcedureNotPresent", fault subcode.
    static const TzCString BadArgumentsTag;        ///< "BadArguments", fault subcode.
    static const TzCString MissingIDTag;           ///< "MissingID", fault subcode.
    static const TzCString UnTypedValueTag;        ///< "UnTypedValue", fault subcode.
    static const TzCString MisunderstoodTag;       ///< "Misunderstood", header entry of 1.2.

    /// The empty name: the answer to every look-up of what a version does not have.
    static const TzXmlName DummyXmlName;

    TzSoapVersion() noexcept;

    /// Whether both URIs stand for the same namespace, prefixes ignored. Deliberately tolerant:
    /// URIs that differ in the last character only match, and so do URIs of which one lacks the
    /// other's last character, so that the 1.1 envelope may come without its closing slash.
    static bool matchNamespaces(const TzXmlNamespace& left, const TzXmlNamespace& right) noexcept;
};
