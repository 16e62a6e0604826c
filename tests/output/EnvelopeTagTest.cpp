// SPDX-License-Identifier: MIT
//
// The tag of an envelope that is like the one before on the thread is written again from memory:
// nothing of the text may show that.
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapStyle.h>
#include <tz/thread/TzTSpares.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"
#include "output/WireText.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr char Other[] = "urn:other";

TzSoapAttributeSet& attributesOf(const TzSoapMessage& message) {
    return TzSoapAccess::body(message).getAttributeSet();
}

TzSoapMessage usual() {
    const TzSoapSimpleType qualified(nameIn("b", "m", "urn:m"), 2, TzSoapType::xsdInt, false);
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {intValue("a", 1), qualified});
    message.addNamespaceAttribute("m", "urn:m");
    return message;
}

/// A usual message that `change` has changed.
TzSoapMessage changed(const std::function<void(TzSoapMessage&)>& change) {
    TzSoapMessage message = usual();
    change(message);
    return message;
}

/// A body that states another style than the one it keeps.
struct OtherStyle : TzSoapMessageImp {
    using TzSoapMessageImp::TzSoapMessageImp;
    OtherStyle* clone() const override { return new OtherStyle(*this); }
    TzCString getEncodingStyleAttribute() const override { return Other; }
};

TzSoapMessage ofOtherStyle() {
    auto message = TzSoapAccess::handle<TzSoapMessage>(new OtherStyle(TzSoapVersion::V1_1));
    const TzSoapMessage like = usual();
    for (const TzXmlAttribute& each : attributesOf(like)) {
        attributesOf(message).add(each);
    }
    message.setEncodingStyle(TzCString(EncUri11));
    message.getSoapBody().appendEntry(intValue("a", 1));
    return message;
}

TzSoapMessage declaring(const std::vector<TzXmlNamespace>& namespaces) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    for (const TzXmlNamespace& each : namespaces) {
        message.addNamespaceAttribute(each);
    }
    message.getSoapBody().appendEntry(intValue("a", 1));
    return message;
}

std::vector<TzXmlNamespace> many(int count) {
    std::vector<TzXmlNamespace> namespaces;
    for (int i = 0; i < count; ++i) {
        namespaces.emplace_back("p" + std::to_string(i), "urn:p");
    }
    return namespaces;
}

TzSoapMessage withAttribute(const char* local, const char* prefix, const char* uri) {
    return changed([&](TzSoapMessage& message) {
        attributesOf(message).add(nameIn(local, prefix, uri), TzCString("1"));
    });
}

TzSoapMessage named(const char* local, const char* prefix, const char* uri) {
    return changed([&](TzSoapMessage& message) {
        TzSoapAccess::body(message).setName(nameIn(local, prefix, uri));
    });
}

/// A literal message with an entry of a namespace that no envelope declares.
TzSoapMessage literal(const char* uri) {
    return changed([&](TzSoapMessage& message) {
        message.setStyle(TzSoapStyle::Literal);
        message.setEncodingStyle(TzCString());
        message.getSoapBody().appendEntry(
            TzSoapSimpleType(nameIn("c", "c", uri), 3, TzSoapType::xsdInt, false));
    });
}

/// A usual message in which an attribute that only looks like a declaration replaces one.
TzSoapMessage withSeemingDeclaration() {
    return changed([](TzSoapMessage& message) {
        TzSoapAttributeSet& attributes = attributesOf(message);
        attributes.erase(attributes.findDeclaration("m"));
        attributes.add(TzXmlName("xmlns:m", TzXmlNamespace()), TzCString("urn:m"));
    });
}

/// Messages that differ from each other in one thing, each of which the tag depends on.
std::vector<TzSoapMessage> allKinds() {
    using Message = TzSoapMessage;
    const std::string longUri(2000, 'u');
    return {
        usual(),
        changed([](Message& it) { it.setVersion(TzSoapVersion::V1_2); }),
        changed([](Message& it) { it.setVersion(TzSoapVersion::V1_2Rec); }),
        changed([](Message& it) { it.setStyle(TzSoapStyle::Literal); }),
        changed([](Message& it) { it.setSoapPrefix("s"); }),
        changed([](Message& it) { it.setSoapPrefix(""); }),
        changed([](Message& it) { it.setSoapPrefix("m"); }),
        changed([](Message& it) { it.setSoapEncodingPrefix("e"); }),
        changed([](Message& it) { it.setEncodingStyle(TzCString()); }),
        changed([](Message& it) { it.setEncodingStyle(TzCString(Other)); }),
        changed([](Message& it) { it.setEncodingStyle(TzCString("a&b")); }),
        changed([](Message& it) { it.addNamespaceAttribute("m", Other); }),
        changed([](Message& it) { it.addNamespaceAttribute("n", "urn:m"); }),
        changed([](Message& it) { it.addNamespaceAttribute("m", "urn:a&b"); }),
        changed([](Message& it) { it.addNamespaceAttribute("", "urn:m"); }),
        changed([](Message& it) { it.addNamespaceAttribute("SOAP-ENV", Other); }),
        changed([](Message& it) { attributesOf(it).erase(attributesOf(it).begin()); }),
        withAttribute("x", "", ""),
        withAttribute("id", "", ""),
        withAttribute("x", "m", "urn:m"),
        withAttribute("x", "xmlnt", "urn:m"),
        named("Envelope", "SOAP-ENV", Other),
        named("SOAP-ENV:Envelope", "", EnvUri11),
        changed([](Message& it) {
            it.setVersion(TzSoapVersion::V1_2);
            TzSoapAccess::body(it).setName(nameIn("Envelope", "SOAP-ENV", EnvUri11));
        }),
        withSeemingDeclaration(),
        changed([](Message& it) {
            it.setVersion(TzSoapVersion::V1_2);
            TzSoapAccess::body(it).setName(nameIn("Envelope", "SOAP-ENV", Other));
        }),
        literal("urn:1"),
        literal("urn:2"),
        ofOtherStyle(),
        declaring({}),
        declaring({TzXmlNamespace("a", "urn:a"), TzXmlNamespace("b", "urn:b")}),
        declaring({TzXmlNamespace("b", "urn:b"), TzXmlNamespace("a", "urn:a")}),
        declaring({TzXmlNamespace("a", "urn:b"), TzXmlNamespace("b", "urn:a")}),
        declaring({TzXmlNamespace("a", longUri)}),
        declaring(many(8)),
        declaring(many(9)),
        declaring(many(40)),
    };
}

} // namespace

TEST(EnvelopeTag, IsTheSameTheSecondTime) {
    TzSoapMessage message = usual();
    message.setProlog(TzXmlProlog());
    const std::string expected =
        R"(<?xml version="1.0" encoding="UTF-8"?>)"
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/")"
        R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
        R"( xmlns:xsd="http://www.w3.org/2001/XMLSchema" xmlns:m="urn:m")"
        R"( SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">)"
        R"(<SOAP-ENV:Body><a>1</a><m:b>2</m:b></SOAP-ENV:Body></SOAP-ENV:Envelope>)";
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(message.asText(TzSoapLayout::Compact), expected) << i;
    }
}

TEST(EnvelopeTag, IsThatOfItsMessageWhateverWasBefore) {
    // A writer of a program remembers nothing of others.
    const std::vector<TzSoapMessage> messages = allKinds();
    for (std::size_t before = 0; before < messages.size(); ++before) {
        for (std::size_t i = 0; i < messages.size(); ++i) {
            EXPECT_EQ(messages[before].asString(), wire(messages[before])) << before;
            EXPECT_EQ(messages[i].asString(), wire(messages[i])) << i << " after " << before;
            EXPECT_EQ(messages[i].asString(), wire(messages[i])) << i << " again";
        }
    }
}

TEST(EnvelopeTag, DeclaresWhatItsContentNeeds) {
    // The first value binds a prefix that the envelope leaves free, the second one uses another.
    const TzSoapMessage first = changed([](TzSoapMessage& message) {
        message.getSoapBody().appendEntry(
            TzSoapSimpleType(nameIn("c", "free", "urn:1"), 3, TzSoapType::xsdInt, true));
    });
    const TzSoapMessage second = changed([](TzSoapMessage& message) {
        message.getSoapBody().appendEntry(
            TzSoapSimpleType(nameIn("c", "free", "urn:2"), 3, TzSoapType::xsdInt, true));
    });
    for (int i = 0; i < 3; ++i) {
        EXPECT_NE(first.asString().find(R"(<free:c xmlns:free="urn:1" xsi:type="xsd:int">3<)"),
                  std::string::npos)
            << first.asString();
        EXPECT_NE(second.asString().find(R"(<free:c xmlns:free="urn:2" xsi:type="xsd:int">3<)"),
                  std::string::npos)
            << second.asString();
    }
}

TEST(EnvelopeTag, IsRightAfterAMessageThatIsRefused) {
    const TzSoapMessage good = usual();
    const TzSoapMessage bad = changed([](TzSoapMessage& message) {
        message.getSoapBody().appendEntry(
            TzSoapSimpleType("c", "\x01", TzSoapType::xsdString, false));
    });
    const TzSoapMessage unwritable = withAttribute("no name", "", "");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { bad.asString(); }),
                  "the character U+0001 at offset 0 cannot stand in XML");
        EXPECT_EQ(good.asString(), wire(good));
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { unwritable.asString(); }),
                  "\"no name\" is no name of XML");
        EXPECT_EQ(good.asString(), wire(good));
    }
}

TEST(EnvelopeTag, IsRightAfterFailedAllocations) {
    const TzSoapMessage one = usual();
    const TzSoapMessage other = declaring({TzXmlNamespace("of-a-long-prefix", "urn:a:long:one")});
    const std::string expected = wire(other);
    EXPECT_GE(failEachAllocation([&] {
                  TzSpares::dropOfThisThread();
                  one.asString();
                  other.asString();
              }),
              5U);
    EXPECT_EQ(one.asString(), wire(one));
    EXPECT_EQ(other.asString(), expected);
    EXPECT_EQ(other.asString(), expected);
}

TEST(EnvelopeTag, ServesAMessageWithinAnotherOne) {
    const TzSoapMessage outer = usual();
    const TzSoapMessage inner = declaring({TzXmlNamespace("a", "urn:a")});
    for (int i = 0; i < 3; ++i) {
        std::string text;
        outer.writeTo([&](std::string_view piece) {
            EXPECT_EQ(inner.asString(), wire(inner));
            text += piece;
        });
        EXPECT_EQ(text, wire(outer));
    }
}

TEST(EnvelopeTag, TakesNoMemoryTheSecondTimeAndLittleTheFirst) {
    const TzSoapMessage message = usual();
    const TzSoapMessage hostile = declaring({TzXmlNamespace("a", std::string(1 << 20, 'u'))});
    TzCString text;
    hostile.writeTo(text); // makes room and is not remembered
    text.clear();
    TzSpares::dropOfThisThread();
    const std::size_t asked = askedBytes();
    message.writeTo(text);
    EXPECT_LE(askedBytes() - asked, 4096U);
    hostile.asString();
    text.clear();
    const std::size_t made = madeAllocations();
    message.writeTo(text);
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(text, wire(message));
}
