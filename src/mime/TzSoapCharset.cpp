// SPDX-License-Identifier: MIT
#include "mime/TzSoapCharset.h"

#include <tz/mime/TzMimeContentType.h>
#include <tz/xml/TzXmlProlog.h>

#include <algorithm>

namespace {

/// Whether the text begins with a tag: any other text shows its encoding itself.
bool beginsWithTag(std::string_view text) noexcept {
    return text.size() > 1 && text[0] == '<' && text[1] != '?' && text[1] != '\0';
}

} // namespace

bool TzSoapCharset::isName(std::string_view name) noexcept {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '-' || character == '_' ||
               character == '.' || character == ':';
    });
}

std::optional<TzCString> TzSoapCharset::declare(const TzMimeContentType& content,
                                                std::string_view text) {
    const TzCString charset = content.getParameter("charset");
    if (!isName(charset) || tzEqualIgnoreCase(charset, "utf-8") || !beginsWithTag(text)) {
        return std::nullopt;
    }
    return TzXmlProlog("1.0", charset).asString().append(text);
}
