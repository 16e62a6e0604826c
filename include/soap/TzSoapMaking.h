// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

struct TzSoapFieldRow;
template <typename Value> struct TzSoapCodec;

/// A type whose codec makes texts, so that it can be an attribute and the text of an element.
template <typename Value>
concept TzSoapHasText = requires(const Value& value, TzSoapContentBase::SchemaType type) {
    { TzSoapCodec<Value>::toText(value, type) } -> std::convertible_to<TzCString>;
};

/// Makes values out of program data for one style of messages: what `TzSoapCodec` makes a value
/// with. Each call of `tzSoapValue` has its own; one thread uses it.
class TZSOAP_API TzSoapMaking {
public:
    /// Parts of a struct that is being made, in order: serves `TzSoapFields`.
    class TZSOAP_API Parts {
    public:
        /// Nothing so far; `making` has to outlive this.
        explicit Parts(TzSoapMaking& making) noexcept : making_(&making) {}

        /// What makes the parts.
        TzSoapMaking& making() const noexcept { return *making_; }
        /// Adds the attribute of that row.
        void addAttribute(const TzSoapFieldRow& row, TzCString value);
        /// Adds a child.
        void addChild(TzSoapType child) { children_.push_back(std::move(child)); }
        /// Makes `text` of type `type` the element's own.
        void setText(TzCString text, TzSoapContentBase::SchemaType type);

    private:
        friend class TzSoapMaking;

        TzSoapMaking* making_;
        std::vector<std::pair<TzXmlName, TzCString>> attributes_;
        std::vector<TzSoapType> children_;
        std::optional<TzCString> text_;
        TzSoapContentBase::SchemaType type_ = TzSoapContentBase::xsdUnknown;
    };

    /// For messages of `style`. Names in the namespace of `name` share its prefix, names in others
    /// have prefixes "m", "m2" and so on.
    TzSoapMaking(TzSoapStyle style, const TzXmlName& name);
    TzSoapMaking(const TzSoapMaking&) = delete;
    TzSoapMaking& operator=(const TzSoapMaking&) = delete;
    ~TzSoapMaking();

    /// Whether values state their types: in SOAP encoding.
    bool statesTypes() const noexcept { return style_ == TzSoapStyle::Encoded; }
    /// The element `name` that holds `value`. Of a value with text, the type is `type` if that is
    /// known.
    template <typename Value>
    TzSoapType make(const Value& value, const TzXmlName& name,
                    TzSoapContentBase::SchemaType type = TzSoapContentBase::xsdUnknown) {
        if constexpr (TzSoapHasText<Value>) {
            const auto stated = typeOf<Value>(type);
            return makeText(name, TzSoapCodec<Value>::toText(value, stated), stated);
        } else {
            return TzSoapCodec<Value>::make(value, name, *this);
        }
    }
    /// The type of a `Value` in an element whose type is to be `type`, or unknown.
    template <typename Value>
    static constexpr TzSoapContentBase::SchemaType typeOf(TzSoapContentBase::SchemaType type) {
        return type != TzSoapContentBase::xsdUnknown ? type : TzSoapCodec<Value>::type;
    }
    /// The element `name` with this text and type.
    TzSoapType makeText(const TzXmlName& name, const TzCString& text,
                        TzSoapContentBase::SchemaType type) const;
    /// The element `name` without a value (xsi:nil).
    static TzSoapType makeNil(const TzXmlName& name);
    /// The element `name` that holds `items`: in SOAP encoding an array of items of type `type`
    /// (of any type if it is unknown), otherwise an element with these children.
    TzSoapType makeList(const TzXmlName& name, std::vector<TzSoapType> items,
                        TzSoapContentBase::SchemaType type) const;
    /// The element `name` that holds what the rows make of the struct `object`.
    TzSoapType makeStruct(const TzXmlName& name, const TzSoapFieldRow* rows, std::size_t count,
                          const void* object);
    /// The name of the element or attribute of that row; made once.
    const TzXmlName& nameOf(const TzSoapFieldRow& row);
    /// The name `localName` in the namespace that the row states.
    TzXmlName nameBeside(const TzSoapFieldRow& row, std::string_view localName) const;

private:
    struct Names;

    TzSoapStyle style_;
    std::unique_ptr<Names> names_;
};

/// The element `name` that holds `value`, to be appended to a body, a header or a composite of a
/// message of `style`: in SOAP encoding every simple value states its type and a wrapped list is an
/// array; in literal messages neither. `Value` is any type that `TzSoapView::as` returns; the
/// members of a struct stand in the order of its declaration. A name without namespace stays
/// without. Types are texts, so an encoded message needs `declareTypeNamespaces`.
/// `TzXmlBadArgError` for an enumerator without a text and for a date that does not exist.
/// O(content).
template <typename Value>
TzSoapType tzSoapValue(const Value& value, const TzXmlName& name,
                       TzSoapStyle style = TzSoapStyle::Encoded) {
    return TzSoapMaking(style, name).make(value, name);
}
