// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCodec.h>
#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapMaking.h>
#include <soap/TzSoapPlace.h>
#include <soap/TzSoapView.h>
#include <tz/tools/TzCString.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// How the members of a struct stand in a message: specialised once for each struct, with `fields`.
///
///     struct Order {
///         int id = 0;
///         double total = 0;
///         std::optional<std::string> note;
///         std::vector<Line> lines;
///     };
///     template <> struct TzSoapFields<Order> {
///         static constexpr auto fields = tzFields("urn:orders",
///                                                 tzAttribute("id", &Order::id),
///                                                 tzField("total", &Order::total),
///                                                 tzField("note", &Order::note),
///                                                 tzField("line", &Order::lines));
///     };
///
/// Then `view.as<Order>()` reads one, `view.as<std::vector<Order>>()` the members of an element,
/// and `tzSoapValue(order, name)` makes one. A `std::optional` member may be absent or nil, a
/// `std::vector` member is repeated from 0 times on, every other one stands there once. Elements
/// are read in any order and written in that of the declaration; elements and attributes that are
/// not declared are left out. Members are of any type that `TzSoapView::as` returns, other structs
/// included; of a struct that holds itself, through a `std::vector`, at most
/// `TzSoapPlace::DepthLimit` are read within each other.
template <typename Struct> struct TzSoapFields;

/// A struct with `TzSoapFields`.
template <typename Struct>
concept TzSoapBoundStruct = std::is_class_v<Struct> && requires {
    TzSoapFields<Struct>::fields;
};

/// Where a field stands.
enum class TzSoapFieldPlace {
    Element,   ///< In a child element.
    Attribute, ///< In an attribute.
    Text,      ///< In the text of the element itself.
};

/// What a field is, without the types of the program: serves readers and makers.
struct TzSoapFieldRow {
    std::string_view name;                              ///< Local name.
    std::string_view uri;                               ///< Namespace, "" for none.
    bool hasAnyUri = false;                             ///< Read in any namespace.
    TzSoapFieldPlace place = TzSoapFieldPlace::Element; ///< Where it stands.
    bool isRequired = true;                             ///< Its absence is an error.
    bool isRepeated = false;                            ///< It may be there several times.
    TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdUnknown; ///< If it was stated.
    void (*read)(const TzSoapPlace& place, void* object) = nullptr;     ///< Into the struct.
    void (*write)(const void* object, const TzSoapFieldRow& row,
                  TzSoapMaking::Parts& parts) = nullptr; ///< Out of the struct.
};

/// What a member's type says of its field.
template <typename Member> struct TzSoapMemberTraits {
    static constexpr bool isOptional = false; ///< `std::optional`.
    static constexpr bool isRepeated = false; ///< `std::vector`.
    using Item = Member;                      ///< What one element holds.
};
/// Of an optional member.
template <typename Value> struct TzSoapMemberTraits<std::optional<Value>> {
    static constexpr bool isOptional = true;
    static constexpr bool isRepeated = TzSoapMemberTraits<Value>::isRepeated;
    using Item = typename TzSoapMemberTraits<Value>::Item;
};
/// Of a repeated member.
template <typename Value> struct TzSoapMemberTraits<std::vector<Value>> {
    static constexpr bool isOptional = false;
    static constexpr bool isRepeated = true;
    using Item = Value;
};

/// A member of a struct and how it stands in a message; made by `tzField`, `tzAttribute` and
/// `tzText`. The operations return a changed field.
template <typename Struct, typename Member> class TzSoapField {
public:
    /// What the member's type says.
    using Traits = TzSoapMemberTraits<Member>;

    /// The field `name` of `member`.
    constexpr TzSoapField(std::string_view name, Member Struct::*member,
                          TzSoapFieldPlace place) noexcept
        : name_(name), member_(member), place_(place) {}

    /// The field may be absent: the member then keeps the value that it has in a new struct. It is
    /// always written, unlike a `std::optional` member.
    constexpr TzSoapField optional() const noexcept {
        static_assert(!Traits::isOptional && !Traits::isRepeated,
                      "TzSoapFields: a std::optional or std::vector member may be absent anyway");
        TzSoapField changed = *this;
        changed.isRequired_ = false;
        return changed;
    }
    /// An empty `std::optional` is written as a nil element; it would be left out otherwise. Both
    /// are read.
    constexpr TzSoapField nillable() const noexcept {
        static_assert(Traits::isOptional, "TzSoapFields: nillable() needs a std::optional member");
        TzSoapField changed = *this;
        changed.isNillable_ = true;
        return changed;
    }
    /// The elements of a `std::vector` stand in one element of the field's name, each in an element
    /// named `item`. In SOAP encoding that is an array, whose items are read whatever their names.
    constexpr TzSoapField wrapped(std::string_view item) const noexcept {
        static_assert(Traits::isRepeated, "TzSoapFields: wrapped() needs a std::vector member");
        TzSoapField changed = *this;
        changed.item_ = item;
        return changed;
    }
    /// The field stands in the namespace `uri`, "" for none, instead of that of the declaration.
    constexpr TzSoapField inNamespace(std::string_view uri) const noexcept {
        TzSoapField changed = *this;
        changed.uri_ = uri;
        return changed;
    }
    /// The text is of the schema type `type`, such as `xsdToken` for a string or `xsdHexBinary` for
    /// bytes.
    constexpr TzSoapField type(TzSoapContentBase::SchemaType type) const noexcept {
        static_assert(TzSoapHasText<typename TzSoapMemberTraits<typename Traits::Item>::Item>,
                      "TzSoapFields: type() needs a member with text, no struct");
        TzSoapField changed = *this;
        changed.type_ = type;
        return changed;
    }

    /// Whether the field may be there several times.
    constexpr bool isRepeated() const noexcept { return Traits::isRepeated && item_.empty(); }
    /// Its row, in a declaration for the namespace `uri`; without the functions.
    constexpr TzSoapFieldRow row(const std::optional<std::string_view>& uri) const noexcept {
        const bool isElement = place_ == TzSoapFieldPlace::Element;
        TzSoapFieldRow row;
        row.name = name_;
        row.uri = uri_ ? *uri_ : isElement && uri ? *uri : std::string_view();
        row.hasAnyUri = isElement && !uri_ && !uri;
        row.place = place_;
        row.isRequired = isRequired_ && !Traits::isOptional && !isRepeated();
        row.isRepeated = isRepeated();
        row.type = type_;
        return row;
    }
    /// Reads the member of `object` at `place`.
    void read(const TzSoapPlace& place, Struct& object) const {
        Member& member = object.*member_;
        if constexpr (Traits::isRepeated) {
            readList(place, member);
        } else {
            TzSoapCodec<Member>::read(place, member);
        }
    }
    /// Adds the member of `object` to `parts`.
    void write(const Struct& object, const TzSoapFieldRow& row, TzSoapMaking::Parts& parts) const {
        if constexpr (Traits::isOptional) {
            if (const auto& member = object.*member_) {
                writeValue(*member, row, parts);
            } else if (isNillable_) {
                parts.addChild(TzSoapMaking::makeNil(parts.making().nameOf(row)));
            }
        } else {
            writeValue(object.*member_, row, parts);
        }
    }

private:
    using Item = typename Traits::Item;

    template <typename List> void readList(const TzSoapPlace& place, List& list) const {
        if constexpr (TzSoapMemberTraits<List>::isOptional) {
            if (place.isNil()) {
                list.reset();
            } else {
                readList(place, list ? *list : list.emplace());
            }
        } else if (item_.empty() && !place.isArray()) {
            list.push_back(TzSoapPlace::read<Item>(place));
        } else {
            place.eachMember([&](const TzSoapPlace& member) {
                if (place.isArray() || member.isNamed(item_)) {
                    list.push_back(TzSoapPlace::read<Item>(member));
                }
            });
        }
    }
    template <typename Value>
    void writeValue(const Value& value, const TzSoapFieldRow& row,
                    TzSoapMaking::Parts& parts) const {
        TzSoapMaking& making = parts.making();
        if constexpr (Traits::isRepeated) {
            if (!item_.empty()) {
                parts.addChild(TzSoapCodec<Value>::make(
                    value, making.nameOf(row), making.nameBeside(row, item_), making, type_));
                return;
            }
            for (const auto& item : value) {
                parts.addChild(making.template make<Item>(item, making.nameOf(row), type_));
            }
        } else if constexpr (TzSoapHasText<Value>) {
            writeText(value, row, parts);
        } else {
            parts.addChild(making.make(value, making.nameOf(row)));
        }
    }
    template <typename Value>
    void writeText(const Value& value, const TzSoapFieldRow& row,
                   TzSoapMaking::Parts& parts) const {
        const auto stated = TzSoapMaking::typeOf<Value>(type_);
        TzCString text = TzSoapCodec<Value>::toText(value, stated);
        if (place_ == TzSoapFieldPlace::Attribute) {
            parts.addAttribute(row, std::move(text));
        } else if (place_ == TzSoapFieldPlace::Text) {
            parts.setText(std::move(text), stated);
        } else {
            const TzXmlName& name = parts.making().nameOf(row);
            parts.addChild(parts.making().makeText(name, text, stated));
        }
    }

    std::string_view name_;
    Member Struct::*member_;
    TzSoapFieldPlace place_;
    bool isRequired_ = true;
    bool isNillable_ = false;
    std::string_view item_;
    std::optional<std::string_view> uri_;
    TzSoapContentBase::SchemaType type_ = TzSoapContentBase::xsdUnknown;
};

/// The member `member` in elements named `name`.
template <typename Struct, typename Member>
constexpr TzSoapField<Struct, Member> tzField(std::string_view name,
                                              Member Struct::*member) noexcept {
    return {name, member, TzSoapFieldPlace::Element};
}

/// The member `member` in the attribute `name`, which is in no namespace unless one is stated.
template <typename Struct, typename Member>
constexpr TzSoapField<Struct, Member> tzAttribute(std::string_view name,
                                                  Member Struct::*member) noexcept {
    using Traits = TzSoapMemberTraits<Member>;
    static_assert(!Traits::isRepeated && TzSoapHasText<typename Traits::Item>,
                  "TzSoapFields: tzAttribute() needs a member with text, no struct and no list");
    return {name, member, TzSoapFieldPlace::Attribute};
}

/// The member `member` in the text of the element itself, beside attributes: such a struct has no
/// other elements.
template <typename Struct, typename Member>
constexpr TzSoapField<Struct, Member> tzText(Member Struct::*member) noexcept {
    static_assert(TzSoapHasText<Member>,
                  "TzSoapFields: tzText() needs a member with text, no struct, list or optional");
    return {"", member, TzSoapFieldPlace::Text};
}

/// The fields of a struct; made by `tzFields`.
template <typename... Fields> struct TzSoapFieldList {
    std::optional<std::string_view> uri; ///< Namespace of the elements; any is read without one.
    std::tuple<Fields...> fields;        ///< In the order in which they are written.

    /// The elements stand in no namespace, as in a schema without elementFormDefault="qualified".
    constexpr TzSoapFieldList unqualified() const noexcept { return {std::string_view(), fields}; }
};

/// The fields of a struct whose elements stand in the namespace `uri`, "" for none.
template <typename... Fields>
constexpr TzSoapFieldList<Fields...> tzFields(std::string_view uri, Fields... fields) noexcept {
    return {uri, std::tuple<Fields...>(fields...)};
}

/// The fields of a struct whose elements are read in any namespace and written without one, as is
/// usual in SOAP encoding.
template <typename Struct, typename Member, typename... Fields>
constexpr TzSoapFieldList<TzSoapField<Struct, Member>, Fields...>
tzFields(TzSoapField<Struct, Member> first, Fields... fields) noexcept {
    return {std::nullopt, std::tuple<TzSoapField<Struct, Member>, Fields...>(first, fields...)};
}

/// The rows of the fields of a struct: serves its codec.
template <TzSoapBoundStruct Struct> class TzSoapFieldTable {
    static constexpr const auto& list_ = TzSoapFields<Struct>::fields;
    using Tuple = std::remove_cvref_t<decltype(list_.fields)>;

    template <std::size_t At> static void read(const TzSoapPlace& place, void* object) {
        std::get<At>(TzSoapFields<Struct>::fields.fields)
            .read(place, *static_cast<Struct*>(object));
    }
    template <std::size_t At>
    static void write(const void* object, const TzSoapFieldRow& row, TzSoapMaking::Parts& parts) {
        std::get<At>(TzSoapFields<Struct>::fields.fields)
            .write(*static_cast<const Struct*>(object), row, parts);
    }
    template <std::size_t At> static constexpr TzSoapFieldRow makeRow() noexcept {
        TzSoapFieldRow row = std::get<At>(list_.fields).row(list_.uri);
        row.read = read<At>;
        row.write = write<At>;
        return row;
    }
    template <std::size_t... At>
    static constexpr std::array<TzSoapFieldRow, sizeof...(At)>
    makeRows(std::index_sequence<At...>) noexcept {
        return {makeRow<At>()...};
    }
    static constexpr std::size_t namesakes(const TzSoapFieldRow& row) noexcept {
        std::size_t count = 0;
        for (const TzSoapFieldRow& other : rows) {
            count += other.place == row.place && other.name == row.name && other.uri == row.uri;
        }
        return count;
    }
    static constexpr bool areDistinct() noexcept {
        for (const TzSoapFieldRow& row : rows) {
            if (namesakes(row) != 1) {
                return false;
            }
        }
        return true;
    }
    static constexpr bool isText() noexcept {
        bool hasText = false;
        bool hasElement = false;
        for (const TzSoapFieldRow& row : rows) {
            hasText = hasText || row.place == TzSoapFieldPlace::Text;
            hasElement = hasElement || row.place == TzSoapFieldPlace::Element;
        }
        return !(hasText && hasElement);
    }

public:
    /// The rows, in the order of the declaration.
    static constexpr auto rows = makeRows(std::make_index_sequence<std::tuple_size_v<Tuple>>());

    static_assert(areDistinct(), "TzSoapFields: two fields of a struct have the same name");
    static_assert(isText(), "TzSoapFields: a struct with tzText() has no other elements");
};

/// A struct with `TzSoapFields`.
template <TzSoapBoundStruct Struct> struct TzSoapCodec<Struct> {
    /// Reads the members. `TzSoapMissingError` for one that is missing; `TzXmlBadArgError` for one
    /// that is there too often and for an element that is not a struct. O(content).
    static void read(const TzSoapPlace& place, Struct& object) {
        constexpr std::size_t count = TzSoapFieldTable<Struct>::rows.size();
        std::array<unsigned int, count + 1> seen{};
        place.readFields(TzSoapFieldTable<Struct>::rows.data(), count, seen.data(), &object);
    }
    /// The element that holds the members. O(content).
    static TzSoapType make(const Struct& object, const TzXmlName& name, TzSoapMaking& making) {
        return making.makeStruct(name, TzSoapFieldTable<Struct>::rows.data(),
                                 TzSoapFieldTable<Struct>::rows.size(), &object);
    }
};
