// SPDX-License-Identifier: MIT
//
// Whatever the bytes: an error with its place or a message, and nothing left behind.
#include "support/AllocationFailure.h"
#include "support/ReadValues.h"
#include "support/Samples.h"
#include "support/Throws.h"

#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <iterator>
#include <new>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace std::string_literals;

namespace {

using V = TzSoapVersion;

const char* const noToken = "not well-formed (invalid token)";

class HostileInput : public ReadingBothVersions {
protected:
    /// A message with everything that reading knows, in few bytes.
    std::string everything() const {
        const bool soap11 = GetParam() == V::V1_1;
        const std::string fault =
            soap11
                ? "<e:Fault><faultcode>e:Server</faultcode><faultstring>s</faultstring>"
                  "<detail><d id=\"d\">1</d></detail></e:Fault>"
                : "<e:Fault><e:Code><e:Value>e:Receiver</e:Value><e:Subcode><e:Value>e:x</e:Value>"
                  "</e:Subcode></e:Code><e:Reason>s</e:Reason><e:Detail><d "
                  "id=\"d\">1</d></e:Detail>"
                  "</e:Fault>";
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
               wire.envelope(
                   "\n<e:Header><h e:mustUnderstand=\"1\" id=\"h\">" + ref("x") +
                   "</h><f:Misunderstood xmlns:f=\"http://www.w3.org/2002/06/soap-faults\""
                   " qname=\"e:a\"/></e:Header>\n<e:Body>" +
                   fault + "<a id=\"x\" xsi:type=\"xsd:int\">1&lt;<![CDATA[2]]>\xC3\xBC</a><b>" +
                   ref("h") + ref("d") + "<c xmlns=\"urn:c\" k=\"v\">\n<g/></c></b><i id=\"i\" " +
                   wire.array("xsd:int", "3") + " " + wire.offset("1") + ">" + ref("i") +
                   "<j/></i><k " + wire.array("xsd:int", "9") + "><j " + wire.position("7") +
                   ">2</j></k><u e:encodingStyle=\"urn:f\">t<v w='1'/></u><p "
                   "href=\"cid:x\"/></e:Body>");
    }
    std::string ref(const std::string& id) const { return "<r " + wire.ref(id) + "/>"; }
    /// Expects a body with `entry`, which stands at the start of the second line, to be refused.
    void expectRefusedIn(const std::string& entry, const std::string& refusal,
                         std::size_t column) const {
        EXPECT_EQ(textThrown<TzXmlParseError>([&] { readMessage(wire.body("\n" + entry)); }),
                  refusal + ", line 2, column " + std::to_string(column))
            << testing::PrintToString(entry.substr(0, 100));
    }
};

std::vector<std::string> sampleTexts() {
    std::vector<std::string> texts;
    for (const auto& file : sampleFiles()) {
        texts.push_back(readFile(file));
    }
    return texts;
}

/// Expects a text of the catalogue, one that ends with its place or that of a package cut short.
void expectSays(const Tzxmsg& error, const std::string& text) {
    const std::string place = ", line " + std::to_string(error.getLine()) + ", column " +
                              std::to_string(error.getColumn());
    EXPECT_THAT(error.asString(),
                testing::AnyOf(testing::ContainsRegex("^\\[[A-Z_]+\\]"), testing::EndsWith(place),
                               "the package is cut short: it has no closing line"))
        << text;
}

/// Reads damaged text: a message that can be written, or one of the errors that `extract`
/// documents, with its place when it is about the envelope.
void readDamaged(TzSoapMessage& message, const std::string& text) {
    try {
        message.extract(text);
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getLine() == 0, error.getColumn() == 0) << text;
        expectSays(error, text);
        return;
    } catch (const TzXmlBoundsError& error) {
        EXPECT_NE(error.getLine(), 0U) << text;
        return;
    } catch (const TzXmlBadArgError& error) {
        EXPECT_NE(error.getLine(), 0U) << text;
        return;
    }
    try {
        message.asString();
    } catch (const Tzxmsg& error) {
        expectSays(error, text);
    }
}

/// Reads `text` with each byte in turn changed, left out and doubled by chance, equally each time.
void readMutated(const std::string& text, std::uint32_t seed) {
    std::mt19937 random(seed);
    TzSoapMessage message;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string changed = text;
        const auto chance = static_cast<unsigned int>(random());
        switch (chance % 6) {
        case 0:
            changed.erase(at, 1);
            break;
        case 1:
            changed.insert(at, 1, text[at]);
            break;
        case 2:
            changed[at] = "<>&\"'=/ :#[],-0"[chance / 6 % 15];
            break;
        case 3:
            changed[at] = text[random() % text.size()];
            break;
        case 4:
            changed[at] = static_cast<char>(changed[at] ^ (1 << (chance / 6 % 8)));
            break;
        default:
            changed[at] = static_cast<char>(chance >> 8);
            break;
        }
        readDamaged(message, changed);
    }
    message.extract(WireForm(V::V1_2).body("<a>1</a>"));
    EXPECT_EQ(textOf(bodyEntry(message)), "1");
}

struct Work {
    double allocations;
    double bytes;
};

/// What reading `text` takes, counted by its memory.
Work workOf(const std::string& text) {
    const std::size_t allocations = madeAllocations();
    const std::size_t bytes = askedBytes();
    readMessage(text);
    return {static_cast<double>(madeAllocations() - allocations),
            static_cast<double>(askedBytes() - bytes)};
}

/// Expects twice the text to take about twice the work.
void expectLinear(const std::function<std::string(std::size_t)>& textOfSize, std::size_t size) {
    workOf(textOfSize(1));
    const Work once = workOf(textOfSize(size));
    const Work twice = workOf(textOfSize(2 * size));
    EXPECT_LT(twice.allocations / once.allocations, 2.3) << textOfSize(1);
    EXPECT_LT(twice.bytes / once.bytes, 2.6)
        << textOfSize(1); // what doubles its memory asks unevenly
}

} // namespace

TZSOAP_BOTH_VERSIONS(HostileInput);

TEST_P(HostileInput, ATextCutAtEveryByteIsRefusedWithItsPlace) {
    const std::string text = everything();
    const std::string written = readMessage(text).asString();
    TzSoapMessage message;
    for (std::size_t size = 0; size < text.size(); ++size) {
        try {
            message.extract(text.substr(0, size));
            ADD_FAILURE() << "accepted: " << size;
        } catch (const TzXmlParseError& error) {
            const auto lines = static_cast<std::size_t>(
                std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size), '\n'));
            EXPECT_GE(error.getLine(), 1U) << size;
            EXPECT_LE(error.getLine(), lines + 1) << size;
            EXPECT_GE(error.getColumn(), 1U) << size;
            EXPECT_LE(error.getColumn(), size + 1) << size;
        }
        if (size % 16 == 0) {
            message.extract(text);
            ASSERT_EQ(message.asString(), written) << size;
        }
    }
}

TEST_P(HostileInput, AWideTextCutAtEveryByteIsRefused) {
    std::string text = "\xFF\xFE";
    for (const char character : wire.body("<a k=\"v\">1</a>")) {
        text += character;
        text += '\0';
    }
    TzSoapMessage message;
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_EQ(lineThrown<TzXmlParseError>([&] { message.extract(text.substr(0, size)); }), 1U)
            << size;
    }
    message.extract(text);
    EXPECT_EQ(textOf(bodyEntry(message)), "1");
}

TEST_P(HostileInput, ATextWithAnyByteDamagedDoesNoHarm) {
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
        readMutated(everything(), seed);
    }
}

TEST(HostileInputSamples, CutAtEveryByteDoNoHarm) {
    TzSoapMessage message;
    for (const std::string& text : sampleTexts()) {
        for (std::size_t size = 0; size < text.size(); ++size) {
            readDamaged(message, text.substr(0, size));
        }
    }
}

TEST(HostileInputSamples, WithAnyByteDamagedDoNoHarm) {
    std::uint32_t seed = 1;
    for (const std::string& text : sampleTexts()) {
        readMutated(text, seed++);
    }
}

TEST_P(HostileInput, BytesThatAreNoCharactersAreRefused) {
    for (const std::string& bytes :
         {"\xFF"s, "\xC0\x80"s, "\xC1\xBF"s, "\xE0\x80\x80"s, "\xF0\x80\x80\x80"s, "\xED\xA0\x80"s,
          "\xF4\x90\x80\x80"s, "\xC3"s, "\xE2\x82"s, "\x80"s, "\0"s, "\1"s, "\x1F"s,
          "\xEF\xBF\xBE"s}) {
        expectRefusedIn("<a>" + bytes + "</a>", noToken, 4);
        expectRefusedIn("<a k=\"" + bytes + "\"/>", noToken, 7);
    }
}

TEST_P(HostileInput, ReferencesToWhatIsNoCharacterAreRefused) {
    for (const char* reference : {"&#0;", "&#1;", "&#xD800;", "&#x110000;", "&#xFFFE;"}) {
        const std::string text = "reference to invalid character number";
        expectRefusedIn("<a>" + std::string(reference) + "</a>", text, 4);
        expectRefusedIn("<a k=\"" + std::string(reference) + "\"/>", text, 7);
    }
}

TEST_P(HostileInput, AmpersandsAndBracketsThatAreNoMarkupAreRefused) {
    expectRefusedIn("<a>&nbsp;</a>", "undefined entity", 4);
    expectRefusedIn("<a k=\"&nbsp;\"/>", "undefined entity", 1);
    expectRefusedIn("<a>&lt</a>", noToken, 7);
    expectRefusedIn("<a k=\"&lt\"/>", noToken, 10);
    expectRefusedIn("<a>]]></a>", noToken, 6);
}

TEST_P(HostileInput, AWrongDeclarationOfTheEncodingIsRefused) {
    const auto refusal = [this](const std::string& encoding, const std::string& text) {
        return textThrown<TzXmlParseError>([&] {
            readMessage("<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" +
                        wire.body("\n<a>" + text + "</a>"));
        });
    };
    EXPECT_EQ(refusal("UTF-16", "1"),
              "encoding specified in XML declaration is incorrect, line 1, column 31");
    EXPECT_EQ(refusal("no-such-encoding", "1"), "unknown encoding, line 1, column 31");
    EXPECT_EQ(refusal("UTF-7", "1"), "unknown encoding, line 1, column 31");
    EXPECT_EQ(refusal("", "1"), "XML declaration not well-formed, line 1, column 31");
    EXPECT_EQ(refusal("US-ASCII", "\xC3\xBC"), noToken + ", line 2, column 4"s);
    EXPECT_EQ(refusal("UTF-8", "\xFC"), noToken + ", line 2, column 4"s);
}

TEST_P(HostileInput, ADocumentTypeIsRefusedWithItsPlace) {
    for (const char* type : {"<!DOCTYPE a>", "<!DOCTYPE e:Envelope [<!ENTITY x \"y\">]>",
                             "<!DOCTYPE a [<!ENTITY a \"1\"><!ENTITY b \"&a;&a;\">]>",
                             "<!DOCTYPE a SYSTEM \"file:///etc/passwd\">",
                             "<!DOCTYPE a PUBLIC \"x\" \"http://x/\">"}) {
        try {
            readMessage("\n" + std::string(type) + wire.body("<a>&b;</a>"));
            ADD_FAILURE() << "accepted: " << type;
        } catch (const TzXmlParseError& error) {
            EXPECT_EQ(error.getLine(), 1U) << type; // the document begins at the first "<"
            EXPECT_GE(error.getColumn(), 1U) << type;
        }
    }
}

TEST_P(HostileInput, NestingWithoutEndIsRefused) {
    for (const std::string& tag :
         {"<a>"s, "<a e:encodingStyle=\"urn:f\">"s, "<a " + wire.array("xsd:int", "1") + ">",
          "<a " + wire.array("xsd:int", "1") + " " + wire.position("0") + ">",
          "<a e:encodingStyle=\"\">"s, "<e:Fault>"s}) {
        expectRefusedIn(repeated(tag, 100000) + repeated("</a>", 100000),
                        "elements are nested too deeply", 998 * tag.size() + 1);
    }
}

TEST_P(HostileInput, DeepNestingIsReadAndFreedWhereTheProgramAllowsIt) {
    const std::pair<std::string, std::size_t> cases[] = {
        {"<a>", 100000},
        {"<a e:encodingStyle=\"\">", 10000},
        {"<a " + wire.array("xsd:int", "1") + ">", 10000},
        {"<a " + wire.array("xsd:int", "1") + " " + wire.position("0") + ">", 10000},
    };
    for (const auto& [tag, depth] : cases) {
        TzSoapReadLimits limits;
        limits.depth = depth + 10;
        TzSoapMessage message;
        message.setReadLimits(limits);
        message.extract(wire.body("<r " + wire.ref("x") + "/><a id=\"x\">" + repeated(tag, depth) +
                                  repeated("</a>", depth) + "</a>"));
        EXPECT_TRUE(reference(bodyEntry(message)).hasReference());
        message.extract(wire.body("<a/>"));
    }
}

TEST_P(HostileInput, WhatADeepTextNeededIsNotKeptForTheNext) {
    const std::string shallow = wire.body("<a/>");
    TzSoapMessage message;
    message.extract(wire.body(repeated("<a>", 20) + repeated("</a>", 20)));
    message.extract(shallow);
    const std::ptrdiff_t before = liveAllocations();
    message.extract(wire.body(repeated("<a>", 900) + repeated("</a>", 900)));
    message.extract(shallow);
    EXPECT_LT(liveAllocations() - before, 100);
}

TEST_P(HostileInput, MemoryForTheValuesOfALongTextIsTakenForManyAtATime) {
    const std::string text = wire.body(
        "<s>" + repeated("<amount xsi:type=\"xsd:int\">100000000</amount>", 40000) + "</s>");
    TzSoapMessage message;
    const std::size_t made = madeAllocations();
    message.extract(text);
    EXPECT_LT(madeAllocations() - made, 40000U / 50);
}

TEST_P(HostileInput, AValueOfALongTextThatIsKeptHoldsNoOtherBack) {
    const std::string text = wire.body(
        "<s>" + repeated("<amount xsi:type=\"xsd:int\">100000000</amount>", 40000) + "</s>");
    const auto keepOne = [&text] {
        const std::ptrdiff_t before = liveAllocations();
        const TzSoapType kept =
            *std::next(composite(bodyEntry(readMessage(text))).childrenBegin(), 30000);
        return liveAllocations() - before;
    };
    keepOne(); // statics of the first use stay
    const std::ptrdiff_t before = liveAllocations();
    EXPECT_LT(keepOne(), 10); // the memory it lies in, its name and its type
    EXPECT_EQ(liveAllocations(), before);
}

TEST_P(HostileInput, AnElementMayHaveAHundredThousandAttributes) {
    std::string attributes;
    for (int i = 0; i < 100000; ++i) {
        attributes += " k" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
    }
    const TzSoapType value = bodyEntry(readMessage(wire.body("<a" + attributes + "/>")));
    EXPECT_EQ(value.attributeCount(), 100000U);
    EXPECT_EQ(value.findAttribute(TzXmlName("k99999"))->getValue(), "99999");
}

TEST_P(HostileInput, AnyElementMayHaveManyAttributes) {
    std::string attributes;
    for (int i = 0; i < 10000; ++i) {
        attributes += " k" + std::to_string(i) + "=\"\"";
    }
    const std::string marks[] = {wire.ref("x"), wire.array("xsd:int", "1"),
                                 "e:encodingStyle=\"urn:f\"",
                                 "e:encodingStyle=\"\" xsi:type=\"xsd:int\""};
    for (const std::string& mark : marks) {
        EXPECT_GE(
            bodyEntry(readMessage(wire.body("<a " + mark + attributes + "/>"))).attributeCount(),
            10000U);
    }
    EXPECT_EQ(composite(bodyEntry(readMessage(wire.body("<a" + attributes + "><b/></a>"))))
                  .attributeCount(),
              10000U);
    EXPECT_GE(readMessage(wire.envelope("", attributes)).attributeCount(), 10000U);
    EXPECT_EQ(
        readMessage(wire.envelope("<e:Body" + attributes + "/>")).getSoapBody().attributeCount(),
        10000U);
}

TEST_P(HostileInput, ThereMayBeAHundredThousandDeclarations) {
    std::string declarations;
    std::string entries;
    for (int i = 0; i < 100000; ++i) {
        const std::string prefix = "p" + std::to_string(i);
        declarations += " xmlns:" + prefix + "=\"urn:" + prefix + "\"";
        if (i % 100 == 99) {
            entries += "<" + prefix + ":a xsi:type=\"" + prefix + ":T\"/>";
        }
    }
    const TzSoapMessage outer = readMessage(wire.body(entries, declarations));
    EXPECT_EQ(bodyEntry(outer, 999).getType().getUri(), "urn:p99999");
    const TzSoapType inner =
        bodyEntry(readMessage(wire.body("<a" + declarations + ">" + entries + "</a>")));
    EXPECT_EQ(composite(inner).childrenBegin()->getName().getUri(), "urn:p99");
}

TEST_P(HostileInput, OneDeclarationOnEachOfManyElements) {
    std::string entries;
    for (int i = 0; i < 100000; ++i) {
        entries += "<a xmlns:p" + std::to_string(i) + "=\"urn:" + std::to_string(i) + "\"/>";
    }
    EXPECT_EQ(readMessage(wire.body(entries)).getSoapBody().entryCount(), 100000U);
}

// The work grows with the text and no faster; ids are long so that each look at one is an
// allocation.

TEST_P(HostileInput, WorkIsLinearForReferencesToNothingInManyBodies) {
    expectLinear(
        [this](std::size_t count) {
            std::string bodies;
            for (std::size_t i = 0; i < count; ++i) {
                bodies += "<e:Body>" + ref("a-reference-to-nothing-at-all-" + std::to_string(i)) +
                          "</e:Body>";
            }
            return wire.envelope(bodies);
        },
        3000);
}

TEST_P(HostileInput, WorkIsLinearForIdsThatNobodyNamesInManyBodies) {
    expectLinear(
        [this](std::size_t count) {
            std::string bodies;
            for (std::size_t i = 0; i < count; ++i) {
                bodies += "<e:Body><a id=\"an-identifier-that-nobody-names-" + std::to_string(i) +
                          "\"/>" + ref("a-reference-to-nothing-at-all") + "</e:Body>";
            }
            return wire.envelope(bodies);
        },
        3000);
}

TEST_P(HostileInput, WorkIsLinearForAttributesOfManyBodies) {
    expectLinear(
        [this](std::size_t count) {
            std::string bodies;
            for (std::size_t i = 0; i < count; ++i) {
                bodies += "<e:Body k" + std::to_string(i) + "=\"\" e:encodingStyle=\"" +
                          (i % 2 == 0 ? "" : "urn:f") + "\"><a xsi:type=\"xsd:int\"/></e:Body>";
            }
            return wire.envelope(bodies);
        },
        2000);
}

TEST_P(HostileInput, WorkIsLinearForAttributesOfManyHeadersAndFaults) {
    expectLinear(
        [this](std::size_t count) {
            const std::string detail = GetParam() == V::V1_1 ? "detail" : "e:Detail";
            std::string headers;
            std::string faults;
            for (std::size_t i = 0; i < count; ++i) {
                const std::string attributes = " k" + std::to_string(i) +
                                               "=\"\" e:encodingStyle=\"" +
                                               (i % 2 == 0 ? "" : "urn:f") + "\"";
                headers += "<e:Header" + attributes + "/>";
                faults += "<e:Fault><" + detail + attributes + "><a/></" + detail + "></e:Fault>";
            }
            return wire.envelope(headers + "<e:Body>" + faults + "</e:Body>");
        },
        2000);
}

TEST_P(HostileInput, NamespacesOfTypesAreSharedHoweverManyThereAre) {
    std::string declarations;
    for (int i = 0; i < 50; ++i) {
        declarations += " xmlns:p" + std::to_string(i) + "=\"" +
                        std::string(2000, static_cast<char>('A' + i)) + "\"";
    }
    const auto text = [&](std::size_t count) {
        std::string entries;
        for (std::size_t i = 0; i < count; ++i) {
            entries += "<a xsi:type=\"p" + std::to_string(i % 50) + ":T\"/>";
        }
        return wire.body(entries, declarations);
    };
    workOf(text(1));
    EXPECT_LT((workOf(text(3000)).bytes - workOf(text(1000)).bytes) / 2000, 1500)
        << "for each value";
}

TEST_P(HostileInput, WorkIsLinearForReferencesToOneValue) {
    expectLinear(
        [this](std::size_t count) {
            return wire.body("<l>" + repeated(ref("x"), count) + "</l><a id=\"x\"/>");
        },
        5000);
}

TEST_P(HostileInput, WorkIsLinearForRingsOfManyValues) {
    expectLinear(
        [this](std::size_t count) {
            std::string values;
            for (std::size_t i = 0; i < count; ++i) {
                values += "<a id=\"i" + std::to_string(i) + "\">" +
                          ref("i" + std::to_string((i * 7 + 1) % count)) +
                          ref("i" + std::to_string((i * 5 + 3) % count)) + "</a>";
            }
            return wire.body(values);
        },
        3000);
}

TEST_P(HostileInput, WorkIsLinearForMembersOfArrays) {
    const std::string kinds[] = {wire.array("xsd:int", ""), wire.array("xsd:int", "1"),
                                 wire.array("xsd:int", "100000")};
    for (const std::string& kind : kinds) {
        for (const std::string& offset : {""s, " " + wire.offset("10")}) {
            expectLinear(
                [&](std::size_t count) {
                    return wire.body("<a " + kind + offset + ">" + repeated("<i/>", count) +
                                     "</a>");
                },
                4096);
        }
    }
    expectLinear(
        [this](std::size_t count) {
            std::string members;
            for (std::size_t i = 0; i < count; ++i) {
                members += "<i " + wire.position(std::to_string(i * 7919 % 1000000)) + "/>";
            }
            return wire.body("<a " + wire.array("xsd:int", "") + ">" + members + "</a>");
        },
        4096);
}

TEST_P(HostileInput, ManyMembersOfAnArrayOfManyAxesAreReadInTime) {
    // Each axis but the leftmost has one position, so that the array grows with nearly every
    // member.
    constexpr std::size_t Axes = 200000;
    const std::string ones = repeated(GetParam() == V::V1_1 ? ",1" : " 1", Axes);
    const std::string size = GetParam() == V::V1_1 ? ones : "*" + ones;
    const TzSoapMessage message = readMessage(
        wire.body("<a " + wire.array("xsd:int", size) + ">" + repeated("<i/>", 200000) + "</a>"));
    EXPECT_GE(compact(bodyEntry(message)).entries(), 200000U);
}

TEST_P(HostileInput, ManyMembersOfASparseArrayAreReadInTime) {
    // A walk over the members for each of them would take minutes.
    constexpr std::size_t Members = 300000;
    std::string members;
    for (std::size_t i = 0; i < Members; ++i) {
        members += "<i " + wire.position(std::to_string(i * 7919 % Members)) + "/>";
    }
    const TzSoapMessage message = readMessage(
        wire.body("<a " + wire.array("xsd:int", "") + ">" + members + members + "</a>"));
    const TzSoapSparseArrayType array = sparse(bodyEntry(message));
    EXPECT_EQ(array.entries(), Members);
    for (unsigned int position = 0; position < Members; ++position) {
        ASSERT_EQ(array[position].getName(), TzXmlName("i")) << position;
    }
    EXPECT_EQ(array[static_cast<unsigned int>(Members)].getName(), TzXmlName());
}

TEST_P(HostileInput, AnyFailingAllocationIsReportedAndGivesAllBack) {
    const std::string text = everything();
    EXPECT_GT(failEachAllocation([&] {
                  TzSoapMessage message;
                  message.extract(text);
              }),
              100U);
}

TEST_P(HostileInput, AfterAFailingAllocationTheMessageReadsTheNextText) {
    const std::string text = everything();
    const std::string written = readMessage(text).asString();
    TzSoapMessage message;
    bool failed = true;
    for (std::size_t nth = 1; failed; ++nth) {
        {
            const AllocationFailure failure(nth);
            try {
                message.extract(text);
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(failure.happened());
            }
            failed = failure.happened();
        }
        message.extract(text);
        ASSERT_EQ(message.asString(), written) << nth;
    }
}

TEST_P(HostileInput, ReadingLeavesNothingBehind) {
    const std::string text = everything();
    readMessage(text).asString();
    const std::ptrdiff_t before = liveAllocations();
    {
        const TzSoapMessage message = readMessage(text);
        const TzSoapMessage copy = message.copy();
        readMessage(copy.asString());
    }
    EXPECT_EQ(liveAllocations(), before);
}
