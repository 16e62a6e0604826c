// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapFields.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <string>

/// The messages of greeter.wsdl.
namespace greeter {

constexpr char Namespace[] = "urn:example:greeter";
constexpr char Action[] = "urn:example:greeter/greet";
constexpr char AnswerAction[] = "urn:example:greeter/greetResponse";
/// Its bytes matter for a digest.
constexpr char User[] = "ann";
constexpr char Password[] = "s3cr\u00E9t & <\u6F22>";

inline TzXmlName qualified(const char* localName) {
    return {localName, TzXmlNamespace("g", Namespace)};
}

struct Request {
    std::string name;
};
struct Answer {
    std::string greeting;
};

} // namespace greeter

template <> struct TzSoapFields<greeter::Request> {
    static constexpr auto fields =
        tzFields(greeter::Namespace, tzField("name", &greeter::Request::name));
};
template <> struct TzSoapFields<greeter::Answer> {
    static constexpr auto fields =
        tzFields(greeter::Namespace, tzField("greeting", &greeter::Answer::greeting));
};
