// SPDX-License-Identifier: MIT
#include "support/AttachedValue.h"
#include "support/CataloguedError.h"
#include "support/HttpContext.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapWriter.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlStringWriter.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TzSoapMessage messageWith(TzSoapVersion::Version version, const std::string& text) {
    TzSoapMessage message(version);
    message.getSoapBody().appendEntry(
        TzSoapSimpleType("text", text, TzSoapContentBase::xsdString, false));
    return message;
}

TzSoapHttpTransportContext contextWithAction(const char* action) {
    TzSoapHttpTransportContext context;
    context.setSoapAction(action);
    return context;
}

/// The envelope without white space between its tags.
std::string compact(const TzSoapMessage& message) {
    TzXmlStringWriter envelope;
    TzMimeMultipart parts;
    TzSoapWriter writer(&envelope, &parts);
    writer.setCompact(true);
    message.acceptVisitor(writer);
    return envelope.getString();
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

TEST(TzSoapHttpBinding, TheLabelOfTheContentType) {
    EXPECT_EQ(TzSoapHttpBinding::getContentTypeLabel(), "Content-Type");
}

TEST(TzSoapHttpBinding, AnAnswerHasItsContentType) {
    const TzSoapMessage first = messageWith(TzSoapVersion::V1_1, "a");
    EXPECT_EQ(packed(first, {}), "Content-Type:text/xml; charset=utf-8\n");
    const TzSoapMessage second = messageWith(TzSoapVersion::V1_2, "a");
    EXPECT_EQ(packed(second, {}), "Content-Type:application/soap+xml; charset=utf-8\n");
    TzSoapHttpTransportContext context;
    EXPECT_EQ(TzSoapHttpBinding::pack(second, context), compact(second));
}

TEST(TzSoapHttpBinding, TheEnvelopeHasNoWhiteSpaceBetweenItsTags) {
    TzSoapMessage message = messageWithAttachment(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(TzSoapCompositeType("empty"));
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(message, context);
    EXPECT_NE(body.find(compact(message)), std::string::npos) << body;
    EXPECT_NE(compact(message).find("></empty></SOAP-ENV:Body></SOAP-ENV:Envelope>"),
              std::string::npos)
        << compact(message);
}

TEST(TzSoapHttpBinding, TheActionGoesWhereTheVersionHasIt) {
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

TEST(TzSoapHttpBinding, APackageHasItsOwnContentType) {
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

TEST(TzSoapHttpBinding, ATextThatExistsIsDescribed) {
    TzSoapHttpTransportContext first = contextWithAction("urn:do");
    TzSoapHttpBinding::describe(TzSoapVersion::V1_1, "iso-8859-1", first);
    EXPECT_EQ(first.asString(),
              "Content-Type:text/xml; charset=iso-8859-1\nSOAPAction:\"urn:do\"\n");
    TzSoapHttpTransportContext second = contextWithAction("urn:do");
    TzSoapHttpBinding::describe(TzSoapVersion::V1_2, "utf-16", second);
    EXPECT_EQ(second.asString(),
              "Content-Type:application/soap+xml; charset=utf-16; action=\"urn:do\"\n");
    expectCatalogued<TzXmlError>(
        [&] {
            TzSoapHttpBinding::describe(static_cast<TzSoapVersion::Version>(0), "utf-8", second);
        },
        0x7011, "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapHttpBinding, ACharsetThatIsNoNameIsRefused) {
    for (const TzSoapVersion::Version version : BothVersions) {
        for (const char* charset :
             {"utf-8\r\nX-Evil: 1", "utf-8\n", "a b", "a;b=c", "\"utf-8\"", ""}) {
            TzSoapHttpTransportContext context = contextWithAction("urn:do");
            expectCatalogued<TzXmlBadArgError>(
                [&] { TzSoapHttpBinding::describe(version, charset, context); }, 0x7007,
                "[INVALID_HTTP_HEADER][Http header is invalid]");
            EXPECT_EQ(context.asString(), "SOAPAction:urn:do\n");
        }
    }
}

TEST(TzSoapHttpBinding, TheActionServesEveryRequestOfAContext) {
    TzSoapHttpTransportContext context = contextWithAction("urn:do");
    const TzSoapMessage second = messageWith(TzSoapVersion::V1_2, "a");
    for (int round = 0; round < 3; ++round) {
        TzSoapHttpBinding::pack(second, context);
        EXPECT_EQ(context.asString(),
                  "Content-Type:application/soap+xml; charset=utf-8; action=\"urn:do\"\n");
    }
    TzSoapHttpBinding::pack(messageWithAttachment(TzSoapVersion::V1_2), context);
    EXPECT_TRUE(context.asString().ends_with("\nSOAPAction:\"urn:do\"\n")) << context.asString();
    TzSoapHttpBinding::pack(second, context);
    TzSoapHttpBinding::pack(messageWith(TzSoapVersion::V1_1, "a"), context);
    EXPECT_EQ(context.asString(), "Content-Type:text/xml; charset=utf-8\nSOAPAction:\"urn:do\"\n");
}

TEST(TzSoapHttpBinding, AnActionGivenAnewReplacesTheLastOne) {
    TzSoapHttpTransportContext context = contextWithAction("urn:do");
    const TzSoapMessage second = messageWith(TzSoapVersion::V1_2, "a");
    TzSoapHttpBinding::pack(second, context);
    context.setSoapAction("urn:other");
    EXPECT_EQ(packed(second, context),
              "Content-Type:application/soap+xml; charset=utf-8; action=\"urn:other\"\n");
    context.setSoapAction("");
    EXPECT_EQ(packed(second, context), "Content-Type:application/soap+xml; charset=utf-8\n");
}

TEST(TzSoapHttpBinding, HeaderNamesHaveNoLetterCase) {
    const TzSoapMessage first = messageWith(TzSoapVersion::V1_1, "a");
    TzSoapHttpTransportContext context;
    context.add("content-type", "text/xml; charset=ISO-8859-1");
    context.add("soapaction", "\"urn:do\"");
    EXPECT_EQ(unpackedText(context, envelope(TzSoapVersion::V1_1, "<a>\xE9</a>")), "\xC3\xA9");
    EXPECT_EQ(TzSoapHttpBinding::getAction(context), "urn:do");
    EXPECT_EQ(packed(first, context),
              "content-type:text/xml; charset=utf-8\nsoapaction:\"urn:do\"\n");
    EXPECT_EQ(packed(messageWith(TzSoapVersion::V1_2, "a"), context),
              "content-type:application/soap+xml; charset=utf-8; action=\"urn:do\"\n");
    context.add("content-type", "APPLICATION/soap+xml");
    EXPECT_EQ(TzSoapHttpBinding::getVersion(context), TzSoapVersion::V1_2);
}

TEST(TzSoapHttpBinding, OneSpellingOfAHeaderNameIsLeft) {
    TzSoapHttpTransportContext context;
    context.add("CONTENT-TYPE", "text/html");
    context.add("Content-Type", "text/xml");
    context.add("content-type", "text/html");
    context.add("SOAPACTION", "urn:other");
    context.add("SOAPAction", "urn:do");
    EXPECT_EQ(unpackedText(context, messageWith(TzSoapVersion::V1_1, "a").asString()), "a");
    EXPECT_EQ(TzSoapHttpBinding::getAction(context), "urn:do");
    EXPECT_EQ(packed(messageWith(TzSoapVersion::V1_1, "a"), context),
              "Content-Type:text/xml; charset=utf-8\nSOAPAction:\"urn:do\"\n");
}

TEST(TzSoapHttpBinding, ABareEnvelopeUnderThePackagesTypeIsRead) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    const char* const type =
        "multipart/related; type=\"application/xop+xml\"; start=\"<r>\"; boundary=b";
    for (const std::string before : {"", "\xEF\xBB\xBF", "\r\n ", "<?xml version=\"1.0\"?>\n"}) {
        EXPECT_EQ(unpackedText(contextOf(type), before + text), "a") << before;
    }
    EXPECT_EQ(unpackedText(contextOf("multipart/related"), text), "a");
}

TEST(TzSoapHttpBinding, APackageAfterTextThatLooksLikeXmlIsAPackage) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    EXPECT_EQ(unpackedText(contextOf("multipart/related; boundary=b"),
                           "<preamble>\r\n--b\r\n\r\n" + text + "\r\n--b--\r\n"),
              "a");
}

TEST(TzSoapHttpBinding, PlacesInAPackageAreThoseOfItsBody) {
    TzSoapMessage message;
    try {
        TzSoapHttpBinding::unpack(contextOf("multipart/related; boundary=b"),
                                  "--b\r\nX: a\rb\r\n\r\n<a/>\r\n--b--\r\n", message);
        FAIL() << "nothing was thrown";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getLine(), 2U);
        EXPECT_EQ(error.getColumn(), 5U);
    }
}

TEST(TzSoapHttpBinding, EachPartTravelsOnce) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("data"));
    part.setBody("the bytes");
    TzSoapMessage message(TzSoapVersion::V1_1);
    for (int i = 0; i < 3; ++i) {
        message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("data"), part));
    }
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(message, context);
    EXPECT_EQ(countOf("the bytes", body), 1U) << body;
    EXPECT_EQ(countOf("href=\"cid:data\"", body), 3U) << body;
    EXPECT_EQ(countOf("the bytes", message.asString()), 3U);
}

TEST(TzSoapHttpBinding, APartBehindAReferenceToAValueTravels) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("data"));
    part.setBody("the bytes");
    TzSoapReferenceType target(TzXmlName("target"), part);
    target.setIdAttribute("t");
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("entry"), target));
    EXPECT_FALSE(message.hasAttachments());
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(message, context);
    EXPECT_TRUE(context.asString().starts_with("Content-Type:multipart/related;"))
        << context.asString();
    EXPECT_EQ(countOf("the bytes", body), 1U) << body;
    TzSoapMessage read;
    TzSoapHttpBinding::unpack(context, body, read);
    EXPECT_EQ(read.getMimeMultipart().getPartCount(), 2U);
}

TEST(TzSoapHttpBinding, AddedPartsTravel) {
    TzSoapMessage message = messageWith(TzSoapVersion::V1_1, "a");
    TzMimePart part;
    part.setBody("the bytes");
    message.addAttachment(part);
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(message, context);
    EXPECT_TRUE(body.ends_with("\r\n--MIME_boundary\r\n\r\nthe bytes\r\n--MIME_boundary--\r\n"))
        << body;
}

TEST(TzSoapHttpBinding, ADerivedMessageMakesItsOwnPackage) {
    struct Signed : TzSoapMessage {
        TzMimeMultipart asMimeMultipart() const override {
            TzMimeMultipart package;
            TzMimePart signature;
            signature.setBody("signature");
            package.insertPart(signature);
            return TzSoapMessage::asMimeMultipart(package);
        }
    };
    TzSoapHttpTransportContext context;
    EXPECT_EQ(countOf("\r\nsignature\r\n", TzSoapHttpBinding::pack(Signed(), context)), 1U);
    struct Plain : TzSoapMessage {
        TzCString asString() const override { return "plain"; }
    };
    EXPECT_EQ(TzSoapHttpBinding::pack(Plain(), context), "plain");
}

TEST(TzSoapHttpBinding, APackageThatExistsIsSentWithItsContentType) {
    TzMimeMultipart package;
    package.fromString("Content-Type: multipart/related; boundary=b\r\n\r\n"
                       "--b\r\n\r\n<a/>\r\n--b--\r\n");
    TzSoapHttpTransportContext context = contextWithAction("urn:do");
    EXPECT_EQ(TzSoapHttpBinding::pack(package, context), "--b\r\n\r\n<a/>\r\n--b--\r\n");
    EXPECT_EQ(context.asString(),
              "Content-Type:multipart/related; boundary=b\nSOAPAction:\"urn:do\"\n");
}

TEST(TzSoapHttpBinding, AnActionThatNoHeaderLineHoldsIsRefused) {
    for (const TzSoapVersion::Version version : BothVersions) {
        for (const char* action : {"a\r\nHost: b", "a\nb", "a\"b", "a\\", "a\x7F", "\x01"}) {
            expectCatalogued<TzXmlBadArgError>(
                [&] { packed(messageWith(version, "a"), contextWithAction(action)); }, 0x7007,
                "[INVALID_HTTP_HEADER][Http header is invalid]");
        }
    }
}

TEST(TzSoapHttpBinding, EnvelopesAreReadFromEveryXmlType) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    for (const char* type : {"text/xml", "TEXT/XML; charset=UTF-8", "application/soap+xml",
                             "application/xml;charset=\"utf-8\"", ""}) {
        EXPECT_EQ(unpackedText(contextOf(type), text), "a") << type;
    }
    EXPECT_EQ(unpackedText({}, text), "a");
}

TEST(TzSoapHttpBinding, AnEnvelopeIsNeverTakenForAPackage) {
    // "Multipart" after "Content-Type:" before the document would otherwise make it one.
    const std::string text =
        "  Content-Type: multipart/related " + messageWith(TzSoapVersion::V1_1, "a").asString();
    EXPECT_EQ(unpackedText(contextOf("text/xml"), text), "a");
}

TEST(TzSoapHttpBinding, TheCharsetCountsForATextThatDoesNotStateItsOwn) {
    const std::string text = envelope(TzSoapVersion::V1_1, "<a>\xE9</a>");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=ISO-8859-1"), text), "\xC3\xA9");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=utf-8"),
                           "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + text),
              "\xC3\xA9");
    EXPECT_EQ(unpackedText(contextOf("text/xml; charset=windows-1252"),
                           "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + text),
              "\xC3\xA9");
    TzSoapMessage message;
    for (const char* type : {"text/xml", "text/xml; charset=\"x'?>\""}) {
        EXPECT_EQ(textThrown<TzXmlParseError>(
                      [&] { TzSoapHttpBinding::unpack(contextOf(type), text, message); }),
                  "not well-formed (invalid token), line 1, column " +
                      std::to_string(text.find('\xE9') + 1))
            << type;
    }
}

TEST(TzSoapHttpBinding, OtherContentTypesAreRefused) {
    const std::string text = messageWith(TzSoapVersion::V1_1, "a").asString();
    for (const char* type : {"text/html", "application/json", "multipart/form-data; boundary=x",
                             "xml", "text/xmlx", "/"}) {
        expectCatalogued<TzXmlParseError>([&] { unpackedText(contextOf(type), text); }, 0x7006,
                                          "[INVALID_CONTENT_TYPE][Content-Type is invalid]");
    }
}

TEST(TzSoapHttpBinding, ABrokenPackageIsRefused) {
    TzSoapMessage message;
    for (const char* type : {"multipart/related", "multipart/related; boundary=x",
                             "multipart/related; boundary=x; start=\"<none>\""}) {
        expectCatalogued<TzXmlParseError>(
            [&] { TzSoapHttpBinding::unpack(contextOf(type), "--y\r\n\r\n<a/>", message); }, 0x701C,
            "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
    }
}

TEST(TzSoapHttpBinding, TheActionOfARequest) {
    EXPECT_EQ(TzSoapHttpBinding::getAction({}), "");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction(" \"urn:do\"")), "urn:do");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction("\"\"")), "");
    EXPECT_EQ(TzSoapHttpBinding::getAction(contextWithAction("\"")), "\"");
    EXPECT_EQ(TzSoapHttpBinding::getAction(
                  contextOf("application/soap+xml; charset=utf-8; action=\"urn:do\"")),
              "urn:do");
}

TEST(TzSoapHttpBinding, TheVersionThatAContentTypeSpeaksFor) {
    EXPECT_EQ(TzSoapHttpBinding::getVersion({}), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("text/xml")), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("multipart/related")), TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("Application/SOAP+XML; action=a")),
              TzSoapVersion::V1_2);
}

TEST(TzSoapHttpBinding, FaultsTravelWithStatus500) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    EXPECT_EQ(TzSoapHttpBinding::getStatus(message), 200);
    message.getSoapBody().getSoapFault().setCode(
        message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    EXPECT_EQ(TzSoapHttpBinding::getStatus(message), 500);
}

TEST(TzSoapHttpBinding, AFaultThatWasReadWithoutACodeHasStatus500) {
    for (const TzSoapVersion::Version version : BothVersions) {
        const TzSoapMessage read = messageOf(envelope(version, "<e:Fault><a/></e:Fault>"));
        EXPECT_FALSE(read.getSoapBody().hasSoapFault());
        EXPECT_EQ(TzSoapHttpBinding::getStatus(read), 500);
    }
}
