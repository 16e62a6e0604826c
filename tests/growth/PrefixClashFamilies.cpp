// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

/// `p`, then p1 to pK, all bound to one URI.
std::string taken(std::size_t bytes, const std::string& prefix) {
    return " xmlns:" + prefix + "='u'" +
           fill(bytes, [&](std::size_t i) { return numbered(" xmlns:" + prefix, i + 1, "='u'"); });
}

std::string amongSiblings(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "p") + ">" + fill(bytes / 2, "<a xmlns:p='v'/>") +
                  "</t>");
}

std::string ofNames(std::size_t bytes) {
    return soap11(
        {.body = fill(bytes / 2, "<p:x xmlns:p='v'/>"), .attributes = taken(bytes / 2, "p")});
}

std::string withUrisOfTheirOwn(std::size_t bytes) {
    return soap11(
        {.body =
             fill(bytes / 2, [](std::size_t i) { return numbered("<p:x xmlns:p='v", i, "'/>"); }),
         .attributes = taken(bytes / 2, "p")});
}

std::string withinOneAnother(std::size_t bytes) {
    std::string start;
    for (std::size_t i = 0; i < 900; ++i) {
        start += numbered("<p:a xmlns:p='v", i, "'>");
    }
    return soap11({.body = fill(bytes / 2, start + times(900, "</p:a>")),
                   .attributes = taken(bytes / 2, "p")});
}

std::string ofXsi(std::size_t bytes) {
    return "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'"
           " xmlns:z='http://www.w3.org/2001/XMLSchema-instance'" +
           taken(bytes / 2, "xsi") + "><s:Body>" + fill(bytes / 2, "<y z:type='t'/>") +
           "</s:Body></s:Envelope>";
}

std::string ofXsiWithinEntries(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "xsi") + ">" +
                  fill(bytes / 2, "<y xmlns:z='http://www.w3.org/2001/XMLSchema-instance'"
                                  " z:type='t'/>") +
                  "</t>");
}

std::string ofAttributes(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "p") + ">" +
                  fill(bytes / 2, "<a xmlns:p='v' p:b='1' p:c='2'/>") + "</t>");
}

std::string ofSeveralPrefixes(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 4, "p") + taken(bytes / 4, "q") + ">" +
                  fill(bytes / 2, "<a xmlns:p='v'/><a xmlns:q='v'/>") + "</t>");
}

std::string belowChangingScopes(std::size_t bytes) {
    return soap11(
        "<t" + taken(bytes / 2, "p") + ">" +
        fill(bytes / 2,
             [](std::size_t i) { return numbered("<b xmlns:r='w", i, "'><a xmlns:p='v'/></b>"); }) +
        "</t>");
}

std::string ofSoapsPrefix(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "s") + ">" +
                  fill(bytes / 2, "<a e:arrayType='xsd:int[0]'/>") + "</t>");
}

std::string ofTheEncodingsPrefix(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "e") + ">" +
                  fill(bytes / 2, "<a xmlns:f='http://schemas.xmlsoap.org/soap/encoding/'"
                                  " f:arrayType='xsd:int[0]'/>") +
                  "</t>");
}

std::string generatedNames(std::size_t bytes) {
    return soap11("<t" + taken(bytes / 2, "prefix") + ">" +
                  fill(bytes / 2, "<a xmlns='v'><b xmlns=''/></a>") + "</t>");
}

std::string nestedAgainAndAgain(std::size_t bytes) {
    std::string start;
    for (std::size_t i = 0; i < 900; ++i) {
        start += numbered("<p:a xmlns:p='u", i, "'>");
    }
    const std::string tower = start + times(900, "</p:a>");
    return soap11(fill(bytes, tower));
}

} // namespace

Families prefixClashes() {
    return {
        {"PrefixRedeclaredAtEachLevel", "has scopes of one prefix pile up", nestedAgainAndAgain},
        {"ClashesAmongSiblings", "has a free number searched from one for each child",
         amongSiblings},
        {"ClashesOfNames", "the same for names of entries", ofNames},
        {"ClashesWithUrisOfTheirOwn", "has a number invented for each URI", withUrisOfTheirOwn},
        {"ClashesWithinOneAnother", "has numbers invented at each level", withinOneAnother},
        {"ClashesOfXsi", "takes all numbers of xsi", ofXsi},
        {"ClashesOfXsiWithinEntries", "the same below one entry", ofXsiWithinEntries},
        {"ClashesOfAttributes", "the same with attributes that need the prefix", ofAttributes},
        {"ClashesOfSeveralPrefixes", "two prefixes in turn", ofSeveralPrefixes},
        {"ClashesBelowChangingScopes", "changes the outer scopes between two clashes",
         belowChangingScopes},
        {"ClashesOfTheEnvelopePrefix", "takes all numbers of SOAP's prefix", ofSoapsPrefix},
        {"ClashesOfTheEncodingPrefix", "takes all numbers of the encoding's prefix",
         ofTheEncodingsPrefix},
        {"ClashesOfGeneratedPrefixes", "takes all numbers of the serializer's own prefix",
         generatedNames},
    };
}

} // namespace growth
