// SPDX-License-Identifier: MIT
#include <soap/TzSoapCast.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

// The forms in which a text reaches `extract`, and what each of them copies.

namespace {

constexpr std::size_t Large = 4U << 20U;

const std::string Envelope =
    "<S:Envelope xmlns:S='http://schemas.xmlsoap.org/soap/envelope/'><S:Body><a>5</a></S:Body>"
    "</S:Envelope>";

/// An envelope with much white space before it.
std::string largeEnvelope() { return std::string(Large, ' ') + Envelope; }

/// A package with a large part.
std::string largePackage() {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(TzSoapReferenceType(
        "a", TzMimePart::make(std::string(Large, 'x'), "application/octet-stream", "part")));
    return message.asString();
}

/// The bytes asked for while a message that has read before reads in this form.
template <typename Read> std::size_t bytesOf(const Read& read) {
    TzSoapMessage message;
    message.extract(Envelope);
    const std::size_t before = askedBytes();
    read(message);
    const std::size_t asked = askedBytes() - before;
    EXPECT_EQ(message.getSoapBody().getFirstEntry().getName(), TzXmlName("a"));
    return asked;
}

/// Notes the texts that arrive where the operation is overridden.
class Derived : public TzSoapMessage {
public:
    using TzSoapMessage::extract;
    void extract(const TzCString& text) override { received += '[' + text + ']'; }

    std::string received;
};

} // namespace

TEST(TzSoapExtract, EveryFormOfTextIsRead) {
    TzSoapMessage message;
    const auto read = [&] {
        return TzSoapValueReader(message.getSoapBody().getFirstEntry()).getInt();
    };
    message.extract(Envelope);
    EXPECT_EQ(read(), 5);
    message.getSoapBody().clearEntries();
    message.extract(std::string_view(Envelope));
    EXPECT_EQ(read(), 5);
    message.getSoapBody().clearEntries();
    message.extract(Envelope.c_str());
    EXPECT_EQ(read(), 5);
    message.getSoapBody().clearEntries();
    message.extract(std::string(Envelope));
    EXPECT_EQ(read(), 5);
}

TEST(TzSoapExtract, ANullPointerIsRefused) {
    const char* const null = nullptr;
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzSoapMessage().extract(null); }),
              "a null pointer is not a text");
}

TEST(TzSoapExtract, AnEnvelopeIsNeverCopied) {
    std::string text = largeEnvelope();
    EXPECT_LT(bytesOf([&](TzSoapMessage& message) { message.extract(std::as_const(text)); }),
              Large / 16);
    EXPECT_LT(bytesOf([&](TzSoapMessage& message) { message.extract(std::string_view(text)); }),
              Large / 16);
    EXPECT_LT(bytesOf([&](TzSoapMessage& message) { message.extract(std::move(text)); }),
              Large / 16);
}

TEST(TzSoapExtract, APackageThatStaysTheCallersIsCopiedOnce) {
    const std::string text = largePackage();
    const std::size_t asText = bytesOf([&](TzSoapMessage& message) { message.extract(text); });
    EXPECT_GE(asText, Large);
    EXPECT_LT(asText, Large + Large / 16);
    const std::size_t asView =
        bytesOf([&](TzSoapMessage& message) { message.extract(std::string_view(text)); });
    EXPECT_GE(asView, Large);
    EXPECT_LT(asView, Large + Large / 16);
}

TEST(TzSoapExtract, APackageThatIsGivenAwayIsNotCopied) {
    std::string text = largePackage();
    EXPECT_LT(bytesOf([&](TzSoapMessage& message) { message.extract(std::move(text)); }),
              Large / 16);
}

TEST(TzSoapExtract, ThePartsOfAPackageThatWasGivenAwayAreThere) {
    TzSoapMessage message;
    message.extract(largePackage());
    const auto reference = tzSoapAs<TzSoapReferenceType>(message.getSoapBody().getFirstEntry());
    EXPECT_EQ(reference.getMimeReference().getBody(), std::string(Large, 'x'));
}

TEST(TzSoapExtract, EveryFormReachesTheOverride) {
    Derived derived;
    derived.extract(std::string_view("view"));
    derived.extract("characters");
    derived.extract(std::string("given"));
    TzSoapMessage& base = derived;
    base.extract(std::string_view("<"));
    base.extract(std::string("Content-Type: multipart/related"));
    EXPECT_EQ(derived.received, "[view][characters][given][<][Content-Type: multipart/related]");
}

TEST(TzSoapExtract, AMessageGivenAwayToAnOverrideIsIntact) {
    Derived derived;
    std::string text = "text of some length, longer than what a string holds in itself";
    derived.extract(std::move(text));
    EXPECT_EQ(derived.received.size(), 64U);
}
