// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapVisitor.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace {

using V = TzSoapVersion;

TzSoapFault fault(V::Version version) { return TzSoapAccess::handle<TzSoapFault>(version); }

V::Version versionOf(const TzSoapFault& fault) { return TzSoapAccess::body(fault).getVersion(); }

std::string detailOf(const TzSoapFault& fault) {
    const TzSoapCompositeType& details = fault.getDetails();
    return namesOf(details.childrenBegin(), details.childrenEnd());
}

TEST(TzSoapFault, NewFaultIsEmptyAndOfTheLatestVersion) {
    const TzSoapFault f;
    EXPECT_EQ(versionOf(f), V::V1_2);
    EXPECT_EQ(f.getName().getQualifiedName(), "env:Fault");
    EXPECT_EQ(f.getName().getUri(), "http://www.w3.org/2002/06/soap-envelope");
    EXPECT_TRUE(f.getCode().isEmpty());
    EXPECT_EQ(f.getReason(), "");
    EXPECT_EQ(f.getNode(), "");
    EXPECT_EQ(f.getRole(), "");
    EXPECT_EQ(f.getSubcodeCount(), 0u);
    EXPECT_EQ(f.getDetails().childCount(), 0u);
    EXPECT_EQ(f.getDetails().getName().getQualifiedName(), "env:Detail");
}

TEST(TzSoapFault, VersionDecidesTheNames) {
    const TzSoapFault f = fault(V::V1_1);
    EXPECT_EQ(f.getName().getQualifiedName(), "SOAP-ENV:Fault");
    EXPECT_EQ(f.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(f.getDetails().getName().getQualifiedName(), "detail");
    EXPECT_EQ(f.getDetails().getName().getUri(), "");
    expectCatalogued<TzXmlError>(
        [] { fault(static_cast<V::Version>(7)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapFault, FieldsHaveTheNamesOfBothVersions) {
    TzSoapFault f;
    const TzXmlName code("Sender", TzXmlNamespace("env", "urn:env"));
    f.setCode(code);
    EXPECT_EQ(f.getFaultCode(), code);
    EXPECT_EQ(f.getFaultCode().getPrefix(), "env");
    f.setFaultCode(TzXmlName("other"));
    EXPECT_EQ(f.getCode(), TzXmlName("other"));
    f.setReason("one");
    EXPECT_EQ(f.getFaultString(), "one");
    f.setFaultString("two");
    EXPECT_EQ(f.getReason(), "two");
    f.setNode("urn:one");
    EXPECT_EQ(f.getFaultActor(), "urn:one");
    f.setFaultActor("urn:two");
    EXPECT_EQ(f.getNode(), "urn:two");
    f.setRole("urn:role");
    EXPECT_EQ(f.getRole(), "urn:role");
}

TEST(TzSoapFault, CodesAreNotCheckedAgainstTheVersion) {
    TzSoapFault f = fault(V::V1_1);
    const TzXmlName code("DataEncodingUnknown", TzXmlNamespace("x", "urn:x"));
    f.setCode(code);
    EXPECT_EQ(f.getCode(), code);
}

TEST(TzSoapFault, SubcodesKeepTheirOrder) {
    TzSoapFault f;
    f.addSubcode(TzXmlName("first", TzXmlNamespace("p", "urn:p")));
    f.addSubcode(TzXmlName("second"));
    EXPECT_EQ(f.getSubcodeCount(), 2u);
    EXPECT_EQ(f.getSubcode(0).getUri(), "urn:p");
    EXPECT_EQ(f.getSubcode(1), TzXmlName("second"));
    EXPECT_TRUE(f.getSubcode(2).isEmpty());
    EXPECT_TRUE(f.getSubcode(4294967295u).isEmpty());
    f.clearSubcodes();
    EXPECT_EQ(f.getSubcodeCount(), 0u);
    EXPECT_TRUE(f.getSubcode(0).isEmpty());
}

TEST(TzSoapFault, AQualifierIsASubcodeWithoutNamespace) {
    TzSoapFault f;
    f.addSubcode(TzXmlName("first"));
    for (const char* text : {"plain", "with:colon", "", "two words"}) {
        const unsigned int before = f.getSubcodeCount();
        f.addFaultCodeQualifier(text);
        ASSERT_EQ(f.getSubcodeCount(), before + 1);
        EXPECT_EQ(f.getSubcode(before).getLocalName(), text);
        EXPECT_EQ(f.getSubcode(before).getUri(), "");
        EXPECT_EQ(f.getSubcode(before).getPrefix(), "");
    }
    EXPECT_EQ(f.getSubcode(0), TzXmlName("first"));
}

TEST(TzSoapFault, DetailEntriesAreNamedSharedAndLast) {
    TzSoapFault f;
    TzSoapType value = named("before");
    f.addDetailEntry("first", named("x"));
    f.addDetailEntry("p:second", value);
    EXPECT_EQ(detailOf(f), "first second");
    EXPECT_EQ(value.getName().getLocalName(), "second");
    EXPECT_EQ(value.getName().getPrefix(), "p");
    EXPECT_EQ(value.getName().getUri(), "");
}

TEST(TzSoapFault, ADetailEntryWithoutABodyIsRefused) {
    TzSoapFault f;
    TzSoapType moved = named("a");
    const TzSoapType taken = std::move(moved);
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { f.addDetailEntry("x", moved); }),
              "Invalid pointer");
    EXPECT_EQ(f.getDetails().childCount(), 0u);
}

TEST(TzSoapFault, ADetailWithoutABodyIsRefused) {
    TzSoapFault f;
    f.addDetailEntry("x", named("a"));
    TzSoapCompositeType moved;
    const TzSoapCompositeType taken = std::move(moved);
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { f.setDetails(moved); }), "Invalid pointer");
    EXPECT_EQ(f.getDetails().childCount(), 1u);
}

TEST(TzSoapFault, SetDetailsSharesTheComposite) {
    TzSoapFault f = fault(V::V1_1);
    TzSoapCompositeType details(TzXmlName("mine"));
    details.appendChild(named("a"));
    f.setDetails(details);
    details.appendChild(named("b"));
    EXPECT_EQ(detailOf(f), "a b");
    EXPECT_EQ(f.getDetails().getName(), TzXmlName("mine"));
    TzSoapAccess::body(f).setVersion(V::V1_1);
    EXPECT_EQ(details.getName(), TzXmlName("detail"));
    f.clear();
    EXPECT_EQ(details.childCount(), 0u);
}

TEST(TzSoapFault, ClearKeepsSubcodesAndNames) {
    TzSoapFault f = fault(V::V1_1);
    f.setCode(TzXmlName("Client"));
    f.addSubcode(TzXmlName("sub"));
    f.setReason("reason");
    f.setNode("urn:node");
    f.setRole("urn:role");
    f.addDetailEntry("d", named("x"));
    TzSoapCompositeType details = f.getDetails();
    details.addAttribute(TzXmlName("x"), "1");
    details.setEncodingStyle("urn:style");
    f.clear();
    EXPECT_TRUE(f.getCode().isEmpty());
    EXPECT_EQ(f.getReason(), "");
    EXPECT_EQ(f.getNode(), "");
    EXPECT_EQ(f.getRole(), "");
    EXPECT_EQ(f.getDetails().childCount(), 0u);
    EXPECT_EQ(f.getDetails().attributeCount(), 0u);
    EXPECT_FALSE(f.getDetails().hasEncodingStyleAttribute());
    EXPECT_EQ(f.getSubcodeCount(), 1u);
    EXPECT_EQ(f.getSubcode(0), TzXmlName("sub"));
    EXPECT_EQ(versionOf(f), V::V1_2);
    EXPECT_EQ(f.getName().getQualifiedName(), "SOAP-ENV:Fault");
    EXPECT_EQ(f.getDetails().getName(), TzXmlName("detail"));
}

TEST(TzSoapFault, SetVersionMovesTheNameAndRenamesTheDetail) {
    TzSoapFault f(fault(V::V1_2));
    f.addDetailEntry("d", named("x"));
    TzSoapFaultImp& body = TzSoapAccess::body(f);
    body.setVersion(V::V1_1);
    EXPECT_EQ(versionOf(f), V::V1_1);
    EXPECT_EQ(f.getName().getQualifiedName(), "SOAP-ENV:Fault");
    EXPECT_EQ(f.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(f.getDetails().getName(), TzXmlName("detail"));
    EXPECT_EQ(detailOf(f), "d");
    expectCatalogued<TzXmlError>(
        [&] { body.setVersion(static_cast<V::Version>(0)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
    EXPECT_EQ(versionOf(f), V::V1_1);
    EXPECT_EQ(f.getName().getPrefix(), "SOAP-ENV");
}

TEST(TzSoapFault, SetVersionKeepsTheLocalName) {
    const TzSoapFault f = TzSoapAccess::handle<TzSoapFault>(
        new TzSoapFaultImp(TzXmlName("Mistake", TzXmlNamespace("p", "urn:p")), V::V1_1));
    EXPECT_EQ(f.getName().getQualifiedName(), "p:Mistake");
    TzSoapAccess::body(f).setVersion(V::V1_2);
    EXPECT_EQ(f.getName().getQualifiedName(), "env:Mistake");
}

TEST(TzSoapFault, CopiesShareTheBody) {
    TzSoapFault f;
    TzSoapFault shared = f;
    TzSoapFault assigned = fault(V::V1_1);
    assigned = f;
    shared.setReason("reason");
    EXPECT_EQ(f.getReason(), "reason");
    EXPECT_EQ(assigned.getReason(), "reason");
}

TEST(TzSoapFault, CopyHasEverythingButTheSubcodes) {
    TzSoapFault f = fault(V::V1_1);
    f.setCode(TzXmlName("Client", TzXmlNamespace("p", "urn:p")));
    f.addSubcode(TzXmlName("sub"));
    f.setReason("reason");
    f.setNode("urn:node");
    f.setRole("urn:role");
    TzSoapType value = named("x");
    f.addDetailEntry("d", value);
    TzSoapFault own = f.copy();
    EXPECT_EQ(own.getCode().getQualifiedName(), "p:Client");
    EXPECT_EQ(own.getReason(), "reason");
    EXPECT_EQ(own.getNode(), "urn:node");
    EXPECT_EQ(own.getRole(), "urn:role");
    EXPECT_EQ(own.getName().getQualifiedName(), "SOAP-ENV:Fault");
    EXPECT_EQ(versionOf(own), V::V1_1);
    EXPECT_EQ(own.getSubcodeCount(), 0u);
    EXPECT_EQ(f.getSubcodeCount(), 1u);
    EXPECT_EQ(detailOf(own), "d");

    f.setReason("other");
    f.addDetailEntry("e", named("y"));
    value.setName(TzXmlName("renamed"));
    EXPECT_EQ(own.getReason(), "reason");
    EXPECT_EQ(detailOf(own), "renamed");
}

/// Notes that it was asked to visit a fault.
class Noting : public TzSoapVisitor {
public:
    int faults = 0;
    void visit(TzSoapFault&) override { ++faults; }
    void visit(TzSoapMisunderstoodType&) override {}
    void visit(TzSoapReferenceType&) override {}
    void visit(TzSoapUserDefinedType&) override {}
    void visit(TzSoapSimpleType&) override {}
    void visit(TzSoapCompositeType&) override {}
    void visit(TzSoapSparseArrayType&) override {}
    void visit(TzSoapCompactArrayType&) override {}
    void visit(TzSoapArrayType&) override {}
    void visit(TzSoapType&) override {}
    void visit(TzSoapBody&) override {}
    void visit(TzSoapHeader&) override {}
    void visit(TzSoapMessage&) override {}
};

TEST(TzSoapFault, AcceptVisitorIsVirtual) {
    struct Silent : TzSoapFault {
        using TzSoapFault::acceptVisitor;
        void acceptVisitor(TzSoapVisitor&) override {}
    };
    Noting visitor;
    TzSoapFault plain;
    plain.acceptVisitor(visitor);
    EXPECT_EQ(visitor.faults, 1);
    Silent silent;
    TzSoapFault& base = silent;
    base.acceptVisitor(visitor);
    EXPECT_EQ(visitor.faults, 1);
}

TEST(TzSoapFault, EveryOperationWithoutABodyIsRefused) {
    TzSoapFault none = TzSoapAccess::handle<TzSoapFault>(static_cast<TzSoapFaultImp*>(nullptr));
    const TzSoapFault& constant = none;
    const std::function<void()> actions[] = {
        [&] { none.setCode(TzXmlName("a")); },
        [&] { constant.getCode(); },
        [&] { none.setFaultCode(TzXmlName("a")); },
        [&] { constant.getFaultCode(); },
        [&] { none.addSubcode(TzXmlName("a")); },
        [&] { constant.getSubcode(0); },
        [&] { constant.getSubcodeCount(); },
        [&] { none.clearSubcodes(); },
        [&] { none.addFaultCodeQualifier("a"); },
        [&] { none.setReason("a"); },
        [&] { constant.getReason(); },
        [&] { none.setFaultString("a"); },
        [&] { constant.getFaultString(); },
        [&] { none.setNode("a"); },
        [&] { constant.getNode(); },
        [&] { none.setFaultActor("a"); },
        [&] { constant.getFaultActor(); },
        [&] { none.setRole("a"); },
        [&] { constant.getRole(); },
        [&] { none.addDetailEntry("a", named("a")); },
        [&] { none.setDetails(TzSoapCompositeType()); },
        [&] { constant.getDetails(); },
        [&] { constant.getName(); },
        [&] { none.clear(); },
        [&] { constant.copy(); },
        [&] { constant.asString(); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
}

TEST(TzSoapFault, ADetailEntryKeepsTheNamespaceOfItsPrefix) {
    TzSoapFault f;
    TzSoapType value(TzXmlName("x", TzXmlNamespace("e", "urn:errors")));
    f.addDetailEntry("e:cause", value);
    EXPECT_EQ(value.getName(), TzXmlName("cause", TzXmlNamespace("e", "urn:errors")));
    EXPECT_EQ(value.getName().getPrefix(), "e");
}

TEST(TzSoapFault, ADetailEntryUnderAnotherPrefixIsInNoNamespace) {
    TzSoapFault f;
    TzSoapType value(TzXmlName("x", TzXmlNamespace("e", "urn:errors")));
    f.addDetailEntry("f:cause", value);
    EXPECT_EQ(value.getName().getUri(), "");
    EXPECT_EQ(value.getName().getPrefix(), "f");
    TzSoapType unprefixed(TzXmlName("x", TzXmlNamespace("", "urn:errors")));
    f.addDetailEntry("cause", unprefixed);
    EXPECT_EQ(unprefixed.getName(), TzXmlName("cause"));
}

} // namespace
