// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeTextType.h>

TzMimeTextType::TzMimeTextType(const TzCString& subtype, const TzCString& charset)
    : TzMimeContentType("text", subtype) {
    setParameter("charset", charset);
}

TzMimeTextType::TzMimeTextType(const TzMimeContentType& other) noexcept
    : TzMimeContentType(other) {}

TzMimeTextType::~TzMimeTextType() = default;

TzCString TzMimeTextType::getCharset() const { return getParameter("charset"); }
