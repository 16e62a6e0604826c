// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <utility>

namespace {

using V = TzSoapVersion;

TzSoapHeader header(V::Version version = V::V1_2) {
    return TzSoapAccess::handle<TzSoapHeader>(version);
}

std::string names(const TzSoapHeader& header) {
    return namesOf(header.entriesBegin(), header.entriesEnd());
}

TEST(TzSoapHeader, NewHeaderIsNamedByItsVersionAndEmpty) {
    const TzSoapHeader old = header(V::V1_1);
    EXPECT_EQ(old.getName().getQualifiedName(), "SOAP-ENV:Header");
    EXPECT_EQ(old.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    const TzSoapHeader latest = header(V::V1_2);
    EXPECT_EQ(latest.getName().getQualifiedName(), "env:Header");
    EXPECT_EQ(latest.getName().getUri(), "http://www.w3.org/2002/06/soap-envelope");
    EXPECT_EQ(latest.entryCount(), 0u);
    EXPECT_EQ(latest.entriesBegin(), latest.entriesEnd());
    EXPECT_EQ(latest.attributeCount(), 0u);
    EXPECT_FALSE(latest.hasEncodingStyleAttribute());
}

TEST(TzSoapHeader, UnknownVersionIsRefused) {
    expectCatalogued<TzXmlError>(
        [] { header(static_cast<V::Version>(3)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapHeader, AppendingSetsMustUnderstandOnTheCallersEntry) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, true);
    EXPECT_TRUE(entry.getMustUnderstand());
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "true");
    EXPECT_EQ(entry.getActorAttribute(), "");
    h.appendHeaderEntry(entry, false);
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "false");
    EXPECT_EQ(h.entryCount(), 2u);
}

TEST(TzSoapHeader, AppendingWithAnActorOnlyLeavesMustUnderstandAbsent) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, TzCString("urn:actor"));
    EXPECT_EQ(entry.getActorAttribute(), "urn:actor");
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "");
}

TEST(TzSoapHeader, AppendingWithBothSetsBoth) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, true, "urn:actor");
    EXPECT_EQ(entry.getActorAttribute(), "urn:actor");
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "true");
}

TEST(TzSoapHeader, WhatIsNotGivenStaysAsItIs) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, TzCString("urn:actor"));
    h.appendHeaderEntry(entry, true);
    EXPECT_EQ(entry.getActorAttribute(), "urn:actor");
    h.prependHeaderEntry(entry, TzCString("urn:other"));
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "true");
    h.insertHeaderEntry(h.entriesBegin(), entry, false);
    EXPECT_EQ(entry.getActorAttribute(), "urn:other");
    h.insertHeaderEntry(h.entriesEnd(), entry, TzCString("urn:last"));
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "false");
}

TEST(TzSoapHeader, ATextLiteralIsAnActor) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, "urn:one");
    EXPECT_EQ(entry.getActorAttribute(), "urn:one");
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "");
    h.prependHeaderEntry(entry, "urn:two");
    EXPECT_EQ(entry.getActorAttribute(), "urn:two");
    h.insertHeaderEntry(h.entriesEnd(), entry, "urn:three");
    EXPECT_EQ(entry.getActorAttribute(), "urn:three");
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "");
    EXPECT_EQ(h.entryCount(), 3u);
}

TEST(TzSoapHeader, TheLastFlagsOfAnEntryWin) {
    TzSoapHeader h = header();
    const TzSoapType entry = named("a");
    h.appendHeaderEntry(entry, true, "urn:first");
    h.appendHeaderEntry(entry, false, "urn:last");
    for (auto position = h.entriesBegin(); position != h.entriesEnd(); ++position) {
        EXPECT_EQ(position->getActorAttribute(), "urn:last");
        EXPECT_EQ(position->getMustUnderstandAttribute(), "false");
    }
}

TEST(TzSoapHeader, PrependedEntriesComeFirst) {
    TzSoapHeader h = header();
    h.appendHeaderEntry(named("a"), true);
    TzSoapType flagged = named("b");
    h.prependHeaderEntry(flagged, true);
    EXPECT_EQ(flagged.getMustUnderstandAttribute(), "true");
    TzSoapType meant = named("c");
    h.prependHeaderEntry(meant, TzCString("urn:actor"));
    EXPECT_EQ(meant.getActorAttribute(), "urn:actor");
    TzSoapType both = named("d");
    h.prependHeaderEntry(both, false, "urn:actor");
    EXPECT_EQ(both.getActorAttribute(), "urn:actor");
    EXPECT_EQ(both.getMustUnderstandAttribute(), "false");
    EXPECT_EQ(names(h), "d c b a");
}

TEST(TzSoapHeader, InsertedEntriesComeBeforeThePosition) {
    TzSoapHeader h = header();
    h.appendHeaderEntry(named("a"), true);
    h.appendHeaderEntry(named("z"), true);
    const auto last = std::next(h.entriesBegin());
    TzSoapType flagged = named("b");
    EXPECT_EQ(h.insertHeaderEntry(last, flagged, true)->getName(), TzXmlName("b"));
    EXPECT_EQ(flagged.getMustUnderstandAttribute(), "true");
    TzSoapType meant = named("c");
    EXPECT_EQ(h.insertHeaderEntry(last, meant, TzCString("urn:actor"))->getName(), TzXmlName("c"));
    EXPECT_EQ(meant.getActorAttribute(), "urn:actor");
    TzSoapType both = named("d");
    EXPECT_EQ(h.insertHeaderEntry(last, both, true, "urn:actor")->getName(), TzXmlName("d"));
    EXPECT_EQ(both.getActorAttribute(), "urn:actor");
    EXPECT_EQ(both.getMustUnderstandAttribute(), "true");
    h.insertHeaderEntry(h.entriesEnd(), named("end"), true);
    EXPECT_EQ(names(h), "a b c d z end");
}

TEST(TzSoapHeader, AnEntryWithoutABodyIsRefusedAndNothingAdded) {
    TzSoapHeader h = header();
    TzSoapType moved = named("a");
    const TzSoapType taken = std::move(moved);
    const std::function<void()> actions[] = {
        [&] { h.appendHeaderEntry(moved, true); },
        [&] { h.appendHeaderEntry(moved, "urn:actor"); },
        [&] { h.appendHeaderEntry(moved, true, "urn:actor"); },
        [&] { h.prependHeaderEntry(moved, true); },
        [&] { h.prependHeaderEntry(moved, "urn:actor"); },
        [&] { h.prependHeaderEntry(moved, true, "urn:actor"); },
        [&] { h.insertHeaderEntry(h.entriesEnd(), moved, true); },
        [&] { h.insertHeaderEntry(h.entriesEnd(), moved, "urn:actor"); },
        [&] { h.insertHeaderEntry(h.entriesEnd(), moved, true, "urn:actor"); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
    EXPECT_EQ(h.entryCount(), 0u);
}

TEST(TzSoapHeader, FindsAndRemovesByName) {
    TzSoapHeader h = header();
    for (const char* name : {"a", "b", "a", "c"}) {
        h.appendHeaderEntry(named(name), false);
    }
    EXPECT_EQ(h.findHeaderEntry("a"), h.entriesBegin());
    EXPECT_EQ(h.findHeaderEntry("x"), h.entriesEnd());
    const TzSoapHeader& constant = h;
    EXPECT_EQ(constant.findHeaderEntry("b"), std::next(constant.entriesBegin()));
    EXPECT_EQ(constant.findHeaderEntry("x"), constant.entriesEnd());
    h.removeHeaderEntry(TzXmlName("a"));
    EXPECT_EQ(names(h), "b a c");
    EXPECT_EQ(h.removeHeaderEntry(h.entriesBegin())->getName(), TzXmlName("a"));
    EXPECT_EQ(names(h), "a c");
    h.appendHeaderEntry(named("a"), false);
    h.removeAllHeaderEntries(TzXmlName("a"));
    EXPECT_EQ(names(h), "c");
    EXPECT_EQ(h.entryCount(), 1u);
    h.clearHeaderEntries();
    EXPECT_EQ(h.entryCount(), 0u);
}

TEST(TzSoapHeader, CopiesShareAndCopyDoesNot) {
    TzSoapHeader h = header(V::V1_1);
    h.appendHeaderEntry(named("a"), true, "urn:actor");
    h.setEncodingStyle("urn:style");
    h.addAttribute(TzXmlName("x"), "1");
    TzSoapHeader shared = h;
    TzSoapHeader own = h.copy();
    EXPECT_TRUE(shared == h);
    EXPECT_FALSE(own == h);
    EXPECT_EQ(own.getName(), h.getName());
    EXPECT_EQ(own.getEncodingStyleAttribute(), "urn:style");
    EXPECT_TRUE(own.hasAttribute(TzXmlAttribute("x", "1")));
    EXPECT_EQ(own.entriesBegin()->getActorAttribute(), "urn:actor");
    EXPECT_TRUE(own.entriesBegin()->getMustUnderstand());

    h.entriesBegin()->setMustUnderstand(false);
    h.appendHeaderEntry(named("b"), true);
    h.setEncodingStyle("");
    EXPECT_EQ(names(shared), "a b");
    EXPECT_FALSE(shared.hasEncodingStyleAttribute());
    EXPECT_EQ(names(own), "a");
    EXPECT_TRUE(own.entriesBegin()->getMustUnderstand());
    EXPECT_TRUE(own.hasEncodingStyleAttribute());
    EXPECT_EQ(TzSoapAccess::body(own).getVersion(), V::V1_1);
}

TEST(TzSoapHeader, CopyOfAnEntryKeepsItsKindAndText) {
    TzSoapHeader h = header();
    h.appendHeaderEntry(TzSoapSimpleType("a", "text", TzSoapContentBase::xsdString, true), true);
    const TzSoapHeader own = h.copy();
    const TzSoapType& entry = *own.entriesBegin();
    EXPECT_EQ(entry.getSoapTypeId(), TzSoapContentBase::Simple);
    EXPECT_FALSE(TzSoapAccess::sameBody(entry, std::as_const(*h.entriesBegin())));
}

TEST(TzSoapHeader, EqualityComparesSharedEntriesOnly) {
    const TzSoapType a = named("a");
    TzSoapHeader left = header(V::V1_1);
    TzSoapHeader right = header(V::V1_2);
    EXPECT_TRUE(left == right);
    left.appendHeaderEntry(a, true);
    EXPECT_TRUE(left != right);
    right.appendHeaderEntry(a, true);
    right.setEncodingStyle("urn:style");
    EXPECT_TRUE(left == right);
    EXPECT_TRUE(TzSoapAccess::body(left) == TzSoapAccess::body(right));
    EXPECT_FALSE(TzSoapAccess::body(left) != TzSoapAccess::body(right));
    right.clearHeaderEntries();
    right.appendHeaderEntry(named("a"), true);
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(TzSoapAccess::body(left) != TzSoapAccess::body(right));
}

TEST(TzSoapHeader, SetVersionRenamesTheElementAndLeavesEntries) {
    TzSoapHeader h = header(V::V1_2);
    h.appendHeaderEntry(TzSoapType(TzXmlName("a", V::getSoapVersion(V::V1_2).getSoapEnv())), true);
    TzSoapHeaderImp& body = TzSoapAccess::body(h);
    body.setVersion(V::V1_1);
    EXPECT_EQ(body.getVersion(), V::V1_1);
    EXPECT_EQ(h.getName().getQualifiedName(), "SOAP-ENV:Header");
    EXPECT_EQ(h.getName().getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(h.entriesBegin()->getName().getPrefix(), "env");
    expectCatalogued<TzXmlError>(
        [&] { body.setVersion(static_cast<V::Version>(0)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
    EXPECT_EQ(body.getVersion(), V::V1_1);
    EXPECT_EQ(h.getName().getPrefix(), "SOAP-ENV");
}

TEST(TzSoapHeader, ClearEmptiesEverythingButNameAndVersion) {
    TzSoapHeader h = header(V::V1_1);
    h.appendHeaderEntry(named("a"), true);
    h.addNamespaceAttribute("p", "urn:p");
    h.setEncodingStyle("urn:style");
    h.setRoot(false);
    h.setTypeAttribute(TzXmlName("t"));
    TzSoapHeaderImp& body = TzSoapAccess::body(h);
    body.setActor("urn:actor");
    body.setMustUnderstand(true);
    body.clear();
    EXPECT_EQ(h.entryCount(), 0u);
    EXPECT_EQ(h.attributeCount(), 0u);
    EXPECT_FALSE(h.hasEncodingStyleAttribute());
    EXPECT_FALSE(h.isRootAttributeSet());
    EXPECT_EQ(h.getTypeAttribute(), "");
    EXPECT_EQ(body.getActorAttribute(), "");
    EXPECT_EQ(body.getMustUnderstandAttribute(), "");
    EXPECT_EQ(h.getName().getQualifiedName(), "SOAP-ENV:Header");
    EXPECT_EQ(body.getVersion(), V::V1_1);
}

TEST(TzSoapHeader, AChildThatWasReadKeepsItsFlags) {
    TzSoapHeader h = header();
    TzSoapType entry = named("a");
    TzSoapAccess::body(h).addChild(entry);
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "");
    entry.setMustUnderstand(true);
    TzSoapAccess::body(h).addChild(entry);
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "true");
    EXPECT_EQ(names(h), "a a");
}

TEST(TzSoapHeader, ElementOperationsReachTheHeader) {
    TzSoapHeader h = header();
    h.addAttribute(TzXmlName("x"), "1");
    h.setIdAttribute("i1");
    h.setDefaultNamespaceAttribute(TzCString("urn:default"));
    EXPECT_EQ(h.attributeCount(), 3u);
    EXPECT_EQ(h.getIdAttribute(), "i1");
    EXPECT_EQ(h.getDefaultNamespaceAttribute(), "urn:default");
    h.setRoot(true);
    EXPECT_EQ(h.getRootAttribute(), "1");
    h.setTypeAttribute(TzXmlName("t", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(h.getTypeAttribute(), "p:t");
    EXPECT_EQ(h.getType().getUri(), "urn:p");
    h.clearAttributes();
    EXPECT_EQ(h.attributeCount(), 0u);
}

TEST(TzSoapHeader, EveryOperationWithoutABodyIsRefused) {
    TzSoapHeader none = TzSoapAccess::handle<TzSoapHeader>(static_cast<TzSoapHeaderImp*>(nullptr));
    const TzSoapHeader& constant = none;
    const TzSoapHeader other = header();
    const std::function<void()> actions[] = {
        [&] { none.appendHeaderEntry(named("a"), true); },
        [&] { none.appendHeaderEntry(named("a"), "urn:actor"); },
        [&] { none.appendHeaderEntry(named("a"), true, "urn:actor"); },
        [&] { none.prependHeaderEntry(named("a"), true); },
        [&] { none.prependHeaderEntry(named("a"), "urn:actor"); },
        [&] { none.prependHeaderEntry(named("a"), true, "urn:actor"); },
        [&] { none.insertHeaderEntry({}, named("a"), true); },
        [&] { none.insertHeaderEntry({}, named("a"), "urn:actor"); },
        [&] { none.insertHeaderEntry({}, named("a"), true, "urn:actor"); },
        [&] { none.removeHeaderEntry(TzSoapHeader::iterator()); },
        [&] { none.entriesBegin(); },
        [&] { constant.entriesBegin(); },
        [&] { none.entriesEnd(); },
        [&] { constant.entriesEnd(); },
        [&] { constant.entryCount(); },
        [&] { none.findHeaderEntry("a"); },
        [&] { constant.findHeaderEntry("a"); },
        [&] { none.removeHeaderEntry(TzXmlName("a")); },
        [&] { none.removeAllHeaderEntries("a"); },
        [&] { none.clearHeaderEntries(); },
        [&] { constant.getName(); },
        [&] { none.setEncodingStyle("urn:style"); },
        [&] { none.copy(); },
        [&] { static_cast<void>(none == other); },
        [&] { none.asString(); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    }
}

} // namespace
