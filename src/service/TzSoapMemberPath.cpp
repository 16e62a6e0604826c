// SPDX-License-Identifier: MIT
#include "service/TzSoapMemberPath.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapValueReader.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapHeldFault.h"

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

const TzSoapType& valueOf(const TzSoapType& value) { return value; }

template <typename Index> const TzSoapType& valueOf(const std::pair<Index, TzSoapType>& item) {
    return item.second;
}

/// The first of `values` for which `test` holds, null without one. Array positions without an item
/// have no name, so no path leads to them.
template <typename Values, typename Test>
const TzSoapType* firstOf(const Values& values, const Test& test) {
    for (const auto& element : values) {
        const TzSoapType& value = valueOf(element);
        if (!TzSoapArrayTypeImp::isPlaceholder(value) && test(value)) {
            return &value;
        }
    }
    return nullptr;
}

template <typename Test>
const TzSoapType* firstMember(const TzSoapHeader& header, const Test& test) {
    return firstOf(TzSoapAccess::body(header).entries(), test);
}

template <typename Test> const TzSoapType* firstMember(const TzSoapBody& body, const Test& test) {
    return firstOf(TzSoapAccess::body(body).entries(), test);
}

template <typename Test> const TzSoapType* firstMember(const TzSoapType& value, const Test& test) {
    const TzSoapType owner = TzSoapValueReader::follow(value);
    const TzSoapTypeImp* const body = &TzSoapAccess::body(owner);
    if (const auto* composite = dynamic_cast<const TzSoapCompositeTypeImp*>(body)) {
        return firstOf(composite->children(), test);
    }
    if (const auto* compact = dynamic_cast<const TzSoapCompactArrayImp*>(body)) {
        return firstOf(compact->storedItems(), test);
    }
    if (const auto* sparse = dynamic_cast<const TzSoapSparseArrayImp*>(body)) {
        return firstOf(*sparse, test);
    }
    return nullptr;
}

// The name of the value that a path begins at; header and body are left out.

TzCString nameOf(const TzSoapHeader&) { return {}; }

TzCString nameOf(const TzSoapBody&) { return {}; }

TzCString nameOf(const TzSoapType& value) {
    return TzSoapArrayTypeImp::isPlaceholder(value) ? TzCString() : value.getName().getLocalName();
}

// Why the value has no members, if known.

TzCString whyNone(const TzSoapHeader&) { return {}; }

TzCString whyNone(const TzSoapBody& body) { return tzSoapHeldFault(body); }

TzCString whyNone(const TzSoapType& value) {
    const TzSoapType owner = TzSoapValueReader::follow(value);
    const TzSoapTypeImp& body = TzSoapAccess::body(owner);
    const bool holds = body.getSoapTypeId() == TzSoapContentBase::Composite ||
                       body.getSoapTypeId() == TzSoapContentBase::Array;
    return holds ? TzCString()
                 : "; its parent is of kind " + tzQuoted(body.getSoapTypeIdAsString());
}

TzCString inNamespace(std::string_view uri) {
    return uri.empty() ? TzCString("in no namespace") : "in namespace " + tzQuoted(uri);
}

} // namespace

bool TzSoapMemberPath::Step::matches(const TzSoapType& member) const {
    const TzXmlName& name = member.getName();
    return name.getLocalName() == localName && (!uri || name.getUri() == *uri);
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
    const TzSoapType* const found = firstMember(
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
    const TzCString which = step.uri ? path + ' ' + inNamespace(*step.uri) : path;
    throw TzSoapMissingError(path, which + " is missing" + reason(owner, step));
}

template <typename Owner> TzCString TzSoapMemberPath::reason(const Owner& owner, const Step& step) {
    unsigned int present = 0;
    TzCString elsewhere;
    firstMember(owner, [&](const TzSoapType& member) {
        present += step.matches(member) ? 1 : 0;
        if (elsewhere.empty() && member.getName().getLocalName() == step.localName) {
            elsewhere = "; there is one " + inNamespace(member.getName().getUri());
        }
        return false;
    });
    if (present > 0) {
        return "; there " + (present == 1 ? TzCString("is 1") : "are " + std::to_string(present));
    }
    return elsewhere.empty() ? whyNone(owner) : elsewhere;
}

template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapHeader&) const;
template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapBody&) const;
template std::optional<TzSoapType> TzSoapMemberPath::find(const TzSoapType&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapHeader&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapBody&) const;
template TzSoapType TzSoapMemberPath::get(const TzSoapType&) const;
