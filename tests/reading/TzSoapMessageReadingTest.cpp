// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/ReadValues.h"
#include "support/Throws.h"

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapTypeRegistry.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlInternalError.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

using namespace std::string_literals;

namespace {

using V = TzSoapVersion;

class TzSoapMessageReading : public ReadingBothVersions {
protected:
    TzSoapMessage read(const std::string& text) const { return readMessage(text); }
};

/// Expects a catalogued parse error with this text at a place.
void expectRefused(const std::string& text, const TzCatMsg* reason, const std::string& message,
                   std::size_t line, std::size_t column) {
    try {
        readMessage(text);
        ADD_FAILURE() << "accepted: " << text;
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getMessage().getId(), reason->id) << text;
        EXPECT_EQ(error.asString(), message) << text;
        EXPECT_EQ(error.getSource(), "") << text;
        EXPECT_EQ(error.getLine(), line) << text;
        EXPECT_EQ(error.getColumn(), column) << text;
    }
}

const std::string NoEnvelope = "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]";

/// The names of header entries, a stroke, the names of body entries.
std::string entriesOf(const TzSoapMessage& message) {
    std::string names;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        names += entry->getName().getLocalName();
    }
    names += '|';
    const TzSoapBody& body = message.getSoapBody();
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        names += entry->getName().getLocalName();
    }
    return names;
}

/// ASCII text in units of `size` bytes.
std::string widened(std::string_view text, std::size_t size, bool littleEndian) {
    std::string wide;
    for (const char character : text) {
        std::string unit(size, '\0');
        unit[littleEndian ? 0 : size - 1] = character;
        wide += unit;
    }
    return wide;
}

struct WideForm {
    const char* name;
    std::size_t size;
    bool littleEndian;
    std::string mark;
};

const WideForm WideForms[] = {
    {"UTF-16LE", 2, true, "\xFF\xFE"s},
    {"UTF-16BE", 2, false, "\xFE\xFF"s},
    {"UTF-32LE", 4, true, "\xFF\xFE\0\0"s},
    {"UTF-32BE", 4, false, "\0\0\xFE\xFF"s},
};

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapMessageReading);

TEST_P(TzSoapMessageReading, EnvelopeHeaderAndBodyAreRead) {
    const TzSoapMessage message =
        read("<?xml version=\"1.0\"?>\n" + wire.message("<h/>", "<a/><b/>"));
    EXPECT_EQ(message.getVersion(), GetParam());
    EXPECT_EQ(entriesOf(message), "h|ab");
    EXPECT_EQ(message.getName(), TzXmlName("Envelope", wire.names().getSoapEnv()));
}

TEST_P(TzSoapMessageReading, TheVersionIsThatOfTheEnvelope) {
    for (const auto before : {V::V1_1, V::V1_2}) {
        TzSoapMessage message(before);
        message.extract(wire.body("<a/>"));
        EXPECT_EQ(message.getVersion(), GetParam());
        EXPECT_EQ(message.getSoapHeader().getName().getUri(), wire.envelopeUri());
        EXPECT_EQ(message.getSoapBody().getName().getUri(), wire.envelopeUri());
        EXPECT_EQ(message.getSoapBody().getSoapFault().getName().getUri(), wire.envelopeUri());
    }
}

TEST_P(TzSoapMessageReading, PrefixesAreThoseOfTheText) {
    const TzSoapMessage message =
        read("<P:Envelope xmlns:P=\"" + wire.envelopeUri() + "\" xmlns:Q=\"" + wire.envelopeUri() +
             "\"><Q:Header/><P:Body/></P:Envelope>");
    EXPECT_EQ(message.getSoapPrefix(), "P");
    EXPECT_EQ(message.getSoapHeader().getName().getQualifiedName(), "Q:Header");
    EXPECT_EQ(message.getSoapBody().getName().getQualifiedName(), "P:Body");
    EXPECT_EQ(message.getSoapEncodingPrefix(), TzSoapMessage().getSoapEncodingPrefix());
}

TEST_P(TzSoapMessageReading, AnEnvelopeMayHaveNoPrefix) {
    const TzSoapMessage message = read("<Envelope xmlns=\"" + wire.envelopeUri() +
                                       "\"><Body><a xmlns=\"\"/></Body></Envelope>");
    EXPECT_EQ(message.getSoapPrefix(), "");
    EXPECT_EQ(entriesOf(message), "|a");
}

TEST_P(TzSoapMessageReading, AttributesOfTheEnvelopeAreKept) {
    const TzSoapMessage message =
        read(wire.envelope("", "xmlns:p=\"urn:p\" p:k=\"v\" e:encodingStyle=\"urn:a  urn:b\""));
    EXPECT_EQ(message.findNamespaceAttribute("p")->getValue(), "urn:p");
    EXPECT_EQ(message.findAttribute(TzXmlName("k", TzXmlNamespace("p", "urn:p")))->getValue(), "v");
    EXPECT_EQ(message.getEncodingStyleAttribute(), "urn:a  urn:b");
    EXPECT_FALSE(
        message.hasAttribute(TzSoapVersion::getSoapAttributeName(V::EncodingStyle, GetParam())));
    EXPECT_EQ(message.attributeCount(), 6U); // e, c, xsi, xsd, p, k
}

TEST_P(TzSoapMessageReading, AttributesOfHeaderAndBodyAreKept) {
    const TzSoapMessage message =
        read(wire.envelope("<e:Header k=\"v\" e:encodingStyle=\"urn:h\"/>"
                           "<e:Body xmlns:p=\"urn:p\" id=\"b\" e:encodingStyle=\"urn:b\"/>"));
    const TzSoapHeader& header = message.getSoapHeader();
    EXPECT_EQ(header.findAttribute(TzXmlName("k"))->getValue(), "v");
    EXPECT_EQ(header.getEncodingStyleAttribute(), "urn:h");
    EXPECT_EQ(header.attributeCount(), 1U);
    const TzSoapBody& body = message.getSoapBody();
    EXPECT_EQ(body.findNamespaceAttribute("p")->getValue(), "urn:p");
    EXPECT_EQ(body.getIdAttribute(), "b");
    EXPECT_EQ(body.getEncodingStyleAttribute(), "urn:b");
    EXPECT_EQ(body.attributeCount(), 2U);
}

TEST_P(TzSoapMessageReading, ASecondHeaderOrBodyAddsToTheFirst) {
    const TzSoapMessage message = read(wire.envelope(
        "<e:Body k=\"1\" e:encodingStyle=\"\"><a/></e:Body><e:Header l=\"1\"><h/></e:Header>"
        "<e:Body k=\"2\" m=\"3\" e:encodingStyle=\"\"><b/></e:Body>"
        "<e:Header l=\"2\"><i/></e:Header>"));
    EXPECT_EQ(entriesOf(message), "hi|ab");
    EXPECT_EQ(message.getSoapBody().findAttribute(TzXmlName("k"))->getValue(), "2");
    EXPECT_EQ(message.getSoapBody().findAttribute(TzXmlName("m"))->getValue(), "3");
    EXPECT_EQ(message.getSoapHeader().findAttribute(TzXmlName("l"))->getValue(), "2");
}

TEST_P(TzSoapMessageReading, TheOrderOfHeaderAndBodyDoesNotMatter) {
    EXPECT_EQ(entriesOf(read(wire.envelope("<e:Body><a/></e:Body><e:Header><h/></e:Header>"))),
              "h|a");
}

TEST_P(TzSoapMessageReading, HeaderAndBodyMayBeMissing) {
    EXPECT_EQ(entriesOf(read(wire.envelope("<e:Header><h/></e:Header>"))), "h|");
    EXPECT_EQ(entriesOf(read(wire.envelope("<e:Body><a/></e:Body>"))), "|a");
    EXPECT_EQ(entriesOf(read(wire.envelope(""))), "|");
    EXPECT_EQ(entriesOf(read(wire.envelope("\n text \n"))), "|");
}

TEST_P(TzSoapMessageReading, AFaultBesideEntriesIsRead) {
    const std::string code = GetParam() == V::V1_1
                                 ? "<faultcode>e:Server</faultcode>"
                                 : "<e:Code><e:Value>e:Receiver</e:Value></e:Code>";
    const TzSoapMessage message =
        read(wire.body("<a/><e:Fault xmlns:d=\"urn:d\">" + code + "</e:Fault><b/>"));
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(message.getSoapBody().getSoapFault().getCode().getUri(), wire.envelopeUri());
    EXPECT_EQ(entriesOf(message), "|ab");
}

TEST_P(TzSoapMessageReading, AFaultInTheHeaderIsAnEntry) {
    EXPECT_EQ(entriesOf(read(wire.message("<e:Fault/>", ""))), "Fault|");
}

TEST_P(TzSoapMessageReading, TheEnvelopesOfSimilarNamespacesAreTheSame) {
    // With another last character, or without it.
    const std::string uri = wire.envelopeUri().substr(0, wire.envelopeUri().size() - 1);
    for (const std::string& similar : {uri, uri + "X"}) {
        const TzSoapMessage message =
            read("<e:Envelope xmlns:e=\"" + similar +
                 "\"><e:Header><h/></e:Header><e:Body><a/></e:Body></e:Envelope>");
        EXPECT_EQ(message.getVersion(), GetParam()) << similar;
        EXPECT_EQ(message.getName().getUri(), similar);
        EXPECT_EQ(entriesOf(message), "h|a") << similar;
    }
}

TEST_P(TzSoapMessageReading, ATextWithoutATagHoldsNoEnvelope) {
    for (const char* text : {"", "x", "Envelope", "&lt;Envelope/>", "\xFF\xFE", "\xEF\xBB\xBF"}) {
        expectRefused(text, tzsoap_NO_SOAP_ENVELOPE(), NoEnvelope, 1, 1);
    }
}

TEST_P(TzSoapMessageReading, TheFirstElementIsTheEnvelope) {
    expectRefused("<a>\n" + wire.envelope("") + "</a>", tzsoap_NO_SOAP_ENVELOPE(), NoEnvelope, 1,
                  1);
    expectRefused("<?xml version=\"1.0\"?>\n <e:envelope xmlns:e=\"" + wire.envelopeUri() + "\"/>",
                  tzsoap_NO_SOAP_ENVELOPE(), NoEnvelope, 2, 2);
    expectRefused("<e:Body xmlns:e=\"" + wire.envelopeUri() + "\"/>", tzsoap_NO_SOAP_ENVELOPE(),
                  NoEnvelope, 1, 1);
}

TEST_P(TzSoapMessageReading, AnEnvelopeOfAnotherNamespaceIsOfAnUnknownVersion) {
    for (const char* uri : {"http://www.w3.org/2003/05/soap-envelope", "urn:x",
                            "http://www.w3.org/2002/06/soap-envel"}) {
        expectRefused("\n<e:Envelope xmlns:e=\"" + std::string(uri) + "\"/>",
                      tzsoap_UNKNOWN_VERSION(),
                      "[UNKNOWN_VERSION][SOAP Version specified by URI \"" + std::string(uri) +
                          "\" is unknown ]",
                      1, 1);
    }
    for (const char* text : {"<Envelope/>", "<e:Envelope/>", "<Envelope xmlns=\"\"/>"}) {
        expectRefused(text, tzsoap_UNKNOWN_VERSION(),
                      "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]", 1, 1);
    }
}

TEST_P(TzSoapMessageReading, OtherChildrenOfTheEnvelopeAreRefused) {
    const struct {
        std::string children;
        const char* name;
        std::size_t line;
    } cases[] = {
        {"\n<Trailer/>", "Trailer", 2},
        {"\n<e:Trailer/>", "Trailer", 2},
        {"<e:Header/>\n<e:Body/>\n<e:Trailer/>", "Trailer", 3},
        {"\n<Body/>", "Body", 2},
        {"\n<x:Body xmlns:x=\"urn:x\"/>", "Body", 2},
        {"\n<e:body/>", "body", 2},
        {"\n<e:Envelope/>", "Envelope", 2},
        {"\n<e:Fault/>", "Fault", 2},
    };
    for (const auto& one : cases) {
        expectRefused(wire.envelope(one.children), tzsoap_UNKNOWN_SOAP_ELEMENT(),
                      "[UNKNOWN_SOAP_ELEMENT][Element \"" + std::string(one.name) +
                          "\" is NOT in the SOAP Grammar ]",
                      one.line, 1);
    }
}

TEST_P(TzSoapMessageReading, PartsOfTheOtherVersionAreRefused) {
    const WireForm other(GetParam() == V::V1_1 ? V::V1_2 : V::V1_1);
    expectRefused(wire.envelope("\n<o:Body xmlns:o=\"" + other.envelopeUri() + "\"/>"),
                  tzsoap_UNKNOWN_SOAP_ELEMENT(),
                  "[UNKNOWN_SOAP_ELEMENT][Element \"Body\" is NOT in the SOAP Grammar ]", 2, 1);
}

TEST_P(TzSoapMessageReading, WhatTheParserFindsIsPassedOnWithItsPlace) {
    for (const std::string& text :
         {wire.envelope("\n<e:Body>\n</a>"),
          "\n<e:Envelope xmlns:e=\"" + wire.envelopeUri() + "\">\n<",
          "<!DOCTYPE a>\n" + wire.envelope(""), wire.envelope("") + "<a/>",
          wire.envelope("<e:Body>&nbsp;</e:Body>"), wire.envelope("") + "\n" + wire.envelope("")}) {
        try {
            readMessage(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const TzXmlParseError& error) {
            EXPECT_GE(error.getLine(), 1U) << text;
            EXPECT_GE(error.getColumn(), 1U) << text;
            EXPECT_NE(error.asString(), "") << text;
        }
    }
}

TEST_P(TzSoapMessageReading, AnEventInAnImpossibleStateIsAnInternalError) {
    TzSoapMessage message = read(wire.body("<a/>"));
    expectCatalogued<TzXmlInternalError>(
        [&] {
            TzSoapAccess::body(message).startElement(TzXmlName("Envelope"), TzXmlAttributeSet());
        },
        tzsoap_INTERNAL_ERROR()->id,
        "[INTERNAL_ERROR][Internal Logic Error in file \"..\\TzSoapMessageImp\", line \"252\" ]");
}

TEST_P(TzSoapMessageReading, APartWithoutABodyIsNotReadInto) {
    TzSoapMessage headless;
    const TzSoapHeader header = std::move(headless.getSoapHeader());
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { headless.extract(wire.message("", "")); }),
              "Invalid pointer");
    TzSoapMessage bodiless;
    const TzSoapBody body = std::move(bodiless.getSoapBody());
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { bodiless.extract(wire.body("")); }),
              "Invalid pointer");
}

TEST_P(TzSoapMessageReading, ASecondTextReplacesTheFirst) {
    TzSoapMessage message;
    const WireForm other(GetParam() == V::V1_1 ? V::V1_2 : V::V1_1);
    message.setProlog(TzXmlProlog());
    message.extract(other.envelope(
        "<e:Header k=\"v\" e:encodingStyle=\"urn:h\"><h/></e:Header>"
        "<e:Body "
        "k=\"v\"><a/><e:Fault><faultcode>x</faultcode><e:Code><e:Value>x</e:Value><e:Subcode>"
        "<e:Value>y</e:Value></e:Subcode></e:Code></e:Fault></e:Body>",
        "k=\"v\" e:encodingStyle=\"\""));
    message.extract(wire.message("<i/>", "<b/>"));
    EXPECT_EQ(message.getVersion(), GetParam());
    EXPECT_EQ(entriesOf(message), "i|b");
    EXPECT_FALSE(message.hasProlog());
    EXPECT_FALSE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(message.getSoapBody().getSoapFault().getSubcodeCount(), 0U);
    EXPECT_FALSE(message.hasAttribute(TzXmlName("k")));
    EXPECT_FALSE(message.getSoapHeader().hasAttribute(TzXmlName("k")));
    EXPECT_FALSE(message.getSoapHeader().hasEncodingStyleAttribute());
    EXPECT_FALSE(message.getSoapBody().hasAttribute(TzXmlName("k")));
}

TEST_P(TzSoapMessageReading, ReadingKeepsRegistryEncodingPrefixAndLimits) {
    TzSoapMessage message;
    message.getTypeRegistry().registerType(TzXmlName("a"), TzXmlName("t"));
    message.setSoapEncodingPrefix("mine");
    TzSoapReadLimits limits;
    limits.depth = 7;
    message.setReadLimits(limits);
    message.extract(wire.body("<a/>"));
    EXPECT_TRUE(message.getTypeRegistry().typeExists(TzXmlName("a")));
    EXPECT_EQ(message.getSoapEncodingPrefix(), "mine");
    EXPECT_EQ(message.getReadLimits().depth, 7U);
}

TEST_P(TzSoapMessageReading, HandlesOfHeaderAndBodyStayThoseOfTheMessage) {
    TzSoapMessage message;
    const TzSoapBody body = message.getSoapBody();
    const TzSoapMessage shared = message;
    message.extract(wire.body("<a/>"));
    EXPECT_EQ(body.entryCount(), 1U);
    EXPECT_EQ(entriesOf(shared), "|a");
}

TEST_P(TzSoapMessageReading, WhatIsNotASoapMessageLeavesTheContent) {
    TzSoapMessage message = read(wire.body("<a/>"));
    expectCatalogued<TzXmlParseError>(
        [&] { message.extract("<Envelope xmlns=\"urn:x\"/>"); }, 0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI \"urn:x\" is unknown ]");
    EXPECT_EQ(entriesOf(message), "|a");
}

TEST_P(TzSoapMessageReading, AfterAnErrorTheMessageReadsTheNextText) {
    TzSoapMessage message;
    const std::string good = wire.message("<h>1</h>", "<a><b>2</b></a>");
    const std::string whole = read(good).asString();
    const std::pair<std::string, std::string> bad[] = {
        {"no tag", "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]"},
        {"<a/>", "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]"},
        {wire.envelope("<x/>"),
         "[UNKNOWN_SOAP_ELEMENT][Element \"x\" is NOT in the SOAP Grammar ]"},
        {wire.envelope("<e:Body><a><b><c " + wire.ref("x") + "><d/></c></b></a></e:Body>"),
         "[ILLEGAL_REFERENCE][Per SOAP, reference accessor(element with a href attribute) is an "
         "empty element.]"},
        {wire.envelope("<e:Body e:encodingStyle=\"urn:f\"><a><b>"),
         "mismatched tag, line 1, column "},
        {wire.envelope("<e:Body><a id=\"x\"/><b " + wire.array("xsd:int", "3") + "><c " +
                       wire.position("9") + "/></b></e:Body>"),
         "[INDEX_RANGE_VEC][Index vector 9 out of range 0 -> 3]"},
    };
    for (const auto& each : bad) {
        const std::string& text = each.first;
        SCOPED_TRACE(text);
        EXPECT_THAT(errorOf([&] { message.extract(text); }), testing::StartsWith(each.second));
        message.extract(good);
        EXPECT_EQ(message.asString(), whole);
    }
}

// Where the document begins.

TEST_P(TzSoapMessageReading, WhatStandsBeforeTheDocumentIsSkipped) {
    const std::string text = wire.body("<a>1</a>");
    const std::string declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + text;
    for (const std::string& before :
         {""s, " "s, "\r\n"s, "POST / HTTP/1.0\r\nContent-Type: text/xml\r\n\r\n"s, "\xEF\xBB\xBF"s,
          "\0"s, "\0\0"s, "&>]]>"s, std::string(1000, 'x')}) {
        EXPECT_EQ(textOf(bodyEntry(read(before + text))), "1") << before;
        EXPECT_EQ(textOf(bodyEntry(read(before + declared))), "1") << before;
    }
}

TEST_P(TzSoapMessageReading, WideTextIsReadInBothOrdersWithAMark) {
    for (const WideForm& form : WideForms) {
        for (const std::string& declaration :
             {""s, "<?xml version=\"1.0\"?>"s,
              "<?xml version=\"1.0\" encoding=\"" + std::string(form.name).substr(0, 6) + "\"?>"}) {
            const std::string text = form.mark + widened(declaration + wire.body("<a>1</a>"),
                                                         form.size, form.littleEndian);
            EXPECT_EQ(textOf(bodyEntry(read(text))), "1") << form.name << declaration;
            EXPECT_EQ(textOf(bodyEntry(read("HTTP/1.1 200 OK\r\n\r\n" + text))), "1") << form.name;
        }
    }
}

TEST_P(TzSoapMessageReading, WideTextWithADeclarationIsReadInBothOrdersWithoutAMark) {
    for (const WideForm& form : WideForms) {
        const std::string text = widened("<?xml version=\"1.0\"?>" + wire.body("<a>1</a>"),
                                         form.size, form.littleEndian);
        EXPECT_EQ(textOf(bodyEntry(read(text))), "1") << form.name;
    }
}

TEST_P(TzSoapMessageReading, WideTextThatNothingMarksIsReadWhereItBeginsWithATag) {
    for (const WideForm& form : WideForms) {
        const std::string text = widened(wire.body("<a>1</a>"), form.size, form.littleEndian);
        if (form.name == "UTF-16BE"s) { // its first byte says nothing
            EXPECT_THAT(textThrown<TzXmlParseError>([&] { read(text); }),
                        testing::StartsWith("not well-formed (invalid token), line 1, column "));
        } else {
            EXPECT_EQ(textOf(bodyEntry(read(text))), "1") << form.name;
        }
    }
}

TEST_P(TzSoapMessageReading, TheLastMarkBeforeTheDocumentCounts) {
    const std::string text = "\xFF\xFE"s + widened(wire.body("<a>1</a>"), 2, true);
    EXPECT_EQ(textOf(bodyEntry(read("\xFE\xFF\xFF\xFE x"s + text))), "1");
}

TEST_P(TzSoapMessageReading, TheWideFormsOfACharacterOutsideOfAsciiAreTheSame) {
    const std::string plain = wire.body("<a>|</a>");
    const std::size_t at = plain.find('|');
    const std::string utf16 = "\xFF\xFE"s + widened(plain.substr(0, at), 2, true) + "\xAC\x20"s +
                              "\x3D\xD8\x00\xDE"s + widened(plain.substr(at + 1), 2, true);
    EXPECT_EQ(textOf(bodyEntry(read(utf16))), "\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST_P(TzSoapMessageReading, OtherEncodingsAreReadAsDeclared) {
    for (const auto& [encoding, bytes, text] :
         {std::tuple("ISO-8859-1", "\xFC", "\xC3\xBC"),
          std::tuple("windows-1252", "\x80", "\xE2\x82\xAC"),
          std::tuple("ISO-8859-15", "\xA4", "\xE2\x82\xAC"), std::tuple("US-ASCII", "u", "u"),
          std::tuple("UTF-8", "\xC3\xBC", "\xC3\xBC")}) {
        const std::string message = "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) +
                                    "\"?>" + wire.body("<a>" + std::string(bytes) + "</a>");
        EXPECT_EQ(textOf(bodyEntry(read(message))), text) << encoding;
    }
}

TEST_P(TzSoapMessageReading, TextsOfAFewBytesAreRefused) {
    for (const std::string& text : {"<"s, "<?"s, "<\0"s, "\0<"s, "\0<\0"s, "\0\0<"s, "\0\0\0<"s,
                                    "\xFF\xFE<"s, "\xFF\xFE<\0"s, "\xFE\xFF\0<"s, "<a"s, "<>"s}) {
        EXPECT_EQ(textThrown<TzXmlParseError>([&] { readMessage(text); }),
                  text == "<>" ? "not well-formed (invalid token), line 1, column 2"
                               : "unclosed token, line 1, column 1")
            << testing::PrintToString(text);
    }
}
