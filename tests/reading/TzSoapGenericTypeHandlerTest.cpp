// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "support/ReadValues.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapEncodingStyleTypeRegistry.h>
#include <soap/TzSoapTypeRegistry.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using Base = TzSoapContentBase;
using V = TzSoapVersion;

const WireForm wire11{V::V1_1};
const WireForm wire12{V::V1_2};

class TzSoapGenericTypeHandlerReading : public ReadingBothVersions {
protected:
    /// The kind that the only body entry reads as.
    std::string kindOf(const std::string& entry) const { return kindIn(wire.body(entry)); }
    static std::string kindIn(const std::string& text) {
        return bodyEntry(readMessage(text)).getSoapTypeIdAsString();
    }
    std::string style(const std::string& uri) const { return "e:encodingStyle=\"" + uri + "\""; }
};

/// What the application decodes itself, in a registry of all messages, so under a style that only
/// these tests know.
const char* const RegisteredUri12 = "http://www.w3.org/2002/06/soap-encodinX";
const char* const RegisteredUri11 = "http://schemas.xmlsoap.org/soap/encodingX";

std::string registeredStyle(V::Version version) {
    const char* uri = version == V::V1_1 ? RegisteredUri11 : RegisteredUri12;
    static const bool once = [] {
        auto* registry = TzSoapEncodingStyleTypeRegistry::getRegistry();
        for (const char* style : {RegisteredUri11, RegisteredUri12}) {
            registry->registerType(style, TzXmlName("mine", TzXmlNamespace("t", "urn:t")));
            registry->registerType(style, TzXmlName());
        }
        return true;
    }();
    EXPECT_TRUE(once);
    return uri;
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapGenericTypeHandlerReading);

TEST_P(TzSoapGenericTypeHandlerReading, WithoutMarksTheContentDecides) {
    EXPECT_EQ(kindOf("<a/>"), "Simple");
    EXPECT_EQ(kindOf("<a>text</a>"), "Simple");
    EXPECT_EQ(kindOf("<a><b/></a>"), "Composite");
    EXPECT_EQ(kindOf("<a>text<b/>text</a>"), "Composite");
    EXPECT_EQ(kindOf("<a><!--b--></a>"), "Simple");
}

TEST_P(TzSoapGenericTypeHandlerReading, AReferenceAttributeMakesAReference) {
    const auto read = reference(bodyEntry(readMessage(wire.body("<a " + wire.ref("x") + "/>"))));
    EXPECT_FALSE(read.isMimeReference());
    EXPECT_FALSE(read.hasReference());
}

TEST(TzSoapGenericTypeHandler11, HrefIsAReferenceToAValueWithAMarkOfAFragmentAndToAPartWithout) {
    for (const char* href : {"#x", "#"}) {
        const auto read =
            bodyEntry(readMessage(wire11.body("<a href=\"" + TzCString(href) + "\"/>")));
        EXPECT_FALSE(reference(read).isMimeReference()) << href;
    }
    for (const char* href : {"cid:x", "x", "", " #x", "http://example.org/#x"}) {
        const auto read =
            bodyEntry(readMessage(wire11.body("<a href=\"" + TzCString(href) + "\"/>")));
        EXPECT_TRUE(reference(read).isMimeReference()) << href;
    }
}

TEST(TzSoapGenericTypeHandler11, RefSaysNothing) {
    EXPECT_EQ(bodyEntry(readMessage(wire11.body("<a ref=\"#x\"/>"))).getSoapTypeId(), Base::Simple);
}

TEST(TzSoapGenericTypeHandler12, RefIsAReferenceToAValueWhateverItSays) {
    for (const char* ref : {"#x", "x", "cid:x", ""}) {
        const auto read =
            bodyEntry(readMessage(wire12.body("<a ref=\"" + TzCString(ref) + "\"/>")));
        EXPECT_FALSE(reference(read).isMimeReference()) << ref;
    }
}

TEST(TzSoapGenericTypeHandler12, HrefIsAReferenceToAPartWhateverItSays) {
    for (const char* href : {"#x", "x", "cid:x", ""}) {
        const auto read =
            bodyEntry(readMessage(wire12.body("<a href=\"" + TzCString(href) + "\"/>")));
        EXPECT_TRUE(reference(read).isMimeReference()) << href;
    }
}

TEST(TzSoapGenericTypeHandler12, RefComesBeforeHref) {
    const auto read = bodyEntry(readMessage(wire12.body("<a href=\"cid:x\" ref=\"#x\"/>")));
    EXPECT_FALSE(reference(read).isMimeReference());
}

TEST_P(TzSoapGenericTypeHandlerReading, OnlyUnqualifiedReferenceAttributesCount) {
    EXPECT_EQ(kindOf("<a c:href=\"#x\" c:ref=\"#x\" e:href=\"#x\"/>"), "Simple");
}

TEST_P(TzSoapGenericTypeHandlerReading, AReferenceComesBeforeAnArray) {
    EXPECT_EQ(kindOf("<a " + wire.array("xsd:int", "2") + " " + wire.ref("x") + "/>"), "Reference");
}

TEST_P(TzSoapGenericTypeHandlerReading, ArrayAttributesMakeAnArray) {
    const auto array =
        compact(bodyEntry(readMessage(wire.body("<a " + wire.array("xsd:int", "2") + "/>"))));
    EXPECT_EQ(array.getElementType(), "xsd:int");
    EXPECT_EQ(array.getBounds(), std::vector<unsigned int>{2});
}

TEST(TzSoapGenericTypeHandler11, TheAttributesOfSoap12MakeNoArray) {
    const auto read = bodyEntry(
        readMessage(wire11.body("<a c:itemType=\"xsd:int\" c:arraySize=\"2\" xmlns:n=\"" +
                                wire12.style() + "\" n:itemType=\"xsd:int\" n:arraySize=\"2\"/>")));
    EXPECT_EQ(read.getSoapTypeId(), Base::Simple);
}

TEST(TzSoapGenericTypeHandler12, TheAttributeOfSoap11MakesNoArray) {
    const auto read =
        bodyEntry(readMessage(wire12.body("<a c:arrayType=\"xsd:int[2]\" xmlns:n=\"" +
                                          wire11.style() + "\" n:arrayType=\"xsd:int[2]\"/>")));
    EXPECT_EQ(read.getSoapTypeId(), Base::Simple);
}

TEST_P(TzSoapGenericTypeHandlerReading, UnqualifiedArrayAttributesSayNothing) {
    EXPECT_EQ(kindOf("<a arrayType=\"xsd:int[2]\" itemType=\"xsd:int\" arraySize=\"2\"/>"),
              "Simple");
}

TEST(TzSoapGenericTypeHandler12, ItemTypeOrArraySizeAloneMakesAnArray) {
    const auto typed = compact(bodyEntry(readMessage(wire12.body("<a c:itemType=\"xsd:int\"/>"))));
    EXPECT_EQ(typed.getElementType(), "xsd:int");
    EXPECT_EQ(typed.getBounds(), std::vector<unsigned int>{0});
    const auto sized = compact(bodyEntry(readMessage(wire12.body("<a c:arraySize=\"2 3\"/>"))));
    EXPECT_EQ(sized.getElementType(), "");
    EXPECT_EQ(sized.getBounds(), (std::vector<unsigned int>{2, 3}));
}

TEST(TzSoapGenericTypeHandler11, AnArrayTypeWithoutSizeIsAnOpenArrayOfNoType) {
    const auto array = compact(bodyEntry(readMessage(wire11.body("<a c:arrayType=\"xsd:int\"/>"))));
    EXPECT_EQ(array.getElementType(), "");
    EXPECT_EQ(array.getBounds(), std::vector<unsigned int>{0});
}

TEST(TzSoapGenericTypeHandler11, TheLastBracketsOfAnArrayTypeAreItsSize) {
    const auto array =
        compact(bodyEntry(readMessage(wire11.body("<a c:arrayType=\"xsd:int[][3]\"/>"))));
    EXPECT_EQ(array.getElementType(), "xsd:int[]");
    EXPECT_EQ(array.getBounds(), std::vector<unsigned int>{3});
}

// Encoding styles.

TEST_P(TzSoapGenericTypeHandlerReading, TheNearestStyleDecides) {
    const std::string foreign = style("urn:foreign");
    const std::string soap = style(wire.style());
    const std::string none = style("");
    const std::string entry = "<a>x</a>";
    const struct {
        std::string text;
        const char* kind;
    } cases[] = {
        {wire.body(entry), "Simple"},
        // own
        {wire.body("<a " + foreign + ">x</a>"), "UserDefined"},
        {wire.body("<a " + soap + ">x</a>"), "Simple"},
        {wire.body("<a " + none + ">x</a>"), "Simple"},
        {wire.body("<a " + style("  \t ") + ">x</a>"), "Simple"},
        {wire.body("<a " + style("&#10;urn:foreign " + wire.style()) + ">x</a>"), "UserDefined"},
        {wire.body("<a " + style(wire.style() + " urn:foreign") + ">x</a>"), "Simple"},
        {wire.body("<a encodingStyle=\"urn:foreign\">x</a>"), "Simple"},
        {wire.body("<a c:encodingStyle=\"urn:foreign\">x</a>"), "Simple"},
        // of the envelope
        {wire.body(entry, foreign), "UserDefined"},
        {wire.body(entry, soap), "Simple"},
        {wire.body(entry, none), "Simple"},
        {wire.body("<a " + soap + ">x</a>", foreign), "Simple"},
        {wire.body("<a " + none + ">x</a>", foreign), "Simple"},
        {wire.body("<a " + foreign + ">x</a>", soap), "UserDefined"},
        // of the body
        {wire.envelope("<e:Body " + foreign + ">" + entry + "</e:Body>"), "UserDefined"},
        {wire.envelope("<e:Body " + soap + ">" + entry + "</e:Body>", foreign), "Simple"},
        {wire.envelope("<e:Body " + none + ">" + entry + "</e:Body>", foreign), "Simple"},
        {wire.envelope("<e:Body " + foreign + "><a " + none + ">x</a></e:Body>"), "Simple"},
        // of something that has ended
        {wire.envelope("<e:Header " + foreign + "/><e:Body>" + entry + "</e:Body>"), "Simple"},
        {wire.envelope("<e:Header><h " + foreign + "/></e:Header><e:Body>" + entry + "</e:Body>"),
         "Simple"},
        {wire.envelope("<e:Body " + foreign + "/><e:Body>" + entry + "</e:Body>"), "Simple"},
        {wire.envelope("<e:Body " + none + "/><e:Body>" + entry + "</e:Body>", foreign),
         "UserDefined"},
        {wire.envelope("<e:Body " + soap + "/><e:Body>" + entry + "</e:Body>", foreign),
         "UserDefined"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(kindIn(one.text), one.kind) << one.text;
    }
}

TEST_P(TzSoapGenericTypeHandlerReading, AStyleHoldsForAllItsElementHoldsAndForNothingBehindIt) {
    const TzSoapMessage message =
        readMessage(wire.body("<a " + style(wire.style()) + "><b " + style("urn:foreign") +
                                  "/><c><d/></c></a><f/>"
                                  "<g " +
                                  style("") + "><h/></g><i/>",
                              style("urn:outer")));
    EXPECT_EQ(child(bodyEntry(message, 0), "b").getSoapTypeId(), Base::UserDefined);
    EXPECT_EQ(child(child(bodyEntry(message, 0), "c"), "d").getSoapTypeId(), Base::Simple);
    EXPECT_EQ(bodyEntry(message, 1).getSoapTypeId(), Base::UserDefined);
    EXPECT_EQ(child(bodyEntry(message, 2), "h").getSoapTypeId(), Base::Simple);
    EXPECT_EQ(bodyEntry(message, 3).getSoapTypeId(), Base::UserDefined);
}

TEST_P(TzSoapGenericTypeHandlerReading, TheStyleOfEachKindOfChildEndsWithIt) {
    const std::string soap = style(wire.style());
    for (const std::string& first :
         {"<a " + soap + "/>", "<a " + soap + "><b/></a>",
          "<a " + soap + " " + wire.ref("x") + "/>",
          "<a " + soap + " " + wire.array("xsd:int", "1") + "><b/></a>",
          "<a " + soap + " " + wire.array("xsd:int", "1") + "/>",
          "<a " + soap + " " + wire.array("xsd:int", "5") + "><b " + wire.position("1") + "/></a>",
          "<a " + style("urn:other") + "/>",
          "<a " + style("urn:other") + "><b " + style("") + "/></a>"}) {
        const TzSoapMessage message = readMessage(wire.body(first + "<z/>", style("urn:foreign")));
        EXPECT_EQ(bodyEntry(message, 1).getSoapTypeId(), Base::UserDefined) << first;
    }
}

TEST_P(TzSoapGenericTypeHandlerReading, TheStyleOfADetailHoldsForItsEntries) {
    const auto fault = [](const std::string& detail) {
        return GetParam() == V::V1_1
                   ? "<e:Fault><faultcode>x</faultcode><detail " + detail + "</detail></e:Fault>"
                   : "<e:Fault><e:Code><e:Value>x</e:Value></e:Code><e:Detail " + detail +
                         "</e:Detail></e:Fault>";
    };
    const std::string foreign = style("urn:foreign");
    const struct {
        std::string text;
        const char* detail;
        const char* entry; // after the fault
    } cases[] = {
        {wire.body(fault("><d/>") + "<a/>"), "Simple", "Simple"},
        {wire.body(fault(foreign + "><d/>") + "<a/>"), "UserDefined", "Simple"},
        {wire.body(fault("><d/>") + "<a/>", foreign), "UserDefined", "UserDefined"},
        {wire.body(fault(style("") + "><d/>") + "<a/>", foreign), "Simple", "UserDefined"},
        {wire.body(fault("><c " + foreign + "/><d/>") + "<a/>"), "Simple", "Simple"},
    };
    for (const auto& one : cases) {
        const TzSoapMessage message = readMessage(one.text);
        const TzSoapCompositeType& details = message.getSoapBody().getSoapFault().getDetails();
        EXPECT_EQ(child(details, "d").getSoapTypeIdAsString(), one.detail) << one.text;
        EXPECT_EQ(bodyEntry(message).getSoapTypeIdAsString(), one.entry) << one.text;
    }
    const TzSoapMessage before = readMessage(wire.body("<a " + foreign + "/>" + fault("><d/>")));
    EXPECT_EQ(child(before.getSoapBody().getSoapFault().getDetails(), "d").getSoapTypeIdAsString(),
              "Simple")
        << "the style of the entry before has ended";
}

TEST_P(TzSoapGenericTypeHandlerReading, AStyleServesTheMembersOfArrays) {
    const TzSoapMessage message =
        readMessage(wire.body("<a " + style(wire.style()) + " " + wire.array("xsd:int", "2") +
                                  "><b>1</b><b " + style("urn:x") + ">2</b></a>",
                              style("urn:foreign")));
    const auto array = compact(bodyEntry(message));
    EXPECT_EQ(array(0U).getSoapTypeId(), Base::Simple);
    EXPECT_EQ(array(1U).getSoapTypeId(), Base::UserDefined);
}

TEST_P(TzSoapGenericTypeHandlerReading, AForeignStyleComesBeforeAllMarks) {
    const std::string foreign = style("urn:foreign");
    EXPECT_EQ(kindOf("<a " + foreign + " " + wire.ref("x") + "/>"), "UserDefined");
    EXPECT_EQ(kindOf("<a " + foreign + " " + wire.array("xsd:int", "2") + "/>"), "UserDefined");
}

TEST_P(TzSoapGenericTypeHandlerReading, TheStylesOfBothVersionsAreSoap) {
    EXPECT_EQ(kindOf("<a " + style(wire11.style()) + "/>"), "Simple");
    EXPECT_EQ(kindOf("<a " + style(wire12.style()) + "/>"), "Simple");
    EXPECT_EQ(kindOf("<a " + style("http://schemas.xmlsoap.org/soap/encoding") + "/>"), "Simple");
}

TEST_P(TzSoapGenericTypeHandlerReading,
       TheEncodingStyleOfTheOtherVersionIsAnAttributeLikeAnyOther) {
    const WireForm& other = GetParam() == V::V1_1 ? wire12 : wire11;
    EXPECT_EQ(
        kindOf("<a xmlns:o=\"" + other.envelopeUri() + "\" o:encodingStyle=\"urn:foreign\"/>"),
        "Simple");
}

TEST_P(TzSoapGenericTypeHandlerReading, ARegisteredTypeOfASoapStyleIsLeftToTheApplication) {
    const std::string registered = style(registeredStyle(GetParam()));
    const std::string mine = " xmlns:t=\"urn:t\" xsi:type=\"t:mine\"";
    EXPECT_EQ(kindOf("<a " + registered + mine + "/>"), "UserDefined");
    EXPECT_EQ(kindOf("<a " + registered + " xmlns:s=\"urn:t\" xsi:type=\"s:mine\"/>"),
              "UserDefined");
    EXPECT_EQ(kindOf("<a " + registered + " xmlns:t=\"urn:u\" xsi:type=\"t:mine\"/>"), "Simple");
    EXPECT_EQ(kindOf("<a " + registered + " xsi:type=\"xsd:int\">1</a>"), "Simple");
    EXPECT_EQ(kindOf("<a " + style(wire.style()) + mine + "/>"), "Simple");
    EXPECT_EQ(kindOf("<a " + style("") + mine + "/>"), "Simple");
    EXPECT_EQ(kindOf("<a " + mine + "/>"), "Simple");
    // Elements without type are registered, too.
    EXPECT_EQ(kindOf("<a " + registered + "/>"), "UserDefined");
}

TEST_P(TzSoapGenericTypeHandlerReading, TheEmptyStyleNeverAsksTheRegistry) {
    TzSoapEncodingStyleTypeRegistry::getRegistry()->registerType(
        "", TzXmlName("int", TzXmlNamespace::getXsd()));
    EXPECT_EQ(kindOf("<a " + style("") + " xsi:type=\"xsd:int\"/>"), "Simple");
    EXPECT_EQ(kindOf("<a xsi:type=\"xsd:int\"/>"), "Simple");
}

TEST_P(TzSoapGenericTypeHandlerReading, TheTypeOfTheMessagesRegistryStandsInForAMissingOne) {
    const std::string registered = style(registeredStyle(GetParam()));
    TzSoapMessage message;
    message.getTypeRegistry().registerType(TzXmlName("a"),
                                           TzXmlName("mine", TzXmlNamespace("t", "urn:t")));
    message.getTypeRegistry().registerType(TzXmlName("b"),
                                           TzXmlName("int", TzXmlNamespace::getXsd()));
    message.extract(wire.body("<a/><a xsi:type=\"xsd:int\"/><b/><c/>", registered));
    EXPECT_EQ(bodyEntry(message, 0).getSoapTypeId(), Base::UserDefined);
    EXPECT_EQ(bodyEntry(message, 0).getType(), TzXmlName("mine", TzXmlNamespace("t", "urn:t")));
    EXPECT_EQ(bodyEntry(message, 1).getSoapTypeId(), Base::Simple);
    EXPECT_EQ(bodyEntry(message, 2).getSoapTypeId(), Base::Simple);
    EXPECT_EQ(bodyEntry(message, 3).getSoapTypeId(), Base::UserDefined);
}

TEST_P(TzSoapGenericTypeHandlerReading, ThePrefixOfATypeIsLookedUpOutsideFirst) {
    const std::string registered = style(registeredStyle(GetParam()));
    // Deliberately: what decides the handler is the outer binding, what the value keeps its own.
    const std::string text = wire.body("<a xmlns:t=\"urn:inner\" xsi:type=\"t:mine\"/>",
                                       registered + " xmlns:t=\"urn:t\"");
    EXPECT_EQ(kindIn(text), "UserDefined");
}

// References as values.

TEST_P(TzSoapGenericTypeHandlerReading, AReferenceKeepsNameAndAttributes) {
    const auto read = reference(bodyEntry(readMessage(wire.body(
        "<p:a xmlns:p=\"urn:p\" " + wire.ref("x") +
        " id=\"r\" k=\"v\" xmlns:t=\"urn:t\" xsi:type=\"t:T\" e:mustUnderstand=\"1\"/>"))));
    EXPECT_EQ(read.getName(), TzXmlName("a", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(read.getIdAttribute(), "r");
    EXPECT_EQ(read.findAttribute(TzXmlName("k"))->getValue(), "v");
    EXPECT_EQ(read.getType(), TzXmlName("T", TzXmlNamespace("t", "urn:t")));
    EXPECT_TRUE(read.getMustUnderstand());
}

TEST_P(TzSoapGenericTypeHandlerReading, AReferenceIsAnEmptyElement) {
    const std::string begin = wire.envelope("<e:Body><a " + wire.ref("x") + ">");
    const std::string text = "[ILLEGAL_REFERENCE][Per SOAP, reference accessor(element with a href "
                             "attribute) is an empty element.]";
    for (const std::string& content :
         {std::string("<b/>"), std::string("text<b>1</b>"), "<b " + wire.ref("x") + "/>",
          "<b " + wire.array("xsd:int", "1") + "/>"}) {
        TzSoapMessage message;
        expectCatalogued<TzXmlParseError>(
            [&] { message.extract(wire.body("\n<a " + wire.ref("x") + ">" + content + "</a>")); },
            tzsoap_ILLEGAL_REFERENCE()->id, text);
    }
    EXPECT_EQ(kindOf("<a " + wire.ref("x") + "> <!-- --> \n</a>"), "Reference");
}

TEST_P(TzSoapGenericTypeHandlerReading, ContentOfAReferenceIsRefusedWithItsPlace) {
    TzSoapMessage message;
    try {
        message.extract(wire.body("\n <a " + wire.ref("x") + ">\n   <b/></a>"));
        FAIL() << "content of a reference was accepted";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getSource(), "");
        EXPECT_EQ(error.getLine(), 3U);
        EXPECT_EQ(error.getColumn(), 4U);
    }
}
