// SPDX-License-Identifier: MIT
//
// Messages and packages in the layout that is asked for.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

constexpr char CompactText[] =
    R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">)"
    R"(<SOAP-ENV:Body><e></e></SOAP-ENV:Body></SOAP-ENV:Envelope>)";

/// A message with a value that holds nothing.
template <typename Message = TzSoapMessage> Message emptyValue() {
    Message message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(TzSoapType(TzXmlName("e")));
    return message;
}

TzMimePart part() {
    TzMimePart made;
    made.insertHeader(TzMimeContentIdHeader("<a>"));
    made.setBody("data");
    return made;
}

TEST(MessageLayout, CompactTextHasNoLineEnds) {
    EXPECT_EQ(emptyValue().asText(TzSoapLayout::Compact), CompactText);
}

TEST(MessageLayout, IndentedIsTheDefault) {
    EXPECT_EQ(emptyValue().asText(TzSoapLayout::Indented), emptyValue().asString());
    EXPECT_NE(emptyValue().asString(), CompactText);
    EXPECT_EQ(emptyValue().asPackage(TzSoapLayout::Indented).asString(),
              emptyValue().asPackage().asString());
}

TEST(MessageLayout, TheEnvelopeOfAPackageIsCompact) {
    TzSoapMessage message = emptyValue();
    message.addAttachment(part());
    const TzMimeMultipart package = message.asPackage(TzSoapLayout::Compact);
    ASSERT_EQ(package.getPartCount(), 2U);
    EXPECT_EQ(package.getPart(0).getBody(), CompactText);
    EXPECT_EQ(package.getPart(1).getBody(), "data");
    EXPECT_EQ(message.asText(TzSoapLayout::Compact), package.asString());
}

/// Overrides how it makes its package.
class DerivedMessage : public TzSoapMessage {
public:
    using TzSoapMessage::TzSoapMessage;
    TzMimeMultipart asMimeMultipart() const override {
        TzMimeMultipart package;
        package.insertPart(part());
        return package;
    }
};

TEST(MessageLayout, ADerivedMessageMakesItsPackageItself) {
    const auto message = emptyValue<DerivedMessage>();
    EXPECT_EQ(message.asPackage(TzSoapLayout::Compact).getPart(0).getBody(), "data");
    EXPECT_EQ(message.asText(TzSoapLayout::Compact), CompactText);
}

} // namespace
