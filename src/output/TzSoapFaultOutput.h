// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include "output/TzSoapContainerOutput.h"
#include "output/TzSoapOutputContext.h"
#include "output/TzSoapStartTag.h"
#include "output/TzSoapTagName.h"

#include <string_view>

class TzSoapConstVisitor;
class TzSoapFaultImp;

/// Writes faults.
class TzSoapFaultOutput {
public:
    /// Writes faults in `context` with `startTag` and `containers`, which must outlive this
    /// object.
    TzSoapFaultOutput(TzSoapOutputContext& context, TzSoapStartTag& startTag,
                      TzSoapContainerOutput& containers) noexcept
        : context_(context), startTag_(startTag), containers_(containers) {}
    TzSoapFaultOutput(const TzSoapFaultOutput&) = delete;
    TzSoapFaultOutput& operator=(const TzSoapFaultOutput&) = delete;

    /// Writes a fault on behalf of `visitor`.
    void write(TzSoapConstVisitor& visitor, const TzSoapFaultImp& fault);
    /// Writes the subcodes of `fault` from number `first` up to `end`, each within the one before.
    void writeSubcodes(const TzSoapFaultImp& fault, unsigned int first, unsigned int end);

private:
    bool writeAsRead(TzSoapConstVisitor& visitor, const TzSoapFaultImp& fault);
    TzCString prefixFor(const TzSoapFaultImp& fault) const;
    bool canMeanEnvelope(const TzCString& prefix) const;
    TzSoapTagName nameWith(std::string_view prefix) const;
    TzSoapTagName childName(const TzSoapTagName& fault, TzSoapVersion::SoapElement element) const;
    void declareFor(const TzSoapTagName& name, const TzSoapFaultImp& fault);
    void writeChildren(TzSoapConstVisitor& visitor, const TzSoapTagName& name,
                       const TzSoapFaultImp& fault);
    void writeReason(const TzSoapTagName& name, const TzSoapFaultImp& fault);
    void writeNestedCode(const TzSoapTagName& name, const TzSoapFaultImp& fault);
    void writeDottedCode(const TzSoapTagName& name, const TzSoapFaultImp& fault);
    void writeSubcodes(const TzSoapTagName& name, const TzSoapFaultImp& fault, unsigned int first,
                       unsigned int end);
    void writeDetail(TzSoapConstVisitor& visitor, const TzSoapTagName& name,
                     const TzSoapFaultImp& fault);
    void writeLine(const TzSoapTagName& name, std::string_view content);

    TzSoapOutputContext& context_;
    TzSoapStartTag& startTag_;
    TzSoapContainerOutput& containers_;
};
