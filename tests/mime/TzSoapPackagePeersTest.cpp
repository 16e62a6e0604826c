// SPDX-License-Identifier: MIT
//
// Packages as other stacks write them: encoded URLs, charsets, mixed line ends.
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

/// The message in a package with that root part, and with parts of these ids whose bodies are the
/// ids.
TzSoapMessage packed(const std::string& rootType, const std::string& text,
                     std::initializer_list<const char*> ids = {}) {
    std::string package =
        "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\nContent-Type: " + rootType +
        "\r\n\r\n" + text + "\r\n";
    for (const std::string id : ids) {
        package += "--b\r\nContent-ID: <" + id + ">\r\n\r\n" + id + "\r\n";
    }
    return messageOf(package + "--b--\r\n");
}

/// What a reference with that text finds among parts with these ids; "(none)" for nothing.
std::string found(const std::string& href, std::initializer_list<const char*> ids) {
    const TzSoapMessage message =
        packed("text/xml", envelope(TzSoapVersion::V1_1, "<a href=\"" + href + "\"/>"), ids);
    const auto reference = entryAs<TzSoapReferenceType>(message);
    return reference.hasReference() ? reference.getMimeReference().getBody() : "(none)";
}

std::string textIn(const std::string& rootType, const std::string& text) {
    return entryAs<TzSoapSimpleType>(packed(rootType, text)).getString();
}

const std::string latin1 = envelope(TzSoapVersion::V1_1, "<a>\xE9</a>");

} // namespace

TEST(TzSoapPackagePeers, EncodedUrlsFindTheirPart) {
    EXPECT_EQ(found("cid:p%40x", {"p@x"}), "p@x");
    EXPECT_EQ(found("cid:%70%40%78", {"p@x"}), "p@x");
    EXPECT_EQ(found("cid:a%2fb%2Fc", {"a/b/c"}), "a/b/c");
    EXPECT_EQ(found("cid:100%", {"100%"}), "100%");
    EXPECT_EQ(found("cid:100%25", {"100%"}), "100%");
    EXPECT_EQ(found("cid:%4", {"%4"}), "%4");
    EXPECT_EQ(found("cid:p+x", {"p x"}), "(none)");
    EXPECT_EQ(found("cid:p%40y", {"p@x"}), "(none)");
    EXPECT_EQ(found("p%40x", {"p@x"}), "(none)");
}

TEST(TzSoapPackagePeers, TheUrlAsItStandsComesFirst) {
    EXPECT_EQ(found("cid:p%40x", {"p@x", "p%40x"}), "p%40x");
    EXPECT_EQ(found("cid:p%2540x", {"p@x", "p%40x"}), "p%40x");
    EXPECT_EQ(found("cid:p%2540x", {"p@x"}), "(none)");
}

TEST(TzSoapPackagePeers, TheCharsetOfTheRootPartCounts) {
    EXPECT_EQ(textIn("text/xml; charset=ISO-8859-1", latin1), "\xC3\xA9");
    EXPECT_EQ(textIn("text/xml; charset=\"iso-8859-1\"", latin1), "\xC3\xA9");
    EXPECT_EQ(textIn("text/xml; charset=utf-8",
                     "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + latin1),
              "\xC3\xA9");
    EXPECT_EQ(textIn("text/xml; charset=windows-1252",
                     "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" + latin1),
              "\xC3\xA9");
    for (const char* type : {"text/xml", "text/xml; charset=utf-8", "text/xml; charset=\"x'?>\""}) {
        EXPECT_EQ(textThrown<TzXmlParseError>([&] { textIn(type, latin1); }),
                  "not well-formed (invalid token), line 1, column " +
                      std::to_string(latin1.find('\xE9') + 1))
            << type;
    }
}

TEST(TzSoapPackagePeers, AttachmentsGainNoCarriageReturn) {
    const std::string text = "Content-Type: multipart/related; boundary=b\n\n--b\n\n" +
                             envelope(TzSoapVersion::V1_1, "<a href=\"cid:p\"/>") +
                             "\r\n--b\nContent-ID: <p>\n\n1\r\n--b--\n";
    const TzSoapMessage message = messageOf(text);
    EXPECT_EQ(entryAs<TzSoapReferenceType>(message).getMimeReference().getBody(), "1");
}
