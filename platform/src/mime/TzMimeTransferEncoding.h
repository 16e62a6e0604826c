// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// The transfer encodings of RFC 2045.
namespace TzMimeTransferEncoding {

/// What is done to the bytes of a body.
enum class Kind : unsigned char {
    Identity,       ///< Nothing: 7bit, 8bit, binary and what is not known.
    Base64,         ///< Letters and digits, lines of 76.
    QuotedPrintable ///< Text as it is, all other bytes as "=" and two hexadecimal digits.
};

/// Bytes that one line of base64 stands for.
inline constexpr std::size_t Base64BytesPerLine = 57;

/// The label of the header that names the encoding.
inline constexpr char Label[] = "Content-Transfer-Encoding";

/// The encoding that the header value `value` names.
Kind kindOf(std::string_view value) noexcept;
/// How many bytes `encode` will add for a body of `size` bytes; a lower bound for quoted-printable.
std::size_t encodedSize(Kind kind, std::size_t size) noexcept;
/// Adds `bytes` in the encoding `kind` to `out`, lines ending in CRLF. Every byte comes back as it
/// was. Linear.
void encode(Kind kind, std::string_view bytes, TzCString& out);
/// The bytes that `text` stands for. Characters that base64 does not know are skipped, those that
/// quoted-printable does not know are copied. Linear.
TzCString decode(Kind kind, std::string_view text);

} // namespace TzMimeTransferEncoding
