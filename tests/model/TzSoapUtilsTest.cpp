// SPDX-License-Identifier: MIT
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlUtils.h>

#include "support/CataloguedError.h"
#include "support/ForeignLocale.h"
#include "support/SoapAttributes.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <list>
#include <string>
#include <type_traits>

namespace {

using Utils = TzSoapUtils;
using V = TzSoapVersion;

/// Made like an object of a program: before main, from whichever source comes first.
struct EarlyBird {
    std::string text = Utils::misunderstoodString + Utils::WhiteSpace;
};
const EarlyBird earlyBird;

std::list<TzCString> styles(const TzCString& text) {
    std::list<TzCString> list = {"left over"};
    Utils::stringToEncodingList(text, list);
    return list;
}

using List = std::list<TzCString>;

} // namespace

TEST(TzSoapUtils, ConstantsHaveTheirTexts) {
    EXPECT_EQ(Utils::Blank, " ");
    EXPECT_EQ(Utils::BlankUtf8, ' ');
    EXPECT_EQ(Utils::Colon, ":");
    EXPECT_EQ(Utils::EmptyString, "");
    EXPECT_EQ(Utils::Hyphen, "-");
    EXPECT_EQ(Utils::Hypen, "-");
    EXPECT_EQ(Utils::Minus, "-");
    EXPECT_EQ(Utils::Plus, "+");
    EXPECT_EQ(Utils::Newline, "\n");
    EXPECT_EQ(Utils::NewlineUtf8, '\n');
    EXPECT_EQ(Utils::Tab, "\t");
    EXPECT_EQ(Utils::TabUtf8, '\t');
    EXPECT_EQ(Utils::WhiteSpace, " \n\t");
    EXPECT_EQ(Utils::TimeSeparator, "T");
    EXPECT_EQ(Utils::UTimeZone, "Z");
    EXPECT_EQ(Utils::TZD, "Z+-");
    EXPECT_EQ(Utils::ISO8601Date, "%Y-%m-%d");
    EXPECT_EQ(Utils::ISO8601DateFormat, "%Y-%m-%d");
    EXPECT_EQ(Utils::ISO8601Format, "%Y-%m-%dT%X");
    EXPECT_EQ(Utils::ISO8601Time, "T%X");
    EXPECT_EQ(Utils::MinDateLength, 10);
    EXPECT_EQ(Utils::MinTimeLength, 8);
    EXPECT_EQ(Utils::MinDateTimeLength, 19);
    EXPECT_EQ(Utils::TrueTag, "true");
    static_assert(std::is_same_v<decltype(Utils::Blank), const TzCString>);
    static_assert(std::is_same_v<decltype(Utils::MinDateLength), const int>);
}

TEST(TzSoapUtils, KindsHaveTheirNames) {
    EXPECT_EQ(Utils::arrayString, "Array");
    EXPECT_EQ(Utils::badString, "Bad");
    EXPECT_EQ(Utils::compositeString, "Composite");
    EXPECT_EQ(Utils::genericString, "Generic");
    EXPECT_EQ(Utils::misunderstoodString, "Misunderstood");
    EXPECT_EQ(Utils::pcdataString, "Pcdata");
    EXPECT_EQ(Utils::referenceString, "Reference");
    EXPECT_EQ(Utils::simpleString, "Simple");
    EXPECT_EQ(Utils::userDefinedString, "UserDefined");
}

TEST(TzSoapUtils, ConstantsServeGlobalObjects) { EXPECT_EQ(earlyBird.text, "Misunderstood \n\t"); }

TEST(TzSoapUtils, MessageEncodingsAreNumbered) {
    EXPECT_EQ(Utils::NoEncoding, 0);
    EXPECT_EQ(Utils::XmlEncoding, 1);
    EXPECT_EQ(Utils::MimeEncoding, 2);
}

TEST(TzSoapUtils, DatesAreConvertedByTheXmlLibrary) {
    EXPECT_EQ(Utils::convertDateToISOString(TzDate(2002, 6, 7)), "2002-06-07");
    EXPECT_EQ(Utils::convertDateTimeToISOString(TzDateTime(2002, 6, 7, 8, 9, 10)),
              "2002-06-07T08:09:10");
    EXPECT_EQ(Utils::convertISODateStringToDate("2002-06-07"), TzDate(2002, 6, 7));
    EXPECT_EQ(Utils::convertISODateStringToDateTime("2002-06-07T08:09:10"),
              TzDateTime(2002, 6, 7, 8, 9, 10));
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { Utils::convertISODateStringToDate("7 June"); }),
        textThrown<TzXmlBadArgError>([] { TzXmlUtils::convertISODateStringToDate("7 June"); }));
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { Utils::convertISODateStringToDateTime("2002-06-07"); }),
        "\"2002-06-07\" is not a date and time of the form YYYY-MM-DDThh:mm:ss");
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { Utils::convertDateToISOString(TzDate(2002, 2, 30)); }),
        "a date or time that does not exist cannot be written");
}

TEST(TzSoapUtils, DatesDoNotLookAtTheLocale) {
    const ForeignLocale foreign;
    EXPECT_EQ(Utils::convertDateTimeToISOString(TzDateTime(2002, 6, 7, 20, 9, 10)),
              "2002-06-07T20:09:10");
}

TEST(TzSoapUtils, AnArrayTypeIsSplitBeforeItsLastBracket) {
    TzCString type = "t";
    TzCString size = "s";
    Utils::getElementTypeAndSize("xsd:string[2,3]", type, size);
    EXPECT_EQ(type, "xsd:string");
    EXPECT_EQ(size, "[2,3]");
    Utils::getElementTypeAndSize("xsd:int[][3]", type, size);
    EXPECT_EQ(type, "xsd:int[]");
    EXPECT_EQ(size, "[3]");
    Utils::getElementTypeAndSize("[", type, size);
    EXPECT_EQ(type, "");
    EXPECT_EQ(size, "[");
}

TEST(TzSoapUtils, AnArrayTypeWithoutBracketChangesNothing) {
    TzCString type = "t";
    TzCString size = "s";
    Utils::getElementTypeAndSize("xsd:string", type, size);
    Utils::getElementTypeAndSize("", type, size);
    EXPECT_EQ(type, "t");
    EXPECT_EQ(size, "s");
}

TEST(TzSoapUtils, AnArrayTypeMayBeItsOwnOutput) {
    TzCString text = "xsd:int[5]";
    TzCString size;
    Utils::getElementTypeAndSize(text, text, size);
    EXPECT_EQ(text, "xsd:int");
    EXPECT_EQ(size, "[5]");
    text = "xsd:int[5]";
    TzCString type;
    Utils::getElementTypeAndSize(text, type, text);
    EXPECT_EQ(type, "xsd:int");
    EXPECT_EQ(text, "[5]");
}

TEST(TzSoapUtils, RecognisesWhatATextIs) {
    EXPECT_EQ(Utils::getMessageEncoding("<e:Envelope/>"), Utils::XmlEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("x content-type: y Envelope"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Envelope CONTENT-TYPE"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Content-Type"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("<e:envelope/>"), Utils::NoEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Content Type"), Utils::NoEncoding);
    EXPECT_EQ(Utils::getMessageEncoding(""), Utils::NoEncoding);
}

TEST(TzSoapUtils, RecognisesAMultipart) {
    EXPECT_TRUE(Utils::isMimeMultipart("Content-Type: Multipart/Related"));
    EXPECT_TRUE(Utils::isMimeMultipart("MIME-Version: 1.0\ncontent-type: multipart/related"));
    EXPECT_TRUE(Utils::isMimeMultipart("Content-Type: text/xml\n\n<a>MULTIPART</a>"));
    EXPECT_FALSE(Utils::isMimeMultipart("Content-Type: text/xml"));
    EXPECT_FALSE(Utils::isMimeMultipart("multipart before Content-Type: text/xml"));
    EXPECT_FALSE(Utils::isMimeMultipart("Content-Type multipart"));
    EXPECT_FALSE(Utils::isMimeMultipart(""));
    EXPECT_FALSE(Utils::isMimeMultipart("<"));
}

TEST(TzSoapUtils, AnEarlyTagIsNoMultipart) {
    const std::string header = "Content-Type: multipart/related";
    EXPECT_FALSE(Utils::isMimeMultipart("<" + header));
    EXPECT_FALSE(Utils::isMimeMultipart("x<" + header));
    EXPECT_FALSE(Utils::isMimeMultipart("\n<" + header));
    EXPECT_TRUE(Utils::isMimeMultipart("\n\n<" + header));
}

TEST(TzSoapUtils, EncodingStylesAreSplitAtWhiteSpace) {
    EXPECT_EQ(styles("a  b"), (List{"a", "b"}));
    EXPECT_EQ(styles(" \r\n\ta\tb\nc\rd "), (List{"a", "b", "c", "d"}));
    EXPECT_EQ(styles("a"), List{"a"});
    EXPECT_EQ(styles("a\fb"), List{"a\fb"});
}

TEST(TzSoapUtils, AnEmptyEncodingStyleIsOneEmptyEntry) {
    EXPECT_EQ(styles(""), List{""});
    EXPECT_EQ(styles("  "), List{});
    EXPECT_EQ(styles("\t\r\n"), List{});
}

TEST(TzSoapUtils, AnEntryMayBeTheTextToSplit) {
    List list = {"a b"};
    Utils::stringToEncodingList(list.front(), list);
    EXPECT_EQ(list, (List{"a", "b"}));
}

TEST(TzSoapUtils, TheFirstEncodingStyleIsAPartOfTheText) {
    const std::string text = " \n first second";
    const std::string_view first = Utils::firstEncodingStyle(text);
    EXPECT_EQ(first, "first");
    EXPECT_EQ(first.data(), text.data() + 3);
    EXPECT_EQ(Utils::firstEncodingStyle("one"), "one");
    EXPECT_EQ(Utils::firstEncodingStyle(""), "");
    EXPECT_EQ(Utils::firstEncodingStyle(" \t\r\n"), "");
}

TEST(TzSoapUtils, TheEncodingStyleAttributeOfEitherVersionIsFound) {
    TzSoapTypeImp element;
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "");
    element.getAttributeSet().add(TzXmlName("encodingStyle", Env11), " urn:a  urn:b");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), " urn:a  urn:b");
    element.getAttributeSet().add(TzXmlName("encodingStyle", Env12), "urn:c");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "urn:c");
    element.setEncodingStyle("urn:property");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "urn:c");
}

TEST(TzSoapUtils, TheEncodingStyleAttributeIsRemoved) {
    TzSoapTypeImp element;
    element.addAttribute("a", "1");
    element.addAttribute(TzXmlName("encodingStyle", Env11), "urn:s");
    element.addAttribute("b", "2");
    Utils::removeEncodingStyleAttribute(&element);
    EXPECT_EQ(attributeList(element.getAttributeSet()), "a=1;b=2;");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    Utils::removeEncodingStyleAttribute(&element);
    EXPECT_EQ(element.attributeCount(), 2U);
}

TEST(TzSoapUtils, TheEncodingStyleAttributeBecomesAProperty) {
    TzSoapTypeImp element;
    element.addAttribute(TzXmlName("encodingStyle", Env12), "urn:s  urn:t");
    element.addAttribute("b", "2");
    Utils::removeAndFixEncodingStyleAttribute(&element);
    EXPECT_EQ(attributeList(element.getAttributeSet()), "b=2;");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s  urn:t");
}

TEST(TzSoapUtils, AnEmptyEncodingStyleAttributeStays) {
    TzSoapTypeImp element;
    element.setEncodingStyle("urn:before");
    element.addAttribute(TzXmlName("encodingStyle", Env12), "");
    Utils::removeEncodingStyleAttribute(&element);
    Utils::removeAndFixEncodingStyleAttribute(&element);
    EXPECT_TRUE(element.getAttributeSet().hasEncodingStyleAttribute());
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:before");
}

TEST(TzSoapUtils, ArrayAttributesOf11BecomeProperties) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute("a", "1");
    array.addAttribute(TzXmlName("offset", Enc11), "[2]");
    array.addAttribute(TzXmlName("arrayType", Enc11), "xsd:int[5]");
    array.addAttribute("b", "2");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1);
    EXPECT_EQ(attributeList(array.getAttributeSet()), "a=1;b=2;");
    EXPECT_EQ(array.getOffsetIndex(), TzSoapArrayTypeImp::Index{2});
    EXPECT_EQ(array.TzSoapElementImp::getOffsetAttribute(), "");
}

TEST(TzSoapUtils, ArrayAttributesOf12AreDropped) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("itemType", Enc12), "xsd:int");
    array.addAttribute(TzXmlName("arraySize", Enc12), "5");
    array.addAttribute(TzXmlName("offset", Enc12), "3");
    array.addAttribute("a", "1");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_2);
    EXPECT_EQ(attributeList(array.getAttributeSet()), "a=1;");
    EXPECT_EQ(array.getOffsetIndex(), TzSoapArrayTypeImp::Index{3});
}

TEST(TzSoapUtils, AnOffsetHasAnEntryForEachAxisAtLeast) {
    const auto offsetOf = [](const char* text) {
        TzSoapCompactArrayImp array("n", "xsd:int", "[4,5]", "[0,0]");
        array.addAttribute(TzXmlName("offset", Enc11), text);
        Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1);
        return array.getOffsetIndex();
    };
    using Index = TzSoapArrayTypeImp::Index;
    EXPECT_EQ(offsetOf("[2]"), (Index{2, 0}));
    EXPECT_EQ(offsetOf("[2,3]"), (Index{2, 3}));
    EXPECT_EQ(offsetOf("[1,2,3]"), (Index{1, 2, 3}));
}

TEST(TzSoapUtils, ArrayAttributesThatAreNotThereChangeNothing) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("itemType", Enc12), "xsd:int");
    array.addAttribute(TzXmlName("offset", Enc11), "");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1);
    EXPECT_EQ(array.attributeCount(), 2U);
    EXPECT_FALSE(array.hasOffset());
}

TEST(TzSoapUtils, AnOffsetThatIsNoneIsRefused) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("offset", Enc11), "[x]");
    expectCatalogued<TzXmlBadArgError>(
        [&] { Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1); }, 0x7008,
        "[BAD_INDEX_STRING][Illegal SOAP array index string: \"[x]\"]");
}
