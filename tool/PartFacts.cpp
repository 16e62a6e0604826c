// SPDX-License-Identifier: MIT
#include "PartFacts.h"

#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimePart.h>

PartFacts PartFacts::of(const TzMimePart& part) {
    const std::size_t type = part.findHeader(TzMimeContentTypeHeader::Label);
    return {part.getContentId().value_or(""), part.getContentLocation().value_or(""),
            type == TzMimePart::NotFound ? "" : part.getHeader(type).getValue(),
            part.getBodyView().size()};
}
