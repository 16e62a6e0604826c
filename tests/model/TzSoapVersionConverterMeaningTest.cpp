// SPDX-License-Identifier: MIT
//
// What a message says is what it says in the other version: nothing more, and nothing silently
// less.
#include <soap/TzSoapVersionConverter.h>

#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "support/ReadValues.h"
#include "support/Throws.h"

#include <tz/thread/TzTHRInvalidPointer.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Losses = std::vector<TzCString>;

constexpr TzSoapVersion::Version V11 = TzSoapVersion::V1_1;
constexpr TzSoapVersion::Version V12 = TzSoapVersion::V1_2;
const WireForm wire11(V11);
const WireForm wire12(V12);

Losses convert(TzSoapMessage& message, TzSoapVersion::Version version) {
    return TzSoapVersionConverter(version).convert(message);
}

/// A message with this body, rewritten for the other version, written and read again.
struct Converted {
    Converted(const WireForm& source, const std::string& body, const std::string& attributes = "")
        : message(readMessage(source.body(body, attributes))),
          losses(convert(message, source.version() == V11 ? V12 : V11)), wire(message.asString()),
          again(readMessage(wire)) {}

    bool has(const std::string& text) const { return wire.find(text) != std::string::npos; }

    TzSoapMessage message;
    Losses losses;
    std::string wire;
    TzSoapMessage again;
};

/// The attributes of both versions that SOAP qualifies, in the namespaces of the other one.
const std::string other12 =
    "xmlns:oe=\"" + wire12.envelopeUri() + "\" xmlns:oc=\"" + wire12.style() + "\"";
const std::string other11 =
    "xmlns:oe=\"" + wire11.envelopeUri() + "\" xmlns:oc=\"" + wire11.style() + "\"";

} // namespace

// Attributes that would make a reference.

TEST(TzSoapVersionConverterMeaning, AnAttributeOfTheApplicationMakesNoReferenceOfAStruct) {
    const Converted done(wire11, "<item ref=\"A17\"><qty>1</qty></item>");
    EXPECT_EQ(done.losses, Losses{"attribute ref of item: became ref1"});
    EXPECT_TRUE(done.has("ref1=\"A17\"")) << done.wire;
    EXPECT_EQ(textOf(child(bodyEntry(done.again), "qty")), "1");
}

TEST(TzSoapVersionConverterMeaning, AnAttributeOfTheApplicationMakesNoReferenceOfAText) {
    const Converted done(wire11, "<item ref=\"A17\">5</item>");
    EXPECT_EQ(done.losses, Losses{"attribute ref of item: became ref1"});
    EXPECT_EQ(textOf(bodyEntry(done.again)), "5");
}

TEST(TzSoapVersionConverterMeaning, TheNewNameIsOneThatIsFree) {
    const Converted done(wire11, "<item ref1=\"a\" ref=\"A17\" ref2=\"b\">5</item>");
    EXPECT_EQ(done.losses, Losses{"attribute ref of item: became ref3"});
    EXPECT_TRUE(done.has("ref1=\"a\" ref3=\"A17\" ref2=\"b\"")) << done.wire;
}

TEST(TzSoapVersionConverterMeaning, AReferenceKeepsItsOwnTextAndLosesNoOther) {
    const Converted waiting(wire11, "<r href=\"#no\" ref=\"A17\"/>");
    EXPECT_EQ(waiting.losses, Losses{"attribute ref of r: became ref1"});
    EXPECT_TRUE(waiting.has("<r ref1=\"A17\" ref=\"#no\"/>")) << waiting.wire;
    const Converted mime(wire11, "<r href=\"cid:x\" ref=\"A17\"/>");
    EXPECT_EQ(mime.losses, Losses{"attribute ref of r: became ref1"});
    EXPECT_TRUE(reference(bodyEntry(mime.again)).isMimeReference()) << mime.wire;
    const Converted back(wire12, "<r ref=\"#no\" href=\"A17\"/>");
    EXPECT_EQ(back.losses, Losses{"attribute href of r: became href1"});
    EXPECT_TRUE(back.has("<r href1=\"A17\" href=\"#no\"/>")) << back.wire;
}

TEST(TzSoapVersionConverterMeaning, AReferenceWithoutMarkIsOneStill) {
    const Converted done(wire12, "<r ref=\"no\"/>");
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("<r href=\"#no\"/>")) << done.wire;
    EXPECT_FALSE(reference(bodyEntry(done.again)).isMimeReference());
}

TEST(TzSoapVersionConverterMeaning, AReferenceOfTheEncodingNamespaceMakesNone) {
    for (const WireForm& source : {wire12, wire11}) {
        for (const std::string name : {"ref", "href"}) {
            const Converted done(source, "<a c:" + name + "=\"x\"><b>1</b></a>");
            EXPECT_EQ(done.losses, Losses{"attribute c:" + name + " of a: kept as it is"});
            EXPECT_TRUE(done.has("c:" + name + "=\"x\"")) << done.wire;
            EXPECT_EQ(textOf(child(bodyEntry(done.again), "b")), "1");
        }
    }
}

TEST(TzSoapVersionConverterMeaning, AttributesOfHeaderAndBodyMakeNoReference) {
    TzSoapMessage message = readMessage(
        wire11.envelope("<e:Header ref=\"1\"><h/></e:Header><e:Body ref=\"2\"/>", "ref=\"3\""));
    EXPECT_EQ(convert(message, V12), Losses{});
    EXPECT_EQ(message.getSoapBody().findAttribute(TzXmlName("ref"))->getValue(), "2");
}

// Attributes of the other version.

TEST(TzSoapVersionConverterMeaning, AnArrayTypeThatSaidNothingMakesNoArray) {
    const Converted foreign(wire12, "<l oc:arrayType=\"xsd:int[x]\"><i>1</i></l>", other11);
    EXPECT_EQ(foreign.losses, Losses{"attribute oc:arrayType of l: left out"});
    EXPECT_EQ(textOf(child(bodyEntry(foreign.again), "i")), "1") << foreign.wire;
    const Converted own(wire12, "<l c:arrayType=\"xsd:int[x]\"><i>1</i></l>");
    EXPECT_EQ(own.losses, Losses{"attribute c:arrayType of l: left out"});
    EXPECT_EQ(textOf(child(bodyEntry(own.again), "i")), "1") << own.wire;
}

TEST(TzSoapVersionConverterMeaning, AnItemTypeThatSaidNothingMakesNoArray) {
    for (const std::string attributes :
         {"oc:itemType=\"x\"", "oc:arraySize=\"y\"", "c:itemType=\"x\"", "c:arraySize=\"y\""}) {
        const Converted done(wire11, "<l " + attributes + "><i>1</i></l>", other12);
        EXPECT_EQ(done.losses, Losses{"attribute " + attributes.substr(0, attributes.find('=')) +
                                      " of l: left out"});
        EXPECT_EQ(textOf(child(bodyEntry(done.again), "i")), "1") << done.wire;
    }
}

TEST(TzSoapVersionConverterMeaning, HeadersDoNotBeginToBeMandatoryOrSomebodyElses) {
    TzSoapMessage message = readMessage(wire11.envelope(
        "<e:Header><a oe:mustUnderstand=\"1\"/><b oe:role=\"urn:x\"/><c e:role=\"urn:x\"/>"
        "</e:Header>",
        other12));
    EXPECT_EQ(convert(message, V12),
              (Losses{"attribute oe:mustUnderstand of a: left out",
                      "attribute oe:role of b: left out", "attribute e:role of c: left out"}));
    const TzSoapMessage again = readMessage(message.asString());
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_FALSE(headerEntry(again, i).getMustUnderstand());
        EXPECT_EQ(headerEntry(again, i).getActorAttribute(), "");
    }
}

TEST(TzSoapVersionConverterMeaning, WhatKeepsSayingNothingMovesSilently) {
    const Converted done(wire11, "<a c:encodingStyle=\"urn:x\" e:position=\"[1]\" c:own=\"1\"/>");
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("c:encodingStyle=\"urn:x\" e:position=\"[1]\" c:own=\"1\"")) << done.wire;
}

TEST(TzSoapVersionConverterMeaning, TheOffsetOfAnElementStays) {
    for (const TzSoapVersion::Version version : {V12, V11}) {
        TzSoapMessage message(version == V12 ? V11 : V12);
        TzSoapType value(TzXmlName("a"));
        TzSoapSimpleType simpleValue("b", "1", TzSoapContentBase::xsdInt, false);
        message.getSoapBody().appendEntry(simpleValue);
        TzSoapElementImp& element = TzSoapAccess::body(simpleValue);
        element.setOffsetAttribute("[2]");
        EXPECT_EQ(convert(message, version), Losses{});
        EXPECT_EQ(readMessage(message.asString()).getVersion(), version);
        EXPECT_NE(message.asString().find("offset=\""), std::string::npos);
    }
}

TEST(TzSoapVersionConverterMeaning, AnEntryDoesNotBecomeTheFault) {
    const Converted done(wire12, "<oe:Fault><faultcode>oe:Server</faultcode></oe:Fault>", other11);
    EXPECT_EQ(done.losses,
              Losses{"element oe:Fault of " + wire11.envelopeUri() + ": became Fault"});
    EXPECT_FALSE(done.again.getSoapBody().hasSoapFault()) << done.wire;
    EXPECT_EQ(textOf(child(bodyEntry(done.again), "faultcode")), "oe:Server");
}

// Sharing and rings.

TEST(TzSoapVersionConverterMeaning, AValueWithinItselfIsRewrittenOnce) {
    TzSoapMessage message(V11);
    TzSoapCompositeType value(TzXmlName("a", TzXmlNamespace("c", wire11.style())));
    value.appendChild(value);
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(convert(message, V12), Losses{});
    EXPECT_EQ(value.getName().getUri(), wire12.style());
    value.clearChildren();
}

TEST(TzSoapVersionConverterMeaning, SharedValuesAreRewrittenOnce) {
    // Thirty levels, each of which holds the next one twice, and a loss at the end.
    TzSoapCompositeType value(TzXmlName("a"));
    value.addAttribute(TzXmlName("ref"), "x");
    for (int level = 0; level < 30; ++level) {
        TzSoapCompositeType around(TzXmlName("a"));
        around.appendChild(value);
        around.appendChild(value);
        value = around;
    }
    TzSoapMessage message(V11);
    message.getSoapBody().appendEntry(value);
    message.getSoapHeader().appendHeaderEntry(value, false);
    EXPECT_EQ(convert(message, V12), Losses{"attribute ref of a: became ref1"});
}

TEST(TzSoapVersionConverterMeaning, ARingThatWasReadEndsWithoutItsIds) {
    TzSoapMessage message =
        readMessage(wire11.body("<a id=\"1\"><b " + wire11.ref("2") + "/></a><c id=\"2\"><d " +
                                wire11.ref("1") + "/></c>"));
    bodyEntry(message, 0).removeIdAttribute();
    bodyEntry(message, 1).removeIdAttribute();
    EXPECT_EQ(convert(message, V12), Losses{});
    EXPECT_EQ(message.getVersion(), V12);
}

TEST(TzSoapVersionConverterMeaning, AnEntryInTwoPlacesStatesTheStyleOfEach) {
    TzSoapMessage message(V11);
    message.getSoapHeader().setEncodingStyle("urn:header");
    TzSoapCompositeType shared(TzXmlName("a"));
    shared.appendChild(TzSoapType(TzXmlName("b")));
    message.getSoapHeader().appendHeaderEntry(shared, false);
    message.getSoapBody().appendEntry(shared);
    message.getSoapBody().appendEntry(shared);
    EXPECT_EQ(convert(message, V12), Losses{});
    EXPECT_EQ(headerEntry(message).getEncodingStyleAttribute(), "urn:header");
    EXPECT_EQ(bodyEntry(message, 0).getEncodingStyleAttribute(), "");
    EXPECT_EQ(bodyEntry(message, 1).getEncodingStyleAttribute(), "");
    EXPECT_TRUE(sameValue(child(bodyEntry(message), "b"), child(headerEntry(message), "b")));
}

TEST(TzSoapVersionConverterMeaning, PlaceholdersAreLeftAlone) {
    TzSoapMessage message(V11);
    message.getSoapBody().setEncodingStyle("urn:own");
    message.getSoapBody().appendEntry(TzSoapDefaultType());
    EXPECT_EQ(convert(message, V12), Losses{});
    EXPECT_EQ(message.getVersion(), V12);
}

// Growth.

namespace {

/// A chain of arrays of arrays under a prefix of `length` characters for the encoding.
std::string nestedArrays(const std::string& prefix, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "<a q:arrayType=\"x[][1]\" xmlns:q=\"" + wire11.style() + "\"/>";
    }
    return wire11.envelope("<e:Body>" + text + "</e:Body>",
                           "xmlns:" + prefix + "=\"" + wire11.style() + "\"");
}

std::size_t bytesToConvert(TzSoapMessage message, TzSoapVersion::Version version) {
    const std::size_t before = askedBytes();
    convert(message, version);
    return askedBytes() - before;
}

} // namespace

TEST(TzSoapVersionConverterMeaning, ALongPrefixIsNotRepeatedInEachArray) {
    const std::string prefix(60000, 'p');
    std::string text = nestedArrays("p", 1000);
    TzSoapMessage usual = readMessage(text);
    TzSoapMessage message = readMessage(nestedArrays("p", 1000));
    message.removeNamespaceAttribute("c");
    message.removeNamespaceAttribute("p");
    message.addNamespaceAttribute(prefix, wire11.style());
    EXPECT_LT(bytesToConvert(message, V12), bytesToConvert(usual, V12) + 10 * prefix.size());
    EXPECT_EQ(message.getSoapEncodingPrefix(), "enc");
    EXPECT_LT(message.asString().size(), usual.asString().size() + 3 * prefix.size());
}

TEST(TzSoapVersionConverterMeaning, LossesDoNotRepeatWhatIsLong) {
    const TzCString name(10000, 'n');
    TzSoapMessage message(V11);
    TzSoapType value{TzXmlName(name)};
    value.addAttribute(TzXmlName("ref"), "x");
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(convert(message, V12),
              Losses{"attribute ref of " + name.substr(0, 128) + "...: became ref1"});
}

TEST(TzSoapVersionConverterMeaning, LossesAreCutBetweenCharacters) {
    TzCString name = TzCString(127, 'n') + "\xE2\x82\xAC" + "more";
    TzSoapMessage message(V11);
    TzSoapType value{TzXmlName(name)};
    value.addAttribute(TzXmlName("ref"), "x");
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(convert(message, V12),
              Losses{"attribute ref of " + name.substr(0, 127) + "...: became ref1"});
}

// Failures.

namespace {

/// A message with something of all that is rewritten.
TzSoapMessage messageOfEverything(TzSoapVersion::Version version) {
    const WireForm wire(version);
    const bool early = version == V11;
    const std::string fault =
        early ? "<e:Fault><faultcode>e:Client.Bad</faultcode><detail><d "
                "c:x=\"1\"/></detail></e:Fault>"
              : "<e:Fault><e:Code><e:Value>e:Sender</e:Value><e:Subcode><e:Value>c:Bad</e:Value>"
                "</e:Subcode></e:Code><e:Role>urn:r</e:Role><e:Detail><d c:x=\"1\"/></e:Detail>"
                "</e:Fault>";
    const std::string header =
        "<h e:mustUnderstand=\"1\" xmlns=\"http://www.w3.org/2002/06/soap-rpc\"/>"
        "<f:Misunderstood xmlns:f=\"http://www.w3.org/2002/06/soap-faults\" "
        "qname=\"e:x\"/>";
    const std::string entries =
        "<a " + wire.array("x:int[]", "2") + "><i " + wire.position("1") + "/></a><b " +
        (early ? "ref" : "c:ref") + "=\"x\" id=\"b\"><r " + wire.ref("b") + "/></b>" +
        "<c:s xsi:type=\"c:int\" c:" + (early ? "itemType" : "arrayType") + "=\"x\">1</c:s>";
    return readMessage(wire.envelope("<e:Header e:encodingStyle=\"urn:h\">" + header +
                                         "</e:Header><e:Body>" + fault + entries + "</e:Body>",
                                     "e:encodingStyle=\"" + wire.style() + " urn:x\""));
}

} // namespace

TEST(TzSoapVersionConverterMeaning, AConversionThatFailsChangesNothing) {
    for (const auto& [from, to] : {std::pair(V11, V12), std::pair(V12, V11)}) {
        TzSoapMessage done = messageOfEverything(from);
        const Losses losses = convert(done, to);
        TzSoapMessage message = messageOfEverything(from);
        const std::string before = message.asString();
        std::size_t failures = 0;
        for (bool failed = true; failed;) {
            Losses found;
            {
                const AllocationFailure failure(++failures);
                try {
                    found = convert(message, to);
                    failed = false;
                } catch (const std::bad_alloc&) {
                }
            }
            if (failed) {
                ASSERT_EQ(message.getVersion(), from) << failures;
                ASSERT_EQ(message.asString(), before) << failures;
            } else {
                EXPECT_EQ(found, losses);
            }
        }
        EXPECT_GT(failures, 50U);
        EXPECT_EQ(message.asString(), done.asString());
    }
}

TEST(TzSoapVersionConverterMeaning, AMemberWithoutABodyIsRefusedBeforeAnythingChanges) {
    TzSoapType none(TzXmlName("x"));
    const TzSoapType taken = std::move(none);
    TzSoapCompositeType value(TzXmlName("a", TzXmlNamespace("c", wire11.style())));
    value.appendChild(none); // NOLINT(bugprone-use-after-move): wanted without a body
    TzSoapMessage message(V11);
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { convert(message, V12); }), "Invalid pointer");
    EXPECT_EQ(message.getVersion(), V11);
    EXPECT_EQ(value.getName().getUri(), wire11.style());
}
