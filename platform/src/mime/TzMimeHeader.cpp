// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeHeader.h>

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimeText.h"
#include "tools/TzPlatformLasting.h"

#include <algorithm>

TzMimeHeader::TzMimeHeader() noexcept : TzHandleBase(nullptr) {}

TzMimeHeader::TzMimeHeader(const TzCString& label, const TzCString& value)
    : TzHandleBase(new TzMimeHeaderBody(label, value)) {}

TzMimeHeader::TzMimeHeader(TzMimeHeaderBody* body) noexcept : TzHandleBase(body) {}

TzMimeHeader::TzMimeHeader(const TzMimeHeader& other, const char* label) : TzMimeHeader(other) {
    if (!tzEqualIgnoreCase(getLabel(), label)) {
        *this = TzMimeHeader(label, other.getValue());
    }
}

TzMimeHeader::~TzMimeHeader() = default;

TzMimeHeaderBody* TzMimeHeader::body() const noexcept {
    return static_cast<TzMimeHeaderBody*>(bodyPointer());
}

const TzCString& TzMimeHeader::getLabel() const noexcept {
    static TzPlatformLasting<const TzCString> none([] { return TzCString(); });
    return body() != nullptr ? body()->label() : *none;
}

TzCString TzMimeHeader::getValue() const {
    return body() != nullptr ? body()->value() : TzCString();
}

TzCString TzMimeHeader::asString() const {
    TzCString text;
    if (body() != nullptr) {
        body()->appendTo(text);
        text.resize(text.size() - std::min(text.size(), TzMimeText::LineEnd.size()));
    }
    return text;
}

bool operator==(const TzMimeHeader& left, const TzMimeHeader& right) {
    if (!tzEqualIgnoreCase(left.getLabel(), right.getLabel())) {
        return false;
    }
    const TzMimeHeaderBody* const one = left.body();
    const TzMimeHeaderBody* const other = right.body();
    return one == other ||
           (one != nullptr && other != nullptr && one->comparable() == other->comparable());
}
