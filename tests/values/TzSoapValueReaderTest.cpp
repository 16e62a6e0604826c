// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using Base = TzSoapContentBase;

TzSoapSimpleType value(const std::string& text, Base::SchemaType type = Base::xsdUnknown) {
    return {TzXmlName("m:amount"), text, type, false};
}

TzSoapValueReader reader(const std::string& text) { return TzSoapValueReader(value(text)); }

/// The first member of the first body entry of a message with these members.
TzSoapType member(const std::string& markup) {
    const TzSoapMessage message = messageOf(envelope(TzSoapVersion::V1_1, "<m>" + markup + "</m>"));
    return *composite(*message.getSoapBody().entriesBegin()).childrenBegin();
}

/// Expects that `read` refuses `text`, which is not `wanted`.
template <typename Read>
void expectRefused(const Read& read, const std::string& text, const std::string& wanted) {
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { read(reader(text)); }),
              "element \"m:amount\": \"" + text + "\" is not " + wanted);
}

std::string iso(const TzDateTime& time) { return TzXmlUtils::convertDateTimeToISOString(time); }
std::string iso(const TzDate& date) { return TzXmlUtils::convertDateToISOString(date); }

} // namespace

TEST(TzSoapValueReader, StringsStandAsTheyAre) {
    EXPECT_EQ(reader("").getString(), "");
    EXPECT_EQ(reader(" a\n b ").getString(), " a\n b ");
}

TEST(TzSoapValueReader, BooleansInEveryForm) {
    for (const char* text : {"1", "true", " true", "1\n", "\t true \r\n"}) {
        EXPECT_TRUE(reader(text).getBool()) << text;
    }
    for (const char* text : {"0", "false", " 0 "}) {
        EXPECT_FALSE(reader(text).getBool()) << text;
    }
    for (const char* text : {"", "TRUE", "yes", "2", "true false"}) {
        expectRefused([](const auto& read) { read.getBool(); }, text, "a boolean");
    }
}

TEST(TzSoapValueReader, TheStrictGetterStaysStrict) {
    const TzSoapSimpleType truth = value("true", Base::xsdBoolean);
    EXPECT_TRUE(TzSoapValueReader(truth).getBool());
    EXPECT_FALSE(truth.getBool());
}

TEST(TzSoapValueReader, WholeNumbers) {
    EXPECT_EQ(reader(" +42\n").getInt(), 42);
    EXPECT_EQ(reader("-7").getInt(), -7);
    EXPECT_EQ(reader("007").getInt(), 7);
    EXPECT_EQ(reader("-2147483648").getInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(reader("2147483647").getInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(reader("4294967295").getUnsignedInt(), 4294967295U);
    EXPECT_EQ(reader("-0").getUnsignedInt(), 0U);
    EXPECT_EQ(reader("-32768").getShort(), -32768);
    EXPECT_EQ(reader("65535").getUnsignedShort(), 65535);
    EXPECT_EQ(reader("-9223372036854775808").getLong(), std::numeric_limits<long>::min());
    EXPECT_EQ(reader("9223372036854775807").getLong(), std::numeric_limits<long>::max());
    EXPECT_EQ(reader("18446744073709551615").getUnsignedLong(),
              std::numeric_limits<unsigned long>::max());
}

TEST(TzSoapValueReader, LongNumbers) {
    EXPECT_EQ(reader(" -9223372036854775808 ").getLongLong(),
              std::numeric_limits<long long>::min());
    EXPECT_EQ(reader("18446744073709551615").getUnsignedLongLong(),
              std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(reader(" 0.1 ").getLongDouble(), 0.1L);
    EXPECT_EQ(reader("1e4000").getLongDouble(), 1e4000L);
    EXPECT_EQ(reader("-INF").getLongDouble(), -std::numeric_limits<long double>::infinity());
    EXPECT_EQ(reader("1e5000").getLongDouble(), std::numeric_limits<long double>::infinity());
    EXPECT_EQ(reader("1e-5000").getLongDouble(), 0);
    expectRefused([](const auto& value) { value.getLongLong(); }, "9223372036854775808",
                  "a long long");
    expectRefused([](const auto& value) { value.getUnsignedLongLong(); }, "-1",
                  "an unsigned long long");
    expectRefused([](const auto& value) { value.getLongDouble(); }, "1,5", "a number");
}

TEST(TzSoapValueReader, WhatIsNoWholeNumberOrDoesNotFitIsAnError) {
    for (const char* text : {"", " ", "-", "+", "--1", "+-1", "1.0", "1 2", "12x", "0x10", "1e3",
                             "2147483648", "-2147483649", "99999999999999999999999"}) {
        expectRefused([](const auto& read) { read.getInt(); }, text, "an int");
    }
    expectRefused([](const auto& read) { read.getUnsignedInt(); }, "-1", "an unsigned int");
    expectRefused([](const auto& read) { read.getShort(); }, "32768", "a short");
    expectRefused([](const auto& read) { read.getUnsignedShort(); }, "65536", "an unsigned short");
    expectRefused([](const auto& read) { read.getLong(); }, "9223372036854775808", "a long");
    expectRefused([](const auto& read) { read.getUnsignedLong(); }, "18446744073709551616",
                  "an unsigned long");
}

TEST(TzSoapValueReader, NumbersWithAPoint) {
    EXPECT_EQ(reader("17").getDouble(), 17.0);
    EXPECT_EQ(reader(" +1.5E-3 ").getDouble(), 0.0015);
    EXPECT_EQ(reader("-.5").getDouble(), -0.5);
    EXPECT_EQ(reader("5.").getDouble(), 5.0);
    EXPECT_EQ(reader("0.1").getFloat(), 0.1F);
    const double infinite = std::numeric_limits<double>::infinity();
    for (const char* text : {"INF", "+INF", " inf ", "1e999"}) {
        EXPECT_EQ(reader(text).getDouble(), infinite) << text;
    }
    EXPECT_EQ(reader("-INF").getDouble(), -infinite);
    EXPECT_EQ(reader("1e39").getFloat(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(reader("-1e-999").getDouble(), 0.0);
    EXPECT_EQ(reader("1e-60").getFloat(), 0.0F);
    for (const char* text : {"NaN", "NAN", "nan"}) {
        EXPECT_TRUE(std::isnan(reader(text).getDouble())) << text;
    }
    for (const char* text : {"", "-", "--1", "1,5", "infinity", "nan(1)", "0x1p3", "1e", "+ 1"}) {
        expectRefused([](const auto& read) { read.getDouble(); }, text, "a double");
    }
    expectRefused([](const auto& read) { read.getFloat(); }, "x", "a float");
}

TEST(TzSoapValueReader, Decimals) {
    EXPECT_EQ(reader(" +12345678901234567890.50\n").getDecimal().asString(),
              "12345678901234567890.50");
    expectRefused([](const auto& read) { read.getDecimal(); }, "12,5", "a decimal");
}

TEST(TzSoapValueReader, DatesWithAndWithoutZone) {
    EXPECT_EQ(iso(reader("2026-02-28").getDate()), "2026-02-28");
    EXPECT_EQ(iso(reader(" 2026-02-28+01:00 ").getDate()), "2026-02-28+01:00");
    EXPECT_EQ(iso(reader("2026-02-28T23:59:59Z").getDate()), "2026-02-28Z");
    EXPECT_EQ(iso(reader("2026-02-28T10:00:00.25-05:30\n").getDateTime()),
              "2026-02-28T10:00:00.25-05:30");
    EXPECT_EQ(iso(reader("2026-02-28T10:00:00").getDateTime()), "2026-02-28T10:00:00");
    EXPECT_EQ(iso(reader("2026-02-28Z").getDateTime()), "2026-02-28T00:00:00Z");
    EXPECT_EQ(iso(reader("10:00:00Z").getDateTime()), "1970-01-01T10:00:00Z");
    for (const char* text : {"", "2026-02-30", "28.02.2026", "10:00:00", "T10:00"}) {
        expectRefused([](const auto& read) { read.getDate(); }, text, "a date");
    }
    for (const char* text : {"", "2026-02-30T00:00:00", "2026-02-28T10:00", "20260228T10:00:00"}) {
        expectRefused([](const auto& read) { read.getDateTime(); }, text, "a date and time");
    }
}

TEST(TzSoapValueReader, Durations) {
    EXPECT_EQ(reader(" -P1DT2H\n").getDuration().asString(), "-P1DT2H");
    expectRefused([](const auto& read) { read.getDuration(); }, "1 day", "a duration");
}

TEST(TzSoapValueReader, BytesInBase64AndInHexadecimalDigits) {
    EXPECT_EQ(reader("").getBytes(), "");
    EXPECT_EQ(reader(" AAECAw\n== \r\n").getBytes(), std::string("\0\1\2\3", 4));
    EXPECT_EQ(TzSoapValueReader(value(" 00fF7f ", Base::xsdHexBinary)).getBytes(),
              std::string("\0\xFF\x7F", 3));
    for (const char* text : {"A", "AAE", "AA=A", "A===", "AAE*", "===="}) {
        expectRefused([](const auto& read) { read.getBytes(); }, text, "base64");
    }
    for (const char* text : {"0", "0g", "0x10", "+1"}) {
        EXPECT_EQ(textThrown<TzXmlBadArgError>(
                      [&] { TzSoapValueReader(value(text, Base::xsdHexBinary)).getBytes(); }),
                  "element \"m:amount\": \"" + std::string(text) + "\" is not hexadecimal digits");
    }
}

TEST(TzSoapValueReader, NilInEveryForm) {
    for (const char* attribute :
         {"xsi:nil=\"1\"", "xsi:nil=\"true\"", "xsi:nil=\" true \"", "xsi:null=\"1\"",
          "xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:nil=\"true\"",
          "xmlns:i=\"http://www.w3.org/1999/XMLSchema-instance\" i:null=\"1\""}) {
        const TzSoapValueReader read(member("<a " + std::string(attribute) + "/>"));
        EXPECT_TRUE(read.isNull()) << attribute;
        EXPECT_EQ(read.getString(), "");
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { (void)read.getInt(); }),
                  "element \"a\" is nil, not an int");
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { (void)read.getBool(); }),
                  "element \"a\" is nil, not a boolean");
    }
    for (const char* attribute : {"", "nil=\"1\"", "xsi:nil=\"0\"", "xsi:nil=\"false\"",
                                  "xsi:nil=\"\"", "xsi:type=\"nil\""}) {
        EXPECT_FALSE(TzSoapValueReader(member("<a " + std::string(attribute) + "/>")).isNull())
            << attribute;
    }
}

TEST(TzSoapValueReader, ANilArrayCountsAsSimple) {
    EXPECT_TRUE(
        TzSoapValueReader(member("<a c:arrayType=\"xsd:int[0]\" xsi:nil=\"true\"/>")).isNull());
}

TEST(TzSoapValueReader, AnArrayPositionWithoutItemIsNil) {
    const TzSoapCompactArrayType array(TzXmlName("list"), "xsd:int", 2U, 0U);
    const TzSoapValueReader read(array[1]);
    EXPECT_TRUE(read.isNull());
    EXPECT_EQ(read.getType(), Base::xsdUnknown);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { (void)read.getInt(); }),
              "an array position without item is nil, not an int");
}

TEST(TzSoapValueReader, TypesUnderAnyPrefixAndName) {
    const auto typeOf = [](const std::string& attributes) {
        return TzSoapValueReader(member("<a " + attributes + ">1</a>")).getType();
    };
    EXPECT_EQ(typeOf(""), Base::xsdUnknown);
    EXPECT_EQ(typeOf("xsi:type=\"x:int\""), Base::xsdInt);
    EXPECT_EQ(typeOf("xmlns:s=\"http://www.w3.org/2001/XMLSchema\" xsi:type=\"s:dateTime\""),
              Base::xsdDateTime);
    EXPECT_EQ(typeOf("xsi:type=\"c:string\""), Base::xsdString);
    EXPECT_EQ(typeOf("xsi:type=\"c:base64\""), Base::xsdBase64Binary);
    EXPECT_EQ(typeOf("xsi:type=\"int\""), Base::xsdInt);
    EXPECT_EQ(typeOf("xsi:type=\"x:QName\""), Base::xsdQName);
    EXPECT_EQ(typeOf("xsi:type=\"x:qName\""), Base::xsdQName);
    EXPECT_EQ(typeOf("xsi:type=\"x:Name\""), Base::xsdName);
    EXPECT_EQ(typeOf("xsi:type=\"x:NCName\""), Base::xsdNCName);
    EXPECT_EQ(typeOf("xsi:type=\"x:timeInstant\""), Base::xsdDateTime);
    EXPECT_EQ(typeOf("xsi:type=\"x:timeDuration\""), Base::xsdDuration);
    EXPECT_EQ(typeOf("xsi:type=\"x:uriReference\""), Base::xsdAnyURI);
    EXPECT_EQ(typeOf("xsi:type=\"x:own\""), Base::xsdUnknown);
    EXPECT_EQ(TzSoapValueReader(value("1", Base::xsdShort)).getType(), Base::xsdShort);
}

TEST(TzSoapValueReader, AReferenceStandsForItsValue) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "<m><a href=\"#x\"/></m><r id=\"x\" href=\"#y\"/>"
                                                "<r id=\"y\" xsi:type=\"xsd:int\">5</r>"));
    const TzSoapValueReader read(*composite(*message.getSoapBody().entriesBegin()).childrenBegin());
    EXPECT_EQ(read.getInt(), 5);
    EXPECT_EQ(read.getType(), Base::xsdInt);
}

TEST(TzSoapValueReader, FollowsReferencesToAnyKind) {
    const TzSoapMessage message = messageOf(
        envelope(TzSoapVersion::V1_1, "<m><a href=\"#x\"/><b href=\"#none\"/><c><d/></c></m>"
                                      "<r id=\"x\"><n>5</n></r>"));
    const TzSoapType& parent = *message.getSoapBody().entriesBegin();
    EXPECT_EQ(textOf(child(TzSoapValueReader::follow(child(parent, "a")), "n")), "5");
    EXPECT_EQ(TzSoapValueReader::follow(child(parent, "b")).getName(), TzXmlName("b"));
    EXPECT_EQ(TzSoapValueReader::follow(child(parent, "c")).getName(), TzXmlName("c"));
}

TEST(TzSoapValueReader, AReferenceToItselfEnds) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "<m><a id=\"x\" href=\"#x\"/></m>"));
    const TzSoapType loop = *composite(*message.getSoapBody().entriesBegin()).childrenBegin();
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzSoapValueReader read(loop); }),
              "element \"a\" is not a simple value but of kind \"Reference\"");
}

TEST(TzSoapValueReader, OtherKindsAreErrors) {
    const auto refusal = [](const TzSoapType& other) {
        return textThrown<TzXmlBadArgError>([&] { TzSoapValueReader read(other); });
    };
    EXPECT_EQ(refusal(member("<a><b/></a>")),
              "element \"a\" is not a simple value but of kind \"Composite\"");
    EXPECT_EQ(refusal(member("<a c:arrayType=\"x:int[0]\"/>")),
              "element \"a\" is not a simple value but of kind \"Array\"");
    EXPECT_EQ(refusal(member("<a e:encodingStyle=\"urn:own\">t</a>")),
              "element \"a\" is not a simple value but of kind \"UserDefined\"");
    EXPECT_EQ(refusal(member("<a href=\"#nowhere\"/>")),
              "element \"a\" is not a simple value but of kind \"Reference\"");
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("<p>"));
    EXPECT_EQ(refusal(TzSoapReferenceType(TzXmlName("a"), part)),
              "element \"a\" is not a simple value but of kind \"Reference\"");
}

TEST(TzSoapValueReader, MessagesShowTheBeginningOfLongTexts) {
    const std::string shown(80, '9');
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { (void)reader(shown + "99").getInt(); }),
              "element \"m:amount\": \"" + shown + "...\" is not an int");
}
