// SPDX-License-Identifier: MIT
#include "PartFacts.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimePart.h>

namespace {

template <typename Header> std::string valueOf(const TzMimePart& part, const auto& get) {
    const std::size_t position = part.findHeader(Header::Label);
    return position == TzMimePart::NotFound ? std::string() : get(Header(part.getHeader(position)));
}

} // namespace

PartFacts PartFacts::of(const TzMimePart& part) {
    return {valueOf<TzMimeContentIdHeader>(part, [](const auto& header) { return header.getId(); }),
            valueOf<TzMimeContentLocationHeader>(
                part, [](const auto& header) { return header.getURI(); }),
            valueOf<TzMimeContentTypeHeader>(part,
                                             [](const auto& header) { return header.getValue(); }),
            part.getBodyView().size()};
}
