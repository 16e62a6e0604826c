// SPDX-License-Identifier: MIT
#include "model/TzSoapFaultConversion.h"

#include <soap/TzSoapFaultImp.h>
#include <tz/tools/TzCTokenizer.h>

namespace {

constexpr char Dot[] = ".";
constexpr char LeftOut[] = "left out";

} // namespace

void TzSoapFaultConversion::convert(TzSoapFaultImp& fault) {
    code_ = fault.getCode();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        subcodes_.push_back(fault.getSubcode(i));
    }
    splitQualifiers();
    standardise();
    nameSubcodes();
    if (!prefix_.empty()) {
        fault.setSoapPrefix(prefix_);
    }
    fault.setCode(code_);
    fault.clearSubcodes();
    for (const TzXmlName& subcode : subcodes_) {
        fault.addSubcode(subcode);
    }
    if (!fault.getRole().empty() && !terms_.hasFaultRole()) {
        losses_.emplace_back("fault role " + fault.getRole(), LeftOut);
        fault.setRole(TzCString());
    }
}

void TzSoapFaultConversion::splitQualifiers() {
    // Where a version has no subcodes, a reader leaves them in the code.
    if (!terms_.hasSubcodes() || code_.getLocalName().find(Dot) == TzCString::npos) {
        return;
    }
    TzCTokenizer parts(code_.getLocalName());
    code_ = TzXmlName(parts.next(Dot), code_.getNamespace());
    std::vector<TzXmlName> qualifiers;
    for (TzCString part = parts.next(Dot); !part.empty(); part = parts.next(Dot)) {
        qualifiers.emplace_back(part);
    }
    subcodes_.insert(subcodes_.begin(), qualifiers.begin(), qualifiers.end());
}

TzXmlName TzSoapFaultConversion::nameOf(TzSoapVersion::SoapFaultCode code) const {
    const TzXmlName& name = terms_.target().getFaultCode(code);
    return prefix_.empty() ? name
                           : TzXmlName(name.getLocalName(), TzXmlNamespace(prefix_, name.getUri()));
}

void TzSoapFaultConversion::standardise() {
    TzSoapVersion::SoapFaultCode code{};
    const bool standard = TzSoapVersion::isSoapFaultCode(code_, code);
    if (standard && terms_.hasFaultCode(code)) {
        code_ = nameOf(code);
        return;
    }
    if (!standard && !terms_.hasSubcodes()) {
        return; // any name may be a code
    }
    // What no standard code stands for becomes a detail of one.
    const TzXmlName own = code_;
    code_ = nameOf(standard ? TzSoapVersion::Client : TzSoapVersion::Server);
    subcodes_.insert(subcodes_.begin(), standard ? TzXmlName(own.getLocalName()) : own);
    losses_.emplace_back("fault code " + own.asString(), "became a subcode of " + code_.asString());
}

void TzSoapFaultConversion::nameSubcodes() {
    for (TzXmlName& subcode : subcodes_) {
        if (const auto converted = terms_.nameSpace(subcode.getNamespace())) {
            subcode.setNamespace(*converted);
        }
        if (!terms_.hasSubcodes() && !subcode.getUri().empty()) {
            losses_.emplace_back("namespace " + subcode.getUri() + " of the fault subcode " +
                                     subcode.asString(),
                                 LeftOut);
            subcode = TzXmlName(subcode.getLocalName());
        }
    }
}
