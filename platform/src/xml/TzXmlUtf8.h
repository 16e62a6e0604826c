// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstdint>

/// Text in UTF-8 (RFC 3629).
namespace TzXmlUtf8 {

/// Appends the character `code`, at most 0x10FFFF and not a surrogate, to `text`.
inline void append(TzCString& text, std::uint32_t code) {
    const auto byte = [](std::uint32_t value) { return static_cast<char>(value); };
    const auto follower = [](std::uint32_t bits) {
        return static_cast<char>(0x80 | (bits & 0x3F));
    };
    if (code < 0x80) {
        text += byte(code);
    } else if (code < 0x800) {
        text += {byte(0xC0 | code >> 6), follower(code)};
    } else if (code < 0x10000) {
        text += {byte(0xE0 | code >> 12), follower(code >> 6), follower(code)};
    } else {
        text +=
            {byte(0xF0 | code >> 18), follower(code >> 12), follower(code >> 6), follower(code)};
    }
}

} // namespace TzXmlUtf8
