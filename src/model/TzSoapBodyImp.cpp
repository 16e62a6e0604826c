// SPDX-License-Identifier: MIT
#include <soap/TzSoapBodyImp.h>

#include <soap/TzSoapFaultImp.h>

#include "model/TzSoapAccess.h"

TzSoapBodyImp::TzSoapBodyImp(TzSoapVersion::Version version)
    : TzSoapElementImp(TzSoapVersion::getSoapElementName(TzSoapVersion::Body, version)),
      version_(version), fault_(TzSoapAccess::handle<TzSoapFault>(version)) {}

TzSoapBodyImp::TzSoapBodyImp(const TzSoapBodyImp& other)
    : TzSoapElementImp(other), TzBodyBase(other), TzSoapGenericTypeHandler(other),
      version_(other.version_), entries_(other.entries_.copyValues()), fault_(other.fault_.copy()),
      hasFaultElement_(other.hasFaultElement_), textBeforeFault_(other.textBeforeFault_) {}

TzSoapBodyImp::~TzSoapBodyImp() = default;

void TzSoapBodyImp::setVersion(TzSoapVersion::Version version) {
    TzSoapAccess::body(fault_).setVersion(version); // fails, if at all, before it changes anything
    setName(TzSoapVersion::getSoapElementName(TzSoapVersion::Body, version));
    version_ = version;
}

TzSoapBodyImp* TzSoapBodyImp::clone() const { return new TzSoapBodyImp(*this); }

void TzSoapBodyImp::clear() {
    clearElement();
    entries_.clear();
    TzSoapFaultImp& fault = TzSoapAccess::body(fault_);
    fault.clear();
    fault.clearSubcodes();
    fault.setVersion(version_);
    hasFaultElement_ = false;
    textBeforeFault_.clear();
}

void TzSoapBodyImp::appendEntry(const TzSoapType& entry) { insert(entries_.end(), entry); }

void TzSoapBodyImp::prependEntry(const TzSoapType& entry) { insert(entries_.begin(), entry); }

TzSoapBodyImp::iterator TzSoapBodyImp::insert(iterator position, const TzSoapType& entry) {
    static_cast<void>(TzSoapAccess::body(entry)); // an entry without a body could not be written
    return entries_.insert(position, entry);
}

[[gnu::hot]] bool TzSoapBodyImp::hasSoapFault() const {
    return !TzSoapAccess::body(fault_).getCode().getLocalName().empty();
}

bool operator==(const TzSoapBodyImp& left, const TzSoapBodyImp& right) {
    return left.entries().sharesValues(right.entries());
}

bool operator!=(const TzSoapBodyImp& left, const TzSoapBodyImp& right) { return !(left == right); }
