// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSparseArrayType.h>

#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

// One number in braces is what these tests are about.
#ifdef __clang__
#pragma clang diagnostic ignored "-Wbraced-scalar-init"
#endif

namespace {

template <typename Array> void expectIndices(Array& array) {
    const Array& constant = array;
    array[{1, 2}] = valueOf("a");
    EXPECT_EQ(itemText(array[5]), "a");
    array({0, 1}) = valueOf("b");
    EXPECT_EQ(itemText(array(Index{0, 1})), "b");
    EXPECT_EQ(itemText(constant[{1, 2}]), "a");
    EXPECT_EQ(itemText(constant({0, 1})), "b");
    const unsigned int row = 1;
    EXPECT_EQ(itemText(array[{row, row + 1}]), "a");
    expectOutOfRange([&array] { (void)array[{2, 0}]; }, "2 0", "0 0", "2 3");
    expectOutOfRange([&constant] { (void)constant[{0, 0, 0}]; }, "0 0 0", "0 0", "2 3");
}

TEST(TzSoapArrayBraces, SeveralNumbersAreAnIndex) {
    TzSoapCompactArrayType compact("xsd:int", Index{2, 3}, Index{0, 0});
    expectIndices(compact);
    TzSoapSparseArrayType sparse("xsd:int", Index{2, 3});
    expectIndices(sparse);
    TzSoapArrayType general = sparse;
    expectIndices(general);
}

TEST(TzSoapArrayBraces, OneNumberIsAPosition) {
    TzSoapCompactArrayType array("xsd:int", Index{2, 3}, Index{0, 0});
    array[{4}] = valueOf("a");
    EXPECT_EQ(itemText(array[Index{1, 1}]), "a");
    EXPECT_EQ(itemText(array({4})), "a");
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(itemText(constant[{4}]), "a");
    EXPECT_EQ(itemText(constant({4})), "a");
}

TEST(TzSoapArrayBraces, Bounds) {
    TzSoapCompactArrayType array("xsd:int", Index{2, 3}, Index{0, 0});
    array.setBounds({3, 4});
    EXPECT_EQ(array.getBounds(), (Index{3, 4}));
    TzSoapSparseArrayType row("xsd:int", 2);
    row.setBounds({7});
    EXPECT_EQ(row.getBounds(), Index{7});
    expectIllegal([&row] { row.setBounds({7, 7}); }, "setBounds");
}

TEST(TzSoapArrayBraces, Offsets) {
    TzSoapCompactArrayType array("xsd:int", Index{2, 3}, Index{0, 0});
    array.setOffset({1, 0});
    EXPECT_EQ(array.getOffsetIndex(), (Index{1, 0}));
    array.setOffset({1});
    EXPECT_EQ(array.getOffsetIndex(), Index{1});
    EXPECT_EQ(array.indexToLinear({1, 2}), 5U);
}

TEST(TzSoapArrayBraces, Construction) {
    const TzSoapCompactArrayType array("xsd:int", {2, 3}, {0, 1});
    EXPECT_EQ(array.getBounds(), (Index{2, 3}));
    EXPECT_EQ(array.getStartIndex(), (Index{0, 1}));
    const TzSoapCompactArrayType named(TzXmlName("list"), "xsd:int", {2, 3}, {0, 1});
    EXPECT_EQ(named.getName(), TzXmlName("list"));
    EXPECT_EQ(named.getStartIndex(), (Index{0, 1}));
    const TzSoapCompactArrayType row("xsd:int", {3}, {1});
    EXPECT_EQ(row.getBounds(), Index{3});
    EXPECT_EQ(TzSoapCompactArrayType(array, {4, 4}).getBounds(), (Index{4, 4}));
    EXPECT_EQ(TzSoapSparseArrayType("xsd:int", {2, 3}).getBounds(), (Index{2, 3}));
    EXPECT_EQ(TzSoapSparseArrayType(TzXmlName("list"), "xsd:int", {2, 3}).getBounds(),
              (Index{2, 3}));
    EXPECT_EQ(TzSoapSparseArrayType("xsd:int", {5}).getBounds(), Index{5});
}

} // namespace
