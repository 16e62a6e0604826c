// SPDX-License-Identifier: MIT
#pragma once

#include "http/TestService.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapHttpClient.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

/// A message whose body is one text.
inline TzSoapMessage requestOf(const std::string& text,
                               TzSoapVersion::Version version = TzSoapVersion::V1_1) {
    TzSoapMessage message(version);
    message.getSoapBody().appendEntry(TzSoapSimpleType("text", text, TzSoapType::xsdString, false));
    return message;
}

/// The text in the body of an answer.
inline std::string textIn(const TzSoapMessage& answer) {
    return TzSoapValueReader(answer.getSoapBody().getFirstEntry()).getString();
}

/// An answer of a service: "good".
inline std::string goodAnswer() { return requestOf("good").asText(TzSoapLayout::Compact); }

/// Answers what it was sent.
inline void echo(const httplib::Request& request, httplib::Response& response) {
    response.set_content(request.body, request.get_header_value("Content-Type"));
}
