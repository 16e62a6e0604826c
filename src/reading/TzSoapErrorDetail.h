// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

class TzXmlName;

/// Details for the errors of a reading, in a form that a log can take: short and printable, even
/// for hostile texts.
namespace TzSoapErrorDetail {

/// Names an element: `the element is "html" in namespace "urn:x"`.
TzCString ofElement(const TzXmlName& name);
/// Quotes the beginning of a text that is not XML: `the text begins with "{..."`.
TzCString ofText(std::string_view text);
/// Quotes the value of a MIME header: `Content-Type is "text/html"`.
TzCString ofHeader(std::string_view label, std::string_view value);

} // namespace TzSoapErrorDetail
