// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeContentLocationHeader.h>

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimeUri.h"

TzMimeContentLocationHeader::TzMimeContentLocationHeader(const TzCString& uri)
    : TzMimeHeader(Label, uri) {}

TzMimeContentLocationHeader::TzMimeContentLocationHeader(const TzMimeHeader& other)
    : TzMimeHeader(other, Label) {}

TzMimeContentLocationHeader::~TzMimeContentLocationHeader() = default;

TzCString TzMimeContentLocationHeader::getURI() const {
    return body() != nullptr ? body()->comparable() : TzCString();
}

TzCString TzMimeContentLocationHeader::resolve(const TzCString& reference) const {
    return TzMimeUri::resolve(getURI(), reference);
}
