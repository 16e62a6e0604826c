// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlError.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapOutputPath.h"
#include "output/WireText.h"
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

/// Runs `inside` when a value named "hook" is to be written, in place of writing it.
class HookWriter : public TzSoapWriter {
public:
    using Hook = std::function<void(TzSoapWriter&)>;

    HookWriter(TzXmlWriter* text, Hook inside)
        : TzSoapWriter(text, nullptr), inside_(std::move(inside)) {}
    using TzSoapWriter::visit;
    void visit(const TzSoapSimpleType& value) override {
        if (value.getName().getLocalName() == "hook") {
            inside_(*this);
        } else {
            TzSoapWriter::visit(value);
        }
    }

private:
    Hook inside_;
};

/// What is written for a message of SOAP 1.1 whose body holds a composite that declares p and holds
/// a value with the id "seen" and the hook.
std::string hooked(const HookWriter::Hook& inside) {
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("p", "urn:p")));
    TzSoapSimpleType seen = intValue("s", 1);
    seen.setIdAttribute("seen");
    outer.appendChild(seen);
    outer.appendChild(intValue("hook", 1));
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {outer});
    TzXmlStringWriter text;
    HookWriter writer(&text, inside);
    message.acceptVisitor(writer);
    return text.getString();
}

std::string hookedText(const std::string& lines) {
    return envelope11("    <p:o xmlns:p=\"urn:p\">\n      <s id=\"seen\">1</s>\n" + lines +
                      "    </p:o>\n");
}

const TzSoapSimpleType& valueInP() {
    static const TzSoapSimpleType value(TzXmlName("v", TzXmlNamespace("p", "urn:p")), 2,
                                        TzSoapType::xsdInt, false);
    return value;
}

TEST(TzSoapWriter, ChildrenWriteWithinTheScopesOfTheirParent) {
    EXPECT_EQ(hooked([](TzSoapWriter& writer) {
                  TzSoapWriter child(&writer);
                  valueInP().acceptVisitor(child);
                  TzSoapWriter grandchild(&child);
                  valueInP().acceptVisitor(grandchild);
              }),
              hookedText("      <p:v>2</p:v>\n      <p:v>2</p:v>\n"));
}

TEST(TzSoapWriter, ChildrenShareWhatIsStillToBeWritten) {
    EXPECT_EQ(
        hooked([](TzSoapWriter& writer) {
            TzSoapWriter child(&writer);
            TzSoapSimpleType late = intValue("late", 3);
            late.setIdAttribute("late");
            TzSoapReferenceType(TzXmlName("r"), late).acceptVisitor(child);
        }),
        envelope11("    <p:o xmlns:p=\"urn:p\">\n      <s id=\"seen\">1</s>\n"
                   "      <r href=\"#late\"/>\n    </p:o>\n    <late id=\"late\">3</late>\n"));
}

TEST(TzSoapWriter, ACopyOfAChildSharesAsTheChildDoes) {
    EXPECT_EQ(
        hooked([](TzSoapWriter& writer) {
            TzSoapWriter child(&writer);
            TzSoapWriter copy(child);
            TzSoapSimpleType late = intValue("late", 3);
            late.setIdAttribute("late");
            TzSoapReferenceType(TzXmlName("r"), late).acceptVisitor(copy);
        }),
        envelope11("    <p:o xmlns:p=\"urn:p\">\n      <s id=\"seen\">1</s>\n"
                   "      <r href=\"#late\"/>\n    </p:o>\n    <late id=\"late\">3</late>\n"));
}

TEST(TzSoapWriter, ACopyRemembersOnItsOwn) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    TzSoapSimpleType first = intValue("first", 1);
    first.setIdAttribute("1");
    TzSoapSimpleType second = intValue("second", 2);
    second.setIdAttribute("2");
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding/");
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("a"), first));
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("b"), second));
    first.acceptVisitor(writer); // remembered from now on

    TzSoapWriter copy(writer);
    second.acceptVisitor(copy); // remembered by the copy alone
    text.setString("");
    message.acceptVisitor(copy);
    EXPECT_EQ(text.getString().find("<first"), std::string::npos);
    EXPECT_EQ(text.getString().find("<second"), std::string::npos);
    text.setString("");
    message.acceptVisitor(writer);
    EXPECT_EQ(text.getString().find("<first"), std::string::npos);
    EXPECT_NE(text.getString().find("<second"), std::string::npos);
}

TEST(TzSoapWriter, AssignmentTakesEverythingOver) {
    TzXmlStringWriter mine;
    TzXmlStringWriter theirs;
    TzSoapWriter writer(&mine, nullptr);
    {
        TzSoapWriter other(&theirs, nullptr);
        other.setVersion(TzSoapVersion::V1_1);
        writer = other;
    }
    TzSoapWriter& same = writer;
    writer = same;
    intValue("a", 1).acceptVisitor(writer);
    EXPECT_EQ(mine.getString(), "");
    EXPECT_EQ(
        theirs.getString(),
        R"(<a xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">1</a>
)");
}

TEST(TzSoapWriter, ChildrenKeepTheirOwnSettings) {
    TzXmlStringWriter aside;
    EXPECT_EQ(hooked([&](TzSoapWriter& writer) {
                  TzSoapWriter child(&writer);
                  child.setWriter(&aside);
                  child.setVersion(TzSoapVersion::V1_2);
                  valueInP().acceptVisitor(child);
                  valueInP().acceptVisitor(writer);
              }),
              hookedText("      <p:v>2</p:v>\n"));
    // The prefixes are those of the outermost writer.
    EXPECT_EQ(aside.getString(),
              "<p:v SOAP-ENV:encodingStyle=\"http://www.w3.org/2002/06/soap-encoding\">2</p:v>\n");
}

TEST(TzSoapWriter, InsertsPartsWhereItIsToldTo) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    const TzSoapReferenceType attached(TzXmlName("a"), part);
    TzXmlStringWriter text;
    TzMimeMultipart first;
    TzMimeMultipart second;
    TzSoapWriter writer(&text, &first);
    attached.acceptVisitor(writer);
    writer.setMimeMultipart(&second);
    attached.acceptVisitor(writer);
    attached.acceptVisitor(writer);
    writer.setMimeMultipart(nullptr);
    attached.acceptVisitor(writer);
    EXPECT_EQ(first.getPartCount(), 1U);
    EXPECT_EQ(second.getPartCount(), 2U);
}

TEST(TzSoapWriter, KnowsWhetherEntriesLedToParts) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    const TzSoapReferenceType attachment(TzXmlName("a"), part);
    TzSoapCompositeType holder{TzXmlName("holder")};
    holder.setIdAttribute("h");
    holder.appendChild(attachment);
    const auto attached = [](const TzSoapType& entry, bool withMultipart) {
        TzXmlStringWriter text;
        TzMimeMultipart multipart;
        TzSoapWriter writer(&text, withMultipart ? &multipart : nullptr);
        encodedMessage(TzSoapVersion::V1_1, {entry}).acceptVisitor(writer);
        EXPECT_EQ(multipart.hasParts(), withMultipart);
        return TzSoapAccess::path(writer).context.book().entriesLedToParts();
    };
    EXPECT_EQ(attached(attachment, true), true);
    EXPECT_EQ(attached(holder, true), true);
    EXPECT_EQ(attached(attachment, false), false);
    // What is written because something refers to it is not an entry.
    EXPECT_EQ(attached(TzSoapReferenceType(TzXmlName("to"), holder), true), std::nullopt);
}

const char* const noCharacter = "the character U+0001 at offset 0 cannot stand in XML";

TEST(TzSoapWriter, TargetsThatAreLeftSurviveOneThatCannotBeWritten) {
    TzSoapSimpleType broken("b", std::string("\x01"), TzSoapType::xsdString, false);
    broken.setIdAttribute("b");
    TzSoapSimpleType unnoted("u", 1, TzSoapType::xsdInt, false);
    unnoted.setIdAttribute("u");
    unnoted.addAttribute(TzXmlName("bad"), "\x01");
    TzSoapSimpleType left = intValue("c", 1);
    left.setIdAttribute("c");
    const auto to = [](const TzSoapType& target) {
        return TzSoapReferenceType(TzXmlName("to"), target);
    };
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    const auto refusal = [&](const std::vector<TzSoapType>& entries) {
        return textThrown<TzXmlBadArgError>(
            [&] { encodedMessage(TzSoapVersion::V1_1, entries).acceptVisitor(writer); });
    };
    EXPECT_EQ(refusal({to(broken), to(unnoted), to(left)}), noCharacter);
    // Its start tag was written, so the first one is written; the second one does not.
    text.setString("");
    EXPECT_EQ(refusal({}), noCharacter);
    EXPECT_EQ(text.getString().find("<b "), std::string::npos) << text.getString();
    unnoted.removeAttribute(TzXmlName("bad"));
    text.setString("");
    encodedMessage(TzSoapVersion::V1_1, {intValue("e", 2)}).acceptVisitor(writer);
    EXPECT_EQ(text.getString(), envelope11(R"(    <e>2</e>
    <u id="u">1</u>
    <c id="c">1</c>
)"));
    text.setString("");
    encodedMessage(TzSoapVersion::V1_1, {intValue("e", 2)}).acceptVisitor(writer);
    EXPECT_EQ(text.getString(), envelope11("    <e>2</e>\n"));
}

TEST(TzSoapWriter, AfterATargetThatCannotBeWrittenEntriesAreEntriesAgain) {
    TzSoapSimpleType broken("b", std::string("\x01"), TzSoapType::xsdString, false);
    broken.setIdAttribute("b");
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    TzXmlStringWriter text;
    TzMimeMultipart multipart;
    TzSoapWriter writer(&text, &multipart);
    const TzSoapMessage refused =
        encodedMessage(TzSoapVersion::V1_1, {TzSoapReferenceType(TzXmlName("to"), broken)});
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { refused.acceptVisitor(writer); }), noCharacter);
    encodedMessage(TzSoapVersion::V1_1, {TzSoapReferenceType(TzXmlName("a"), part)})
        .acceptVisitor(writer);
    EXPECT_EQ(TzSoapAccess::path(writer).context.book().entriesLedToParts(), true);
}

TEST(TzSoapWriter, ChildrenStartWithTheSettingsOfTheirParent) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    TzXmlStringWriter text;
    TzMimeMultipart multipart;
    TzSoapWriter writer(&text, &multipart);
    TzSoapWriter child(&writer);
    TzSoapReferenceType(TzXmlName("a"), part).acceptVisitor(child);
    EXPECT_EQ(multipart.getPartCount(), 1U);

    // Within an envelope attributes are those of the version being written.
    TzSoapSimpleType value = intValue("v", 2);
    value.addAttribute(
        TzSoapVersion::getSoapAttributeName(TzSoapVersion::Actor, TzSoapVersion::V1_2), "urn:a");
    EXPECT_EQ(hooked([&](TzSoapWriter& inner) {
                  TzSoapWriter within(&inner);
                  value.acceptVisitor(within);
              }),
              hookedText("      <v SOAP-ENV:actor=\"urn:a\">2</v>\n"));
}

TEST(TzSoapWriter, AMessageWithinAnotherElementTakesThePrefixesOfTheOutermostWriter) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    TzSoapWriter child(&writer);
    TzSoapMessage(TzSoapVersion::V1_1).acceptVisitor(child);
    EXPECT_EQ(
        text.getString(),
        R"(<env:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:env="http://schemas.xmlsoap.org/soap/envelope/">
  <env:Body>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriter, AnEnvelopeOrAPartOnItsOwnEndsWithItsTag) {
    TzSoapType value("g");
    value.addAttribute(
        TzSoapVersion::getSoapAttributeName(TzSoapVersion::Actor, TzSoapVersion::V1_1), "urn:a");
    const std::string kept = R"(<g xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/")"
                             R"( SOAP-ENV:actor="urn:a">
</g>
)";
    TzSoapMessage message;
    const std::function<void(TzSoapWriter&)> before[] = {
        [&](TzSoapWriter& writer) { message.acceptVisitor(writer); },
        [&](TzSoapWriter& writer) { message.getSoapHeader().acceptVisitor(writer); },
        [&](TzSoapWriter& writer) { message.getSoapBody().acceptVisitor(writer); },
        [&](TzSoapWriter& writer) { message.getSoapBody().getSoapFault().acceptVisitor(writer); },
    };
    for (const auto& visit : before) {
        TzXmlStringWriter text;
        TzSoapWriter writer(&text, nullptr);
        visit(writer);
        text.setString("");
        value.acceptVisitor(writer);
        EXPECT_EQ(text.getString(), kept);
    }
}

TEST(TzSoapWriter, RefusesAVersionThatDoesNotExist) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    expectCatalogued<TzXmlError>(
        [&] { writer.setVersion(static_cast<TzSoapVersion::Version>(3)); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapWriter, EndsElementsAsTheyBeganWhateverAVisitorChanges) {
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {intValue("hook", 1)});
    message.setSoapPrefix("a-prefix-of-some-length");
    TzXmlStringWriter text;
    HookWriter writer(&text, [&message](TzSoapWriter&) {
        message.setSoapPrefix("another-prefix-of-some-length");
        TzSoapAccess::body(message.getSoapBody()).setName(TzXmlName("a-name-of-some-length"));
        TzSoapAccess::body(message.getSoapBody()).setName(TzXmlName("another-of-some-length"));
    });
    message.acceptVisitor(writer);
    EXPECT_TRUE(text.getString().ends_with("  <a-prefix-of-some-length:Body>\n"
                                           "  </a-prefix-of-some-length:Body>\n"
                                           "</a-prefix-of-some-length:Envelope>\n"))
        << text.getString();
}

TEST(TzSoapWriter, ElementsWriteThemselves) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapHeader().appendHeaderEntry(intValue("h", 1), true);
    message.getSoapBody().getSoapFault().setCode(TzXmlName("c"));
    message.getSoapBody().appendEntry(intValue("b", 2));
    EXPECT_EQ(message.asString(), wire(message));
    EXPECT_EQ(message.getSoapHeader().asString(), wire(message.getSoapHeader()));
    EXPECT_EQ(message.getSoapBody().asString(), wire(message.getSoapBody()));
    EXPECT_EQ(message.getSoapBody().getSoapFault().asString(),
              wire(message.getSoapBody().getSoapFault()));
    EXPECT_EQ(intValue("b", 2).asString(), wire(intValue("b", 2)));
}

/// What is written by a writer of a derived class for `levels` arrays within each other.
std::string deepArrays(unsigned int levels) {
    TzSoapType value = intValue("i", 1);
    for (unsigned int level = 1; level < levels; ++level) {
        if (level % 2 == 0) {
            TzSoapCompactArrayType array(TzXmlName("c"), "t:a", 1, 0);
            array(0) = value;
            value = array;
        } else {
            TzSoapSparseArrayType array(TzXmlName("s"), "t:a", 1);
            array(0) = value;
            value = array;
        }
    }
    TzXmlStringWriter text;
    HookWriter writer(&text, {});
    value.acceptVisitor(writer);
    return text.getString();
}

TEST(TzSoapWriter, WritesArraysUpToTheDepthLimit) {
    EXPECT_NE(deepArrays(TzSoapWriter::DepthLimit).find("<i"), std::string::npos);
    EXPECT_EQ(textThrown<TzXmlDomainError>([] { deepArrays(TzSoapWriter::DepthLimit + 1); }),
              "Elements nested deeper than 2000 levels are not written");
}

TEST(TzSoapWriter, AllocatesNothingPerElement) {
    const auto allocations = [](int members) {
        TzSoapCompositeType array("s");
        for (int i = 0; i < members; ++i) {
            TzSoapCompositeType one("item");
            one.appendChild(TzSoapSimpleType("text", "a text that fits in no small buffer at all",
                                             TzSoapType::xsdString, true));
            one.appendChild(TzSoapSimpleType("number", 5UL, TzSoapType::xsdUnsignedLong, true));
            array.appendChild(one);
        }
        const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {array});
        wire(message); // the types are set now
        TzXmlStringWriter text;
        text.setString(std::string(1 << 20, ' '));
        TzSoapWriter writer(&text, nullptr);
        const std::size_t before = madeAllocations();
        message.acceptVisitor(writer);
        return madeAllocations() - before;
    };
    // Only the text itself grows.
    EXPECT_LE(allocations(2000), allocations(20) + 2);
}

TEST(TzSoapWriter, UsualValuesAreWrittenAsAllOthers) {
    // The first value of each kind has something to declare, the others take the short way.
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("t", "urn:t")));
    for (int i = 0; i < 2; ++i) {
        TzSoapCompositeType inner(TzXmlName("s", TzXmlNamespace("t", "urn:t")));
        inner.setTypeAttribute(TzXmlName("S", TzXmlNamespace("t", "urn:t")));
        inner.appendChild(TzSoapSimpleType("a", "x<y", TzSoapType::xsdString, true));
        inner.appendChild(TzSoapSimpleType(TzXmlName("b", TzXmlNamespace("u", "urn:u")), "z",
                                           TzSoapType::xsdString, false));
        TzSoapSimpleType odd("c", "", TzSoapType::xsdString, false);
        odd.setTypeAttribute(TzXmlName("<&\""));
        inner.appendChild(odd);
        TzSoapSimpleType raw("d", "<e/>", TzSoapType::xsdString, true);
        raw.setEscapeText(TzSoapType::EscapeOff);
        inner.appendChild(raw);
        outer.appendChild(inner);
    }
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(outer);
    EXPECT_EQ(wire(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
    <t:o xmlns:t="urn:t" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
      <t:s xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:type="t:S">
        <a xsi:type="xsd:string">x&lt;y</a>
        <u:b xmlns:u="urn:u">z</u:b>
        <c xsi:type="&lt;&amp;&quot;"></c>
        <d xsi:type="xsd:string"><e/></d>
      </t:s>
      <t:s xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:type="t:S">
        <a xsi:type="xsd:string">x&lt;y</a>
        <u:b xmlns:u="urn:u">z</u:b>
        <c xsi:type="&lt;&amp;&quot;"></c>
        <d xsi:type="xsd:string"><e/></d>
      </t:s>
    </t:o>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriter, GivesEverythingBackWhenMemoryIsShort) {
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("p", "urn:p")));
    outer.setActor("urn:an actor that fits in no small buffer");
    outer.setIdAttribute("x");
    outer.appendChild(TzSoapReferenceType(TzXmlName("r"), outer));
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {outer});
    EXPECT_GT(failEachAllocation([&] { wire(message); }), 5U);
    outer.clearChildren();
}

} // namespace
