// SPDX-License-Identifier: MIT
#include "mime/TzMimeDelimiter.h"

#include "mime/TzMimeText.h"

#include <algorithm>
#include <cstring>

namespace {

/// Position of `wanted` in `text` at or after `from`, by memmem, which is faster than the search
/// of std::string_view. Searches in windows: the address sanitizer checks the whole range that
/// memmem gets, which would be quadratic for a text of many parts.
std::size_t positionOf(std::string_view text, std::string_view wanted, std::size_t from) noexcept {
    constexpr std::size_t FirstWindow = 4096;
    constexpr std::size_t LastWindow = std::size_t{1} << 20;
    std::size_t window = FirstWindow;
    while (from < text.size()) {
        const std::string_view part = text.substr(from, window + wanted.size() - 1);
        const void* const found = memmem(part.data(), part.size(), wanted.data(), wanted.size());
        if (found != nullptr) {
            return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        }
        from += window;
        window = std::min(window * 2, LastWindow);
    }
    return std::string_view::npos;
}

} // namespace

TzMimeDelimiter::TzMimeDelimiter(std::string_view boundary) : line_("\n--") {
    TzMimeText::appendWithoutLineEnds(line_, boundary);
    while (line_.size() > PrefixLength && TzMimeText::isBlank(line_.back())) {
        line_.pop_back();
    }
}

std::string_view TzMimeDelimiter::boundary() const noexcept {
    return std::string_view(line_).substr(PrefixLength);
}

std::optional<TzMimeDelimiter::Hit> TzMimeDelimiter::hitAt(std::string_view text,
                                                           std::size_t begin) const noexcept {
    const std::string_view wanted = std::string_view(line_).substr(1);
    if (!text.substr(begin).starts_with(wanted)) {
        return std::nullopt;
    }
    const TzMimeText::Line line = TzMimeText::lineAt(text, begin + wanted.size());
    const bool last = line.next == text.size() && text.back() != '\n';
    // A text may end within its last line end: with CR.
    const bool cut = last && line.content.ends_with('\r');
    const std::string_view rest =
        TzMimeText::trimEnd(line.content.substr(0, line.content.size() - (cut ? 1 : 0)));
    const bool closing = rest == "--";
    if (!closing && !rest.empty()) {
        return std::nullopt;
    }
    std::size_t partEnd = begin;
    for (const char character : {'\n', '\r'}) {
        partEnd -= partEnd > 0 && text[partEnd - 1] == character ? 1 : 0;
    }
    return Hit{partEnd, line.next, closing};
}

std::optional<TzMimeDelimiter::Hit> TzMimeDelimiter::find(std::string_view text,
                                                          std::size_t from) const noexcept {
    if (const std::optional<Hit> hit = hitAt(text, from)) {
        return hit;
    }
    // A boundary contains no line feed, so two places of the line cannot overlap.
    for (std::size_t feed = positionOf(text, line_, from); feed != std::string_view::npos;
         feed = positionOf(text, line_, feed + line_.size())) {
        if (const std::optional<Hit> hit = hitAt(text, feed + 1)) {
            return hit;
        }
    }
    return std::nullopt;
}

bool TzMimeDelimiter::occursIn(std::string_view bytes) const noexcept {
    const std::string_view line = std::string_view(line_).substr(1);
    if (bytes.starts_with(line)) {
        return true;
    }
    if (positionOf(bytes, line, 0) == std::string_view::npos) {
        return false;
    }
    TzCString afterReturn(line_);
    afterReturn.front() = '\r';
    return positionOf(bytes, line_, 0) != std::string_view::npos ||
           positionOf(bytes, afterReturn, 0) != std::string_view::npos;
}

void TzMimeDelimiter::append(TzCString& out, bool closing) const {
    out.append(1, '\r').append(line_).append(closing ? "--" : "");
}
