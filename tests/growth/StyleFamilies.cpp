// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

const char* const Encoding = "http://schemas.xmlsoap.org/soap/encoding/";

/// A list near the limit of its length that begins with SOAP's own.
std::string longStyle() { return Encoding + std::string(" urn:") + std::string(1900, 'x'); }

std::string onTheEnvelope(std::size_t bytes) {
    return soap11(
        {.body = fill(bytes, "<a/>"), .attributes = " s:encodingStyle='" + longStyle() + "'"});
}

std::string onTheBody(std::size_t bytes) {
    return soap11(
        {.body = fill(bytes, "<a/>"), .ofBody = " s:encodingStyle='" + longStyle() + "'"});
}

std::string onEveryEntry(std::size_t bytes) {
    return soap11(fill(bytes, "<a s:encodingStyle='" + longStyle() + "'/>"));
}

std::string aboveMembers(std::size_t bytes) {
    return soap11("<a s:encodingStyle='" + longStyle() + "'>" + fill(bytes, "<b><c/></b>") +
                  "</a>");
}

std::string ofOthersAbove(std::size_t bytes) {
    return soap11({.body = fill(bytes, "<a/>"),
                   .attributes = " s:encodingStyle='urn:" + std::string(1900, 'x') + "'"});
}

std::string listsOfMany(std::size_t bytes) {
    return soap11(fill(bytes, "<a s:encodingStyle='" + std::string(Encoding) +
                                  times(300, " urn:a") + "'><b/></a>"));
}

std::string inTurn(std::size_t bytes) {
    return soap11(fill(bytes, "<a s:encodingStyle='" + std::string(Encoding) +
                                  "'/><a s:encodingStyle=''/><a s:encodingStyle='urn:b'/>"));
}

std::string offAndOnWithin(std::size_t bytes) {
    return soap11({.body = fill(bytes, "<a><b s:encodingStyle=''/></a>"),
                   .ofBody = " s:encodingStyle='" + std::string(Encoding) + "'"});
}

std::string markup(std::size_t bytes) {
    return soap11(fill(bytes, "<a s:encodingStyle='urn:own'><b c='1'>2</b></a>"));
}

std::string oneLongMarkup(std::size_t bytes) {
    return soap11("<a s:encodingStyle='urn:own'>" + fill(bytes, "<b c='1'>2 3</b>") + "</a>");
}

std::string inTheHeader(std::size_t bytes) {
    return soap11({.body = "<a/>",
                   .header = fill(bytes, "<h s:encodingStyle='" + std::string(Encoding) + "'/>")});
}

std::string ofSoap12(std::size_t bytes) {
    return soap12(
        fill(bytes, "<a s:encodingStyle='http://www.w3.org/2002/06/soap-encoding'><b/></a>"));
}

} // namespace

Families styles() {
    return {
        {"StyleOnTheEnvelope", "has a long style taken over by every entry", onTheEnvelope},
        {"StyleOnTheBody", "the same on the body", onTheBody},
        {"StyleOnEveryEntry", "states a long style again and again", onEveryEntry},
        {"StyleAboveMembers", "a long style above many members", aboveMembers},
        {"StyleOfOthersAbove", "has every entry be kept as markup with a long style",
         ofOthersAbove},
        {"StylesInLists", "has lists taken apart", listsOfMany},
        {"StylesInTurn", "changes the style with every entry", inTurn},
        {"StyleOffWithin", "switches the style off within each entry", offAndOnWithin},
        {"StyleOfMarkup", "values of another encoding", markup},
        {"StyleOfOneLongMarkup", "a document as a value", oneLongMarkup},
        {"StylesInTheHeader", "header entries with styles", inTheHeader},
        {"StylesOfSoap12", "the same in SOAP 1.2", ofSoap12},
    };
}

} // namespace growth
