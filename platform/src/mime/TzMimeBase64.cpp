// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeBase64.h>

#include <tz/xml/TzXmlUtils.h>

#include "mime/TzMimeTransferEncoding.h"

#include <algorithm>

namespace {

using TzMimeTransferEncoding::Kind;

bool isLetter(char character) noexcept {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           (character >= '0' && character <= '9') || character == '+' || character == '/';
}

/// Whether the text, without white space, is whole groups of four with at most two '=' at its end.
bool isWellFormed(std::string_view text) noexcept {
    const auto rest = std::find_if_not(text.begin(), text.end(), isLetter);
    return text.size() % 4 == 0 && text.end() - rest <= 2 &&
           std::all_of(rest, text.end(), [](char character) { return character == '='; });
}

} // namespace

TzCString TzMimeBase64::encode(std::string_view bytes) {
    TzCString text;
    TzMimeTransferEncoding::encode(Kind::Base64, bytes, text);
    std::erase_if(text, TzXmlUtils::isWhiteSpace);
    return text;
}

std::optional<TzCString> TzMimeBase64::decode(std::string_view text) {
    TzCString letters(text);
    std::erase_if(letters, TzXmlUtils::isWhiteSpace);
    if (!isWellFormed(letters)) {
        return {};
    }
    return TzMimeTransferEncoding::decode(Kind::Base64, letters);
}
