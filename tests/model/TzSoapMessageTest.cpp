// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapTypeRegistry.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using V = TzSoapVersion;

const V::Version both[] = {V::V1_1, V::V1_2};

const std::string uri11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string uri12 = "http://www.w3.org/2002/06/soap-envelope";

TEST(TzSoapMessage, NewMessageIsOfTheLatestVersion) {
    const TzSoapMessage message;
    EXPECT_EQ(message.getVersion(), V::V1_2);
    EXPECT_EQ(message.getName().getQualifiedName(), "env:Envelope");
    EXPECT_EQ(message.getName().getUri(), uri12);
    EXPECT_EQ(TzSoapMessage::EnvelopeLabel, "Envelope");
    EXPECT_TRUE((std::is_same_v<decltype(TzSoapMessage::EnvelopeLabel), const TzCString>));
}

TEST(TzSoapMessage, NewMessageIsNamedByItsVersionAndEmpty) {
    for (const V::Version version : both) {
        TzSoapMessage message(version);
        const TzXmlNamespace& envelope = V::getSoapVersion(version).getSoapEnv();
        EXPECT_EQ(message.getVersion(), version);
        EXPECT_EQ(&message.getSoapVersion(), &V::getSoapVersion(version));
        EXPECT_EQ(message.getName().getLocalName(), "Envelope");
        EXPECT_EQ(message.getName().getNamespace(), envelope);
        EXPECT_EQ(message.getSoapHeader().getName().getNamespace(), envelope);
        EXPECT_EQ(message.getSoapBody().getName().getNamespace(), envelope);
        EXPECT_EQ(message.getSoapBody().getSoapFault().getName().getNamespace(), envelope);
        EXPECT_EQ(message.getSoapHeader().entryCount(), 0u);
        EXPECT_EQ(message.getSoapBody().entryCount(), 0u);
        EXPECT_FALSE(message.getSoapBody().hasSoapFault());
        EXPECT_EQ(message.attributeCount(), 0u);
        EXPECT_FALSE(message.hasEncodingStyleAttribute());
        EXPECT_FALSE(message.hasProlog());
        EXPECT_FALSE(message.hasAttachments());
        EXPECT_TRUE(message.getTypeRegistry().empty());
    }
}

TEST(TzSoapMessage, UnknownVersionIsRefused) {
    expectCatalogued<TzXmlError>(
        [] { TzSoapMessage message(static_cast<V::Version>(3)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapMessage, TypeNamesTheEnvelopeNamespace) {
    EXPECT_EQ(TzSoapMessage().getMessageType(),
              "SOAPMessage:http://www.w3.org/2002/06/soap-envelope");
    EXPECT_EQ(TzSoapMessage(V::V1_1).getMessageType(),
              "SOAPMessage:http://schemas.xmlsoap.org/soap/envelope/");
    TzSoapMessage prefixed;
    prefixed.setSoapPrefix("x");
    EXPECT_EQ(prefixed.getMessageType(), "SOAPMessage:http://www.w3.org/2002/06/soap-envelope");
}

TEST(TzSoapMessage, NewMessagesHaveThePrefixesOfTheirVersion) {
    EXPECT_EQ(TzSoapMessage(V::V1_1).getSoapPrefix(), "SOAP-ENV");
    EXPECT_EQ(TzSoapMessage(V::V1_1).getSoapEncodingPrefix(), "SOAP-ENC");
    EXPECT_EQ(TzSoapMessage(V::V1_2).getSoapPrefix(), "env");
    EXPECT_EQ(TzSoapMessage(V::V1_2).getSoapEncodingPrefix(), "enc");
}

TEST(TzSoapMessage, SoapPrefixIsThatOfTheEnvelopeName) {
    TzSoapMessage message(V::V1_1);
    message.setSoapPrefix("soap");
    EXPECT_EQ(message.getSoapPrefix(), "soap");
    EXPECT_EQ(message.getName().getQualifiedName(), "soap:Envelope");
    EXPECT_EQ(message.getName().getUri(), uri11);
    message.setSoapEncodingPrefix("e");
    EXPECT_EQ(message.getSoapEncodingPrefix(), "e");
    EXPECT_EQ(message.getSoapPrefix(), "soap");
}

TEST(TzSoapMessage, PrologIsAbsentPresentAndAbsentAgain) {
    TzSoapMessage message;
    EXPECT_FALSE(message.hasProlog());
    EXPECT_EQ(message.getProlog(), TzXmlProlog());
    TzXmlProlog prolog("1.0", "ISO-8859-1");
    message.setProlog(prolog);
    prolog.setEncoding("US-ASCII");
    EXPECT_TRUE(message.hasProlog());
    EXPECT_EQ(message.getProlog().getEncoding(), "ISO-8859-1");
    message.removeProlog();
    EXPECT_FALSE(message.hasProlog());
    EXPECT_EQ(message.getProlog(), TzXmlProlog());
}

TEST(TzSoapMessage, TypeRegistryIsItsOwn) {
    TzSoapMessage message;
    TzSoapTypeRegistry registry;
    registry.registerType(TzXmlName("a"), TzXmlName("t"));
    message.setTypeRegistry(registry);
    registry.registerType(TzXmlName("b"), TzXmlName("u"));
    EXPECT_TRUE(message.getTypeRegistry().typeExists(TzXmlName("a")));
    EXPECT_FALSE(message.getTypeRegistry().typeExists(TzXmlName("b")));
    message.getTypeRegistry().registerType(TzXmlName("c"), TzXmlName("v"));
    EXPECT_TRUE(std::as_const(message).getTypeRegistry().typeExists(TzXmlName("c")));
}

TEST(TzSoapMessage, ReadLimitsAreKept) {
    TzSoapMessage message;
    EXPECT_EQ(message.getReadLimits().depth, TzSoapReadLimits().depth);
    EXPECT_EQ(message.getReadLimits().attributes, TzSoapReadLimits().attributes);
    EXPECT_EQ(message.getReadLimits().unfilledArrayPositions, 1048576u);
    message.setReadLimits({.depth = 5, .attributes = 6, .unfilledArrayPositions = 7});
    EXPECT_EQ(message.getReadLimits().depth, 5u);
    EXPECT_EQ(message.getReadLimits().attributes, 6u);
    EXPECT_EQ(message.getReadLimits().unfilledArrayPositions, 7u);
}

TEST(TzSoapMessage, ElementOperationsReachTheEnvelope) {
    TzSoapMessage message;
    message.setEncodingStyle("urn:style");
    message.addNamespaceAttribute("p", "urn:p");
    message.addAttribute(TzXmlName("x"), "1");
    EXPECT_EQ(message.getEncodingStyleAttribute(), "urn:style");
    EXPECT_EQ(message.attributeCount(), 2u);
    EXPECT_NE(message.findNamespaceAttribute("p"), message.attributesEnd());
    EXPECT_EQ(message.getSoapHeader().attributeCount(), 0u);
    EXPECT_EQ(message.getSoapBody().attributeCount(), 0u);
    message.removeEncodingStyleAttribute();
    EXPECT_FALSE(message.hasEncodingStyleAttribute());
}

TEST(TzSoapMessage, SetVersionRenamesAllThatDependsOnIt) {
    for (const V::Version from : both) {
        const V::Version to = from == V::V1_1 ? V::V1_2 : V::V1_1;
        TzSoapMessage message(from);
        const TzCString encodingPrefix = message.getSoapEncodingPrefix();
        const TzXmlNamespace& envelope = V::getSoapVersion(to).getSoapEnv();
        message.setSoapPrefix("mine");
        const TzXmlName entry("a", V::getSoapVersion(from).getSoapEnv());
        message.getSoapHeader().appendHeaderEntry(TzSoapType(entry), true);
        message.setVersion(to);
        EXPECT_EQ(message.getVersion(), to);
        EXPECT_EQ(&message.getSoapVersion(), &V::getSoapVersion(to));
        EXPECT_EQ(message.getName().getNamespace(), envelope);
        EXPECT_EQ(message.getSoapPrefix(), envelope.getPrefix());
        EXPECT_EQ(message.getSoapEncodingPrefix(), encodingPrefix);
        EXPECT_EQ(message.getSoapHeader().getName().getNamespace(), envelope);
        EXPECT_EQ(TzSoapAccess::body(message.getSoapHeader()).getVersion(), to);
        EXPECT_EQ(message.getSoapBody().getName().getNamespace(), envelope);
        EXPECT_EQ(TzSoapAccess::body(message.getSoapBody()).getVersion(), to);
        const TzSoapFault& fault = message.getSoapBody().getSoapFault();
        EXPECT_EQ(fault.getName().getNamespace(), envelope);
        EXPECT_EQ(TzSoapAccess::body(fault).getVersion(), to);
        EXPECT_EQ(std::as_const(*message.getSoapHeader().entriesBegin()).getName(), entry);
    }
}

TEST(TzSoapMessage, SettingAnUnknownVersionChangesNothing) {
    TzSoapMessage message(V::V1_1);
    expectCatalogued<TzXmlError>(
        [&] { message.setVersion(static_cast<V::Version>(0)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
    EXPECT_EQ(message.getVersion(), V::V1_1);
    EXPECT_EQ(message.getName().getUri(), uri11);
    EXPECT_EQ(message.getSoapBody().getName().getUri(), uri11);
}

TEST(TzSoapMessage, HeaderAndBodyAreSharedWithTheirHandles) {
    TzSoapMessage message;
    TzSoapHeader header = message.getSoapHeader();
    TzSoapBody body = message.getSoapBody();
    header.appendHeaderEntry(named("h"), true);
    body.appendEntry(named("b"));
    EXPECT_EQ(message.getSoapHeader().entryCount(), 1u);
    EXPECT_EQ(std::as_const(message).getSoapHeader().entryCount(), 1u);
    EXPECT_EQ(message.getSoapBody().entryCount(), 1u);
    EXPECT_EQ(std::as_const(message).getSoapBody().entryCount(), 1u);
}

TEST(TzSoapMessage, CopyingTheHandleShares) {
    TzSoapMessage message;
    TzSoapMessage shared = message;
    TzSoapMessage assigned(V::V1_1);
    assigned = message;
    message.getSoapBody().appendEntry(named("a"));
    message.setVersion(V::V1_1);
    EXPECT_EQ(shared.getSoapBody().entryCount(), 1u);
    EXPECT_EQ(assigned.getVersion(), V::V1_1);
}

/// A message with something of everything that a copy must have.
TzSoapMessage fullMessage() {
    TzSoapMessage message(V::V1_1);
    message.setSoapPrefix("s");
    message.setSoapEncodingPrefix("e");
    message.setEncodingStyle("urn:style");
    message.addNamespaceAttribute("p", "urn:p");
    message.setProlog(TzXmlProlog("1.0", "US-ASCII"));
    message.getTypeRegistry().registerType(TzXmlName("a"), TzXmlName("t"));
    message.setReadLimits({.depth = 5});
    message.getSoapHeader().appendHeaderEntry(named("h"), true, "urn:actor");
    message.getSoapBody().appendEntry(named("b"));
    message.getSoapBody().getSoapFault().setCode(TzXmlName("code"));
    message.getSoapBody().getSoapFault().addSubcode(TzXmlName("sub"));
    return message;
}

TEST(TzSoapMessage, CopyHasEverythingAndSharesNothing) {
    TzSoapMessage message = fullMessage();
    TzSoapMessage own = message.copy();
    EXPECT_EQ(own.getVersion(), V::V1_1);
    EXPECT_EQ(own.getSoapPrefix(), "s");
    EXPECT_EQ(own.getSoapEncodingPrefix(), "e");
    EXPECT_EQ(own.getEncodingStyleAttribute(), "urn:style");
    EXPECT_NE(own.findNamespaceAttribute("p"), own.attributesEnd());
    EXPECT_TRUE(own.hasProlog());
    EXPECT_EQ(own.getProlog().getEncoding(), "US-ASCII");
    EXPECT_TRUE(own.getTypeRegistry().typeExists(TzXmlName("a")));
    EXPECT_EQ(own.getReadLimits().depth, 5u);
    EXPECT_EQ(own.getSoapHeader().entriesBegin()->getActorAttribute(), "urn:actor");
    EXPECT_EQ(own.getSoapBody().getSoapFault().getCode(), TzXmlName("code"));
    EXPECT_EQ(own.getSoapBody().getSoapFault().getSubcodeCount(), 0u);

    own.setVersion(V::V1_2);
    own.removeProlog();
    own.getTypeRegistry().registerType(TzXmlName("b"), TzXmlName("t"));
    own.getSoapHeader().entriesBegin()->setMustUnderstand(false);
    own.getSoapHeader().clearHeaderEntries();
    own.getSoapBody().appendEntry(named("c"));
    own.getSoapBody().getSoapFault().clear();
    EXPECT_EQ(message.getVersion(), V::V1_1);
    EXPECT_TRUE(message.hasProlog());
    EXPECT_FALSE(message.getTypeRegistry().typeExists(TzXmlName("b")));
    EXPECT_TRUE(message.getSoapHeader().entriesBegin()->getMustUnderstand());
    EXPECT_EQ(message.getSoapBody().entryCount(), 1u);
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
}

TEST(TzSoapMessage, ClearEmptiesInPlace) {
    TzSoapMessage message = fullMessage();
    TzSoapHeader header = message.getSoapHeader();
    TzSoapBody body = message.getSoapBody();
    TzSoapFault fault = body.getSoapFault();
    TzSoapAccess::body(message).clear();
    EXPECT_EQ(message.attributeCount(), 0u);
    EXPECT_FALSE(message.hasEncodingStyleAttribute());
    EXPECT_FALSE(message.hasProlog());
    EXPECT_EQ(header.entryCount(), 0u);
    EXPECT_EQ(body.entryCount(), 0u);
    EXPECT_FALSE(body.hasSoapFault());
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
    EXPECT_EQ(message.getVersion(), V::V1_1);
    EXPECT_EQ(TzSoapAccess::body(fault).getVersion(), V::V1_1);
    EXPECT_EQ(message.getName().getQualifiedName(), "s:Envelope");
    EXPECT_EQ(message.getSoapEncodingPrefix(), "e");
    EXPECT_TRUE(message.getTypeRegistry().typeExists(TzXmlName("a")));
    EXPECT_EQ(message.getReadLimits().depth, 5u);
}

TEST(TzSoapMessage, ExtractReplacesTheContentInPlace) {
    TzSoapMessage message = fullMessage();
    message.getSoapBody().getSoapFault().clear();
    TzSoapHeader header = message.getSoapHeader();
    TzSoapBody body = message.getSoapBody();
    message.extract("<E:Envelope xmlns:E=\"" + uri12 + "\"><E:Body><x/></E:Body></E:Envelope>");
    EXPECT_EQ(message.getVersion(), V::V1_2);
    EXPECT_EQ(message.getSoapPrefix(), "E");
    EXPECT_EQ(message.getSoapEncodingPrefix(), "e");
    EXPECT_EQ(header.entryCount(), 0u);
    EXPECT_EQ(namesOf(body.entriesBegin(), body.entriesEnd()), "x");
    EXPECT_EQ(body.getSoapFault().getSubcodeCount(), 0u);
    EXPECT_EQ(TzSoapAccess::body(body.getSoapFault()).getVersion(), V::V1_2);
    EXPECT_FALSE(message.hasProlog());
    EXPECT_TRUE(message.getTypeRegistry().typeExists(TzXmlName("a")));
}

TEST(TzSoapMessage, PrefixesThatNothingDeclaresAreNoError) {
    for (const V::Version version : {V::V1_1, V::V1_2}) {
        TzSoapMessage message;
        message.extract("<S:Envelope xmlns:S=\"" +
                        TzSoapVersion::getSoapVersion(version).getSoapEnv().getUri() +
                        "\" a:a=\"1\"><S:Header><h:h/></S:Header>"
                        "<S:Body b:b=\"2\"><e:e c:c=\"3\">text</e:e></S:Body></S:Envelope>");
        const TzSoapType& entry = *message.getSoapBody().entriesBegin();
        EXPECT_EQ(entry.getName(), TzXmlName("e", TzXmlNamespace("e", "")));
        EXPECT_EQ(entry.getName().getPrefix(), "e");
        EXPECT_TRUE(entry.hasAttribute(TzXmlName("c", TzXmlNamespace("c", ""))));
        EXPECT_EQ((*message.getSoapHeader().entriesBegin()).getName().getUri(), "");
        const std::string text = message.asString();
        EXPECT_NE(text.find("<e:e "), std::string::npos) << text;
        message.extract(text);
        EXPECT_EQ(message.asString(), text);
    }
}

TEST(TzSoapMessage, ASecondHeaderAndASecondBodyAddToTheFirst) {
    TzSoapMessage message;
    message.extract("<E:Envelope xmlns:E=\"" + uri12 +
                    "\"><E:Header a=\"1\" b=\"1\"><h1/></E:Header><E:Body c=\"1\"><b1/></E:Body>"
                    "<E:Header a=\"2\"><h2/></E:Header><E:Body d=\"2\"><b2/></E:Body>"
                    "</E:Envelope>");
    TzSoapHeader& header = message.getSoapHeader();
    EXPECT_EQ(namesOf(header.entriesBegin(), header.entriesEnd()), "h1 h2");
    EXPECT_TRUE(header.hasAttribute(TzXmlAttribute("a", "2")));
    EXPECT_TRUE(header.hasAttribute(TzXmlAttribute("b", "1")));
    TzSoapBody& body = message.getSoapBody();
    EXPECT_EQ(namesOf(body.entriesBegin(), body.entriesEnd()), "b1 b2");
    EXPECT_TRUE(body.hasAttribute(TzXmlName("c")));
    EXPECT_TRUE(body.hasAttribute(TzXmlName("d")));
}

TEST(TzSoapMessage, HeaderAndBodyTakeTheirNamesAttributesAndStyleFromTheText) {
    TzSoapMessage message;
    message.extract("<E:Envelope xmlns:E=\"" + uri11 + "\"><H:Header xmlns:H=\"" + uri11 +
                    "\" H:encodingStyle=\"urn:header\" x=\"1\"/>"
                    "<E:Body E:encodingStyle=\"\" y=\"2\"/></E:Envelope>");
    const TzSoapHeader& header = message.getSoapHeader();
    EXPECT_EQ(header.getName().getQualifiedName(), "H:Header");
    EXPECT_EQ(header.getEncodingStyleAttribute(), "urn:header");
    EXPECT_FALSE(header.hasAttribute(V::getSoapAttributeName(V::EncodingStyle, V::V1_1)));
    EXPECT_TRUE(header.hasAttribute(TzXmlAttribute("x", "1")));
    EXPECT_NE(header.findNamespaceAttribute("H"), header.attributesEnd());
    const TzSoapBody& body = message.getSoapBody();
    EXPECT_FALSE(body.hasEncodingStyleAttribute());
    EXPECT_TRUE(
        body.hasAttribute(TzXmlAttribute(V::getSoapAttributeName(V::EncodingStyle, V::V1_1), "")));
    EXPECT_TRUE(body.hasAttribute(TzXmlAttribute("y", "2")));
}

TEST(TzSoapMessage, StyleAndPrefixesOfTheHeaderEndWithIt) {
    TzSoapMessage message;
    message.extract("<E:Envelope xmlns:E=\"" + uri11 +
                    "\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">"
                    "<E:Header E:encodingStyle=\"urn:header\" xmlns:p=\"urn:p\"><h/></E:Header>"
                    "<E:Body><b xsi:type=\"p:t\">1</b></E:Body></E:Envelope>");
    EXPECT_EQ(message.getSoapHeader().entriesBegin()->getSoapTypeId(),
              TzSoapContentBase::UserDefined);
    const TzSoapType& entry = *message.getSoapBody().entriesBegin();
    EXPECT_EQ(entry.getSoapTypeId(), TzSoapContentBase::Simple);
    EXPECT_EQ(entry.getType().getUri(), "");
}

TEST(TzSoapMessage, AnEmptyStyleOfTheBodyIsInForce) {
    TzSoapMessage message;
    message.extract("<E:Envelope xmlns:E=\"" + uri11 +
                    "\" E:encodingStyle=\"urn:other\"><E:Header><h/></E:Header>"
                    "<E:Body E:encodingStyle=\"\"><b>1</b></E:Body></E:Envelope>");
    EXPECT_EQ(message.getSoapHeader().entriesBegin()->getSoapTypeId(),
              TzSoapContentBase::UserDefined);
    EXPECT_EQ(message.getSoapBody().entriesBegin()->getSoapTypeId(), TzSoapContentBase::Simple);
}

TEST(TzSoapMessage, FlagsOfHeaderEntriesAreThoseOfTheText) {
    TzSoapMessage message;
    message.extract("<E:Envelope xmlns:E=\"" + uri11 +
                    "\"><E:Header><a E:mustUnderstand=\"1\" E:actor=\"urn:actor\"/><b/>"
                    "<c E:mustUnderstand=\"0\"/></E:Header></E:Envelope>");
    auto entry = message.getSoapHeader().entriesBegin();
    EXPECT_EQ(entry->getMustUnderstandAttribute(), "true");
    EXPECT_EQ(entry->getActorAttribute(), "urn:actor");
    ++entry;
    EXPECT_EQ(entry->getMustUnderstandAttribute(), "");
    EXPECT_EQ(entry->getActorAttribute(), "");
    ++entry;
    EXPECT_EQ(entry->getMustUnderstandAttribute(), "false");
}

TEST(TzSoapMessage, EveryOperationWithoutABodyIsRefused) {
    TzSoapMessage none;
    const TzSoapMessage taken = std::move(none);
    const TzSoapMessage& constant = none; // NOLINT(bugprone-use-after-move): wanted without a body
    TzMimeMultipart package;
    const std::function<void()> actions[] = {
        [&] { constant.getVersion(); },
        [&] { constant.getSoapVersion(); },
        [&] { none.setVersion(V::V1_1); },
        [&] { none.getSoapHeader(); },
        [&] { constant.getSoapHeader(); },
        [&] { none.getSoapBody(); },
        [&] { constant.getSoapBody(); },
        [&] { constant.getName(); },
        [&] { none.setSoapPrefix("a"); },
        [&] { constant.getSoapPrefix(); },
        [&] { none.setSoapEncodingPrefix("a"); },
        [&] { constant.getSoapEncodingPrefix(); },
        [&] { none.setProlog(TzXmlProlog()); },
        [&] { constant.getProlog(); },
        [&] { constant.hasProlog(); },
        [&] { none.removeProlog(); },
        [&] { none.declareTypeNamespaces(); },
        [&] { none.setTypeRegistry(TzSoapTypeRegistry()); },
        [&] { none.getTypeRegistry(); },
        [&] { constant.getTypeRegistry(); },
        [&] { none.setReadLimits({}); },
        [&] { constant.getReadLimits(); },
        [&] { none.setEncodingStyle("urn:style"); },
        [&] { constant.copy(); },
        [&] { constant.asString(); },
        [&] { constant.getMessageType(); },
        [&] { constant.hasAttachments(); },
        [&] { none.extract(package); },
        [&] { none.extract(TzCString("<a/>")); },
        [&] { constant.asMimeMultipart(); },
        [&] { constant.asMimeMultipart(package); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
}

} // namespace
