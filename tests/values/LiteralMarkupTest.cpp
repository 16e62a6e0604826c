// SPDX-License-Identifier: MIT
//
// Values made from markup, and elements that are kept as their source spells them.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

namespace {

const TzXmlNamespace Token("w", "urn:token");

TzSoapMessage messageWith(const TzSoapType& entry) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setStyle(TzSoapStyle::Literal);
    message.getSoapBody().appendEntry(entry);
    return message;
}

std::string envelope(const std::string& declarations, const std::string& body) {
    return R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/")" +
           declarations + "><SOAP-ENV:Body>" + body + "</SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

/// The error that markup for an element named "a" is refused with, its place included.
template <typename Error>
std::string refusal(const char* markup, const std::vector<TzXmlNamespace>& declarations = {}) {
    try {
        const TzSoapUserDefinedType value(TzXmlName("a"), markup, declarations);
        return "accepted: " + value.getMarkup();
    } catch (const Error& error) {
        return error.asString();
    }
}

TEST(LiteralMarkup, IsWrittenAsItIsSpelled) {
    const std::string markup = "<a  x='1'><!-- c --><b/>&#65;<![CDATA[<]]>\r\n</a >";
    const TzSoapUserDefinedType value(TzXmlName("a"), markup);
    EXPECT_EQ(value.getMarkup(), markup);
    EXPECT_EQ(value.getValue(), markup);
    EXPECT_EQ(value.getName(), TzXmlName("a"));
    EXPECT_EQ(messageWith(value).asString(), envelope("", markup));
    EXPECT_EQ(messageWith(value.copy()).asString(), envelope("", markup));
}

TEST(LiteralMarkup, WhatStandsAroundTheElementIsLeftOut) {
    const TzSoapUserDefinedType value(TzXmlName("a"), " <!-- c -->\n<a/> <!-- d -->");
    EXPECT_EQ(value.getMarkup(), "<a/>");
}

TEST(LiteralMarkup, DeclarationsThatItNeedsAreMadeAbove) {
    const TzSoapUserDefinedType value(TzXmlName("t", Token), "<w:t><q:u>x:y</q:u></w:t>",
                                      {Token, {"q", "urn:q"}, {"x", "urn:x"}});
    EXPECT_EQ(messageWith(value).asString(),
              envelope(R"( xmlns:q="urn:q" xmlns:w="urn:token" xmlns:x="urn:x")",
                       "<w:t><q:u>x:y</q:u></w:t>"));
}

TEST(LiteralMarkup, DeclarationsThatCannotStandAboveAreMadeOnTheElement) {
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("w", "urn:other")));
    outer.appendChild(TzSoapUserDefinedType(TzXmlName("t", Token), "<w:t/>", {Token}));
    outer.appendChild(TzSoapUserDefinedType(TzXmlName("d", TzXmlNamespace("", "urn:d")), "<d\n/>",
                                            {{"", "urn:d"}}));
    EXPECT_EQ(messageWith(outer).asString(),
              envelope(R"( xmlns:w="urn:other")",
                       R"(<w:o><w:t xmlns:w="urn:token"/><d xmlns="urn:d")"
                       "\n/></w:o>"));
}

TEST(LiteralMarkup, ItIsNotCapturedByADefaultNamespace) {
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("", "urn:o")));
    outer.appendChild(TzSoapUserDefinedType(TzXmlName("a"), "<a><b xmlns='urn:b'/></a>"));
    EXPECT_EQ(messageWith(outer).asString(),
              envelope("", R"(<o xmlns="urn:o"><a xmlns=""><b xmlns='urn:b'/></a></o>)"));
}

TEST(LiteralMarkup, APrefixThatTheElementDeclaresItselfNeedsNoOther) {
    const TzSoapUserDefinedType value(TzXmlName("t", Token), R"(<w:t xmlns:w="urn:token"/>)",
                                      {{"w", "urn:other"}});
    EXPECT_EQ(messageWith(value).asString(), envelope("", R"(<w:t xmlns:w="urn:token"/>)"));
}

TEST(LiteralMarkup, WhatIsNotOneWellFormedElementIsRefused) {
    EXPECT_EQ(refusal<TzXmlParseError>("<a><b></a>"), "mismatched tag, line 1, column 9");
    EXPECT_EQ(refusal<TzXmlParseError>("<a/><a/>"),
              "junk after document element, line 1, column 5");
    EXPECT_EQ(refusal<TzXmlParseError>(""), "no element found, line 1, column 1");
    EXPECT_EQ(refusal<TzXmlParseError>("text"), "syntax error, line 1, column 1");
    EXPECT_EQ(refusal<TzXmlParseError>("<a/></w><w>"),
              "not well-formed (invalid token), line 1, column 6");
    EXPECT_EQ(refusal<TzXmlParseError>("<!DOCTYPE a><a/>"),
              "a document type declaration is not accepted, line 1, column 12");
    EXPECT_EQ(refusal<TzXmlParseError>("<?xml version=\"1.0\"?><a/>"),
              "an XML declaration cannot stand within a message, line 1, column 1");
}

TEST(LiteralMarkup, PrefixesThatAreNotBoundAreRefused) {
    EXPECT_EQ(refusal<TzXmlParseError>("<a>\n <p:b/></a>"),
              R"(the prefix "p" is not bound, line 2, column 2)");
    EXPECT_EQ(refusal<TzXmlParseError>("<a p:x='1'/>"),
              R"(the prefix "p" is not bound, line 1, column 1)");
    EXPECT_EQ(refusal<TzXmlParseError>("<a p:x='1'/>", {{"p", ""}}),
              R"(the prefix "p" is not bound, line 1, column 1)");
    EXPECT_EQ(refusal<TzXmlParseError>("<a p:x='1' xml:lang='en'/>", {{"p", "urn:p"}}),
              "accepted: <a p:x='1' xml:lang='en'/>");
}

TEST(LiteralMarkup, AnotherElementThanTheNamedOneIsRefused) {
    EXPECT_EQ(refusal<TzXmlBadArgError>("<b/>"), R"(the markup is that of "b", not of "a")");
    EXPECT_EQ(refusal<TzXmlBadArgError>("<a xmlns='urn:a'/>").substr(0, 22),
              "the markup is that of ");
}

TEST(LiteralMarkup, AReaderMayAskForElementsAsMarkup) {
    const std::string token = "<w:t  a='1'><w:u xsi:type=\"x:T\"/>\r\n&#13;<w:t/></w:t >";
    const std::string text =
        R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" xmlns:w="urn:token" )"
        R"(xmlns:xsi="urn:i" xmlns:unused="urn:u"><e:Header>)" +
        token + "</e:Header><e:Body><o>" + token + "<c>1</c></o></e:Body></e:Envelope>";
    for (const TzSoapStyle style : {TzSoapStyle::Encoded, TzSoapStyle::Literal}) {
        TzSoapMessage message;
        message.setStyle(style);
        message.setMarkupElements({TzXmlName("t", Token)});
        message.extract(text);
        const auto inHeader =
            tzSoapAs<TzSoapUserDefinedType>(message.getSoapHeader().getChild("t"));
        const auto inBody = tzSoapAs<TzSoapUserDefinedType>(message.getSoapBody().getChild("o/t"));
        EXPECT_EQ(inHeader.getMarkup(), token);
        EXPECT_EQ(inBody.getMarkup(), token);
        EXPECT_EQ(inBody.findAttribute(TzXmlName("a"))->getValue(), "1");
        EXPECT_EQ(inBody.getDeclarations(), (std::vector<TzXmlNamespace>{Token, {"xsi", "urn:i"}}));
        EXPECT_EQ(message.getSoapBody().getChild("o/c").getSoapTypeId(), TzSoapType::Simple);
        if (style == TzSoapStyle::Literal) {
            EXPECT_EQ(message.asString(), text);
            EXPECT_EQ(messageWith(inBody).asString(),
                      envelope(R"( xmlns:w="urn:token" xmlns:xsi="urn:i")", token));
        }
    }
}

TEST(LiteralMarkup, InAnEncodedMessageAReferenceFindsIt) {
    TzSoapMessage message;
    message.setMarkupElements({TzXmlName("t")});
    message.extract(R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/"><e:Body>)"
                    R"(<a href="#1"/><t id="1"><b/></t></e:Body></e:Envelope>)");
    const TzSoapType found = message.getSoapBody().getChild("a");
    EXPECT_EQ(tzSoapAs<TzSoapUserDefinedType>(found).getMarkup(), R"(<t id="1"><b/></t>)");
}

TEST(LiteralMarkup, AHeaderEntryKeptAsMarkupIsProcessedLikeAnyOther) {
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.setMarkupElements({TzXmlName("t", Token)});
    message.extract(
        R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/"><e:Header>)"
        R"(<w:t xmlns:w="urn:token" e:mustUnderstand="1"/></e:Header><e:Body/></e:Envelope>)");
    EXPECT_TRUE(message.getSoapHeader().getChild("t").getMustUnderstand());
}

TEST(LiteralMarkup, SourcesInOtherEncodingsGiveUtf8) {
    const std::string start = R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/">)";
    const auto markupOf = [](const std::string& text) {
        TzSoapMessage message;
        message.setStyle(TzSoapStyle::Literal);
        message.setMarkupElements({TzXmlName("t")});
        message.extract(text);
        return std::string(
            tzSoapAs<TzSoapUserDefinedType>(message.getSoapBody().getChild("t")).getMarkup());
    };
    const auto in = [&](const std::string& encoding, const std::string& content) {
        return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" + start + "<e:Body><x>" +
               content + "</x><t>" + content + "</t></e:Body></e:Envelope>";
    };
    EXPECT_EQ(markupOf(in("ISO-8859-1", "\xE4\xA4")), "<t>\xC3\xA4\xC2\xA4</t>");
    EXPECT_EQ(markupOf(in("iso-8859-15", "\xE4\xA4")), "<t>\xC3\xA4\xE2\x82\xAC</t>");
    EXPECT_EQ(markupOf(in("UTF-8", "\xC3\xA4")), "<t>\xC3\xA4</t>");
    EXPECT_EQ(markupOf("\xEF\xBB\xBF" + in("UTF-8", "\xC3\xA4")), "<t>\xC3\xA4</t>");
    std::string wide = "\xFF\xFE";
    for (const char byte : in("UTF-16", "a")) {
        wide += byte;
        wide += '\0';
    }
    EXPECT_EQ(markupOf(wide), "<t>a</t>");
}

TEST(LiteralMarkup, ItStandsWhereItDidInALongText) {
    std::string text =
        R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/"><e:Body>)";
    for (int i = 0; i < 60'000; ++i) {
        text += "<a>some text</a>";
    }
    const std::string token = "<t>" + std::string(400'000, 'x') + "<u/></t>";
    text += token + "</e:Body></e:Envelope>";
    TzSoapMessage message;
    message.setMarkupElements({TzXmlName("t")});
    message.extract(text);
    const auto value = tzSoapAs<TzSoapUserDefinedType>(message.getSoapBody().getChild("t"));
    EXPECT_EQ(value.getMarkup(), token);
}

TEST(LiteralMarkup, AnEncodedMessageHasItToo) {
    TzSoapMessage message =
        messageWith(TzSoapUserDefinedType(TzXmlName("t", Token), "<w:t>1</w:t>", {Token}));
    message.setStyle(TzSoapStyle::Encoded);
    EXPECT_NE(
        message.asString().find(R"(<w:t SOAP-ENV:encodingStyle="" xmlns:w="urn:token">1</w:t>)"),
        std::string::npos)
        << message.asString();
}

} // namespace
