// SPDX-License-Identifier: MIT
#pragma once

#include "model/TzSoapVersionTerms.h"

#include <tz/xml/TzXmlName.h>

#include <string_view>
#include <utility>
#include <vector>

class TzSoapFaultImp;

/// Gives a fault the code, subcodes and role that another version can write.
class TzSoapFaultConversion {
public:
    /// What could not be carried over and what became of it.
    using Loss = std::pair<TzCString, TzCString>;

    /// `prefix` is that of the message's envelope namespace, "" for what the version proposes.
    TzSoapFaultConversion(const TzSoapVersionTerms& terms, TzCString prefix)
        : terms_(terms), prefix_(std::move(prefix)) {}

    /// Rewrites `fault`, but for its detail.
    void convert(TzSoapFaultImp& fault);
    const std::vector<Loss>& losses() const noexcept { return losses_; }

private:
    void splitQualifiers();
    void standardise();
    void nameSubcodes();
    TzXmlName nameOf(TzSoapVersion::SoapFaultCode code) const;

    const TzSoapVersionTerms& terms_;
    TzCString prefix_;
    TzXmlName code_;
    std::vector<TzXmlName> subcodes_;
    std::vector<Loss> losses_;
};
