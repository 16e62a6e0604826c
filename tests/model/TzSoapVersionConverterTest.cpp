// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersionConverter.h>

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Losses = std::vector<TzCString>;

const std::string env11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string enc11 = "http://schemas.xmlsoap.org/soap/encoding/";
const std::string env12 = "http://www.w3.org/2002/06/soap-envelope";
const std::string enc12 = "http://www.w3.org/2002/06/soap-encoding";

/// A text in which S and E stand for the version's namespaces.
std::string envelope(const std::string& envUri, const std::string& encUri, const std::string& parts,
                     const std::string& attributes = {}) {
    return "<S:Envelope xmlns:S=\"" + envUri + "\" xmlns:E=\"" + encUri + "\"" + attributes + ">" +
           parts + "</S:Envelope>";
}

std::string in11(const std::string& body, const std::string& attributes = {}) {
    return envelope(env11, enc11, "<S:Body>" + body + "</S:Body>", attributes);
}

std::string in12(const std::string& body) {
    return envelope(env12, enc12, "<S:Body>" + body + "</S:Body>");
}

/// A text read and rewritten for another version.
struct Converted {
    Converted(const std::string& text, TzSoapVersion::Version version) {
        message.extract(text);
        losses = TzSoapVersionConverter(version).convert(message);
        wire = message.asString();
    }

    bool has(const std::string& text) const { return wire.find(text) != std::string::npos; }

    TzSoapMessage message;
    Losses losses;
    std::string wire;
};

Converted to12(const std::string& text) { return {text, TzSoapVersion::V1_2}; }
Converted to11(const std::string& text) { return {text, TzSoapVersion::V1_1}; }

TzXmlName enc(const std::string& localName, const std::string& uri) {
    return {localName, TzXmlNamespace("E", uri)};
}

} // namespace

TEST(TzSoapVersionConverter, RefusesWhatIsNoVersion) {
    expectCatalogued<TzXmlError>(
        [] { TzSoapVersionConverter(static_cast<TzSoapVersion::Version>(3)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_1).getVersion(), TzSoapVersion::V1_1);
}

TEST(TzSoapVersionConverter, LeavesAMessageOfTheVersionAlone) {
    TzSoapMessage message;
    message.extract(in11("<a S:encodingStyle=\"urn:x\" href=\"#none\"/>"));
    const std::string before = message.asString();
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_1).convert(message), Losses{});
    EXPECT_EQ(message.asString(), before);
}

TEST(TzSoapVersionConverter, WritesTheOtherVersion) {
    const Converted done = to12(envelope(
        env11, enc11,
        "<S:Header><t xmlns=\"urn:t\" S:mustUnderstand=\"1\" S:actor=\"urn:gate\">5</t></S:Header>"
        "<S:Body><a E:root=\"0\"><b>1</b></a></S:Body>",
        " S:encodingStyle=\"" + enc11 + "\""));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_EQ(done.wire, "<S:Envelope xmlns:S=\"" + env12 + "\" xmlns:E=\"" + enc12 +
                             "\">\n"
                             "  <S:Header>\n"
                             "    <t xmlns=\"urn:t\" S:encodingStyle=\"" +
                             enc12 +
                             "\" S:mustUnderstand=\"true\" S:role=\"urn:gate\">5</t>\n"
                             "  </S:Header>\n"
                             "  <S:Body>\n"
                             "    <a S:encodingStyle=\"" +
                             enc12 +
                             "\" E:root=\"0\">\n"
                             "      <b>1</b>\n"
                             "    </a>\n"
                             "  </S:Body>\n"
                             "</S:Envelope>\n");
    const Converted back = to11(done.wire);
    EXPECT_EQ(back.losses, Losses{});
    EXPECT_TRUE(back.has("<t xmlns=\"urn:t\" S:encodingStyle=\"" + enc11 +
                         "\" S:mustUnderstand=\"1\" S:actor=\"urn:gate\">5</t>"));
}

TEST(TzSoapVersionConverter, TakesThePrefixesOfTheVersionWhereNoneIsDeclared) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(message.getSoapPrefix(), "env");
    EXPECT_EQ(message.getSoapEncodingPrefix(), "enc");
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_1).convert(message), Losses{});
    EXPECT_EQ(message.getSoapPrefix(), "SOAP-ENV");
    EXPECT_EQ(message.getSoapEncodingPrefix(), "SOAP-ENC");
}

TEST(TzSoapVersionConverter, ReadsEnvelopesUnderADefaultNamespace) {
    const Converted done =
        to12("<Envelope xmlns=\"" + env11 + "\"><Body><a xmlns=\"urn:a\">1</a></Body></Envelope>");
    TzSoapMessage again;
    again.extract(done.wire);
    EXPECT_EQ(again.getVersion(), TzSoapVersion::V1_2);
    EXPECT_NE(again.getSoapBody().findEntry(TzXmlName("a", TzXmlNamespace("", "urn:a"))),
              again.getSoapBody().entriesEnd());
}

TEST(TzSoapVersionConverter, MovesNamesTypesAndDeclarations) {
    const Converted done =
        to12(in11("<E:int E:own=\"x\">1</E:int><a xmlns:xsi="
                  "\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:q=\"" +
                  enc11 + "\" xsi:type=\"q:string\" q:own=\"y\" o=\"" + enc11 + "\">q:x</a>"));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("<E:int S:encodingStyle=\"" + enc12 + "\" E:own=\"x\">")) << done.wire;
    const auto entry = done.message.getSoapBody().findEntry("a");
    EXPECT_EQ(entry->getType(), enc("string", enc12));
    EXPECT_EQ(entry->getTypeAttribute(), "q:string");
    EXPECT_TRUE(entry->hasAttribute(enc("own", enc12)));
    EXPECT_EQ(entry->findAttribute(TzXmlName("o"))->getValue(), enc11);
    EXPECT_TRUE(done.has("xmlns:q=\"" + enc12 + "\"")) << done.wire;
}

TEST(TzSoapVersionConverter, ForeignStylesStayWithTheirEntries) {
    const Converted done =
        to12(envelope(env11, enc11,
                      "<S:Header><h/></S:Header>"
                      "<S:Body S:encodingStyle=\"urn:body\"><a/><b S:encodingStyle=\"" +
                          enc11 + "\"/></S:Body>",
                      " S:encodingStyle=\"urn:envelope\""));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("<S:Envelope xmlns:S=\"" + env12 + "\" xmlns:E=\"" + enc12 + "\">"))
        << done.wire;
    EXPECT_TRUE(done.has("<S:Body>")) << done.wire;
    EXPECT_EQ(done.message.getSoapHeader().entriesBegin()->getEncodingStyleAttribute(),
              "urn:envelope");
    EXPECT_EQ(done.message.getSoapBody().findEntry("a")->getEncodingStyleAttribute(), "urn:body");
    EXPECT_EQ(done.message.getSoapBody().findEntry("b")->getEncodingStyleAttribute(), enc12);
}

TEST(TzSoapVersionConverter, EveryStyleOfAListIsLookedAt) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapSimpleType value("a", "1", TzSoapContentBase::xsdInt, false);
    value.setEncodingStyle("urn:x  " + enc11 + "\turn:y");
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(value.getEncodingStyleAttribute(), "urn:x " + enc12 + " urn:y");
}

TEST(TzSoapVersionConverter, RolesThatSoapDefinesChange) {
    const auto role = [](const Converted& done) {
        return done.message.getSoapHeader().entriesBegin()->getActorAttribute();
    };
    const auto header11 = [](const std::string& actor) {
        return envelope(env11, enc11, "<S:Header><h S:actor=\"" + actor + "\"/></S:Header>");
    };
    const auto header12 = [](const std::string& suffix) {
        return envelope(env12, enc12,
                        "<S:Header><h S:role=\"" + env12 + "/role/" + suffix + "\"/></S:Header>");
    };
    EXPECT_EQ(role(to12(header11(env11 + "actor/next"))), env12 + "/role/next");
    EXPECT_EQ(role(to12(header11("http://schemas.xmlsoap.org/soap/actor/next"))),
              env12 + "/role/next");
    EXPECT_EQ(role(to12(header11("urn:own"))), "urn:own");
    EXPECT_EQ(role(to12(header11(""))), "");
    EXPECT_EQ(role(to11(header12("next"))), env11 + "actor/next");
    const Converted ultimate = to11(header12("ultimateReceiver"));
    EXPECT_EQ(role(ultimate), "");
    EXPECT_EQ(ultimate.losses, Losses{});
    const Converted none = to11(header12("none"));
    EXPECT_EQ(role(none), env12 + "/role/none");
    EXPECT_EQ(none.losses, Losses{"role " + env12 + "/role/none of h: kept as it is"});
}

TEST(TzSoapVersionConverter, ArraysTakeTheOtherForm) {
    const Converted done = to12(in11("<a E:arrayType=\"x:int[2,3]\" E:offset=\"[0,1]\"><i>1</i></a>"
                                     "<b E:arrayType=\"x:int[9]\"><i E:position=\"[4]\">1</i></b>"
                                     "<c E:arrayType=\"x:int[]\"><i>1</i></c>"
                                     "<d><i E:position=\"[1]\">2</i></d>")); // not in an array
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("E:itemType=\"x:int\" E:arraySize=\"2 3\" E:offset=\"0 1\"")) << done.wire;
    EXPECT_TRUE(done.has("<i E:position=\"4\">1</i>")) << done.wire;
    EXPECT_TRUE(done.has("E:itemType=\"x:int\" E:arraySize=\"*\"")) << done.wire;
    EXPECT_TRUE(done.has("<i E:position=\"1\">2</i>")) << done.wire;
    const Converted back = to11(done.wire);
    EXPECT_TRUE(back.has("E:arrayType=\"x:int[2,3]\" E:offset=\"[0,1]\"")) << back.wire;
    EXPECT_TRUE(back.has("<i E:position=\"[4]\">1</i>")) << back.wire;
    EXPECT_TRUE(back.has("E:arrayType=\"x:int[]\"")) << back.wire;
    EXPECT_TRUE(back.has("<i E:position=\"[1]\">2</i>")) << back.wire;
}

TEST(TzSoapVersionConverter, ItemsOfArraysOfArraysAreArrays) {
    const Converted done = to12(in11("<a E:arrayType=\"x:int[,][2]\"/>"));
    EXPECT_TRUE(done.has("E:itemType=\"E:Array\" E:arraySize=\"2\"")) << done.wire;
    EXPECT_EQ(done.losses, Losses{"item type x:int[,] of a: became E:Array"});
}

TEST(TzSoapVersionConverter, PositionsWithoutAnItemStayEmpty) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapCompactArrayType array("a", "x:int", 4, 0);
    array[1U] = TzSoapSimpleType(enc("i", enc11), "1", TzSoapContentBase::xsdInt, false);
    array[2U] = TzSoapType(enc("g", enc11));
    message.getSoapBody().appendEntry(array);
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(array[1U].getName().getUri(), enc12);
    EXPECT_EQ(array[2U].getName().getUri(), enc12);
}

TEST(TzSoapVersionConverter, AttributesWithoutACounterpartAreNamed) {
    const Converted done = to12(in11("<a E:arrayType=\"x:int[2]\" href=\"#none\" S:odd=\"1\"/>"));
    EXPECT_EQ(done.losses, Losses{"attribute E:arrayType of a: left out"});
    EXPECT_TRUE(done.has("<a S:odd=\"1\" ref=\"#none\"/>")) << done.wire;
    EXPECT_EQ(to11(in12("<a E:itemType=\"x:int\" href=\"#n\"/>")).losses,
              Losses{"attribute E:itemType of a: left out"});
}

TEST(TzSoapVersionConverter, ReferencesStayReferences) {
    const Converted done =
        to12(in11("<a href=\"#n\"/><b id=\"n\"><self href=\"#n\"/></b><c href=\"#no\"/>"
                  "<d href=\"cid:x\"/>"));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("<a ref=\"#n\"/>")) << done.wire;
    EXPECT_TRUE(done.has("<self ref=\"#n\"/>")) << done.wire;
    EXPECT_TRUE(done.has("<c ref=\"#no\"/>")) << done.wire;
    EXPECT_TRUE(done.has("<d href=\"cid:x\"/>")) << done.wire;
    const Converted back = to11(done.wire);
    EXPECT_TRUE(back.has("<a href=\"#n\"/>")) << back.wire;
    EXPECT_TRUE(back.has("<self href=\"#n\"/>")) << back.wire;
    EXPECT_TRUE(back.has("<c href=\"#no\"/>")) << back.wire;
    EXPECT_TRUE(back.has("<d href=\"cid:x\"/>")) << back.wire;
}

TEST(TzSoapVersionConverter, TargetsOutsideOfTheMessageAreRewritten) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapCompositeType target(enc("struct", enc11));
    target.setIdAttribute("n");
    TzSoapReferenceType ring(TzXmlName("self"), target);
    target.appendChild(ring);
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), target));
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(target.getName().getUri(), enc12);
    target.clearChildren(); // the ring would never be freed
}

TEST(TzSoapVersionConverter, AttachmentsStay) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p"));
    part.setBody("bytes");
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), part));
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    TzSoapMessage again;
    again.extract(message.asString());
    EXPECT_EQ(again.getVersion(), TzSoapVersion::V1_2);
    const auto reference = tzSoapCast<TzSoapReferenceType>(*again.getSoapBody().findEntry("a"));
    ASSERT_TRUE(reference && reference->hasReference());
    EXPECT_EQ(reference->getMimeReference().getBody(), "bytes");
}

TEST(TzSoapVersionConverter, MarkupOfTheApplicationStaysAndIsNamed) {
    const std::string own = " S:encodingStyle=\"urn:own\"";
    const Converted done = to12(
        envelope(env11, enc11,
                 "<S:Header><h" + own + " S:actor=\"urn:gate\"/></S:Header><S:Body><a" + own +
                     "><b>1</b></a><c" + own + " xmlns:q=\"" + enc11 + "\"><q:d/></c></S:Body>"));
    EXPECT_EQ(done.message.getSoapBody().findEntry("a")->getSoapTypeId(),
              TzSoapContentBase::UserDefined);
    EXPECT_EQ(done.losses, (Losses{"markup of h: kept as it is", "markup of c: kept as it is"}));
    EXPECT_TRUE(done.has("<q:d ></q:d></c>")) << done.wire;
}

TEST(TzSoapVersionConverter, ElementsThatSoap11DoesNotKnowAreNamed) {
    const std::string rpc = "http://www.w3.org/2002/06/soap-rpc";
    const Converted done =
        to11(envelope(env12, enc12,
                      "<S:Header><f:Misunderstood "
                      "xmlns:f=\"http://www.w3.org/2002/06/soap-faults\" xmlns:h=\"urn:h\" "
                      "qname=\"h:x\"/><h/></S:Header><S:Body><a xmlns:r=\"" +
                          rpc + "\"><r:result>1</r:result></a></S:Body>"));
    EXPECT_EQ(done.losses, (Losses{"header entry f:Misunderstood: left out",
                                   "element r:result of " + rpc + ": kept as it is"}));
    EXPECT_EQ(done.message.getSoapHeader().entryCount(), 1U);
    EXPECT_EQ(done.message.getSoapHeader().entriesBegin()->getName(), TzXmlName("h"));
}

TEST(TzSoapVersionConverter, LossesAreInTheOrderOfTheMessage) {
    const auto array = [](const std::string& name, const std::string& content) {
        return "<" + name + " E:arrayType=\"x:" + name + "[][1]\">" + content + "</" + name + ">";
    };
    const Converted done = to12(in11(array("a", array("b", "") + array("c", "")) + array("d", "")));
    ASSERT_EQ(done.losses.size(), 4U);
    EXPECT_EQ(done.losses[0], "item type x:a[] of a: became E:Array");
    EXPECT_EQ(done.losses[1], "item type x:b[] of b: became E:Array");
    EXPECT_EQ(done.losses[2], "item type x:c[] of c: became E:Array");
    EXPECT_EQ(done.losses[3], "item type x:d[] of d: became E:Array");
}

TEST(TzSoapVersionConverter, DepthDoesNotMatter) {
    TzSoapCompositeType outer("a");
    TzSoapCompositeType inner = outer;
    for (int i = 0; i < 200000; ++i) {
        TzSoapCompositeType next("a");
        inner.appendChild(next);
        inner = next;
    }
    inner.appendChild(TzSoapSimpleType(enc("s", enc11), "x", TzSoapContentBase::xsdString, false));
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(outer);
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(inner.childrenBegin()->getName().getUri(), enc12);
}

namespace {

std::string fault11(const std::string& code, const std::string& rest = {}) {
    return in11("<S:Fault><faultcode>" + code + "</faultcode><faultstring>why</faultstring>" +
                    rest + "</S:Fault>",
                " xmlns:m=\"urn:m\"");
}

std::string fault12(const std::string& code, const std::string& rest = {}) {
    return in12("<S:Fault xmlns:m=\"urn:m\"><S:Code>" + code + "</S:Code><S:Reason>why</S:Reason>" +
                rest + "</S:Fault>");
}

std::string value(const std::string& name) { return "<S:Value>" + name + "</S:Value>"; }

std::string subcode(const std::string& content) { return "<S:Subcode>" + content + "</S:Subcode>"; }

const TzSoapFault& faultOf(const Converted& done) {
    return done.message.getSoapBody().getSoapFault();
}

} // namespace

TEST(TzSoapVersionConverterFault, TakesTheFormOfSoap12) {
    const Converted done =
        to12(fault11("S:Client", "<faultactor>urn:node</faultactor><detail><m:a>1</m:a></detail>"));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("    <S:Fault>\n"
                         "      <S:Code>\n"
                         "        <S:Value>S:Sender</S:Value>\n"
                         "      </S:Code>\n"
                         "      <S:Reason>why</S:Reason>\n"
                         "      <S:Node>urn:node</S:Node>\n"
                         "      <S:Detail S:encodingStyle=\"" +
                         enc12 +
                         "\">\n"
                         "        <m:a>1</m:a>\n"
                         "      </S:Detail>\n"
                         "    </S:Fault>\n"))
        << done.wire;
}

TEST(TzSoapVersionConverterFault, TakesTheFormOfSoap11) {
    const Converted done = to11(
        fault12(value("S:Receiver"), "<S:Node>urn:node</S:Node><S:Detail><m:a>1</m:a></S:Detail>"));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_TRUE(done.has("    <S:Fault>\n"
                         "      <faultcode>S:Server</faultcode>\n"
                         "      <faultstring>why</faultstring>\n"
                         "      <faultactor>urn:node</faultactor>\n"
                         "      <detail S:encodingStyle=\"" +
                         enc11 +
                         "\">\n"
                         "        <m:a xmlns:m=\"urn:m\">1</m:a>\n"
                         "      </detail>\n"
                         "    </S:Fault>\n"))
        << done.wire;
}

TEST(TzSoapVersionConverterFault, TranslatesTheCodes) {
    const auto code12 = [](const std::string& code) {
        return faultOf(to12(fault11(code))).getCode().asString();
    };
    EXPECT_EQ(code12("S:Client"), "S:Sender");
    EXPECT_EQ(code12("S:Server"), "S:Receiver");
    EXPECT_EQ(code12("S:MustUnderstand"), "S:MustUnderstand");
    EXPECT_EQ(code12("S:VersionMismatch"), "S:VersionMismatch");
    EXPECT_EQ(faultOf(to12(fault11("S:Client"))).getCode().getUri(), env12);
    const auto code11 = [](const std::string& code) {
        return faultOf(to11(fault12(value(code)))).getCode().asString();
    };
    EXPECT_EQ(code11("S:Sender"), "S:Client");
    EXPECT_EQ(code11("S:Receiver"), "S:Server");
    EXPECT_EQ(code11("S:MustUnderstand"), "S:MustUnderstand");
    EXPECT_EQ(code11("S:VersionMismatch"), "S:VersionMismatch");
    EXPECT_EQ(faultOf(to11(fault12(value("S:Sender")))).getCode().getUri(), env11);
}

TEST(TzSoapVersionConverterFault, WhiteSpaceAroundCodesIsNoPartOfThem) {
    const Converted done = to12(fault11("\n S:Client.Bad\n"));
    EXPECT_EQ(faultOf(done).getCode().asString(), "S:Sender");
    EXPECT_EQ(faultOf(done).getSubcode(0), TzXmlName("Bad"));
    EXPECT_EQ(done.losses, Losses{});
    const Converted back = to11(fault12(value("\tS:Sender ") + subcode(value(" Bad "))));
    EXPECT_TRUE(back.has("<faultcode>S:Client.Bad</faultcode>")) << back.wire;
    EXPECT_EQ(back.losses, Losses{});
}

TEST(TzSoapVersionConverterFault, CodesThatSoap11LacksQualifyAnother) {
    const Converted done = to11(fault12(value("S:DTDNotSupported")));
    EXPECT_TRUE(done.has("<faultcode>S:Client.DTDNotSupported</faultcode>")) << done.wire;
    EXPECT_EQ(done.losses, Losses{"fault code S:DTDNotSupported: became a subcode of S:Client"});
}

TEST(TzSoapVersionConverterFault, CodesOfTheApplicationBecomeSubcodes) {
    const Converted done = to12(fault11("m:Own.Sub"));
    EXPECT_EQ(faultOf(done).getCode().asString(), "S:Receiver");
    ASSERT_EQ(faultOf(done).getSubcodeCount(), 2U);
    EXPECT_EQ(faultOf(done).getSubcode(0), TzXmlName("Own", TzXmlNamespace("m", "urn:m")));
    EXPECT_EQ(faultOf(done).getSubcode(1), TzXmlName("Sub"));
    EXPECT_EQ(done.losses, Losses{"fault code m:Own: became a subcode of S:Receiver"});
    const Converted kept = to11(fault12(value("m:Own")));
    EXPECT_EQ(faultOf(kept).getCode(), TzXmlName("Own", TzXmlNamespace("m", "urn:m")));
    EXPECT_EQ(kept.losses, Losses{});
}

TEST(TzSoapVersionConverterFault, QualifiersAndSubcodesAreTheSame) {
    const Converted done = to12(fault11("S:Client.Bad.Worse"));
    EXPECT_EQ(done.losses, Losses{});
    EXPECT_EQ(faultOf(done).getCode().asString(), "S:Sender");
    ASSERT_EQ(faultOf(done).getSubcodeCount(), 2U);
    EXPECT_EQ(faultOf(done).getSubcode(0), TzXmlName("Bad"));
    EXPECT_EQ(faultOf(done).getSubcode(1), TzXmlName("Worse"));
    const Converted back = to11(done.wire);
    EXPECT_EQ(back.losses, Losses{});
    EXPECT_TRUE(back.has("<faultcode>S:Client.Bad.Worse</faultcode>")) << back.wire;
}

TEST(TzSoapVersionConverterFault, WhatSoap11CannotSayIsNamed) {
    const Converted done =
        to11(fault12(value("S:Sender") + subcode(value("m:Bad") + subcode(value("E:MissingID"))),
                     "<S:Role>urn:role</S:Role>"));
    EXPECT_TRUE(done.has("<faultcode>S:Client.Bad.MissingID</faultcode>")) << done.wire;
    EXPECT_EQ(done.losses,
              (Losses{"namespace urn:m of the fault subcode m:Bad: left out",
                      "namespace " + enc11 + " of the fault subcode E:MissingID: left out",
                      "fault role urn:role: left out"}));
    EXPECT_EQ(faultOf(done).getRole(), "");
}

TEST(TzSoapVersionConverterFault, SubcodesMoveToTheNamespacesOfTheVersion) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapFault fault = message.getSoapBody().getSoapFault();
    fault.setCode(
        TzSoapVersion::getSoapVersion(TzSoapVersion::V1_1).getFaultCode(TzSoapVersion::Client));
    fault.addSubcode(enc("x", enc11));
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message), Losses{});
    EXPECT_EQ(fault.getSubcode(0), enc("x", enc12));
    EXPECT_EQ(fault.getCode().asString(), "env:Sender");
}

TEST(TzSoapVersionConverterFault, DetailKeepsTheStyleOfTheBody) {
    const Converted done =
        to12(envelope(env11, enc11,
                      "<S:Body S:encodingStyle=\"urn:own\"><S:Fault><faultcode>S:Client</faultcode>"
                      "<detail><a/></detail></S:Fault></S:Body>"));
    EXPECT_EQ(faultOf(done).getDetails().getEncodingStyleAttribute(), "urn:own");
}
