// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string referencesById(std::size_t bytes) {
    return fill(bytes, [](std::size_t i) { return numbered("<a href='cid:p", i, "'/>"); });
}

std::string eachReferred(std::size_t bytes) {
    const std::size_t count = bytes / 60;
    std::string references;
    std::string parts;
    for (std::size_t i = 0; i < count; ++i) {
        references += numbered("<a href='cid:p", i, "'/>");
        parts += part(numbered("Content-ID: <p", i, ">\r\n"), "x");
    }
    return package({.envelope = soap11(references), .parts = parts});
}

std::string notReferred(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a/>"), .parts = fill(bytes, [](std::size_t i) {
                                         return part(numbered("Content-ID: <p", i, ">\r\n"), "x");
                                     })});
}

std::string withoutHeaders(std::size_t bytes) {
    return package({.envelope = soap11("<a/>"), .parts = fill(bytes, part("", "x"))});
}

std::string oneLong(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\n", std::string(bytes, 'x'))});
}

std::string toOneById(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes, "<a href='cid:q'/>")),
                    .parts = part("Content-ID: <q>\r\n", "x")});
}

std::string toOneByLocation(std::size_t bytes) {
    return package(
        {.envelope = soap11(fill(bytes, "<a href='l'/>")),
         .parts =
             part("Content-Location: l\r\nContent-ID: <" + std::string(1900, 'i') + ">\r\n", "x")});
}

std::string eachByLocation(std::size_t bytes) {
    const std::size_t count = bytes / 80;
    std::string references;
    std::string parts;
    for (std::size_t i = 0; i < count; ++i) {
        references += numbered("<a href='http://h/", i, "'/>");
        parts += part(numbered("Content-Location: http://h/", i, "\r\n"), "x");
    }
    return package({.envelope = soap11(references), .parts = parts});
}

std::string againstABase(std::size_t bytes) {
    return package({.envelope = soap11(fill(
                        bytes, [](std::size_t i) { return numbered("<a href='../x", i, "'/>"); })),
                    .parts = part("Content-ID: <q>\r\n", "x"),
                    .headers = "Content-Location: http://x/" + times(900, "y/") + "\r\n"});
}

std::string oneMissAgain(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes, "<a href='../x'/>")),
                    .parts = part("Content-ID: <q>\r\n", "x"),
                    .headers = "Content-Location: http://x/" + times(900, "y/") + "\r\n"});
}

std::string escapedIds(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes, "<a href='cid:a%40b%2Fc'/>")),
                    .parts = part("Content-ID: <a@b/c>\r\n", "x")});
}

std::string escapedMisses(std::size_t bytes) {
    return package(
        {.envelope = soap11(
             fill(bytes, [](std::size_t i) { return numbered("<a href='cid:%40%2F", i, "'/>"); })),
         .parts = part("Content-ID: <a@b/c>\r\n", "x")});
}

std::string missesAmongMany(std::size_t bytes) {
    return package(
        {.envelope = soap11(
             fill(bytes / 2, [](std::size_t i) { return numbered("<a href='cid:z", i, "'/>"); })),
         .parts = fill(bytes / 2, [](std::size_t i) {
             return part(numbered("Content-ID: <p", i, ">\r\n"), "x");
         })});
}

std::string equalIds(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes / 2, "<a href='cid:q'/>")),
                    .parts = fill(bytes / 2, part("Content-ID: <q>\r\n", "x"))});
}

std::string idsWithOneBeginning(std::size_t bytes) {
    const std::string same(500, 'i');
    const std::size_t count = bytes / 1100;
    std::string references;
    std::string parts;
    for (std::size_t i = 0; i < count; ++i) {
        references += "<a href='cid:" + numbered(same, i, "'/>");
        parts += part("Content-ID: <" + numbered(same, i, ">\r\n"), "x");
    }
    return package({.envelope = soap11(references), .parts = parts});
}

std::string nested(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\nContent-Type: multipart/mixed; "
                                  "boundary=C\r\n",
                                  fill(bytes, "--C\r\n\r\nx\r\n") + "--C--")});
}

std::string nestedTowers(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\n", fill(bytes, [](std::size_t i) {
                                      return numbered("Content-Type: multipart/mixed; boundary=C",
                                                      i, "\r\n\r\n") +
                                             numbered("--C", i, "\r\n");
                                  }))});
}

std::string base64(std::size_t bytes) {
    return package({.envelope = soap11("<a href='cid:q'/>"),
                    .parts = part("Content-ID: <q>\r\nContent-Transfer-Encoding: base64\r\n",
                                  fill(bytes, "QUJDREVG\r\n"))});
}

std::string quotedPrintable(std::size_t bytes) {
    return package(
        {.envelope = soap11("<a href='cid:q'/>"),
         .parts = part("Content-ID: <q>\r\nContent-Transfer-Encoding: quoted-printable\r\n",
                       fill(bytes, "=41=42=\r\n"))});
}

std::string quotedRoot(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes, "<a>1</a>\r\n")),
                    .parts = "",
                    .rootHeaders = "Content-Transfer-Encoding: 8bit\r\n"});
}

std::string unresolved(std::size_t bytes) {
    return package(
        {.envelope = soap11(referencesById(bytes)), .parts = part("Content-ID: <q>\r\n", "x")});
}

std::string ofSoap12(std::size_t bytes) {
    return package({.envelope = soap12(fill(bytes, "<a href='cid:q'/>")),
                    .parts = part("Content-ID: <q>\r\n", "x")});
}

} // namespace

Families parts() {
    return {
        {"PartsReferred", "many small files", eachReferred},
        {"PartsNotReferred", "files beside the message", notReferred},
        {"PartsWithoutHeaders", "parts of nothing but a body", withoutHeaders},
        {"PartOfOneLongBody", "a large file", oneLong},
        {"PartReferredByIdAgain", "one picture in many places", toOneById},
        {"PartReferredByLocationAgain", "has each reference take over a long id", toOneByLocation},
        {"PartsReferredByLocation", "a saved page", eachByLocation},
        {"PartsMissedAgainstABase", "has a long base resolved for each reference", againstABase},
        {"PartMissedAgain", "the same reference to nothing", oneMissAgain},
        {"PartReferredByAnEscapedId", "a .NET client", escapedIds},
        {"PartsMissedByEscapedIds", "has each id tried in two forms", escapedMisses},
        {"PartsMissedAmongMany", "has all parts searched for each reference", missesAmongMany},
        {"PartsOfOneId", "a generator that does not count", equalIds},
        {"PartsOfIdsWithOneBeginning", "has ids compared to their ends", idsWithOneBeginning},
        {"PartsWithinAPart", "a mail as an attachment", nested},
        {"PartsWithinPartsWithinParts", "a mail in a mail in a mail", nestedTowers},
        {"PartOfBase64", "a file encoded for mail", base64},
        {"PartOfQuotedPrintable", "a text encoded for mail", quotedPrintable},
        {"PartThatIsTheRoot", "a package of the envelope alone", quotedRoot},
        {"PartsNeverSent", "references whose parts were lost", unresolved},
        {"PartReferredInSoap12", "the same in SOAP 1.2", ofSoap12},
    };
}

} // namespace growth
