// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <utility>

namespace {

using V = TzSoapVersion;

TzSoapBody body(V::Version version = V::V1_2) { return TzSoapAccess::handle<TzSoapBody>(version); }

std::string names(const TzSoapBody& body) {
    return namesOf(body.entriesBegin(), body.entriesEnd());
}

TEST(TzSoapBody, NewBodyIsNamedByItsVersionAndEmpty) {
    const TzSoapBody old = body(V::V1_1);
    EXPECT_EQ(old.getName().getQualifiedName(), "SOAP-ENV:Body");
    EXPECT_EQ(old.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    const TzSoapBody latest = body(V::V1_2);
    EXPECT_EQ(latest.getName().getQualifiedName(), "env:Body");
    EXPECT_EQ(latest.getName().getUri(), "http://www.w3.org/2002/06/soap-envelope");
    EXPECT_EQ(latest.entryCount(), 0u);
    EXPECT_EQ(latest.entriesBegin(), latest.entriesEnd());
    EXPECT_FALSE(latest.hasSoapFault());
    EXPECT_EQ(latest.attributeCount(), 0u);
}

TEST(TzSoapBody, UnknownVersionIsRefused) {
    expectCatalogued<TzXmlError>(
        [] { body(static_cast<V::Version>(3)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapBody, TheFaultOfANewBodyIsOfItsVersion) {
    EXPECT_EQ(body(V::V1_1).getSoapFault().getName().getQualifiedName(), "SOAP-ENV:Fault");
    const TzSoapBody latest = body(V::V1_2);
    EXPECT_EQ(latest.getSoapFault().getName().getQualifiedName(), "env:Fault");
    EXPECT_EQ(TzSoapAccess::body(latest.getSoapFault()).getVersion(), V::V1_2);
}

TEST(TzSoapBody, AFaultCountsWhenItsCodeHasALocalName) {
    TzSoapBody b = body();
    b.getSoapFault().setReason("reason");
    b.getSoapFault().addSubcode(TzXmlName("sub"));
    EXPECT_FALSE(b.hasSoapFault());
    b.getSoapFault().setCode(TzXmlName("", TzXmlNamespace("p", "urn:p")));
    EXPECT_FALSE(b.hasSoapFault());
    b.getSoapFault().setCode(TzXmlName("any"));
    EXPECT_TRUE(b.hasSoapFault());
    EXPECT_TRUE(std::as_const(b).hasSoapFault());
    b.getSoapFault().setCode(TzXmlName());
    EXPECT_FALSE(b.hasSoapFault());
}

TEST(TzSoapBody, EntriesStandWhereTheyWereAdded) {
    TzSoapBody b = body();
    b.appendEntry(named("b"));
    b.appendEntry(named("c"));
    b.prependEntry(named("a"));
    const auto inserted = b.insertEntry(std::next(b.entriesBegin()), named("x"));
    EXPECT_EQ(inserted->getName(), TzXmlName("x"));
    EXPECT_EQ(names(b), "a x b c");
    EXPECT_EQ(b.entryCount(), 4u);
}

TEST(TzSoapBody, RemovingByNameTakesTheFirstOrAll) {
    TzSoapBody b = body();
    for (const char* name : {"a", "b", "a"}) {
        b.appendEntry(named(name));
    }
    TzSoapBody all = b.copy();
    b.removeEntry(TzXmlName("a"));
    EXPECT_EQ(names(b), "b a");
    EXPECT_EQ(b.entryCount(), 2u);
    b.removeEntry(TzXmlName("x"));
    EXPECT_EQ(b.entryCount(), 2u);
    all.removeAllEntries(TzXmlName("a"));
    EXPECT_EQ(names(all), "b");
    EXPECT_EQ(all.entryCount(), 1u);
}

TEST(TzSoapBody, RemovingAPositionReturnsTheNext) {
    TzSoapBody b = body();
    b.appendEntry(named("a"));
    b.appendEntry(named("b"));
    EXPECT_EQ(b.removeEntry(b.entriesBegin())->getName(), TzXmlName("b"));
    EXPECT_EQ(b.removeEntry(b.entriesBegin()), b.entriesEnd());
}

TEST(TzSoapBody, FindsTheFirstOfAName) {
    TzSoapBody b = body();
    for (const char* name : {"a", "b", "a"}) {
        b.appendEntry(named(name));
    }
    const TzSoapBody& constant = b;
    EXPECT_EQ(b.findEntry("a"), b.entriesBegin());
    EXPECT_EQ(constant.findEntry("b"), std::next(constant.entriesBegin()));
    EXPECT_EQ(b.findEntry("x"), b.entriesEnd());
    EXPECT_EQ(constant.findEntry("x"), constant.entriesEnd());
}

TEST(TzSoapBody, ClearingEntriesKeepsTheFault) {
    TzSoapBody b = body();
    b.appendEntry(named("a"));
    b.getSoapFault().setCode(TzXmlName("code"));
    b.clearEntries();
    EXPECT_EQ(b.entryCount(), 0u);
    EXPECT_TRUE(b.hasSoapFault());
}

TEST(TzSoapBody, OneValueAddedTwiceIsTwoEntriesOfOneBody) {
    TzSoapBody b = body();
    TzSoapType value = named("a");
    b.appendEntry(value);
    b.appendEntry(value);
    EXPECT_EQ(b.entryCount(), 2u);
    b.entriesBegin()->setName(TzXmlName("renamed"));
    EXPECT_EQ(names(b), "renamed renamed");
    EXPECT_EQ(value.getName(), TzXmlName("renamed"));
}

TEST(TzSoapBody, EntriesAreSharedWhereverTheyAreAdded) {
    TzSoapBody b = body();
    TzSoapType first = named("a");
    TzSoapType middle = named("b");
    TzSoapType last = named("c");
    b.appendEntry(last);
    b.prependEntry(first);
    b.insertEntry(std::next(b.entriesBegin()), middle);
    first.setName(TzXmlName("x"));
    middle.setName(TzXmlName("y"));
    last.setName(TzXmlName("z"));
    EXPECT_EQ(names(b), "x y z");
}

TEST(TzSoapBody, CopiesShareAndCopyDoesNot) {
    TzSoapBody b = body(V::V1_1);
    b.appendEntry(named("a"));
    b.setEncodingStyle("urn:style");
    b.getSoapFault().setCode(TzXmlName("code"));
    b.getSoapFault().setReason("reason");
    b.getSoapFault().addSubcode(TzXmlName("sub"));
    TzSoapBody shared = b;
    TzSoapBody own = b.copy();
    EXPECT_TRUE(shared == b);
    EXPECT_FALSE(own == b);
    EXPECT_EQ(own.getEncodingStyleAttribute(), "urn:style");
    EXPECT_EQ(own.getName(), b.getName());
    EXPECT_EQ(own.getSoapFault().getReason(), "reason");
    EXPECT_EQ(own.getSoapFault().getSubcodeCount(), 0u);
    EXPECT_EQ(TzSoapAccess::body(own).getVersion(), V::V1_1);

    b.entriesBegin()->setName(TzXmlName("renamed"));
    b.appendEntry(named("b"));
    b.getSoapFault().setReason("other");
    EXPECT_EQ(names(shared), "renamed b");
    EXPECT_EQ(shared.getSoapFault().getReason(), "other");
    EXPECT_EQ(names(own), "a");
    EXPECT_EQ(own.getSoapFault().getReason(), "reason");
}

TEST(TzSoapBody, CopyOfACompositeEntrySharesItsChildren) {
    TzSoapCompositeType entry(TzXmlName("a"));
    TzSoapType child = named("child");
    entry.appendChild(child);
    TzSoapBody b = body();
    b.appendEntry(entry);
    TzSoapBody own = b.copy();
    child.setName(TzXmlName("renamed"));
    const TzSoapCompositeType copied = tzSoapCast<TzSoapCompositeType>(*own.entriesBegin()).value();
    EXPECT_EQ(namesOf(copied.childrenBegin(), copied.childrenEnd()), "renamed");
    entry.clearChildren();
    EXPECT_EQ(copied.childCount(), 1u);
}

TEST(TzSoapBody, EqualityComparesSharedEntriesOnly) {
    const TzSoapType a = named("a");
    TzSoapBody left = body(V::V1_1);
    TzSoapBody right = body(V::V1_2);
    right.getSoapFault().setCode(TzXmlName("code"));
    right.addAttribute(TzXmlName("x"), "1");
    EXPECT_TRUE(left == right);
    left.appendEntry(a);
    EXPECT_TRUE(left != right);
    right.appendEntry(a);
    EXPECT_TRUE(left == right);
    EXPECT_TRUE(TzSoapAccess::body(left) == TzSoapAccess::body(right));
    EXPECT_FALSE(TzSoapAccess::body(left) != TzSoapAccess::body(right));
    right.clearEntries();
    right.appendEntry(named("a"));
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(TzSoapAccess::body(left) != TzSoapAccess::body(right));
}

TEST(TzSoapBody, SetVersionRenamesElementAndFaultAndLeavesEntries) {
    TzSoapBody b = body(V::V1_2);
    b.appendEntry(TzSoapType(TzXmlName("a", V::getSoapVersion(V::V1_2).getSoapEnv())));
    TzSoapBodyImp& imp = TzSoapAccess::body(b);
    imp.setVersion(V::V1_1);
    EXPECT_EQ(imp.getVersion(), V::V1_1);
    EXPECT_EQ(b.getName().getQualifiedName(), "SOAP-ENV:Body");
    EXPECT_EQ(b.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(b.getSoapFault().getName().getQualifiedName(), "SOAP-ENV:Fault");
    EXPECT_EQ(b.getSoapFault().getDetails().getName(), TzXmlName("detail"));
    EXPECT_EQ(TzSoapAccess::body(b.getSoapFault()).getVersion(), V::V1_1);
    EXPECT_EQ(b.entriesBegin()->getName().getPrefix(), "env");
    expectCatalogued<TzXmlError>(
        [&] { imp.setVersion(static_cast<V::Version>(0)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
    EXPECT_EQ(imp.getVersion(), V::V1_1);
    EXPECT_EQ(b.getName().getPrefix(), "SOAP-ENV");
}

TEST(TzSoapBody, ClearEmptiesEntriesAttributesAndFault) {
    TzSoapBody b = body(V::V1_1);
    b.appendEntry(named("a"));
    b.addNamespaceAttribute("p", "urn:p");
    b.setEncodingStyle("urn:style");
    b.setRoot(true);
    b.setTypeAttribute(TzXmlName("t"));
    TzSoapFault& fault = b.getSoapFault();
    fault.setCode(TzXmlName("code"));
    fault.addSubcode(TzXmlName("sub"));
    fault.setReason("reason");
    fault.addDetailEntry("d", named("x"));
    TzSoapAccess::body(b).clear();
    EXPECT_EQ(b.entryCount(), 0u);
    EXPECT_EQ(b.attributeCount(), 0u);
    EXPECT_FALSE(b.hasEncodingStyleAttribute());
    EXPECT_FALSE(b.isRootAttributeSet());
    EXPECT_EQ(b.getTypeAttribute(), "");
    EXPECT_EQ(b.getName().getQualifiedName(), "SOAP-ENV:Body");
    EXPECT_FALSE(b.hasSoapFault());
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
    EXPECT_EQ(fault.getReason(), "");
    EXPECT_EQ(fault.getDetails().childCount(), 0u);
    EXPECT_EQ(TzSoapAccess::body(fault).getVersion(), V::V1_1);
    EXPECT_EQ(fault.getDetails().getName(), TzXmlName("detail"));
}

TEST(TzSoapBody, ElementOperationsReachTheBody) {
    TzSoapBody b = body();
    b.addAttribute(TzXmlAttribute(TzXmlName("x"), "1"));
    b.addNamespaceAttribute(TzXmlNamespace("p", "urn:p"));
    EXPECT_EQ(b.attributeCount(), 2u);
    EXPECT_NE(b.findNamespaceAttribute("p"), b.attributesEnd());
    b.removeNamespaceAttribute(TzCString("p"));
    b.removeAttribute(b.findAttribute(TzXmlName("x")));
    EXPECT_EQ(b.attributeCount(), 0u);
    b.setIdAttribute("i1");
    EXPECT_EQ(b.getIdAttribute(), "i1");
    b.removeIdAttribute();
    EXPECT_EQ(b.getIdAttribute(), "");
    b.setRoot(false);
    EXPECT_EQ(b.getRootAttribute(), "0");
}

TEST(TzSoapBody, AnEntryWithoutABodyIsRefusedAndNothingAdded) {
    TzSoapBody b = body();
    TzSoapType moved = named("a");
    const TzSoapType taken = std::move(moved);
    const std::function<void()> actions[] = {
        [&] { b.appendEntry(moved); },
        [&] { b.prependEntry(moved); },
        [&] { b.insertEntry(b.entriesEnd(), moved); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
    EXPECT_EQ(b.entryCount(), 0u);
}

TEST(TzSoapBody, EveryOperationWithoutABodyIsRefused) {
    TzSoapBody none = TzSoapAccess::handle<TzSoapBody>(static_cast<TzSoapBodyImp*>(nullptr));
    const TzSoapBody& constant = none;
    const TzSoapBody other = body();
    const std::function<void()> actions[] = {
        [&] { none.getSoapFault(); },
        [&] { constant.getSoapFault(); },
        [&] { constant.hasSoapFault(); },
        [&] { none.entriesBegin(); },
        [&] { constant.entriesBegin(); },
        [&] { none.entriesEnd(); },
        [&] { constant.entriesEnd(); },
        [&] { constant.entryCount(); },
        [&] { none.appendEntry(named("a")); },
        [&] { none.prependEntry(named("a")); },
        [&] { none.insertEntry({}, named("a")); },
        [&] { none.removeEntry(TzSoapBody::iterator()); },
        [&] { none.findEntry("a"); },
        [&] { constant.findEntry("a"); },
        [&] { none.removeEntry(TzXmlName("a")); },
        [&] { none.removeAllEntries("a"); },
        [&] { none.clearEntries(); },
        [&] { constant.getName(); },
        [&] { none.setIdAttribute("i"); },
        [&] { none.copy(); },
        [&] { static_cast<void>(other == none); },
        [&] { none.asString(); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
}

} // namespace
