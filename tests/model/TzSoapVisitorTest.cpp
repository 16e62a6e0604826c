// SPDX-License-Identifier: MIT
#include <soap/TzSoapVisitor.h>

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace {

/// Notes which operation was called, and for values the body and its count at that time.
struct Call {
    std::string operation;
    const TzBodyBase* body = nullptr;
    std::uintptr_t references = 0;
};

template <typename Handle> const TzBodyBase* bodyOf(const Handle& handle) {
    if constexpr (std::is_base_of_v<TzSoapType, Handle>) {
        return &TzSoapAccess::body(static_cast<const TzSoapType&>(handle)); // of whatever class
    } else {
        return &TzSoapAccess::body(handle);
    }
}

/// Text of a simple value that any handle refers to.
TzCString textOf(const TzSoapType& value) {
    return dynamic_cast<TzSoapSimpleTypeImp&>(TzSoapAccess::body(value)).text();
}

template <typename Handle> Call callOf(const char* operation, const Handle& handle) {
    const TzBodyBase* const body = bodyOf(handle);
    return {operation, body, body->referenceCount()};
}

/// The mutable family. Runs `change` on a visited simple value.
class Visitor : public TzSoapVisitor {
public:
    void visit(TzSoapMisunderstoodType& value) override { note("misunderstood", value); }
    void visit(TzSoapReferenceType& value) override { note("reference", value); }
    void visit(TzSoapUserDefinedType& value) override { note("userDefined", value); }
    void visit(TzSoapSimpleType& value) override {
        note("simple", value);
        if (change) {
            change(value);
        }
    }
    void visit(TzSoapFault& fault) override { note("fault", fault); }
    void visit(TzSoapCompositeType& value) override { note("composite", value); }
    void visit(TzSoapSparseArrayType& value) override { note("sparse", value); }
    void visit(TzSoapCompactArrayType& value) override { note("compact", value); }
    void visit(TzSoapArrayType& value) override { note("array", value); }
    void visit(TzSoapType& value) override { note("type", value); }
    void visit(TzSoapBody& body) override { note("body", body); }
    void visit(TzSoapHeader& header) override { note("header", header); }
    void visit(TzSoapMessage& message) override { note("message", message); }

    std::function<void(TzSoapSimpleType&)> change;
    std::optional<Call> call;

private:
    template <typename Handle> void note(const char* operation, const Handle& handle) {
        EXPECT_FALSE(call.has_value());
        call = callOf(operation, handle);
    }
};

/// The const family. Throws out of the visit of a simple value on demand.
class ConstVisitor : public TzSoapConstVisitor {
public:
    void visit(const TzSoapMisunderstoodType& value) override { note("misunderstood", value); }
    void visit(const TzSoapReferenceType& value) override { note("reference", value); }
    void visit(const TzSoapUserDefinedType& value) override { note("userDefined", value); }
    void visit(const TzSoapSimpleType& value) override {
        note("simple", value);
        if (throws) {
            throw std::runtime_error("from the visitor");
        }
    }
    void visit(const TzSoapFault& fault) override { note("fault", fault); }
    void visit(const TzSoapCompositeType& value) override { note("composite", value); }
    void visit(const TzSoapSparseArrayType& value) override { note("sparse", value); }
    void visit(const TzSoapCompactArrayType& value) override { note("compact", value); }
    void visit(const TzSoapArrayType& value) override { note("array", value); }
    void visit(const TzSoapType& value) override { note("type", value); }
    void visit(const TzSoapBody& body) override { note("body", body); }
    void visit(const TzSoapHeader& header) override { note("header", header); }
    void visit(const TzSoapMessage& message) override { note("message", message); }

    bool throws = false;
    std::optional<Call> call;

private:
    template <typename Handle> void note(const char* operation, const Handle& handle) {
        EXPECT_FALSE(call.has_value());
        call = callOf(operation, handle);
    }
};

/// An array without storage, with preset answers.
class ToldArray : public TzSoapArrayTypeImp {
public:
    ToldArray(bool sparse, bool compact) : sparse_(sparse), compact_(compact) {}
    bool isSparse() const override { return sparse_; }
    bool isCompact() const override { return compact_; }

private:
    bool sparse_;
    bool compact_;
};

/// A body of an unknown kind.
class StrangeBody : public TzSoapTypeImp {
public:
    explicit StrangeBody(int kind) : kind_(kind) {}
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override {
        return static_cast<TzSoapContentBase::SoapTypeId>(kind_);
    }

private:
    int kind_;
};

TzSoapType valueOn(TzSoapTypeImp* body) { return TzSoapAccess::handle<TzSoapType>(body); }

/// How often the handle that is passed on counts: a more specific one once, the visited one itself
/// not again.
std::uintptr_t countsOf(const std::string& operation) {
    const bool itself = operation == "type" || operation == "fault" || operation == "body" ||
                        operation == "header" || operation == "message";
    return itself ? 0 : 1;
}

/// Both families call `operation` with the handle's own body, and no count stays changed.
template <typename Handle> void expectVisited(Handle element, const std::string& operation) {
    const TzBodyBase* const body = bodyOf(element);
    const auto references = bodyOf(element)->referenceCount();

    Visitor visitor;
    element.acceptVisitor(visitor);
    ASSERT_TRUE(visitor.call.has_value()) << operation;
    EXPECT_EQ(visitor.call->operation, operation);
    EXPECT_EQ(visitor.call->body, body) << operation;
    EXPECT_EQ(visitor.call->references, references + countsOf(operation)) << operation;
    EXPECT_EQ(bodyOf(element), body) << operation;
    EXPECT_EQ(bodyOf(element)->referenceCount(), references) << operation;

    ConstVisitor constVisitor;
    const Handle& constant = element;
    constant.acceptVisitor(constVisitor);
    ASSERT_TRUE(constVisitor.call.has_value()) << operation;
    EXPECT_EQ(constVisitor.call->operation, operation);
    EXPECT_EQ(constVisitor.call->body, body) << operation;
    EXPECT_EQ(constVisitor.call->references, references + countsOf(operation)) << operation;
    EXPECT_EQ(bodyOf(element)->referenceCount(), references) << operation;
}

/// The same through the handle that all values share.
void expectVisitedAsValue(const TzSoapType& value, const std::string& operation) {
    expectVisited(value, operation);
}

} // namespace

TEST(TzSoapVisitor, ValuesAreDispatchedByTheirKind) {
    expectVisitedAsValue(TzSoapType("n"), "type");
    expectVisitedAsValue(TzSoapSimpleType(), "simple");
    expectVisitedAsValue(TzSoapUserDefinedType(), "userDefined");
    expectVisitedAsValue(TzSoapCompositeType(), "composite");
    expectVisitedAsValue(TzSoapCompactArrayType("xsd:int", 2, 0), "compact");
    expectVisitedAsValue(TzSoapSparseArrayType("xsd:int", 2), "sparse");
    expectVisitedAsValue(TzSoapReferenceType(true), "reference");
    expectVisitedAsValue(TzSoapReferenceType(false), "reference");
    expectVisitedAsValue(TzSoapMisunderstoodType(), "misunderstood");
}

TEST(TzSoapVisitor, TheHandleThatIsAskedMakesNoDifference) {
    expectVisited(TzSoapSimpleType(), "simple");
    expectVisited(TzSoapCompositeType(), "composite");
    expectVisited(TzSoapSparseArrayType("xsd:int", 2), "sparse");
}

TEST(TzSoapVisitor, APlaceholderIsAGenericValue) {
    expectVisited(TzSoapDefaultType(), "type");
    expectVisitedAsValue(TzSoapDefaultType(), "type");
}

TEST(TzSoapVisitor, APlaceholderThatTookAValueOverIsThatValue) {
    TzSoapDefaultType item;
    item = TzSoapSimpleType("n", 1, TzSoapType::xsdInt, false);
    expectVisited(item, "simple");
}

TEST(TzSoapVisitor, ElementsOfAMessageAreVisitedDirectly) {
    TzSoapMessage message;
    expectVisited(message, "message");
    expectVisited(message.getSoapHeader(), "header");
    expectVisited(message.getSoapBody(), "body");
    expectVisited(TzSoapFault(), "fault");
}

TEST(TzSoapVisitor, SparseIsAskedBeforeCompact) {
    expectVisitedAsValue(valueOn(new ToldArray(true, true)), "sparse");
    expectVisitedAsValue(valueOn(new ToldArray(true, false)), "sparse");
    expectVisitedAsValue(valueOn(new ToldArray(false, true)), "compact");
    expectVisitedAsValue(valueOn(new ToldArray(false, false)), "array");
}

TEST(TzSoapVisitor, UnknownKindsAreInternalErrors) {
    for (const int kind : {7, 8, -1, 1000}) {
        TzSoapType value = valueOn(new StrangeBody(kind));
        Visitor visitor;
        expectCatalogued<TzXmlInternalError>(
            [&] { value.acceptVisitor(visitor); }, 0x7013,
            "[INTERNAL_ERROR][Internal Logic Error in file \"TzSoapVisitor\", line \"63\" ]");
        EXPECT_FALSE(visitor.call.has_value());

        const TzSoapType& constant = value;
        ConstVisitor constVisitor;
        expectCatalogued<TzXmlInternalError>(
            [&] { constant.acceptVisitor(constVisitor); }, 0x7013,
            "[INTERNAL_ERROR][Internal Logic Error in file \"TzSoapConstVisitor\", line \"63\" ]");
        EXPECT_FALSE(constVisitor.call.has_value());
    }
}

TEST(TzSoapVisitor, ChangesReachTheVisitedValue) {
    TzSoapType value = TzSoapSimpleType("n", 1, TzSoapType::xsdInt, false);
    Visitor visitor;
    visitor.change = [](TzSoapSimpleType& visited) { visited.setInt(2); };
    value.acceptVisitor(visitor);
    EXPECT_EQ(textOf(value), "2");
}

TEST(TzSoapVisitor, AVisitorMayPutAnotherValueInPlace) {
    TzSoapSimpleType original("old", 1, TzSoapType::xsdInt, false);
    TzSoapSimpleType other("new", 2, TzSoapType::xsdInt, false);
    TzSoapType value = original;
    Visitor visitor;
    visitor.change = [&other](TzSoapSimpleType& visited) { visited = other; };
    value.acceptVisitor(visitor);
    EXPECT_EQ(bodyOf(value), bodyOf(other));
    EXPECT_EQ(TzSoapAccess::body(other).referenceCount(), 2U);
    EXPECT_EQ(TzSoapAccess::body(original).referenceCount(), 1U);
    value = TzSoapType();
    EXPECT_EQ(TzSoapAccess::body(other).referenceCount(), 1U);
}

TEST(TzSoapVisitor, AVisitorMayPutTheOnlyHandleOfAValueInPlace) {
    TzSoapType value = TzSoapSimpleType("old", 1, TzSoapType::xsdInt, false);
    Visitor visitor;
    visitor.change = [](TzSoapSimpleType& visited) {
        visited = TzSoapSimpleType("new", 2, TzSoapType::xsdInt, false);
    };
    value.acceptVisitor(visitor);
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
    EXPECT_EQ(textOf(value), "2");
}

TEST(TzSoapVisitor, AVisitorThatMovesTheHandleAwaySharesTheValue) {
    TzSoapType value = TzSoapSimpleType("n", 1, TzSoapType::xsdInt, false);
    std::optional<TzSoapSimpleType> taken;
    Visitor visitor;
    visitor.change = [&taken](TzSoapSimpleType& visited) { taken = std::move(visited); };
    value.acceptVisitor(visitor);
    EXPECT_EQ(bodyOf(value), bodyOf(*taken));
    EXPECT_EQ(TzSoapAccess::body(*taken).referenceCount(), 2U);
    EXPECT_EQ(taken->getInt(), 1);
}

TEST(TzSoapVisitor, ErrorsOfAVisitorPassThrough) {
    const TzSoapType value = TzSoapSimpleType("n", 1, TzSoapType::xsdInt, false);
    ConstVisitor visitor;
    visitor.throws = true;
    EXPECT_THROW(value.acceptVisitor(visitor), std::runtime_error);
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
}

TEST(TzSoapVisitor, ErrorsFromTheVisitOfAnArrayLeaveItsCountAlone) {
    /// Throws out of the visit of an array that is neither sparse nor compact.
    struct Throwing : ConstVisitor {
        void visit(const TzSoapArrayType&) override {
            throw std::runtime_error("from the visitor");
        }
        using ConstVisitor::visit;
    };
    const TzSoapType value = valueOn(new ToldArray(false, false));
    Throwing visitor;
    EXPECT_THROW(value.acceptVisitor(visitor), std::runtime_error);
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
}

TEST(TzSoapVisitor, AReplacementStaysWhenTheVisitorThrows) {
    const TzSoapSimpleType other("new", 2, TzSoapType::xsdInt, false);
    TzSoapType value = TzSoapSimpleType("old", 1, TzSoapType::xsdInt, false);
    Visitor visitor;
    visitor.change = [&other](TzSoapSimpleType& visited) {
        visited = other;
        throw std::runtime_error("from the visitor");
    };
    EXPECT_THROW(value.acceptVisitor(visitor), std::runtime_error);
    EXPECT_EQ(bodyOf(value), bodyOf(other));
    EXPECT_EQ(TzSoapAccess::body(other).referenceCount(), 2U);
}

TEST(TzSoapVisitor, AValueWithoutABodyIsNotVisited) {
    TzSoapType none = valueOn(nullptr);
    Visitor visitor;
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { none.acceptVisitor(visitor); }),
              "Invalid pointer");
    const TzSoapType& constant = none;
    ConstVisitor constVisitor;
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { constant.acceptVisitor(constVisitor); }),
              "Invalid pointer");
}

TEST(TzSoapVisitor, ElementsWithoutABodyAreNotVisited) {
    TzSoapMessage message;
    TzSoapHeader header = message.getSoapHeader();
    TzSoapBody body = message.getSoapBody();
    TzSoapFault fault;
    const TzSoapHeader headerKept = std::move(header);
    const TzSoapBody bodyKept = std::move(body);
    const TzSoapFault faultKept = std::move(fault);
    const TzSoapMessage messageKept = std::move(message);
    Visitor visitor;
    ConstVisitor constVisitor;
    const std::function<void()> actions[] = {
        [&] { message.acceptVisitor(visitor); },
        [&] { std::as_const(message).acceptVisitor(constVisitor); },
        [&] { header.acceptVisitor(visitor); },
        [&] { std::as_const(header).acceptVisitor(constVisitor); },
        [&] { body.acceptVisitor(visitor); },
        [&] { std::as_const(body).acceptVisitor(constVisitor); },
        [&] { fault.acceptVisitor(visitor); },
        [&] { std::as_const(fault).acceptVisitor(constVisitor); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
    EXPECT_FALSE(visitor.call.has_value());
    EXPECT_FALSE(constVisitor.call.has_value());
}

TEST(TzSoapVisitor, VisitorsAreCopiedAsPlainObjects) {
    static_assert(std::is_abstract_v<TzSoapVisitor>);
    static_assert(std::is_abstract_v<TzSoapConstVisitor>);
    // Visitors are destroyed as visitors: their bases have the dispatch alone.
    static_assert(std::has_virtual_destructor_v<TzSoapVisitor>);
    static_assert(std::has_virtual_destructor_v<TzSoapConstVisitor>);
    static_assert(!std::is_destructible_v<TzSoapVisitorBase>);
    static_assert(!std::is_destructible_v<TzSoapConstVisitorBase>);
    static_assert(sizeof(TzSoapVisitor) == sizeof(void*));
    static_assert(sizeof(TzSoapConstVisitor) == sizeof(void*));
    const Visitor original;
    Visitor copy(original);
    copy = original;
    TzSoapType("n").acceptVisitor(copy);
    EXPECT_TRUE(copy.call.has_value());
}
