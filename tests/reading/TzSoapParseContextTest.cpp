// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"

#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

#include <gtest/gtest.h>

#include <map>
#include <stack>
#include <string>
#include <vector>

namespace {

/// An element that declares `prefix`.
struct Scope : TzXmlElementImp {
    Scope(const char* prefix, const char* uri) {
        addNamespaceAttribute(TzXmlNamespace(prefix, uri));
    }
};

TzSoapReadingState& stateOf(TzSoapParseContext& context) { return TzSoapAccess::reading(context); }

TzSoapType identified(const char* name, const char* id) {
    TzSoapType value{TzXmlName(name)};
    value.setIdAttribute(id);
    return value;
}

/// Files `reference` under `href`, as reading does.
void file(TzSoapParseContext& context, const char* href, const TzSoapReferenceType& reference) {
    context.keep(reference);
    context.getReferences().emplace(href, &TzSoapAccess::body(reference));
}

TzMimePart partWith(const TzMimeHeader& header, const char* text) {
    TzMimePart part;
    part.insertHeader(header);
    part.setBody(text);
    return part;
}

class Handler : public TzSoapContentHandler {
public:
    using TzSoapContentHandler::acceptEvents;
    using TzSoapContentHandler::context;
    using TzSoapContentHandler::declineEvents;
};

} // namespace

TEST(TzSoapParseContext, IsEmptyAtFirst) {
    TzSoapParseContext context;
    EXPECT_TRUE(context.getEncodingStyles().empty());
    EXPECT_TRUE(context.getNamespaces().empty());
    EXPECT_TRUE(context.getReferences().empty());
    EXPECT_TRUE(context.getIdEntries().empty());
    EXPECT_FALSE(context.getMimeMultipart().hasParts());
    EXPECT_EQ(context.getSoapMessageImp(), nullptr);
    EXPECT_EQ(context.getParser(), nullptr);
}

TEST(TzSoapParseContext, EncodingStylesAreAStackOfTexts) {
    TzSoapParseContext context;
    std::stack<TzCString>& styles = context.getEncodingStyles();
    styles.push("urn:outer");
    styles.push("urn:inner");
    EXPECT_EQ(context.getEncodingStyles().top(), "urn:inner");
    styles.pop();
    EXPECT_EQ(context.getEncodingStyles().top(), "urn:outer");
    EXPECT_EQ(context.getEncodingStyles().size(), 1U);
}

TEST(TzSoapParseContext, KeepsWhatItIsGiven) {
    TzSoapParseContext context;
    TzXmlSAXParser parser;
    context.setParser(&parser);
    EXPECT_EQ(context.getParser(), &parser);

    const TzSoapMessage message(TzSoapVersion::V1_1);
    context.setSoapMessageImp(&TzSoapAccess::body(message));
    EXPECT_EQ(context.getSoapMessageImp(), &TzSoapAccess::body(message));

    TzMimeMultipart package;
    package.insertPart(TzMimePart());
    context.setMimeMultipart(package);
    EXPECT_TRUE(context.getMimeMultipart().hasParts());
}

TEST(TzSoapParseContext, ReadsTheLatestVersionWithoutAMessageAndThatOfTheMessageOtherwise) {
    TzSoapParseContext context;
    EXPECT_EQ(context.getVersion(), TzSoapVersion::V1_2);
    const TzSoapMessage message(TzSoapVersion::V1_1);
    context.setSoapMessageImp(&TzSoapAccess::body(message));
    EXPECT_EQ(context.getVersion(), TzSoapVersion::V1_1);
}

TEST(TzSoapParseContext, TheInnermostDeclarationOfAPrefixCounts) {
    Scope envelope("p", "urn:outer");
    Scope other("q", "urn:other");
    Scope entry("p", "urn:inner");
    TzSoapParseContext context;
    context.getNamespaces() = {&envelope, &other};
    EXPECT_EQ(context.getNsUriForPrefix("p"), "urn:outer");
    context.getNamespaces().push_back(&entry);
    EXPECT_EQ(context.getNsUriForPrefix("p"), "urn:inner");
    EXPECT_EQ(context.getNsUriForPrefix("q"), "urn:other");
    context.getNamespaces().pop_back();
    EXPECT_EQ(context.getNsUriForPrefix("p"), "urn:outer");
}

TEST(TzSoapParseContext, APrefixThatNobodyDeclaresHasTheEmptyUri) {
    Scope envelope("p", "urn:p");
    TzSoapParseContext context;
    EXPECT_EQ(context.getNsUriForPrefix("p"), "");
    context.getNamespaces() = {&envelope};
    EXPECT_EQ(context.getNsUriForPrefix("P"), "");
    EXPECT_EQ(context.getNsUriForPrefix(""), "");
}

TEST(TzSoapParseContext, TheEmptyPrefixMeansTheDefaultNamespace) {
    Scope envelope("", "urn:default");
    TzSoapParseContext context;
    context.getNamespaces() = {&envelope};
    EXPECT_EQ(context.getNsUriForPrefix(""), "urn:default");
}

TEST(TzSoapParseContext, ADeclarationOfNoUriHidesAnOuterOne) {
    Scope envelope("p", "urn:p");
    Scope entry("p", "");
    TzSoapParseContext context;
    context.getNamespaces() = {&envelope, &entry};
    EXPECT_EQ(context.getNsUriForPrefix("p"), "");
}

TEST(TzSoapParseContext, ResolvesTheNameThatATextSpells) {
    Scope envelope("p", "urn:p");
    Scope entry("", "urn:default");
    TzSoapParseContext context;
    context.getNamespaces() = {&envelope, &entry};
    const struct {
        const char* text;
        TzXmlName name;
    } cases[] = {
        {"p:a", {"a", TzXmlNamespace("p", "urn:p")}},
        {"a", {"a", TzXmlNamespace("", "urn:default")}},
        {"q:a", {"a", TzXmlNamespace("q", "")}},
        {"p:a:b", {"a:b", TzXmlNamespace("p", "urn:p")}},
        {"p:", {"", TzXmlNamespace("p", "urn:p")}},
        {"", {"", TzXmlNamespace("", "urn:default")}},
    };
    // Twice, and the second time under another binding: names looked up before do not stick.
    for (const auto& one : cases) {
        EXPECT_EQ(stateOf(context).resolveName(one.text), one.name) << one.text;
        EXPECT_EQ(stateOf(context).resolveName(one.text).getPrefix(), one.name.getPrefix())
            << one.text;
    }
    Scope inner("p", "urn:inner");
    context.getNamespaces().push_back(&inner);
    EXPECT_EQ(stateOf(context).resolveName("p:a"),
              TzXmlName("a", TzXmlNamespace("p", "urn:inner")));
    context.getNamespaces().pop_back();
    EXPECT_EQ(stateOf(context).resolveName("p:a"), TzXmlName("a", TzXmlNamespace("p", "urn:p")));
}

TEST(TzSoapParseContext, FilesValuesUnderTheirIdTheFirstOneStays) {
    TzSoapParseContext context;
    const TzSoapType first = identified("first", "x");
    stateOf(context).references.fileId(first);
    stateOf(context).references.fileId(identified("second", "x"));
    stateOf(context).references.fileId(TzSoapType(TzXmlName("none")));
    ASSERT_EQ(context.getIdEntries().size(), 1U);
    EXPECT_TRUE(sameValue(context.getIdEntries().at("x"), first));
}

TEST(TzSoapParseContext, GivesReferencesTheirTargets) {
    TzSoapParseContext context;
    const TzSoapType value = identified("value", "x");
    const TzSoapReferenceType marked(true);
    const TzSoapReferenceType bare(true);
    file(context, "#x", marked);
    file(context, "x", bare);
    stateOf(context).references.fileId(value);
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(sameValue(marked.getSoapReference(), value));
    EXPECT_TRUE(sameValue(bare.getSoapReference(), value));
}

TEST(TzSoapParseContext, AnIdPutInDirectlyIsFoundToo) {
    TzSoapParseContext context;
    const TzSoapReferenceType reference(true);
    file(context, "#x", reference);
    context.getIdEntries().emplace("x", identified("value", "x"));
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(reference.hasReference());
}

TEST(TzSoapParseContext, ResolvingForgetsReferencesAndTheIdsTheyName) {
    for (const bool toValues : {true, false}) {
        TzSoapParseContext context;
        const TzSoapReferenceType marked(toValues);
        const TzSoapReferenceType bare(toValues);
        file(context, "#x", marked);
        file(context, "y", bare);
        for (const char* id : {"x", "y", "z"}) {
            stateOf(context).references.fileId(identified("value", id));
        }
        context.resolveAndClearIdReferences();
        EXPECT_TRUE(context.getReferences().empty()) << toValues;
        ASSERT_EQ(context.getIdEntries().size(), 1U) << toValues;
        EXPECT_EQ(context.getIdEntries().begin()->first, "z") << toValues;
    }
}

TEST(TzSoapParseContext, AReferenceToNothingStaysWithoutTarget) {
    TzSoapParseContext context;
    const TzSoapReferenceType reference(true);
    file(context, "#nowhere", reference);
    EXPECT_NO_THROW(context.resolveAndClearIdReferences());
    EXPECT_FALSE(reference.hasReference());
    EXPECT_TRUE(context.getReferences().empty());
}

TEST(TzSoapParseContext, OnlyOneMarkOfAFragmentIsDropped) {
    TzSoapParseContext context;
    const TzSoapReferenceType reference(true);
    file(context, "##x", reference);
    stateOf(context).references.fileId(identified("value", "x"));
    context.resolveAndClearIdReferences();
    EXPECT_FALSE(reference.hasReference());
}

TEST(TzSoapParseContext, LaterPartsOfAMessageServeEarlierReferences) {
    TzSoapParseContext context;
    const TzSoapReferenceType early(true);
    file(context, "#x", early);
    context.resolveAndClearIdReferences();
    const TzSoapType value = identified("value", "x");
    stateOf(context).references.fileId(value);
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(sameValue(early.getSoapReference(), value));
    EXPECT_TRUE(context.getIdEntries().empty());
}

TEST(TzSoapParseContext, EarlierPartsOfAMessageServeLaterReferences) {
    TzSoapParseContext context;
    const TzSoapType value = identified("value", "x");
    const TzSoapReferenceType early(true);
    const TzSoapReferenceType late(true);
    stateOf(context).references.fileId(value);
    file(context, "#x", early);
    context.resolveAndClearIdReferences();
    file(context, "#x", late);
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(sameValue(late.getSoapReference(), value));
}

TEST(TzSoapParseContext, TheFirstValueOfAnIdStaysThroughAllPartsOfAMessage) {
    TzSoapParseContext context;
    const TzSoapType first = identified("first", "x");
    const TzSoapReferenceType early(true);
    const TzSoapReferenceType late(true);
    stateOf(context).references.fileId(first);
    file(context, "#x", early);
    context.resolveAndClearIdReferences();
    stateOf(context).references.fileId(identified("second", "x"));
    file(context, "#x", late);
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(sameValue(early.getSoapReference(), first));
    EXPECT_TRUE(sameValue(late.getSoapReference(), first));
}

TEST(TzSoapParseContext, ClearEmptiesTheCollections) {
    TzSoapParseContext context;
    Scope scope("p", "urn:p");
    const TzSoapReferenceType reference(true);
    context.getNamespaces().push_back(&scope);
    context.getEncodingStyles().push("urn:style");
    stateOf(context).references.fileId(identified("value", "x"));
    file(context, "#y", reference);
    context.resolveAndClearIdReferences(); // now waiting for y
    file(context, "#z", reference);
    stateOf(context).clear();
    EXPECT_TRUE(context.getEncodingStyles().empty());
    EXPECT_TRUE(context.getNamespaces().empty());
    EXPECT_TRUE(context.getReferences().empty());
    EXPECT_TRUE(context.getIdEntries().empty());
    stateOf(context).references.fileId(identified("value", "y"));
    context.resolveAndClearIdReferences();
    EXPECT_FALSE(reference.hasReference());
}

TEST(TzSoapParseContext, DroppingTargetsUndoesWhatWasResolvedKeepingThemDoesNot) {
    TzSoapParseContext context;
    const TzSoapReferenceType kept(true);
    const TzSoapReferenceType dropped(true);
    stateOf(context).references.fileId(identified("value", "x"));
    file(context, "#x", kept);
    context.resolveAndClearIdReferences();
    stateOf(context).references.keepTargets();
    file(context, "#x", dropped);
    context.resolveAndClearIdReferences();
    EXPECT_TRUE(dropped.hasReference());
    stateOf(context).references.dropTargets();
    EXPECT_TRUE(kept.hasReference());
    EXPECT_FALSE(dropped.hasReference());
}

TEST(TzSoapParseContext, AReferenceByContentIdFindsItsPart) {
    TzMimeMultipart package;
    package.insertPart(partWith(TzMimeContentIdHeader("<other>"), "other"));
    package.insertPart(partWith(TzMimeContentIdHeader("<part1>"), "first"));
    package.insertPart(partWith(TzMimeContentIdHeader("<part1>"), "second"));
    TzSoapParseContext context;
    context.setMimeMultipart(package);
    const TzSoapReferenceType reference(false);
    file(context, "cid:part1", reference);
    context.resolveAndClearIdReferences();
    ASSERT_TRUE(reference.hasReference());
    EXPECT_EQ(reference.getMimeReference().getBody(), "first");
}

TEST(TzSoapParseContext, TheSchemeOfAContentIdCountsWithCaseAndTheRestWithoutBrackets) {
    TzMimeMultipart package;
    package.insertPart(partWith(TzMimeContentIdHeader("<a b>"), "blank"));
    TzSoapParseContext context;
    context.setMimeMultipart(package);
    std::map<std::string, TzSoapReferenceType> references;
    for (const char* href : {"CID:a b", "cid:a%20bc", "cid:<a b>", "cid:"}) {
        file(context, href, references.emplace(href, false).first->second);
    }
    context.resolveAndClearIdReferences();
    for (const auto& [href, reference] : references) {
        // Brackets around the id of a header are not part of it: those of the href make another id.
        EXPECT_FALSE(reference.hasReference()) << href;
    }
}

TEST(TzSoapParseContext, AReferenceByLocationFindsItsPartAsItStandsOrBelowThePackage) {
    TzMimeMultipart package;
    package.insertHeader(TzMimeContentLocationHeader("http://example.org/base/index"));
    package.insertPart(partWith(TzMimeContentLocationHeader("http://example.org/base/a"), "below"));
    package.insertPart(partWith(TzMimeContentLocationHeader("b"), "as it stands"));
    package.insertPart(partWith(TzMimeContentLocationHeader("http://example.org/base/b"), "never"));
    TzSoapParseContext context;
    context.setMimeMultipart(package);
    const std::map<std::string, std::string> bodies = {
        {"a", "below"}, {"b", "as it stands"}, {"http://example.org/base/a", "below"}, {"c", ""}};
    std::map<std::string, TzSoapReferenceType> references;
    for (const auto& [href, text] : bodies) {
        file(context, href.c_str(), references.emplace(href, false).first->second);
    }
    context.resolveAndClearIdReferences();
    for (const auto& [href, text] : bodies) {
        const TzSoapReferenceType& reference = references.at(href);
        ASSERT_EQ(reference.hasReference(), !text.empty()) << href;
        if (!text.empty()) {
            EXPECT_EQ(reference.getMimeReference().getBody(), text) << href;
        }
    }
}

TEST(TzSoapParseContext, AMimeReferenceWithoutPackageStaysWithoutTarget) {
    TzSoapParseContext context;
    const TzSoapReferenceType reference(false);
    file(context, "cid:part1", reference);
    context.resolveAndClearIdReferences();
    EXPECT_FALSE(reference.hasReference());
    EXPECT_TRUE(context.getReferences().empty());
}

TEST(TzSoapParseContext, AMimeReferenceNeverFindsAValue) {
    TzSoapParseContext context;
    const TzSoapReferenceType reference(false);
    stateOf(context).references.fileId(identified("value", "x"));
    file(context, "x", reference);
    context.resolveAndClearIdReferences();
    EXPECT_FALSE(reference.hasReference());
}

TEST(TzSoapParseContext, HandlersReceiveOneInsideTheOther) {
    TzXmlSAXParser parser;
    TzSoapParseContext context;
    context.setParser(&parser);
    Handler outer;
    Handler inner;
    EXPECT_EQ(outer.context(), nullptr);
    outer.acceptEvents(&context);
    EXPECT_EQ(parser.getContentHandler(), &outer);
    EXPECT_EQ(outer.context(), &context);
    inner.acceptEvents(&context);
    EXPECT_EQ(parser.getContentHandler(), &inner);
    inner.declineEvents();
    EXPECT_EQ(parser.getContentHandler(), &outer);
    EXPECT_EQ(inner.context(), nullptr);
    outer.declineEvents();
    EXPECT_EQ(parser.getContentHandler(), nullptr);
    EXPECT_EQ(outer.context(), nullptr);
}

TEST(TzSoapParseContext, AHandlerDoesNothingOfItsOwnAndItsCopyIsIdle) {
    TzXmlSAXParser parser;
    TzSoapParseContext context;
    context.setParser(&parser);
    Handler handler;
    handler.acceptEvents(&context);
    handler.startElement(TzXmlName("a"), TzXmlAttributeSet());
    handler.characters("text");
    handler.endElement(TzXmlName("a"));
    EXPECT_EQ(parser.getContentHandler(), &handler);
    const Handler copy(handler);
    EXPECT_EQ(copy.context(), nullptr);
    Handler assigned;
    assigned = handler;
    EXPECT_EQ(assigned.context(), nullptr);
}
