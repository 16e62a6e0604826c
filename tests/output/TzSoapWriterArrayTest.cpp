// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>

#include "model/TzSoapAccess.h"
#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

using Index = std::vector<unsigned int>;

TzSoapCompactArrayType compact(const Index& bounds, const Index& start) {
    return {TzXmlName("a"), "xsd:int", bounds, start};
}

TzSoapCompactArrayType filled(const Index& bounds, const Index& start, unsigned int first,
                              unsigned int end) {
    TzSoapCompactArrayType array = compact(bounds, start);
    for (unsigned int i = first; i < end; ++i) {
        array(i) = intValue("i", static_cast<int>(i));
    }
    return array;
}

TEST(TzSoapWriterArray, WritesACompactArray) {
    const TzSoapCompactArrayType array = filled({2, 2}, {0, 0}, 0, 4);
    const std::string items = R"(      <i>0</i>
      <i>1</i>
      <i>2</i>
      <i>3</i>
    </a>
)";
    EXPECT_EQ(
        wire11({array}),
        envelope11(
            R"(    <a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:int[2,2]">
)" + items));
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="2 2">
)" + items));
}

TEST(TzSoapWriterArray, WritesTheAttributesInOrder) {
    TzSoapCompactArrayType array = filled({4}, {2}, 2, 4);
    array.addAttribute(TzXmlName("own"), "1");
    array.setIdAttribute("x");
    array.setTypeAttribute(TzXmlName("enc:Array"));
    array.setRoot(true);
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" own="1" id="x" enc:root="1" xsi:type="enc:Array" enc:itemType="xsd:int" enc:arraySize="4" enc:offset="2">
      <i>2</i>
      <i>3</i>
    </a>
)"));
    EXPECT_EQ(
        wire11({array}),
        envelope11(
            R"(    <a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" own="1" id="x" SOAP-ENC:root="1" xsi:type="enc:Array" SOAP-ENC:arrayType="xsd:int[4]" SOAP-ENC:offset="[2]">
      <i>2</i>
      <i>3</i>
    </a>
)"));
}

TEST(TzSoapWriterArray, WritesAnArrayOnItsOwn) {
    EXPECT_EQ(
        wire(filled({1}, {0}, 0, 1)),
        R"(<a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="1">
  <i>0</i>
</a>
)");
}

TEST(TzSoapWriterArray, WritesOpenAxes) {
    TzSoapCompactArrayType array = compact({0}, {0});
    const std::string open11 =
        R"(    <a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:int[)";
    EXPECT_EQ(wire11({array}), envelope11(open11 + "]\">\n    </a>\n"));
    array.setSizeShouldBeEncoded(true);
    EXPECT_EQ(wire11({array}), envelope11(open11 + "0]\">\n    </a>\n"));
}

TEST(TzSoapWriterArray, WritesItemsFromTheOffsetOn) {
    TzSoapCompactArrayType array = filled({5}, {0}, 0, 5);
    array.setOffset(Index{3});
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="5" enc:offset="3">
      <i>3</i>
      <i>4</i>
    </a>
)"));
    array.setOffset(Index{1});
    array.setCountElementsToWrite(2);
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="5" enc:offset="1">
      <i>1</i>
      <i>2</i>
    </a>
)"));
}

TEST(TzSoapWriterArray, WritesItemsNeverAssignedAsNil) {
    TzSoapCompactArrayType array = compact({5}, {0});
    array(1) = intValue("i", 1);
    array(3) = intValue("i", 3);
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="5">
      <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" xsi:nil="1"></tznone:unnamed>
      <i>1</i>
      <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" xsi:nil="1"></tznone:unnamed>
      <i>3</i>
    </a>
)"));
}

TEST(TzSoapWriterArray, LeavesTheItemsOfANilArrayOut) {
    TzSoapCompactArrayType array = filled({1}, {0}, 0, 1);
    array.setNull(true);
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xsi:nil="1" enc:itemType="xsd:int" enc:arraySize="1">
    </a>
)"));
    TzSoapSparseArrayType sparse(TzXmlName("a"), "xsd:int", Index{1});
    sparse[0] = intValue("i", 1);
    sparse.setNull(true);
    EXPECT_EQ(
        wire12({sparse}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xsi:nil="1" enc:itemType="xsd:int" enc:arraySize="1">
    </a>
)"));
}

TEST(TzSoapWriterArray, WritesASparseArrayInOrderOfInsertion) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{3, 4});
    array[Index{2, 1}] = intValue("i", 21);
    array[Index{0, 0}] = TzSoapSimpleType("j", 0, TzSoapType::xsdInt, true);
    EXPECT_EQ(
        wire11({array}),
        envelope11(
            R"(    <a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:int[3,4]">
      <i SOAP-ENC:position="[2,1]">21</i>
      <j SOAP-ENC:position="[0,0]" xsi:type="xsd:int">0</j>
    </a>
)"));
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="3 4">
      <i enc:position="2 1">21</i>
      <j enc:position="0 0" xsi:type="xsd:int">0</j>
    </a>
)"));
}

TEST(TzSoapWriterArray, WritesThePositionOfEveryKindOfItem) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{9});
    TzSoapCompositeType composite("s");
    composite.appendChild(intValue("m", 1));
    TzSoapSparseArrayType inner(TzXmlName("n"), "xsd:int", Index{2});
    inner[1] = intValue("i", 1);
    TzSoapSimpleType target("t", 5, TzSoapType::xsdInt, false);
    target.setIdAttribute("x");
    array[0] = composite;
    array[1] = inner;
    array[2] = TzSoapReferenceType(TzXmlName("r"), target);
    array[3] = TzSoapAccess::handle<TzSoapUserDefinedType>(
        new TzSoapUserDefinedTypeImp(TzXmlName("u"), "<u encodingStyle=''/>"));
    array[4] = TzSoapDefaultType();
    array[5] = TzSoapType(TzXmlName("g"));
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="9">
      <s enc:position="0">
        <m>1</m>
      </s>
      <n enc:position="1" enc:itemType="xsd:int" enc:arraySize="2">
        <i enc:position="1">1</i>
      </n>
      <r ref="#x" enc:position="2"/>
      <u encodingStyle=''/><tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" enc:position="4" xsi:nil="1"></tznone:unnamed>
      <g enc:position="5">
      </g>
    </a>
    <t id="x">5</t>
)"));
}

TEST(TzSoapWriterArray, ReplacesAPositionThatAnItemCarries) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{9});
    TzSoapSimpleType item = intValue("i", 1);
    item.addAttribute(
        TzSoapVersion::getSoapAttributeName(TzSoapVersion::Position, TzSoapVersion::V1_1), "[7]");
    item.addAttribute(TzXmlName("own"), "1");
    array[3] = item;
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="9">
      <i enc:position="3" own="1">1</i>
    </a>
)"));
    EXPECT_EQ(item.attributeCount(), 2U);
}

TEST(TzSoapWriterArray, WritesAtMostTheCountOfASparseArray) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{9});
    array[3] = intValue("i", 3);
    array[1] = intValue("i", 1);
    array[2] = intValue("i", 2);
    array.setCountElementsToWrite(2);
    EXPECT_EQ(
        wire12({array}),
        envelope12(
            R"(    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="9">
      <i enc:position="3">3</i>
      <i enc:position="1">1</i>
    </a>
)"));
}

/// An array of the common kind only.
class BareArray : public TzSoapArrayTypeImp {
public:
    BareArray() : TzSoapArrayTypeImp(TzXmlName("a"), "xsd:int", 1U, 0U) {}
};

TEST(TzSoapWriterArray, WritesNothingForAnArrayThatHoldsNoItems) {
    const auto bare = TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(new BareArray));
    EXPECT_EQ(wire(bare), "");
}

/// Writes `value` with a writer of a derived class and returns the text.
template <typename Writer> std::string writtenBy(const TzSoapMessage& message) {
    TzXmlStringWriter text;
    Writer writer(&text, nullptr);
    message.acceptVisitor(writer);
    return text.getString();
}

/// Notes the position attributes of the simple values that it is given.
class PositionNotingWriter : public TzSoapWriter {
public:
    using TzSoapWriter::TzSoapWriter;
    using TzSoapWriter::visit;
    void visit(const TzSoapSimpleType& value) override {
        const TzXmlName& name =
            TzSoapVersion::getSoapAttributeName(TzSoapVersion::Position, TzSoapVersion::V1_1);
        positions_ += value.hasAttribute(name) ? "positioned " : "plain ";
        TzSoapWriter::visit(value);
    }
    const std::string& positions() const { return positions_; }

private:
    std::string positions_;
};

TEST(TzSoapWriterArray, WritingASparseItemChangesNothingAboutTheItem) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{9});
    TzSoapSimpleType item("i", 5, TzSoapType::xsdInt, true);
    array(Index{7}) = item;
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {array});
    message.setSoapEncodingPrefix("c");
    const std::string expected = envelope11(
        R"(    <a xmlns:c="http://schemas.xmlsoap.org/soap/encoding/" c:arrayType="xsd:int[9]">
      <i c:position="[7]" xsi:type="xsd:int">5</i>
    </a>
)");
    TzXmlStringWriter text;
    PositionNotingWriter noting(&text, nullptr);
    message.acceptVisitor(noting);
    for (const std::string& written : {wire(message), text.getString()}) {
        EXPECT_EQ(written, expected);
        EXPECT_EQ(item.getTypeAttribute(), "");
        EXPECT_EQ(item.attributeCount(), 0U);
    }
    // A derived writer sees the item as it is written.
    EXPECT_EQ(noting.positions(), "positioned ");
}

TEST(TzSoapWriterArray, ADerivedWriterWritesItemsAsTheWriterDoes) {
    TzSoapSparseArrayType array(TzXmlName("a"), "xsd:int", Index{9});
    array(Index{1}) = intValue("i", 1);
    TzSoapSimpleType stale = intValue("i", 2);
    stale.addAttribute(
        TzSoapVersion::getSoapAttributeName(TzSoapVersion::Position, TzSoapVersion::V1_2), "[5]");
    stale.addAttribute(TzXmlName("own"), "1");
    array(Index{2}) = stale;
    TzSoapCompositeType member("m");
    member.appendChild(intValue("i", 3));
    array(Index{3}) = member;
    array(Index{4}) = filled({3}, {0}, 0, 3);
    array(Index{5}) = TzSoapDefaultType();
    array(Index{6}) = TzSoapType(TzXmlName("g"));
    TzSoapCompactArrayType outer(TzXmlName("o"), "xsd:anyType", 3, 0);
    outer(0) = array;
    outer(2) = intValue("last", 4);
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {outer});
    EXPECT_EQ(writtenBy<PositionNotingWriter>(message), writtenBy<TzSoapWriter>(message));
    EXPECT_EQ(
        wire(message),
        envelope11(
            R"(    <o xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:anyType[3]">
      <a SOAP-ENC:arrayType="xsd:int[9]">
        <i SOAP-ENC:position="[1]">1</i>
        <i SOAP-ENC:position="[2]" own="1">2</i>
        <m SOAP-ENC:position="[3]">
          <i>3</i>
        </m>
        <a SOAP-ENC:position="[4]" SOAP-ENC:arrayType="xsd:int[3]">
          <i>0</i>
          <i>1</i>
          <i>2</i>
        </a>
        <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" SOAP-ENC:position="[5]" xsi:nil="1"></tznone:unnamed>
        <g SOAP-ENC:position="[6]">
        </g>
      </a>
      <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" xsi:nil="1"></tznone:unnamed>
      <last>4</last>
    </o>
)"));
}

} // namespace
