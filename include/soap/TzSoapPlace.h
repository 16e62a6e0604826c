// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>

#include <chrono>
#include <concepts>
#include <cstddef>
#include <string_view>

class TzDate;
class TzDateTime;
class TzDecimalPortable;
class TzSoapBody;
class TzSoapMemberName;
class TzSoapType;
class TzSoapTypeImp;
class TzSoapView;
class TzXmlAttribute;
class TzXmlDuration;
class TzXmlName;
struct TzSoapFieldRow;
template <typename Value> struct TzSoapCodec;

/// Where a conversion stands in what a view shows: what `TzSoapCodec` reads a value from.
///
/// Knows the way that led there, so that every error begins with its path. A place refers to the
/// one above it and to the content, which must not change meanwhile; it is used by the thread that
/// made it and never outlives the conversion.
class TZSOAP_API TzSoapPlace {
public:
    /// Most steps below the place where a conversion begins, because each takes stack.
    static constexpr std::size_t DepthLimit = 256;
    /// Most members that one conversion meets below references, because several references may
    /// refer to one value and so repeat it. Every 64 bytes of text, 16 attributes and 16 array
    /// positions there count as one more.
    static constexpr std::size_t RepeatLimit = 1048576;

    /// Where `view` stands.
    explicit TzSoapPlace(const TzSoapView& view);
    /// The attribute `attribute` of the element at `element`.
    TzSoapPlace(const TzSoapPlace& element, const TzXmlAttribute& attribute);
    TzSoapPlace(const TzSoapPlace&) = delete;
    TzSoapPlace& operator=(const TzSoapPlace&) = delete;
    ~TzSoapPlace() = default;

    /// The `Value` at `place`, by its `TzSoapCodec`.
    template <typename Value> static Value read(const TzSoapPlace& place) {
        static_assert(std::default_initializable<Value>,
                      "TzSoap: a type that is read needs a default constructor");
        Value value{};
        TzSoapCodec<Value>::read(place, value);
        return value;
    }

    /// Whether there is an element that states that it has no value, or an array position without
    /// an item.
    bool isNil() const;
    /// Whether there is an encoded array.
    bool isArray() const;
    /// The text, as it stands; valid until the content changes. `TzXmlBadArgError` for a nil
    /// element, of which it says that it is not `wanted`, and for one that is not a simple value.
    const TzCString& getText(const char* wanted = "a string") const;
    /// What the text states: `Value` is bool, a numeric type but no character type,
    /// `TzDecimalPortable`, `TzDate`, `TzDateTime`, `TzXmlDuration` or
    /// `std::chrono::sys_time<std::chrono::nanoseconds>`; forms as for `TzSoapValueReader`.
    /// `TzXmlBadArgError` for a text of another form, otherwise as for `getText`.
    template <typename Value> Value get() const;
    /// The bytes that base64 text stands for; where the value or the field is of type hexBinary
    /// those that hexadecimal digits stand for. Errors as for `get`.
    TzCString getBytes() const;
    /// The value, shared, a reference followed. `TzXmlBadArgError` for an attribute and a body.
    TzSoapType getValue() const;

    /// Calls `visit` with the place of every member: children, items or entries. An element without
    /// content has none. `TzXmlBadArgError` for a nil element and for other kinds, of which it says
    /// that they are not "a list". O(members).
    template <typename Visit> void eachMember(const Visit& visit) const {
        visitMembers([](const void* data,
                        const TzSoapPlace& member) { (*static_cast<const Visit*>(data))(member); },
                     &visit);
    }
    /// Whether the element here is named `name`.
    bool isNamed(std::string_view localName) const;
    /// Reads the fields of a struct: serves `TzSoapFields`. `seen` has one 0 for each of the rows.
    void readFields(const TzSoapFieldRow* rows, std::size_t count, unsigned int* seen,
                    void* object) const;

    /// The way here, as the view's path goes on.
    TzCString getPath() const;
    /// Throws `TzXmlBadArgError`: the path and ": " and `reason`.
    [[noreturn]] void refuse(std::string_view reason) const;
    /// Throws `TzXmlBadArgError`: the text here is not `wanted`.
    [[noreturn]] void refuseText(std::string_view wanted) const;

private:
    using Visitor = void (*)(const void* data, const TzSoapPlace& member);

    TzSoapPlace(const TzSoapPlace& parent, const TzSoapType& member);
    TzSoapPlace(const TzSoapPlace& parent, const TzSoapType& member, const TzSoapFieldRow& row);

    void noteRepeated(std::size_t cost) const;
    void noteRepeatedHeld() const;
    void visitMembers(Visitor visitor, const void* data) const;
    bool hasNoContent() const;
    void requireMembers(const char* wanted, bool arrays) const;
    [[noreturn]] void refuseNil(const char* wanted) const;
    [[noreturn]] void refuseKind(const char* wanted) const;
    [[noreturn]] void refuseMissing(const TzSoapFieldRow& row) const;
    [[noreturn]] void refuseSecond() const;
    TzCString step() const;
    TzCString where() const;
    bool readAttribute(const TzSoapFieldRow& row, void* object) const;
    void readElements(const TzSoapFieldRow* rows, std::size_t count, unsigned int* seen,
                      void* object) const;

    const TzSoapPlace* parent_ = nullptr;    // null for the first
    const TzSoapView* view_ = nullptr;       // of the first
    const TzSoapType* member_ = nullptr;     // as it stands in the parent, perhaps a reference
    const TzSoapTypeImp* content_ = nullptr; // what that stands for; null beside values
    const TzSoapBody* body_ = nullptr;       // of the view of a body
    const TzXmlAttribute* attribute_ = nullptr;
    std::size_t depth_ = 0;
    const TzSoapPlace* first_ = this;
    bool isHex_ = false;               // of a field of type hexBinary
    bool isRepeated_ = false;          // it is below a reference
    mutable std::size_t repeated_ = 0; // of the first: what was met below references
};

extern template TZSOAP_API bool TzSoapPlace::get() const;
extern template TZSOAP_API signed char TzSoapPlace::get() const;
extern template TZSOAP_API unsigned char TzSoapPlace::get() const;
extern template TZSOAP_API short TzSoapPlace::get() const;
extern template TZSOAP_API unsigned short TzSoapPlace::get() const;
extern template TZSOAP_API int TzSoapPlace::get() const;
extern template TZSOAP_API unsigned int TzSoapPlace::get() const;
extern template TZSOAP_API long TzSoapPlace::get() const;
extern template TZSOAP_API unsigned long TzSoapPlace::get() const;
extern template TZSOAP_API long long TzSoapPlace::get() const;
extern template TZSOAP_API unsigned long long TzSoapPlace::get() const;
extern template TZSOAP_API float TzSoapPlace::get() const;
extern template TZSOAP_API double TzSoapPlace::get() const;
extern template TZSOAP_API long double TzSoapPlace::get() const;
extern template TZSOAP_API TzDecimalPortable TzSoapPlace::get() const;
extern template TZSOAP_API TzDate TzSoapPlace::get() const;
extern template TZSOAP_API TzDateTime TzSoapPlace::get() const;
extern template TZSOAP_API TzXmlDuration TzSoapPlace::get() const;
extern template TZSOAP_API std::chrono::sys_time<std::chrono::nanoseconds> TzSoapPlace::get() const;
