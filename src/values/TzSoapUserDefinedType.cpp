// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedType.h>

#include <soap/TzSoapUserDefinedTypeImp.h>

#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "model/TzSoapBodyAs.h"
#include "values/TzSoapMarkupCheck.h"

TzSoapUserDefinedType::TzSoapUserDefinedType()
    : TzSoapUserDefinedType(new TzSoapUserDefinedTypeImp()) {}

TzSoapUserDefinedType::TzSoapUserDefinedType(const TzXmlName& name, std::string_view markup,
                                             const std::vector<TzXmlNamespace>& declarations)
    : TzSoapUserDefinedType() {
    TzSoapMarkupCheck check(markup, declarations);
    if (check.name() != name) {
        TzThrow(TzXmlBadArgError(TzMessage("the markup is that of " +
                                           tzQuoted(check.name().getUniqueName()) + ", not of " +
                                           tzQuoted(name.getUniqueName()))));
    }
    body().setName(check.name());
    body().setMarkup(check.takeElement(), check.declarations());
}

TzSoapUserDefinedType::TzSoapUserDefinedType(TzSoapUserDefinedTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapUserDefinedType::~TzSoapUserDefinedType() = default;

TzSoapUserDefinedTypeImp& TzSoapUserDefinedType::body() const {
    return tzSoapBodyAs<TzSoapUserDefinedTypeImp>(bodyBase(), "TzSoapUserDefinedType");
}

TzSoapUserDefinedType TzSoapUserDefinedType::copy() const {
    return TzSoapUserDefinedType(static_cast<TzSoapUserDefinedTypeImp*>(body().clone()));
}

TzCString TzSoapUserDefinedType::getMarkup() const { return body().getMarkup(); }

std::vector<TzXmlNamespace> TzSoapUserDefinedType::getDeclarations() const {
    return body().getDeclarations();
}

TzCString TzSoapUserDefinedType::getValue() const { return body().getValue(); }
