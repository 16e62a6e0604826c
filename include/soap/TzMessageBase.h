// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>

/// What a transport needs to know of any kind of message: its text and its type.
///
/// Holds no data, copying copies nothing. Threads: the rule of the derived class.
class TZSOAP_API TzMessageBase {
public:
    TzMessageBase(const TzMessageBase& other) noexcept;
    TzMessageBase& operator=(const TzMessageBase& other) noexcept;
    virtual ~TzMessageBase();

    /// The message as text.
    virtual TzCString asString() const = 0;
    /// The message's MIME type as text.
    virtual TzCString getMessageType() const = 0;

protected:
    TzMessageBase() noexcept;
};
