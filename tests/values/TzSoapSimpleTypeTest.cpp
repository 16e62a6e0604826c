// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleType.h>

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/tools/TzBadValueError.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlDuration.h>

#include "model/TzSoapAccess.h"
#include "support/ForeignLocale.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using Simple = TzSoapSimpleType;
using Imp = TzSoapSimpleTypeImp;

const TzXmlName& name() {
    static const TzXmlName value("v", TzXmlNamespace("p", "urn:p"));
    return value;
}

/// Whether handle and body, made from `native`, hold that text with the type and flag as given.
template <typename Native> void expectMade(const Native& native, const std::string& text) {
    const Simple handle(name(), native, Simple::xsdToken, true);
    EXPECT_EQ(handle.getString(), text);
    EXPECT_EQ(handle.getType(), Simple::xsdToken);
    EXPECT_TRUE(handle.getTypeShouldBeEncoded());
    EXPECT_EQ(handle.getName(), name());
    EXPECT_EQ(handle.getName().getPrefix(), "p");
    EXPECT_FALSE(handle.hasEncodingStyleAttribute());

    const Imp body(name(), native, Simple::xsdUnknown, false);
    EXPECT_EQ(body.text(), text);
    EXPECT_EQ(body.getType(), Simple::xsdUnknown);
    EXPECT_FALSE(body.getTypeShouldBeEncoded());
    EXPECT_EQ(body.getName(), name());
}

Simple holding(const std::string& text) { return {name(), text, Simple::xsdString, false}; }

void expectHolds(const Simple& value, const std::string& text, Simple::SchemaType type) {
    EXPECT_EQ(value.getString(), text);
    EXPECT_EQ(value.getType(), type);
}

void expectWrongType(const auto& action) {
    EXPECT_EQ(textThrown<TzXmlError>(action), "wrong type");
}

/// Expects that `set`, called with every type, takes `accepted` and nothing else.
template <typename Set>
void expectAccepted(const Set& set, std::initializer_list<Simple::SchemaType> accepted) {
    for (int number = -1; number <= 45; ++number) {
        const auto type = static_cast<Simple::SchemaType>(number);
        SCOPED_TRACE(number);
        Simple value = holding("before");
        if (std::find(accepted.begin(), accepted.end(), type) != accepted.end()) {
            set(value, type);
            EXPECT_EQ(value.getType(), type);
            EXPECT_NE(value.getString(), "before");
        } else {
            expectWrongType([&] { set(value, type); });
            expectHolds(value, "before", Simple::xsdString);
        }
    }
}

} // namespace

TEST(TzSoapSimpleType, StartsEmpty) {
    const Simple value;
    expectHolds(value, "", Simple::xsdUnknown);
    EXPECT_FALSE(value.getTypeShouldBeEncoded());
    EXPECT_TRUE(value.getName().isEmpty());
    EXPECT_EQ(value.attributeCount(), 0U);
    EXPECT_EQ(value.getSoapTypeId(), Simple::Simple);
    EXPECT_EQ(value.getSoapTypeIdAsString(), "Simple");
    EXPECT_EQ(&value.getSoapTypeIdAsString(), &TzSoapUtils::simpleString);
    EXPECT_EQ(value.getEscapeText(), Simple::EscapeOn);
}

TEST(TzSoapSimpleType, IsWrittenAndReadEmptyAtFirst) {
    for (const bool shown : {false, true}) {
        Simple value;
        value.setTypeShouldBeEncoded(shown);
        TzSoapMessage message;
        message.getSoapBody().appendEntry(value);
        const std::string text = message.asString();
        EXPECT_EQ(text.find("type="), std::string::npos) << text;
        EXPECT_NE(text.find("></tznone:unnamed>"), std::string::npos) << text;
        message.extract(text);
        const TzSoapType& read = *std::as_const(message).getSoapBody().entriesBegin();
        ASSERT_EQ(read.getSoapTypeId(), Simple::Simple);
        const auto& body = static_cast<const Imp&>(TzSoapAccess::body(read));
        EXPECT_EQ(body.text(), "");
        EXPECT_EQ(body.getType(), Simple::xsdUnknown);
        EXPECT_FALSE(body.getTypeShouldBeEncoded());
    }
}

TEST(TzSoapSimpleType, IsMadeFromEveryNativeValue) {
    expectMade(TzCString("a b"), "a b");
    expectMade("literal", "literal");
    expectMade(true, "1");
    expectMade(false, "0");
    expectMade(-5, "-5");
    expectMade(4294967295U, "4294967295");
    expectMade(static_cast<short>(-32768), "-32768");
    expectMade(static_cast<unsigned short>(65535), "65535");
    expectMade(std::numeric_limits<long>::min(), "-9223372036854775808");
    expectMade(std::numeric_limits<unsigned long>::max(), "18446744073709551615");
    expectMade(0.25F, "0.25");
    expectMade(1234567.0, "1.23457e+06");
    expectMade(TzDate(2002, 6, 7), "2002-06-07");
    expectMade(TzDateTime(2002, 6, 7, 8, 9, 10), "2002-06-07T08:09:10");
    expectMade(TzDecimalPortable("+01.50"), "1.50");
    expectMade(TzXmlDuration("P1DT2H"), "P1DT2H");
}

TEST(TzSoapSimpleType, CharactersAreNoBoolean) {
    const char* text = "0";
    EXPECT_EQ(Simple(name(), text, Simple::xsdString, false).getString(), "0");
    char buffer[] = "false";
    EXPECT_EQ(Simple(name(), buffer, Simple::xsdString, false).getString(), "false");
}

TEST(TzSoapSimpleType, ConstructorsDoNotValidate) {
    const Simple value(name(), TzDate(2002, 6, 7), Simple::xsdTime, false);
    expectHolds(value, "2002-06-07", Simple::xsdTime);
    const auto outside = static_cast<Simple::SchemaType>(77);
    expectHolds(Simple(name(), 5, outside, true), "5", outside);
}

TEST(TzSoapSimpleType, ABodyTakesItsTextByMove) {
    TzCString text(100, 'x');
    const char* const buffer = text.data();
    Imp body(name(), std::move(text), Simple::xsdString, false);
    EXPECT_EQ(body.text().data(), buffer);

    TzCString other(100, 'y');
    const char* const otherBuffer = other.data();
    body.setEncodedString(std::move(other), Simple::xsdToken);
    EXPECT_EQ(body.text().data(), otherBuffer);
    EXPECT_EQ(body.getType(), Simple::xsdToken);
}

TEST(TzSoapSimpleType, NamedValuesInheritTheEncodingStyle) {
    EXPECT_EQ(holding("x").getEncodingStyleAttribute(), "");
    EXPECT_FALSE(holding("x").hasEncodingStyleAttribute());
}

TEST(TzSoapSimpleType, EncodedTextTakesAnyType) {
    Simple value;
    value.setEncodedString("x", Simple::xsdToken);
    expectHolds(value, "x", Simple::xsdToken);
    value.setEncodedString(" not a number ", Simple::xsdInt);
    expectHolds(value, " not a number ", Simple::xsdInt);
    const std::string binary("a\0b", 3);
    value.setEncodedString(binary, Simple::xsdUnknown);
    expectHolds(value, binary, Simple::xsdUnknown);
}

TEST(TzSoapSimpleType, StringsTakeOneTypeOnly) {
    Simple value;
    value.setString("text", Simple::xsdString);
    expectHolds(value, "text", Simple::xsdString);
    expectAccepted([](Simple& tested, auto type) { tested.setString("x", type); },
                   {Simple::xsdString});
}

TEST(TzSoapSimpleType, BooleansAreDigits) {
    Simple value;
    value.setBool(true);
    expectHolds(value, "1", Simple::xsdBoolean);
    EXPECT_TRUE(value.getBool());
    value.setBool(false);
    expectHolds(value, "0", Simple::xsdBoolean);
    EXPECT_FALSE(value.getBool());
}

TEST(TzSoapSimpleType, OnlyTheDigit1IsTrue) {
    EXPECT_TRUE(holding("1").getBool());
    for (const char* text : {"true", " 1", "1 ", "01", "+1", "", "0", "TRUE"}) {
        EXPECT_FALSE(holding(text).getBool()) << text;
    }
}

TEST(TzSoapSimpleType, NumbersAreLabelledByTheirSetter) {
    Simple value;
    value.setInt(-5);
    expectHolds(value, "-5", Simple::xsdInt);
    EXPECT_EQ(value.getUnsignedInt(), 4294967291U);
    value.setUnsignedInt(4294967295U);
    expectHolds(value, "4294967295", Simple::xsdUnsignedInt);
    EXPECT_EQ(value.getUnsignedInt(), 4294967295U);
    value.setShort(-32768);
    expectHolds(value, "-32768", Simple::xsdShort);
    EXPECT_EQ(value.getShort(), -32768);
    value.setUnsignedShort(65535);
    expectHolds(value, "65535", Simple::xsdUnsignedShort);
    EXPECT_EQ(value.getUnsignedShort(), 65535);
    value.setLong(std::numeric_limits<long>::max());
    expectHolds(value, "9223372036854775807", Simple::xsdLong);
    EXPECT_EQ(value.getLong(), std::numeric_limits<long>::max());
    value.setUnsignedLong(18446744073709551615UL);
    expectHolds(value, "18446744073709551615", Simple::xsdUnsignedLong);
    value.setFloat(0.5F);
    expectHolds(value, "0.5", Simple::xsdFloat);
    EXPECT_EQ(value.getFloat(), 0.5F);
    value.setDouble(0.1);
    expectHolds(value, "0.1", Simple::xsdDouble);
    EXPECT_EQ(value.getDouble(), 0.1);
    value.setDouble(1234567.0);
    expectHolds(value, "1.23457e+06", Simple::xsdDouble);
    EXPECT_EQ(value.getDouble(), 1234570.0);
}

TEST(TzSoapSimpleType, NumbersAreReadFromAnyText) {
    EXPECT_EQ(holding("abc").getInt(), 0);
    EXPECT_EQ(holding("").getLong(), 0);
    EXPECT_EQ(holding("").getDouble(), 0);
    EXPECT_EQ(holding(" 12 monkeys").getInt(), 12);
    EXPECT_EQ(holding("12 monkeys").getShort(), 12);
    EXPECT_EQ(holding("3.75x").getFloat(), 3.75F);
    EXPECT_EQ(holding("3.75x").getLong(), 3);
}

TEST(TzSoapSimpleType, NumbersAreNarrowed) {
    EXPECT_EQ(holding("-1").getUnsignedInt(), 4294967295U);
    EXPECT_EQ(holding("-1").getUnsignedShort(), 65535);
    EXPECT_EQ(holding("-1").getUnsignedLong(), std::numeric_limits<unsigned long>::max());
    EXPECT_EQ(holding("65537").getShort(), 1);
    EXPECT_EQ(holding("65537").getUnsignedShort(), 1);
    EXPECT_EQ(holding("4000000000").getInt(), -294967296);
    EXPECT_EQ(holding("4000000000").getUnsignedInt(), 4000000000U);
    EXPECT_EQ(holding("4294967297").getInt(), 1);
    EXPECT_EQ(holding("18446744073709551615").getUnsignedLong(), 9223372036854775807UL);
    EXPECT_EQ(holding("-99999999999999999999").getLong(), std::numeric_limits<long>::min());
}

TEST(TzSoapSimpleType, DatesTakeTwoTypes) {
    const TzDate date(2002, 6, 7);
    Simple value;
    value.setDate(date, Simple::xsdDate);
    expectHolds(value, "2002-06-07", Simple::xsdDate);
    EXPECT_EQ(value.getDate(), date);
    value.setDate(date, Simple::xsdDateTime);
    expectHolds(value, "2002-06-07", Simple::xsdDateTime);
    expectAccepted([&date](Simple& tested, auto type) { tested.setDate(date, type); },
                   {Simple::xsdDateTime, Simple::xsdDate});
}

TEST(TzSoapSimpleType, TimesTakeThreeTypes) {
    const TzDateTime time(2002, 6, 7, 23, 59, 1);
    Simple value;
    for (const auto type : {Simple::xsdDateTime, Simple::xsdTime, Simple::xsdDate}) {
        value.setDateTime(time, type);
        expectHolds(value, "2002-06-07T23:59:01", type);
        EXPECT_EQ(value.getDateTime(), time);
    }
    expectAccepted([&time](Simple& tested, auto type) { tested.setDateTime(time, type); },
                   {Simple::xsdDateTime, Simple::xsdTime, Simple::xsdDate});
}

TEST(TzSoapSimpleType, ADateThatDoesNotExistLeavesTheValue) {
    Simple value = holding("before");
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([&] { value.setDate(TzDate(2002, 2, 30), Simple::xsdDate); }),
        "a date or time that does not exist cannot be written");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] {
                  value.setDateTime(TzDateTime(2002, 2, 3, 24, 0, 1), Simple::xsdDateTime);
              }),
              "a date or time that does not exist cannot be written");
    expectHolds(value, "before", Simple::xsdString);
}

TEST(TzSoapSimpleType, DecimalsTakeOneType) {
    Simple value;
    value.setDecimal(TzDecimalPortable("-007.250"), Simple::xsdDecimal);
    expectHolds(value, "-7.250", Simple::xsdDecimal);
    EXPECT_EQ(value.getDecimal().asString(), "-7.250");
    expectAccepted(
        [](Simple& tested, auto type) { tested.setDecimal(TzDecimalPortable("1"), type); },
        {Simple::xsdDecimal});
}

TEST(TzSoapSimpleType, DurationsHaveTheirType) {
    Simple value;
    value.setDuration(TzXmlDuration("-P1Y2M3DT4H5M6.7S"));
    expectHolds(value, "-P1Y2M3DT4H5M6.7S", Simple::xsdDuration);
    EXPECT_EQ(value.getDuration(), TzXmlDuration("-P1Y2M3DT4H5M6.7S"));
}

TEST(TzSoapSimpleType, ErrorsOfOtherParsersPassThrough) {
    const Simple value = holding("12x");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getDate(); }),
              "\"12x\" is not a date of the form YYYY-MM-DD");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getDateTime(); }),
              "\"12x\" is not a date and time of the form YYYY-MM-DDThh:mm:ss");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getDuration(); }),
              "\"12x\" is not a duration of the form PnYnMnDTnHnMnS");
    EXPECT_EQ(textThrown<TzBadValueError>([&] { value.getDecimal(); }),
              "\"12x\" is not a decimal number");
}

TEST(TzSoapSimpleType, GettersDoNotLookAtTheType) {
    Simple value;
    value.setEncodedString("1", Simple::xsdDate);
    EXPECT_TRUE(value.getBool());
    EXPECT_EQ(value.getInt(), 1);
    EXPECT_EQ(value.getDouble(), 1);
    EXPECT_EQ(value.getDecimal().asString(), "1");
}

TEST(TzSoapSimpleType, TheFlagIsKept) {
    Simple value;
    value.setTypeShouldBeEncoded(true);
    EXPECT_TRUE(value.getTypeShouldBeEncoded());
    value.setInt(3);
    EXPECT_TRUE(value.getTypeShouldBeEncoded());
    value.setTypeShouldBeEncoded(false);
    EXPECT_FALSE(value.getTypeShouldBeEncoded());
}

TEST(TzSoapSimpleType, TypeAndTypeAttributeAreDifferentThings) {
    Simple value;
    value.setInt(3);
    EXPECT_TRUE(value.TzSoapType::getType().isEmpty());
    value.setTypeAttribute(TzXmlName("string", TzXmlNamespace::getXsd()));
    EXPECT_EQ(value.getType(), Simple::xsdInt);
    EXPECT_EQ(value.TzSoapType::getType().getLocalName(), "string");
}

TEST(TzSoapSimpleType, CopiesOfTheHandleShareTheBody) {
    Simple value = holding("a");
    Simple shared = value;
    shared.setInt(7);
    EXPECT_EQ(value.getString(), "7");
    Simple assigned;
    assigned = value;
    assigned.setInt(8);
    EXPECT_EQ(value.getString(), "8");
    EXPECT_TRUE(TzSoapAccess::sameBody(value, assigned));
}

TEST(TzSoapSimpleType, CopyIsIndependentAndComplete) {
    Simple value(name(), "text", Simple::xsdToken, true);
    value.addAttribute("a", "1");
    value.setMustUnderstand(true);
    value.setEscapeText(Simple::EscapeOff);
    Simple copy = value.copy();
    EXPECT_FALSE(TzSoapAccess::sameBody(value, copy));
    expectHolds(copy, "text", Simple::xsdToken);
    EXPECT_TRUE(copy.getTypeShouldBeEncoded());
    EXPECT_EQ(copy.getName(), name());
    EXPECT_TRUE(copy.hasAttribute(TzXmlAttribute("a", "1")));
    EXPECT_TRUE(copy.getMustUnderstand());
    EXPECT_EQ(copy.getEscapeText(), Simple::EscapeOff);
    copy.setInt(9);
    copy.setMustUnderstand(false);
    expectHolds(value, "text", Simple::xsdToken);
    EXPECT_TRUE(value.getMustUnderstand());
}

TEST(TzSoapSimpleType, CopyThroughTheGenericHandleKeepsTheKind) {
    const TzSoapType generic = holding("kept");
    const TzSoapType copy = generic.copy();
    EXPECT_EQ(copy.getSoapTypeId(), Simple::Simple);
    EXPECT_EQ(static_cast<const Imp&>(TzSoapAccess::body(copy)).text(), "kept");
}

TEST(TzSoapSimpleType, MovesTakeTheBody) {
    static_assert(std::is_nothrow_move_constructible_v<Simple>);
    static_assert(std::is_nothrow_move_assignable_v<Simple>);
    Simple value = holding("a");
    const Simple moved = std::move(value);
    EXPECT_EQ(moved.getString(), "a");
    EXPECT_EQ(TzSoapAccess::body(moved).referenceCount(), 1U);
}

TEST(TzSoapSimpleType, RefusesEverythingWithoutABody) {
    Simple none = TzSoapAccess::handle<Simple>(static_cast<Imp*>(nullptr));
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    const TzDateTime time;
    refused([&] { none.copy(); });
    refused([&] { none.getType(); });
    refused([&] { none.getTypeShouldBeEncoded(); });
    refused([&] { none.setTypeShouldBeEncoded(true); });
    refused([&] { none.setEncodedString("", Simple::xsdUnknown); });
    refused([&] { none.setString("", Simple::xsdString); });
    refused([&] { none.setBool(true); });
    refused([&] { none.setInt(1); });
    refused([&] { none.setUnsignedInt(1); });
    refused([&] { none.setShort(1); });
    refused([&] { none.setUnsignedShort(1); });
    refused([&] { none.setLong(1); });
    refused([&] { none.setUnsignedLong(1); });
    refused([&] { none.setFloat(1); });
    refused([&] { none.setDouble(1); });
    refused([&] { none.setDate(time.getDate(), Simple::xsdDate); });
    refused([&] { none.setDateTime(time, Simple::xsdDateTime); });
    refused([&] { none.setDecimal(TzDecimalPortable(), Simple::xsdDecimal); });
    refused([&] { none.setDuration(TzXmlDuration()); });
    refused([&] { none.getString(); });
    refused([&] { none.getBool(); });
    refused([&] { none.getInt(); });
    refused([&] { none.getUnsignedInt(); });
    refused([&] { none.getShort(); });
    refused([&] { none.getUnsignedShort(); });
    refused([&] { none.getLong(); });
    refused([&] { none.getUnsignedLong(); });
    refused([&] { none.getFloat(); });
    refused([&] { none.getDouble(); });
    refused([&] { none.getDate(); });
    refused([&] { none.getDateTime(); });
    refused([&] { none.getDecimal(); });
    refused([&] { none.getDuration(); });
}

TEST(TzSoapSimpleType, TheGlobalLocaleDoesNotMatter) {
    const ForeignLocale foreign;
    Simple value(name(), 1234567, Simple::xsdInt, false);
    EXPECT_EQ(value.getString(), "1234567");
    value.setDouble(1234.5);
    EXPECT_EQ(value.getString(), "1234.5");
    EXPECT_EQ(value.getDouble(), 1234.5);
    value.setBool(true);
    EXPECT_EQ(value.getString(), "1");
    value.setDateTime(TzDateTime(2002, 6, 7, 8, 9, 10), Simple::xsdDateTime);
    EXPECT_EQ(value.getString(), "2002-06-07T08:09:10");
    value.setDecimal(TzDecimalPortable("1234567.5"), Simple::xsdDecimal);
    EXPECT_EQ(value.getString(), "1234567.5");
}
