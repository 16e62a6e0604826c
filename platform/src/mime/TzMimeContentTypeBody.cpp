// SPDX-License-Identifier: MIT
#include "mime/TzMimeContentTypeBody.h"

#include "mime/TzMimeParameterSections.h"
#include "mime/TzMimeText.h"
#include "tools/TzPlatformLasting.h"

#include <cstddef>
#include <utility>

namespace {

/// The text from `position` up to one of `ends` or a blank; moves `position` to its end.
std::string_view readWord(std::string_view text, std::size_t& position, std::string_view ends) {
    const std::size_t from = position;
    while (position < text.size() && !TzMimeText::isBlank(text[position]) &&
           ends.find(text[position]) == std::string_view::npos) {
        ++position;
    }
    return text.substr(from, position - from);
}

/// Position after the next semicolon that is not part of a comment or quoted string.
std::size_t skipToNextParameter(std::string_view text, std::size_t position) {
    while (position < text.size() && text[position] != ';') {
        if (text[position] == '"') {
            TzMimeText::readQuoted(text, position);
        } else if (text[position] == '(') {
            position = TzMimeText::skipBlanksAndComments(text, position);
        } else {
            ++position;
        }
    }
    return position + 1;
}

} // namespace

TzMimeContentTypeBody::TzMimeContentTypeBody(const TzCString& text) : text_(text) {
    std::size_t position = 0;
    readType(text, position);
    readParameters(text, position);
}

TzMimeContentTypeBody::TzMimeContentTypeBody(TzCString type, TzCString subtype)
    : type_(std::move(type)), subtype_(std::move(subtype)) {}

void TzMimeContentTypeBody::readType(std::string_view text, std::size_t& position) {
    position = TzMimeText::skipBlanksAndComments(text, position);
    type_ = readWord(text, position, "/;(\r\n");
    position = TzMimeText::skipBlanksAndComments(text, position);
    if (position < text.size() && text[position] == '/') {
        position = TzMimeText::skipBlanksAndComments(text, position + 1);
        subtype_ = readWord(text, position, ";(\r\n");
    }
}

void TzMimeContentTypeBody::readParameters(std::string_view text, std::size_t position) {
    TzMimeParameterSections sections;
    while ((position = skipToNextParameter(text, position)) < text.size()) {
        position = TzMimeText::skipBlanksAndComments(text, position);
        const std::string_view name = readWord(text, position, "=;(\"\r\n");
        position = TzMimeText::skipBlanksAndComments(text, position);
        if (name.empty() || position >= text.size() || text[position] != '=') {
            continue;
        }
        position = TzMimeText::skipBlanksAndComments(text, position + 1);
        if (position < text.size() && text[position] == '"') {
            sections.add(name, TzMimeText::readQuoted(text, position));
        } else {
            // Many writers leave values such as "----=_Part_1" unquoted.
            sections.add(name, TzCString(readWord(text, position, ";(\r\n")));
        }
    }
    parameters_ = std::move(sections).join();
}

std::size_t TzMimeContentTypeBody::indexOf(std::string_view name) const noexcept {
    std::size_t index = 0;
    while (index < parameters_.size() && !tzEqualIgnoreCase(parameters_[index].name, name)) {
        ++index;
    }
    return index;
}

const TzCString& TzMimeContentTypeBody::parameter(std::string_view name) const noexcept {
    static TzPlatformLasting<const TzCString> none([] { return TzCString(); });
    const std::size_t index = indexOf(name);
    return index < parameters_.size() ? parameters_[index].value : *none;
}

void TzMimeContentTypeBody::setParameter(std::string_view name, std::string_view value) {
    const std::size_t index = indexOf(name);
    if (index == parameters_.size()) {
        if (value.empty()) {
            return;
        }
        parameters_.push_back({TzCString(name), TzCString(value)});
    } else if (value.empty()) {
        parameters_.erase(parameters_.begin() + static_cast<std::ptrdiff_t>(index));
    } else {
        parameters_[index].value = value;
    }
    text_.clear();
}

TzCString TzMimeContentTypeBody::asString() const {
    if (!text_.empty()) {
        return text_;
    }
    TzCString text = type_;
    if (!subtype_.empty()) {
        text.append(1, '/').append(subtype_);
    }
    for (const TzMimeParameter& parameter : parameters_) {
        text.append("; ").append(parameter.name).append(1, '=');
        TzMimeText::appendQuoted(text, parameter.value);
    }
    return text;
}
