// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlName.h>

#include "support/Throws.h"

#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <map>
#include <type_traits>

namespace {

TzXmlName named(const char* prefix, const char* uri, const char* local) {
    return {local, TzXmlNamespace(prefix, uri)};
}

} // namespace

TEST(TzXmlName, IsEmptyByDefault) {
    const TzXmlName name;
    EXPECT_TRUE(name.isEmpty());
    EXPECT_EQ(name.getLocalName(), "");
    EXPECT_EQ(name.getPrefix(), "");
    EXPECT_EQ(name.getUri(), "");
    EXPECT_EQ(name.asString(), "");
    EXPECT_EQ(name, TzXmlName());
}

TEST(TzXmlName, SplitsATextAtTheFirstColon) {
    const TzXmlName name("p:a:b");
    EXPECT_EQ(name.getPrefix(), "p");
    EXPECT_EQ(name.getLocalName(), "a:b");
    EXPECT_EQ(name.getUri(), "");
    EXPECT_EQ(name.getQualifiedName(), "p:a:b");
}

TEST(TzXmlName, TakesATextWithoutColonAsLocalPart) {
    const TzXmlName name(TzCString("a"));
    EXPECT_EQ(name.getLocalName(), "a");
    EXPECT_TRUE(name.getNamespace().isEmpty());
    EXPECT_FALSE(name.isEmpty());
}

TEST(TzXmlName, TakesColonsAtTheEnds) {
    EXPECT_EQ(TzXmlName(":Body").getPrefix(), "");
    EXPECT_EQ(TzXmlName(":Body").getLocalName(), "Body");
    EXPECT_EQ(TzXmlName("p:").getPrefix(), "p");
    EXPECT_TRUE(TzXmlName("p:").isEmpty());
    EXPECT_TRUE(TzXmlName("").isEmpty());
}

TEST(TzXmlName, IsMadeFromEveryKindOfText) {
    const auto local = [](const TzXmlName& name) { return name.getLocalName(); };
    EXPECT_EQ(local("a"), "a");
    EXPECT_EQ(local(TzCString("b")), "b");
    EXPECT_EQ(local(std::string_view("cd", 1)), "c");
}

TEST(TzXmlName, HasLocalPartAndNamespace) {
    const TzXmlName name = named("p", "urn:a", "local");
    EXPECT_EQ(name.getLocalName(), "local");
    EXPECT_EQ(name.getPrefix(), "p");
    EXPECT_EQ(name.getUri(), "urn:a");
    EXPECT_EQ(name.getNamespace(), TzXmlNamespace("p", "urn:a"));
    // A colon in a local part that is given as such stays where it is.
    EXPECT_EQ(named("p", "urn:a", "a:b").getLocalName(), "a:b");
}

TEST(TzXmlName, TakesChanges) {
    TzXmlName name = named("p", "urn:a", "local");
    name.setPrefix("q");
    EXPECT_EQ(name.getNamespace(), TzXmlNamespace("q", "urn:a"));
    name.setNamespace(TzXmlNamespace("r", "urn:b"));
    EXPECT_EQ(name.getNamespace(), TzXmlNamespace("r", "urn:b"));
    EXPECT_EQ(name.getLocalName(), "local");
    name.setLocalName("other");
    EXPECT_EQ(name.getQualifiedName(), "r:other");
}

TEST(TzXmlName, ChangesLeaveCopiesAlone) {
    const TzXmlName original("a", TzXmlNamespace("p", "urn:u"));
    TzXmlName changed = original;
    EXPECT_TRUE(changed.isSame(original));
    changed.setLocalName("b");
    EXPECT_FALSE(changed.isSame(original));
    changed.setPrefix("q");
    changed.setNamespace(TzXmlNamespace("r", "urn:r"));
    EXPECT_EQ(original.getQualifiedName(), "p:a");
    EXPECT_EQ(original.getUri(), "urn:u");
    EXPECT_EQ(changed.getUniqueName(), "urn:r:b");
    EXPECT_FALSE(original.isSame(TzXmlName("a", TzXmlNamespace("p", "urn:u"))));
    EXPECT_TRUE(TzXmlName().isSame(TzXmlName("")));
}

TEST(TzXmlName, EqualityIgnoresThePrefix) {
    EXPECT_EQ(named("p", "urn:a", "x"), named("q", "urn:a", "x"));
    EXPECT_NE(named("p", "urn:a", "x"), named("p", "urn:b", "x"));
    EXPECT_NE(named("p", "urn:a", "x"), named("p", "urn:a", "y"));
    EXPECT_NE(named("p", "urn:a", "x"), named("p", "urn:a", "X"));
    EXPECT_EQ(TzXmlName("p:a"), TzXmlName("a"));
    EXPECT_NE(TzXmlName("a"), TzXmlName());
}

TEST(TzXmlName, OrderIsByUriThenLocalPart) {
    EXPECT_LT(named("z", "urn:a", "z"), named("a", "urn:b", "a"));
    EXPECT_LT(named("z", "urn:a", "a"), named("a", "urn:a", "b"));
    EXPECT_FALSE(named("a", "urn:a", "x") < named("b", "urn:a", "x"));
    EXPECT_FALSE(named("b", "urn:a", "x") < named("a", "urn:a", "x"));
    EXPECT_LT(TzXmlName("b"), named("", "urn:a", "a"));
    EXPECT_FALSE(named("", "urn:b", "a") < named("", "urn:a", "b"));
}

TEST(TzXmlName, IsAKeyOfMaps) {
    std::map<TzXmlName, int> map;
    map[named("p", "urn:a", "x")] = 1;
    map[named("q", "urn:a", "x")] = 2;
    map[named("p", "urn:b", "x")] = 3;
    EXPECT_EQ(map.size(), 2U);
    EXPECT_EQ(map[named("", "urn:a", "x")], 2);
}

TEST(TzXmlName, WritesItsQualifiedName) {
    EXPECT_EQ(named("p", "urn:a", "x").getQualifiedName(), "p:x");
    EXPECT_EQ(named("", "urn:a", "x").getQualifiedName(), "x");
    EXPECT_EQ(named("p", "urn:a", "x").asString(), "p:x");
    EXPECT_EQ(named("p", "", "").getQualifiedName(), "p:");
    EXPECT_EQ(TzXmlName().getQualifiedName(), "");
    EXPECT_EQ(named("p", "urn:a", "x").qualifiedText(), "p:x");
    EXPECT_EQ(named("", "urn:a", "x").qualifiedText(), "x");
    TzCString text = "<";
    named("p", "urn:a", "x").appendQualifiedName(text);
    EXPECT_EQ(text, "<p:x");
}

TEST(TzXmlName, WritesDeclarations) {
    EXPECT_EQ(TzXmlName("p", TzXmlNamespace::getXmlns()).getQualifiedName(), "xmlns:p");
    EXPECT_EQ(TzXmlName("", TzXmlNamespace::getXmlns()).getQualifiedName(), "xmlns");
    EXPECT_EQ(TzXmlName("", TzXmlNamespace::getXmlns()).asString(), "xmlns");
}

TEST(TzXmlName, WritesItsUniqueName) {
    EXPECT_EQ(TzXmlName("p:Client").getUniqueName(), "Client");
    EXPECT_EQ(named("p", "urn:a", "x").getUniqueName(), "urn:a:x");
    EXPECT_EQ(TzXmlName().getUniqueName(), "");
}

TEST(TzXmlName, CopiesAllocateNothing) {
    const TzXmlName name = named("p", "http://example.org/a/uri/of/some/length/of/its/own",
                                 "a local part of more than fifteen characters");
    const std::size_t made = madeAllocations();
    const TzXmlName copy(name);
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(copy, name);
    static_assert(std::is_nothrow_move_constructible_v<TzXmlName>);
    static_assert(std::is_nothrow_move_assignable_v<TzXmlName>);
}

TEST(TzXmlName, FailedAllocationsLeaveNothingBehind) {
    const TzXmlName original("a prefix of more than fifteen characters:and a local part like that");
    EXPECT_GE(failEachAllocation([&] {
                  TzXmlName name(original);
                  name.setLocalName(
                      "another local part of more than fifteen characters, much more");
                  name.setNamespace(TzXmlNamespace("p", "urn:of:more:than:fifteen:characters"));
                  const TzCString qualified = name.getQualifiedName();
                  const TzCString unique = name.getUniqueName();
              }),
              6U);
    EXPECT_EQ(original.getLocalName(), "and a local part like that");
}

TEST(TzXmlName, RefusesANullPointer) {
    const char* const null = nullptr;
    const std::string text = "a null pointer is not a text";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlName name(null); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlName name(null, TzXmlNamespace()); }), text);
}

TEST(TzXmlName, BracesAreTheEmptyText) {
    EXPECT_EQ(TzXmlName({}, TzXmlNamespace("p", "urn:u")).getLocalName(), "");
}
