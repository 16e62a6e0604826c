// SPDX-License-Identifier: MIT
#include "reading/TzSoapMimeLookup.h"

#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>

namespace {

constexpr std::string_view ContentIdScheme = "cid:";

std::optional<TzMimePart> partAt(const TzMimeMultipart& package, std::size_t position) {
    return position == TzMimePart::NotFound ? std::nullopt
                                            : std::optional(package.getPart(position));
}

} // namespace

std::optional<TzMimePart> tzSoapFindMimePart(const TzMimeMultipart& package,
                                             std::string_view href) {
    if (!package.hasParts()) {
        return std::nullopt;
    }
    if (href.starts_with(ContentIdScheme)) {
        return partAt(package, package.findPartById(href.substr(ContentIdScheme.size())));
    }
    if (auto part = partAt(package, package.findPartByLocation(href))) {
        return part;
    }
    const std::size_t base = package.findHeader(TzMimeContentLocationHeader::Label, 0);
    if (base == TzMimePart::NotFound) {
        return std::nullopt;
    }
    const TzMimeContentLocationHeader header(package.getHeader(base));
    return partAt(package, package.findPartByLocation(header.resolve(TzCString(href))));
}
