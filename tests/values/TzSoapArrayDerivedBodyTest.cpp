// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"
#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

/// A body that notes how its items are reached.
template <typename Base> class Noting : public Base {
public:
    using Base::Base;

    TzSoapType& elementAt(unsigned int position) override {
        noted += "position ";
        return Base::elementAt(position);
    }
    const TzSoapType& elementAt(unsigned int position) const override {
        noted += "const position ";
        return Base::elementAt(position);
    }
    TzSoapType& elementAt(const Index& index) override {
        noted += "index ";
        return Base::elementAt(index);
    }
    const TzSoapType& elementAt(const Index& index) const override {
        noted += "const index ";
        return Base::elementAt(index);
    }
    std::string take() const { return std::exchange(noted, ""); }

private:
    mutable std::string noted;
};

template <typename Handle, typename Body> void expectCalls(Handle array, const Body& body) {
    const Handle& constant = array;
    array[Index{0, 1}] = valueOf("a");
    array(Index{1, 1}) = valueOf("b");
    EXPECT_EQ(body.take(), "index index ");
    EXPECT_EQ(itemText(array[Index{0, 1}]), "a"); // stored now
    EXPECT_EQ(itemText(array(Index{1, 1})), "b");
    EXPECT_EQ(body.take(), "index index ");
    EXPECT_EQ(itemText(constant[Index{0, 1}]), "a");
    EXPECT_EQ(itemText(constant(Index{1, 1})), "b");
    EXPECT_EQ(body.take(), "const index const index ");
    EXPECT_EQ(itemText(array["[0,1]"]), "a");
    EXPECT_EQ(itemText(array[{0, 1}]), "a");
    EXPECT_EQ(body.take(), "index index ");
    EXPECT_EQ(itemText(array[1]), "a");
    EXPECT_EQ(itemText(constant(1)), "a");
    EXPECT_EQ(body.take().substr(0, 9), "position ");
    TzSoapArrayType general = array;
    EXPECT_EQ(itemText(general(Index{1, 1})), "b");
    EXPECT_EQ(body.take(), "index ");
}

TEST(TzSoapArrayDerivedBody, ReachesTheItemsOfACompactArray) {
    auto* body =
        new Noting<TzSoapCompactArrayImp>(TzXmlName("a"), "xsd:int", Index{2, 2}, Index{0, 0});
    expectCalls(
        TzSoapAccess::handle<TzSoapCompactArrayType>(static_cast<TzSoapCompactArrayImp*>(body)),
        *body);
}

TEST(TzSoapArrayDerivedBody, ReachesTheItemsOfASparseArray) {
    auto* body = new Noting<TzSoapSparseArrayImp>(TzXmlName("a"), "xsd:int", Index{2, 2});
    expectCalls(
        TzSoapAccess::handle<TzSoapSparseArrayType>(static_cast<TzSoapSparseArrayImp*>(body)),
        *body);
}

TEST(TzSoapArrayDerivedBody, TakesMembersThatAreRead) {
    Noting<TzSoapCompactArrayImp> compact(TzXmlName("a"), "xsd:int", Index{4}, Index{0});
    compact.addChild(valueOf("x"));
    compact.addChild(valueOf("y"));
    EXPECT_EQ(compact.take(), "position position ");
    EXPECT_EQ(itemText(std::as_const(compact).at(1U)), "y");
    Noting<TzSoapSparseArrayImp> sparse(TzXmlName("a"), "xsd:int", Index{4});
    sparse.addChild(valueOf("x"));
    sparse.addChild(valueOf("y"));
    EXPECT_EQ(sparse.take(), "index index ");
    EXPECT_EQ(itemText(std::as_const(sparse).at(Index{1})), "y");
}

TEST(TzSoapSparseArrayImp, BoundsCanBeInstalledOnTheBody) {
    TzSoapSparseArrayImp body(TzXmlName("a"), "xsd:int", Index{5});
    body.elementAt(Index{4}) = valueOf("e");
    body.elementAt(Index{1}) = valueOf("b");
    body.doSetBounds(Index{3});
    EXPECT_EQ(body.entries(), 1U);
    EXPECT_EQ(body.getBounds(), Index{3});
}

} // namespace
