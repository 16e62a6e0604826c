// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>

#include <utility>

/// Handle of a placeholder: used where a value must exist but none has been given.
///
/// Nearly every operation throws `TzXmlError` BAD_USAGE naming "TzSoapDefaultType"; only the kind,
/// the type value, nil and the attribute list answer. Assigning any value to the handle re-points
/// it. Threads: see `TzSoapType`.
class TZSOAP_API TzSoapDefaultType : public TzSoapType {
public:
    /// A new placeholder.
    TzSoapDefaultType();
    TzSoapDefaultType(const TzSoapDefaultType&) noexcept = default;
    TzSoapDefaultType(TzSoapDefaultType&&) noexcept = default;
    TzSoapDefaultType& operator=(const TzSoapDefaultType&) noexcept = default;
    TzSoapDefaultType& operator=(TzSoapDefaultType&&) noexcept = default;
    /// Refers to the body of `value` from now on.
    TzSoapDefaultType& operator=(const TzSoapType& value) noexcept;
    ~TzSoapDefaultType() override = default;

    /// A copy of the value the handle refers to; `TzXmlError` BAD_USAGE for a placeholder.
    TzSoapDefaultType copy() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapDefaultType(TzSoapTypeImp* body) noexcept;
    /// A handle that takes over the body of `value`, which becomes empty.
    explicit TzSoapDefaultType(TzSoapType&& value) noexcept : TzSoapType(std::move(value)) {}

private:
    friend struct TzSoapAccess;
};
