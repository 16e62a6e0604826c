// SPDX-License-Identifier: MIT
//
// Tags that were written before are written again from memory: nothing of the text may show that.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>

#include "output/WireText.h"
#include "property/Generator.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int Times = 40; // more often than elements are written without remembering them

std::string written(const TzSoapMessage& message) { return message.asText(TzSoapLayout::Compact); }

std::string serialized(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    serializer.setCompact(true);
    message.acceptVisitor(serializer);
    return std::move(serializer).getSerializedString();
}

/// What stands in the body of the text.
std::string_view contentOf(std::string_view text) {
    const std::size_t start = text.find('>', text.find(":Body")) + 1;
    return text.substr(start, text.rfind("</", text.rfind("</") - 1) - start);
}

/// The text of `message` with its body's content so many times.
std::string repeated(const std::string& text, int times) {
    const std::string content(contentOf(text));
    std::string all = text;
    for (int i = 1; i < times; ++i) {
        all.insert(text.find(content, text.find(":Body")), content);
    }
    return all;
}

/// Expects that an entry is written often as it is written once.
void expectRepeats(const TzSoapType& entry, TzSoapVersion::Version version,
                   const std::string& what) {
    const TzSoapMessage once = encodedMessage(version, {entry});
    const TzSoapMessage often = encodedMessage(version, std::vector<TzSoapType>(Times, entry));
    if (written(once).find("ref=") == std::string::npos) { // targets are written once
        EXPECT_EQ(written(often), repeated(written(once), Times)) << what;
        EXPECT_EQ(serialized(often), repeated(serialized(once), Times)) << what;
    }
}

TzSoapCompositeType listOf(const TzSoapType& first, const TzSoapType& second) {
    TzSoapCompositeType list{TzXmlName("list")};
    for (int i = 0; i < Times; ++i) {
        list.appendChild(first);
        list.appendChild(second);
    }
    return list;
}

std::string textOf(const TzSoapType& list) {
    return std::string(contentOf(written(encodedMessage(TzSoapVersion::V1_1, {list}))));
}

std::string times(const std::string& text) {
    std::string all;
    for (int i = 0; i < Times; ++i) {
        all += text;
    }
    return "<list>" + all + "</list>";
}

} // namespace

TEST(ReadyTags, ChangeNoGeneratedEntry) {
    for (std::uint32_t seed = 0; seed < 150; ++seed) {
        TzSoapMessage message = Generator(seed).message();
        for (auto entry = message.getSoapBody().entriesBegin();
             entry != message.getSoapBody().entriesEnd(); ++entry) {
            expectRepeats(*entry, message.getVersion(), std::to_string(seed));
        }
    }
}

TEST(ReadyTags, DistinguishNamesOfOneLook) {
    // Same length, same ends, and so the same place in the memory.
    EXPECT_EQ(textOf(listOf(intValue("abba", 1), intValue("acca", 2))),
              times("<abba>1</abba><acca>2</acca>"));
}

TEST(ReadyTags, DistinguishTypes) {
    const TzSoapSimpleType shown(TzXmlName("a"), 1, TzSoapType::xsdInt, true);
    const TzSoapSimpleType other(TzXmlName("a"), "1", TzSoapType::xsdInteger, true);
    EXPECT_EQ(textOf(listOf(shown, intValue("a", 2))),
              times(R"(<a xsi:type="xsd:int">1</a><a>2</a>)"));
    EXPECT_EQ(textOf(listOf(shown, other)),
              times(R"(<a xsi:type="xsd:int">1</a><a xsi:type="xsd:integer">1</a>)"));
}

TEST(ReadyTags, DistinguishPrefixes) {
    TzSoapSimpleType first = intValue("a", 1);
    first.setName(nameIn("a", "p", EnvUri11));
    TzSoapSimpleType second = intValue("a", 2);
    second.setName(nameIn("a", "SOAP-ENV", EnvUri11));
    EXPECT_EQ(textOf(listOf(first, second)), times(std::string("<p:a xmlns:p=\"") + EnvUri11 +
                                                   "\">1</p:a><SOAP-ENV:a>2</SOAP-ENV:a>"));
}

TEST(ReadyTags, DistinguishValuesWithAttributes) {
    TzSoapSimpleType second = intValue("a", 2);
    second.addAttribute(TzXmlName("b"), "3");
    EXPECT_EQ(textOf(listOf(intValue("a", 1), second)), times(R"(<a>1</a><a b="3">2</a>)"));
}

TEST(ReadyTags, DistinguishTextsThatAreNotEscaped) {
    TzSoapSimpleType markup(TzXmlName("a"), "<b/>", TzSoapType::xsdString, false);
    const TzSoapType escaped = markup.copy();
    markup.setEscapeText(TzSoapType::EscapeOff);
    EXPECT_EQ(textOf(listOf(markup, escaped)), times("<a><b/></a><a>&lt;b/&gt;</a>"));
}

TEST(ReadyTags, GoWithTheirDeclaration) {
    // A prefix stands for one namespace within the first member and for another within the second.
    const auto holder = [](const char* uri) {
        TzSoapCompositeType made{TzXmlName("h")};
        made.addNamespaceAttribute(TzXmlNamespace("p", uri));
        TzSoapSimpleType value = intValue("a", 1);
        value.setName(nameIn("a", "p", uri));
        made.appendChild(value);
        return made;
    };
    EXPECT_EQ(textOf(listOf(holder("urn:a"), holder("urn:b"))),
              times(R"(<h xmlns:p="urn:a"><p:a>1</p:a></h><h xmlns:p="urn:b"><p:a>1</p:a></h>)"));
}

TEST(ReadyTags, WriteNamesTooLongForThem) {
    const std::string name(200, 'n');
    EXPECT_EQ(textOf(listOf(intValue(name.c_str(), 1), intValue("a", 2))),
              times("<" + name + ">1</" + name + "><a>2</a>"));
}

TEST(ReadyTags, IndentLikeAllOthers) {
    const TzSoapMessage message =
        encodedMessage(TzSoapVersion::V1_1,
                       {listOf(intValue("a", 1), listOf(intValue("b", 2), intValue("c", 3)))});
    std::string inner;
    for (int i = 0; i < Times; ++i) {
        inner += "        <b>2</b>\n        <c>3</c>\n";
    }
    std::string outer;
    for (int i = 0; i < Times; ++i) {
        outer += "      <a>1</a>\n      <list>\n" + inner + "      </list>\n";
    }
    EXPECT_EQ(message.asString(), envelope11("    <list>\n" + outer + "    </list>\n"));
}
