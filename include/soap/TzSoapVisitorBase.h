// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>

class TzSoapType;

/// Base of the visitors of mutable handles: declares the dispatch by kind of value and nothing
/// else, so a visitor is never deleted through it.
class TZSOAP_API TzSoapVisitorBase {
protected:
    TzSoapVisitorBase() = default;
    TzSoapVisitorBase(const TzSoapVisitorBase&) = default;
    TzSoapVisitorBase& operator=(const TzSoapVisitorBase&) = default;
    ~TzSoapVisitorBase() = default;

private:
    /// Calls the operation for the kind of `value`.
    virtual void doVisit(TzSoapType& value) = 0;
};
