// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string runs(std::size_t bytes) { return soap11("<p>" + fill(bytes, "t<b/>") + "</p>"); }

std::string runsWithin(std::size_t bytes) {
    // The reader allows a depth of 1000 elements.
    std::string inner;
    for (int i = 0; i < 400; ++i) {
        inner = "t<c>" + inner + "</c>u";
    }
    return soap11(fill(bytes, "<p>" + inner + "</p>"));
}

std::string runsBesideEntries(std::size_t bytes) { return soap11(fill(bytes, "t<e/>")); }

std::string shadowedPrefixes(std::size_t bytes) {
    return soap11(fill(bytes, "<p:x xmlns:p='urn:1'><p:x xmlns:p='urn:2'/></p:x>"));
}

std::string defaultsTakenBack(std::size_t bytes) {
    return soap11(fill(bytes, "<x xmlns='urn:1'><x xmlns=''><x xmlns='urn:1'/></x></x>"));
}

std::string manyPrefixes(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        const std::string prefix = "p" + std::to_string(i);
        return "<" + prefix + ":x xmlns:" + prefix + "='urn:" + std::to_string(i) + "'/>";
    }));
}

std::string markup(std::size_t bytes) {
    return soap11(fill(bytes, "<a x='1'><b><!-- c --></b>t</a>"));
}

std::string markupThatUsesPrefixesAround(std::size_t bytes) {
    std::string declarations;
    std::string uses;
    for (std::size_t i = 0; declarations.size() < bytes / 2; ++i) {
        const std::string prefix = "p" + std::to_string(i);
        declarations += " xmlns:" + prefix + "='urn:" + std::to_string(i) + "'";
        uses += "<a><" + prefix + ":b/></a>";
    }
    return soap11("<o" + declarations + ">" + uses + "</o>");
}

std::string emptyElements(std::size_t bytes) { return soap11(fill(bytes, "<a/>")); }

std::string detailOfAFault(std::size_t bytes) {
    return soap12Rec("<s:Fault><s:Code><s:Value>s:Sender</s:Value></s:Code><s:Reason>"
                     "<s:Text xml:lang='en'>r</s:Text></s:Reason><s:Detail>" +
                     fill(bytes, "t<d/>") + "</s:Detail></s:Fault>");
}

std::string namesOfTheEncoding(std::size_t bytes) {
    return soap12Rec(fill(
        bytes,
        "<a e:id='x' e:itemType='x' e:nodeType='array' e:arraySize='9'>t<b xsi:nil='1'/></a>"));
}

std::string unqualifiedParts(std::size_t bytes) {
    return soap12Rec("<o xmlns='urn:1'>" + fill(bytes, "<p xmlns=''>t<q/></p>") + "</o>");
}

} // namespace

Families literals() {
    return {
        {"LiteralRuns", "a text with markup in it", runs},
        {"LiteralRunsWithinOneAnother", "has text at every depth", runsWithin},
        {"LiteralRunsBesideEntries", "has text where none belongs", runsBesideEntries},
        {"LiteralShadowedPrefixes", "documents put together", shadowedPrefixes},
        {"LiteralDefaultsTakenBack", "a schema with unqualified elements", defaultsTakenBack},
        {"LiteralPrefixesOfTheirOwn", "a producer that numbers prefixes", manyPrefixes},
        {"LiteralMarkup", "signed parts", markup},
        {"LiteralMarkupInManyNamespaces", "has declarations be looked for",
         markupThatUsesPrefixesAround},
        {"LiteralDetailOfAFault", "reports in prose", detailOfAFault},
        {"LiteralNamesOfTheEncoding", "attributes that mean nothing here", namesOfTheEncoding},
        {"LiteralUnqualifiedParts", "rpc/literal", unqualifiedParts},
        {"LiteralEmptyElements", "flags that are elements", emptyElements},
    };
}

} // namespace growth
