// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersion.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// `text` as a message.
inline TzSoapMessage readMessage(const std::string& text) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    return message;
}

/// What a receiver of `message` gets.
inline TzSoapMessage again(const TzSoapMessage& message) { return readMessage(message.asString()); }

/// A message whose header holds `entries`, which may use the prefixes env, wsa, wsse and wsu.
inline TzSoapMessage messageWithHeader(TzSoapVersion::Version version, const std::string& entries) {
    const std::string security =
        "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-";
    return readMessage(
        "<env:Envelope xmlns:env='" + TzSoapVersion::getSoapVersion(version).getSoapEnv().getUri() +
        "' xmlns:wsa='http://www.w3.org/2005/08/addressing' xmlns:wsse='" + security +
        "secext-1.0.xsd' xmlns:wsu='" + security + "utility-1.0.xsd'><env:Header>" + entries +
        "</env:Header><env:Body><a/></env:Body></env:Envelope>");
}

/// The code and the subcodes of the fault that `action` throws, "" where it throws none.
template <typename Action> std::string faultThrown(const Action& action) {
    try {
        action();
    } catch (const TzSoapFaultError& error) {
        std::string codes = error.getCode().getUniqueName();
        for (const TzXmlName& code : error.getSubcodes()) {
            codes += ' ' + code.getUniqueName();
        }
        return codes;
    }
    return {};
}

/// The codes of a fault of the sender with `subcodes` in the namespace `uri`.
inline std::string faultOf(TzSoapVersion::Version version, const std::vector<std::string>& subcodes,
                           const std::string& uri) {
    const auto nameOf = [&uri](const std::string& code) {
        return TzXmlName(code, TzXmlNamespace("", uri)).getUniqueName();
    };
    if (version == TzSoapVersion::V1_1) {
        return nameOf(subcodes.back());
    }
    std::string codes =
        TzSoapVersion::getSoapVersion(version).getFaultCode(TzSoapVersion::Client).getUniqueName();
    for (const std::string& code : subcodes) {
        codes += ' ' + nameOf(code);
    }
    return codes;
}
