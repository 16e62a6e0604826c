// SPDX-License-Identifier: MIT
#include "mime/TzMimeParameterSections.h"

#include "mime/TzMimeText.h"

#include <tz/tools/TzTextTools.h>

#include <algorithm>
#include <charconv>
#include <tuple>
#include <utility>

namespace {

/// The section number of a parameter without sections.
constexpr std::uint32_t NoSection = 0xFFFFFFFF;

TzCString inSmallLetters(std::string_view name) {
    TzCString key(name);
    std::transform(key.begin(), key.end(), key.begin(), TzTextTools::toLower);
    return key;
}

/// `text` without the character set and language before it (RFC 2231, 4).
std::string_view withoutCharset(std::string_view text) noexcept {
    const std::size_t charset = text.find('\'');
    const std::size_t language =
        charset == std::string_view::npos ? charset : text.find('\'', charset + 1);
    return language == std::string_view::npos ? text : text.substr(language + 1);
}

} // namespace

void TzMimeParameterSections::add(std::string_view name, TzCString value) {
    std::string_view base = name;
    const bool encoded = base.size() > 1 && base.ends_with('*');
    if (encoded) {
        base.remove_suffix(1);
    }
    std::uint32_t number = NoSection;
    if (const std::size_t star = base.find('*'); star != std::string_view::npos) {
        const char* const end = base.data() + base.size();
        const auto read = std::from_chars(base.data() + star + 1, end, number);
        if (read.ec != std::errc() || read.ptr != end || star == 0) {
            return;
        }
        base = base.substr(0, star);
    }
    sections_.push_back({inSmallLetters(base),
                         {TzCString(base), std::move(value)},
                         number,
                         encoded,
                         sections_.size()});
}

bool TzMimeParameterSections::precedes(const Section& left, const Section& right) noexcept {
    return std::tie(left.key, left.number, left.arrival) <
           std::tie(right.key, right.number, right.arrival);
}

void TzMimeParameterSections::append(TzCString& value, const Section& section) {
    const bool opens = section.number == NoSection || section.number == 0;
    const std::string_view text = section.parameter.value;
    if (section.encoded) {
        TzMimeText::appendPercentDecoded(value, opens ? withoutCharset(text) : text);
    } else {
        value.append(text);
    }
}

std::optional<TzMimeParameterSections::Section>
TzMimeParameterSections::joinGroup(std::span<Section> group) {
    const auto first = std::find_if(group.begin(), group.end(), [](const Section& section) {
        return section.number == 0 || section.number == NoSection;
    });
    if (first == group.end()) {
        return std::nullopt;
    }
    TzCString value;
    append(value, *first);
    std::uint32_t number = 1;
    for (auto next = first + 1; first->number == 0 && next != group.end(); ++next) {
        if (next->number == number) {
            append(value, *next);
            ++number;
        }
    }
    first->parameter.value = std::move(value);
    return std::move(*first);
}

std::vector<TzMimeParameter> TzMimeParameterSections::join() && {
    std::sort(sections_.begin(), sections_.end(), precedes);
    std::vector<Section> joined;
    for (auto first = sections_.begin(); first != sections_.end();) {
        const auto end = std::find_if(first, sections_.end(), [&](const Section& section) {
            return section.key != first->key;
        });
        if (std::optional<Section> section = joinGroup({first, end})) {
            joined.push_back(std::move(*section));
        }
        first = end;
    }
    std::sort(joined.begin(), joined.end(), [](const Section& left, const Section& right) {
        return left.arrival < right.arrival;
    });
    std::vector<TzMimeParameter> parameters;
    parameters.reserve(joined.size());
    for (Section& section : joined) {
        parameters.push_back(std::move(section.parameter));
    }
    return parameters;
}
