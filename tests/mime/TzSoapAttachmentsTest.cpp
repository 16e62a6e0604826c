// SPDX-License-Identifier: MIT
//
// Parts that travel with a message although no reference refers to them.
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TzMimePart partOf(const std::string& id, const std::string& bytes) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader(id));
    part.setBody(bytes);
    return part;
}

/// The bodies of all parts but the first.
std::vector<std::string> attached(const TzMimeMultipart& package) {
    std::vector<std::string> bodies;
    for (std::size_t i = 1; i < package.getPartCount(); ++i) {
        bodies.push_back(package.getPart(i).getBody());
    }
    return bodies;
}

TzMimeMultipart read(const std::string& text) {
    TzMimeMultipart package;
    package.fromString(text);
    return package;
}

/// A package with a reference to its second part, and two parts that nothing refers to.
std::string received() {
    return "Content-Type: multipart/related; boundary=b; start=\"<r>\"\r\n\r\n"
           "--b\r\nContent-ID: <x>\r\n\r\nfirst\r\n"
           "--b\r\nContent-ID: <r>\r\n\r\n" +
           envelope(TzSoapVersion::V1_1, "<a href=\"cid:y\"/>") +
           "\r\n--b\r\nContent-ID: <y>\r\n\r\nreferred\r\n"
           "--b\r\nContent-ID: <y>\r\n\r\nlast\r\n--b--\r\n";
}

using Bodies = std::vector<std::string>;

} // namespace

TEST(TzSoapAttachments, AMessageHasNoneAtFirst) {
    const TzSoapMessage message;
    EXPECT_TRUE(message.getAttachments().empty());
    EXPECT_FALSE(message.hasAttachments());
}

TEST(TzSoapAttachments, AddedPartsTravelInTheirOrder) {
    TzSoapMessage message;
    message.addAttachment(partOf("p", "one"));
    message.addAttachment(partOf("q", "two"));
    EXPECT_TRUE(message.hasAttachments());
    ASSERT_EQ(message.getAttachments().size(), 2U);
    EXPECT_EQ(message.getAttachments()[1].getBody(), "two");
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"one", "two"}));
    EXPECT_EQ(attached(read(message.asString())), Bodies({"one", "two"}));
    EXPECT_EQ(attached(message.asPackage()), Bodies({"one", "two"}));
}

TEST(TzSoapAttachments, AddedPartsAreShared) {
    TzSoapMessage message;
    TzMimePart part = partOf("p", "old");
    message.addAttachment(part);
    part.setBody("new");
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"new"}));
}

TEST(TzSoapAttachments, AddedPartsStandBehindThoseReferredTo) {
    TzSoapMessage message;
    const TzMimePart both = partOf("p", "both");
    message.addAttachment(both);
    message.addAttachment(partOf("q", "added"));
    message.addAttachment(both);
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), partOf("r", "referred")));
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("b"), both));
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("c"), both));
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"referred", "both", "both", "added"}));
    EXPECT_EQ(attached(read(message.asString())), Bodies({"referred", "both", "both", "added"}));
    EXPECT_EQ(attached(message.asPackage()), Bodies({"referred", "both", "added"}));
}

TEST(TzSoapAttachments, PartsOfTheCallerStay) {
    TzSoapMessage message;
    const TzMimePart part = partOf("p", "one");
    message.addAttachment(part);
    TzMimeMultipart package;
    package.insertPart(part);
    package.insertPart(part);
    EXPECT_EQ(attached(message.asMimeMultipart(package)), Bodies({"one", "one"}));
}

TEST(TzSoapAttachments, CanBeRemoved) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.addAttachment(partOf("p", "one"));
    message.clearAttachments();
    EXPECT_FALSE(message.hasAttachments());
    EXPECT_EQ(message.asString(), TzSoapMessage(TzSoapVersion::V1_1).asString());
}

TEST(TzSoapAttachments, CopiesHaveThem) {
    TzSoapMessage message;
    message.addAttachment(partOf("p", "one"));
    TzSoapMessage copy = message.copy();
    copy.addAttachment(partOf("q", "two"));
    EXPECT_EQ(attached(copy.asMimeMultipart()), Bodies({"one", "two"}));
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"one"}));
}

TEST(TzSoapAttachments, WhatIsReadReplacesThem) {
    TzSoapMessage message;
    message.addAttachment(partOf("p", "one"));
    message.extract(envelope(TzSoapVersion::V1_1, "<a/>"));
    EXPECT_FALSE(message.hasAttachments());
}

TEST(TzSoapAttachments, PartsThatWereReadGoOnWhenTheyAreAdded) {
    TzSoapMessage message = messageOf(received());
    EXPECT_TRUE(message.getAttachments().empty());
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"referred"}));
    message.addReceivedAttachments();
    EXPECT_EQ(message.getAttachments().size(), 3U);
    EXPECT_EQ(attached(message.asMimeMultipart()), Bodies({"referred", "first", "last"}));
    message.addReceivedAttachments();
    EXPECT_EQ(attached(message.asPackage()), Bodies({"referred", "first", "last"}));
}

TEST(TzSoapAttachments, ABareEnvelopeBringsNone) {
    TzSoapMessage message = messageOf(envelope(TzSoapVersion::V1_1, "<a/>"));
    message.addReceivedAttachments();
    EXPECT_TRUE(message.getAttachments().empty());
}

TEST(TzSoapAttachments, TheEnvelopeAloneIsAPackageOfOnePart) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    const TzMimeMultipart package = message.asPackage();
    ASSERT_EQ(package.getPartCount(), 1U);
    EXPECT_EQ(package.getPart(0).getBody(), message.asString());
}
