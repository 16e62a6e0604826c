// SPDX-License-Identifier: MIT
#include <soap/TzSoapType.h>

#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapVisitor.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/tools/Tzxmsg.h>

#include "model/TzSoapAccess.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using Type = TzSoapType;

Type withoutBody() { return TzSoapAccess::handle<Type>(static_cast<TzSoapTypeImp*>(nullptr)); }

void expectInvalid(const auto& action) {
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
}

} // namespace

TEST(TzSoapType, StartsGeneric) {
    const Type value;
    EXPECT_EQ(value.getSoapTypeId(), Type::Generic);
    EXPECT_EQ(value.getSoapTypeIdAsString(), "Default");
    EXPECT_EQ(TzSoapTypeImp::MyIdString, "Default");
    EXPECT_TRUE(value.getName().isEmpty());
    EXPECT_EQ(value.getEscapeText(), Type::EscapeOn);
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
}

TEST(TzSoapType, TakesAName) {
    const TzXmlName name("n", TzXmlNamespace("p", "urn:p"));
    Type value(name);
    EXPECT_EQ(std::as_const(value).getName(), name);
    value.getName().setPrefix("q");
    EXPECT_EQ(std::as_const(value).getName().getPrefix(), "q");
    value.setName("m");
    EXPECT_EQ(std::as_const(value).getName(), TzXmlName("m"));
}

TEST(TzSoapType, NilIsKeptAsADigit) {
    Type value("x");
    value.setNull(true);
    EXPECT_TRUE(value.isNull());
    const TzXmlName nil("nil", TzXmlNamespace::getXsi());
    EXPECT_TRUE(value.hasAttribute(TzXmlAttribute(nil, "1")));
    value.setNull(false);
    EXPECT_FALSE(value.isNull());
    EXPECT_TRUE(value.hasAttribute(TzXmlAttribute(nil, "0")));
    value.addAttribute(nil, "true");
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.attributeCount(), 1U);
}

TEST(TzSoapType, EscapingIsKept) {
    Type value;
    value.setEscapeText(Type::EscapeOff);
    EXPECT_EQ(value.getEscapeText(), Type::EscapeOff);
    EXPECT_EQ(value.copy().getEscapeText(), Type::EscapeOff);
}

TEST(TzSoapType, AttributesAreForwarded) {
    Type value("x");
    const Type& constant = value;
    const TzXmlName a("a", TzXmlNamespace("p", "urn:p"));
    value.addAttribute(a, "1");
    value.addAttribute(TzXmlAttribute("b", "2"));
    value.addAttribute(a, "3");
    EXPECT_EQ(value.attributeCount(), 2U);
    EXPECT_EQ(value.attributesEnd() - value.attributesBegin(), 2);
    EXPECT_EQ(constant.attributesEnd() - constant.attributesBegin(), 2);
    EXPECT_EQ(constant.attributesBegin()->getValue(), "3");
    EXPECT_EQ(value.findAttribute(a), value.attributesBegin());
    EXPECT_EQ(constant.findAttribute(TzXmlName("b")), constant.attributesBegin() + 1);
    EXPECT_EQ(value.findAttribute(TzXmlAttribute(a, "1")), value.attributesEnd());
    EXPECT_EQ(constant.findAttribute(TzXmlAttribute(a, "3")), constant.attributesBegin());
    EXPECT_TRUE(constant.hasAttribute(a));
    EXPECT_FALSE(constant.hasAttribute(TzXmlName("a")));
    EXPECT_TRUE(constant.hasAttribute(TzXmlAttribute("b", "2")));
    EXPECT_FALSE(constant.hasAttribute(TzXmlAttribute("b", "3")));
    value.removeAttribute(TzXmlAttribute("b", "3"));
    EXPECT_EQ(value.attributeCount(), 2U);
    value.removeAttribute(TzXmlAttribute("b", "2"));
    value.removeAttribute(a);
    EXPECT_EQ(value.attributeCount(), 0U);
    value.addAttribute("c", "");
    value.removeAttribute(value.attributesBegin());
    EXPECT_EQ(value.attributeCount(), 0U);
    value.addAttribute("d", "");
    value.clearAttributes();
    EXPECT_EQ(value.attributeCount(), 0U);
}

TEST(TzSoapType, NamespaceDeclarationsAreForwarded) {
    Type value("x");
    const Type& constant = value;
    value.addNamespaceAttribute("p", "urn:1");
    value.addNamespaceAttribute(TzXmlNamespace("q", "urn:2"));
    value.addNamespaceAttribute("p", "urn:3");
    EXPECT_EQ(value.attributeCount(), 2U);
    EXPECT_EQ(value.findNamespaceAttribute("p")->getValue(), "urn:3");
    EXPECT_EQ(constant.findNamespaceAttribute("q")->getValue(), "urn:2");
    EXPECT_EQ(constant.findNamespaceAttribute("r"), constant.attributesEnd());
    value.removeNamespaceAttribute(TzXmlNamespace("p", "urn:other"));
    EXPECT_EQ(value.attributeCount(), 2U);
    value.removeNamespaceAttribute(TzXmlNamespace("p", "urn:3"));
    value.removeNamespaceAttribute("q");
    EXPECT_EQ(value.attributeCount(), 0U);
    EXPECT_EQ(constant.getDefaultNamespaceAttribute(), "");
    value.setDefaultNamespaceAttribute("urn:4");
    EXPECT_EQ(constant.getDefaultNamespaceAttribute(), "urn:4");
    value.setDefaultNamespaceAttribute(TzXmlNamespace("ignored", "urn:5"));
    EXPECT_EQ(constant.getDefaultNamespaceAttribute(), "urn:5");
    value.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(value.attributeCount(), 0U);
}

TEST(TzSoapType, SoapAttributesAreForwarded) {
    Type value("x");
    value.setActor("urn:a");
    EXPECT_EQ(value.getActorAttribute(), "urn:a");
    value.removeActorAttribute();
    EXPECT_EQ(value.getActorAttribute(), "");
    value.setEncodingStyle("urn:s");
    EXPECT_TRUE(value.hasEncodingStyleAttribute());
    EXPECT_EQ(value.getEncodingStyleAttribute(), "urn:s");
    value.removeEncodingStyleAttribute();
    EXPECT_FALSE(value.hasEncodingStyleAttribute());
    value.setIdAttribute("i");
    EXPECT_EQ(value.getIdAttribute(), "i");
    value.removeIdAttribute();
    EXPECT_EQ(value.getIdAttribute(), "");
    value.setRoot(true);
    EXPECT_TRUE(value.getRoot());
    EXPECT_TRUE(value.isRootAttributeSet());
    EXPECT_EQ(value.getRootAttribute(), "1");
    value.removeRootAttribute();
    EXPECT_FALSE(value.isRootAttributeSet());
    value.setTypeAttribute(TzXmlName("t", TzXmlNamespace("p", "u")));
    EXPECT_EQ(value.getType().getLocalName(), "t");
    EXPECT_EQ(value.getTypeAttribute(), "p:t");
    value.removeTypeAttribute();
    EXPECT_EQ(value.getTypeAttribute(), "");
}

TEST(TzSoapType, HandlesThatShareABodySeeEachOthersChanges) {
    const Type first("x");
    Type second = first;
    second.setMustUnderstand(true);
    EXPECT_TRUE(first.getMustUnderstand());
    EXPECT_EQ(first.getMustUnderstandAttribute(TzSoapVersion::V1_1), "1");
    Type copy = first.copy();
    copy.setMustUnderstand(false);
    EXPECT_EQ(first.getMustUnderstandAttribute(), "true");
    EXPECT_EQ(copy.getMustUnderstandAttribute(), "false");
    second.removeMustUnderstandAttribute();
    EXPECT_EQ(first.getMustUnderstandAttribute(), "");
    EXPECT_EQ(copy.getMustUnderstandAttribute(), "false");
}

TEST(TzSoapType, AnUnknownVersionIsRefused) {
    Type value;
    value.setMustUnderstand(true);
    EXPECT_EQ(textThrown<Tzxmsg>([&] {
                  value.getMustUnderstandAttribute(static_cast<TzSoapVersion::Version>(9));
              }),
              "Unrecognized TzSoapVersion::Version");
}

TEST(TzSoapType, CopyIsIndependent) {
    Type value("x");
    value.addAttribute("a", "1");
    Type copy = value.copy();
    EXPECT_FALSE(TzSoapAccess::sameBody(value, copy));
    EXPECT_EQ(TzSoapAccess::body(copy).referenceCount(), 1U);
    copy.addAttribute("a", "2");
    copy.setName("y");
    EXPECT_TRUE(value.hasAttribute(TzXmlAttribute("a", "1")));
    EXPECT_EQ(std::as_const(value).getName(), TzXmlName("x"));
}

TEST(TzSoapType, BodiesAreCountedByTheirHandles) {
    auto* body = new TzSoapTypeImp("x");
    EXPECT_EQ(body->referenceCount(), 0U);
    Type value = TzSoapAccess::handle<Type>(body);
    EXPECT_EQ(body->referenceCount(), 1U);
    {
        const Type second = value;
        EXPECT_EQ(body->referenceCount(), 2U);
        const Type moved = std::move(value);
        EXPECT_EQ(body->referenceCount(), 2U);
        value = moved;
        EXPECT_EQ(body->referenceCount(), 3U);
    }
    EXPECT_EQ(body->referenceCount(), 1U);
    const Type& same = value;
    value = same;
    EXPECT_EQ(body->referenceCount(), 1U);
}

TEST(TzSoapType, ACopiedBodyIsCountedAnew) {
    const Type value("x");
    const TzSoapTypeImp copy(TzSoapAccess::body(value));
    EXPECT_EQ(copy.referenceCount(), 0U);
    EXPECT_EQ(copy.getName(), TzXmlName("x"));
}

TEST(TzSoapType, HandlesAreSmall) {
    EXPECT_EQ(sizeof(Type), 2 * sizeof(void*));
    static_assert(std::is_nothrow_move_constructible_v<Type>);
    static_assert(std::is_nothrow_move_assignable_v<Type>);
    static_assert(std::is_nothrow_copy_constructible_v<Type>);
}

TEST(TzSoapType, RefusesEverythingWithoutABody) {
    Type none = withoutBody();
    const Type& constant = none;
    const TzXmlName name("a");
    const TzXmlAttribute attribute("a", "1");
    const TzXmlNamespace nameSpace("p", "u");
    expectInvalid([&] { none.getName(); });
    expectInvalid([&] { constant.getName(); });
    expectInvalid([&] { none.setName(name); });
    expectInvalid([&] { none.addAttribute(name, "1"); });
    expectInvalid([&] { none.addAttribute(attribute); });
    expectInvalid([&] { none.attributeCount(); });
    expectInvalid([&] { none.attributesBegin(); });
    expectInvalid([&] { none.attributesEnd(); });
    expectInvalid([&] { none.clearAttributes(); });
    expectInvalid([&] { none.findAttribute(name); });
    expectInvalid([&] { none.findAttribute(attribute); });
    expectInvalid([&] { none.hasAttribute(name); });
    expectInvalid([&] { none.hasAttribute(attribute); });
    expectInvalid([&] { none.removeAttribute(name); });
    expectInvalid([&] { none.removeAttribute(attribute); });
    expectInvalid([&] { none.addNamespaceAttribute("p", "u"); });
    expectInvalid([&] { none.addNamespaceAttribute(nameSpace); });
    expectInvalid([&] { none.findNamespaceAttribute("p"); });
    expectInvalid([&] { none.removeNamespaceAttribute("p"); });
    expectInvalid([&] { none.removeNamespaceAttribute(nameSpace); });
    expectInvalid([&] { none.setDefaultNamespaceAttribute("u"); });
    expectInvalid([&] { none.setDefaultNamespaceAttribute(nameSpace); });
    expectInvalid([&] { none.unsetDefaultNamespaceAttribute(); });
    expectInvalid([&] { none.getDefaultNamespaceAttribute(); });
}

TEST(TzSoapType, RefusesSoapOperationsWithoutABody) {
    Type none = withoutBody();
    expectInvalid([&] { none.getActorAttribute(); });
    expectInvalid([&] { none.setActor("a"); });
    expectInvalid([&] { none.removeActorAttribute(); });
    expectInvalid([&] { none.getEncodingStyleAttribute(); });
    expectInvalid([&] { none.setEncodingStyle("s"); });
    expectInvalid([&] { none.hasEncodingStyleAttribute(); });
    expectInvalid([&] { none.removeEncodingStyleAttribute(); });
    expectInvalid([&] { none.getIdAttribute(); });
    expectInvalid([&] { none.setIdAttribute("i"); });
    expectInvalid([&] { none.removeIdAttribute(); });
    expectInvalid([&] { none.getMustUnderstand(); });
    expectInvalid([&] { none.setMustUnderstand(true); });
    expectInvalid([&] { none.removeMustUnderstandAttribute(); });
    expectInvalid([&] { none.getMustUnderstandAttribute(); });
    expectInvalid([&] { none.getMustUnderstandAttribute(TzSoapVersion::V1_1); });
    expectInvalid([&] { none.getRoot(); });
    expectInvalid([&] { none.getRootAttribute(); });
    expectInvalid([&] { none.setRoot(true); });
    expectInvalid([&] { none.isRootAttributeSet(); });
    expectInvalid([&] { none.removeRootAttribute(); });
    expectInvalid([&] { none.getType(); });
    expectInvalid([&] { none.getTypeAttribute(); });
    expectInvalid([&] { none.setTypeAttribute("t"); });
    expectInvalid([&] { none.removeTypeAttribute(); });
    expectInvalid([&] { none.getSoapTypeId(); });
    expectInvalid([&] { none.getSoapTypeIdAsString(); });
    expectInvalid([&] { none.setNull(true); });
    expectInvalid([&] { none.isNull(); });
    expectInvalid([&] { none.setEscapeText(Type::EscapeOn); });
    expectInvalid([&] { none.getEscapeText(); });
    expectInvalid([&] { none.copy(); });
    expectInvalid([&] { none.asString(); });
}

TEST(TzSoapType, AMovedFromHandleHasNoBody) {
    Type value("x");
    const Type moved = std::move(value);
    expectInvalid([&] { value.isNull(); }); // NOLINT(bugprone-use-after-move)
    value = moved;
    EXPECT_FALSE(value.isNull());
}

TEST(TzSoapType, WritesItselfAsXml) {
    Type value("x");
    value.addAttribute("a", "1<2");
    EXPECT_EQ(value.asString(), "<x a=\"1&lt;2\">\n</x>\n");
}
