// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>

/// The names of SOAP 1.1. Has neither faults nor rpc nor upgrade namespace.
///
/// One object for the process, made on first use; any number of threads may use it at once.
class TZSOAP_API TzSoap11Version : public TzSoapVersion {
public:
    TzSoap11Version(const TzSoap11Version& other) noexcept;
    TzSoap11Version& operator=(const TzSoap11Version& other) noexcept;
    ~TzSoap11Version() override;

    /// The one object.
    static TzSoapVersion& getSoapVersion();

    /// `V1_1`.
    Version getVersion() const override;
    /// "SOAP-ENV", "http://schemas.xmlsoap.org/soap/envelope/".
    const TzXmlNamespace& getSoapEnv() const override;
    /// "SOAP-ENC", "http://schemas.xmlsoap.org/soap/encoding/".
    const TzXmlNamespace& getSoapEnc() const override;
    /// The envelope URI and "actor/next" for `Next`, "" for any other.
    const TzCString& getSoapRole(SoapRole role) const override;
    /// The name of a fault code; `TzXmlError` INVALID_FAULT_CODE "V1_1" above `Client`.
    const TzXmlName& getFaultCode(SoapFaultCode code) const override;
    /// Always `TzXmlError` INVALID_FAULT_CODE "V1_1".
    const TzXmlName& getSubFaultCode(SoapSubFaultCode code) const override;
    /// The URI of the encoding namespace.
    const TzCString& getSoapEncodingStyle() const override;
    /// Whether `candidate` stands for the envelope namespace.
    bool matchSoapEnv(const TzXmlNamespace& candidate) const override;
    /// Whether `candidate` stands for the encoding namespace.
    bool matchSoapEnc(const TzXmlNamespace& candidate) const override;
    /// The name of an attribute; empty for `ItemType`, `ArraySize` and unknown values.
    const TzXmlName& getSoapAttributeQName(SoapAttribute attribute) const override;
    /// The name of an element; empty for those of 1.2 alone and for unknown values.
    const TzXmlName& getSoapElementQName(SoapElement element) const override;

protected:
    TzSoap11Version() noexcept;
};
