// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzThrow.h>

#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// Handles of a specific kind that were assigned a value of another kind as a TzSoapType&.

namespace {

TzSoapSimpleType simple() { return TzSoapSimpleType("s", 1, TzSoapType::xsdInt, false); }

/// `handle` refers to the body of `other`, whatever kind that is.
template <typename Handle> Handle& assigned(Handle& handle, const TzSoapType& other) {
    TzSoapType& base = handle;
    base = other;
    return handle;
}

void expectRefused(const std::string& handle, const std::function<void()>& action) {
    expectCatalogued<TzXmlDomainError>(action, 0,
                                       handle + ": the handle refers to a value of another kind");
}

} // namespace

TEST(HandleKind, ASimpleHandleRefusesOtherKinds) {
    TzSoapSimpleType value = simple();
    assigned(value, TzSoapCompositeType());
    expectRefused("TzSoapSimpleType", [&] { value.getInt(); });
    expectRefused("TzSoapSimpleType", [&] { value.copy(); });
}

TEST(HandleKind, AUserDefinedHandleRefusesOtherKinds) {
    TzSoapUserDefinedType value;
    assigned(value, simple());
    expectRefused("TzSoapUserDefinedType", [&] { value.getValue(); });
}

TEST(HandleKind, AMisunderstoodHandleRefusesOtherKinds) {
    TzSoapMisunderstoodType value;
    assigned(value, simple());
    expectRefused("TzSoapMisunderstoodType", [&] { value.getQualifiedName(); });
}

TEST(HandleKind, AReferenceHandleRefusesOtherKinds) {
    TzSoapReferenceType value(true);
    assigned(value, simple());
    expectRefused("TzSoapReferenceType", [&] { value.hasReference(); });
}

TEST(HandleKind, ACompositeHandleRefusesOtherKinds) {
    TzSoapCompositeType value;
    assigned(value, TzSoapType("n"));
    expectRefused("TzSoapCompositeType", [&] { value.appendChild(simple()); });
    expectRefused("TzSoapCompositeType", [&] { value.childrenBegin(); });
}

TEST(HandleKind, ACompactArrayHandleRefusesASparseArray) {
    TzSoapCompactArrayType value("xsd:int", 2, 0);
    assigned(value, TzSoapSparseArrayType("xsd:int", 2));
    expectRefused("TzSoapCompactArrayType", [&] { value.begin(); });
    expectRefused("TzSoapCompactArrayType", [&] { value.entries(); });
}

TEST(HandleKind, ASparseArrayHandleRefusesACompactArray) {
    TzSoapSparseArrayType value("xsd:int", 2);
    assigned(value, TzSoapCompactArrayType("xsd:int", 2, 0));
    expectRefused("TzSoapSparseArrayType", [&] { value.begin(); });
}

TEST(HandleKind, AnArrayHandleTakesBothKindsOfArraysAndNoOther) {
    TzSoapSparseArrayType sparse("xsd:int", 2);
    TzSoapArrayType& value = sparse;
    assigned(value, TzSoapCompactArrayType("xsd:int", 3, 0));
    EXPECT_EQ(value.entries(), 3U);
    assigned(value, simple());
    expectRefused("TzSoapArrayType", [&] { value.entries(); });
}

TEST(HandleKind, OperationsOfEveryValueWorkOnAnyKind) {
    TzSoapSimpleType value = simple();
    assigned(value, TzSoapCompositeType("c"));
    EXPECT_EQ(value.getName().getLocalName(), "c");
    EXPECT_EQ(value.getSoapTypeId(), TzSoapType::Composite);
    const TzSoapType& base = value;
    EXPECT_EQ(base.copy().getSoapTypeId(), TzSoapType::Composite);
}

TEST(HandleKind, AHandleThatIsAssignedItsOwnKindAgainWorksAgain) {
    TzSoapSimpleType value = simple();
    assigned(value, TzSoapCompositeType());
    assigned(value, simple());
    EXPECT_EQ(value.getInt(), 1);
}

TEST(HandleKind, APlaceholderTakesAnyKind) {
    TzSoapDefaultType value;
    value = simple();
    EXPECT_EQ(value.getName().getLocalName(), "s");
    EXPECT_EQ(value.copy().getSoapTypeId(), TzSoapType::Simple);
}

TEST(HandleKind, BodiesThatAProgramDerivesAreOfTheirKind) {
    /// A struct of a derived class.
    class Imp : public TzSoapCompositeTypeImp {};
    /// Its handle.
    class Handle : public TzSoapCompositeType {
    public:
        Handle() : TzSoapCompositeType(new Imp) {}
    };
    Handle value;
    value.appendChild(simple());
    EXPECT_EQ(value.childCount(), 1U);
}

TEST(HandleKind, HandlesOfADerivedClassMayStartFromABody) {
    /// Each makes the protected constructor of its base its own.
    class Default : public TzSoapDefaultType {
    public:
        Default() : TzSoapDefaultType(nullptr) {}
    };
    class UserDefined : public TzSoapUserDefinedType {
    public:
        UserDefined() : TzSoapUserDefinedType(nullptr) {}
    };
    class Misunderstood : public TzSoapMisunderstoodType {
    public:
        Misunderstood() : TzSoapMisunderstoodType(nullptr) {}
    };
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([] { Default().getName(); }), "Invalid pointer");
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([] { UserDefined().getValue(); }), "Invalid pointer");
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([] { Misunderstood().getQualifiedName(); }),
              "Invalid pointer");
}
