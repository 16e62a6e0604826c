// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string tooDeep(std::size_t bytes) { return soap11(fill(bytes, "<a>")); }

std::string tooDeepAboveAttributes(std::size_t bytes) {
    return soap11(fill(bytes / 2, "<a>") + "<a" +
                  fill(bytes / 2, [](std::size_t i) { return numbered(" a", i, "='v'"); }) + ">");
}

std::string longUri(std::size_t bytes) {
    return soap11({.body = fill(bytes / 2, "<p:a/>"),
                   .attributes = " xmlns:p='" + std::string(bytes / 2, 'u') + "'"});
}

std::string longStyle(std::size_t bytes) {
    return soap11({.body = fill(bytes / 2, "<a/>"),
                   .attributes = " s:encodingStyle='" + std::string(bytes / 2, 'u') + "'"});
}

std::string longContentId(std::size_t bytes) {
    return package(
        {.envelope = soap11(fill(bytes / 2, "<a href='l'/>")),
         .parts = part(
             "Content-Location: l\r\nContent-ID: <" + std::string(bytes / 2, 'i') + ">\r\n", "x")});
}

std::string longLocation(std::size_t bytes) {
    return package({.envelope = soap11(fill(bytes / 2, "<a href='l'/>")),
                    .parts = "",
                    .headers = "Content-Location: http://h/" + fill(bytes / 2, "x/") + "\r\n"});
}

std::string documentType(std::size_t bytes) {
    return "<!DOCTYPE a [" +
           fill(bytes, [](std::size_t i) { return numbered("<!ENTITY e", i, " 'aaaa'>"); }) + "]>" +
           soap11("<a/>");
}

std::string unknownEntity(std::size_t bytes) {
    return soap11(fill(bytes, "<a>1</a>") + "<a>&e;</a>");
}

std::string declaredPositions(std::size_t bytes) {
    return soap11(fill(bytes, "<a e:arrayType='xsd:int[9]'/>") +
                  "<a e:arrayType='xsd:int[4294967295]'><i/></a>");
}

std::string positionOutOfReach(std::size_t bytes) {
    return soap11("<a e:arrayType='xsd:int[5]'><i e:position='[1]'/>" +
                  fill(bytes, "<i e:position='[2]'/>") + "<i e:position='[6]'/></a>");
}

std::string attributeGivenTwice(std::size_t bytes) {
    return soap11("<a" + fill(bytes, [](std::size_t i) { return numbered(" a", i, "='v'"); }) +
                  " a0='w'/>");
}

std::string cutShort(std::size_t bytes) {
    const std::string text = soap11(fill(bytes, "<a><b>1</b></a>"));
    return text.substr(0, text.size() / 2);
}

std::string cutWithinATag(std::size_t bytes) {
    return soap11("<a b='" + std::string(bytes, 'v')).substr(0, bytes);
}

std::string noEnvelope(std::size_t bytes) { return "<a>" + fill(bytes, "<b/>") + "</a>"; }

std::string unknownVersion(std::size_t bytes) {
    return "<s:Envelope xmlns:s='http://www.w3.org/2033/05/soap-envelope'><s:Body>" +
           fill(bytes, "<a/>") + "</s:Body></s:Envelope>";
}

std::string badCharacters(std::size_t bytes) {
    return soap11(fill(bytes, "<a>1</a>") + "<a>\xFF\xFE</a>");
}

std::string packageCutShort(std::size_t bytes) {
    const std::string text =
        package({.envelope = soap11("<a/>"), .parts = fill(bytes, part("", "x"))});
    return text.substr(0, text.size() - 6);
}

std::string packageWithoutRoot(std::size_t bytes) {
    return "MIME-Version: 1.0\r\nContent-Type: multipart/related; boundary=B; start=\"<none>\""
           "\r\n\r\n" +
           fill(bytes, part("Content-ID: <q>\r\n", "x")) + "--B--\r\n";
}

std::string passwords(std::size_t bytes) { return fill(bytes, "<Password>x"); }

std::string passwordsWithoutEnd(std::size_t bytes) { return fill(bytes, "<Password a='<b>"); }

std::string passwordsOfOthers(std::size_t bytes) {
    return "<p:Password>" + fill(bytes, "</q:Password></p:Passwor>");
}

} // namespace

Families refused() {
    return {
        {"RefusedDepth", "opens elements without end", tooDeep},
        {"RefusedDepthAndAttributes", "the same before an element with many attributes",
         tooDeepAboveAttributes},
        {"RefusedUri", "a URI as long as half the text", longUri},
        {"RefusedStyle", "a style as long as half the text", longStyle},
        {"RefusedContentId", "an id as long as half the text", longContentId},
        {"RefusedContentLocation", "a base as long as half the text", longLocation},
        {"RefusedDocumentType", "declares entities", documentType},
        {"RefusedEntity", "uses an entity", unknownEntity},
        {"RefusedPositions", "declares an array that no memory holds", declaredPositions},
        {"RefusedPosition", "a position outside of the array", positionOutOfReach},
        {"RefusedAttribute", "gives an attribute twice", attributeGivenTwice},
        {"RefusedEnd", "ends in the middle", cutShort},
        {"RefusedEndWithinATag", "ends within a long value", cutWithinATag},
        {"RefusedDocument", "another document", noEnvelope},
        {"RefusedVersion", "another version of SOAP", unknownVersion},
        {"RefusedCharacters", "bytes that are no characters", badCharacters},
        {"RefusedPackage", "a package that ends in the middle", packageCutShort},
        {"RefusedRoot", "a package without its root part", packageWithoutRoot},
        {"RefusedPasswords", "elements that a log masks and that do not end", passwords},
        {"RefusedPasswordsInTags", "the same within tags", passwordsWithoutEnd},
        {"RefusedPasswordsOfOthers", "the same with ends of others", passwordsOfOthers},
    };
}

} // namespace growth
