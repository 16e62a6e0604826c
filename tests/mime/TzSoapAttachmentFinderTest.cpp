// SPDX-License-Identifier: MIT
#include "support/Named.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

TzSoapReferenceType attachment() {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("part1"));
    return TzSoapReferenceType(TzXmlName("ref"), part);
}

/// A struct around `value`.
TzSoapCompositeType around(const TzSoapType& value) {
    TzSoapCompositeType composite(TzXmlName("around"));
    composite.appendChild(named("before"));
    composite.appendChild(value);
    composite.appendChild(named("after"));
    return composite;
}

bool found(const TzSoapMessage& message) { return message.hasAttachments(); }

/// Whether one is found in a message whose only entry is `value`.
bool found(const TzSoapType& value) {
    TzSoapMessage message;
    message.getSoapBody().appendEntry(value);
    return found(message);
}

/// A message with something of every kind but an attachment.
TzSoapMessage messageOfAllKinds() {
    TzSoapMessage message;
    TzSoapSimpleType simple("simple", "text", TzSoapContentBase::xsdString, true);
    simple.setIdAttribute("i1");
    TzSoapBody& body = message.getSoapBody();
    body.appendEntry(simple);
    body.appendEntry(named("generic"));
    body.appendEntry(TzSoapUserDefinedType());
    body.appendEntry(TzSoapDefaultType());
    body.appendEntry(TzSoapReferenceType(TzXmlName("ref"), simple));
    body.appendEntry(around(simple));
    TzSoapCompactArrayType compact("xsd:string", 2, 0);
    compact[0] = simple;
    body.appendEntry(compact);
    TzSoapSparseArrayType sparse("xsd:string", 10);
    sparse[3] = simple;
    body.appendEntry(sparse);
    body.getSoapFault().setCode(TzXmlName("code"));
    body.getSoapFault().addDetailEntry("d", around(simple));
    message.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(TzXmlName("name")), true);
    message.getSoapHeader().appendHeaderEntry(around(named("x")), true);
    return message;
}

TEST(TzSoapAttachmentFinder, NothingIsFoundWithoutAttachments) {
    EXPECT_FALSE(found(TzSoapMessage()));
    EXPECT_FALSE(found(messageOfAllKinds()));
}

TEST(TzSoapAttachmentFinder, AReferenceStandingAloneIsFound) {
    EXPECT_TRUE(found(attachment()));
    EXPECT_TRUE(found(around(around(attachment()))));
}

TEST(TzSoapAttachmentFinder, EveryPlaceOfAMessageIsLookedAt) {
    const TzSoapReferenceType reference = attachment();
    TzSoapMessage inHeader = messageOfAllKinds();
    inHeader.getSoapHeader().prependHeaderEntry(reference, true);
    EXPECT_TRUE(found(inHeader));
    TzSoapMessage inBody = messageOfAllKinds();
    inBody.getSoapBody().appendEntry(reference);
    EXPECT_TRUE(found(inBody));
    TzSoapMessage inStruct = messageOfAllKinds();
    inStruct.getSoapBody().prependEntry(around(reference));
    EXPECT_TRUE(found(inStruct));
    TzSoapMessage inHeaderStruct = messageOfAllKinds();
    inHeaderStruct.getSoapHeader().appendHeaderEntry(around(around(reference)), true);
    EXPECT_TRUE(found(inHeaderStruct));
}

TEST(TzSoapAttachmentFinder, ArraysAreLookedInto) {
    TzSoapCompactArrayType compact("ref", 5, 0);
    compact[1] = named("a");
    compact[3] = attachment();
    EXPECT_TRUE(found(compact));
    TzSoapSparseArrayType sparse("ref", 1000);
    sparse[1] = named("a");
    EXPECT_FALSE(found(sparse));
    sparse[999] = around(attachment());
    EXPECT_TRUE(found(sparse));
}

TEST(TzSoapAttachmentFinder, TheDetailOfAFaultIsLookedInto) {
    TzSoapMessage message = messageOfAllKinds();
    message.getSoapBody().getSoapFault().addDetailEntry("d", attachment());
    EXPECT_TRUE(found(message));
}

TEST(TzSoapAttachmentFinder, AFaultWithoutACodeIsNoneOfTheBody) {
    TzSoapMessage message;
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.addDetailEntry("d", attachment());
    EXPECT_FALSE(found(message));
    fault.setCode(TzXmlName("code"));
    EXPECT_TRUE(found(message));
}

TEST(TzSoapAttachmentFinder, EntriesBesideAFaultAreLookedAt) {
    TzSoapMessage message;
    message.getSoapBody().getSoapFault().setCode(TzXmlName("code"));
    EXPECT_FALSE(found(message));
    message.getSoapBody().appendEntry(attachment());
    EXPECT_TRUE(found(message));
}

TEST(TzSoapAttachmentFinder, AReferenceWithoutATargetDoesNotCount) {
    EXPECT_FALSE(found(TzSoapReferenceType(false)));
    EXPECT_FALSE(found(around(TzSoapReferenceType(false))));
}

TEST(TzSoapAttachmentFinder, ReferencesToValuesAreNotFollowed) {
    TzSoapCompositeType target = around(attachment());
    target.setIdAttribute("i1");
    EXPECT_FALSE(found(TzSoapReferenceType(TzXmlName("ref"), target)));
}

TEST(TzSoapAttachmentFinder, RingsOfReferencesEnd) {
    TzSoapCompositeType target(TzXmlName("a"));
    target.setIdAttribute("i1");
    TzSoapReferenceType back(TzXmlName("ref"), target);
    target.appendChild(back);
    EXPECT_FALSE(found(target));
    target.clearChildren();
}

TEST(TzSoapAttachmentFinder, DepthDoesNotMatter) {
    TzSoapType value = attachment();
    for (int level = 0; level < 200000; ++level) {
        TzSoapCompositeType composite(TzXmlName("a"));
        composite.appendChild(value);
        value = composite;
    }
    EXPECT_TRUE(found(value));
}

TEST(TzSoapAttachmentFinder, ValuesWithinThemselvesAreWalkedOnce) {
    TzSoapCompositeType inner(TzXmlName("b"));
    TzSoapCompositeType outer = around(inner);
    inner.appendChild(outer);
    EXPECT_FALSE(found(outer));
    TzSoapMessage message;
    message.getSoapBody().appendEntry(outer);
    EXPECT_FALSE(message.hasUserDefinedValues());
    inner.appendChild(attachment());
    inner.appendChild(TzSoapUserDefinedType());
    EXPECT_TRUE(message.hasAttachments());
    EXPECT_TRUE(message.hasUserDefinedValues());
    inner.clearChildren();
}

TEST(TzSoapAttachmentFinder, ArraysWithinThemselvesAreWalkedOnce) {
    TzSoapCompactArrayType compact("a", 2, 0);
    TzSoapSparseArrayType sparse("a", 9);
    compact[0] = sparse;
    sparse[3] = compact;
    EXPECT_FALSE(found(compact));
    sparse[4] = attachment();
    EXPECT_TRUE(found(compact));
    compact[0] = named("end");
}

TEST(TzSoapAttachmentFinder, SharedValuesAreWalkedOnce) {
    // Thirty levels, each of which holds the next one twice.
    TzSoapType value = attachment();
    for (int level = 0; level < 30; ++level) {
        TzSoapCompositeType composite(TzXmlName("a"));
        composite.appendChild(value);
        composite.appendChild(value);
        value = composite;
    }
    EXPECT_TRUE(found(value));
}

TEST(TzSoapAttachmentFinder, UserDefinedValuesAreFoundWhereverTheyAre) {
    EXPECT_FALSE(TzSoapMessage().hasUserDefinedValues());
    EXPECT_TRUE(messageOfAllKinds().hasUserDefinedValues());
    TzSoapMessage inBody;
    inBody.getSoapBody().appendEntry(around(around(named("plain"))));
    EXPECT_FALSE(inBody.hasUserDefinedValues());
    inBody.getSoapBody().appendEntry(around(around(TzSoapUserDefinedType())));
    EXPECT_TRUE(inBody.hasUserDefinedValues());
    EXPECT_FALSE(inBody.hasAttachments());
    TzSoapMessage inHeader;
    TzSoapSparseArrayType array("xsd:string", 10);
    array[3] = TzSoapUserDefinedType();
    inHeader.getSoapHeader().appendHeaderEntry(array, false);
    EXPECT_TRUE(inHeader.hasUserDefinedValues());
}

TEST(TzSoapAttachmentFinder, UserDefinedValuesAreFoundWhereReferencesLead) {
    TzSoapCompositeType target = around(named("x"));
    target.setIdAttribute("i1");
    const TzSoapReferenceType reference(TzXmlName("ref"), target);
    target.appendChild(reference);
    TzSoapMessage message;
    message.getSoapBody().appendEntry(reference);
    EXPECT_FALSE(message.hasUserDefinedValues());
    target.appendChild(around(TzSoapUserDefinedType()));
    EXPECT_TRUE(message.hasUserDefinedValues()) << "the target is written with the message";
    target.clearChildren();
}

} // namespace
