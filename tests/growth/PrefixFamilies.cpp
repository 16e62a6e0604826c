// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string declarations(std::size_t bytes) {
    return fill(
        bytes, [](std::size_t i) { return numbered(" xmlns:p", i, "='") + numbered("u", i, "'"); });
}

std::string onOneElement(std::size_t bytes) { return soap11("<a" + declarations(bytes) + "/>"); }

std::string onTheEnvelope(std::size_t bytes) {
    return soap11({.body = fill(bytes / 2, "<p0:a xsi:type='xsd:int'>1</p0:a>"),
                   .attributes = declarations(bytes / 2)});
}

std::string usedInTurn(std::size_t bytes) {
    const std::string declared = declarations(bytes / 2);
    return soap11(
        {.body = fill(bytes / 2, [](std::size_t i) { return numbered("<p", i % 1000, ":a/>"); }),
         .attributes = declared});
}

std::string usedByTypes(std::size_t bytes) {
    return soap11({.body = fill(bytes / 2,
                                [](std::size_t i) {
                                    return numbered("<a xsi:type='p", i % 1000, ":t'>v</a>");
                                }),
                   .attributes = declarations(bytes / 2)});
}

std::string redeclaredBySiblings(std::size_t bytes) {
    return soap11(fill(
        bytes, [](std::size_t i) { return numbered("<p:a xmlns:p='u", i, "'><p:b/></p:a>"); }));
}

std::string nested(std::size_t bytes) {
    const std::size_t levels = bytes / 40 < 900 ? bytes / 40 : 900;
    std::string start;
    std::string end;
    for (std::size_t i = 0; i < levels; ++i) {
        start += numbered("<a xmlns:p", i, "='u'>");
        end += "</a>";
    }
    return soap11(start + fill(bytes / 2, "<p0:l/>") + end);
}

std::string defaultInTurn(std::size_t bytes) {
    return soap11(fill(bytes, "<a xmlns='u'><b xmlns='v'><c xmlns='u'/></b></a>"));
}

std::string noDefault(std::size_t bytes) {
    return soap11("<t xmlns='u'>" + fill(bytes, "<a xmlns=''><b/></a>") + "</t>");
}

std::string longEnvelopePrefix(std::size_t bytes) {
    return soap11({.body = fill(bytes, "<a/>"), .prefix = std::string(128, 's')});
}

std::string longEncodingPrefix(std::size_t bytes) {
    const std::string prefix(128, 'x');
    return soap11(
        {.body = fill(bytes, "<a e:arrayType='q[][1]'/>"),
         .attributes = " xmlns:" + prefix + "='http://schemas.xmlsoap.org/soap/encoding/'"});
}

std::string longPrefixOfNames(std::size_t bytes) {
    const std::string prefix(120, 'x');
    return soap11(
        {.body = fill(bytes, "<" + prefix + ":a/>"), .attributes = " xmlns:" + prefix + "='u'"});
}

std::string longUris(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<p:a xmlns:p='", i, std::string(2000, 'u') + "'/>");
    }));
}

std::string longUriAbove(std::size_t bytes) {
    return soap11({.body = fill(bytes, "<p:a p:b='1'/>"),
                   .attributes = " xmlns:p='" + std::string(2000, 'u') + "'"});
}

std::string manyForOneUri(std::size_t bytes) {
    return soap11(
        {.body = fill(bytes / 2, "<p0:a/>"), .attributes = fill(bytes / 2, [](std::size_t i) {
                                                 return numbered(" xmlns:p", i, "='u'");
                                             })});
}

std::string manyForTheEncoding(std::size_t bytes) {
    return soap11({.body = fill(bytes / 2, "<a e:arrayType='xsd:int[1]'><i>1</i></a>"),
                   .attributes = fill(bytes / 2, [](std::size_t i) {
                       return numbered(" xmlns:p", i,
                                       "='http://schemas.xmlsoap.org/soap/encoding/'");
                   })});
}

} // namespace

Families prefixes() {
    return {
        {"DeclarationsOfOneElement", "every schema of a system declared at once", onOneElement},
        {"DeclarationsOfTheEnvelope", "the same on the envelope, most of them unused",
         onTheEnvelope},
        {"DeclarationsUsedInTurn", "has each name search all of them", usedInTurn},
        {"DeclarationsUsedByTypes", "has each type search all of them", usedByTypes},
        {"PrefixRedeclaredBySiblings", "stacks that declare where they use", redeclaredBySiblings},
        {"DeclarationsNested", "has each leaf search all levels", nested},
        {"DefaultNamespaceInTurn", "stacks that write default namespaces only", defaultInTurn},
        {"DefaultNamespaceTakenBack", "a .NET service in the rpc style", noDefault},
        {"EnvelopePrefixAtItsLimit", "has the longest prefix stand on every entry",
         longEnvelopePrefix},
        {"EncodingPrefixAtItsLimit", "has the longest prefix enter each item type",
         longEncodingPrefix},
        {"LongPrefixOfNames", "generated names", longPrefixOfNames},
        {"LongUris", "has each URI be new and near its limit", longUris},
        {"LongUriAbove", "has one URI taken over by every name", longUriAbove},
        {"PrefixesOfOneUri", "has declarations compared by URI", manyForOneUri},
        {"PrefixesOfTheEncoding", "the same with the namespace that the writer asks for",
         manyForTheEncoding},
    };
}

} // namespace growth
