// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string references(std::size_t bytes) { return soap11(fill(bytes, "<a href='l'/>")); }

std::string ofThePackage(std::size_t bytes) {
    return package({.envelope = references(bytes / 2),
                    .parts = part("Content-ID: <q>\r\n", "x"),
                    .headers = fill(bytes / 2, "X: y\r\n")});
}

/// One reference: writing a part again for each reference is meant.
std::string ofThePart(std::size_t bytes) {
    return package({.envelope = soap11("<a href='l'/>"),
                    .parts = part(fill(bytes, "X: y\r\n") + "Content-Location: l\r\n", "x")});
}

std::string ofTheRoot(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"), .parts = "", .rootHeaders = fill(bytes, [](std::size_t i) {
                                                      return numbered("X", i, ": y\r\n");
                                                  })});
}

std::string parameters(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"), .parts = "", .parameters = fill(bytes, [](std::size_t i) {
                                                      return numbered("; p", i, "=v");
                                                  })});
}

std::string sections(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"), .parts = "", .parameters = fill(bytes, [](std::size_t i) {
                                                      return numbered("; p*", i, "=v");
                                                  })});
}

std::string partParameters(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a href='cid:q'/>"),
         .parts = part("Content-ID: <q>\r\nContent-Type: text/plain" +
                           fill(bytes, [](std::size_t i) { return numbered("; p", i, "=\"v\""); }) +
                           "\r\n",
                       "x")});
}

std::string folded(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"), .parts = "", .headers = "X: y\r\n" + fill(bytes, " z\r\n")});
}

std::string comments(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"),
                    .parts = "",
                    .rootHeaders = "X: " + fill(bytes, "(c) ") + "\r\n"});
}

std::string nestedComments(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"),
         .parts = "",
         .parameters = "; p=v " + std::string(bytes / 2, '(') + std::string(bytes / 2, ')')});
}

std::string oneLongHeader(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"),
                    .parts = "",
                    .headers = "X: " + std::string(bytes, 'y') + "\r\n"});
}

std::string escapedParameter(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"),
                    .parts = "",
                    .parameters = "; p=\"" + fill(bytes, "\\\"") + "\""});
}

std::string nearBoundaries(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a href='cid:q'/>"),
         .parts = part("Content-ID: <q>\r\n", fill(bytes, "--BB\r\n--\r\n-B\r\n--C\r\n"))});
}

std::string hyphens(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\n", std::string(bytes, '-'))});
}

std::string emptyLines(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\n", fill(bytes, "\r\n"))});
}

std::string longBoundary(std::size_t bytes) {
    const std::string boundary(70, '-');
    return package({.envelope = soap11("<a>" + fill(bytes, "\r\n" + std::string(71, '-')) + "</a>"),
                    .parts = "",
                    .boundary = boundary});
}

std::string preamble(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"),
                    .parts = "",
                    .preamble = fill(bytes, "This is a message in parts.\r\n")});
}

std::string epilogue(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"), .parts = ""}) + fill(bytes, "The end.\r\n");
}

std::string manyIds(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a href='cid:q'/>"),
         .parts =
             part(fill(bytes, [](std::size_t i) { return numbered("Content-ID: <q", i, ">\r\n"); }),
                  "x")});
}

} // namespace

Families partHeaders() {
    return {
        {"HeaderLinesOfThePackage", "has them searched for each reference", ofThePackage},
        {"HeaderLinesOfAPart", "the same in a part", ofThePart},
        {"HeaderLinesOfTheRoot", "the same in the root part", ofTheRoot},
        {"HeaderParameters", "a type with many parameters", parameters},
        {"HeaderParameterInSections", "a parameter cut into sections", sections},
        {"HeaderParametersOfAPart", "the same of a part", partParameters},
        {"HeaderFolded", "one header on many lines", folded},
        {"HeaderOfComments", "a header explained", comments},
        {"HeaderOfNestedComments", "comments within comments", nestedComments},
        {"HeaderOfOneLongLine", "a header without end", oneLongHeader},
        {"HeaderOfEscapes", "a parameter escaped to its last character", escapedParameter},
        {"BoundariesNearlyMet", "lines that begin like a boundary", nearBoundaries},
        {"BoundaryInHyphens", "a body of hyphens", hyphens},
        {"BoundaryInEmptyLines", "a body of line ends", emptyLines},
        {"BoundaryOfHyphens", "a boundary that its text repeats", longBoundary},
        {"PreambleOfLines", "an explanation for old readers", preamble},
        {"EpilogueOfLines", "lines after the end", epilogue},
        {"HeaderOfManyIds", "a part with many names", manyIds},
    };
}

} // namespace growth
