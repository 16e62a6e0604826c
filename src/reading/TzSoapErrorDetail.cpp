// SPDX-License-Identifier: MIT
#include "reading/TzSoapErrorDetail.h"

#include <tz/xml/TzXmlName.h>

namespace {

/// Longest quotation, in bytes.
constexpr std::size_t LongestQuotation = 80;

/// `text` in quotation marks, cut when it is long. What is not printable ASCII becomes "?": a
/// quotation may be cut inside a character or begin with bytes of any encoding.
TzCString quoted(std::string_view text) {
    TzCString quotation = "\"";
    for (const char byte : text.substr(0, LongestQuotation)) {
        quotation += byte >= ' ' && byte <= '~' ? byte : '?';
    }
    return quotation + (text.size() > LongestQuotation ? "...\"" : "\"");
}

} // namespace

TzCString TzSoapErrorDetail::ofElement(const TzXmlName& name) {
    const TzCString element = "the element is " + quoted(name.getQualifiedName());
    return name.getUri().empty() ? element + " in no namespace"
                                 : element + " in namespace " + quoted(name.getUri());
}

TzCString TzSoapErrorDetail::ofText(std::string_view text) {
    return text.empty() ? "the text is empty" : "the text begins with " + quoted(text);
}

TzCString TzSoapErrorDetail::ofHeader(std::string_view label, std::string_view value) {
    return TzCString(label) + " is " + quoted(value);
}
