// SPDX-License-Identifier: MIT
#include <soap/TzSoapFaultError.h>

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFaultMessage.h>

#include "dispatch/TzSoapInVersion.h"

namespace {

/// The version of a fault that no request asks for yet.
constexpr TzSoapVersion::Version Shown = TzSoapVersion::V1_2Rec;

TzCString textOf(const TzSoapMessage& message) {
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    return "fault " + fault.getCodeValue().getQualifiedName() + ": " + fault.getReason();
}

TzSoapMessage made(TzSoapVersion::Version version, TzSoapVersion::SoapFaultCode code,
                   const std::optional<TzSoapVersion::SoapSubFaultCode>& subcode,
                   const TzCString& reason) {
    return subcode ? TzSoapFaultMessage::make(version, code, *subcode, reason)
                   : TzSoapFaultMessage::make(version, code, reason);
}

} // namespace

TzSoapFaultError::TzSoapFaultError(TzSoapVersion::SoapFaultCode code, const TzCString& reason)
    : TzSoapFaultError(made(Shown, code, std::nullopt, reason)) {
    code_ = code;
}

TzSoapFaultError::TzSoapFaultError(TzSoapVersion::SoapFaultCode code,
                                   TzSoapVersion::SoapSubFaultCode subcode, const TzCString& reason)
    : TzSoapFaultError(made(Shown, code, subcode, reason)) {
    code_ = code;
    subcode_ = subcode;
}

TzSoapFaultError::TzSoapFaultError(const TzSoapMessage& message, int httpStatus)
    : Tzxmsg(textOf(message)), message_(message), status_(httpStatus) {}

TzSoapFaultError::~TzSoapFaultError() = default;

TzSoapFaultError TzSoapFaultError::procedureNotPresent(const TzXmlName& operation) {
    return {TzSoapVersion::Client, TzSoapVersion::ProcedureNotPresent,
            "There is no operation " + operation.getLocalName()};
}

TzSoapFaultError TzSoapFaultError::badArguments(const Tzxmsg& error) {
    return {TzSoapVersion::Client, TzSoapVersion::BadArguments, error.describe()};
}

TzSoapFaultError& TzSoapFaultError::addDetailEntry(const TzSoapType& entry) {
    TzSoapCompositeType detail = getDetail();
    detail.appendChild(entry);
    return *this;
}

TzXmlName TzSoapFaultError::getCode() const {
    return message_.getSoapBody().getSoapFault().getCodeValue();
}

std::vector<TzXmlName> TzSoapFaultError::getSubcodes() const {
    const TzSoapFault& fault = message_.getSoapBody().getSoapFault();
    std::vector<TzXmlName> names;
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        names.push_back(fault.getSubcodeValue(i));
    }
    return names;
}

TzCString TzSoapFaultError::getReason() const {
    return message_.getSoapBody().getSoapFault().getReason();
}

TzSoapCompositeType TzSoapFaultError::getDetail() const {
    return message_.getSoapBody().getSoapFault().getDetails();
}

TzSoapMessage TzSoapFaultError::makeMessage(TzSoapVersion::Version version,
                                            TzSoapStyle style) const {
    if (!code_) {
        return tzSoapInVersion(message_, version);
    }
    TzSoapMessage message = made(version, *code_, subcode_, getReason());
    message.setStyle(style);
    TzSoapCompositeType detail = message.getSoapBody().getSoapFault().getDetails();
    for (const TzSoapType& entry : getDetail()) {
        detail.appendChild(entry);
    }
    return message;
}
