// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/Named.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/mime/TzMimeTextType.h>
#include <tz/mime/TzMimeVersionHeader.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string uri11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string envelope =
    "<S:Envelope xmlns:S=\"" + uri11 + "\"><S:Body><a>text</a></S:Body></S:Envelope>";

/// A part with that id and body; text/plain.
TzMimePart part(const char* id, const char* body) {
    TzMimePart result;
    result.insertHeader(TzMimeContentTypeHeader(TzMimeTextType("plain", "")));
    result.insertHeader(TzMimeContentIdHeader(id));
    result.setBody(TzCString(body));
    return result;
}

/// A SOAP 1.1 message with one reference to a part for each id.
TzSoapMessage messageWith(std::initializer_list<const char*> ids) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    for (const char* id : ids) {
        message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("ref"), part(id, "bytes")));
    }
    return message;
}

/// The value of the first header `label`, "(none)" without one.
std::string header(const TzMimePart& part, const char* label) {
    const std::size_t position = part.findHeader(label);
    return position == TzMimePart::NotFound ? "(none)" : part.getHeader(position).getValue();
}

TzMimeMultipartRelatedType typeOf(const TzMimeMultipart& package) {
    return TzMimeMultipartRelatedType(
        TzMimeContentTypeHeader(package.getHeader(package.findHeader("Content-Type")))
            .getContentType());
}

/// A package with that content type and parts.
TzMimeMultipart packageOf(const TzMimeMultipartRelatedType& type,
                          std::initializer_list<TzMimePart> parts) {
    TzMimeMultipart package;
    package.insertHeader(TzMimeContentTypeHeader(type));
    for (const TzMimePart& each : parts) {
        package.insertPart(each);
    }
    return package;
}

/// A message of a program that signs its packages and makes one for every call.
class SignedMessage : public TzSoapMessage {
public:
    explicit SignedMessage(bool packed) : packed_(packed) {}
    bool hasAttachments() const override { return packed_; }
    TzMimeMultipart asMimeMultipart() const override {
        TzMimeMultipart package;
        package.insertHeader(TzMimeHeader("X-Signature", "signed"));
        return TzSoapMessage::asMimeMultipart(package);
    }

private:
    bool packed_;
};

std::string entries(const TzSoapMessage& message) {
    const TzSoapBody& body = message.getSoapBody();
    return namesOf(body.entriesBegin(), body.entriesEnd());
}

TEST(TzSoapMessageMime, AMessageWithoutAttachmentsIsPlainXml) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(named("a"));
    EXPECT_FALSE(message.hasAttachments());
    EXPECT_EQ(message.asString().find("MIME"), std::string::npos);
    EXPECT_EQ(message.asString().rfind("<SOAP-ENV:Envelope", 0), 0u);
}

TEST(TzSoapMessageMime, AReferenceWithoutATargetIsNoAttachment) {
    TzSoapMessage message;
    message.getSoapBody().appendEntry(TzSoapReferenceType(false));
    EXPECT_FALSE(message.hasAttachments());
}

TEST(TzSoapMessageMime, AttachmentsAreFoundInDetailAndArray) {
    const TzSoapReferenceType reference(TzXmlName("ref"), part("p1", "x"));
    TzSoapMessage inDetail;
    inDetail.getSoapBody().getSoapFault().setCode(TzXmlName("code"));
    inDetail.getSoapBody().getSoapFault().addDetailEntry("d", reference);
    EXPECT_TRUE(inDetail.hasAttachments());
    TzSoapMessage inArray;
    TzSoapSparseArrayType array("ref", 5);
    array[2] = reference;
    inArray.getSoapBody().appendEntry(array);
    EXPECT_TRUE(inArray.hasAttachments());
    TzSoapMessage inHeader;
    inHeader.getSoapHeader().appendHeaderEntry(reference, true);
    EXPECT_TRUE(inHeader.hasAttachments());
}

TEST(TzSoapMessageMime, AttachmentsInWhatIsNotWrittenMakeAPackageAllTheSame) {
    const TzSoapReferenceType reference(TzXmlName("ref"), part("p1", "x"));
    const auto textOf = [](const TzSoapType& entry) {
        TzSoapMessage message;
        message.getSoapBody().appendEntry(entry);
        EXPECT_TRUE(message.hasAttachments());
        return message.asString();
    };
    TzSoapCompositeType nil{TzXmlName("nil")};
    nil.appendChild(reference);
    nil.setNull(true);
    EXPECT_EQ(textOf(nil), [&nil] {
        TzSoapMessage message;
        message.getSoapBody().appendEntry(nil);
        return message.asMimeMultipart().asString();
    }());
    TzSoapCompactArrayType behindTheOffset(TzXmlName("a"), "ref", 5u, 0u);
    behindTheOffset(0u) = reference;
    behindTheOffset(3u) = named("b");
    behindTheOffset.setOffset(TzCString("[2]"));
    EXPECT_EQ(textOf(behindTheOffset).rfind("MIME-Version", 0), 0u);
    TzSoapSparseArrayType counted("ref", 5);
    counted[1] = named("a");
    counted[2] = reference;
    counted.setCountElementsToWrite(1);
    EXPECT_EQ(textOf(counted).rfind("MIME-Version", 0), 0u);
}

TEST(TzSoapMessageMime, AttachmentsOfValuesReferredToAloneMakeNoPackage) {
    TzSoapCompositeType target{TzXmlName("target")};
    target.setIdAttribute("t");
    target.appendChild(TzSoapReferenceType(TzXmlName("ref"), part("p1", "x")));
    TzSoapMessage message;
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("to"), target));
    EXPECT_FALSE(message.hasAttachments());
    EXPECT_EQ(message.asString().rfind("<env:Envelope", 0), 0u);
}

TEST(TzSoapMessageMime, ADerivedMessageDecidesAboutItsPackage) {
    const SignedMessage packed(true);
    EXPECT_EQ(packed.asString().rfind("X-Signature: signed\r\nContent-Type: multipart/related", 0),
              0u);
    EXPECT_EQ(packed.asString(), packed.asMimeMultipart().asString());
    const TzSoapReferenceType reference(TzXmlName("ref"), part("p1", "x"));
    SignedMessage plain(false);
    plain.getSoapBody().appendEntry(reference);
    EXPECT_EQ(plain.asString().rfind("<env:Envelope", 0), 0u);
    SignedMessage both(true);
    both.getSoapBody().appendEntry(reference);
    EXPECT_EQ(both.asString(), both.asMimeMultipart().asString());
}

TEST(TzSoapMessageMime, ThePackageOfAMessageWithoutAttachmentsHoldsItsRootOnly) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(named("a"));
    const TzMimeMultipart package = message.asMimeMultipart();
    ASSERT_EQ(package.getPartCount(), 1u);
    EXPECT_EQ(package.getPart(0).getBody(), message.asString());
}

TEST(TzSoapMessageMime, ThePackageDescribesItself) {
    const TzMimeMultipart package = messageWith({"p1"}).asMimeMultipart();
    ASSERT_EQ(package.getHeaderCount(), 2u);
    EXPECT_EQ(package.getHeader(0).asString(), "MIME-Version: 1.0");
    EXPECT_EQ(package.getHeader(1).getLabel(), "Content-Type");
    const TzMimeMultipartRelatedType type = typeOf(package);
    EXPECT_TRUE(type.matches("multipart", "related"));
    EXPECT_EQ(type.getBoundary(), "MIME_boundary");
    EXPECT_EQ(type.getType(), "text/xml");
    EXPECT_EQ(type.getStart(), "<soap.xml@mime.representation>");
    EXPECT_EQ(type.getStartInfo(), "");
}

TEST(TzSoapMessageMime, TheRootPartDescribesItself) {
    const TzMimePart root = messageWith({"p1"}).asMimeMultipart().getPart(0);
    ASSERT_EQ(root.getHeaderCount(), 2u);
    const TzMimeTextType type(TzMimeContentTypeHeader(root.getHeader(0)).getContentType());
    EXPECT_TRUE(type.matches("text", "xml"));
    EXPECT_EQ(type.getCharset(), "UTF-8");
    EXPECT_EQ(root.getHeader(1).asString(), "Content-ID: <soap.xml@mime.representation>");
}

TEST(TzSoapMessageMime, TheTextOfAPackage) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(
        TzSoapReferenceType(TzXmlName("ref"), part("p1", "the bytes")));
    const std::string root = message.asMimeMultipart().getPart(0).getBody();
    EXPECT_EQ(message.asString(),
              "MIME-Version: 1.0\r\n"
              "Content-Type: multipart/related; boundary=\"MIME_boundary\"; type=\"text/xml\"; "
              "start=\"<soap.xml@mime.representation>\"\r\n"
              "\r\n"
              "--MIME_boundary\r\n"
              "Content-Type: text/xml; charset=\"UTF-8\"\r\n"
              "Content-ID: <soap.xml@mime.representation>\r\n"
              "\r\n" +
                  root +
                  "\r\n"
                  "--MIME_boundary\r\n"
                  "Content-Type: text/plain\r\n"
                  "Content-ID: <p1>\r\n"
                  "\r\n"
                  "the bytes\r\n"
                  "--MIME_boundary--\r\n");
    EXPECT_NE(root.find("<ref href=\"cid:p1\"/>"), std::string::npos);
}

TEST(TzSoapMessageMime, AttachmentsFollowInTheOrderOfTheirReferences) {
    TzSoapMessage message = messageWith({"p1", "p2"});
    message.getSoapHeader().appendHeaderEntry(
        TzSoapReferenceType(TzXmlName("ref"), part("p0", "x")), true);
    const TzMimeMultipart package = message.asMimeMultipart();
    ASSERT_EQ(package.getPartCount(), 4u);
    EXPECT_EQ(header(package.getPart(0), "Content-ID"), "<soap.xml@mime.representation>");
    EXPECT_EQ(header(package.getPart(1), "Content-ID"), "<p0>");
    EXPECT_EQ(header(package.getPart(2), "Content-ID"), "<p1>");
    EXPECT_EQ(header(package.getPart(3), "Content-ID"), "<p2>");
}

TEST(TzSoapMessageMime, APartReferredToTwiceTravelsTwice) {
    const TzMimePart shared = part("p1", "x");
    TzSoapMessage message;
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), shared));
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("b"), shared));
    EXPECT_EQ(message.asMimeMultipart().getPartCount(), 3u);
}

TEST(TzSoapMessageMime, BoundaryAndStartOfTheCallerAreKept) {
    TzMimeMultipart package =
        packageOf(TzMimeMultipartRelatedType("", "text/plain", "<root-part-id>", "xyz"), {});
    const TzMimeMultipart returned = messageWith({"p1"}).asMimeMultipart(package);
    const TzMimeMultipartRelatedType type = typeOf(package);
    EXPECT_EQ(type.getBoundary(), "xyz");
    EXPECT_EQ(type.getType(), "text/xml");
    EXPECT_EQ(type.getStart(), "<root-part-id>");
    ASSERT_EQ(package.getPartCount(), 2u);
    EXPECT_EQ(header(package.getPart(0), "Content-ID"), "<root-part-id>");
    EXPECT_EQ(package.findHeader("MIME-Version"), TzMimePart::NotFound);
    EXPECT_EQ(returned.getPartCount(), 2u);
}

TEST(TzSoapMessageMime, WhatTheCallersTypeLacksIsFilledIn) {
    TzMimeMultipart package = packageOf(TzMimeMultipartRelatedType("", "", "", ""), {});
    TzSoapMessage().asMimeMultipart(package);
    const TzMimeMultipartRelatedType type = typeOf(package);
    EXPECT_EQ(type.getBoundary(), "MIME_boundary");
    EXPECT_EQ(type.getType(), "text/xml");
    EXPECT_EQ(type.getStart(), "<soap.xml@mime.representation>");
    EXPECT_EQ(header(package.getPart(0), "Content-ID"), "<soap.xml@mime.representation>");
}

TEST(TzSoapMessageMime, AnEmptyPackageOfTheCallerGetsAContentTypeOnly) {
    TzMimeMultipart package;
    TzSoapMessage().asMimeMultipart(package);
    ASSERT_EQ(package.getHeaderCount(), 1u);
    EXPECT_EQ(package.getHeader(0).asString(),
              "Content-Type: multipart/related; boundary=\"MIME_boundary\"; type=\"text/xml\"; "
              "start=\"<soap.xml@mime.representation>\"");
}

TEST(TzSoapMessageMime, AnyContentTypeOfTheCallerIsKeptAndCompleted) {
    TzMimeMultipart package;
    package.insertHeader(TzMimeHeader("X-Own", "1"));
    package.insertHeader(TzMimeHeader("content-type", "multipart/mixed; boundary=xyz; type=a"));
    TzSoapMessage().asMimeMultipart(package);
    ASSERT_EQ(package.getHeaderCount(), 2u);
    EXPECT_TRUE(typeOf(package).matches("multipart", "mixed"));
    EXPECT_EQ(typeOf(package).getBoundary(), "xyz");
    EXPECT_EQ(typeOf(package).getType(), "text/xml");
    EXPECT_EQ(typeOf(package).getStart(), "<soap.xml@mime.representation>");
    EXPECT_EQ(package.asString().rfind("X-Own: 1\r\ncontent-type: multipart/mixed; ", 0), 0u);
}

TEST(TzSoapMessageMime, APackageFilledTwiceBeginsWithTheLaterRoot) {
    TzMimeMultipart package;
    TzSoapMessage(TzSoapVersion::V1_1).asMimeMultipart(package);
    TzSoapMessage(TzSoapVersion::V1_2).asMimeMultipart(package);
    EXPECT_EQ(package.getHeaderCount(), 1u);
    ASSERT_EQ(package.getPartCount(), 2u);
    EXPECT_EQ(package.getPart(0).getBody().rfind("<env:Envelope", 0), 0u);
    EXPECT_EQ(package.getPart(1).getBody().rfind("<SOAP-ENV:Envelope", 0), 0u);
}

TEST(TzSoapMessageMime, PartsOfTheCallerStandBetweenRootAndAttachments) {
    TzMimeMultipart package;
    package.insertPart(part("mine", "x"));
    messageWith({"p1"}).asMimeMultipart(package);
    ASSERT_EQ(package.getPartCount(), 3u);
    EXPECT_EQ(header(package.getPart(0), "Content-ID"), "<soap.xml@mime.representation>");
    EXPECT_EQ(header(package.getPart(1), "Content-ID"), "<mine>");
    EXPECT_EQ(header(package.getPart(2), "Content-ID"), "<p1>");
}

TEST(TzSoapMessageMime, AnErrorOfWritingLeavesTheAttachmentsMetBefore) {
    TzSoapMessage message = messageWith({"p1"});
    message.getSoapBody().appendEntry(
        TzSoapSimpleType("bad", "\x01", TzSoapContentBase::xsdString, true));
    TzMimeMultipart package;
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { message.asMimeMultipart(package); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    ASSERT_EQ(package.getPartCount(), 1u);
    EXPECT_EQ(header(package.getPart(0), "Content-ID"), "<p1>");
    EXPECT_EQ(package.getHeaderCount(), 0u);
}

TEST(TzSoapMessageMime, TheRootIsThePartThatTheStartNames) {
    TzSoapMessage message;
    message.extract(packageOf(TzMimeMultipartRelatedType("", "text/xml", "<root>", "b"),
                              {part("other", "no xml"), part("root", envelope.c_str())}));
    EXPECT_EQ(message.getVersion(), TzSoapVersion::V1_1);
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, WithoutAStartTheRootIsTheFirstPart) {
    TzSoapMessage message;
    message.extract(packageOf(TzMimeMultipartRelatedType("", "text/xml", "", "b"),
                              {part("first", envelope.c_str()), part("other", "no xml")}));
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, AnyContentTypeMakesAPackage) {
    TzMimeMultipart package;
    package.insertHeader(TzMimeHeader("content-type", "text/plain"));
    package.insertPart(part("first", envelope.c_str()));
    TzSoapMessage message;
    message.extract(package);
    EXPECT_EQ(entries(message), "a");
}

/// Expects exactly a parse error without source and position.
template <typename Action>
void expectPackageError(const Action& action, std::uint32_t id, const std::string& text) {
    expectCatalogued<TzXmlParseError>(action, id, text);
    try {
        action();
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getSource(), "");
        EXPECT_EQ(error.getLine(), 0u);
        EXPECT_EQ(error.getColumn(), 0u);
    }
}

TEST(TzSoapMessageMime, APackageWithoutContentTypeIsRefused) {
    TzMimeMultipart package;
    package.insertPart(part("first", envelope.c_str()));
    TzSoapMessage message;
    expectPackageError([&] { message.extract(package); }, 0x701D,
                       "[MIME_NOT_MULTIPART][MIME messge must be multipart/related]");
    EXPECT_FALSE(message.getMimeMultipart().hasParts());

    message.extract(packageOf(TzMimeMultipartRelatedType("", "text/xml", "", "b"),
                              {part("kept", envelope.c_str())}));
    expectPackageError([&] { message.extract(package); }, 0x701D,
                       "[MIME_NOT_MULTIPART][MIME messge must be multipart/related]");
    EXPECT_EQ(header(message.getMimeMultipart().getPart(0), "Content-ID"), "<kept>");
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, AStartThatNamesNoPartIsRefused) {
    const TzMimeMultipart package =
        packageOf(TzMimeMultipartRelatedType("", "text/xml", "<none>", "b"),
                  {part("first", envelope.c_str())});
    TzSoapMessage message;
    expectPackageError([&] { message.extract(package); }, 0x701C,
                       "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
    EXPECT_EQ(message.getMimeMultipart().getPartCount(), 1u);
}

TEST(TzSoapMessageMime, APackageWithoutPartsIsRefused) {
    const TzMimeMultipart package =
        packageOf(TzMimeMultipartRelatedType("", "text/xml", "", "b"), {});
    TzSoapMessage message;
    expectPackageError([&] { message.extract(package); }, 0x701C,
                       "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
}

TEST(TzSoapMessageMime, ErrorsOfTheEnvelopePassThrough) {
    TzSoapMessage message;
    expectCatalogued<TzXmlParseError>(
        [&] {
            message.extract(packageOf(TzMimeMultipartRelatedType("", "text/xml", "", "b"),
                                      {part("first", "no envelope")}));
        },
        0x7010, "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]");
    message.extract(envelope);
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, TheTextOfAPackageIsReadAgain) {
    TzSoapMessage sent(TzSoapVersion::V1_2);
    sent.getSoapBody().appendEntry(
        TzSoapReferenceType(TzXmlName("ref"), part("p1", "one\r\n--two")));
    TzSoapMessage received;
    received.extract(sent.asString());
    EXPECT_EQ(received.getVersion(), TzSoapVersion::V1_2);
    EXPECT_TRUE(received.hasAttachments());
    EXPECT_EQ(received.asString(), sent.asString());
    const TzSoapType& entry = *received.getSoapBody().entriesBegin();
    const auto reference = tzSoapCast<TzSoapReferenceType>(entry);
    ASSERT_TRUE(reference && reference->hasReference());
    EXPECT_EQ(reference->getMimeReference().getBody(), "one\r\n--two");
}

TEST(TzSoapMessageMime, ABareEnvelopeForgetsThePackage) {
    const TzMimeMultipart package =
        packageOf(TzMimeMultipartRelatedType("", "text/xml", "<root>", "b"),
                  {part("root", envelope.c_str()), part("p1", "x")});
    const std::string referring =
        "<S:Envelope xmlns:S=\"" + uri11 + "\"><S:Body><r href=\"cid:p1\"/></S:Body></S:Envelope>";
    TzSoapMessage message;
    message.extract(package);
    EXPECT_EQ(message.getMimeMultipart().getPartCount(), 2u);
    message.extract(referring);
    EXPECT_FALSE(message.getMimeMultipart().hasParts());
    EXPECT_FALSE(message.hasAttachments());
}

TEST(TzSoapMessageMime, TheKeptPackageIsThatOfTheCallerAndOfCopies) {
    TzMimeMultipart package = packageOf(TzMimeMultipartRelatedType("", "text/xml", "<root>", "b"),
                                        {part("root", envelope.c_str())});
    TzSoapMessage message;
    message.extract(package);
    const TzSoapMessage copy = message.copy();
    package.insertPart(part("late", "x"));
    EXPECT_EQ(message.getMimeMultipart().getPartCount(), 2u);
    EXPECT_EQ(copy.getMimeMultipart().getPartCount(), 2u);
}

TEST(TzSoapMessageMime, TheKeptPackageMayBeExtractedAgain) {
    TzSoapMessage message;
    message.extract(packageOf(TzMimeMultipartRelatedType("", "text/xml", "<root>", "b"),
                              {part("root", envelope.c_str())}));
    message.getSoapBody().clearEntries();
    message.extract(message.getMimeMultipart());
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, TextBeforeThePackageIsSkipped) {
    TzSoapMessage message;
    message.extract("POST /x HTTP/1.1\r\n"
                    "Content-Type: multipart/related; boundary=b; type=\"text/xml\"\r\n"
                    "\r\n"
                    "--b\r\n"
                    "\r\n" +
                    envelope +
                    "\r\n"
                    "--b--\r\n");
    EXPECT_EQ(entries(message), "a");
}

TEST(TzSoapMessageMime, ARootInATransferEncodingIsDecoded) {
    TzSoapMessage message;
    message.extract("Content-Type: multipart/related; boundary=b\r\n"
                    "\r\n"
                    "--b\r\n"
                    "Content-Transfer-Encoding: quoted-printable\r\n"
                    "\r\n"
                    "<S:Envelope xmlns:S=3D\"http://schemas.xmlsoap.org/soap/envelope/\">=\r\n"
                    "<S:Body><a>x</a></S:Body></S:Envelope>\r\n"
                    "--b--\r\n");
    EXPECT_EQ(entries(message), "a");
}

} // namespace
