// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReferenceToMimePartImp.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersion.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/Named.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

// A text would silently be taken for true.
static_assert(!std::is_constructible_v<TzSoapReferenceType, const char*>);
static_assert(!std::is_convertible_v<bool, TzSoapReferenceType>);
static_assert(std::is_nothrow_move_constructible_v<TzSoapReferenceType>);

TzSoapType identified(const char* id) {
    TzSoapType value = named("target");
    value.setIdAttribute(id);
    return value;
}

TzMimePart partWith(const TzMimeHeader& header) {
    TzMimePart part;
    part.insertHeader(header);
    return part;
}

/// The attributes as "name=value", a blank between them.
std::string attributesOf(const TzSoapType& value) {
    std::string text;
    for (const auto* at = value.attributesBegin(); at != value.attributesEnd(); ++at) {
        text += (text.empty() ? "" : " ") + at->getName().getUniqueName() + "=" + at->getValue();
    }
    return text;
}

/// Expects BAD_REFERENCE about `expected`.
template <typename Error, typename Action>
void expectBadReference(const Action& action, const std::string& expected) {
    expectCatalogued<Error>(action, 0x7015,
                            "[BAD_REFERENCE][The referred type is not \"" + expected + "\".]");
}

TEST(TzSoapReferenceType, StartsWithoutTarget) {
    const TzSoapReferenceType toValue(true);
    EXPECT_FALSE(toValue.hasReference());
    EXPECT_FALSE(toValue.isMimeReference());
    EXPECT_TRUE(toValue.getName().isEmpty());
    EXPECT_EQ(toValue.attributeCount(), 0U);
    EXPECT_EQ(toValue.getSoapTypeId(), TzSoapContentBase::Reference);
    EXPECT_EQ(toValue.getSoapTypeIdAsString(), "Reference");
    EXPECT_EQ(&toValue.getSoapTypeIdAsString(), &TzSoapUtils::referenceString);
    const TzSoapReferenceType toPart(false);
    EXPECT_FALSE(toPart.hasReference());
    EXPECT_TRUE(toPart.isMimeReference());
    const TzSoapReferenceType byName(TzXmlName("r"));
    EXPECT_FALSE(byName.hasReference());
    EXPECT_FALSE(byName.isMimeReference());
    EXPECT_EQ(byName.getName(), TzXmlName("r"));
}

TEST(TzSoapReferenceType, RefersToAValueByItsId) {
    TzSoapType target = identified("item7");
    const TzSoapReferenceType reference("r", target);
    EXPECT_TRUE(reference.hasReference());
    EXPECT_FALSE(reference.isMimeReference());
    EXPECT_EQ(reference.getName(), TzXmlName("r"));
    EXPECT_EQ(attributesOf(reference), "ref=#item7");
    EXPECT_TRUE(TzSoapAccess::sameBody(reference.getSoapReference(), target));
    TzSoapReferenceType changeable = reference;
    changeable.getSoapReference().setName("renamed");
    EXPECT_EQ(target.getName(), TzXmlName("renamed"));
    // the text is that of the moment
    target.setIdAttribute("other");
    EXPECT_EQ(attributesOf(reference), "ref=#item7");
}

TEST(TzSoapReferenceType, TargetNeedsAnId) {
    expectBadReference<TzXmlBadArgError>([] { TzSoapReferenceType("r", named("target")); },
                                         "identified");
    TzSoapReferenceType reference("r", identified("a"));
    const TzSoapType first = reference.getSoapReference();
    expectBadReference<TzXmlBadArgError>([&] { reference.setReference(named("b")); }, "identified");
    expectBadReference<TzXmlBadArgError>([&] { reference.setReference(identified("")); },
                                         "identified");
    EXPECT_EQ(attributesOf(reference), "ref=#a");
    EXPECT_TRUE(TzSoapAccess::sameBody(reference.getSoapReference(), first));
    TzSoapReferenceType empty(true);
    expectBadReference<TzXmlBadArgError>([&] { empty.setReference(named("b")); }, "identified");
    EXPECT_FALSE(empty.hasReference());
}

TEST(TzSoapReferenceType, RefersToAPartByContentIdOrLocation) {
    const TzMimeContentIdHeader id("part1");
    const TzMimeContentLocationHeader location("file.bin");
    EXPECT_EQ(attributesOf(TzSoapReferenceType("r", partWith(id))), "href=cid:part1");
    EXPECT_EQ(attributesOf(TzSoapReferenceType("r", partWith(TzMimeContentIdHeader("<part1>")))),
              "href=cid:part1");
    EXPECT_EQ(attributesOf(TzSoapReferenceType("r", partWith(location))), "href=file.bin");
    TzMimePart both = partWith(location);
    both.insertHeader(id);
    TzSoapReferenceType reference("r", both);
    EXPECT_EQ(attributesOf(reference), "href=cid:part1");
    EXPECT_TRUE(reference.hasReference());
    EXPECT_TRUE(reference.isMimeReference());
    both.setBody("data");
    EXPECT_EQ(reference.getMimeReference().getBody(), "data");
    const TzSoapReferenceType& constant = reference;
    EXPECT_EQ(constant.getMimeReference().getHeaderCount(), 2U);
}

TEST(TzSoapReferenceType, TargetNeedsABody) {
    TzSoapReferenceType reference("r", identified("a"));
    const auto none = TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(nullptr));
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { reference.setReference(none); }),
              "Invalid pointer");
    EXPECT_EQ(attributesOf(reference), "ref=#a");
    EXPECT_EQ(reference.getSoapReference().getIdAttribute(), "a");
}

TEST(TzSoapReferenceType, PartNeedsAName) {
    expectBadReference<TzXmlBadArgError>([] { TzSoapReferenceType("r", TzMimePart()); },
                                         "identified");
    TzSoapReferenceType reference("r", partWith(TzMimeContentIdHeader("a")));
    expectBadReference<TzXmlBadArgError>(
        [&] { reference.setReference(partWith(TzMimeHeader("Content-Type", "a/b"))); },
        "identified");
    EXPECT_EQ(attributesOf(reference), "href=cid:a");
    EXPECT_EQ(reference.getMimeReference().getHeader(0).getValue(), "<a>");
}

TEST(TzSoapReferenceType, KindOfTargetIsFixed) {
    TzSoapReferenceType toValue("r", identified("a"));
    TzSoapReferenceType toPart("r", partWith(TzMimeContentIdHeader("p")));
    expectBadReference<TzXmlDomainError>(
        [&] { toValue.setReference(partWith(TzMimeContentIdHeader("p"))); }, "soap");
    expectBadReference<TzXmlDomainError>([&] { toPart.setReference(identified("a")); }, "mime");
    expectCatalogued<TzXmlBadArgError>([&] { (void)toValue.getMimeReference(); }, 0x701F,
                                       "[BAD_MIME_REFERENCE][The reference is not to a mime part]");
    expectCatalogued<TzXmlBadArgError>([&] { (void)toPart.getSoapReference(); }, 0x701E,
                                       "[BAD_SOAP_REFERENCE][The reference is not to a soap type]");
    EXPECT_EQ(attributesOf(toValue), "ref=#a");
    EXPECT_EQ(attributesOf(toPart), "href=cid:p");
}

TEST(TzSoapReferenceType, AskingForAMissingTarget) {
    const TzSoapReferenceType toValue(true);
    expectBadReference<TzXmlBadArgError>([&] { (void)toValue.getSoapReference(); }, "soap");
    const TzSoapReferenceType toPart(false);
    expectBadReference<TzXmlBadArgError>([&] { (void)toPart.getMimeReference(); }, "mime");
    // the wrong kind is the wrong kind, target or not
    expectCatalogued<TzXmlBadArgError>([&] { (void)toPart.getSoapReference(); }, 0x701E,
                                       "[BAD_SOAP_REFERENCE][The reference is not to a soap type]");
    expectCatalogued<TzXmlBadArgError>([&] { (void)toValue.getMimeReference(); }, 0x701F,
                                       "[BAD_MIME_REFERENCE][The reference is not to a mime part]");
}

TEST(TzSoapReferenceType, NewTextReplacesThatOfEitherVersion) {
    TzSoapReferenceType reference(true);
    reference.addAttribute(TzXmlName("href"), "#old");
    reference.addAttribute(TzXmlName("other"), "kept");
    reference.addAttribute(TzXmlName("ref"), "#older");
    reference.addAttribute(TzXmlName("href", TzXmlNamespace("x", "urn:x")), "foreign");
    reference.setReference(identified("new"));
    EXPECT_EQ(attributesOf(reference), "other=kept urn:x:href=foreign ref=#new");
    TzSoapReferenceType part(false);
    part.addAttribute(TzXmlName("href"), "old");
    part.addAttribute(TzXmlName("ref"), "older");
    part.setReference(partWith(TzMimeContentIdHeader("p")));
    EXPECT_EQ(attributesOf(part), "href=cid:p");
}

TEST(TzSoapReferenceType, CopiesShareTheTarget) {
    const TzSoapReferenceType reference("r", identified("a"));
    TzSoapReferenceType copy = reference.copy();
    EXPECT_FALSE(TzSoapAccess::sameBody(copy, reference));
    EXPECT_TRUE(copy.hasReference());
    EXPECT_TRUE(TzSoapAccess::sameBody(copy.getSoapReference(), reference.getSoapReference()));
    EXPECT_EQ(attributesOf(copy), "ref=#a");
    copy.setReference(identified("b"));
    EXPECT_EQ(attributesOf(reference), "ref=#a");
    TzMimePart data = partWith(TzMimeContentIdHeader("p"));
    const TzSoapReferenceType part = TzSoapReferenceType("r", data).copy();
    data.setBody("data");
    EXPECT_TRUE(part.isMimeReference());
    EXPECT_EQ(part.getMimeReference().getBody(), "data");
    EXPECT_FALSE(TzSoapReferenceType(true).copy().hasReference());
    const TzSoapReferenceType shared = reference;
    EXPECT_TRUE(TzSoapAccess::sameBody(shared, reference));
}

TEST(TzSoapReferenceType, ClearingDropsTheTargetAndKeepsTheText) {
    const TzSoapType target = identified("a");
    const TzSoapReferenceType reference("r", target);
    auto& body = static_cast<TzSoapReferenceToSoapTypeImp&>(TzSoapAccess::body(reference));
    EXPECT_TRUE(TzSoapAccess::sameBody(body.getReference(), target));
    EXPECT_EQ(TzSoapAccess::body(target).referenceCount(), 2U);
    body.clearReference();
    EXPECT_EQ(TzSoapAccess::body(target).referenceCount(), 1U);
    EXPECT_FALSE(reference.hasReference());
    EXPECT_FALSE(TzSoapAccess::hasBody(body.getReference()));
    EXPECT_EQ(attributesOf(reference), "ref=#a");
    expectBadReference<TzXmlBadArgError>([&] { (void)reference.getSoapReference(); }, "soap");
    body.clearReference();
    body.setReference(target);
    EXPECT_TRUE(reference.hasReference());
}

TEST(TzSoapReferenceType, ClearingFreesARing) {
    static_cast<void>(TzSoapReferenceType("first use", identified("id")));
    const std::ptrdiff_t before = liveAllocations();
    {
        TzSoapCompositeType ring("ring");
        ring.setIdAttribute("ring");
        const TzSoapReferenceType reference("back", ring);
        ring.appendChild(reference);
        static_cast<TzSoapReferenceToSoapTypeImp&>(TzSoapAccess::body(reference)).clearReference();
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzSoapReferenceType, LastTargetMayHoldTheReference) {
    static_cast<void>(TzSoapReferenceType("first use", identified("id")));
    const std::ptrdiff_t before = liveAllocations();
    {
        TzSoapCompositeType ring("ring");
        ring.setIdAttribute("ring");
        ring.appendChild(TzSoapReferenceType("back", ring));
        const TzSoapType back = *ring.childrenBegin();
        ring = TzSoapCompositeType("other");
        TzSoapAccess::handle<TzSoapReferenceType>(
            static_cast<TzSoapReferenceTypeImp*>(&TzSoapAccess::body(back)))
            .setReference(identified("new"));
        EXPECT_EQ(attributesOf(back), "ref=#new");
    }
    EXPECT_EQ(liveAllocations(), before);
}

/// Has a reference read itself, with a text under either name.
void expectWaits(bool soapReference, const std::string& attribute, const std::string& text) {
    TzXmlSAXParser parser;
    TzSoapParseContext context; // reads the latest version
    context.setParser(&parser);
    const TzSoapReferenceType reference(soapReference);
    TzSoapReferenceTypeImp& body = TzSoapAccess::body(reference);
    TzXmlAttributeSet attributes;
    attributes.add(TzXmlName("id"), "own");
    attributes.add(TzXmlName("href"), attribute == "href" ? text : "other");
    attributes.add(TzXmlName("ref"), attribute == "ref" ? text : "other");
    body.populate(TzXmlName("r"), attributes, &context);
    EXPECT_EQ(reference.getName(), TzXmlName("r"));
    EXPECT_EQ(reference.attributeCount(), 3U);
    EXPECT_FALSE(reference.hasReference());
    ASSERT_EQ(context.getReferences().size(), 1U);
    EXPECT_EQ(context.getReferences().begin()->first, text);
    EXPECT_EQ(context.getReferences().begin()->second, &body);
    ASSERT_EQ(context.getIdEntries().size(), 1U);
    EXPECT_TRUE(TzSoapAccess::sameBody<TzSoapType>(context.getIdEntries().at("own"), reference));
    EXPECT_EQ(parser.getContentHandler(), static_cast<TzXmlContentHandler*>(&body));
    body.endElement(TzXmlName("r"));
    EXPECT_EQ(parser.getContentHandler(), nullptr);
    EXPECT_TRUE(context.getNamespaces().empty());
    EXPECT_TRUE(context.getEncodingStyles().empty());
}

TEST(TzSoapReferenceType, WaitsForItsTargetWhileItIsRead) {
    expectWaits(true, "ref", "#x");
    expectWaits(true, "ref", "x");
    expectWaits(false, "href", "cid:x");
}

TEST(TzSoapReferenceType, RefusesContent) {
    for (const bool soapReference : {true, false}) {
        TzSoapReferenceType reference(soapReference);
        const std::string text = "[ILLEGAL_REFERENCE][Per SOAP, reference accessor(element with a "
                                 "href attribute) is an empty element.]";
        expectCatalogued<TzXmlParseError>(
            [&] { TzSoapAccess::body(reference).addChild(named("child")); }, 0x7016, text);
        expectCatalogued<TzXmlParseError>(
            [&] { TzSoapAccess::body(reference).startElement("child", TzXmlAttributeSet()); },
            0x7016, text);
    }
}

TEST(TzSoapReferenceType, OutOfMemoryChangesNothing) {
    TzSoapReferenceType reference("r", identified("a"));
    TzSoapReferenceType part("r", partWith(TzMimeContentIdHeader("a")));
    const TzSoapType longId = identified("an id too long to be kept within a string object");
    const TzMimePart longPart =
        partWith(TzMimeContentIdHeader("an id too long to be kept within a string object"));
    for (std::size_t nth = 1; attributesOf(reference) == "ref=#a"; ++nth) {
        const AllocationFailure failure(nth);
        try {
            reference.setReference(longId);
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(reference.getSoapReference().getIdAttribute(), "a");
        }
    }
    for (std::size_t nth = 1; attributesOf(part) == "href=cid:a"; ++nth) {
        const AllocationFailure failure(nth);
        try {
            part.setReference(longPart);
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(part.getMimeReference().getHeader(0).getValue(), "<a>");
        }
    }
    EXPECT_TRUE(TzSoapAccess::sameBody(reference.getSoapReference(), longId));
}

TEST(TzSoapReferenceType, WithoutBodyRefuses) {
    const auto reference =
        TzSoapAccess::handle<TzSoapReferenceType>(static_cast<TzSoapReferenceTypeImp*>(nullptr));
    TzSoapReferenceType changeable = reference;
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { (void)reference.copy(); });
    refused([&] { (void)reference.hasReference(); });
    refused([&] { (void)reference.isMimeReference(); });
    refused([&] { changeable.setReference(identified("a")); });
    refused([&] { changeable.setReference(partWith(TzMimeContentIdHeader("a"))); });
    refused([&] { (void)reference.getSoapReference(); });
    refused([&] { (void)changeable.getSoapReference(); });
    refused([&] { (void)reference.getMimeReference(); });
    refused([&] { (void)changeable.getMimeReference(); });
}

} // namespace
