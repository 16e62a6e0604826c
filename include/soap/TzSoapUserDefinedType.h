// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <string_view>
#include <vector>

class TzSoapUserDefinedTypeImp;

/// Handle of a user-defined value: an element that the library does not decode, kept as markup for
/// the application to parse.
///
/// The markup is written as it was received, not escaped: an echoing server passes on what its peer
/// sent. Every operation on a handle without a body throws `TzTHRInvalidPointer` "Invalid pointer".
/// Threads: see `TzSoapType`.
class TZSOAP_API TzSoapUserDefinedType : public TzSoapType {
public:
    /// A value without name and markup.
    TzSoapUserDefinedType();
    /// The value of the element named `name` that `markup`, in UTF-8, spells with its own tags;
    /// white space and comments may stand around it. `declarations` are namespaces whose prefixes
    /// it may use without declaring them, in names or in texts: they are declared where the value
    /// is written, unless they are there. The element and its attributes are written as `markup`
    /// spells them, whatever is changed in the value. `TzXmlParseError` with line and column when
    /// it is not one well-formed element, when a prefix is not bound, and for a document type;
    /// `TzXmlBadArgError` when the element is not named `name`. O(markup * log declarations).
    TzSoapUserDefinedType(const TzXmlName& name, std::string_view markup,
                          const std::vector<TzXmlNamespace>& declarations = {});
    TzSoapUserDefinedType(const TzSoapUserDefinedType&) noexcept = default;
    TzSoapUserDefinedType(TzSoapUserDefinedType&&) noexcept = default;
    TzSoapUserDefinedType& operator=(const TzSoapUserDefinedType&) noexcept = default;
    TzSoapUserDefinedType& operator=(TzSoapUserDefinedType&&) noexcept = default;
    ~TzSoapUserDefinedType() override;

    /// A new value with a copy of the content.
    TzSoapUserDefinedType copy() const;
    /// The markup: the element with its own tags as it was read, "" for a value made by a program.
    TzCString getValue() const;
    /// The element as its source spells it, byte by byte, in UTF-8: what the constructor was given
    /// or what was read, not rebuilt from it. "" for other values. Prefixes that are declared
    /// around it are in `getDeclarations`.
    TzCString getMarkup() const;
    /// The declarations that the markup needs and does not hold: those handed to the constructor,
    /// or those in force where it was read that its names and types use.
    std::vector<TzXmlNamespace> getDeclarations() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapUserDefinedType(TzSoapUserDefinedTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapUserDefinedTypeImp& body() const;

private:
    friend struct TzSoapAccess;
};
