// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the tests of parts and packages have in common.
namespace MimeTexts {

/// The header lines of a package with the boundary "b", and the empty line.
inline const std::string packageHead = "Content-Type: multipart/related; boundary=\"b\"\r\n\r\n";

/// The package that `text` holds.
inline TzMimeMultipart package(std::string text) {
    TzMimeMultipart read;
    read.fromString(std::move(text));
    return read;
}

/// The part that `text` holds.
inline TzMimePart part(std::string text) {
    TzMimePart read;
    read.fromString(std::move(text));
    return read;
}

/// A package with the boundary `boundary` and no other parameter.
inline TzMimeMultipart withBoundary(const std::string& boundary) {
    TzMimeMultipart made;
    made.insertHeader(TzMimeContentTypeHeader(TzMimeMultipartRelatedType("", "", "", boundary)));
    return made;
}

/// A part with this body and these headers.
inline TzMimePart withBody(std::string body,
                           const std::vector<std::pair<std::string, std::string>>& headers = {}) {
    TzMimePart made;
    for (const auto& [label, value] : headers) {
        made.insertHeader(TzMimeHeader(label, value));
    }
    made.setBody(std::move(body));
    return made;
}

/// The bodies of all parts.
inline std::vector<std::string> bodies(const TzMimeMultipart& package) {
    std::vector<std::string> all;
    for (std::size_t at = 0; at < package.getPartCount(); ++at) {
        all.push_back(package.getPart(at).getBody());
    }
    return all;
}

/// Label and value of all headers.
inline std::vector<std::pair<std::string, std::string>> headers(const TzMimePart& part) {
    std::vector<std::pair<std::string, std::string>> all;
    for (std::size_t at = 0; at < part.getHeaderCount(); ++at) {
        all.emplace_back(part.getHeader(at).getLabel(), part.getHeader(at).getValue());
    }
    return all;
}

/// The boundary that the Content-Type header of `package` states.
inline std::string boundary(const TzMimeMultipart& package) {
    const std::size_t at = package.findHeader(TzMimeContentTypeHeader::Label);
    return TzMimeMultipartRelatedType(
               TzMimeContentTypeHeader(package.getHeader(at)).getContentType())
        .getBoundary();
}

/// `text` `count` times.
inline std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t done = 0; done < count; ++done) {
        all.append(text);
    }
    return all;
}

} // namespace MimeTexts
