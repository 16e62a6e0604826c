// SPDX-License-Identifier: MIT
//
// What a package may cost, and which packages are refused.
#include "support/AllocationFailure.h"
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlParseError.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

const std::string typeLine = "Content-Type: multipart/related; boundary=b\r\n";

std::string part(const std::string& headers, const std::string& body) {
    return "--b\r\n" + headers + "\r\n\r\n" + body + "\r\n";
}

/// A package of a SOAP 1.1 envelope with these entries and one more part.
std::string packageOf(const std::string& entries, const std::string& partHeaders,
                      const std::string& headers = "") {
    return headers + typeLine + "\r\n" + part("", envelope(TzSoapVersion::V1_1, entries)) +
           part(partHeaders, "x") + "--b--\r\n";
}

/// Bytes that reading `text` asked for, for each byte of it.
double bytesPerByte(const std::string& text) {
    TzSoapMessage message;
    const std::size_t before = askedBytes();
    message.extract(text);
    return static_cast<double>(askedBytes() - before) / static_cast<double>(text.size());
}

/// Expects four times the references to cost what they cost now, byte by byte.
void expectLinear(const std::function<std::string(std::size_t)>& textOf) {
    const double few = bytesPerByte(textOf(5000));
    const double many = bytesPerByte(textOf(20000));
    EXPECT_LT(many, few * 1.5) << few << " bytes of memory a byte, then " << many;
    EXPECT_LT(many, 60);
}

std::string refusal(TzSoapMessage& message, const std::string& text) {
    return textThrown<TzXmlParseError>([&] { message.extract(text); });
}

std::string refusal(const std::string& text) {
    TzSoapMessage message;
    return refusal(message, text);
}

TzSoapReferenceType referenceAt(const TzSoapMessage& message, std::ptrdiff_t position) {
    return entryAs<TzSoapReferenceType>(message, position);
}

std::string hrefOf(const TzSoapReferenceType& reference) {
    const auto* const found = reference.findAttribute(TzXmlName("href"));
    return found == reference.attributesEnd() ? "(none)" : found->getValue();
}

const std::string cut = "the package is cut short: it has no closing line";
const std::string tooLong = "a Content-ID or Content-Location is too long";

} // namespace

TEST(TzSoapPackageLimits, ReferencesShareTheLongIdOfTheirPart) {
    const std::string id(2048, 'i');
    for (const std::string attributes : {"", "b='' "}) {
        const std::string text = packageOf(repeated("<a " + attributes + "href='l'/>", 10000),
                                           "Content-Location: l\r\nContent-ID: <" + id + ">");
        EXPECT_LT(bytesPerByte(text), 60);
        const TzSoapMessage message = messageOf(text);
        EXPECT_EQ(hrefOf(referenceAt(message, 0)), "cid:" + id);
        EXPECT_EQ(hrefOf(referenceAt(message, 9999)), "cid:" + id);
    }
}

TEST(TzSoapPackageLimits, ASharedTextIsReplacedForOneReference) {
    TzSoapMessage message =
        messageOf(packageOf("<a href='l'/><a href='l'/>", "Content-Location: l\r\nContent-ID: i"));
    TzSoapReferenceType first = referenceAt(message, 0);
    first.addAttribute(TzXmlAttribute(TzXmlName("href"), "cid:other"));
    EXPECT_EQ(hrefOf(referenceAt(message, 0)), "cid:other");
    EXPECT_EQ(hrefOf(referenceAt(message, 1)), "cid:i");
    EXPECT_EQ(hrefOf(referenceAt(message.copy(), 1)), "cid:i");
}

TEST(TzSoapPackageLimits, ReferencesThatMatchNoPartAreLinear) {
    const std::string base = "Content-Location: http://x/" + repeated("y/", 500) + "\r\n";
    expectLinear([&](std::size_t count) {
        return packageOf(repeated("<a href='../x'/>", count), "Content-ID: <q>", base);
    });
}

TEST(TzSoapPackageLimits, ReferencesBelowABaseFindTheirParts) {
    const TzSoapMessage message =
        messageOf(packageOf(repeated("<a href='../x'/><a href='y'/>", 3),
                            "Content-Location: http://h/x", "Content-Location: http://h/a/b\r\n"));
    for (std::ptrdiff_t at = 0; at < 6; ++at) {
        EXPECT_EQ(referenceAt(message, at).hasReference(), at % 2 == 0) << at;
    }
}

// Each of these would take hours if every reference looked through all of the headers.
TEST(TzSoapPackageLimits, ManyHeadersOfThePackageAreLookedThroughOnce) {
    constexpr std::size_t many = 300'000;
    const TzSoapMessage message = messageOf(
        packageOf(repeated("<a href='x'/>", many), "Content-ID: <q>", repeated("X: y\r\n", many)));
    EXPECT_EQ(message.getSoapBody().entryCount(), many);
}

TEST(TzSoapPackageLimits, ManyHeadersOfAPartAreLookedThroughOnce) {
    constexpr std::size_t many = 300'000;
    const TzSoapMessage message = messageOf(packageOf(
        repeated("<a href='l'/>", many), repeated("X: y\r\n", many) + "Content-Location: l"));
    EXPECT_TRUE(referenceAt(message, many - 1).hasReference());
}

TEST(TzSoapPackageLimits, IdsAndLocationsAreAsLongAsUrisAtMost) {
    const std::string longest(2048, 'i');
    const std::string entries = "<a/>";
    messageOf(packageOf(entries, "Content-ID: <" + longest + ">"));
    messageOf(packageOf(entries, "Content-Location: " + longest));
    messageOf(packageOf(entries, "A: b", "Content-Location: " + longest + "\r\n"));
    EXPECT_EQ(refusal(packageOf(entries, "Content-ID: <" + longest + "i>")), tooLong);
    EXPECT_EQ(refusal(packageOf(entries, "Content-Location: " + longest + "i")), tooLong);
    EXPECT_EQ(refusal(packageOf(entries, "A: b", "Content-Location: " + longest + "i\r\n")),
              tooLong);
}

TEST(TzSoapPackageLimits, TheLengthOfIdsFollowsTheLimits) {
    TzSoapMessage message;
    message.setReadLimits({.uriLength = 100});
    const std::string body = "<a/>";
    EXPECT_EQ(refusal(message, packageOf("<a/>", "Content-ID: <" + std::string(101, 'i') + ">")),
              tooLong);
    message.extract(packageOf("<a/>", "X: " + std::string(101, 'i')));
    EXPECT_EQ(message.getMimeMultipart().getPartCount(), 2U);
}

TEST(TzSoapPackageLimits, APackageCutAnywhereIsRefused) {
    const std::string text = packageOf("<a href='cid:p'/>", "Content-ID: <p>");
    const std::size_t closed = text.find("--b--") + 5;
    for (std::size_t size = text.find("</e:Envelope>") + 13; size < closed; ++size) {
        EXPECT_EQ(refusal(text.substr(0, size)), cut) << text.substr(0, size);
    }
    for (std::size_t size = 0; size < closed; ++size) {
        EXPECT_THAT(refusal(text.substr(0, size)),
                    testing::AnyOf(cut, testing::StartsWith("[NO_SOAP_ENVELOPE]"),
                                   testing::StartsWith("[NO_MIME_SOAP_BODY_PART]")))
            << size;
    }
    for (std::size_t size = closed; size <= text.size(); ++size) {
        EXPECT_TRUE(referenceAt(messageOf(text.substr(0, size)), 0).hasReference()) << size;
    }
}

TEST(TzSoapPackageLimits, APackageCutShortIsReadWhenThatIsWanted) {
    const std::string text = packageOf("<a href='cid:p'/>", "Content-ID: <p>");
    TzSoapMessage message;
    message.setReadLimits({.incompletePackages = true});
    message.extract(text.substr(0, text.find("--b--")));
    EXPECT_FALSE(message.getMimeMultipart().isComplete());
    EXPECT_EQ(referenceAt(message, 0).getMimeReference().getBody(), "x\r\n");
}

TEST(TzSoapPackageLimits, RefusalsSayWhatIsWrong) {
    const auto described = [](const std::string& text) {
        TzSoapMessage message;
        try {
            message.extract(text);
        } catch (const TzXmlParseError& error) {
            return error.describe();
        }
        return TzCString("nothing was thrown");
    };
    EXPECT_EQ(described(packageOf("<a/>", "Content-ID: " + std::string(2049, 'i'))),
              tooLong + " (the limit is 2048)");
    EXPECT_EQ(described(typeLine + "\r\n--b"), cut);
}

TEST(TzSoapPackageLimits, AMissingRootPartIsReportedBeforeTheMissingEnd) {
    EXPECT_EQ(refusal(typeLine + "\r\n"),
              "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]");
}

TEST(TzSoapPackageLimits, APackageThatAProgramMadeIsComplete) {
    TzMimeMultipart made;
    made.fromString(packageOf("<a/>", "Content-ID: <p>"));
    TzMimeMultipart own;
    own.insertHeader(made.getHeader(0));
    own.insertPart(made.getPart(0));
    TzSoapMessage message;
    message.extract(own);
    EXPECT_EQ(message.getSoapBody().entryCount(), 1U);
}
