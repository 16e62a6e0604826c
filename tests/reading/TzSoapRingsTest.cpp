// SPDX-License-Identifier: MIT
//
// How long values live that were read and refer to each other in a ring.
#include "support/AllocationFailure.h"
#include "support/ReadValues.h"
#include "support/Throws.h"

#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/xml/TzXmlParseError.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

class TzSoapRings : public ReadingBothVersions {
protected:
    std::string ref(const std::string& id) const { return "<r " + wire.ref(id) + "/>"; }
    /// `count` structs, each of which holds its number and a reference to the next one.
    std::string ring(int count) const {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += "<a id=\"i" + std::to_string(i) + "\"><n>" + std::to_string(i) + "</n>" +
                    ref("i" + std::to_string((i + 1) % count)) + "</a>";
        }
        return text;
    }

    /// Reads `text` and hands it to `use`; nothing must stay behind.
    static void expectNothingLeft(const std::string& text,
                                  const std::function<void(TzSoapMessage)>& use) {
        use(readMessage(text)); // whatever is made once is there now
        const std::ptrdiff_t before = liveAllocations();
        use(readMessage(text));
        EXPECT_EQ(liveAllocations(), before) << text;
    }
};

TzSoapType target(const TzSoapType& value) { return reference(value).getSoapReference(); }

/// The value that the reference in `value` leads to.
TzSoapType next(const TzSoapType& value) { return target(child(value, "r")); }

std::string numberOf(const TzSoapType& value) { return textOf(child(value, "n")); }

/// What `next` leads to after a number of steps.
TzSoapType after(int steps, TzSoapType value) {
    while (steps-- > 0) {
        value = next(value);
    }
    return value;
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapRings);

TEST_P(TzSoapRings, LastAsLongAsAnyHandleOfTheMessage) {
    expectNothingLeft(wire.body(ring(1)), [](TzSoapMessage message) {
        const TzSoapMessage second = message;
        message = TzSoapMessage();
        EXPECT_TRUE(sameValue(next(bodyEntry(second)), bodyEntry(second)));
    });
}

TEST_P(TzSoapRings, LastAsLongAsACopyOfTheMessage) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        const TzSoapMessage copy = message.copy();
        message = TzSoapMessage();
        EXPECT_EQ(numberOf(after(3, bodyEntry(copy))), "1");
    });
}

TEST_P(TzSoapRings, EveryValueKeepsAllOfThem) {
    for (unsigned int kept = 0; kept < 3; ++kept) {
        expectNothingLeft(wire.body(ring(3)), [kept](TzSoapMessage message) {
            const TzSoapType value = bodyEntry(message, kept);
            message = TzSoapMessage();
            EXPECT_TRUE(sameValue(after(3, value), value));
            EXPECT_EQ(numberOf(next(value)), std::to_string((kept + 1) % 3));
        });
    }
}

TEST_P(TzSoapRings, AReferenceKeepsThemToo) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        const TzSoapReferenceType kept = reference(child(bodyEntry(message), "r"));
        message = TzSoapMessage();
        EXPECT_EQ(numberOf(kept.getSoapReference()), "1");
        EXPECT_EQ(numberOf(next(kept.getSoapReference())), "0");
    });
}

TEST_P(TzSoapRings, AValueThatLeadsNowhereKeepsNothing) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        const TzSoapType number = child(bodyEntry(message), "n");
        const auto& first = TzSoapAccess::body(bodyEntry(message));
        EXPECT_GT(first.referenceCount(), 1U);
        message = TzSoapMessage();
        EXPECT_EQ(textOf(number), "0");
        EXPECT_EQ(TzSoapAccess::body(number).referenceCount(), 1U)
            << "the struct around it is gone";
    });
}

TEST_P(TzSoapRings, WhatLeadsToARingKeepsIt) {
    expectNothingLeft(wire.body("<o>" + ref("i0") + "</o>" + ring(2)), [](TzSoapMessage message) {
        const TzSoapType outer = bodyEntry(message);
        message = TzSoapMessage();
        EXPECT_EQ(numberOf(next(next(outer))), "1");
    });
}

TEST_P(TzSoapRings, AreWholeAfterTheNextReading) {
    expectNothingLeft(wire.body(ring(2)), [this](TzSoapMessage message) {
        const TzSoapType kept = bodyEntry(message);
        message.extract(wire.body("<b/>"));
        EXPECT_EQ(numberOf(next(kept)), "1");
        message.extract(wire.body(ring(3)));
        EXPECT_EQ(numberOf(next(kept)), "1");
        EXPECT_TRUE(sameValue(after(2, kept), kept));
    });
}

TEST_P(TzSoapRings, AreWholeAfterAReadingThatFailed) {
    expectNothingLeft(wire.body(ring(2)), [this](TzSoapMessage message) {
        const TzSoapType kept = bodyEntry(message);
        const std::string text = wire.body(ring(2));
        EXPECT_EQ(lineThrown<TzXmlParseError>(
                      [&] { message.extract(text.substr(0, text.find("</a>"))); }),
                  1U);
        EXPECT_TRUE(sameValue(after(2, kept), kept));
    });
}

TEST_P(TzSoapRings, TravelWithAValueToAnotherMessage) {
    for (unsigned int moved = 0; moved < 3; ++moved) {
        expectNothingLeft(wire.body(ring(3)), [moved](TzSoapMessage message) {
            TzSoapMessage reply(GetParam());
            reply.getSoapBody().appendEntry(bodyEntry(message, moved));
            message = TzSoapMessage();
            const TzSoapMessage again = readMessage(reply.asString());
            ASSERT_EQ(again.getSoapBody().entryCount(), 3U) << reply.asString();
            EXPECT_EQ(numberOf(bodyEntry(again)), std::to_string(moved));
            EXPECT_TRUE(sameValue(after(3, bodyEntry(again)), bodyEntry(again)));
        });
    }
}

TEST_P(TzSoapRings, ThroughHeaderAndBodyOutliveTheMessage) {
    const std::string text =
        wire.message("<a id=\"x\">" + ref("y") + "</a>", "<b id=\"y\">" + ref("x") + "</b>");
    expectNothingLeft(text, [](TzSoapMessage message) {
        const TzSoapType inHeader = headerEntry(message);
        message = TzSoapMessage();
        EXPECT_EQ(next(inHeader).getName(), TzXmlName("b"));
        EXPECT_TRUE(sameValue(next(next(inHeader)), inHeader));
    });
}

TEST_P(TzSoapRings, ThroughArraysOutliveTheMessage) {
    const std::string text = wire.body(
        "<a id=\"x\" " + wire.array("xsd:int", "3") + "><n>0</n>" + ref("y") + "</a><b id=\"y\" " +
        wire.array("xsd:int", "9") + "><i " + wire.position("7") + " " + wire.ref("x") + "/></b>");
    expectNothingLeft(text, [](TzSoapMessage message) {
        const TzSoapSparseArrayType inner = sparse(bodyEntry(message, 1));
        message = TzSoapMessage();
        const TzSoapCompactArrayType outer = compact(target(inner(7U)));
        EXPECT_EQ(textOf(outer(0U)), "0");
        EXPECT_TRUE(sameValue(target(outer(1U)), inner));
    });
}

TEST_P(TzSoapRings, SharingValuesAreOne) {
    const std::string text =
        wire.body("<o id=\"b\"><p id=\"a\">" + ref("b") + "</p>" + ref("c") +
                  "</o><s id=\"c\"><t>" + ref("b") + "</t>" + ref("a") + "</s>");
    expectNothingLeft(text, [](TzSoapMessage message) {
        const TzSoapType inner = child(bodyEntry(message), "p");
        message = TzSoapMessage();
        const TzSoapType outer = next(inner);
        EXPECT_TRUE(sameValue(child(outer, "p"), inner));
        EXPECT_TRUE(sameValue(next(next(outer)), inner));
        EXPECT_TRUE(sameValue(next(child(next(outer), "t")), outer));
    });
}

TEST_P(TzSoapRings, HoldUserDefinedValues) {
    const std::string text =
        wire.body("<a id=\"x\"><u e:encodingStyle=\"urn:f\"><v/></u>" + ref("x") + "</a>");
    expectNothingLeft(text, [](TzSoapMessage message) {
        const TzSoapType kept = child(bodyEntry(message), "r");
        message = TzSoapMessage();
        EXPECT_NE(userDefined(child(target(kept), "u")).getValue().find("<v"), std::string::npos);
    });
}

// Rings that the program changes.

TEST_P(TzSoapRings, ATargetThatTheProgramSetStays) {
    expectNothingLeft(wire.body(ring(1)), [](TzSoapMessage message) {
        const TzSoapType kept = bodyEntry(message);
        TzSoapType other{TzXmlName("other")};
        other.setIdAttribute("o");
        reference(child(kept, "r")).setReference(other);
        message = TzSoapMessage();
        EXPECT_TRUE(sameValue(next(kept), other));
        EXPECT_EQ(TzSoapAccess::body(kept).referenceCount(), 1U);
    });
}

TEST_P(TzSoapRings, WhatNothingLeadsToAnyMoreGoesAtOnce) {
    expectNothingLeft(wire.body(ring(3)), [](TzSoapMessage message) {
        const TzSoapType first = bodyEntry(message);
        const TzSoapType number = child(next(first), "n");
        message = TzSoapMessage();
        EXPECT_EQ(TzSoapAccess::body(number).referenceCount(), 2U);
        TzSoapType other{TzXmlName("other")};
        other.setIdAttribute("o");
        reference(child(first, "r")).setReference(other);
        EXPECT_EQ(TzSoapAccess::body(number).referenceCount(), 1U);
    });
}

TEST_P(TzSoapRings, ATargetSetAnewWithinTheRingIsPartOfIt) {
    expectNothingLeft(wire.body(ring(3)), [](TzSoapMessage message) {
        const TzSoapType first = bodyEntry(message);
        reference(child(first, "r")).setReference(next(next(first))); // around the second
        EXPECT_EQ(numberOf(next(first)), "2");
        reference(child(first, "r")).setReference(next(first)); // once more
        message = TzSoapMessage();
        EXPECT_TRUE(sameValue(after(2, first), first));
    });
}

TEST_P(TzSoapRings, ChildrenMayBeTakenOutOfThem) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        TzSoapCompositeType first = composite(bodyEntry(message));
        message = TzSoapMessage();
        const TzSoapType taken = std::move(*first.findChild(TzXmlName("r")));
        first.clearChildren();
        EXPECT_EQ(numberOf(target(taken)), "1");
        EXPECT_TRUE(sameValue(next(target(taken)), first));
    });
}

TEST_P(TzSoapRings, ManyReferencesMayBeRemovedAtOnce) {
    const std::string text = wire.body("<a id=\"x\">" + repeated(ref("x"), 1000) + "</a>");
    expectNothingLeft(text, [](TzSoapMessage message) {
        TzSoapCompositeType value = composite(bodyEntry(message));
        const TzSoapCompositeType other = value.copy();
        message = TzSoapMessage();
        value.removeAllChildren(TzXmlName("r"));
        EXPECT_EQ(value.childCount(), 0U);
        EXPECT_TRUE(sameValue(next(other), value));
    });
}

TEST_P(TzSoapRings, CopiesOfTheirValuesAreNoPartOfThem) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        TzSoapCompositeType copy = composite(bodyEntry(message)).copy();
        const TzSoapReferenceType second = reference(child(copy, "r")).copy();
        message = TzSoapMessage();
        EXPECT_EQ(numberOf(next(next(copy))), "0");
        EXPECT_FALSE(sameValue(next(next(copy)), copy));
        copy = TzSoapCompositeType();
        EXPECT_EQ(numberOf(second.getSoapReference()), "1");
    });
}

TEST_P(TzSoapRings, ValuesMayBeReplacedWhereTheyStand) {
    expectNothingLeft(wire.body(ring(2)), [](TzSoapMessage message) {
        TzSoapCompositeType first = composite(bodyEntry(message));
        *first.findChild(TzXmlName("r")) = TzSoapType(TzXmlName("other"));
        const TzSoapType second = bodyEntry(message, 1);
        message = TzSoapMessage();
        EXPECT_TRUE(sameValue(next(second), first));
        EXPECT_EQ(TzSoapAccess::body(second).referenceCount(), 1U);
    });
}

// Memory.

TEST_P(TzSoapRings, AReadingWithoutMemoryLeavesNoRing) {
    const std::string text = wire.message("<h id=\"h\">" + ref("i1") + ref("h") + "</h>",
                                          ring(3) + "<b>" + ref("h") + "</b>");
    EXPECT_GT(failEachAllocation([&text] { readMessage(text); }), 100U);
}

TEST_P(TzSoapRings, AMessageThatWasNotReadForWantOfMemoryIsReadTheNextTime) {
    const std::string text = wire.body(ring(3));
    TzSoapMessage message;
    message.extract(text);
    const std::string written = message.asString();
    for (std::size_t nth = 1;; ++nth) {
        bool failed = false;
        {
            const AllocationFailure failure(nth);
            try {
                message.extract(text);
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        }
        if (!failed) {
            break;
        }
        message.extract(text);
        ASSERT_EQ(message.asString(), written) << nth;
    }
}
