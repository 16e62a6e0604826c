// SPDX-License-Identifier: MIT
#include "service/TzSoapMemberPath.h"

#include <soap/TzSoapMissingError.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "service/TzSoapMembers.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {

/// The number that "[n]" states; empty when it states none from 1.
std::optional<unsigned int> indexOf(std::string_view brackets) {
    unsigned int index = 0;
    const char* const end = brackets.data() + brackets.size() - 1;
    const auto result = std::from_chars(brackets.data() + 1, end, index);
    const bool good = brackets.ends_with(']') && result.ec == std::errc() && result.ptr == end;
    return good && index > 0 ? std::optional(index) : std::nullopt;
}

// The name of the value that a path begins at; header and body are left out.

TzCString nameOf(const TzSoapHeader&) { return {}; }

TzCString nameOf(const TzSoapBody&) { return {}; }

TzCString nameOf(const TzSoapType& value) {
    return TzSoapArrayTypeImp::isPlaceholder(value) ? TzCString() : value.getName().getLocalName();
}

} // namespace

bool TzSoapMemberPath::Step::matches(const TzSoapType& member) const {
    return TzSoapMembers::matches(member.getName(), localName, uri);
}

TzSoapMemberPath::Step TzSoapMemberPath::stepOf(std::string_view text) {
    const std::size_t bracket = std::min(text.find('['), text.size());
    Step step{.text = text, .localName = text.substr(0, bracket), .uri = {}};
    const auto index =
        bracket < text.size() ? indexOf(text.substr(bracket)) : std::optional(step.index);
    if (!index || step.localName.empty() || step.localName.find(':') != std::string_view::npos) {
        TzThrow(TzXmlBadArgError(TzMessage(
            tzQuoted(text) + " is not a step of a path: a local name, \"[n]\" may follow")));
    }
    step.index = *index;
    return step;
}

TzSoapMemberPath::TzSoapMemberPath(std::string_view text) {
    std::size_t slash = 0;
    do {
        slash = text.find('/');
        steps_.push_back(stepOf(text.substr(0, slash)));
        text.remove_prefix(std::min(slash, text.size() - 1) + 1);
    } while (slash != std::string_view::npos);
}

TzSoapMemberPath::TzSoapMemberPath(std::string_view localName, std::string_view uri)
    : steps_{{.text = localName, .localName = localName, .uri = uri}} {}

template <typename Owner>
std::optional<TzSoapType> TzSoapMemberPath::member(const Owner& owner, const Step& step) {
    unsigned int left = step.index;
    const TzSoapType* const found = TzSoapMembers::first(
        owner, [&](const TzSoapType& member) { return step.matches(member) && --left == 0; });
    return found == nullptr ? std::nullopt : std::optional(*found);
}

template <typename Owner>
std::optional<TzSoapType> TzSoapMemberPath::find(const Owner& owner) const {
    std::optional<TzSoapType> value = member(owner, steps_.front());
    for (std::size_t i = 1; value && i < steps_.size(); ++i) {
        value = member(*value, steps_[i]);
    }
    return value;
}

template <typename Owner> TzSoapType TzSoapMemberPath::get(const Owner& owner) const {
    std::optional<TzSoapType> value = member(owner, steps_.front());
    if (!value) {
        refuse(owner, 0, nameOf(owner));
    }
    for (std::size_t i = 1; i < steps_.size(); ++i) {
        std::optional<TzSoapType> next = member(*value, steps_[i]);
        if (!next) {
            refuse(*value, i, nameOf(owner));
        }
        value = std::move(next);
    }
    return *std::move(value);
}

template <typename Owner>
void TzSoapMemberPath::refuse(const Owner& owner, std::size_t missing, TzCString path) const {
    for (std::size_t i = 0; i <= missing; ++i) {
        path.append(path.empty() ? 0 : 1, '/').append(steps_[i].text);
    }
    const Step& step = steps_[missing];
    const TzCString which = step.uri ? path + ' ' + TzSoapMembers::inNamespace(*step.uri) : path;
    throw TzSoapMissingError(path, which + " is missing" +
                                       TzSoapMembers::reason(owner, step.localName, step.uri));
}

template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapHeader&) const;
template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapBody&) const;
template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapType&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapHeader&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapBody&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapType&) const;
