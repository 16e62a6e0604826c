// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <optional>
#include <string_view>

class TzSoapBody;
class TzSoapHeader;
class TzSoapType;

/// Safe access to the members of a value, a header or a body: no iterator, an error that says what
/// is missing.
///
/// Members are the children of a composite, the items of an array, the entries of a header or a
/// body; others have no members. A path is a sequence of local names with "/" between, such as
/// "placeOrder/lines/line[2]/amount"; "[2]" is the second of several members of that name, "line"
/// alone the first. Every step follows references, except that the last value is the reference
/// itself where one stands there (`TzSoapValueReader` follows it). Namespaces do not matter in a
/// path. `TzXmlBadArgError` for an invalid path: empty, with an empty step, a prefix or an
/// index that is not a number from 1.
///
/// The values returned are handles that share their bodies with the message: they stay good when
/// the message goes. Linear in the members of the values on the way. Holds no data. Threads: the
/// rule of `Handle`, which is `TzSoapType`, `TzSoapHeader` or `TzSoapBody`.
template <typename Handle> class TZSOAP_API TzSoapMemberAccess {
public:
    /// The first member whose name equals `name`: local part and URI, no path.
    /// `TzSoapMissingError` when it is missing.
    TzSoapType getChild(const TzXmlName& name) const;
    /// The first member with this local part in the namespace `uri` ("" for none), no path.
    /// `TzSoapMissingError` when it is missing.
    TzSoapType getChild(std::string_view localName, std::string_view uri) const;
    /// The first member with this local part in the namespace `uri`; errors as for the other texts,
    /// and `TzXmlBadArgError` for a null pointer.
    TzSoapType getChild(const char* localName, const char* uri) const;
    /// The value at `path`, in any namespace. `TzSoapMissingError` with the path down to the first
    /// element that is missing.
    TzSoapType getChild(std::string_view path) const;
    /// The value at `path`, in any namespace; errors as for the other texts.
    TzSoapType getChild(const TzCString& path) const;
    /// The value at `path`, in any namespace; errors as for the other texts, and `TzXmlBadArgError`
    /// for a null pointer.
    TzSoapType getChild(const char* path) const;

    /// The first member whose name equals `name`: local part and URI, no path. Empty when it is
    /// missing.
    std::optional<TzSoapType> findChildValue(const TzXmlName& name) const;
    /// The first member with this local part in the namespace `uri` ("" for none), no path. Empty
    /// when it is missing.
    std::optional<TzSoapType> findChildValue(std::string_view localName,
                                             std::string_view uri) const;
    /// The first member with this local part in the namespace `uri`, empty when it is missing.
    /// `TzXmlBadArgError` for a null pointer.
    std::optional<TzSoapType> findChildValue(const char* localName, const char* uri) const;
    /// The value at `path`, in any namespace. Empty when it, or one on the way to it, is missing.
    std::optional<TzSoapType> findChildValue(std::string_view path) const;
    /// The value at `path`, in any namespace. Empty when it, or one on the way to it, is missing.
    std::optional<TzSoapType> findChildValue(const TzCString& path) const;
    /// The value at `path`, in any namespace. Empty when it, or one on the way to it, is missing.
    /// `TzXmlBadArgError` for a null pointer.
    std::optional<TzSoapType> findChildValue(const char* path) const;

protected:
    TzSoapMemberAccess() = default;
    TzSoapMemberAccess(const TzSoapMemberAccess&) = default;
    TzSoapMemberAccess& operator=(const TzSoapMemberAccess&) = default;
    ~TzSoapMemberAccess() = default;
};
