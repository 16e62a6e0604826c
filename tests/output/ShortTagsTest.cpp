// SPDX-License-Identifier: MIT
//
// Values that state little are written in a short way: nothing of the text may show that.
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapSerializer.h>

#include "output/WireText.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char Extra[] = " x=\"1\"";

/// What a header entry says.
struct Stated {
    int mustUnderstand = -1; // unset
    std::string actor;
    TzXmlName type;
    std::string style;
    bool root = false;
};

template <typename Entry> Entry stating(Entry entry, const Stated& stated, bool withExtra) {
    if (stated.mustUnderstand >= 0) {
        entry.setMustUnderstand(stated.mustUnderstand == 1);
    }
    entry.setActor(stated.actor);
    if (!stated.type.isEmpty()) {
        entry.setTypeAttribute(stated.type);
    }
    entry.setEncodingStyle(stated.style);
    if (stated.root) {
        entry.setRoot(true);
    }
    if (withExtra) {
        entry.addAttribute(TzXmlAttribute(TzXmlName("x"), "1"));
    }
    return entry;
}

TzSoapCompositeType block() {
    TzSoapCompositeType entry(nameIn("b", "p", "urn:p"));
    entry.appendChild(intValue("i", 1));
    return entry;
}

TzSoapSimpleType value() { return {nameIn("v", "", ""), "a<b", TzSoapType::xsdString, false}; }

void append(TzSoapMessage& message, const TzSoapType& entry) {
    message.getSoapHeader().appendHeaderEntry(entry, TzCString(entry.getActorAttribute()));
}

/// The texts of a message with `entry` in its header: of writer and serializer.
template <typename Entry>
std::string texts(const TzSoapMessage& empty, const Entry& entry, const char* prefix) {
    TzSoapMessage message = empty.copy();
    append(message, entry);
    message.setSoapPrefix(prefix);
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return message.asText(TzSoapLayout::Indented) + serializer.getSerializedString();
}

/// `text` without the attribute that makes writing take the long way.
std::string shortened(std::string text) {
    for (std::size_t at = text.find(Extra); at != std::string::npos; at = text.find(Extra)) {
        text.erase(at, sizeof Extra - 1);
    }
    return text;
}

template <typename Entry>
void expectSame(const TzSoapMessage& message, const Entry& entry, const Stated& stated) {
    for (const char* prefix : {"e", "SOAP-ENV"}) {
        EXPECT_EQ(texts(message, stating(entry.copy(), stated, false), prefix),
                  shortened(texts(message, stating(entry.copy(), stated, true), prefix)));
    }
}

const Stated AllStated[] = {
    {},
    {0, "", {}, "", false},
    {1, "", {}, "", false},
    {-1, "urn:a", {}, "", false},
    {1, "a&\"<b\n", nameIn("int", "xsd", "http://www.w3.org/2001/XMLSchema"), "", false},
    {1, "urn:a", nameIn("a b", "xsd", "http://www.w3.org/2001/XMLSchema"), "", false},
    {1, "urn:a", nameIn("t", "q", "urn:q"), "", true},
    {1, "urn:a", {}, "urn:style", false},
    {0, "urn:a", nameIn("t", "", "urn:q"), "", false},
};

} // namespace

TEST(ShortTags, AreThoseOfTheLongWay) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2, TzSoapVersion::V1_2Rec}) {
        for (const TzSoapStyle style : {TzSoapStyle::Encoded, TzSoapStyle::Literal}) {
            for (const bool encoded : {true, false}) {
                TzSoapMessage message =
                    encoded ? encodedMessage(version, {}) : TzSoapMessage(version);
                message.setStyle(style);
                for (const Stated& stated : AllStated) {
                    expectSame(message, value(), stated);
                    expectSame(message, block(), stated);
                }
            }
        }
    }
}

TEST(ShortTags, StateWhatAHeaderEntryStates) {
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {});
    const Stated stated{1, "a&b", nameIn("int", "xsd", "http://www.w3.org/2001/XMLSchema"), "",
                        false};
    append(message, stating(intValue("i", 5), stated, false));
    append(message, stating(block(), {0, "urn:a", {}, "", false}, false));
    const std::string text = message.asText(TzSoapLayout::Compact);
    const std::size_t start = text.find("<SOAP-ENV:Header>");
    EXPECT_EQ(text.substr(start, text.find("<SOAP-ENV:Body>") - start),
              R"(<SOAP-ENV:Header><i SOAP-ENV:mustUnderstand="1" xsi:type="xsd:int")"
              R"( SOAP-ENV:actor="a&amp;b">5</i>)"
              R"(<p:b xmlns:p="urn:p" SOAP-ENV:actor="urn:a"><i>1</i></p:b></SOAP-ENV:Header>)");
}

TEST(ShortTags, RefuseWhatXmlCannotCarry) {
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {});
    append(message, stating(intValue("i", 5), {1, "\x01", {}, "", false}, false));
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { message.asText(TzSoapLayout::Compact); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    TzSoapMessage odd = encodedMessage(TzSoapVersion::V1_1, {});
    append(odd, stating(intValue("i", 5), {1, "", {}, "", false}, false));
    odd.setSoapPrefix("no name");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { odd.asText(TzSoapLayout::Compact); }),
              "\"no name:Envelope\" is no name of XML");
}

TEST(ShortTags, TakeNoMemoryForAUsualMessage) {
    TzSoapCompositeType order(nameIn("order", "m", "urn:m"));
    for (const char* name : {"symbol", "amount", "price", "urgent", "placed"}) {
        order.appendChild(stating(
            intValue(name, 7),
            {-1, "", nameIn("int", "xsd", "http://www.w3.org/2001/XMLSchema"), "", false}, false));
    }
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {order});
    message.addNamespaceAttribute(TzXmlNamespace("m", "urn:m"));
    message.setProlog(TzXmlProlog());
    append(message, stating(intValue("i", 5), {1, "urn:a", {}, "", false}, false));
    std::string text;
    message.writeTo(text, TzSoapLayout::Compact);
    const std::string expected = text;
    text.clear();
    const std::size_t made = madeAllocations();
    message.writeTo(text, TzSoapLayout::Compact);
    EXPECT_LE(madeAllocations() - made, 1U); // the copy of the style that the envelope hands out
    EXPECT_EQ(text, expected);
}
