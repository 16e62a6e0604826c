// SPDX-License-Identifier: MIT
#include "xml/TzXmlTagScan.h"

#include <algorithm>

namespace {

/// Length of the shortest attribute: a blank, a name, "=" and two quotes.
constexpr std::size_t ShortestAttribute = 5;

/// What follows the "<" of markup other than a start tag.
constexpr std::string_view notStartTags = "!?/";

constexpr bool isQuote(char byte) noexcept { return byte == '"' || byte == '\''; }

} // namespace

std::size_t TzXmlTagScan::findCrowded(std::size_t limit) noexcept {
    if (limit >= text_.size() / ShortestAttribute) {
        return None;
    }
    const std::size_t shortestTag = ShortestAttribute * (limit + 1);
    std::size_t begin = text_.find('<');
    while (begin != None && text_.size() - begin > shortestTag) {
        // No attribute contains "<", so the last one within reach decides for all before it.
        const std::size_t later = text_.substr(begin + 1, shortestTag).rfind('<');
        if (later != None) {
            begin += 1 + later;
            continue;
        }
        if (isCrowded(begin, limit) && isMarkup(begin)) {
            return begin;
        }
        begin = text_.find('<', begin + shortestTag);
    }
    return None;
}

/// Whether what begins at `begin` looks like a start tag with more than `limit` attributes.
bool TzXmlTagScan::isCrowded(std::size_t begin, std::size_t limit) const noexcept {
    const std::size_t next = text_.find('<', begin + 1);
    const std::string_view tag = text_.substr(begin + 1, next - begin - 1);
    if (tag.empty() || notStartTags.find(tag.front()) != None) {
        return false;
    }
    std::size_t values = 0;
    for (std::size_t at = 0; at < tag.size() && tag[at] != '>'; ++at) {
        if (isQuote(tag[at])) {
            if (++values > limit) {
                return true;
            }
            at = std::min(tag.find(tag[at], at + 1), tag.size() - 1);
        }
    }
    return false;
}

/// Whether the "<" at `begin` is markup, and not part of a comment, a CDATA section or a processing
/// instruction.
bool TzXmlTagScan::isMarkup(std::size_t begin) noexcept {
    while (lexed_ < begin) {
        const std::size_t next = text_.find('<', lexed_);
        if (next == begin) {
            return true;
        }
        lexed_ = std::min(endOfMarkup(next), text_.size());
    }
    return lexed_ == begin;
}

std::size_t TzXmlTagScan::endOfMarkup(std::size_t begin) const noexcept {
    const std::string_view markup = text_.substr(begin);
    if (markup.starts_with("<!--")) {
        return after("-->", begin + 4);
    }
    if (markup.starts_with("<![CDATA[")) {
        return after("]]>", begin);
    }
    if (markup.starts_with("<?")) {
        return after("?>", begin);
    }
    return endOfTag(begin);
}

std::size_t TzXmlTagScan::endOfTag(std::size_t begin) const noexcept {
    for (std::size_t at = begin; at < text_.size(); ++at) {
        if (text_[at] == '>') {
            return at + 1;
        }
        if (isQuote(text_[at])) {
            at = std::min(text_.find(text_[at], at + 1), text_.size());
        }
    }
    return None;
}

/// Where the text after the next `mark` begins.
std::size_t TzXmlTagScan::after(std::string_view mark, std::size_t from) const noexcept {
    const std::size_t found = text_.find(mark, from);
    return found == None ? None : found + mark.size();
}
