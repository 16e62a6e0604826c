// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TzSoapMessage messageWith(TzSoapVersion::Version version, const std::string& text) {
    TzSoapMessage message(version);
    message.getSoapBody().appendEntry(
        TzSoapSimpleType("text", text, TzSoapContentBase::xsdString, false));
    return message;
}

TzSoapMessage messageWithAttachment(TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("<data>"));
    part.setBody("the bytes");
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("data"), part));
    return message;
}

TzSoapHttpTransportContext contextOf(const char* contentType) {
    TzSoapHttpTransportContext context;
    context.add("Content-Type", contentType);
    return context;
}

TzSoapHttpTransportContext contextWithAction(const char* action) {
    TzSoapHttpTransportContext context;
    context.setSoapAction(action);
    return context;
}

/// What `pack` makes of an action: the header lines.
std::string packed(const TzSoapMessage& message, TzSoapHttpTransportContext context) {
    TzSoapHttpBinding::pack(message, context);
    return context.asString();
}

std::string unpackedText(const TzSoapHttpTransportContext& context, const std::string& body) {
    TzSoapMessage message;
    TzSoapHttpBinding::unpack(context, body, message);
    return entryAs<TzSoapSimpleType>(message).getString();
}

} // namespace

TEST(TzSoapHttpBindingTest, TheLabelOfTheContentType) {
    EXPECT_EQ(TzSoapHttpBinding::getContentTypeLabel(), "Content-Type");
}

TEST(TzSoapHttpBindingTest, AnAnswerHasItsContentType) {
    const TzSoapMessage first = messageWith(TzSoapVersion::V1_1, "a");
    EXPECT_EQ(packed(first, {}), "Content-Type:text/xml; charset=utf-8\n");
    const TzSoapMessage second = messageWith(TzSoapVersion::V1_2, "a");
    EXPECT_EQ(packed(second, {}), "Content-Type:application/soap+xml; charset=utf-8\n");
    TzSoapHttpTransportContext context;
    EXPECT_EQ(TzSoapHttpBinding::pack(second, context), second.asString());
}

TEST(TzSoapHttpBindingTest, TheActionGoesWhereTheVersionHasIt) {
    const TzSoapMessage first = messageWith(TzSoapVersion::V1_1, "a");
    const TzSoapMessage second = messageWith(TzSoapVersion::V1_2, "a");
    for (const char* action : {"urn:do", "\"urn:do\"", " \"urn:do\"\r"}) {
        EXPECT_EQ(packed(first, contextWithAction(action)),
                  "Content-Type:text/xml; charset=utf-8\nSOAPAction:\"urn:do\"\n");
        EXPECT_EQ(packed(second, contextWithAction(action)),
                  "Content-Type:application/soap+xml; charset=utf-8; action=\"urn:do\"\n");
    }
    EXPECT_EQ(packed(first, contextWithAction("")),
              "Content-Type:text/xml; charset=utf-8\nSOAPAction:\"\"\n");
    EXPECT_EQ(packed(second, contextWithAction("")),
              "Content-Type:application/soap+xml; charset=utf-8\n");
}

TEST(TzSoapHttpBindingTest, APackageHasItsOwnContentType) {
    for (const TzSoapVersion::Version version : BothVersions) {
        TzSoapHttpTransportContext context = contextWithAction("urn:do");
        const std::string body = TzSoapHttpBinding::pack(messageWithAttachment(version), context);
        EXPECT_EQ(context.asString(),
                  "Content-Type:multipart/related; boundary=\"MIME_boundary\"; type=\"text/xml\"; "
                  "start=\"<soap.xml@mime.representation>\"\n"
                  "SOAPAction:\"urn:do\"\n");
        EXPECT_TRUE(body.starts_with("--MIME_boundary\r\n")) << body;
        TzSoapMessage read;
        TzSoapHttpBinding::unpack(context, body, read);
        EXPECT_EQ(read.getVersion(), version);
        const auto reference =
            tzSoapCast<TzSoapReferenceType>(*read.getSoapBody().entriesBegin()).value();
        EXPECT_EQ(reference.getMimeReference().getBody(), "the bytes");
    }
}

TEST(TzSoapHttpBindingTest, ATextThatExistsIsDescribed) {
    TzSoapHttpTransportContext first = contextWithAction("urn:do");
    TzSoapHttpBinding::describe(TzSoapVersion::V1_1, "iso-8859-1", first);
    EXPECT_EQ(first.asString(),
              "Content-Type:text/xml; charset=iso-8859-1\nSOAPAction:\"urn:do\"\n");
    TzSoapHttpTransportContext second = contextWithAction("urn:do");
    TzSoapHttpBinding::describe(TzSoapVersion::V1_2, "utf-16", second);
    EXPECT_EQ(second.asString(),
              "Content-Type:application/soap+xml; charset=utf-16; action=\"urn:do\"\n");
    EXPECT_THROW(
        TzSoapHttpBinding::describe(static_cast<TzSoapVersion::Version>(0), "utf-8", second),
        TzXmlError);
}

TEST(TzSoapHttpBindingTest, APackageThatExistsIsSentWithItsContentType) {
    TzMimeMultipart package;
    package.fromString("Content-Type: multipart/related; boundary=b\r\n\r\n"
                       "--b\r\n\r\n<a/>\r\n--b--\r\n");
    TzSoapHttpTransportContext context = contextWithAction("urn:do");
    EXPECT_EQ(TzSoapHttpBinding::pack(package, context), "--b\r\n\r\n<a/>\r\n--b--\r\n");
    EXPECT_EQ(context.asString(),
              "Content-Type:multipart/related; boundary=b\nSOAPAction:\"urn:do\"\n");
}

TEST(TzSoapHttpBindingTest, AnActionThatNoHeaderLineHoldsIsRefused) {
    for (const TzSoapVersion::Version version : BothVersions) {
        for (const char* action : {"a\r\nHost: b", "a\nb", "a\"b", "a\\", "a\x7F", "\x01"}) {
            expectCatalogued<TzXmlBadArgError>(
                [&] { packed(messageWith(version, "a"), contextWithAction(action)); }, 0x7007,
                "[INVALID_HTTP_HEADER][Http header is invalid]");
        }
    }
}

TEST(TzSoapHttpBindingTest, EnvelopesAreReadFromEveryXmlType) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    for (const char* type : {"text/xml", "TEXT/XML; charset=UTF-8", "application/soap+xml",
                             "application/xml;charset=\"utf-8\"", ""}) {
        EXPECT_EQ(unpackedText(contextOf(type), text), "a") << type;
    }
    EXPECT_EQ(unpackedText({}, text), "a");
}

TEST(TzSoapHttpBindingTest, AnEnvelopeIsNeverTakenForAPackage) {
    // "Multipart" behind "Content-Type:" before the document would otherwise make it one.
    const std::string text =
        "  Content-Type: multipart/related " + messageWith(TzSoapVersion::V1_1, "a").asString();
    EXPECT_EQ(unpackedText(contextOf("text/xml"), text), "a");
}

TEST(TzSoapHttpBindingTest, TheCharsetCountsForATextThatDoesNotStateItsOwn) {
    const std::string text = envelope(TzSoapVersion::V1_1, "<a>\xE9</a>");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=ISO-8859-1"), text), "\xC3\xA9");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=utf-8"),
                           "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + text),
              "\xC3\xA9");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=windows-1252"),
                           "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + text),
              "\xC3\xA9");
    TzSoapMessage message;
    EXPECT_THROW(TzSoapHttpBinding::unpack(contextOf("text/xml"), text, message), TzXmlParseError);
    EXPECT_THROW(TzSoapHttpBinding::unpack(contextOf("text/xml; charset=\"x'?>\""), text, message),
                 TzXmlParseError);
}

TEST(TzSoapHttpBindingTest, OtherContentTypesAreRefused) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    for (const char* type : {"text/html", "application/json", "multipart/form-data; boundary=x",
                             "xml", "text/xmlx", "/"}) {
        expectCatalogued<TzXmlParseError>([&] { unpackedText(contextOf(type), text); }, 0x7006,
                                          "[INVALID_CONTENT_TYPE][Content-Type is invalid]");
    }
}

TEST(TzSoapHttpBindingTest, ABrokenPackageIsRefused) {
    TzSoapMessage message;
    for (const char* type : {"multipart/related", "multipart/related; boundary=x",
                             "multipart/related; boundary=x; start=\"<none>\""}) {
        expectCatalogued<TzXmlParseError>(
            [&] { TzSoapHttpBinding::unpack(contextOf(type), "--y\r\n\r\n<a/>", message); }, 0x701C,
            "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
    }
}

TEST(TzSoapHttpBindingTest, TheActionOfARequest) {
    EXPECT_EQ(TzSoapHttpBinding::getAction({}), "");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction(" \"urn:do\"")), "urn:do");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction("\"\"")), "");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction("\"")), "\"");
    EXPECT_EQ(TzSoapHttpBinding::getAction(
                  contextOf("application/soap+xml; charset=utf-8; action=\"urn:do\"")),
              "urn:do");
}

TEST(TzSoapHttpBindingTest, TheVersionThatAContentTypeSpeaksFor) {
    EXPECT_EQ(TzSoapHttpBinding::getVersion({}), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("text/xml")), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("multipart/related")), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("Application/SOAP+XML; action=a")),
              TzSoapVersion::V1_2);
}

TEST(TzSoapHttpBindingTest, FaultsTravelWithStatus500) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getStatus(message), 200);
    message.getSoapBody().getSoapFault().setCode(
        message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    EXPECT_EQ(TzSoapHttpBinding::getStatus(message), 500);
}
