// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>

#include <optional>

class TzSoapType;

/// The names of SOAP 1.2 as the W3C recommended it in 2003. Has neither faults nor upgrade
/// namespace.
///
/// One object for the process, made on first use; any number of threads may use it at once. Its
/// namespaces are matched exactly. The static operations name what only this version has; what they
/// return lasts as long as the object.
class TZSOAP_API TzSoap12RecVersion : public TzSoapVersion {
public:
    TzSoap12RecVersion(const TzSoap12RecVersion& other) noexcept;
    TzSoap12RecVersion& operator=(const TzSoap12RecVersion& other) noexcept;
    ~TzSoap12RecVersion() override;

    /// The one object.
    static TzSoapVersion& getSoapVersion();

    /// `V1_2Rec`.
    Version getVersion() const override;
    /// "env", "http://www.w3.org/2003/05/soap-envelope".
    const TzXmlNamespace& getSoapEnv() const override;
    /// "enc", "http://www.w3.org/2003/05/soap-encoding".
    const TzXmlNamespace& getSoapEnc() const override;
    /// "rpc", "http://www.w3.org/2003/05/soap-rpc".
    const TzXmlNamespace& getSoapRpc() const override;
    /// The envelope URI and "/role/next", "/role/none" or "/role/ultimateReceiver"; "" for any
    /// other.
    const TzCString& getSoapRole(SoapRole role) const override;
    /// The name of a fault code; `TzXmlError` INVALID_FAULT_CODE "V1_2Rec" for `DTDNotSupported`
    /// and others.
    const TzXmlName& getFaultCode(SoapFaultCode code) const override;
    /// The name of a fault subcode; `TzXmlError` INVALID_FAULT_CODE "V1_2Rec" for others.
    const TzXmlName& getSubFaultCode(SoapSubFaultCode code) const override;
    /// The URI of the encoding namespace.
    const TzCString& getSoapEncodingStyle() const override;
    /// Whether `candidate` has the URI of the envelope namespace.
    bool matchSoapEnv(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` has the URI of the encoding namespace.
    bool matchSoapEnc(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` has the URI of the rpc namespace.
    bool matchSoapRpc(const TzXmlNamespace& candidate) const override;
    /// The name of an attribute; empty for `Root`, `ArrayType`, `Position`, `Offset` and unknown
    /// values. `Ref` is "enc:ref".
    const TzXmlName& getSoapAttributeQName(SoapAttribute attribute) const override;
    /// The name of an element; empty for unknown values. `Misunderstood` is "env:NotUnderstood".
    const TzXmlName& getSoapElementQName(SoapElement element) const override;

    /// "id" in the encoding namespace: what "enc:ref" refers to.
    static const TzXmlName& getIdName();
    /// "nodeType" in the encoding namespace.
    static const TzXmlName& getNodeTypeName();
    /// "relay" in the envelope namespace.
    static const TzXmlName& getRelayName();
    /// Whether the header entry says that a node which does not process it passes it on: relay is
    /// "true" or "1".
    static bool isRelayed(const TzSoapType& entry);
    /// "Text" in the envelope namespace: a child of Reason in one language.
    static const TzXmlName& getReasonTextName();
    /// "Upgrade" in the envelope namespace: a header entry of VersionMismatch faults.
    static const TzXmlName& getUpgradeName();
    /// "SupportedEnvelope" in the envelope namespace: a child of Upgrade.
    static const TzXmlName& getSupportedEnvelopeName();
    /// The fault subcode "DuplicateID" in the encoding namespace.
    static const TzXmlName& getDuplicateIdCode();
    /// "result" in the rpc namespace: names the member of an answer that holds the return value.
    static const TzXmlName& getRpcResultName();
    /// The return value in `answer`, the struct that a procedure answers with, of any version: the
    /// member that "rpc:result" names, without one the first member; nothing when it is not there
    /// or `answer` has no members. O(members).
    static std::optional<TzSoapType> findReturnValue(const TzSoapType& answer);
    /// "http://www.w3.org/2003/05/soap-envelope/encoding/none": the encoding style that claims
    /// nothing.
    static const TzCString& getNoEncodingStyle();

protected:
    TzSoap12RecVersion() noexcept;
};
