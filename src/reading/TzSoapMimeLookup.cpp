// SPDX-License-Identifier: MIT
#include "reading/TzSoapMimeLookup.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>

namespace {

constexpr std::string_view ContentIdScheme = "cid:";

std::optional<TzMimePart> partWith(const TzMimeMultipart& package, const TzMimeHeader& header) {
    const std::size_t found = package.findPart(header, 0);
    return found == TzMimePart::NotFound ? std::nullopt : std::optional(package.getPart(found));
}

std::optional<TzMimePart> partAt(const TzMimeMultipart& package, const TzCString& location) {
    return partWith(package, TzMimeContentLocationHeader(location));
}

} // namespace

std::optional<TzMimePart> tzSoapFindMimePart(const TzMimeMultipart& package,
                                             std::string_view href) {
    if (!package.hasParts()) {
        return std::nullopt;
    }
    if (href.starts_with(ContentIdScheme)) {
        const TzCString id = TzCString("<").append(href.substr(ContentIdScheme.size())) + ">";
        return partWith(package, TzMimeContentIdHeader(id));
    }
    const TzCString location(href);
    if (auto part = partAt(package, location)) {
        return part;
    }
    const std::size_t base = package.findHeader(TzMimeContentLocationHeader::Label, 0);
    if (base == TzMimePart::NotFound) {
        return std::nullopt;
    }
    return partAt(package, TzMimeContentLocationHeader(package.getHeader(base)).resolve(location));
}
