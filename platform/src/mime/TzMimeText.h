// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// What header lines are made of (RFC 5322, RFC 2045). All operations are linear.
namespace TzMimeText {

/// The end of every line that is written.
inline constexpr std::string_view LineEnd = "\r\n";

/// A line of a text.
struct Line {
    std::string_view content; ///< Without its line end, CRLF or LF.
    std::size_t next;         ///< Where the next line begins.
};

/// A place in a text, both counted from 1, the column in bytes.
struct Place {
    std::size_t line;
    std::size_t column;
};

/// Whether `character` is a blank or a tabulator.
constexpr bool isBlank(char character) noexcept { return character == ' ' || character == '\t'; }
/// The line of `text` that begins at `from`.
Line lineAt(std::string_view text, std::size_t from) noexcept;
/// `text` without blanks at its end.
std::string_view trimEnd(std::string_view text) noexcept;
/// Whether `character` may stand in the label of a header.
bool isLabelCharacter(char character) noexcept;
/// Whether `character` may stand in a token.
bool isTokenCharacter(char character) noexcept;
/// Position of the colon when `line` begins with a label, npos for any other line.
std::size_t findColon(std::string_view line) noexcept;
/// The order of two labels, ASCII letters compared without case: negative, 0 or positive.
int compareLabels(std::string_view left, std::string_view right) noexcept;
/// The first carriage return in `text` that no line feed follows, null without one.
const char* findBareReturn(std::string_view text) noexcept;
/// The place of `at`, a byte of `text`.
Place placeOf(std::string_view text, const char* at) noexcept;
/// Whether the value `raw` is spread over several lines.
bool isFolded(std::string_view raw) noexcept;
/// The value that `raw` spreads over lines, trimmed. With `joined` the blanks that begin a further
/// line belong to the folding, otherwise to the value.
TzCString unfold(std::string_view raw, bool joined);
/// Adds `text` without CR and LF to `out`.
void appendWithoutLineEnds(TzCString& out, std::string_view text);
/// Adds `text` with its "%XX" replaced by the bytes they stand for to `out`.
void appendPercentDecoded(TzCString& out, std::string_view text);
/// Position after the blanks and comments that begin at `from` in `text`.
std::size_t skipBlanksAndComments(std::string_view text, std::size_t from) noexcept;
/// The value of the quoted string that begins at `position`, which is moved to its end.
TzCString readQuoted(std::string_view text, std::size_t& position);
/// Adds `value` as a quoted string to `out`.
void appendQuoted(TzCString& out, std::string_view value);

} // namespace TzMimeText
