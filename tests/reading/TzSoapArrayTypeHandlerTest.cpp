// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/ReadValues.h"

#include <soap/TzSoapCatalog.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Base = TzSoapContentBase;
using V = TzSoapVersion;
using Index = std::vector<unsigned int>;

class TzSoapArrayTypeHandlerReading : public ReadingBothVersions {
protected:
    TzSoapType read(const std::string& entry) const {
        return bodyEntry(readMessage(wire.body(entry)));
    }
    /// An array of `size` with these members.
    TzSoapType array(const std::string& size, const std::string& members,
                     const std::string& attributes = {}) const {
        return read("<a " + wire.array("xsd:int", size) + " " + attributes + ">" + members +
                    "</a>");
    }
    /// Arrays with several axes, which the versions separate differently.
    TzSoapType array2(const char* rows, const char* columns, const std::string& members,
                      const std::string& attributes = {}) const {
        return array(axes(rows, columns), members, attributes);
    }
    std::string axes(const std::string& rows, const std::string& columns) const {
        return rows + (GetParam() == V::V1_1 ? "," : " ") + columns;
    }
    std::string member(const std::string& position, const std::string& text) const {
        return "<i " + wire.position(position) + ">" + text + "</i>";
    }
};

/// The items of a compact array, "-" for those that hold nothing.
std::string itemsOf(const TzSoapType& value) {
    const TzSoapCompactArrayType array = compact(value);
    std::string items;
    for (const auto* item = array.begin(); item != array.end(); ++item) {
        items += item->getSoapTypeId() == Base::Generic ? "-" : textOf(*item);
    }
    return items;
}

/// Positions and items of a sparse array in their order.
std::string positionsOf(const TzSoapType& value) {
    const TzSoapSparseArrayType array = sparse(value);
    std::string items;
    for (auto item = array.begin(); item != array.end(); ++item) {
        items += TzSoapArrayType::vectorToString(item->first, true, V::V1_1) + textOf(item->second);
    }
    return items;
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapArrayTypeHandlerReading);

TEST_P(TzSoapArrayTypeHandlerReading, MembersWithoutPositionMakeACompactArray) {
    const TzSoapType value = array("3", "<i>1</i><i>2</i><i>3</i>");
    EXPECT_EQ(compact(value).getElementType(), "xsd:int");
    EXPECT_EQ(compact(value).getBounds(), Index{3});
    EXPECT_EQ(compact(value).getStartIndex(), Index{0});
    EXPECT_EQ(itemsOf(value), "123");
}

TEST_P(TzSoapArrayTypeHandlerReading, FewerMembersThanPositionsLeaveTheRestEmpty) {
    EXPECT_EQ(itemsOf(array("3", "<i>1</i>")), "1--");
    EXPECT_EQ(itemsOf(array("3", "")), "---");
}

TEST_P(TzSoapArrayTypeHandlerReading, MoreMembersThanPositionsAreNoError) {
    // The array grows by one more than its size.
    EXPECT_EQ(itemsOf(array("2", "<i>1</i><i>2</i><i>3</i>")), "123--");
}

TEST_P(TzSoapArrayTypeHandlerReading, AnOpenArrayTakesAllMembers) {
    const TzSoapType value = array("", "<i>1</i><i>2</i><i>3</i>");
    EXPECT_EQ(compact(value).getBounds(), Index{0});
    EXPECT_EQ(itemsOf(value), "123");
    EXPECT_EQ(itemsOf(array("", "")), "");
    EXPECT_EQ(itemsOf(array("0", "<i>1</i>")), "1");
}

TEST_P(TzSoapArrayTypeHandlerReading, SeveralAxesAreFilledRowByRow) {
    const TzSoapType value = array2("2", "3", repeated("<i>x</i>", 4) + "<i>5</i>");
    EXPECT_EQ(compact(value).getBounds(), (Index{2, 3}));
    const TzSoapCompactArrayType items = compact(value);
    EXPECT_EQ(textOf(items(Index{1, 1})), "5");
    EXPECT_EQ(items(Index{1, 2}).getSoapTypeId(), Base::Generic);
}

TEST_P(TzSoapArrayTypeHandlerReading, AnOffsetSaysWhereTheFirstMemberGoes) {
    const TzSoapType value = array("5", "<i>1</i><i>2</i>", wire.offset("2"));
    EXPECT_EQ(itemsOf(value), "--12-");
    EXPECT_EQ(compact(value).getOffsetIndex(), Index{2});
    EXPECT_EQ(compact(value).attributeCount(), 0U);
    const TzSoapType table = array2("2", "3", "<i>1</i>", wire.offset(axes("1", "1")));
    EXPECT_EQ(itemsOf(table), "----1-");
}

TEST_P(TzSoapArrayTypeHandlerReading, AnOffsetBeyondTheSizeGrowsTheArray) {
    EXPECT_EQ(itemsOf(array("2", "<i>1</i>", wire.offset("3"))), "---1-");
}

TEST_P(TzSoapArrayTypeHandlerReading, TheAttributesOfTheShapeDoNotStay) {
    for (const char* members : {"", "<i>1</i>"}) {
        const TzSoapType value = array("5", members,
                                       wire.offset("1") +
                                           " id=\"x\" k=\"v\" xmlns:t=\"urn:t\""
                                           " xsi:type=\"c:Array\" e:encodingStyle=\"" +
                                           wire.style() + "\"");
        EXPECT_EQ(value.attributeCount(), 3U) << members; // id, k, t
        EXPECT_EQ(value.getIdAttribute(), "x");
        EXPECT_EQ(value.findAttribute(TzXmlName("k"))->getValue(), "v");
        EXPECT_EQ(value.getType(), TzXmlName("Array", wire.names().getSoapEnc()));
        EXPECT_EQ(value.getEncodingStyleAttribute(), wire.style());
        EXPECT_EQ(compact(value).getOffsetAttribute(GetParam()),
                  GetParam() == V::V1_1 ? "[1]" : "1");
    }
}

TEST_P(TzSoapArrayTypeHandlerReading, ItsOwnDeclarationsServeItsType) {
    const TzSoapType value = array("", "", "xmlns:t=\"urn:t\" xsi:type=\"t:List\"");
    EXPECT_EQ(value.getType(), TzXmlName("List", TzXmlNamespace("t", "urn:t")));
}

TEST_P(TzSoapArrayTypeHandlerReading, APositionOnTheFirstMemberMakesASparseArray) {
    const TzSoapType value = array("9", member("7", "a") + member("2", "b"));
    EXPECT_EQ(sparse(value).getElementType(), "xsd:int");
    EXPECT_EQ(sparse(value).getBounds(), Index{9});
    EXPECT_EQ(positionsOf(value), "[7]a[2]b");
    const TzSoapSparseArrayType items = sparse(value);
    EXPECT_EQ(items(7U).attributeCount(), 0U) << "the position is that of the item now";
}

TEST_P(TzSoapArrayTypeHandlerReading, TheFirstMemberAloneDecides) {
    const TzSoapType value = array("5", "<i>1</i>" + member("3", "2") + "<i>3</i>");
    EXPECT_EQ(itemsOf(value), "1--23");
    EXPECT_EQ(compact(value)(3U).attributeCount(), 0U) << "the position is that of the item now";
}

TEST_P(TzSoapArrayTypeHandlerReading, MembersOfEveryKindHavePositions) {
    const std::string at = wire.position("1");
    const struct {
        std::string member;
        Base::SoapTypeId kind;
    } cases[] = {
        {"<i " + at + ">x</i>", Base::Simple},
        {"<i " + at + "><b/></i>", Base::Composite},
        {"<i " + at + " " + wire.ref("x") + "/>", Base::Reference},
        {"<i " + at + " " + wire.array("xsd:int", "1") + "><j/></i>", Base::Array},
        {"<i " + at + " " + wire.array("xsd:int", "1") + "/>", Base::Array},
        {"<i " + at + " e:encodingStyle=\"urn:foreign\"/>", Base::UserDefined},
    };
    for (const auto& one : cases) {
        const TzSoapSparseArrayType array = sparse(this->array("3", one.member));
        ASSERT_EQ(array.entries(), 1U) << one.member;
        EXPECT_EQ(array(1U).getSoapTypeId(), one.kind) << one.member;
        EXPECT_FALSE(
            array(1U).hasAttribute(TzSoapVersion::getSoapAttributeName(V::Position, GetParam())))
            << one.member;
    }
}

TEST_P(TzSoapArrayTypeHandlerReading, MembersOfEveryKindFillCompactArrays) {
    const TzSoapCompactArrayType items = compact(
        array("5", "<i>x</i><i><b>y</b></i><i " + wire.ref("x") + "/><i " +
                       wire.array("xsd:int", "2") + "><j>1</j></i><i e:encodingStyle=\"urn:f\"/>"));
    const Base::SoapTypeId kinds[] = {Base::Simple, Base::Composite, Base::Reference, Base::Array,
                                      Base::UserDefined};
    for (unsigned int i = 0; i < 5; ++i) {
        EXPECT_EQ(items(i).getSoapTypeId(), kinds[i]) << i;
    }
    EXPECT_EQ(textOf(child(items(1U), "b")), "y");
    EXPECT_EQ(itemsOf(items(3U)), "1-");
}

TEST_P(TzSoapArrayTypeHandlerReading, OneMoreMemberAtAPositionReplacesTheOneBefore) {
    EXPECT_EQ(positionsOf(array("9", member("7", "a") + member("2", "b") + member("7", "c"))),
              "[7]c[2]b");
}

TEST_P(TzSoapArrayTypeHandlerReading, AReplacedMemberWithReferencesDoesNoHarm) {
    const TzSoapMessage message = readMessage(wire.body(
        "<a " + wire.array("xsd:int", "9") + "><i " + wire.position("1") + "><b " + wire.ref("x") +
        "/><b " + wire.ref("y") + "/></i><i " + wire.position("1") + ">c</i></a><d id=\"x\"/>"));
    EXPECT_EQ(positionsOf(bodyEntry(message)), "[1]c");
}

TEST_P(TzSoapArrayTypeHandlerReading, AValueReplacedInItsArrayIsStillFoundByItsId) {
    const TzSoapMessage message = readMessage(
        wire.body("<a " + wire.array("xsd:int", "9") + "><i id=\"x\" " + wire.position("1") +
                  ">old</i>" + member("1", "new") + "</a><d " + wire.ref("x") + "/>"));
    EXPECT_EQ(textOf(reference(bodyEntry(message, 1)).getSoapReference()), "old");
}

TEST_P(TzSoapArrayTypeHandlerReading, AMemberWithoutPositionInASparseArrayComesNext) {
    EXPECT_EQ(positionsOf(array("9", member("1", "a") + "<i>b</i>")), "[1]a[2]b");
    expectCatalogued<TzXmlBoundsError>([&] { array("9", member("8", "a") + "<i>b</i>"); },
                                       tzsoap_INDEX_RANGE_VEC()->id,
                                       "[INDEX_RANGE_VEC][Index vector 9 out of range 0 -> 9]");
}

TEST_P(TzSoapArrayTypeHandlerReading, APositionOutsideOfTheShapeIsOutOfRange) {
    expectCatalogued<TzXmlBoundsError>([&] { array("9", member("9", "a")); },
                                       tzsoap_INDEX_RANGE_VEC()->id,
                                       "[INDEX_RANGE_VEC][Index vector 9 out of range 0 -> 9]");
    expectCatalogued<TzXmlBoundsError>([&] { array("9", member(axes("1", "1"), "a")); },
                                       tzsoap_INDEX_RANGE_VEC()->id,
                                       "[INDEX_RANGE_VEC][Index vector 1 1 out of range 0 -> 9]");
    expectCatalogued<TzXmlBoundsError>(
        [&] { array2("2", "3", member(axes("1", "3"), "a")); }, tzsoap_INDEX_RANGE_VEC()->id,
        "[INDEX_RANGE_VEC][Index vector 1 3 out of range 0 0 -> 2 3]");
    EXPECT_EQ(positionsOf(array("", member("4000000000", "a"))), "[4000000000]a");
}

TEST_P(TzSoapArrayTypeHandlerReading, APositionThatIsNoneIsABadIndex) {
    expectCatalogued<TzXmlBadArgError>(
        [&] { read("<a " + wire.array("xsd:int", "9") + "><i c:position=\"[1\">a</i></a>"); },
        tzsoap_BAD_INDEX_STRING()->id,
        "[BAD_INDEX_STRING][Illegal SOAP array index string: \"[1\"]");
    expectCatalogued<TzXmlBadArgError>(
        [&] { read("<a " + wire.array("xsd:int", "9") + "><i c:position=\"-1\">a</i></a>"); },
        tzsoap_BAD_INDEX_STRING()->id,
        "[BAD_INDEX_STRING][Illegal SOAP array index string: \"-1\"]");
}

TEST_P(TzSoapArrayTypeHandlerReading, AShapeThatIsNoneIsABadIndex) {
    const std::string text = GetParam() == V::V1_1
                                 ? "<a c:arrayType=\"xsd:int[-1]\">"
                                 : "<a c:itemType=\"xsd:int\" c:arraySize=\"-1\">";
    const std::string size = GetParam() == V::V1_1 ? "[-1]" : "-1";
    for (const char* members : {"", "<i/>", "<i c:position=\"1\"/>"}) {
        expectCatalogued<TzXmlBadArgError>(
            [&] { read(text + members + "</a>"); }, tzsoap_BAD_INDEX_STRING()->id,
            "[BAD_INDEX_STRING][Illegal SOAP array index string: \"" + size + "\"]");
    }
}

TEST_P(TzSoapArrayTypeHandlerReading, AnOffsetThatIsNoneIsABadIndex) {
    expectCatalogued<TzXmlBadArgError>(
        [&] { array("9", "<i/>", "c:offset=\"[,1]\""); }, tzsoap_BAD_INDEX_STRING()->id,
        "[BAD_INDEX_STRING][Illegal SOAP array index string: \"[,1]\"]");
}

TEST_P(TzSoapArrayTypeHandlerReading, AnEmptyOffsetSaysNothing) {
    EXPECT_EQ(itemsOf(array("2", "<i>1</i>", "c:offset=\"\"")), "1-");
}

TEST_P(TzSoapArrayTypeHandlerReading, AnArrayCanBeReferredToByItsId) {
    for (const char* members : {"", "<i>1</i>"}) {
        const TzSoapMessage message =
            readMessage(wire.body("<b " + wire.ref("x") + "/><a id=\"x\" " +
                                  wire.array("xsd:int", "1") + ">" + members + "</a>"));
        const auto target = reference(bodyEntry(message)).getSoapReference();
        EXPECT_TRUE(sameValue(target, bodyEntry(message, 1))) << members;
    }
}

TEST_P(TzSoapArrayTypeHandlerReading, TextBetweenMembersIsDropped) {
    EXPECT_EQ(itemsOf(array("2", "\n  <i>1</i>text<i>2</i>\n")), "12");
    EXPECT_EQ(itemsOf(array("2", "only text")), "--");
}

TEST_P(TzSoapArrayTypeHandlerReading, ArraysOfArraysKeepTheirMembersApart) {
    const std::string inner = "<i " + wire.array("xsd:int", "2") + ">";
    const TzSoapCompactArrayType outer = compact(
        array("3", inner + "<j>1</j><j>2</j></i>" + inner + "<j>3</j></i>" + inner + "</i>"));
    EXPECT_EQ(itemsOf(outer(0U)), "12");
    EXPECT_EQ(itemsOf(outer(1U)), "3-");
    EXPECT_EQ(itemsOf(outer(2U)), "--");
}

TEST(TzSoapArrayTypeHandler12, TheFormOfSoap11IsReadToo) {
    const WireForm wire(V::V1_2);
    const auto array = compact(bodyEntry(readMessage(wire.body(
        "<a c:itemType=\"xsd:int\" c:arraySize=\"[2,3]\" c:offset=\"[1,0]\"><i>1</i></a>"))));
    EXPECT_EQ(array.getBounds(), (Index{2, 3}));
    EXPECT_EQ(itemsOf(array), "---1--");
}
