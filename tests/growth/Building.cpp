// SPDX-License-Identifier: MIT
#include "growth/Building.h"

namespace growth {

namespace {

struct Namespaces {
    std::string_view envelope;
    std::string_view encoding;
};

std::string envelopeOf(const Envelope& envelope, const Namespaces& namespaces) {
    const std::string& p = envelope.prefix;
    std::string text = "<" + p + ":Envelope xmlns:" + p + "=\"";
    text.append(namespaces.envelope);
    text.append("\" xmlns:e=\"").append(namespaces.encoding);
    text += "\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
            " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"" +
            envelope.attributes + ">";
    if (!envelope.header.empty()) {
        text += "<" + p + ":Header>" + envelope.header + "</" + p + ":Header>";
    }
    return text + "<" + p + ":Body" + envelope.ofBody + ">" + envelope.body + "</" + p +
           ":Body></" + p + ":Envelope>";
}

} // namespace

std::string fill(std::size_t bytes, const std::function<std::string(std::size_t)>& unit) {
    std::string text;
    for (std::size_t i = 0; text.size() < bytes; ++i) {
        text += unit(i);
    }
    return text;
}

std::string fill(std::size_t bytes, std::string_view unit) {
    return times((bytes + unit.size() - 1) / unit.size(), unit);
}

std::string times(std::size_t times, std::string_view unit) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) {
        text.append(unit);
    }
    return text;
}

std::string numbered(std::string_view before, std::size_t number, std::string_view after) {
    return std::string(before) + std::to_string(number) + std::string(after);
}

std::string oneRing(std::size_t bytes, std::string_view idOf, std::string_view refTo) {
    constexpr std::size_t Markup = 28; // besides the attributes, with two numbers
    const std::size_t members = bytes / (Markup + idOf.size() + refTo.size());
    std::string text;
    for (std::size_t i = 0; i < members; ++i) {
        text +=
            "<x " + numbered(idOf, i, "'>") + "<r " + numbered(refTo, (i + 1) % members, "'/></x>");
    }
    return text;
}

std::string soap11(const Envelope& envelope) {
    return envelopeOf(envelope, {"http://schemas.xmlsoap.org/soap/envelope/",
                                 "http://schemas.xmlsoap.org/soap/encoding/"});
}

std::string soap11(const std::string& body) { return soap11(Envelope{.body = body}); }

std::string soap12(const Envelope& envelope) {
    return envelopeOf(envelope, {"http://www.w3.org/2002/06/soap-envelope",
                                 "http://www.w3.org/2002/06/soap-encoding"});
}

std::string soap12(const std::string& body) { return soap12(Envelope{.body = body}); }

std::string soap12Rec(const Envelope& envelope) {
    return envelopeOf(envelope, {"http://www.w3.org/2003/05/soap-envelope",
                                 "http://www.w3.org/2003/05/soap-encoding"});
}

std::string soap12Rec(const std::string& body) { return soap12Rec(Envelope{.body = body}); }

std::string package(const Package& package) {
    const std::string line = "--" + package.boundary;
    return "MIME-Version: 1.0\r\nContent-Type: multipart/related; boundary=\"" + package.boundary +
           "\"; type=\"text/xml\"; start=\"<root>\"" + package.parameters + "\r\n" +
           package.headers + "\r\n" + package.preamble + line +
           "\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n" + package.rootHeaders + "\r\n" +
           package.envelope + "\r\n" + package.parts + line + "--\r\n";
}

std::string part(const std::string& headers, const std::string& body) {
    return "--B\r\n" + headers + "\r\n" + body + "\r\n";
}

} // namespace growth
