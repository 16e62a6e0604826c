// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersion.h>

#include <iterator>
#include <string>

/// Both versions, for tests that treat them alike.
inline constexpr TzSoapVersion::Version BothVersions[] = {TzSoapVersion::V1_1, TzSoapVersion::V1_2};

/// An envelope around the text of header and body entries. It binds the prefixes e, c (encoding)
/// and xsi.
inline std::string envelope(TzSoapVersion::Version version, const std::string& body,
                            const std::string& header = "") {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(version);
    return "<e:Envelope xmlns:e=\"" + names.getSoapEnv().getUri() + "\" xmlns:c=\"" +
           names.getSoapEnc().getUri() +
           "\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" e:encodingStyle=\"" +
           names.getSoapEncodingStyle() + "\">" +
           (header.empty() ? "" : "<e:Header>" + header + "</e:Header>") + "<e:Body>" + body +
           "</e:Body></e:Envelope>";
}

/// The message that a text holds.
inline TzSoapMessage messageOf(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    return message;
}

/// The body entry at `position` as a handle of its kind; fails the test when it is of another.
template <typename Handle>
Handle entryAs(const TzSoapMessage& message, std::ptrdiff_t position = 0) {
    return tzSoapCast<Handle>(*std::next(message.getSoapBody().entriesBegin(), position)).value();
}

/// How often `part` occurs in `text`.
inline std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos;
         at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}
