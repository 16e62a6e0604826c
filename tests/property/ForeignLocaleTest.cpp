// SPDX-License-Identifier: MIT
//
// A program may have any global locale: the texts of messages do not change with it.
#include "support/ForeignLocale.h"
#include "property/Description.h"
#include "property/Generator.h"
#include "support/ReadValues.h"

#include <tz/tools/TzDate.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/tools/Tzxmsg.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using Base = TzSoapContentBase;

std::string inStream(double number) {
    std::ostringstream out;
    out << number;
    return out.str();
}

TzSoapMessage numbers() {
    TzSoapMessage message;
    TzSoapBody& body = message.getSoapBody();
    body.appendEntry(TzSoapSimpleType(TzXmlName("int"), 1234567, Base::xsdInt, true));
    body.appendEntry(TzSoapSimpleType(TzXmlName("long"), -1234567890123L, Base::xsdLong, true));
    body.appendEntry(
        TzSoapSimpleType(TzXmlName("short"), static_cast<short>(-12345), Base::xsdShort, true));
    body.appendEntry(TzSoapSimpleType(TzXmlName("double"), 1234.5, Base::xsdDouble, true));
    body.appendEntry(TzSoapSimpleType(TzXmlName("float"), 0.25F, Base::xsdFloat, true));
    body.appendEntry(TzSoapSimpleType(TzXmlName("yes"), true, Base::xsdBoolean, true));
    TzSoapCompactArrayType array(TzXmlName("array"), "xsd:int", 1200, 1100);
    array(1100U) = TzSoapSimpleType(TzXmlName("i"), 1000, Base::xsdInt, true);
    body.appendEntry(array);
    TzSoapSparseArrayType sparseArray(TzXmlName("sparse"), "xsd:int", 123456);
    sparseArray(12345U) = TzSoapSimpleType(TzXmlName("i"), 1000, Base::xsdInt, true);
    body.appendEntry(sparseArray);
    return message;
}

} // namespace

TEST(ForeignLocaleUse, TheLocaleOfTheTestWouldBeSeen) {
    const ForeignLocale foreign;
    EXPECT_EQ(inStream(1234.5), "1.234,5");
}

TEST(ForeignLocaleUse, MessagesAreWrittenAsEver) {
    const std::string written = numbers().asString();
    EXPECT_NE(written.find(">1234567<"), std::string::npos) << written;
    EXPECT_NE(written.find(">1234.5<"), std::string::npos) << written;
    EXPECT_NE(written.find(">0.25<"), std::string::npos) << written;
    EXPECT_NE(written.find("\"12345\""), std::string::npos) << written;
    const ForeignLocale foreign;
    EXPECT_EQ(numbers().asString(), written);
}

TEST(ForeignLocaleUse, MessagesAreReadAsEver) {
    const std::string written = numbers().asString();
    const ForeignLocale foreign;
    const TzSoapMessage message = readMessage(written);
    EXPECT_EQ(message.asString(), written);
    EXPECT_EQ(simple(bodyEntry(message, 0)).getInt(), 1234567);
    EXPECT_EQ(simple(bodyEntry(message, 1)).getLong(), -1234567890123L);
    EXPECT_EQ(simple(bodyEntry(message, 2)).getShort(), -12345);
    EXPECT_EQ(simple(bodyEntry(message, 3)).getDouble(), 1234.5);
    EXPECT_EQ(simple(bodyEntry(message, 4)).getFloat(), 0.25F);
    const TzSoapCompactArrayType array = compact(bodyEntry(message, 6));
    EXPECT_EQ(array.getBounds(), std::vector<unsigned int>{1200});
    EXPECT_EQ(array.getOffsetIndex(), std::vector<unsigned int>{1100});
    EXPECT_EQ(simple(array(1100U)).getInt(), 1000);
    const TzSoapSparseArrayType sparseArray = sparse(bodyEntry(message, 7));
    EXPECT_EQ(simple(sparseArray(12345U)).getInt(), 1000);
}

TEST(ForeignLocaleUse, MessagesOfAllKindsAreWrittenAndReadAsEver) {
    for (std::uint32_t seed = 1; seed <= 100; ++seed) {
        TzSoapMessage message = Generator(seed).message();
        const std::string written = message.asString();
        message.extract(written);
        const std::string described = describe(message);
        const ForeignLocale foreign;
        ASSERT_EQ(Generator(seed).message().asString(), written) << seed;
        message.extract(written);
        ASSERT_EQ(describe(message), described) << seed;
        ASSERT_EQ(message.asString(), written) << seed;
    }
}

TEST(ForeignLocaleUse, ErrorsNameNumbersAsEver) {
    const ForeignLocale foreign;
    try {
        readMessage(
            WireForm(TzSoapVersion::V1_1).body("<a c:arrayType=\"xsd:int[2147483647]\"><i/></a>"));
        ADD_FAILURE() << "accepted";
    } catch (const Tzxmsg& error) {
        EXPECT_EQ(error.asString(),
                  "[BAD_INDEX_VECTOR][Illegal SOAP array vector. Entry at location 0 "
                  "has value 2147483647]");
    }
}

TEST(ForeignLocaleUse, DatesDecimalsAndTheirTextsAreAsEver) {
    const ForeignLocale foreign;
    TzSoapSimpleType value(TzXmlName("a"), "2026-11-21T12:34:56.5Z", Base::xsdDateTime, true);
    EXPECT_EQ(
        TzSoapSimpleType(TzXmlName("a"), value.getDateTime(), Base::xsdDateTime, true).getString(),
        "2026-11-21T12:34:56.5Z");
    std::ostringstream out;
    out << TzDecimalPortable("1234567.50");
    EXPECT_EQ(out.str(), "1234567.50");
}
