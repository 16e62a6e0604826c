// SPDX-License-Identifier: MIT
#pragma once

#include "output/WireText.h"

#include <string>
#include <vector>

inline constexpr char EnvUri12Rec[] = "http://www.w3.org/2003/05/soap-envelope";
inline constexpr char EncUri12Rec[] = "http://www.w3.org/2003/05/soap-encoding";
/// How an entry states the encoding style.
inline const std::string EncodedRec =
    R"( env:encodingStyle="http://www.w3.org/2003/05/soap-encoding")";

/// A message of SOAP 1.2 of 2003 that declares enc and holds `entries`.
inline TzSoapMessage messageRec(const std::vector<TzSoapType>& entries) {
    TzSoapMessage message(TzSoapVersion::V1_2Rec);
    message.addNamespaceAttribute("enc", EncUri12Rec);
    for (const TzSoapType& entry : entries) {
        message.getSoapBody().appendEntry(entry);
    }
    return message;
}

/// The text of `messageRec` whose envelope holds `lines`.
inline std::string envelopeRec(const std::string& lines) {
    return R"(<env:Envelope xmlns:env="http://www.w3.org/2003/05/soap-envelope")"
           R"( xmlns:enc="http://www.w3.org/2003/05/soap-encoding">
)" + lines +
           "</env:Envelope>\n";
}

/// The text of `messageRec` whose body holds `lines`.
inline std::string bodyRec(const std::string& lines) {
    return envelopeRec("  <env:Body>\n" + lines + "  </env:Body>\n");
}

/// What a message of 2003 with these entries says.
inline std::string wireRec(const std::vector<TzSoapType>& entries) {
    return wire(messageRec(entries));
}

/// A message that reads envelopes of 2003.
inline TzSoapMessage readRec(const std::string& text) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    return message;
}
