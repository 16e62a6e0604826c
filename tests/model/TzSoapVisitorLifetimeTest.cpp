// SPDX-License-Identifier: MIT
#include <soap/TzSoapVisitor.h>

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

/// The mutable family: runs `act` on whatever value is visited.
class Visitor : public TzSoapVisitor {
public:
    explicit Visitor(std::function<void(TzSoapType&)> act) : act_(std::move(act)) {}

    void visit(TzSoapMisunderstoodType& value) override { act_(value); }
    void visit(TzSoapReferenceType& value) override { act_(value); }
    void visit(TzSoapUserDefinedType& value) override { act_(value); }
    void visit(TzSoapSimpleType& value) override { act_(value); }
    void visit(TzSoapFault&) override {}
    void visit(TzSoapCompositeType& value) override { act_(value); }
    void visit(TzSoapSparseArrayType& value) override { act_(value); }
    void visit(TzSoapCompactArrayType& value) override { act_(value); }
    void visit(TzSoapArrayType& value) override { act_(value); }
    void visit(TzSoapType& value) override { act_(value); }
    void visit(TzSoapBody&) override {}
    void visit(TzSoapHeader&) override {}
    void visit(TzSoapMessage&) override {}

private:
    std::function<void(TzSoapType&)> act_;
};

/// The const family.
class ConstVisitor : public TzSoapConstVisitor {
public:
    explicit ConstVisitor(std::function<void(const TzSoapType&)> act) : act_(std::move(act)) {}

    void visit(const TzSoapMisunderstoodType& value) override { act_(value); }
    void visit(const TzSoapReferenceType& value) override { act_(value); }
    void visit(const TzSoapUserDefinedType& value) override { act_(value); }
    void visit(const TzSoapSimpleType& value) override { act_(value); }
    void visit(const TzSoapFault&) override {}
    void visit(const TzSoapCompositeType& value) override { act_(value); }
    void visit(const TzSoapSparseArrayType& value) override { act_(value); }
    void visit(const TzSoapCompactArrayType& value) override { act_(value); }
    void visit(const TzSoapArrayType& value) override { act_(value); }
    void visit(const TzSoapType& value) override { act_(value); }
    void visit(const TzSoapBody&) override {}
    void visit(const TzSoapHeader&) override {}
    void visit(const TzSoapMessage&) override {}

private:
    std::function<void(const TzSoapType&)> act_;
};

/// An array that is neither sparse nor compact.
class PlainArray : public TzSoapArrayTypeImp {};

TzSoapType plainArray() {
    return TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(new PlainArray));
}

/// Whether the handle's body is still there: reads it, and the sanitizer looks.
std::string nameOf(const TzSoapType& value) { return value.getName().getLocalName(); }

/// A value that is passed on as a more specific handle, named "visited".
struct Kind {
    const char* description;
    std::function<TzSoapType()> make;
};

class TzSoapVisitorLifetime : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override {
        TzSoapType entry = GetParam().make();
        entry.setName(TzXmlName("visited"));
        body().appendEntry(std::move(entry));
    }

    TzSoapBody& body() { return message_.getSoapBody(); }
    TzSoapType& entry() { return *body().entriesBegin(); }

    /// Lets a visitor of each family, one after the other, look at the only entry of a body.
    void visit(const std::function<void(TzSoapType&)>& act) {
        Visitor visitor(act);
        entry().acceptVisitor(visitor);
    }
    void visitConst(const std::function<void(const TzSoapType&)>& act) {
        ConstVisitor visitor(act);
        std::as_const(entry()).acceptVisitor(visitor);
    }
    /// The name seen after `change` in a visit by the mutable family.
    std::string nameAfter(const std::function<void()>& change) {
        std::string seen;
        visit([&](const TzSoapType& visited) {
            change();
            seen = nameOf(visited);
        });
        return seen;
    }
    /// The name seen after `change` in a visit by the const family.
    std::string constNameAfter(const std::function<void()>& change) {
        std::string seen;
        visitConst([&](const TzSoapType& visited) {
            change();
            seen = nameOf(visited);
        });
        return seen;
    }

private:
    TzSoapMessage message_;
};

TzSoapSimpleType other(const char* name = "other") {
    return TzSoapSimpleType(TzXmlName(name), 7, TzSoapType::xsdInt, false);
}

} // namespace

TEST_P(TzSoapVisitorLifetime, AnEntryReplacedThroughItsContainerStaysUntilTheVisitEnds) {
    EXPECT_EQ(nameAfter([&] { *body().findEntry("visited") = other(); }), "visited");
    EXPECT_EQ(nameOf(entry()), "other");
    EXPECT_EQ(TzSoapAccess::body(entry()).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryReplacedThroughItsContainerStaysUntilTheConstVisitEnds) {
    EXPECT_EQ(constNameAfter([&] { *body().findEntry("visited") = other(); }), "visited");
    EXPECT_EQ(nameOf(entry()), "other");
    EXPECT_EQ(TzSoapAccess::body(entry()).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryMovedAwayBelongsToItsTaker) {
    TzSoapType taken;
    EXPECT_EQ(nameAfter([&] { taken = std::move(entry()); }), "visited");
    EXPECT_FALSE(TzSoapAccess::hasBody(entry()));
    EXPECT_EQ(nameOf(taken), "visited");
    EXPECT_EQ(TzSoapAccess::body(taken).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryMovedAwayInAConstVisitBelongsToItsTaker) {
    TzSoapType taken;
    EXPECT_EQ(constNameAfter([&] { taken = std::move(entry()); }), "visited");
    EXPECT_FALSE(TzSoapAccess::hasBody(entry()));
    EXPECT_EQ(nameOf(taken), "visited");
    EXPECT_EQ(TzSoapAccess::body(taken).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryMovedAwayAndDroppedStaysUntilTheVisitEnds) {
    EXPECT_EQ(nameAfter([&] { const TzSoapType taken = std::move(entry()); }), "visited");
    EXPECT_FALSE(TzSoapAccess::hasBody(entry()));
}

TEST_P(TzSoapVisitorLifetime, AnEntryRemovedStaysUntilTheVisitEnds) {
    EXPECT_EQ(nameAfter([&] { body().removeEntry(body().entriesBegin()); }), "visited");
    EXPECT_EQ(body().entryCount(), 0U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryRemovedStaysUntilTheConstVisitEnds) {
    EXPECT_EQ(constNameAfter([&] { body().removeEntry(body().entriesBegin()); }), "visited");
    EXPECT_EQ(body().entryCount(), 0U);
}

TEST_P(TzSoapVisitorLifetime, AnEntryAssignedThroughTheHandleTakesItsPlace) {
    visit([](TzSoapType& visited) { visited = other(); });
    EXPECT_EQ(nameOf(entry()), "other");
    EXPECT_EQ(TzSoapAccess::body(entry()).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, WhatIsAssignedToTheHandleWinsOverItsContainer) {
    visit([&](TzSoapType& visited) {
        *body().findEntry("visited") = other("first");
        visited = other("second");
    });
    EXPECT_EQ(nameOf(entry()), "second");
    EXPECT_EQ(TzSoapAccess::body(entry()).referenceCount(), 1U);
}

TEST_P(TzSoapVisitorLifetime, TheHandleMovedAwaySharesTheEntry) {
    std::optional<TzSoapType> taken;
    visit([&](TzSoapType& visited) { taken = std::move(visited); });
    ASSERT_TRUE(taken.has_value());
    EXPECT_TRUE(TzSoapAccess::sameBody(*taken, entry()));
    EXPECT_EQ(TzSoapAccess::body(*taken).referenceCount(), 2U);
}

TEST_P(TzSoapVisitorLifetime, TheEntryMayGoOnceTheHandleWasMovedAway) {
    std::optional<TzSoapType> taken;
    visit([&](TzSoapType& visited) {
        taken = std::move(visited);
        body().clearEntries();
    });
    ASSERT_TRUE(taken.has_value());
    EXPECT_EQ(nameOf(*taken), "visited");
    EXPECT_EQ(TzSoapAccess::body(*taken).referenceCount(), 1U);
}

namespace {

const Kind kinds[] = {
    {"Simple", [] { return TzSoapType(TzSoapSimpleType("n", 1, TzSoapType::xsdInt, false)); }},
    {"UserDefined", [] { return TzSoapType(TzSoapUserDefinedType()); }},
    {"Composite", [] { return TzSoapType(TzSoapCompositeType()); }},
    {"Compact", [] { return TzSoapType(TzSoapCompactArrayType("xsd:int", 2, 0)); }},
    {"Sparse", [] { return TzSoapType(TzSoapSparseArrayType("xsd:int", 2)); }},
    {"Reference", [] { return TzSoapType(TzSoapReferenceType(true)); }},
    {"Misunderstood", [] { return TzSoapType(TzSoapMisunderstoodType()); }},
};

INSTANTIATE_TEST_SUITE_P(Kinds, TzSoapVisitorLifetime, testing::ValuesIn(kinds),
                         [](const auto& kind) { return std::string(kind.param.description); });

} // namespace

TEST(TzSoapVisitorLifetimePlain, APlainArrayIsPassedOnAsAHandleForTheVisitAlone) {
    TzSoapType value = plainArray();
    const TzSoapType same = value;
    Visitor visitor([](TzSoapType& visited) { visited = other(); });
    value.acceptVisitor(visitor);
    EXPECT_TRUE(TzSoapAccess::sameBody(value, same));
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 2U);
}

TEST(TzSoapVisitorLifetimePlain, APlainArrayStaysUntilTheVisitEnds) {
    TzSoapType value = plainArray();
    value.setName(TzXmlName("visited"));
    std::string seen;
    Visitor visitor([&](const TzSoapType& visited) {
        value = other();
        seen = nameOf(visited);
    });
    value.acceptVisitor(visitor);
    EXPECT_EQ(seen, "visited");
    EXPECT_EQ(nameOf(value), "other");
}

TEST(TzSoapVisitorLifetimePlain, APlainArrayStaysUntilTheConstVisitEnds) {
    TzSoapType value = plainArray();
    value.setName(TzXmlName("visited"));
    std::string seen;
    ConstVisitor visitor([&](const TzSoapType& visited) {
        value = other();
        seen = nameOf(visited);
    });
    std::as_const(value).acceptVisitor(visitor);
    EXPECT_EQ(seen, "visited");
    EXPECT_EQ(nameOf(value), "other");
}
