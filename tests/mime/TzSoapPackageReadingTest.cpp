// SPDX-License-Identifier: MIT
//
// Packages as other programs write them, whole, broken and hostile, read as messages.
#include "support/CataloguedError.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t Many = 100000;

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// A part of a package that is written down here.
std::string part(const std::string& headers, const std::string& body) {
    return "--b\r\n" + headers + "\r\n\r\n" + body + "\r\n";
}

const std::string typeLine = "Content-Type: multipart/related; boundary=b\r\n";

/// The reference that is the only content of `value`, which may be one itself.
std::optional<TzSoapReferenceType> reference(const TzSoapType& value) {
    if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
        return reference(*composite->childrenBegin());
    }
    if (auto array = tzSoapCast<TzSoapCompactArrayType>(value)) {
        return reference((*array)[0U]);
    }
    return tzSoapCast<TzSoapReferenceType>(value);
}

/// The attachment's bytes, "(none)" for a reference without one.
std::string bytesOf(const TzSoapType& value) {
    const auto found = reference(value);
    return found && found->hasReference() ? found->getMimeReference().getBody() : "(none)";
}

void expectNoRoot(const std::string& text) {
    TzSoapMessage message;
    expectCatalogued<TzXmlParseError>(
        [&] { message.extract(text); }, 0x701C,
        "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
}

} // namespace

class TzSoapPackageReading : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    const TzSoapVersion& names() const { return TzSoapVersion::getSoapVersion(GetParam()); }

    /// An envelope of the version; in `parts`, S and E stand for its namespaces.
    std::string envelope(const std::string& parts) const {
        return "<S:Envelope xmlns:S=\"" + names().getSoapEnv().getUri() + "\" xmlns:E=\"" +
               names().getSoapEnc().getUri() + "\">" + parts + "</S:Envelope>";
    }
    std::string inBody(const std::string& content) const {
        return envelope("<S:Body>" + content + "</S:Body>");
    }
    /// A package with the envelope in front.
    std::string package(const std::string& root, const std::string& parts) const {
        return typeLine + "\r\n" + part("", root) + parts + "--b--\r\n";
    }
    /// What the first body entry refers to in such a package.
    std::string attached(const std::string& content, const std::string& parts,
                         const std::string& headers = {}) const {
        TzSoapMessage message;
        message.extract(headers + package(inBody(content), parts));
        return bytesOf(*message.getSoapBody().entriesBegin());
    }
};

INSTANTIATE_TEST_SUITE_P(Versions, TzSoapPackageReading,
                         testing::Values(TzSoapVersion::V1_1, TzSoapVersion::V1_2));

TEST_P(TzSoapPackageReading, ReferencesFindTheirPartWhereverTheyStand) {
    const std::string array =
        GetParam() == TzSoapVersion::V1_1
            ? "<a E:arrayType=\"x:any[1]\"><i href=\"cid:p\"/></a>"
            : "<a E:itemType=\"x:any\" E:arraySize=\"1\"><i href=\"cid:p\"/></a>";
    const bool first = GetParam() == TzSoapVersion::V1_1;
    const std::string fault =
        first ? "<S:Fault><faultcode>c</faultcode><detail><d href=\"cid:p\"/></detail></S:Fault>"
              : "<S:Fault><S:Code><S:Value>c</S:Value></S:Code><S:Detail><d href=\"cid:p\"/>"
                "</S:Detail></S:Fault>";
    TzSoapMessage message;
    message.extract(
        package(envelope("<S:Header><h href=\"cid:p\"/></S:Header><S:Body>" + fault +
                         "<a href=\"cid:p\"/><a><m href=\"cid:p\"/></a>" + array + "</S:Body>"),
                part("Content-ID: <p>", "bytes")));
    EXPECT_EQ(message.getVersion(), GetParam());
    EXPECT_EQ(bytesOf(*message.getSoapHeader().entriesBegin()), "bytes");
    EXPECT_EQ(bytesOf(message.getSoapBody().getSoapFault().getDetails()), "bytes");
    ASSERT_EQ(message.getSoapBody().entryCount(), 3U);
    const char* shared = nullptr;
    for (auto entry = message.getSoapBody().entriesBegin();
         entry != message.getSoapBody().entriesEnd(); ++entry) {
        ASSERT_EQ(bytesOf(*entry), "bytes");
        // One part, however many references there are.
        const char* const at = reference(*entry)->getMimeReference().getBodyView().data();
        EXPECT_TRUE(shared == nullptr || at == shared);
        shared = at;
    }
}

TEST_P(TzSoapPackageReading, IdsMayStandInBracketsOrNot) {
    EXPECT_EQ(attached("<a href=\"cid:p@x\"/>", part("Content-ID: p@x", "1")), "1");
    EXPECT_EQ(attached("<a href=\"cid:p@x\"/>", part("content-id:\t<p@x>", "1")), "1");
    EXPECT_EQ(attached("<a href=\"cid:P@x\"/>", part("Content-ID: <p@x>", "1")), "(none)");
    EXPECT_EQ(attached("<a href=\"p@x\"/>", part("Content-ID: <p@x>", "1")), "(none)");
    EXPECT_EQ(attached("<a href=\"CID:p@x\"/>", part("Content-ID: <p@x>", "1")), "(none)");
}

TEST_P(TzSoapPackageReading, LocationsAreComparedAndResolved) {
    const std::string parts =
        part("Content-Location: http://h/a/p.bin", "1") + part("Content-Location: q.bin", "2");
    EXPECT_EQ(attached("<a href=\"http://h/a/p.bin\"/>", parts), "1");
    EXPECT_EQ(attached("<a href=\"q.bin\"/>", parts), "2");
    EXPECT_EQ(attached("<a href=\"p.bin\"/>", parts), "(none)");
    const std::string base = "Content-Location: http://h/a/root.xml\r\n";
    EXPECT_EQ(attached("<a href=\"p.bin\"/>", parts, base), "1");
    EXPECT_EQ(attached("<a href=\"./b/../p.bin\"/>", parts, base), "1");
    EXPECT_EQ(attached("<a href=\"/a/p.bin\"/>", parts, base), "1");
    EXPECT_EQ(attached("<a href=\"q.bin\"/>", parts, base), "2");
}

TEST_P(TzSoapPackageReading, OfTwoPartsWithOneIdTheFirstIsMeant) {
    const std::string parts = part("Content-ID: <p>", "first") + part("Content-ID: <p>", "second");
    EXPECT_EQ(attached("<a href=\"cid:p\"/>", parts), "first");
    const std::string text = "Content-Type: multipart/related; boundary=b; start=\"<r>\"\r\n\r\n" +
                             part("Content-ID: <r>", inBody("<a>1</a>")) +
                             part("Content-ID: <r>", inBody("<b>2</b>")) + "--b--";
    TzSoapMessage message;
    message.extract(text);
    EXPECT_EQ(message.getSoapBody().entriesBegin()->getName(), TzXmlName("a"));
}

TEST_P(TzSoapPackageReading, LinesMayEndEitherWay) {
    const auto withEnds = [](std::string text, const std::string& end) {
        for (std::size_t at = text.find("\r\n"); at != std::string::npos;
             at = text.find("\r\n", at + end.size())) {
            text.replace(at, 2, end);
        }
        return text;
    };
    const std::string text =
        package(inBody("<a href=\"cid:p\"/>"), part("Content-ID: <p>", "one\r\ntwo"));
    TzSoapMessage message;
    message.extract(withEnds(text, "\n"));
    EXPECT_EQ(bytesOf(*message.getSoapBody().entriesBegin()), "one\ntwo");
    message.extract(withEnds(typeLine + "\r\n", "\n") + part("", inBody("<a href=\"cid:p\"/>")) +
                    withEnds(part("Content-ID: <p>", "one\r\ntwo"), "\n") + "--b--\n");
    EXPECT_EQ(bytesOf(*message.getSoapBody().entriesBegin()), "one\ntwo");
}

TEST_P(TzSoapPackageReading, WhatStandsAroundThePartsIsIgnored) {
    TzSoapMessage message;
    message.extract(typeLine + "\r\npreamble\r\n--bb\r\n" + part("", inBody("<a>1</a>")) +
                    "--b--\r\nepilogue\r\n" + part("", "late"));
    EXPECT_EQ(message.getMimeMultipart().getPartCount(), 1U);
}

TEST_P(TzSoapPackageReading, PackagesWithoutARootAreRefused) {
    const std::string root = part("Content-ID: <r>", inBody("<a/>")) + "--b--\r\n";
    expectNoRoot("Content-Type: multipart/related\r\n\r\n" + root);
    expectNoRoot("Content-Type: multipart/related; boundary=\"\"\r\n\r\n" + root);
    expectNoRoot("Content-Type: multipart/related; boundary=c\r\n\r\n" + root);
    expectNoRoot("Content-Type: multipart/related; boundary=b; start=\"<other>\"\r\n\r\n" + root);
    expectNoRoot(typeLine + "\r\n--b--\r\n");
    expectNoRoot(typeLine + "\r\n");
    expectNoRoot(typeLine);
    expectNoRoot("Content-Type: multipart/related; boundary=\"\r\n\r\n" + root);
}

TEST_P(TzSoapPackageReading, TheWordMultipartMakesATextAPackage) {
    // Wherever the words stand, the text is taken for a package, and then it is none.
    TzSoapMessage message;
    expectCatalogued<TzXmlParseError>(
        [&] { message.extract("a Content-Type: multipart" + inBody("<a/>")); }, 0x701D,
        "[MIME_NOT_MULTIPART][MIME messge must be multipart/related]");
    expectNoRoot("POST / HTTP/1.1\r\nContent-Type: text/xml\r\n\r\n" + inBody("<a>Multipart</a>"));
    message.extract("POST / HTTP/1.1\r\nContent-Type: text/xml\r\n\r\n" + inBody("<a/>"));
    EXPECT_EQ(message.getSoapBody().entryCount(), 1U);
}

TEST_P(TzSoapPackageReading, AfterARefusalTheNextPackageIsRead) {
    TzSoapMessage message;
    const auto refusal = [&](const std::string& text) {
        return textThrown<TzXmlParseError>([&] { message.extract(text); });
    };
    EXPECT_EQ(refusal(typeLine + "\r\n--b--\r\n"),
              "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
    EXPECT_EQ(refusal(package("<a>", "")),
              "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]");
    EXPECT_EQ(refusal(package(inBody("\n<a></b>"), part("Content-ID: <p>", "x"))),
              "mismatched tag, line 2, column 6");
    message.extract(package(inBody("<a href=\"cid:p\"/>"), part("Content-ID: <p>", "1")));
    EXPECT_EQ(bytesOf(*message.getSoapBody().entriesBegin()), "1");
}

TEST_P(TzSoapPackageReading, LongBoundariesAreTaken) {
    for (const std::size_t size : {69U, 70U, 71U, 1000U, 100000U}) {
        const std::string boundary(size, 'x');
        const std::string line = "--" + boundary;
        TzSoapMessage message;
        message.extract("Content-Type: multipart/related; boundary=" + boundary + "\r\n\r\n" +
                        line + "\r\n\r\n" + inBody("<a href=\"cid:p\"/>") + "\r\n" + line +
                        "\r\nContent-ID: p\r\n\r\n" + line.substr(1) + "\r\n" + line + "--\r\n");
        EXPECT_EQ(bytesOf(*message.getSoapBody().entriesBegin()), line.substr(1));
    }
}

TEST_P(TzSoapPackageReading, HeadersOfAnySizeAndNumberAreTaken) {
    const std::string content = "<a href=\"cid:p\"/>";
    const std::string named = "Content-ID: <p>";
    EXPECT_EQ(attached(content, part("X: " + std::string(10000000, 'x') + "\r\n" + named, "1")),
              "1");
    EXPECT_EQ(attached(content, part(repeated("X: y\r\n", Many) + named, "1")), "1");
    EXPECT_EQ(attached(content, part(named, "1"), repeated("X: y\r\n", Many)), "1");
    EXPECT_EQ(attached(content, part("X: y" + repeated("\r\n z", Many) + "\r\n" + named, "1")),
              "1");
    EXPECT_EQ(attached(content, part(repeated(" \r\n\t:\r\ngarbage\r\n", Many) + named, "1")), "1");
}

TEST_P(TzSoapPackageReading, NulsAreBytesLikeOthers) {
    const std::string nul(1, '\0');
    EXPECT_EQ(attached("<a href=\"cid:p\"/>",
                       part("X" + nul + ": 1\r\nX: " + nul + "\r\n" + nul + "\r\nContent-ID: <p>",
                            nul + "1" + nul)),
              nul + "1" + nul);
    EXPECT_EQ(attached("<a href=\"cid:p\"/>", part("Content-ID: <p" + nul + ">", "1")), "(none)");
}

TEST_P(TzSoapPackageReading, WhatIsNoBase64IsSkipped) {
    const std::string headers = "Content-ID: <p>\r\nContent-Transfer-Encoding: base64";
    EXPECT_EQ(attached("<a href=\"cid:p\"/>", part(headers, "*Y n\xFFl\r\n0 Z-X_M=")), "bytes");
    EXPECT_EQ(attached("<a href=\"cid:p\"/>", part(headers, "!!\xFF****")), "");
    EXPECT_EQ(attached("<a href=\"cid:p\"/>", part(headers, "")), "");
}

TEST_P(TzSoapPackageReading, PackagesInPackagesStayOnePart) {
    std::string nested = "Content-Type: text/plain\r\n\r\nx";
    for (int level = 0; level < 1000; ++level) {
        const std::string boundary = "n" + std::to_string(level);
        nested = "Content-Type: multipart/mixed; boundary=" + boundary + "\r\n\r\n--" + boundary +
                 "\r\n" + nested + "\r\n--" + boundary + "--\r\n";
    }
    const std::string body = nested.substr(nested.find("\r\n\r\n") + 4);
    EXPECT_EQ(
        attached("<a href=\"cid:p\"/>",
                 part("Content-ID: <p>\r\nContent-Type: multipart/mixed; boundary=n999", body)),
        body);
}

TEST_P(TzSoapPackageReading, ManyPartsAreReadAndFound) {
    std::string references;
    std::string parts;
    for (std::size_t i = 0; i < Many; ++i) {
        references += "<a href=\"cid:" + std::to_string(i) + "\"/>";
        parts += part("Content-ID: <" + std::to_string(Many - 1 - i) + ">", std::to_string(i));
    }
    TzSoapMessage message;
    message.extract(package(inBody(references), parts));
    ASSERT_EQ(message.getSoapBody().entryCount(), Many);
    std::size_t expected = Many;
    for (auto entry = message.getSoapBody().entriesBegin();
         entry != message.getSoapBody().entriesEnd(); ++entry) {
        ASSERT_EQ(bytesOf(*entry), std::to_string(--expected));
    }
}

TEST_P(TzSoapPackageReading, LineBreaksOfTheProgramReachNoHeader) {
    TzMimePart made;
    made.insertHeader(TzMimeContentIdHeader("p\r\nX-Injected: 1\r\n\r\n--MIME_boundary\r\n"));
    made.insertHeader(TzMimeHeader("X-Own\r\nX-Injected", "1\nX-Injected: 2\r\rX-Injected: 3"));
    made.setBody("bytes");
    TzSoapMessage message(GetParam());
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), made));
    TzMimeMultipart sent;
    sent.insertHeader(TzMimeHeader("SOAPAction", "\"a\"\r\nX-Injected: 4"));
    sent.insertHeader(TzMimeContentTypeHeader(TzMimeMultipartRelatedType(
        "s\r\nX-Injected: 5", "", "<r\r\nX-Injected: 6>", "b\r\nX-Injected: 7")));
    const std::string text = message.asMimeMultipart(sent).asString();
    EXPECT_EQ(text.find("\nX-Injected"), std::string::npos) << text;
    EXPECT_EQ(text.find("\rX-Injected"), std::string::npos) << text;

    TzMimeMultipart received;
    received.fromString(text);
    EXPECT_EQ(received.getPartCount(), 2U);
    EXPECT_EQ(received.getPart(1).getBody(), "bytes");
}
