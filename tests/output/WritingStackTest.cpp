// SPDX-License-Identifier: MIT
//
// Writing takes no stack for depth, refuses values that stand within themselves, and writes what
// was read as deep as it was read.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/xml/TzXmlDomainError.h>

#include "output/WireText.h"
#include "support/StackUse.h"
#include "support/Throws.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace {

constexpr std::size_t MostStack = std::size_t{64} << 10;

/// A value named "o" that holds another.
TzSoapType structOf(const TzSoapType& value) {
    TzSoapCompositeType outer("o");
    outer.appendChild(intValue("b", 2));
    outer.appendChild(value);
    return outer;
}
TzSoapType compactOf(const TzSoapType& value) {
    TzSoapCompactArrayType outer(TzXmlName("o"), "t:a", 1, 0);
    outer(0) = value;
    return outer;
}
TzSoapType sparseOf(const TzSoapType& value) {
    TzSoapSparseArrayType outer(TzXmlName("o"), "t:a", 1);
    outer(0) = value;
    return outer;
}

/// A message of SOAP 1.1 whose body holds `levels` values within each other.
TzSoapMessage nested(unsigned int levels, TzSoapType (*holderOf)(const TzSoapType&)) {
    TzSoapType value = intValue("i", 1);
    for (unsigned int level = 1; level < levels; ++level) {
        value = holderOf(value);
    }
    return encodedMessage(TzSoapVersion::V1_1, {value});
}

std::string serialized(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return std::move(serializer).getSerializedString();
}

/// A text of `levels` elements in the body.
std::string textOf(unsigned int levels) {
    std::string opened;
    std::string closed;
    for (unsigned int level = 0; level < levels; ++level) {
        opened += "<o>";
        closed += "</o>";
    }
    return R"(<E:Envelope xmlns:E="http://schemas.xmlsoap.org/soap/envelope/"><E:Body>)" + opened +
           closed + "</E:Body></E:Envelope>";
}

TEST(WritingStack, DepthTakesNoStack) {
    for (const auto holderOf : {structOf, compactOf, sparseOf}) {
        for (const unsigned int levels : {10U, 990U, TzSoapWriter::DepthLimit - 2}) {
            const TzSoapMessage message = nested(levels, holderOf);
            EXPECT_LT(stackUse([&] { EXPECT_NE(message.asString(), ""); }), MostStack) << levels;
            EXPECT_LT(stackUse([&] { EXPECT_NE(serialized(message), ""); }), MostStack) << levels;
        }
    }
}

TEST(WritingStack, AMessageThatWasReadDeepIsWrittenAgain) {
    constexpr unsigned int Levels = 50000;
    TzSoapReadLimits limits;
    limits.depth = Levels + 2;
    TzSoapMessage message;
    message.setReadLimits(limits);
    message.extract(textOf(Levels));
    std::string written;
    EXPECT_LT(stackUse([&] { written = message.asString(); }), MostStack);
    TzSoapMessage again;
    again.setReadLimits(limits);
    again.extract(written);
    EXPECT_EQ(again.asString(), written);
    EXPECT_LT(stackUse([&] { written = serialized(again); }), MostStack);
    // One level more than could be read.
    TzSoapCompositeType outer("more");
    outer.appendChild(*again.getSoapBody().entriesBegin());
    *again.getSoapBody().entriesBegin() = outer;
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { again.asString(); }),
              "Elements nested deeper than 50002 levels are not written");
}

TEST(WritingStack, TheAllowanceOfAMessageEndsWithIt) {
    TzSoapMessage deep;
    TzSoapReadLimits limits;
    limits.depth = 3000;
    deep.setReadLimits(limits);
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    deep.acceptVisitor(writer);
    const TzSoapMessage message = nested(TzSoapWriter::DepthLimit, structOf);
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { message.acceptVisitor(writer); }),
              "Elements nested deeper than 2000 levels are not written");
}

class DerivedWriter : public TzSoapWriter {
public:
    using TzSoapWriter::TzSoapWriter;
    using TzSoapWriter::visit;
    void visit(const TzSoapCompositeType& value) override {
        ++composites_;
        TzSoapWriter::visit(value);
        ++ended_;
    }
    unsigned int composites() const { return composites_; }
    unsigned int ended() const { return ended_; }

private:
    unsigned int composites_ = 0;
    unsigned int ended_ = 0;
};

TEST(WritingStack, DerivedWritersSeeEveryValueUpToTheDepthLimit) {
    const TzSoapMessage message = nested(TzSoapWriter::DepthLimit - 2, structOf);
    TzXmlStringWriter text;
    DerivedWriter writer(&text, nullptr);
    message.acceptVisitor(writer);
    EXPECT_EQ(writer.composites(), TzSoapWriter::DepthLimit - 3);
    EXPECT_EQ(writer.ended(), TzSoapWriter::DepthLimit - 3);
    EXPECT_EQ(text.getString(), wire(message));
    // What the comment of DepthLimit says they need.
    EXPECT_LT(stackUse([&] { message.acceptVisitor(writer); }), std::size_t{2} << 20);
}

TEST(WritingStack, DerivedWritersWriteNoDeeperThanTheDepthLimit) {
    TzSoapReadLimits limits;
    limits.depth = 3002;
    TzSoapMessage message;
    message.setReadLimits(limits);
    message.extract(textOf(3000));
    EXPECT_NE(wire(message), "");
    TzXmlStringWriter text;
    DerivedWriter writer(&text, nullptr);
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { message.acceptVisitor(writer); }),
              "Elements nested deeper than 2000 levels are not written");
}

// Values within themselves

/// Runs `use` with values that stand within themselves, and takes them apart afterwards.
void withRings(const std::function<void(const TzSoapType&)>& use) {
    TzSoapCompositeType self("self");
    self.appendChild(intValue("a", 1));
    self.appendChild(self);
    use(self);
    self.clearChildren();

    TzSoapCompactArrayType compact(TzXmlName("c"), "t:a", 2, 0);
    TzSoapSparseArrayType sparse(TzXmlName("s"), "t:a", 2);
    TzSoapCompositeType member("m");
    compact(1) = sparse;
    sparse(1) = member;
    member.appendChild(compact);
    use(compact);
    use(sparse);
    use(member);
    TzSoapCompositeType outside("out");
    outside.appendChild(structOf(structOf(structOf(member))));
    use(outside);
    member.clearChildren();
}

TEST(WritingRings, AreRefused) {
    const std::string refusal = "A value that stands within itself is not written";
    withRings([&](const TzSoapType& value) {
        EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wire(value); }), refusal);
        const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_2, {value});
        EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wire(message); }), refusal);
        EXPECT_EQ(textThrown<TzXmlDomainError>([&] { serialized(message); }), refusal);
        // A derived writer is given copies of the items of sparse arrays: there the depth ends it.
        TzXmlStringWriter text;
        DerivedWriter derived(&text, nullptr);
        EXPECT_THAT(
            textThrown<TzXmlDomainError>([&] { message.acceptVisitor(derived); }),
            testing::AnyOf(refusal, "Elements nested deeper than 2000 levels are not written"));
    });
}

TEST(WritingRings, AreRefusedBeforeMuchOfThemIsWritten) {
    TzSoapCompositeType self("self");
    for (int i = 0; i < 1000; ++i) {
        self.appendChild(intValue("member", i));
    }
    const std::size_t once = wire(self).size();
    self.appendChild(structOf(structOf(self)));
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { self.acceptVisitor(writer); }),
              "A value that stands within itself is not written");
    EXPECT_LT(text.getString().size(), 4 * once);
    self.clearChildren();
}

TEST(WritingRings, ANilValueThatHoldsItselfIsWrittenAsNil) {
    TzSoapCompositeType self("self");
    self.appendChild(self);
    self.setNull(true);
    EXPECT_EQ(wire11({self, structOf(self)}), envelope11(R"(    <self xsi:nil="1">
    </self>
    <o>
      <b>2</b>
      <self xsi:nil="1">
      </self>
    </o>
)"));
    self.clearChildren();
}

TEST(WritingRings, ASharedValueIsWrittenAtEachPlace) {
    TzSoapCompositeType shared("shared");
    shared.appendChild(intValue("a", 1));
    TzSoapCompositeType outer("outer");
    outer.appendChild(shared);
    outer.appendChild(shared);
    TzSoapCompositeType wider("wider");
    wider.appendChild(shared);
    wider.appendChild(outer);
    const std::string text = wire11({shared, wider, shared});
    std::size_t places = 0;
    for (std::size_t at = text.find("<shared>"); at != std::string::npos;
         at = text.find("<shared>", at + 1)) {
        ++places;
    }
    EXPECT_EQ(places, 5U);
    EXPECT_EQ(serialized(encodedMessage(TzSoapVersion::V1_1, {shared, wider, shared})).size(),
              text.size());
}

TEST(WritingRings, OfReferencesAreWrittenOnce) {
    TzSoapCompositeType first("first");
    first.setIdAttribute("1");
    TzSoapCompositeType second("second");
    second.setIdAttribute("2");
    first.appendChild(TzSoapReferenceType(TzXmlName("r"), second));
    second.appendChild(TzSoapReferenceType(TzXmlName("r"), first));
    first.removeIdAttribute();
    second.removeIdAttribute();
    const TzSoapMessage message =
        encodedMessage(TzSoapVersion::V1_1, {TzSoapType(*first.childrenBegin())});
    const std::string expected = envelope11(R"(    <r href="#2"/>
    <second>
      <r href="#1"/>
    </second>
    <first>
      <r href="#2"/>
    </first>
)");
    EXPECT_EQ(wire(message), expected);
    second.clearChildren();
}

} // namespace
