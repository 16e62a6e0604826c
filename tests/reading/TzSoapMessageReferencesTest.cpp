// SPDX-License-Identifier: MIT
//
// References between the values of a message that is read, and the rings that they make.
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/ReadValues.h"
#include "support/Throws.h"

#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

class TzSoapMessageReadingReferences : public ReadingBothVersions {
protected:
    std::string ref(const std::string& id) const { return "<r " + wire.ref(id) + "/>"; }

    /// Reads `text`, hands the message to `look`, writes and reads it again; nothing must stay
    /// behind.
    template <typename Look> static void readAndForget(const std::string& text, const Look& look) {
        readMessage(text).asString(); // whatever is made once is there now
        const std::ptrdiff_t before = liveAllocations();
        {
            const TzSoapMessage message = readMessage(text);
            look(message);
            const std::string written = message.asString();
            const TzSoapMessage again = readMessage(written);
            EXPECT_EQ(again.asString(), written);
        }
        EXPECT_EQ(liveAllocations(), before) << text;
    }
};

TzSoapType target(const TzSoapType& value) { return reference(value).getSoapReference(); }

std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapMessageReadingReferences);

TEST_P(TzSoapMessageReadingReferences, BetweenEntries) {
    readAndForget(wire.body(ref("x") + "<a id=\"x\">1</a>" + ref("x")), [](const auto& message) {
        EXPECT_TRUE(sameValue(target(bodyEntry(message, 0)), bodyEntry(message, 1)));
        EXPECT_TRUE(sameValue(target(bodyEntry(message, 2)), bodyEntry(message, 1)));
    });
}

TEST_P(TzSoapMessageReadingReferences, FromTheHeaderToTheBody) {
    readAndForget(wire.message(ref("x"), "<a id=\"x\">1</a>"), [](const auto& message) {
        EXPECT_TRUE(sameValue(target(headerEntry(message)), bodyEntry(message)));
    });
}

TEST_P(TzSoapMessageReadingReferences, FromTheBodyToTheHeader) {
    readAndForget(wire.message("<a id=\"x\">1</a>", ref("x")), [](const auto& message) {
        EXPECT_TRUE(sameValue(target(bodyEntry(message)), headerEntry(message)));
    });
}

TEST_P(TzSoapMessageReadingReferences, FromHeaderAndBodyToTheHeader) {
    readAndForget(wire.message("<a id=\"x\">1</a>" + ref("x"), ref("x")), [](const auto& message) {
        EXPECT_TRUE(sameValue(target(headerEntry(message, 1)), headerEntry(message, 0)));
        EXPECT_TRUE(sameValue(target(bodyEntry(message)), headerEntry(message, 0)));
    });
}

TEST_P(TzSoapMessageReadingReferences, OverSeveralBodies) {
    const std::string text =
        wire.envelope("<e:Body>" + ref("z") + ref("x") + "</e:Body><e:Body><a id=\"x\"/>" +
                      ref("y") + "</e:Body><e:Body><b id=\"y\"/>" + ref("x") + "</e:Body>");
    readAndForget(text, [](const auto& message) {
        EXPECT_FALSE(reference(bodyEntry(message, 0)).hasReference());
        EXPECT_TRUE(sameValue(target(bodyEntry(message, 1)), bodyEntry(message, 2)));
        EXPECT_TRUE(sameValue(target(bodyEntry(message, 3)), bodyEntry(message, 4)));
        EXPECT_TRUE(sameValue(target(bodyEntry(message, 5)), bodyEntry(message, 2)));
    });
}

TEST_P(TzSoapMessageReadingReferences, ToNothingIsNoError) {
    readAndForget(wire.body(ref("x") + "<a id=\"y\"/>"), [](const auto& message) {
        EXPECT_FALSE(reference(bodyEntry(message)).hasReference());
        expectCatalogued<TzXmlBadArgError>([&] { target(bodyEntry(message)); }, 0x7015,
                                           "[BAD_REFERENCE][The referred type is not \"soap\".]");
    });
}

TEST_P(TzSoapMessageReadingReferences, ToAnIdThatIsThereTwiceMeansTheFirst) {
    for (const std::string& text :
         {wire.body(ref("x") + "<a id=\"x\">1</a><a id=\"x\">2</a>"),
          wire.message(ref("x") + "<a id=\"x\">1</a>", ref("x") + "<a id=\"x\">2</a>"),
          wire.message("<a id=\"x\">1</a>", ref("x") + "<a id=\"x\">2</a>"),
          wire.message(ref("x"), "<a id=\"x\">1</a><a id=\"x\">2</a>" + ref("x"))}) {
        const TzSoapMessage message = readMessage(text);
        for (const auto& entries : {std::vector<TzSoapType>(message.getSoapHeader().entriesBegin(),
                                                            message.getSoapHeader().entriesEnd()),
                                    std::vector<TzSoapType>(message.getSoapBody().entriesBegin(),
                                                            message.getSoapBody().entriesEnd())}) {
            for (const TzSoapType& entry : entries) {
                if (entry.getSoapTypeId() == TzSoapContentBase::Reference) {
                    EXPECT_EQ(textOf(target(entry)), "1") << text;
                }
            }
        }
    }
}

TEST_P(TzSoapMessageReadingReferences, ToEveryKindOfValue) {
    for (const std::string& value :
         {"<a id=\"x\">1</a>"s, "<a id=\"x\"><b/></a>"s, "<a id=\"x\" e:encodingStyle=\"urn:f\"/>"s,
          "<a id=\"x\" " + wire.array("xsd:int", "1") + "><i/></a>",
          "<a id=\"x\" " + wire.array("xsd:int", "1") + "/>",
          "<a id=\"x\" " + wire.array("xsd:int", "3") + "><i " + wire.position("2") + "/></a>",
          "<a id=\"x\" " + wire.ref("y") + "/><b id=\"y\">1</b>",
          "<a id=\"x\" href=\"cid:nothing\"/>"s,
          "<f:Misunderstood xmlns:f=\"http://www.w3.org/2002/06/soap-faults\" id=\"x\"/>"s}) {
        const TzSoapMessage message = readMessage(wire.body(ref("x") + value));
        ASSERT_TRUE(reference(bodyEntry(message)).hasReference()) << value;
        EXPECT_TRUE(sameValue(target(bodyEntry(message)), bodyEntry(message, 1))) << value;
    }
}

TEST_P(TzSoapMessageReadingReferences, ThroughCompositesAndArrays) {
    const std::string text = wire.body(
        "<a><b><c id=\"x\">1</c></b>" + ref("y") + "</a><d " + wire.array("xsd:int", "2") + ">" +
        ref("x") + "<i id=\"y\">2</i></d><s " + wire.array("xsd:int", "5") + "><i " +
        wire.position("4") + " " + wire.ref("y") + "/></s>");
    readAndForget(text, [](const auto& message) {
        const TzSoapType one = child(child(bodyEntry(message), "b"), "c");
        const TzSoapCompactArrayType array = compact(bodyEntry(message, 1));
        const TzSoapSparseArrayType sparseArray = sparse(bodyEntry(message, 2));
        EXPECT_TRUE(sameValue(target(array(0U)), one));
        EXPECT_TRUE(sameValue(target(child(bodyEntry(message), "r")), array(1U)));
        EXPECT_TRUE(sameValue(target(sparseArray(4U)), array(1U)));
    });
}

TEST_P(TzSoapMessageReadingReferences, FromTheDetailOfAFault) {
    const std::string fault =
        GetParam() == TzSoapVersion::V1_1
            ? "<e:Fault><faultcode>e:Server</faultcode><detail>" + ref("x") + "</detail></e:Fault>"
            : "<e:Fault><e:Code><e:Value>e:Receiver</e:Value></e:Code><e:Detail>" + ref("x") +
                  "</e:Detail></e:Fault>";
    readAndForget(wire.body(fault + "<a id=\"x\">1</a>"), [](const auto& message) {
        const TzSoapCompositeType& details = message.getSoapBody().getSoapFault().getDetails();
        EXPECT_EQ(textOf(target(*details.childrenBegin())), "1");
    });
}

TEST(TzSoapMessageReadingReferences12, TheMarkOfAFragmentMayBeMissing) {
    const WireForm wire(TzSoapVersion::V1_2);
    const TzSoapMessage message =
        readMessage(wire.body("<r ref=\"x\"/><r ref=\"#x\"/><a id=\"x\">1</a>"));
    EXPECT_EQ(textOf(target(bodyEntry(message, 0))), "1");
    EXPECT_EQ(textOf(target(bodyEntry(message, 1))), "1");
}

TEST_P(TzSoapMessageReadingReferences, OneValueSharedByManyIsWrittenOnce) {
    const TzSoapMessage message =
        readMessage(wire.body(repeated(ref("x"), 10) + "<a id=\"x\">shared</a>"));
    EXPECT_EQ(countOf("shared", message.asString()), 1U);
}

// Rings.

TEST_P(TzSoapMessageReadingReferences, AReferenceToItself) {
    readAndForget(wire.body("<r id=\"x\" " + wire.ref("x") + "/>"), [](const auto& message) {
        EXPECT_TRUE(sameValue(target(bodyEntry(message)), bodyEntry(message)));
    });
}

TEST_P(TzSoapMessageReadingReferences, AValueThatRefersToItself) {
    readAndForget(wire.body("<a id=\"x\">" + ref("x") + "</a>"), [](const auto& message) {
        const TzSoapType again = target(child(bodyEntry(message), "r"));
        EXPECT_TRUE(sameValue(again, bodyEntry(message)));
        EXPECT_TRUE(sameValue(target(child(again, "r")), bodyEntry(message)));
    });
}

TEST_P(TzSoapMessageReadingReferences, AValueThatRefersToAnAncestor) {
    readAndForget(wire.body("<a id=\"x\"><b><c>" + ref("x") + "</c></b></a>"),
                  [](const auto& message) {
                      const TzSoapType inner = child(child(bodyEntry(message), "b"), "c");
                      EXPECT_TRUE(sameValue(target(child(inner, "r")), bodyEntry(message)));
                  });
}

TEST_P(TzSoapMessageReadingReferences, ValuesThatReferToEachOther) {
    readAndForget(wire.body("<a id=\"x\">" + ref("y") + "</a><b id=\"y\">" + ref("x") + "</b>"),
                  [](const auto& message) {
                      EXPECT_TRUE(sameValue(target(child(bodyEntry(message, 0), "r")),
                                            bodyEntry(message, 1)));
                      EXPECT_TRUE(sameValue(target(child(bodyEntry(message, 1), "r")),
                                            bodyEntry(message, 0)));
                  });
}

TEST_P(TzSoapMessageReadingReferences, ARingThroughHeaderAndBody) {
    readAndForget(
        wire.message("<a id=\"x\">" + ref("y") + "</a>", "<b id=\"y\">" + ref("x") + "</b>"),
        [](const auto& message) {
            EXPECT_TRUE(sameValue(target(child(headerEntry(message), "r")), bodyEntry(message)));
            EXPECT_TRUE(sameValue(target(child(bodyEntry(message), "r")), headerEntry(message)));
        });
}

TEST_P(TzSoapMessageReadingReferences, ARingThroughArrays) {
    readAndForget(wire.body("<a id=\"x\" " + wire.array("xsd:int", "3") + ">" + ref("y") +
                            "</a><b id=\"y\" " + wire.array("xsd:int", "9") + "><i " +
                            wire.position("7") + " " + wire.ref("x") + "/></b>"),
                  [](const auto& message) {
                      const TzSoapCompactArrayType array = compact(bodyEntry(message));
                      EXPECT_TRUE(sameValue(target(array(0U)), bodyEntry(message, 1)));
                  });
}

TEST_P(TzSoapMessageReadingReferences, ARingOfReferences) {
    readAndForget(wire.body("<r id=\"x\" " + wire.ref("y") + "/><r id=\"y\" " + wire.ref("z") +
                            "/><r id=\"z\" " + wire.ref("x") + "/>"),
                  [](const auto& message) {
                      EXPECT_TRUE(sameValue(target(bodyEntry(message, 2)), bodyEntry(message, 0)));
                  });
}

TEST_P(TzSoapMessageReadingReferences, ARingThatIsEnteredAtAMember) {
    // The ring is met first inside: at the member that another reference names.
    readAndForget(wire.body(ref("a") + "<o id=\"b\"><i id=\"a\">" + ref("b") + "</i></o>"),
                  [](const auto& message) {
                      const TzSoapType inner = child(bodyEntry(message, 1), "i");
                      EXPECT_TRUE(sameValue(target(bodyEntry(message, 0)), inner));
                      EXPECT_TRUE(sameValue(target(child(inner, "r")), bodyEntry(message, 1)));
                  });
}

TEST_P(TzSoapMessageReadingReferences, RingsThatShareTheirWays) {
    // Two ways from the member to the value around it, a third one from outside.
    readAndForget(
        wire.body(ref("a") + "<o id=\"b\"><i id=\"a\"><p>" + ref("b") + "</p><q>" + ref("b") +
                  "</q></i>" + ref("c") + "</o><s id=\"c\">" + ref("b") + ref("a") + "</s>"),
        [](const auto& message) {
            EXPECT_TRUE(
                sameValue(target(child(bodyEntry(message, 2), "r")), bodyEntry(message, 1)));
        });
}

TEST_P(TzSoapMessageReadingReferences, ARingThroughTheDetailOfAFault) {
    const std::string value = "<a id=\"x\">" + ref("y") + "</a>";
    const std::string fault =
        GetParam() == TzSoapVersion::V1_1
            ? "<e:Fault><faultcode>e:Server</faultcode><detail>" + value + "</detail></e:Fault>"
            : "<e:Fault><e:Code><e:Value>e:Receiver</e:Value></e:Code><e:Detail>" + value +
                  "</e:Detail></e:Fault>";
    readAndForget(wire.body(fault + "<b id=\"y\">" + ref("x") + "</b>"), [](const auto&) {});
}

TEST_P(TzSoapMessageReadingReferences, EveryShapeOfAFewValuesAndReferencesIsFreed) {
    // Values 0 and 2 stand in the body, 1 in 0, 3 in 2; each holds a reference to each of the
    // others or not, all combinations.
    readMessage(wire.body("<v id=\"i0\">" + ref("i0") + "</v>")); // whatever is made once
    for (unsigned int shape = 0; shape < 1U << 12; ++shape) {
        std::string content[4];
        unsigned int bit = 0;
        for (int from = 0; from < 4; ++from) {
            for (int to = 0; to < 4; ++to) {
                if (from != to && (shape >> bit++ & 1U) != 0) {
                    content[from] += ref("i" + std::to_string(to));
                }
            }
        }
        const std::string text = wire.body("<v id=\"i0\">" + content[0] + "<v id=\"i1\">" +
                                           content[1] + "</v></v><v id=\"i2\">" + content[2] +
                                           "<v id=\"i3\">" + content[3] + "</v></v>");
        const std::ptrdiff_t before = liveAllocations();
        readMessage(text);
        ASSERT_EQ(liveAllocations(), before) << text;
    }
}

TEST_P(TzSoapMessageReadingReferences, AReadingThatFailsLeavesNoRing) {
    const std::string whole = wire.message("<a id=\"x\">" + ref("x") + "</a>",
                                           "<b id=\"y\">" + ref("x") + ref("y") + "</b>");
    TzSoapMessage reused;
    EXPECT_EQ(
        lineThrown<TzXmlParseError>([&] { reused.extract(whole.substr(0, whole.size() - 1)); }),
        1U);
    reused.extract(whole);
    const std::string written = reused.asString();
    const std::ptrdiff_t before = liveAllocations();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(lineThrown<TzXmlParseError>([&] { readMessage(whole.substr(0, size)); }), 1U)
            << size;
        ASSERT_EQ(liveAllocations(), before) << size;
    }
}

TEST_P(TzSoapMessageReadingReferences, ManyReferencesToOneValue) {
    const TzSoapMessage message =
        readMessage(wire.body("<l>" + repeated(ref("x"), 100000) + "</l><a id=\"x\">1</a>"));
    auto list = composite(bodyEntry(message));
    ASSERT_EQ(list.childCount(), 100000U);
    for (auto entry = list.childrenBegin(); entry != list.childrenEnd(); ++entry) {
        ASSERT_TRUE(sameValue(target(*entry), bodyEntry(message, 1)));
    }
}

TEST_P(TzSoapMessageReadingReferences, ALongRing) {
    constexpr int Length = 20000;
    std::string text;
    for (int i = 0; i < Length; ++i) {
        text += "<a id=\"i" + std::to_string(i) + "\">" +
                ref("i" + std::to_string((i + 1) % Length)) + "</a>";
    }
    readMessage(wire.body("<a id=\"x\">" + ref("x") + "</a>"));
    const std::ptrdiff_t before = liveAllocations();
    {
        const TzSoapMessage message = readMessage(wire.body(text));
        EXPECT_TRUE(
            sameValue(target(child(bodyEntry(message, Length - 1), "r")), bodyEntry(message, 0)));
    }
    EXPECT_EQ(liveAllocations(), before);
}
