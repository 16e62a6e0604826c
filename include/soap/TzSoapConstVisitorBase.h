// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>

class TzSoapType;

/// Base of the visitors of const handles: declares the dispatch by kind of value and nothing else,
/// so a visitor is never deleted through it.
class TZSOAP_API TzSoapConstVisitorBase {
protected:
    TzSoapConstVisitorBase() = default;
    TzSoapConstVisitorBase(const TzSoapConstVisitorBase&) = default;
    TzSoapConstVisitorBase& operator=(const TzSoapConstVisitorBase&) = default;
    ~TzSoapConstVisitorBase() = default;

private:
    /// Calls the operation for the kind of `value`.
    virtual void doVisit(const TzSoapType& value) = 0;
};
