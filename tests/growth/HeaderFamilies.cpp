// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string withHeader(const std::string& header) {
    return soap11({.body = "<a/>", .header = header});
}

std::string entries(std::size_t bytes) {
    return withHeader(fill(bytes, "<h:a xmlns:h='urn:h'>1</h:a>"));
}

std::string mustUnderstand(std::size_t bytes) {
    return withHeader(fill(bytes, [](std::size_t i) {
        return numbered("<h:a", i, " xmlns:h='urn:h' s:mustUnderstand='1'/>");
    }));
}

std::string actors(std::size_t bytes) {
    return withHeader(fill(bytes, [](std::size_t i) {
        return numbered("<h:a xmlns:h='urn:h' s:actor='urn:", i, "'/>");
    }));
}

std::string oneLongActor(std::size_t bytes) {
    return withHeader("<h:a xmlns:h='urn:h' s:actor='urn:" + std::string(bytes, 'a') + "'/>");
}

std::string roles(std::size_t bytes) {
    return soap12({.body = "<a/>",
                   .header = fill(bytes, "<h:a xmlns:h='urn:h' s:mustUnderstand='true' "
                                         "s:role='http://www.w3.org/2002/06/soap-envelope/role/"
                                         "next'/>")});
}

std::string misunderstood(std::size_t bytes) {
    return soap12({.body = "<a/>", .header = fill(bytes, [](std::size_t i) {
                                       return numbered(
                                           "<f:Misunderstood xmlns:f='http://www.w3.org/2002/06/"
                                           "soap-faults' qname='q",
                                           i, ":a'/>");
                                   })});
}

std::string structs(std::size_t bytes) {
    return withHeader(fill(bytes, "<h:a xmlns:h='urn:h'><h:b><h:c>1</h:c></h:b></h:a>"));
}

std::string oneLargeEntry(std::size_t bytes) {
    return withHeader("<h:a xmlns:h='urn:h'>" + fill(bytes, "<b>1</b>") + "</h:a>");
}

} // namespace

Families headers() {
    return {
        {"HeaderOfEntries", "many extensions at once", entries},
        {"HeaderOfMandatoryEntries", "has each be looked for among what is understood",
         mustUnderstand},
        {"HeaderOfActors", "addresses each entry to another node", actors},
        {"HeaderOfOneLongActor", "a long address", oneLongActor},
        {"HeaderOfRoles", "the same in SOAP 1.2", roles},
        {"HeaderOfMisunderstoodEntries", "an answer to the same", misunderstood},
        {"HeaderOfStructs", "security tokens", structs},
        {"HeaderOfOneLargeEntry", "a signature over everything", oneLargeEntry},
    };
}

} // namespace growth
