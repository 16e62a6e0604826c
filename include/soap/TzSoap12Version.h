// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>

/// The names of SOAP 1.2, in the namespaces of June 2002.
///
/// One object for the process, made on first use; any number of threads may use it at once.
class TZSOAP_API TzSoap12Version : public TzSoapVersion {
public:
    TzSoap12Version(const TzSoap12Version& other) noexcept;
    TzSoap12Version& operator=(const TzSoap12Version& other) noexcept;
    ~TzSoap12Version() override;

    /// The one object.
    static TzSoapVersion& getSoapVersion();

    /// `V1_2`.
    Version getVersion() const override;
    /// "env", "http://www.w3.org/2002/06/soap-envelope".
    const TzXmlNamespace& getSoapEnv() const override;
    /// "enc", "http://www.w3.org/2002/06/soap-encoding".
    const TzXmlNamespace& getSoapEnc() const override;
    /// "f", "http://www.w3.org/2002/06/soap-faults".
    const TzXmlNamespace& getSoapFault() const override;
    /// "rpc", "http://www.w3.org/2002/06/soap-rpc".
    const TzXmlNamespace& getSoapRpc() const override;
    /// "upgrade", "http://www.w3.org/2002/06/soap-upgrade".
    const TzXmlNamespace& getSoapUpgrade() const override;
    /// The envelope URI and "/role/next", "/role/none" or "/role/ultimateReceiver"; "" for any
    /// other.
    const TzCString& getSoapRole(SoapRole role) const override;
    /// The name of a fault code; `TzXmlError` INVALID_FAULT_CODE "Version1_2" for others.
    const TzXmlName& getFaultCode(SoapFaultCode code) const override;
    /// The name of a fault subcode; `TzXmlError` INVALID_FAULT_CODE "Version1_2" for others.
    const TzXmlName& getSubFaultCode(SoapSubFaultCode code) const override;
    /// The URI of the encoding namespace.
    const TzCString& getSoapEncodingStyle() const override;
    /// Whether `candidate` stands for the envelope namespace.
    bool matchSoapEnv(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` stands for the encoding namespace.
    bool matchSoapEnc(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` stands for the rpc namespace.
    bool matchSoapRpc(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` stands for the faults namespace.
    bool matchSoapFault(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` stands for the upgrade namespace.
    bool matchSoapUpgrade(const TzXmlNamespace& candidate) const override;
    /// The name of an attribute; empty for `ArrayType` and unknown values.
    const TzXmlName& getSoapAttributeQName(SoapAttribute attribute) const override;
    /// The name of an element; empty for unknown values.
    const TzXmlName& getSoapElementQName(SoapElement element) const override;

protected:
    TzSoap12Version() noexcept;
};
