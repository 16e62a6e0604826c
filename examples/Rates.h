// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapFields.h>

#include <string>

// What the service of rates takes and gives, as its schema describes it.

constexpr char RatesNamespace[] = "urn:example:rates";

struct RateRequest {
    std::string from;
    std::string to;
};

template <> struct TzSoapFields<RateRequest> {
    static constexpr auto fields = tzFields(RatesNamespace, tzField("from", &RateRequest::from),
                                            tzField("to", &RateRequest::to));
};

struct Rate {
    double rate = 0;
    std::string source;
};

template <> struct TzSoapFields<Rate> {
    static constexpr auto fields =
        tzFields(RatesNamespace, tzField("rate", &Rate::rate), tzField("source", &Rate::source));
};
