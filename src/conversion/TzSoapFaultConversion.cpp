// SPDX-License-Identifier: MIT
#include "conversion/TzSoapFaultConversion.h"

#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapReason.h>
#include <tz/tools/TzCTokenizer.h>

#include <utility>

namespace {

constexpr char Dot[] = ".";

} // namespace

void TzSoapFaultConversion::prepare(const TzSoapFaultImp& fault, const TzCString& prefix) {
    name_ = TzXmlName(fault.getName().getLocalName(),
                      TzXmlNamespace(prefix, terms_.target().getSoapEnv().getUri()));
    code_ = fault.getCodeValue();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        subcodes_.push_back(fault.getSubcodeValue(i));
    }
    splitQualifiers();
    standardise();
    nameSubcodes();
    loseReasons(fault);
    dropsRole_ = !fault.getRole().empty() && !terms_.hasFaultRole();
    if (dropsRole_) {
        losses_.add("fault role " + TzSoapLosses::shown(fault.getRole()), TzSoapLosses::LeftOut);
    }
}

void TzSoapFaultConversion::loseReasons(const TzSoapFaultImp& fault) {
    if (!terms_.targetTerm(TzSoapVersionTable::ReasonText).isEmpty()) {
        return;
    }
    const std::vector<TzSoapReason>& reasons = fault.getReasons();
    for (std::size_t i = 1; i < reasons.size(); ++i) {
        losses_.add("fault reason in \"" + TzSoapLosses::shown(reasons[i].language) + '"',
                    TzSoapLosses::LeftOut);
    }
}

void TzSoapFaultConversion::apply(TzSoapFaultImp& fault) noexcept {
    fault.takeNames(std::move(name_), std::move(code_), std::move(subcodes_));
    if (dropsRole_) {
        fault.setRole(TzCString());
    }
}

void TzSoapFaultConversion::splitQualifiers() {
    // The reader of a version without subcodes leaves qualifiers in the code.
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
    return {terms_.target().getFaultCode(code).getLocalName(), name_.getNamespace()};
}

void TzSoapFaultConversion::standardise() {
    TzSoapVersion::SoapFaultCode code{};
    const bool standard = terms_.isFaultCode(code_, code);
    if (standard && terms_.hasFaultCode(code)) {
        code_ = nameOf(code);
        return;
    }
    if (!standard && !terms_.hasSubcodes()) {
        return; // any name may be a code
    }
    // A code that the target version lacks becomes a subcode of a standard one.
    const TzXmlName own = code_;
    code_ = nameOf(standard ? TzSoapVersion::Client : TzSoapVersion::Server);
    subcodes_.insert(subcodes_.begin(), standard ? TzXmlName(own.getLocalName()) : own);
    losses_.add("fault code " + TzSoapLosses::shown(own.asString()),
                "became a subcode of " + TzSoapLosses::shown(code_.asString()));
}

void TzSoapFaultConversion::nameSubcodes() {
    for (TzXmlName& subcode : subcodes_) {
        if (terms_.hasSubcodes()) {
            subcode = terms_.subcode(subcode);
        } else if (const auto converted = terms_.nameSpace(subcode.getNamespace())) {
            subcode.setNamespace(*converted);
        }
        if (!terms_.hasSubcodes() && !subcode.getUri().empty()) {
            losses_.add("namespace " + TzSoapLosses::shown(subcode.getUri()) +
                            " of the fault subcode " + TzSoapLosses::shown(subcode.asString()),
                        TzSoapLosses::LeftOut);
            subcode = TzXmlName(subcode.getLocalName());
        }
    }
}
