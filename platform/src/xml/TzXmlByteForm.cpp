// SPDX-License-Identifier: MIT
#include "xml/TzXmlByteForm.h"

TzXmlByteForm TzXmlByteForm::of(std::string_view text) noexcept {
    using namespace std::string_view_literals;
    if (text.starts_with("\xFF\xFE\0\0"sv)) {
        return {4, false, 4};
    }
    if (text.starts_with("\0\0\xFE\xFF"sv)) {
        return {4, true, 4};
    }
    if (text.starts_with("\xFF\xFE"sv)) {
        return {2, false, 2};
    }
    if (text.starts_with("\xFE\xFF"sv)) {
        return {2, true, 2};
    }
    if (text.starts_with("\xEF\xBB\xBF"sv)) {
        return {1, false, 3};
    }
    // XML begins with an ASCII character, whose other bytes are zero, and holds no NUL character.
    const auto zeroAt = [text](std::size_t i) { return i < text.size() && text[i] == '\0'; };
    if (zeroAt(0)) {
        return zeroAt(1) && zeroAt(2) ? TzXmlByteForm{4, true, 0} : TzXmlByteForm{2, true, 0};
    }
    if (zeroAt(1)) {
        return zeroAt(2) && zeroAt(3) ? TzXmlByteForm{4, false, 0} : TzXmlByteForm{2, false, 0};
    }
    return {};
}
