// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeContentIdHeader.h>

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimeText.h"

namespace {

/// `id` in angle brackets, unless it has them already.
TzCString inBrackets(const TzCString& id) {
    const bool has = id.size() > 1 && id.front() == '<' && id.back() == '>';
    return has ? id : '<' + id + '>';
}

} // namespace

TzMimeContentIdHeader::TzMimeContentIdHeader(const TzCString& id)
    : TzMimeHeader(Label, inBrackets(id)) {}

TzMimeContentIdHeader::TzMimeContentIdHeader(const TzMimeHeader& other)
    : TzMimeHeader(other, Label) {}

TzMimeContentIdHeader::~TzMimeContentIdHeader() = default;

TzCString TzMimeContentIdHeader::getId() const {
    return body() != nullptr ? body()->comparable() : TzCString();
}

TzCString TzMimeContentIdHeader::decodeUrl(std::string_view url) {
    TzCString id;
    id.reserve(url.size());
    TzMimeText::appendPercentDecoded(id, url);
    return id;
}
