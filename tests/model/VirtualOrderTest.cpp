// SPDX-License-Identifier: MIT
#include "support/VirtualSlot.h"

#include <soap/TzMessageBase.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapVersion.h>
#include <soap/TzSoapVisitor.h>
#include <tz/mime/TzMimeMultipart.h>

#include <gtest/gtest.h>

namespace {

constexpr std::size_t Destructor = 2;

/// What programs that derive from a message call its body by.
struct OpenMessage : TzSoapMessage {
    static std::size_t bodySlot() { return slotOf(&OpenMessage::body); }
};

} // namespace

TEST(VirtualOrder, Versions) {
    using V = TzSoapVersion;
    const auto slots =
        slotsOf(&V::getVersion, &V::getSoapEnv, &V::getSoapEnc, &V::getSoapFault, &V::getSoapRpc,
                &V::getSoapUpgrade, &V::getSoapRole, &V::getFaultCode, &V::getSubFaultCode,
                &V::getSoapEncodingStyle, &V::matchSoapEnv, &V::matchSoapEnc, &V::matchSoapRpc,
                &V::matchSoapFault, &V::matchSoapUpgrade, &V::getSoapAttributeQName,
                &V::getSoapElementQName);
    EXPECT_EQ(slots, inARow(Destructor, 17));
}

TEST(VirtualOrder, Messages) {
    EXPECT_EQ(slotsOf(&TzMessageBase::asString, &TzMessageBase::getMessageType),
              inARow(Destructor, 2));
    using M = TzSoapMessage;
    const auto slots = slotsOf(&M::asString, &M::getMessageType, &M::hasAttachments,
                               Overload<const TzMimeMultipart&>::plain(&M::extract),
                               Overload<const TzCString&>::plain(&M::extract),
                               Overload<>::constant(&M::asMimeMultipart),
                               Overload<TzMimeMultipart&>::constant(&M::asMimeMultipart));
    EXPECT_EQ(slots, inARow(Destructor, 7));
    EXPECT_EQ(OpenMessage::bodySlot(), Destructor + 7);
}

TEST(VirtualOrder, Elements) {
    using E = TzXmlElementImp;
    using ByName = Overload<const TzXmlName&>;
    using ByAttribute = Overload<const TzXmlAttribute&>;
    using ByNamespace = Overload<const TzXmlNamespace&>;
    using ByText = Overload<const TzCString&>;
    const auto slots = slotsOf(
        &E::setName, Overload<>::plain(&E::getName), Overload<>::constant(&E::getName),
        &E::addNamespaceAttribute, ByNamespace::plain(&E::findNamespaceAttribute),
        ByNamespace::constant(&E::findNamespaceAttribute),
        ByText::plain(&E::findNamespaceAttribute), ByText::constant(&E::findNamespaceAttribute),
        ByText::plain(&E::removeNamespaceAttribute),
        ByNamespace::plain(&E::removeNamespaceAttribute),
        ByText::plain(&E::setDefaultNamespaceAttribute),
        ByNamespace::plain(&E::setDefaultNamespaceAttribute), &E::unsetDefaultNamespaceAttribute,
        &E::getDefaultNamespaceAttribute, Overload<>::constant(&E::attributesBegin),
        Overload<>::plain(&E::attributesBegin), Overload<>::constant(&E::attributesEnd),
        Overload<>::plain(&E::attributesEnd), &E::attributeCount, &E::clearAttributes,
        ByAttribute::plain(&E::addAttribute),
        Overload<const TzXmlName&, const TzCString&>::plain(&E::addAttribute),
        Overload<TzXmlAttribute*>::plain(&E::removeAttribute),
        ByAttribute::plain(&E::removeAttribute), ByName::plain(&E::removeAttribute),
        ByAttribute::plain(&E::findAttribute), ByAttribute::constant(&E::findAttribute),
        ByName::plain(&E::findAttribute), ByName::constant(&E::findAttribute),
        ByAttribute::constant(&E::hasAttribute), ByName::constant(&E::hasAttribute),
        Overload<>::plain(&E::getAttributes), Overload<>::constant(&E::getAttributes));
    EXPECT_EQ(slots, inARow(Destructor, 33));
}

TEST(VirtualOrder, SoapElementsFollowOnElements) {
    using E = TzSoapElementImp;
    const auto slots =
        slotsOf(&E::getEncodingStyleAttribute, &E::setEncodingStyle, &E::hasEncodingStyleAttribute,
                &E::removeEncodingStyleAttribute, &E::getIdAttribute, &E::setIdAttribute,
                &E::removeIdAttribute, &E::getRootAttribute, &E::getRoot, &E::setRoot,
                &E::isRootAttributeSet, &E::removeRootAttribute, &E::getTypeValue,
                &E::getTypeAttribute, &E::setTypeAttribute, &E::removeTypeAttribute);
    EXPECT_EQ(slots, inARow(Destructor + 33, 16));
}

TEST(VirtualOrder, ValuesFollowOnSoapElements) {
    using T = TzSoapTypeImp;
    const auto slots = slotsOf(&T::getSoapTypeId, &T::getSoapTypeIdAsString, &T::clone, &T::setNull,
                               &T::isNull, &T::setEscapeText, &T::getEscapeText);
    EXPECT_EQ(slots, inARow(slots.front(), 7));
    EXPECT_GT(slots.front(), slotOf(&TzSoapElementImp::removeTypeAttribute));
}

namespace {

/// The places of all visits of a family, in their order. `Value` adds const to handles or nothing.
template <typename Visitor, template <typename> class Value> std::vector<std::size_t> visits() {
    return slotsOf(Overload<Value<TzSoapMisunderstoodType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapReferenceType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapUserDefinedType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapSimpleType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapFault>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapCompositeType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapSparseArrayType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapCompactArrayType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapArrayType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapType>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapBody>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapHeader>&>::plain(&Visitor::visit),
                   Overload<Value<TzSoapMessage>&>::plain(&Visitor::visit));
}

template <typename Handle> using Mutable = Handle;
template <typename Handle> using Constant = const Handle;

} // namespace

TEST(VirtualOrder, VisitorsBeginWithTheirDispatch) {
    EXPECT_EQ((visits<TzSoapVisitor, Mutable>()), inARow(1, 13));
    EXPECT_EQ((visits<TzSoapConstVisitor, Constant>()), inARow(1, 13));
}

TEST(VirtualOrder, ContentHandlers) {
    using H = TzSoapContentHandler;
    EXPECT_EQ(slotsOf(&H::startElement, &H::endElement, &H::characters, &H::prolog), inARow(0, 4));
    using G = TzSoapGenericTypeHandler;
    EXPECT_EQ(slotsOf(&G::startElement, &G::endElement, &G::characters, &G::prolog), inARow(0, 4));
    EXPECT_EQ(slotsOf(&G::addChild, &G::addPcdata), inARow(4 + Destructor, 2));
}

TEST(VirtualOrder, Faults) {
    using F = TzSoapFault;
    EXPECT_EQ(slotsOf(&F::copy, Overload<TzSoapVisitor&>::plain(&F::acceptVisitor),
                      Overload<TzSoapConstVisitor&>::constant(&F::acceptVisitor)),
              inARow(Destructor, 3));
    EXPECT_EQ(slotOf(&TzSoapFaultImp::clone), Destructor);
}
