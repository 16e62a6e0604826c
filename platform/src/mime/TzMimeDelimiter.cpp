// SPDX-License-Identifier: MIT
#include "mime/TzMimeDelimiter.h"

#include "mime/TzMimeText.h"

#include "mime/TzMimeLineSearch.h"

namespace {

/// The next line of `text` at or after `from` that begins with `line`, a delimiter line without its
/// end; where its line end is, null without one.
template <TzMimeLineRest Rest>
const char* findLine(std::string_view text, std::size_t from, std::string_view line) noexcept {
    const char* const end = text.data() + text.size();
    return TzMimeBestLineSearch::find<Rest>(text.data() + from, end, line);
}

} // namespace

TzMimeDelimiter::TzMimeDelimiter(std::string_view boundary) : line_("--") {
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
    const TzMimeText::Line line = TzMimeText::lineAt(text, begin + line_.size());
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

TzMimeDelimiter::Search TzMimeDelimiter::find(std::string_view text,
                                              std::size_t from) const noexcept {
    Search search;
    if (text.substr(from).starts_with(line_)) {
        search.hit = hitAt(text, from);
        search.isFree = search.hit.has_value();
    }
    const char* found = text.data() + from;
    while (!search.hit) {
        // Once a line is known that only begins like a delimiter, others of its kind do not matter.
        const auto at = static_cast<std::size_t>(found - text.data());
        found = search.isFree ? findLine<TzMimeLineRest::Any>(text, at, line_)
                              : findLine<TzMimeLineRest::OfDelimiter>(text, at, line_);
        if (found == nullptr) {
            break;
        }
        ++found;
        if (found[-1] == '\n') {
            search.hit = hitAt(text, static_cast<std::size_t>(found - text.data()));
        }
        search.isFree = search.isFree && search.hit.has_value();
    }
    return search;
}

bool TzMimeDelimiter::occursIn(std::string_view bytes) const noexcept {
    return bytes.starts_with(line_) || findLine<TzMimeLineRest::Any>(bytes, 0, line_) != nullptr;
}

void TzMimeDelimiter::append(TzCString& out, bool closing) const {
    out.append(TzMimeText::LineEnd).append(line_).append(closing ? "--" : "");
}
