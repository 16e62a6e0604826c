// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string ofOneElement(std::size_t bytes) {
    return soap11("<a" + fill(bytes, [](std::size_t i) { return numbered(" a", i, "='v'"); }) +
                  "/>");
}

std::string ofManyElements(std::size_t bytes) {
    return soap11(fill(bytes, "<a b='1' c='2' d='3' f='4' g='5' h='6' i='7' j='8'/>"));
}

/// Just fewer than a set keeps an index for, at every level, and leaves that look names up.
std::string aboveTypedLeaves(std::size_t bytes) {
    std::string start = "<t";
    for (std::size_t i = 0; i < 31; ++i) {
        start += numbered(" a", i, "='v'");
    }
    start += ">";
    const std::size_t levels = bytes / 2 / (start.size() + 4);
    return soap11(times(levels, start) + fill(bytes / 2, "<l xsi:type='xsd:int'>1</l>") +
                  times(levels, "</t>"));
}

std::string declarationsAboveTypedLeaves(std::size_t bytes) {
    std::string start = "<t";
    for (std::size_t i = 0; i < 31; ++i) {
        start += numbered(" xmlns:p", i, "='u'");
    }
    start += ">";
    const std::size_t levels = bytes / 2 / (start.size() + 4);
    return soap11(times(levels, start) + fill(bytes / 2, "<l xsi:type='xsd:int'>1</l>") +
                  times(levels, "</t>"));
}

std::string prefixed(std::size_t bytes) {
    return soap11("<a xmlns:p='u'" +
                  fill(bytes, [](std::size_t i) { return numbered(" p:a", i, "='v'"); }) + "/>");
}

std::string prefixesOfTheirOwn(std::size_t bytes) {
    return soap11("<a" +
                  fill(bytes,
                       [](std::size_t i) {
                           const std::string p = numbered("p", i);
                           return " xmlns:" + p + "='" + numbered("u", i) + "' " + p + ":x='v'";
                       }) +
                  "/>");
}

std::string prefixesWithNumbersAtTheirEnds(std::size_t bytes) {
    return soap11("<a xmlns:p='u'" +
                  fill(bytes,
                       [](std::size_t i) {
                           return numbered(" xmlns:p", i, "='") + numbered("u", i, "' p:x") +
                                  std::to_string(i) + "='v'";
                       }) +
                  "/>");
}

std::string oneLongValue(std::size_t bytes) {
    return soap11("<a b='" + std::string(bytes, 'v') + "'/>");
}

std::string valuesOfEntities(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t) {
        return "<a b='" + times(40, "&lt;&#65;&amp;&#x1F600;&quot;") + "'/>";
    }));
}

std::string valuesOfLineEnds(std::size_t bytes) {
    return soap11("<a b='" + fill(bytes, "&#13;&#10;\n\t") + "'/>");
}

std::string namesWithOneBeginning(std::size_t bytes) {
    const std::string same(100, 'n');
    return soap11(
        "<a" + fill(bytes, [&](std::size_t i) { return " " + numbered(same, i, "='v'"); }) + "/>");
}

/// Tags that are known again by their bytes are compared with those that came before.
std::string tagsWithOneBeginning(std::size_t bytes) {
    const std::string same(200, 'v');
    return soap11(fill(
        bytes, [&](std::size_t i) { return "<a b='" + same + numbered("", i % 90 + 10, "'/>"); }));
}

std::string repeatedTagsOfOtherNamespaces(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<a xmlns:p='u", i, "'><p:b p:c='1'/><p:b p:c='1'/></a>");
    }));
}

std::string unboundPrefixes(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<a q", i, ":b='1' ") + numbered("r", i, ":b='2' b='3'/>");
    }));
}

std::string onHeaderEntries(std::size_t bytes) {
    return soap11(
        {.body = "<a/>",
         .header =
             "<h" + fill(bytes, [](std::size_t i) { return numbered(" s:a", i, "='v'"); }) + "/>"});
}

std::string onTheEnvelope(std::size_t bytes) {
    return soap11(
        {.body = fill(bytes / 2, "<a xsi:type='xsd:int'>1</a>"),
         .attributes = fill(bytes / 2, [](std::size_t i) { return numbered(" a", i, "='v'"); })});
}

std::string ofSoapsNames(std::size_t bytes) {
    return soap11(fill(bytes, "<a s:actor='u' s:mustUnderstand='1' e:root='1' id=''/>"));
}

std::string soap12Roles(std::size_t bytes) {
    return soap12(fill(bytes, "<a s:role='u' s:mustUnderstand='true' e:nodeType='x'/>"));
}

} // namespace

Families attributes() {
    return {
        {"AttributesOfOneElement", "looks for a set that is searched from its start", ofOneElement},
        {"AttributesOfManyElements", "records exported column by column", ofManyElements},
        {"AttributesAboveTypedLeaves", "stays below what gets an index", aboveTypedLeaves},
        {"DeclarationsAboveTypedLeaves", "the same with declarations",
         declarationsAboveTypedLeaves},
        {"AttributesPrefixed", "a stack that qualifies all attributes", prefixed},
        {"AttributesWithPrefixesOfTheirOwn", "has a prefix looked up for each attribute",
         prefixesOfTheirOwn},
        {"AttributesOfOnePrefixAmongNumberedOnes", "has numbers taken for prefixes",
         prefixesWithNumbersAtTheirEnds},
        {"AttributeOfOneLongValue", "base64 in an attribute", oneLongValue},
        {"AttributesOfEntities", "text escaped to the last character", valuesOfEntities},
        {"AttributeOfLineEnds", "has every character escaped again", valuesOfLineEnds},
        {"AttributeNamesWithOneBeginning", "has names compared to their ends",
         namesWithOneBeginning},
        {"TagsWithOneBeginning", "has tags compared to their ends", tagsWithOneBeginning},
        {"RepeatedTagsOfOtherNamespaces", "repeats a tag that means something else each time",
         repeatedTagsOfOtherNamespaces},
        {"AttributesOfUnboundPrefixes", "a producer without namespaces", unboundPrefixes},
        {"AttributesOfAHeaderEntry", "has header attributes looked for among many",
         onHeaderEntries},
        {"AttributesOfTheEnvelope", "has each entry search what stands above it", onTheEnvelope},
        {"AttributesThatSoapDefines", "marks everything as a header block", ofSoapsNames},
        {"AttributesThatSoap12Defines", "the same in SOAP 1.2", soap12Roles},
    };
}

} // namespace growth
