// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeContentTypeHeader.h>

#include "mime/TzMimeHeaderBody.h"

TzMimeContentTypeHeader::TzMimeContentTypeHeader(const TzMimeContentType& type)
    : TzMimeHeader(new TzMimeHeaderBody(Label, type)) {}

TzMimeContentTypeHeader::TzMimeContentTypeHeader(const TzMimeHeader& other)
    : TzMimeHeader(other, Label) {}

TzMimeContentTypeHeader::~TzMimeContentTypeHeader() = default;

TzMimeContentType TzMimeContentTypeHeader::getContentType() const {
    return body() != nullptr ? body()->contentType() : TzMimeContentType(TzCString());
}
