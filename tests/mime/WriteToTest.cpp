// SPDX-License-Identifier: MIT
//
// Writing messages and packages into a text that is reused and to sinks: the bytes of `asText`,
// what stays in memory, and what remains after errors.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzWriteError.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlOutputWriter.h>

#include "output/WireText.h"
#include "property/Generator.h"
#include "support/AllocationFailure.h"
#include "support/Samples.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Joins what a sink takes.
std::string joined(const TzSoapMessage& message, TzSoapLayout layout) {
    std::string text;
    message.writeTo([&text](std::string_view piece) { text += piece; }, layout);
    return text;
}

void expectSame(const TzSoapMessage& message, const std::string& what) {
    for (const TzSoapLayout layout : {TzSoapLayout::Indented, TzSoapLayout::Compact}) {
        const std::string expected = message.asText(layout);
        std::string text = "before";
        message.writeTo(text, layout);
        EXPECT_TRUE(text == "before" + expected) << what;
        EXPECT_TRUE(joined(message, layout) == expected) << what;
        std::ostringstream stream;
        message.writeTo(stream, layout);
        EXPECT_TRUE(stream.str() == expected) << what;
    }
    EXPECT_TRUE(joined(message, TzSoapLayout::Indented) == message.asString()) << what;
}

TzMimePart partOf(std::string bytes, const char* encoding = "binary") {
    TzMimePart part;
    part.insertHeader(TzMimeHeader("Content-Type", "application/octet-stream"));
    part.insertHeader(TzMimeHeader("Content-Transfer-Encoding", encoding));
    part.insertHeader(TzMimeHeader("Content-ID", "<p@x>"));
    part.setBody(std::move(bytes));
    return part;
}

/// A message that refers to a part.
TzSoapMessage withPart(const TzMimePart& part) {
    return encodedMessage(TzSoapVersion::V1_1, {TzSoapReferenceType(TzXmlName("file"), part)});
}

/// A message whose text is longer than what is held back.
TzSoapMessage longMessage() {
    TzSoapCompositeType list{TzXmlName("list")};
    for (int i = 0; i < 5000; ++i) {
        list.appendChild(intValue("i", i));
    }
    return encodedMessage(TzSoapVersion::V1_1, {list});
}

/// A message with a value that cannot be written after many that can.
TzSoapMessage badMessage() {
    TzSoapMessage message = longMessage();
    message.getSoapBody().appendEntry(
        TzSoapSimpleType(TzXmlName("bad"), "\x01", TzSoapType::xsdString, false));
    return message;
}

std::string everyByte(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    }
    return bytes;
}

class Derived : public TzSoapMessage {
public:
    using TzSoapMessage::TzSoapMessage;
    bool hasAttachments() const override { return true; }
    TzMimeMultipart asMimeMultipart() const override {
        TzMimeMultipart package;
        package.insertHeader(TzMimeHeader("X-Own", "yes"));
        return package;
    }
    using TzSoapMessage::asMimeMultipart;
};

} // namespace

TEST(WriteTo, WritesTheTextOfEverySample) {
    for (const auto& file : sampleFiles()) {
        TzSoapMessage message;
        try {
            message.extract(readFile(file));
        } catch (const Tzxmsg&) {
            continue; // those that are to be refused
        }
        expectSame(message, file);
        message.addReceivedAttachments();
        expectSame(message, file);
    }
}

TEST(WriteTo, WritesTheTextOfGeneratedMessages) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        expectSame(Generator(seed).message(), std::to_string(seed));
    }
}

TEST(WriteTo, WritesTheTextOfPackages) {
    for (const char* encoding : {"binary", "base64", "quoted-printable"}) {
        for (const std::size_t size : {0U, 1U, 57U, 58U, 7296U, 7297U, 16383U, 16384U, 100000U}) {
            expectSame(withPart(partOf(everyByte(size), encoding)),
                       encoding + (' ' + std::to_string(size)));
        }
    }
    expectSame(withPart(partOf("a\r\n--MIME_boundary\r\nb")), "with its delimiter");
    TzSoapMessage added = longMessage();
    added.addAttachment(partOf(everyByte(40000)));
    expectSame(added, "added");
}

TEST(WriteTo, WritesWhatADerivedMessageMakes) {
    const Derived message(TzSoapVersion::V1_1);
    std::string text;
    message.writeTo(text);
    EXPECT_EQ(text, message.asString());
    EXPECT_EQ(joined(message, TzSoapLayout::Indented), message.asString());
    EXPECT_TRUE(text.starts_with("X-Own: yes\r\n")) << text;
}

TEST(WriteTo, WritesAPackageThatWasMade) {
    const TzMimeMultipart package = withPart(partOf(everyByte(20000))).asPackage();
    std::string text = "before";
    package.writeTo(text);
    EXPECT_TRUE(text == "before" + package.asString());
    std::string pieces;
    package.writeTo([&pieces](std::string_view piece) { pieces += piece; });
    EXPECT_TRUE(pieces == package.asString());
    EXPECT_EQ(TzMimePart().asString(), "\r\n");
    pieces.clear();
    TzMimePart().writeTo([&pieces](std::string_view piece) { pieces += piece; });
    EXPECT_EQ(pieces, "\r\n");
}

TEST(WriteTo, ReusesTheCapacityOfTheText) {
    const TzSoapMessage message = longMessage();
    std::string text;
    message.writeTo(text);
    const std::size_t capacity = text.capacity();
    const std::string expected = text;
    text.clear();
    const std::size_t asked = askedBytes();
    message.writeTo(text);
    EXPECT_LT(askedBytes() - asked, 16384U);
    EXPECT_EQ(text.capacity(), capacity);
    EXPECT_TRUE(text == expected);
}

TEST(WriteTo, LeavesTheTextAsItWasAfterAnError) {
    std::string text = "before";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { badMessage().writeTo(text); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    EXPECT_EQ(text, "before");
}

TEST(WriteTo, LeavesTheTextAsItWasWithoutMemory) {
    const TzSoapMessage message = withPart(partOf(everyByte(3000)));
    std::string text = "before";
    text.reserve(100);
    failEachAllocation([&] {
        text.resize(6);
        try {
            message.writeTo(text);
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(text, "before");
            std::string("before").swap(text);
            throw;
        }
        std::string("before").swap(text);
    });
}

TEST(WriteTo, GivesBackWhatItTookWithoutMemory) {
    const TzSoapMessage message = withPart(partOf(everyByte(30000), "base64"));
    failEachAllocation([&] { message.writeTo([](std::string_view) {}); });
}

TEST(WriteTo, HoldsBackNoMoreThanItSays) {
    const TzSoapMessage message = longMessage();
    message.writeTo([](std::string_view) {});
    const std::size_t before = askedBytes();
    std::size_t longest = 0;
    std::size_t size = 0;
    message.writeTo([&](std::string_view piece) {
        longest = std::max(longest, piece.size());
        size += piece.size();
    });
    EXPECT_LT(askedBytes() - before, 64U * 1024U);
    EXPECT_LE(longest, TzXmlOutputWriter::Held);
    EXPECT_GT(size, 80000U);
}

TEST(WriteTo, HandsAttachmentsOverFromWhereTheyLie) {
    const TzMimePart part = partOf(everyByte(1 << 20));
    const std::string_view body = part.getBodyView();
    const TzSoapMessage message = withPart(part);
    const std::size_t before = askedBytes();
    bool isWhole = false;
    message.writeTo([&](std::string_view piece) {
        isWhole = isWhole || (piece.data() == body.data() && piece.size() == body.size());
    });
    EXPECT_TRUE(isWhole);
    EXPECT_LT(askedBytes() - before, 64U * 1024U);
}

TEST(WriteTo, HandsReceivedAttachmentsOverFromWhereTheyLie) {
    TzSoapMessage message;
    message.extract(withPart(partOf(everyByte(1 << 20))).asString());
    const std::string_view body = message.getMimeMultipart().getPart(1).getBodyView();
    bool isWhole = false;
    message.writeTo([&](std::string_view piece) {
        isWhole = isWhole || (piece.data() == body.data() && piece.size() == body.size());
    });
    EXPECT_TRUE(isWhole);
}

TEST(WriteTo, EncodesAttachmentsPieceByPiece) {
    const TzSoapMessage message = withPart(partOf(everyByte(1 << 20), "base64"));
    const std::size_t before = askedBytes();
    std::size_t size = 0;
    message.writeTo([&size](std::string_view piece) { size += piece.size(); });
    EXPECT_GT(size, std::size_t{1 << 20} / 3 * 4);
    EXPECT_LT(askedBytes() - before, 128U * 1024U);
}

TEST(WriteTo, LetsWhatTheSinkThrowsPassAtEachPiece) {
    TzSoapMessage message = longMessage();
    message.addAttachment(partOf(everyByte(100000)));
    message.addAttachment(partOf(everyByte(100000), "base64"));
    const std::string expected = message.asString();
    for (std::size_t failing = 1;; ++failing) {
        std::size_t calls = 0;
        std::string taken;
        const auto take = [&](std::string_view piece) {
            if (++calls == failing) {
                throw std::runtime_error("full");
            }
            taken += piece;
        };
        try {
            message.writeTo(take);
            EXPECT_GT(failing, 5U);
            EXPECT_TRUE(taken == expected);
            break;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "full");
            EXPECT_EQ(calls, failing);
            EXPECT_TRUE(expected.starts_with(taken)) << failing;
        }
        // The message can be written again.
        ASSERT_TRUE(joined(message, TzSoapLayout::Indented) == expected) << failing;
    }
}

TEST(WriteTo, GivesASinkTheBeginningBeforeAnError) {
    std::string taken;
    EXPECT_EQ(textThrown<TzXmlBadArgError>(
                  [&] { badMessage().writeTo([&](std::string_view piece) { taken += piece; }); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    EXPECT_TRUE(longMessage().asString().starts_with(taken));
    EXPECT_GT(taken.size(), 60000U);
}

TEST(WriteTo, ReportsAFailedStream) {
    std::ostringstream stream;
    stream.setstate(std::ios::failbit);
    EXPECT_EQ(textThrown<TzWriteError>([&] { longMessage().writeTo(stream); }),
              "the stream cannot be written");
    EXPECT_EQ(stream.str(), "");
}

TEST(WriteTo, WritesToADescriptor) {
    char name[] = "/tmp/tzsoap_write_to_XXXXXX";
    const int descriptor = mkstemp(name);
    ASSERT_GE(descriptor, 0);
    TzSoapMessage message = longMessage();
    message.addAttachment(partOf(everyByte(100000)));
    message.writeTo(TzSink::toDescriptor(descriptor));
    close(descriptor);
    EXPECT_TRUE(readFile(name) == message.asString());
    unlink(name);
}

TEST(WriteTo, ReportsAFullDevice) {
    const int descriptor = open("/dev/full", O_WRONLY);
    const std::string text = textThrown<TzWriteError>(
        [descriptor] { longMessage().writeTo(TzSink::toDescriptor(descriptor)); });
    close(descriptor);
    EXPECT_EQ(text, "the file descriptor cannot be written: No space left on device");
}
