// SPDX-License-Identifier: MIT
#include <soap/TzSoapMisunderstoodTypeImp.h>

#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersion.h>

TzSoapMisunderstoodTypeImp::TzSoapMisunderstoodTypeImp() = default;

TzSoapMisunderstoodTypeImp::TzSoapMisunderstoodTypeImp(const TzXmlName& qname)
    : TzSoapTypeImp(TzSoapVersion::getSoapElementName(TzSoapVersion::Misunderstood,
                                                      TzSoapVersion::getLatestVersion())),
      qualifiedName_(qname) {
    getAttributeSet().addDeclaration(qname.getNamespace());
    getAttributeSet().add(TzXmlName("qname"), qname.asString());
}

TzSoapMisunderstoodTypeImp::TzSoapMisunderstoodTypeImp(const TzSoapMisunderstoodTypeImp& other) =
    default;

TzSoapMisunderstoodTypeImp::~TzSoapMisunderstoodTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapMisunderstoodTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Misunderstood;
}

const TzCString& TzSoapMisunderstoodTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::misunderstoodString;
}

TzSoapElementImp* TzSoapMisunderstoodTypeImp::clone() const {
    return new TzSoapMisunderstoodTypeImp(*this);
}

void TzSoapMisunderstoodTypeImp::setQualifiedName(const TzXmlName& qname) {
    qualifiedName_ = qname;
}
