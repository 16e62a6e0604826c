// SPDX-License-Identifier: MIT
//
// How references are written in SOAP 1.2 of 2003: their targets stand where the first of them
// would.
#include "output/Wire12Rec.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSerializer.h>

#include <gtest/gtest.h>

namespace {

TzSoapSimpleType target(const char* name, const char* id) {
    TzSoapSimpleType made = intValue(name, 5);
    made.setIdAttribute(id);
    return made;
}

TzSoapCompositeType composite(const char* name, const std::vector<TzSoapType>& children) {
    TzSoapCompositeType made{TzXmlName(name)};
    for (const TzSoapType& child : children) {
        made.appendChild(child);
    }
    return made;
}

TzSoapReferenceType reference(const char* name, const TzSoapType& to) {
    return {TzXmlName(name), to};
}

/// What an entry "e" that holds `children` is written as.
std::string entryRec(const std::vector<TzSoapType>& children) {
    const std::string text = wireRec({composite("e", children)});
    const std::string begin = bodyRec("    <e" + EncodedRec + ">\n");
    const std::size_t head = begin.find("  </env:Body>");
    EXPECT_EQ(text.substr(0, head), begin.substr(0, head));
    return text.substr(head, text.rfind("    </e>") - head);
}

} // namespace

TEST(Soap12RecReferences, ATargetStandsInThePlaceOfTheFirst) {
    const TzSoapSimpleType shared = target("shared", "i");
    EXPECT_EQ(entryRec({reference("a", shared), reference("b", shared), intValue("c", 1)}),
              R"(      <a enc:id="i">5</a>
      <b enc:ref="i"/>
      <c>1</c>
)");
    EXPECT_EQ(shared.getName().getLocalName(), "shared");
}

TEST(Soap12RecReferences, ATargetThatStandsElsewhereStaysThere) {
    const TzSoapSimpleType before = target("before", "i");
    const TzSoapSimpleType after = target("after", "j");
    EXPECT_EQ(entryRec({before, reference("a", before), reference("b", after), after}),
              R"(      <before enc:id="i">5</before>
      <a enc:ref="i"/>
      <b enc:ref="j"/>
      <after enc:id="j">5</after>
)");
}

TEST(Soap12RecReferences, NothingFollowsTheEntriesOfTheBody) {
    const TzSoapSimpleType shared = target("shared", "i");
    EXPECT_EQ(wireRec({reference("a", shared)}),
              bodyRec("    <a" + EncodedRec + " enc:id=\"i\">5</a>\n"));
}

TEST(Soap12RecReferences, AnIdThatNothingRefersToIsTheApplications) {
    EXPECT_EQ(entryRec({target("a", "i")}), "      <a id=\"i\">5</a>\n");
}

TEST(Soap12RecReferences, TargetsLeadToOtherTargets) {
    const TzSoapSimpleType inner = target("inner", "i");
    TzSoapCompositeType outer = composite("outer", {reference("x", inner)});
    outer.setIdAttribute("o");
    EXPECT_EQ(entryRec({reference("a", outer), reference("b", inner)}),
              R"(      <a enc:id="o">
        <x enc:id="i">5</x>
      </a>
      <b enc:ref="i"/>
)");
}

TEST(Soap12RecReferences, ARingOfTargetsEnds) {
    TzSoapCompositeType first = composite("first", {});
    TzSoapCompositeType second = composite("second", {});
    first.setIdAttribute("f");
    second.setIdAttribute("s");
    first.appendChild(reference("toSecond", second));
    second.appendChild(reference("toFirst", first));
    const std::string expected = R"(      <a enc:id="f">
        <toSecond enc:id="s">
          <toFirst enc:ref="f"/>
        </toSecond>
      </a>
)";
    EXPECT_EQ(entryRec({reference("a", first)}), expected);
    first.clearChildren(); // ends the ring, which would hold itself
}

TEST(Soap12RecReferences, ARingThroughAnEntryEnds) {
    TzSoapCompositeType self = composite("self", {});
    self.setIdAttribute("s");
    self.appendChild(reference("again", self));
    EXPECT_EQ(entryRec({self}), R"(      <self enc:id="s">
        <again enc:ref="s"/>
      </self>
)");
    self.clearChildren();
}

TEST(Soap12RecReferences, AValueThatStandsTwiceIsWrittenOnce) {
    const TzSoapSimpleType shared = target("shared", "i");
    EXPECT_EQ(entryRec({shared, shared, reference("a", shared)}),
              R"(      <shared enc:id="i">5</shared>
      <shared enc:ref="i"/>
      <a enc:ref="i"/>
)");
}

TEST(Soap12RecReferences, ATargetMayStandInALaterTarget) {
    const TzSoapSimpleType inner = target("inner", "i");
    TzSoapCompositeType outer = composite("outer", {inner});
    outer.setIdAttribute("o");
    EXPECT_EQ(entryRec({reference("a", inner), reference("b", outer)}),
              R"(      <a enc:id="i">5</a>
      <b enc:id="o">
        <inner enc:ref="i"/>
      </b>
)");
}

TEST(Soap12RecReferences, IdsOfTheHeaderAreKnownInTheBody) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapMessage message = messageRec({reference("b", shared)});
    message.getSoapHeader().appendHeaderEntry(reference("h", shared), false);
    EXPECT_EQ(wire(message), envelopeRec("  <env:Header>\n    <h" + EncodedRec +
                                         " enc:id=\"i\">5</h>\n  </env:Header>\n"
                                         "  <env:Body>\n    <b enc:ref=\"i\"/>\n  </env:Body>\n"));
}

TEST(Soap12RecReferences, ItemsOfArraysReferToo) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapCompactArrayType list(TzXmlName("list"), "xsd:int", 2U, 0U);
    list[0] = reference("item", shared);
    list[1] = reference("item", shared);
    EXPECT_EQ(entryRec({list}),
              R"(      <list enc:itemType="xsd:int" enc:arraySize="2">
        <item enc:id="i">5</item>
        <item enc:ref="i"/>
      </list>
)");
}

TEST(Soap12RecReferences, TheDetailOfAFaultRefersToo) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapMessage message(TzSoapVersion::V1_2Rec);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.addDetailEntry("a", reference("a", shared));
    fault.addDetailEntry("b", reference("b", shared));
    const std::string text = wire(message);
    EXPECT_NE(text.find("enc:id=\"i\">5</a>"), std::string::npos) << text;
    EXPECT_NE(text.find("enc:ref=\"i\"/>"), std::string::npos) << text;
}

TEST(Soap12RecReferences, AChainOfReferencesNeedsNoStack) {
    constexpr int Length = 20000;
    std::vector<TzSoapReferenceType> chain;
    const TzSoapSimpleType last = target("last", "last");
    chain.push_back(reference("r", last));
    for (int i = 0; i < Length; ++i) {
        chain.back().setIdAttribute("i" + std::to_string(i));
        chain.push_back(reference("r", chain.back()));
    }
    EXPECT_EQ(entryRec({chain.back()}), "      <r enc:id=\"last\">5</r>\n");
}

TEST(Soap12RecReferences, AttributesOfTheReferenceStay) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapReferenceType first = reference("a", shared);
    first.addAttribute(TzXmlName("unit"), "m");
    EXPECT_EQ(entryRec({first}), "      <a enc:id=\"i\" unit=\"m\">5</a>\n");
}

TEST(Soap12RecReferences, TheSerializerWritesThemInlineToo) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapSerializer serializer;
    messageRec({composite("e", {reference("a", shared), reference("b", shared)})})
        .acceptVisitor(serializer);
    const std::string text = serializer.getSerializedString();
    EXPECT_NE(text.find("<a enc:id=\"i\">5</a>\n      <b enc:ref=\"i\"/>"), std::string::npos)
        << text;
}

TEST(Soap12RecReferences, AVisitorThatIsDerivedWritesThemInlineToo) {
    class Derived : public TzSoapWriter {
    public:
        using TzSoapWriter::TzSoapWriter;
    };
    const TzSoapSimpleType shared = target("shared", "i");
    TzXmlStringWriter text;
    Derived writer(&text, nullptr);
    messageRec({composite("e", {reference("a", shared), reference("b", shared)})})
        .acceptVisitor(writer);
    EXPECT_NE(text.getString().find("<a enc:id=\"i\">5</a>\n      <b enc:ref=\"i\"/>"),
              std::string::npos)
        << text.getString();
}

TEST(Soap12RecReferences, WhatWasReadIsWrittenAsAnotherVersionNamesIt) {
    const TzSoapMessage message = readRec(bodyRec("    <e" + EncodedRec + R"(>
      <a enc:id="i">5</a>
      <b enc:ref="i"/>
      <c enc:ref="none"/>
    </e>
)"));
    for (const auto& [version, name] :
         {std::pair(TzSoapVersion::V1_1, "href"), std::pair(TzSoapVersion::V1_2, "ref")}) {
        TzXmlStringWriter text;
        TzSoapWriter writer(&text, nullptr);
        writer.setVersion(version);
        message.acceptVisitor(writer);
        const std::string references =
            "<b " + std::string(name) + "=\"#i\"/>\n      <c " + name + "=\"#none\"/>";
        EXPECT_NE(text.getString().find(references), std::string::npos) << text.getString();
        EXPECT_NE(text.getString().find(" id=\"i\">5</a>"), std::string::npos);
    }
}
