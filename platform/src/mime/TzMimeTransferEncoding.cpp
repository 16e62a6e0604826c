// SPDX-License-Identifier: MIT
#include "mime/TzMimeTransferEncoding.h"

#include "mime/TzMimeText.h"

#include <tz/tools/TzTextTools.h>

#include <array>
#include <cstdint>
#include <optional>

namespace {

using TzMimeTransferEncoding::Kind;

constexpr std::string_view Letters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr std::size_t LineLength = 76;
constexpr std::size_t BytesPerLine = TzMimeTransferEncoding::Base64BytesPerLine;
static_assert(BytesPerLine == LineLength / 4 * 3);
constexpr unsigned char NoLetter = 0xFF;

constexpr std::array<unsigned char, 256> makeLetterValues() {
    std::array<unsigned char, 256> values{};
    values.fill(NoLetter);
    for (std::size_t index = 0; index < Letters.size(); ++index) {
        values[static_cast<unsigned char>(Letters[index])] = static_cast<unsigned char>(index);
    }
    return values;
}

constexpr std::array<unsigned char, 256> LetterValues = makeLetterValues();

std::uint32_t byteAt(std::string_view bytes, std::size_t position) noexcept {
    return static_cast<unsigned char>(bytes[position]);
}

/// Writes the four characters for up to three bytes at `out`.
void encodeGroup(std::string_view bytes, char* out) noexcept {
    const std::uint32_t second = bytes.size() > 1 ? byteAt(bytes, 1) : 0;
    const std::uint32_t third = bytes.size() > 2 ? byteAt(bytes, 2) : 0;
    const std::uint32_t group = byteAt(bytes, 0) << 16U | second << 8U | third;
    out[0] = Letters[group >> 18U];
    out[1] = Letters[group >> 12U & 63U];
    out[2] = bytes.size() > 1 ? Letters[group >> 6U & 63U] : '=';
    out[3] = bytes.size() > 2 ? Letters[group & 63U] : '=';
}

void encodeBase64(std::string_view bytes, TzCString& out) {
    const std::size_t start = out.size();
    out.resize(start + TzMimeTransferEncoding::encodedSize(Kind::Base64, bytes.size()));
    char* to = out.data() + start;
    for (std::size_t from = 0; from < bytes.size(); from += 3) {
        if (from != 0 && from % BytesPerLine == 0) {
            *to++ = '\r';
            *to++ = '\n';
        }
        encodeGroup(bytes.substr(from, 3), to);
        to += 4;
    }
}

/// Collects the six bits of each letter.
class Base64Decoder {
public:
    explicit Base64Decoder(std::size_t textSize) { out_.reserve(textSize / 4 * 3 + 3); }

    /// Takes one character; false when it ends the data.
    bool take(char character) {
        const unsigned char value = LetterValues[static_cast<unsigned char>(character)];
        if (value == NoLetter) {
            // '=' before a group's third letter is not padding; skip it.
            return character != '=' || count_ < 2;
        }
        group_ = group_ << 6U | value;
        if (++count_ == 4) {
            put(3);
            group_ = 0;
            count_ = 0;
        }
        return true;
    }

    /// The bytes, with those of a group that was not completed.
    TzCString finish() && {
        if (count_ > 1) {
            group_ <<= 6U * (4 - count_);
            put(count_ - 1);
        }
        return std::move(out_);
    }

private:
    void put(unsigned bytes) {
        for (unsigned index = 0; index < bytes; ++index) {
            out_.push_back(static_cast<char>(group_ >> (16U - 8U * index) & 0xFFU));
        }
    }

    TzCString out_;
    std::uint32_t group_ = 0;
    unsigned count_ = 0;
};

TzCString decodeBase64(std::string_view text) {
    Base64Decoder decoder(text.size());
    for (const char character : text) {
        if (!decoder.take(character)) {
            break;
        }
    }
    return std::move(decoder).finish();
}

/// Adds the quoted-printable form of a body line by line.
class QuotedPrintableEncoder {
public:
    explicit QuotedPrintableEncoder(TzCString& out) : out_(out) {}

    void encode(std::string_view bytes) {
        for (std::size_t position = 0; position < bytes.size(); ++position) {
            const std::string_view rest = bytes.substr(position);
            if (rest.starts_with(TzMimeText::LineEnd)) {
                out_.append(TzMimeText::LineEnd);
                column_ = 0;
                ++position;
            } else {
                putByte(rest);
            }
        }
    }

private:
    /// Whether the first of `rest` may stand for itself: blanks do so inside of a line only.
    static bool isPlain(std::string_view rest) noexcept {
        const char character = rest.front();
        if (TzMimeText::isBlank(character)) {
            return rest.size() > 1 && rest[1] != '\r' && rest[1] != '\n';
        }
        return character > ' ' && character < '\x7f' && character != '=';
    }

    void putByte(std::string_view rest) {
        if (isPlain(rest)) {
            breakBefore(1);
            out_.push_back(rest.front());
            return;
        }
        breakBefore(3);
        const auto byte = static_cast<unsigned char>(rest.front());
        out_.push_back('=');
        out_.push_back(HexDigits[byte >> 4U]);
        out_.push_back(HexDigits[byte & 15U]);
    }

    /// Makes room for `length` characters and the "=" that may have to follow.
    void breakBefore(std::size_t length) {
        if (column_ + length >= LineLength) {
            out_.append("=\r\n");
            column_ = 0;
        }
        column_ += length;
    }

    TzCString& out_;
    std::size_t column_ = 0;
};

/// Adds what one line stands for; false when a soft line break joins it to the next one.
bool decodeQuotedLine(std::string_view line, TzCString& out) {
    for (std::size_t position = 0; position < line.size(); ++position) {
        const char character = line[position];
        if (character != '=') {
            out.push_back(character);
            continue;
        }
        if (position + 1 == line.size()) {
            return false;
        }
        const std::optional<char> byte = TzTextTools::hexByte(line.substr(position + 1));
        out.push_back(byte.value_or(character));
        position += byte ? 2 : 0;
    }
    return true;
}

TzCString decodeQuotedPrintable(std::string_view text) {
    TzCString out;
    out.reserve(text.size());
    for (std::size_t from = 0; from < text.size();) {
        const TzMimeText::Line line = TzMimeText::lineAt(text, from);
        // Blanks at the end of a line were added on the way (RFC 2045, 6.7).
        if (decodeQuotedLine(TzMimeText::trimEnd(line.content), out)) {
            const std::size_t end = from + line.content.size();
            out.append(text.substr(end, line.next - end));
        }
        from = line.next;
    }
    return out;
}

} // namespace

namespace TzMimeTransferEncoding {

Kind kindOf(std::string_view value) noexcept {
    const std::size_t from = TzMimeText::skipBlanksAndComments(value, 0);
    std::size_t end = from;
    while (end < value.size() && TzMimeText::isTokenCharacter(value[end])) {
        ++end;
    }
    const std::string_view name = value.substr(from, end - from);
    if (tzEqualIgnoreCase(name, "base64")) {
        return Kind::Base64;
    }
    return tzEqualIgnoreCase(name, "quoted-printable") ? Kind::QuotedPrintable : Kind::Identity;
}

std::size_t encodedSize(Kind kind, std::size_t size) noexcept {
    if (kind != Kind::Base64 || size == 0) {
        return size;
    }
    const std::size_t lineEnds = (size - 1) / BytesPerLine;
    return (size + 2) / 3 * 4 + lineEnds * TzMimeText::LineEnd.size();
}

void encode(Kind kind, std::string_view bytes, TzCString& out) {
    switch (kind) {
    case Kind::Base64:
        encodeBase64(bytes, out);
        break;
    case Kind::QuotedPrintable:
        QuotedPrintableEncoder(out).encode(bytes);
        break;
    case Kind::Identity:
        out.append(bytes);
        break;
    }
}

TzCString decode(Kind kind, std::string_view text) {
    switch (kind) {
    case Kind::Base64:
        return decodeBase64(text);
    case Kind::QuotedPrintable:
        return decodeQuotedPrintable(text);
    case Kind::Identity:
        break;
    }
    return TzCString(text);
}

} // namespace TzMimeTransferEncoding
