// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCodec.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMemberName.h>
#include <soap/TzSoapPlace.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

class TzSoapMessage;
class TzSoapViewList;

/// An index of a view: a whole number, no truth value.
template <typename Index>
concept TzSoapViewIndex = std::integral<Index> && !std::same_as<Index, bool>;

/// A read-only look at a value, a body or a message: `view["order"]["total"].as<double>()`.
///
/// Members are the children of a composite, the items of an encoded array, the entries of a body; a
/// message stands for its body. They are found by local name or by `{localName, uri}`; references
/// are followed everywhere. What is missing is a `TzSoapMissingError`, what is there but has
/// another form a `TzXmlBadArgError`; their texts begin with the path from where the first view
/// began, such as `GetOrdersResponse/order[2]/total: "12x" is not a double`. Paths leave out header
/// and body and count from 1, as `getChild` of values does; indices count from 0, as C++ does.
///
/// A view holds handles of what it was reached through, so it stays good when the message goes and
/// sees what others change. Copies are cheap. Views go down `DepthLimit` steps at
/// most. Threads: a view is a reader of the value; views of one value may be used on several
/// threads as long as none changes the value.
class TZSOAP_API TzSoapView {
public:
    /// Most steps below the first view.
    static constexpr std::size_t DepthLimit = 1000;

    /// A view of `value`, which the path begins with. `TzTHRInvalidPointer` "Invalid pointer" for a
    /// handle without a body.
    explicit TzSoapView(const TzSoapType& value);
    /// A view of the entries of `body`.
    explicit TzSoapView(const TzSoapBody& body);
    /// A view of the entries of the body of `message`.
    explicit TzSoapView(const TzSoapMessage& message);

    /// The first member named `name`. `TzSoapMissingError` when it is missing, with the reason as
    /// far as it is known: another namespace, a fault in the body. O(members).
    TzSoapView operator[](const TzSoapMemberName& name) const;
    /// The item at `index`, from 0: of an encoded array that one of the items that are there, of
    /// any other value the member of the same name beside it, so that `view["line"][2]` is the
    /// third line. `TzSoapMissingError` without one. O(members).
    TzSoapView operator[](TzSoapViewIndex auto index) const {
        return at(static_cast<long long>(index));
    }
    /// What `operator[]` returns for an index.
    TzSoapView at(long long index) const;
    /// The first member, whatever its name. `TzSoapMissingError` without members.
    TzSoapView first() const;
    /// The first member named `name`, empty when it is missing. O(members).
    std::optional<TzSoapView> find(const TzSoapMemberName& name) const;
    /// Whether there is a member named `name`, nil or not. O(members).
    bool exists(const TzSoapMemberName& name) const { return find(name).has_value(); }
    /// All members named `name`, in order; an empty list without any. O(members).
    TzSoapViewList all(const TzSoapMemberName& name) const;
    /// All members; array positions without an item are left out. O(members).
    TzSoapViewList all() const;

    /// What the element holds, as a `Value`: bool, a number, a text, a `TzSoapBytes`, a date, a
    /// time or another class that `TzSoapCodec` knows, an enumeration with a `TzSoapEnum`, a struct
    /// with `TzSoapFields`; a `std::vector` of these holds the members of the element, whatever
    /// their names, and a `std::optional` is empty for a nil element. A `TzSoapType` is the value
    /// itself. `TzXmlBadArgError` with the path for another form, a number that does not fit, a nil
    /// or another kind of element; of a struct also `TzSoapMissingError`. O(content).
    template <typename Value> Value as() const {
        return TzSoapPlace::read<Value>(TzSoapPlace(*this));
    }
    /// What the first member named `name` holds; empty when it is missing or nil. Errors as for
    /// `as`. O(members).
    template <typename Value> std::optional<Value> optional(const TzSoapMemberName& name) const {
        const std::optional<TzSoapView> member = find(name);
        return member && !member->isNil() ? std::optional<Value>(member->as<Value>())
                                          : std::nullopt;
    }
    /// What the attribute named `name` holds; declarations of namespaces are left out,
    /// and the type is not (`TzSoapType::getType`). `TzSoapMissingError` with a path such as
    /// `order/@id` when it is missing, otherwise as for `as`. O(attributes).
    template <typename Value = TzCString> Value attribute(const TzSoapMemberName& name) const {
        const TzSoapPlace place(*this);
        return TzSoapPlace::read<Value>(TzSoapPlace(place, requireAttribute(name)));
    }
    /// What the attribute named `name` holds; empty when it is missing. Errors as for `attribute`.
    template <typename Value = TzCString>
    std::optional<Value> optionalAttribute(const TzSoapMemberName& name) const {
        const TzXmlAttribute* const found = findAttribute(name);
        const TzSoapPlace place(*this);
        return found == nullptr
                   ? std::nullopt
                   : std::optional<Value>(TzSoapPlace::read<Value>(TzSoapPlace(place, *found)));
    }

    /// Whether the element states that it has no value (xsi:nil), or is an array position without
    /// an item. False for a body.
    bool isNil() const;
    /// The text as it stands, white space included. Errors as for `as<TzCString>()`.
    TzCString getText() const { return as<TzCString>(); }
    /// The element's name, that of the reference where one stands there; the empty name for a body.
    const TzXmlName& getName() const;
    /// The value, shared; what a reference refers to. `TzXmlBadArgError` for a body.
    TzSoapType getValue() const;
    /// The way from the first view to here: local names with "/" between, "[n]" after the second
    /// and later ones of a name, whose number in a list is that of when the list was made. "" for a
    /// body. O(members of the values on the way), O(steps) for members of lists.
    TzCString getPath() const;

private:
    friend class TzSoapEntryReader;
    friend class TzSoapPlace;
    friend class TzSoapViewList;
    using Content = std::variant<TzSoapType, TzSoapBody>;

    TzSoapView(const TzSoapType& value, std::shared_ptr<const TzSoapView> parent,
               std::size_t number = 0);
    // Of a record that stands alone, the `number`-th one below `above`.
    TzSoapView(const TzSoapType& value, std::shared_ptr<const TzCString> above, std::size_t number);
    TzCString firstStep() const;

    std::shared_ptr<const TzSoapView> shared() const;
    TzSoapViewList collect(const TzSoapMemberName* name) const;
    [[noreturn]] static TzSoapView refuseIndex(const TzSoapView& owner, std::string_view name,
                                               long long index);
    const TzXmlAttribute* findAttribute(const TzSoapMemberName& name) const;
    const TzXmlAttribute& requireAttribute(const TzSoapMemberName& name) const;
    [[noreturn]] void refuseMissing(const TzSoapMemberName& name) const;

    Content content_;
    std::shared_ptr<const TzSoapView> parent_; // null for the first one
    std::size_t depth_ = 0;
    std::shared_ptr<const TzCString> above_; // the path above the first one, null for none
    std::size_t number_ = 0;                 // among its namesakes, 0 where it is not known
};

/// Views of several members, in order: `for (const TzSoapView& line : view.all("line"))`.
///
/// They are those that were there when the list was made. Copies are as long as the list.
class TzSoapViewList {
public:
    /// Position of a view, valid as long as the list.
    using const_iterator = std::vector<TzSoapView>::const_iterator;

    /// The first view.
    const_iterator begin() const noexcept { return views_.begin(); }
    /// One past the last view.
    const_iterator end() const noexcept { return views_.end(); }
    /// Number of views.
    std::size_t size() const noexcept { return views_.size(); }
    /// Whether the list is empty.
    bool empty() const noexcept { return views_.empty(); }
    /// The view at `position`, below the size.
    const TzSoapView& operator[](std::size_t position) const noexcept { return views_[position]; }
    /// What each of the members holds. Errors as for `TzSoapView::as`. O(content).
    template <typename Value> std::vector<Value> as() const {
        std::vector<Value> values;
        values.reserve(views_.size());
        for (const TzSoapView& view : views_) {
            values.push_back(view.as<Value>());
        }
        return values;
    }

private:
    friend class TzSoapView;

    std::vector<TzSoapView> views_;
};
