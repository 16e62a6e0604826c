// SPDX-License-Identifier: MIT
#include <soap/TzSoapView.h>

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "service/TzSoapMembers.h"
#include "service/TzSoapTextForms.h"
#include "values/TzSoapFollow.h"
#include "view/TzSoapViewPath.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace {

using Content = std::variant<TzSoapType, TzSoapBody>;

/// The first member of `content` for which `test` holds, null without one.
template <typename Test> const TzSoapType* firstOf(const Content& content, const Test& test) {
    return std::visit([&test](const auto& owner) { return TzSoapMembers::first(owner, test); },
                      content);
}

/// Counts members by their local names, so that each knows its number: a program may ask for the
/// path of every one.
class Namesakes {
public:
    /// The number of the next member named `name`, which must stay.
    std::size_t count(std::string_view name) {
        if (latest_ == nullptr || name != latestName_) {
            latest_ = &numbers_[name];
            latestName_ = name;
        }
        return ++*latest_;
    }

private:
    std::unordered_map<std::string_view, std::size_t> numbers_;
    std::string_view latestName_;
    std::size_t* latest_ = nullptr;
};

/// What the value of a view stands for, null for a body.
const TzSoapTypeImp* contentOf(const Content& content) {
    const auto* const value = std::get_if<TzSoapType>(&content);
    return value == nullptr ? nullptr : &TzSoapAccess::body(tzSoapFollow(*value));
}

} // namespace

TzSoapView::TzSoapView(const TzSoapType& value) : content_(value) {
    static_cast<void>(TzSoapAccess::body(value));
}

TzSoapView::TzSoapView(const TzSoapBody& body) : content_(body) {
    static_cast<void>(TzSoapAccess::body(body));
}

TzSoapView::TzSoapView(const TzSoapMessage& message) : TzSoapView(message.getSoapBody()) {}

TzSoapView::TzSoapView(const TzSoapType& value, std::shared_ptr<const TzSoapView> parent,
                       std::size_t number)
    : content_(value), parent_(std::move(parent)), depth_(parent_->depth_ + 1), number_(number) {}

TzSoapView::TzSoapView(const TzSoapType& value, std::shared_ptr<const TzCString> above,
                       std::size_t number)
    : content_(value), above_(std::move(above)), number_(number) {}

std::shared_ptr<const TzSoapView> TzSoapView::shared() const {
    if (depth_ >= DepthLimit) {
        TzThrow(TzXmlBadArgError(TzMessage(tzSoapTooDeep(getPath(), DepthLimit))));
    }
    return std::make_shared<const TzSoapView>(*this);
}

TzSoapView TzSoapView::operator[](const TzSoapMemberName& name) const {
    std::optional<TzSoapView> member = find(name);
    if (!member) {
        refuseMissing(name);
    }
    return *std::move(member);
}

TzSoapView TzSoapView::at(long long index) const {
    const TzSoapTypeImp* const content = contentOf(content_);
    const bool isArray = content != nullptr && content->getSoapTypeId() == TzSoapContentBase::Array;
    long long left = index;
    const auto isItem = [&](const TzSoapType& member) {
        return (isArray || member.getName() == getName()) && left-- == 0;
    };
    if (isArray) {
        const TzSoapType* const item = TzSoapMembers::first(*content, isItem);
        return item != nullptr ? TzSoapView(*item, shared()) : refuseIndex(*this, {}, index);
    }
    if (parent_ == nullptr) {
        return index == 0 ? *this : refuseIndex(*this, getName().getLocalName(), index);
    }
    const TzSoapType* const found = firstOf(parent_->content_, isItem);
    return found != nullptr ? TzSoapView(*found, parent_)
                            : refuseIndex(*parent_, getName().getLocalName(), index);
}

TzSoapView TzSoapView::first() const {
    const TzSoapType* const found = firstOf(content_, [](const TzSoapType&) { return true; });
    if (found == nullptr) {
        const TzCString path = getPath();
        const TzCString reason =
            std::visit([](const auto& owner) { return TzSoapMembers::whyNone(owner); }, content_);
        throw TzSoapMissingError(path, "the first member of " +
                                           (path.empty() ? TzCString("the body") : path) +
                                           " is missing" + reason);
    }
    return {*found, shared()};
}

std::optional<TzSoapView> TzSoapView::find(const TzSoapMemberName& name) const {
    const TzSoapType* const found = firstOf(
        content_, [&name](const TzSoapType& member) { return name.matches(member.getName()); });
    return found == nullptr ? std::nullopt : std::optional(TzSoapView(*found, shared()));
}

TzSoapViewList TzSoapView::all(const TzSoapMemberName& name) const { return collect(&name); }

TzSoapViewList TzSoapView::all() const { return collect(nullptr); }

TzSoapViewList TzSoapView::collect(const TzSoapMemberName* name) const {
    const std::shared_ptr<const TzSoapView> parent = shared();
    TzSoapViewList list;
    Namesakes namesakes;
    firstOf(content_, [&](const TzSoapType& member) {
        const TzXmlName& own = member.getName();
        if (name == nullptr || name->getLocalName() == own.getLocalName()) {
            const std::size_t number = namesakes.count(own.getLocalName());
            if (name == nullptr || name->matches(own)) {
                list.views_.push_back(TzSoapView(member, parent, number));
            }
        }
        return false;
    });
    return list;
}

bool TzSoapView::isNil() const {
    const TzSoapTypeImp* const content = contentOf(content_);
    return content != nullptr && TzSoapTextForms::isNil(*content);
}

const TzXmlName& TzSoapView::getName() const {
    const auto* const value = std::get_if<TzSoapType>(&content_);
    const bool isNamed = value != nullptr && !TzSoapArrayTypeImp::isPlaceholder(*value);
    static const TzXmlName none;
    return isNamed ? std::as_const(*value).getName() : none;
}

TzSoapType TzSoapView::getValue() const { return TzSoapPlace(*this).getValue(); }

TzCString TzSoapView::getPath() const {
    if (parent_ == nullptr) {
        return firstStep();
    }
    // A loop, because views may be deep.
    std::vector<TzCString> steps;
    const TzSoapView* view = this;
    for (; view->parent_ != nullptr; view = view->parent_.get()) {
        const auto& member = std::get<TzSoapType>(view->content_);
        steps.push_back(
            view->number_ > 0
                ? tzSoapNumbered(member.getName().getLocalName(), view->number_)
                : std::visit([&member](const auto& owner) { return tzSoapStepOf(owner, member); },
                             view->parent_->content_));
    }
    TzCString path = view->firstStep();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        path.append(path.empty() ? 0 : 1, '/').append(*step);
    }
    return path;
}

TzCString TzSoapView::firstStep() const {
    const TzCString& name = getName().getLocalName();
    return above_ == nullptr ? name : tzSoapJoined(*above_, tzSoapNumbered(name, number_));
}

const TzXmlAttribute* TzSoapView::findAttribute(const TzSoapMemberName& name) const {
    const TzSoapTypeImp* const content = contentOf(content_);
    return content == nullptr ? nullptr
                              : tzSoapFindAttribute(*content, name.getLocalName(), name.getUri());
}

const TzXmlAttribute& TzSoapView::requireAttribute(const TzSoapMemberName& name) const {
    const TzXmlAttribute* const found = findAttribute(name);
    if (found == nullptr) {
        tzSoapRefuseAttribute(getPath(), name.getLocalName(), name.getUri());
    }
    return *found;
}

void TzSoapView::refuseMissing(const TzSoapMemberName& name) const {
    if (const auto* const body = std::get_if<TzSoapBody>(&content_)) {
        tzSoapRefuseMember(*body, getPath(), name.getLocalName(), name.getUri());
    }
    tzSoapRefuseMember(std::get<TzSoapType>(content_), getPath(), name.getLocalName(),
                       name.getUri());
}

TzSoapView TzSoapView::refuseIndex(const TzSoapView& owner, std::string_view name,
                                   long long index) {
    const TzCString missing =
        tzSoapJoined(owner.getPath(), name) + '[' + std::to_string(index + 1) + ']';
    const std::size_t count = name.empty() ? owner.all().size() : owner.all(name).size();
    throw TzSoapMissingError(missing, missing + " is missing; " + TzSoapMembers::counted(count));
}
