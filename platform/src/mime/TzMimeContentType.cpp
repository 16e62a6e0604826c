// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeContentType.h>

#include "mime/TzMimeContentTypeBody.h"

TzMimeContentType::TzMimeContentType() : TzMimeContentType("text", "plain") {}

TzMimeContentType::TzMimeContentType(const TzCString& text)
    : TzHandleBase(new TzMimeContentTypeBody(text)) {}

TzMimeContentType::TzMimeContentType(const TzCString& type, const TzCString& subtype)
    : TzHandleBase(new TzMimeContentTypeBody(type, subtype)) {}

TzMimeContentType::~TzMimeContentType() = default;

TzMimeContentTypeBody& TzMimeContentType::body() const {
    return static_cast<TzMimeContentTypeBody&>(bodyBase());
}

TzCString TzMimeContentType::getPrimaryType() const { return body().primaryType(); }

TzCString TzMimeContentType::getSubtype() const { return body().subtype(); }

bool TzMimeContentType::matches(std::string_view type, std::string_view subtype) const {
    return tzEqualIgnoreCase(body().primaryType(), type) &&
           tzEqualIgnoreCase(body().subtype(), subtype);
}

TzCString TzMimeContentType::getParameter(std::string_view name) const {
    return body().parameter(name);
}

void TzMimeContentType::setParameter(std::string_view name, std::string_view value) {
    body().setParameter(name, value);
}

TzCString TzMimeContentType::asString() const { return body().asString(); }
