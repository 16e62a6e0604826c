// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>

class TzSoapType;

/// Base of the visitors of const handles: declares the dispatch by kind of value.
class TZSOAP_API TzSoapConstVisitorBase {
public:
    virtual ~TzSoapConstVisitorBase();

protected:
    TzSoapConstVisitorBase() = default;
    TzSoapConstVisitorBase(const TzSoapConstVisitorBase&) = default;
    TzSoapConstVisitorBase& operator=(const TzSoapConstVisitorBase&) = default;

private:
    /// Calls the operation for the kind of `value`.
    virtual void doVisit(const TzSoapType& value) = 0;
};
