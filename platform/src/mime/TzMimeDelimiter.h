// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <optional>
#include <string_view>

/// The lines that separate the parts of a package (RFC 2046, 5.1.1).
class TzMimeDelimiter {
public:
    /// A delimiter line that was found.
    struct Hit {
        std::size_t partEnd; ///< Where the part before it ends: before the line end, CRLF or LF.
        std::size_t next;    ///< Where the line after it begins.
        bool closing;        ///< Whether it is the last one.
    };

    /// What a search found.
    struct Search {
        std::optional<Hit> hit; ///< The next delimiter line, empty without one.
        bool isFree = true;     ///< Whether no line before it begins like one; see `occursIn`.
    };

    /// The delimiter for the parameter `boundary`. Line ends in it and blanks at its end cannot be
    /// part of a delimiter line and are left out.
    explicit TzMimeDelimiter(std::string_view boundary);

    /// Whether the boundary is empty, so that the package has no delimiter lines.
    bool isEmpty() const noexcept { return line_.size() == PrefixLength; }
    /// The boundary itself.
    std::string_view boundary() const noexcept;
    /// The next delimiter line of `text`, in the line that begins at `from` or a later one.
    Search find(std::string_view text, std::size_t from) const noexcept;
    /// Whether a line of `bytes` begins like a delimiter line. A CR alone is taken for a line end
    /// too, because some readers do so.
    bool occursIn(std::string_view bytes) const noexcept;
    /// Adds the delimiter line to `out`, with the line end before it and without one after it.
    void append(TzCString& out, bool closing) const;

private:
    static constexpr std::size_t PrefixLength = 2; // the hyphens

    std::optional<Hit> hitAt(std::string_view text, std::size_t begin) const noexcept;

    TzCString line_; // two hyphens, boundary
};
