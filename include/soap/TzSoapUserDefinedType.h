// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

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
    TzSoapUserDefinedType(const TzSoapUserDefinedType&) noexcept = default;
    TzSoapUserDefinedType(TzSoapUserDefinedType&&) noexcept = default;
    TzSoapUserDefinedType& operator=(const TzSoapUserDefinedType&) noexcept = default;
    TzSoapUserDefinedType& operator=(TzSoapUserDefinedType&&) noexcept = default;
    ~TzSoapUserDefinedType() override;

    /// A new value with a copy of the content.
    TzSoapUserDefinedType copy() const;
    /// The markup: the element with its own tags as it was read, "" for a value made by a program.
    TzCString getValue() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapUserDefinedType(TzSoapUserDefinedTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapUserDefinedTypeImp& body() const;

private:
    friend struct TzSoapAccess;
};
