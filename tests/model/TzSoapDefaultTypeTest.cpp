// SPDX-License-Identifier: MIT
#include <soap/TzSoapDefaultType.h>

#include <soap/TzSoapDefaultTypeImp.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlError.h>

#include "model/TzSoapAccess.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Default = TzSoapDefaultType;
using Imp = TzSoapDefaultTypeImp;

void expectRefused(const auto& action) {
    expectCatalogued<TzXmlError>(action, 0x7019,
                                 "[BAD_USAGE][Illegal use of this Class/Method "
                                 "\"TzSoapDefaultType\". Check the documentation]");
}

} // namespace

TEST(TzSoapDefaultType, AnswersWhatItIs) {
    const Default value;
    EXPECT_EQ(value.getSoapTypeId(), Default::Generic);
    EXPECT_EQ(value.getSoapTypeIdAsString(), "Default");
    EXPECT_EQ(Imp::DefaultString, "Default");
    EXPECT_TRUE(value.getType().isEmpty());
}

TEST(TzSoapDefaultType, NilWorksOnTheSharedBody) {
    Default value;
    EXPECT_FALSE(value.isNull());
    const Default shared = value;
    value.setNull(true);
    EXPECT_TRUE(shared.isNull());
    value.setNull(false);
    EXPECT_FALSE(shared.isNull());
}

TEST(TzSoapDefaultType, TheAttributeListAnswers) {
    Imp body;
    EXPECT_TRUE(body.getAttributes().empty());
    EXPECT_TRUE(std::as_const(body).getAttributes().empty());
    EXPECT_TRUE(body.getTypeValue().isEmpty());
}

TEST(TzSoapDefaultType, RefusesElementOperations) {
    Imp body;
    const Imp& constant = body;
    const TzXmlName name("a");
    const TzXmlAttribute attribute("a", "1");
    const TzXmlNamespace nameSpace("p", "u");
    const TzCString text = "p";
    expectRefused([&] { body.setName(name); });
    expectRefused([&] { body.getName(); });
    expectRefused([&] { constant.getName(); });
    expectRefused([&] { body.addNamespaceAttribute(nameSpace); });
    expectRefused([&] { body.findNamespaceAttribute(nameSpace); });
    expectRefused([&] { constant.findNamespaceAttribute(nameSpace); });
    expectRefused([&] { body.findNamespaceAttribute(text); });
    expectRefused([&] { constant.findNamespaceAttribute(text); });
    expectRefused([&] { body.removeNamespaceAttribute(text); });
    expectRefused([&] { body.removeNamespaceAttribute(nameSpace); });
    expectRefused([&] { body.setDefaultNamespaceAttribute(text); });
    expectRefused([&] { body.setDefaultNamespaceAttribute(nameSpace); });
    expectRefused([&] { body.unsetDefaultNamespaceAttribute(); });
    expectRefused([&] { constant.getDefaultNamespaceAttribute(); });
    expectRefused([&] { constant.attributesBegin(); });
    expectRefused([&] { body.attributesBegin(); });
    expectRefused([&] { constant.attributesEnd(); });
    expectRefused([&] { body.attributesEnd(); });
    expectRefused([&] { constant.attributeCount(); });
    expectRefused([&] { body.clearAttributes(); });
    expectRefused([&] { body.addAttribute(attribute); });
    expectRefused([&] { body.addAttribute(name, text); });
    expectRefused([&] { body.removeAttribute(static_cast<TzXmlAttribute*>(nullptr)); });
    expectRefused([&] { body.removeAttribute(attribute); });
    expectRefused([&] { body.removeAttribute(name); });
    expectRefused([&] { body.findAttribute(attribute); });
    expectRefused([&] { constant.findAttribute(attribute); });
    expectRefused([&] { body.findAttribute(name); });
    expectRefused([&] { constant.findAttribute(name); });
    expectRefused([&] { constant.hasAttribute(attribute); });
    expectRefused([&] { constant.hasAttribute(name); });
    EXPECT_TRUE(body.getAttributes().empty());
}

TEST(TzSoapDefaultType, RefusesSoapOperations) {
    Imp body;
    const Imp& constant = body;
    const TzCString text = "t";
    expectRefused([&] { constant.getEncodingStyleAttribute(); });
    expectRefused([&] { body.setEncodingStyle(text); });
    expectRefused([&] { constant.hasEncodingStyleAttribute(); });
    expectRefused([&] { body.removeEncodingStyleAttribute(); });
    expectRefused([&] { constant.getIdAttribute(); });
    expectRefused([&] { body.setIdAttribute(text); });
    expectRefused([&] { body.removeIdAttribute(); });
    expectRefused([&] { constant.getRootAttribute(); });
    expectRefused([&] { constant.getRoot(); });
    expectRefused([&] { body.setRoot(true); });
    expectRefused([&] { constant.isRootAttributeSet(); });
    expectRefused([&] { body.removeRootAttribute(); });
    expectRefused([&] { constant.getTypeAttribute(); });
    expectRefused([&] { body.setTypeAttribute(text); });
    expectRefused([&] { body.removeTypeAttribute(); });
    expectRefused([&] { constant.getActorAttribute(); });
    expectRefused([&] { body.setActor(text); });
    expectRefused([&] { body.removeActorAttribute(); });
    expectRefused([&] { constant.getMustUnderstand(); });
    expectRefused([&] { body.setMustUnderstand(true); });
    expectRefused([&] { body.removeMustUnderstandAttribute(); });
    expectRefused([&] { constant.getMustUnderstandAttribute(); });
    expectRefused([&] { constant.getMustUnderstandAttribute(TzSoapVersion::V1_1); });
    expectRefused([&] { constant.getOffsetAttribute(); });
    expectRefused([&] { body.setOffsetAttribute(text); });
    expectRefused([&] { body.removeOffsetAttribute(); });
    expectRefused([&] { constant.clone(); });
    expectRefused([&] { body.setEscapeText(TzSoapContentBase::EscapeOff); });
    expectRefused([&] { constant.getEscapeText(); });
}

TEST(TzSoapDefaultType, RefusesThroughEveryHandle) {
    Default value;
    TzSoapType generic = value;
    for (TzSoapType* handle : {static_cast<TzSoapType*>(&value), &generic}) {
        expectRefused([&] { handle->getRoot(); });
        expectRefused([&] { handle->attributeCount(); });
        expectRefused([&] { handle->setName("x"); });
        expectRefused([&] { handle->getActorAttribute(); });
        expectRefused([&] { handle->setMustUnderstand(true); });
        expectRefused([&] { handle->addNamespaceAttribute("p", "u"); });
        expectRefused([&] { handle->getEscapeText(); });
        expectRefused([&] { handle->copy(); });
    }
    expectRefused([&] { value.copy(); });
}

TEST(TzSoapDefaultType, CopiesOfTheHandleShareTheBody) {
    const Default value;
    const Default copied(value);
    EXPECT_TRUE(TzSoapAccess::sameBody(value, copied));
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 2U);
    EXPECT_FALSE(TzSoapAccess::sameBody(value, Default()));
}

TEST(TzSoapDefaultType, TakesAnyValueOver) {
    const TzSoapSimpleType simple("s", 5, TzSoapType::xsdInt, false);
    Default value;
    value = simple;
    EXPECT_EQ(value.getSoapTypeId(), TzSoapType::Simple);
    EXPECT_EQ(value.getName(), TzXmlName("s"));
    EXPECT_EQ(TzSoapAccess::body(simple).referenceCount(), 2U);
    const Default copy = value.copy();
    EXPECT_EQ(copy.getSoapTypeId(), TzSoapType::Simple);
    EXPECT_EQ(TzSoapAccess::body(simple).referenceCount(), 2U);
}

TEST(TzSoapDefaultType, RefusesEverythingWithoutABody) {
    const Default none = TzSoapAccess::handle<Default>(static_cast<TzSoapTypeImp*>(nullptr));
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { none.copy(); }), "Invalid pointer");
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { none.isNull(); }), "Invalid pointer");
}
