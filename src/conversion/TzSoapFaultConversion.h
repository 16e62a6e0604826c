// SPDX-License-Identifier: MIT
#pragma once

#include "conversion/TzSoapLosses.h"
#include "conversion/TzSoapVersionTerms.h"

#include <tz/xml/TzXmlName.h>

#include <vector>

class TzSoapFaultImp;

/// Gives a fault the name, code, subcodes and role that another version can write.
class TzSoapFaultConversion {
public:
    TzSoapFaultConversion(TzSoapVersionTerms& terms, TzSoapLosses& losses)
        : terms_(terms), losses_(losses) {}

    /// Prepares the rewriting of `fault`; `prefix` is that of the envelope's namespace.
    void prepare(const TzSoapFaultImp& fault, const TzCString& prefix);
    /// Rewrites the prepared fault, except for its detail.
    void apply(TzSoapFaultImp& fault) noexcept;

private:
    void loseReasons(const TzSoapFaultImp& fault);
    void splitQualifiers();
    void standardise();
    void nameSubcodes();
    TzXmlName nameOf(TzSoapVersion::SoapFaultCode code) const;

    TzSoapVersionTerms& terms_;
    TzSoapLosses& losses_;
    TzXmlName name_;
    TzXmlName code_;
    std::vector<TzXmlName> subcodes_;
    bool dropsRole_ = false;
};
