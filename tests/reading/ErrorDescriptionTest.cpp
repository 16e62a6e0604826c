// SPDX-License-Identifier: MIT
#include <soap/TzSoapMessage.h>

#include <gtest/gtest.h>

#include <soap/TzSoapReadLimits.h>
#include <tz/tools/Tzxmsg.h>

#include <string>

// What an error of a reading says beside its text: where it was, and the detail that helps.

namespace {

const std::string Soap11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string Encoding = "http://schemas.xmlsoap.org/soap/encoding/";

std::string envelope(const std::string& content) {
    return "<s:Envelope xmlns:s='" + Soap11 + "' xmlns:e='" + Encoding + "'>\n" + content +
           "</s:Envelope>";
}

std::string body(const std::string& content) {
    return envelope("<s:Body>" + content + "</s:Body>");
}

/// What the error of reading `text` describes.
std::string descriptionOf(const std::string& text, const TzSoapReadLimits& limits = {}) {
    TzSoapMessage message;
    message.setReadLimits(limits);
    try {
        message.extract(text);
    } catch (const Tzxmsg& error) {
        return error.describe();
    }
    return "accepted";
}

const std::string NoEnvelope = "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]";

} // namespace

TEST(ErrorDescription, NamesTheElementThatCameInsteadOfEnvelope) {
    EXPECT_EQ(descriptionOf("<html/>"),
              NoEnvelope + ", line 1, column 1 (the element is \"html\" in no namespace)");
    EXPECT_EQ(descriptionOf("<?xml version='1.0'?>\n<x:html xmlns:x='urn:x'/>"),
              NoEnvelope + ", line 2, column 1 (the element is \"x:html\" in namespace \"urn:x\")");
}

TEST(ErrorDescription, QuotesTextThatIsNoXml) {
    EXPECT_EQ(descriptionOf(""), NoEnvelope + ", line 1, column 1 (the text is empty)");
    EXPECT_EQ(descriptionOf("{\"error\": 1}"),
              NoEnvelope + ", line 1, column 1 (the text begins with \"{\"error\": 1}\")");
}

TEST(ErrorDescription, QuotesWhatALogCanTake) {
    EXPECT_EQ(descriptionOf("a\n\x1B[2J\xC3\xA4~ " + std::string(100, 'x')),
              NoEnvelope + ", line 1, column 1 (the text begins with \"a??[2J??~ " +
                  std::string(70, 'x') + "...\")");
}

TEST(ErrorDescription, NamesTheChildOfTheEnvelopeThatIsUnknown) {
    EXPECT_EQ(descriptionOf(envelope("<Body/>")),
              "[UNKNOWN_SOAP_ELEMENT][Element \"Body\" is NOT in the SOAP Grammar ], line 2, "
              "column 1 (the element is \"Body\" in no namespace)");
}

TEST(ErrorDescription, NamesTheEnvelopeOfAnUnknownVersion) {
    EXPECT_EQ(descriptionOf("<e:Envelope xmlns:e='urn:x'/>"),
              "[UNKNOWN_VERSION][SOAP Version specified by URI \"urn:x\" is unknown ], line 1, "
              "column 1 (the element is \"e:Envelope\" in namespace \"urn:x\")");
}

TEST(ErrorDescription, TextOfTheParserEndsWithItsPlace) {
    EXPECT_EQ(descriptionOf(body("<a></b>")), "mismatched tag, line 2, column 14");
}

TEST(ErrorDescription, NamesTheDepthLimit) {
    TzSoapReadLimits limits;
    limits.depth = 3;
    EXPECT_EQ(descriptionOf(body("<a>\n<b/></a>"), limits),
              "elements are nested too deeply, line 3, column 1 (the limit is 3)");
}

TEST(ErrorDescription, NamesTheAttributeLimit) {
    TzSoapReadLimits limits;
    limits.attributes = 2;
    EXPECT_EQ(descriptionOf(body("<a b='' c='' d=''/>"), limits),
              "an element has too many attributes, line 2, column 9 (the limit is 2)");
}

TEST(ErrorDescription, NamesTheLimitOfUris) {
    TzSoapReadLimits limits;
    limits.uriLength = 60;
    EXPECT_EQ(descriptionOf(body("<a xmlns='" + std::string(61, 'u') + "'/>"), limits),
              "the URI of a namespace is too long, line 2, column 9 (the limit is 60)");
    EXPECT_EQ(descriptionOf(body("<a s:encodingStyle='" + std::string(61, 'u') + "'/>"), limits),
              "an encoding style is too long, line 2, column 9 (the limit is 60)");
}

TEST(ErrorDescription, ErrorsOfArraysHaveTheirPlace) {
    EXPECT_EQ(descriptionOf(body("<a e:arrayType='x[2;]'>\n<i e:position='x'/></a>")),
              "[BAD_INDEX_STRING][Illegal SOAP array index string: \"[2;]\"], line 3, column 1");
}

TEST(ErrorDescription, ErrorsOfReferencesHaveTheirPlace) {
    EXPECT_EQ(
        descriptionOf(body("<a href='#b'>\n <b/></a>")),
        "[ILLEGAL_REFERENCE][Per SOAP, reference accessor(element with a href attribute) is an "
        "empty element.], line 3, column 2");
}

TEST(ErrorDescription, SaysThatItIsAboutTheRootPart) {
    const std::string package = "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\n\r\n"
                                "<a>\n</b>\r\n--b--\r\n";
    EXPECT_EQ(descriptionOf(package),
              NoEnvelope + ", line 1, column 1 (the element is \"a\" in no namespace; in the root "
                           "part of the package)");
}

TEST(ErrorDescription, QuotesTheContentTypeOfAPackageWithoutRootPart) {
    EXPECT_EQ(
        descriptionOf("Content-Type: multipart/related; boundary=b; start=\"<r>\"\r\n\r\n"
                      "--b\r\n\r\n<a/>\r\n--b--\r\n"),
        "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found] (Content-Type is "
        "\"multipart/related; boundary=b; start=\"<r>\"\")");
}

TEST(ErrorDescription, LeavesTheTextAlone) {
    TzSoapMessage message;
    try {
        message.extract("<html/>");
        ADD_FAILURE() << "accepted";
    } catch (const Tzxmsg& error) {
        EXPECT_EQ(error.what(), NoEnvelope);
        EXPECT_EQ(error.getDetail(), "the element is \"html\" in no namespace");
    }
}
