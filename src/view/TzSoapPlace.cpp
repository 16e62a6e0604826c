// SPDX-License-Identifier: MIT
#include <soap/TzSoapPlace.h>

#include <soap/TzSoapFields.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapView.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapIsExactly.h"
#include "service/TzSoapMembers.h"
#include "service/TzSoapTextForms.h"
#include "values/TzSoapFollow.h"
#include "values/TzSoapHeldValues.h"
#include "view/TzSoapViewPath.h"

#include <optional>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

/// What `value` stands for. Whoever holds the value holds what it refers to.
const TzSoapTypeImp& contentOf(const TzSoapType& value) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    return body.getSoapTypeId() == TzSoapContentBase::Reference
               ? TzSoapAccess::body(tzSoapFollow(value))
               : body;
}

const TzSoapSimpleTypeImp* simpleOf(const TzSoapTypeImp* content) {
    if (content != nullptr && tzSoapIsExactly<TzSoapSimpleTypeImp>(typeid(*content))) {
        return static_cast<const TzSoapSimpleTypeImp*>(content);
    }
    return dynamic_cast<const TzSoapSimpleTypeImp*>(content);
}

/// What reading `content` once more costs beside its members, which are counted one by one: the
/// members that would take as long.
std::size_t costOf(const TzSoapTypeImp& content) {
    constexpr std::size_t Attributes = 16;
    constexpr std::size_t Positions = 16;
    constexpr std::size_t Bytes = 64;
    std::size_t cost = content.getAttributeSet().size() / Attributes;
    if (const TzSoapSimpleTypeImp* const simple = simpleOf(&content)) {
        cost += simple->text().size() / Bytes;
    } else if (content.getSoapTypeId() == TzSoapContentBase::Array) {
        cost += static_cast<const TzSoapArrayTypeImp&>(content).entries() / Positions;
    }
    return cost;
}

bool isBlank(std::string_view text) { return TzXmlUtils::trim(text).empty(); }

bool matches(const TzSoapFieldRow& row, const TzXmlName& name) {
    return row.place == TzSoapFieldPlace::Element && name.getLocalName() == row.name &&
           (row.hasAnyUri || name.getUri() == row.uri);
}

/// The row of the element `name`, looked for from the row at `expected` on; null without one.
const TzSoapFieldRow* rowOf(const TzXmlName& name, const TzSoapFieldRow* rows, std::size_t count,
                            std::size_t expected) {
    for (std::size_t i = 0; i < count; ++i) {
        const TzSoapFieldRow& row =
            rows[expected + i < count ? expected + i : expected + i - count];
        if (matches(row, name)) {
            return &row;
        }
    }
    return nullptr;
}

std::optional<std::string_view> uriOf(const TzSoapFieldRow& row) {
    return row.hasAnyUri ? std::nullopt : std::optional(row.uri);
}

/// What a reference states that it refers to: the attribute "href", "ref" or one named like them.
TzCString targetOf(const TzSoapTypeImp& reference) {
    for (const std::string_view name : {"href", "ref"}) {
        if (const TzXmlAttribute* const found = tzSoapFindAttribute(reference, name, {})) {
            return found->getValue();
        }
    }
    return {};
}

} // namespace

TzSoapPlace::TzSoapPlace(const TzSoapView& view) : view_(&view) {
    if (const auto* const value = std::get_if<TzSoapType>(&view.content_)) {
        content_ = &contentOf(*value);
    } else {
        body_ = &std::get<TzSoapBody>(view.content_);
    }
}

TzSoapPlace::TzSoapPlace(const TzSoapPlace& element, const TzXmlAttribute& attribute)
    : parent_(&element), attribute_(&attribute), depth_(element.depth_), first_(element.first_) {}

TzSoapPlace::TzSoapPlace(const TzSoapPlace& parent, const TzSoapType& member)
    : parent_(&parent), member_(&member), content_(&contentOf(member)), depth_(parent.depth_ + 1),
      first_(parent.first_),
      isRepeated_(parent.isRepeated_ || content_ != &TzSoapAccess::body(member)) {
    if (depth_ > DepthLimit) {
        TzThrow(TzXmlBadArgError(TzMessage(tzSoapTooDeep(getPath(), DepthLimit))));
    }
    if (isRepeated_) {
        noteRepeated(1 + costOf(*content_));
    }
}

void TzSoapPlace::noteRepeated(std::size_t cost) const {
    first_->repeated_ += cost;
    if (first_->repeated_ > RepeatLimit) {
        refuse("references repeat too many values, the limit is " + std::to_string(RepeatLimit));
    }
}

TzSoapPlace::TzSoapPlace(const TzSoapPlace& parent, const TzSoapType& member,
                         const TzSoapFieldRow& row)
    : TzSoapPlace(parent, member) {
    isHex_ = row.type == TzSoapContentBase::xsdHexBinary;
}

bool TzSoapPlace::isNil() const { return content_ != nullptr && TzSoapTextForms::isNil(*content_); }

bool TzSoapPlace::isArray() const {
    return content_ != nullptr && content_->getSoapTypeId() == TzSoapContentBase::Array;
}

const TzCString& TzSoapPlace::getText(const char* wanted) const {
    if (attribute_ != nullptr) {
        return attribute_->getValue();
    }
    if (isNil()) {
        refuseNil(wanted);
    }
    const TzSoapSimpleTypeImp* const simple = simpleOf(content_);
    if (simple == nullptr) {
        refuseKind("a simple value");
    }
    return simple->text();
}

template <typename Value> Value TzSoapPlace::get() const {
    constexpr const char* wanted = TzSoapTextForms::Wanted<Value>;
    std::optional<Value> value = TzSoapTextForms::read<Value>(TzXmlUtils::trim(getText(wanted)));
    if (!value) {
        refuseText(wanted);
    }
    return *std::move(value);
}

template bool TzSoapPlace::get() const;
template signed char TzSoapPlace::get() const;
template unsigned char TzSoapPlace::get() const;
template short TzSoapPlace::get() const;
template unsigned short TzSoapPlace::get() const;
template int TzSoapPlace::get() const;
template unsigned int TzSoapPlace::get() const;
template long TzSoapPlace::get() const;
template unsigned long TzSoapPlace::get() const;
template long long TzSoapPlace::get() const;
template unsigned long long TzSoapPlace::get() const;
template float TzSoapPlace::get() const;
template double TzSoapPlace::get() const;
template long double TzSoapPlace::get() const;
template TzDecimalPortable TzSoapPlace::get() const;
template TzDate TzSoapPlace::get() const;
template TzDateTime TzSoapPlace::get() const;
template TzXmlDuration TzSoapPlace::get() const;
template std::chrono::sys_time<std::chrono::nanoseconds> TzSoapPlace::get() const;

TzCString TzSoapPlace::getBytes() const {
    const TzSoapSimpleTypeImp* const simple = simpleOf(content_);
    const bool hex =
        isHex_ || (simple != nullptr && simple->getType() == TzSoapContentBase::xsdHexBinary);
    const char* const wanted = TzSoapTextForms::wantedBytes(hex);
    std::optional<TzCString> bytes =
        TzSoapTextForms::readBytes(TzXmlUtils::trim(getText(wanted)), hex);
    if (!bytes) {
        refuseText(wanted);
    }
    return *std::move(bytes);
}

TzSoapType TzSoapPlace::getValue() const {
    if (content_ == nullptr) {
        refuse("there is no value");
    }
    if (isRepeated_) {
        noteRepeatedHeld();
    }
    return TzSoapAccess::share<TzSoapType>(const_cast<TzSoapTypeImp&>(*content_));
}

// Whoever takes a value may copy or write all of it.
void TzSoapPlace::noteRepeatedHeld() const {
    std::vector<const TzSoapTypeImp*> waiting{content_};
    while (!waiting.empty()) {
        const TzSoapTypeImp& next = *waiting.back();
        waiting.pop_back();
        if (next.getSoapTypeId() == TzSoapContentBase::Reference) {
            continue;
        }
        // The values are only looked at.
        TzSoapHeldValues::forEachHeld(const_cast<TzSoapTypeImp&>(next),
                                      [&](const TzSoapType& held) {
                                          const TzSoapTypeImp& body = TzSoapAccess::body(held);
                                          noteRepeated(1 + costOf(body));
                                          waiting.push_back(&body);
                                      });
    }
}

void TzSoapPlace::visitMembers(Visitor visitor, const void* data) const {
    requireMembers("a list", true);
    const auto visit = [&](const TzSoapType& member) {
        visitor(data, TzSoapPlace(*this, member));
        return false;
    };
    if (body_ != nullptr) {
        TzSoapMembers::first(*body_, visit);
    } else {
        TzSoapMembers::first(*content_, visit);
    }
}

bool TzSoapPlace::hasNoContent() const {
    const TzSoapSimpleTypeImp* const simple = simpleOf(content_);
    return simple != nullptr ? isBlank(simple->text())
                             : content_->getSoapTypeId() == TzSoapContentBase::Generic;
}

// Most elements with members have children, so only the others are looked at more closely.
void TzSoapPlace::requireMembers(const char* wanted, bool arrays) const {
    if (body_ != nullptr) {
        return;
    }
    if (attribute_ != nullptr) {
        refuseText(wanted);
    }
    if (isNil()) {
        refuseNil(wanted);
    }
    const bool hasMembers =
        content_->getSoapTypeId() == TzSoapContentBase::Composite || (arrays && isArray());
    if (!hasMembers && !hasNoContent()) {
        refuseKind(wanted);
    }
}

bool TzSoapPlace::isNamed(std::string_view localName) const {
    return member_ != nullptr && std::as_const(*member_).getName().getLocalName() == localName;
}

void TzSoapPlace::readFields(const TzSoapFieldRow* rows, std::size_t count, unsigned int* seen,
                             void* object) const {
    bool isText = false;
    for (std::size_t i = 0; i < count; ++i) {
        if (rows[i].place == TzSoapFieldPlace::Attribute) {
            seen[i] += readAttribute(rows[i], object) ? 1 : 0;
        } else if (rows[i].place == TzSoapFieldPlace::Text) {
            isText = true;
            rows[i].read(*this, object);
            ++seen[i];
        }
    }
    if (!isText) {
        readElements(rows, count, seen, object);
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (rows[i].isRequired && seen[i] == 0) {
            refuseMissing(rows[i]);
        }
    }
}

void TzSoapPlace::readElements(const TzSoapFieldRow* rows, std::size_t count, unsigned int* seen,
                               void* object) const {
    requireMembers("a struct", false);
    std::size_t expected = 0;
    const auto visit = [&](const TzSoapType& member) {
        const TzSoapFieldRow* const row =
            rowOf(std::as_const(member).getName(), rows, count, expected);
        if (row == nullptr) {
            noteRepeated(isRepeated_ ? 1 : 0);
        } else {
            const TzSoapPlace place(*this, member, *row);
            const auto at = static_cast<std::size_t>(row - rows);
            if (seen[at]++ > 0 && !row->isRepeated) {
                place.refuseSecond();
            }
            row->read(place, object);
            // Senders keep an order, so the next element is that of this row or the next.
            expected = row->isRepeated || at + 1 == count ? at : at + 1;
        }
        return false;
    };
    if (body_ != nullptr) {
        TzSoapMembers::first(*body_, visit);
    } else {
        TzSoapMembers::first(*content_, visit);
    }
}

bool TzSoapPlace::readAttribute(const TzSoapFieldRow& row, void* object) const {
    const TzXmlAttribute* const found =
        content_ == nullptr ? nullptr : tzSoapFindAttribute(*content_, row.name, row.uri);
    if (found != nullptr) {
        TzSoapPlace place(*this, *found);
        place.isHex_ = row.type == TzSoapContentBase::xsdHexBinary;
        row.read(place, object);
    }
    return found != nullptr;
}

TzCString TzSoapPlace::getPath() const {
    if (parent_ == nullptr) {
        return view_->getPath();
    }
    std::vector<TzCString> steps;
    const TzSoapPlace* place = this;
    for (; place->parent_ != nullptr; place = place->parent_) {
        steps.push_back(place->step());
    }
    TzCString path = place->view_->getPath();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        path = tzSoapJoined(std::move(path), *step);
    }
    return path;
}

TzCString TzSoapPlace::step() const {
    if (attribute_ != nullptr) {
        return TzCString("@").append(attribute_->getName().getLocalName());
    }
    return parent_->body_ != nullptr ? tzSoapStepOf(*parent_->body_, *member_)
                                     : tzSoapStepOf(*parent_->content_, *member_);
}

TzCString TzSoapPlace::where() const {
    TzCString path = getPath();
    if (path.empty()) {
        path = body_ != nullptr ? "the body" : "the value";
    }
    return path;
}

void TzSoapPlace::refuse(std::string_view reason) const {
    TzThrow(TzXmlBadArgError(TzMessage(where().append(": ").append(reason))));
}

void TzSoapPlace::refuseText(std::string_view wanted) const {
    refuse(tzQuoted(getText()).append(" is not ").append(wanted));
}

void TzSoapPlace::refuseNil(const char* wanted) const {
    TzThrow(TzXmlBadArgError(TzMessage(where() + " is nil, not " + wanted)));
}

void TzSoapPlace::refuseKind(const char* wanted) const {
    TzCString reason = TzCString(" is not ").append(wanted);
    if (const auto* const reference = dynamic_cast<const TzSoapReferenceTypeImp*>(content_)) {
        reason = " refers to " + tzQuoted(targetOf(*reference)) + ", which is no value here";
    } else if (content_ != nullptr) {
        reason += " but of kind " + tzQuoted(content_->getSoapTypeIdAsString());
    }
    TzThrow(TzXmlBadArgError(TzMessage(where() + reason)));
}

void TzSoapPlace::refuseSecond() const {
    TzThrow(TzXmlBadArgError(TzMessage(where() + " is one too many")));
}

void TzSoapPlace::refuseMissing(const TzSoapFieldRow& row) const {
    if (row.place == TzSoapFieldPlace::Attribute) {
        tzSoapRefuseAttribute(getPath(), row.name,
                              row.uri.empty() ? std::nullopt : std::optional(row.uri));
    }
    if (body_ != nullptr) {
        tzSoapRefuseMember(*body_, getPath(), row.name, uriOf(row));
    }
    tzSoapRefuseMember(*content_, getPath(), row.name, uriOf(row));
}
