// SPDX-License-Identifier: MIT
//
// What programs pass as texts, numbers and booleans: each form reaches the overload that means it,
// and none becomes a boolean unasked.
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Simple = TzSoapSimpleType;
using namespace std::string_view_literals;

const char* const Null = nullptr;
const std::string NullText = "a null pointer is not a text";

struct Other {
    int member;
};

// Whether a form compiles; depends on types, so that one which does not is not an error.

template <typename Handle, typename Value>
concept MadeFrom = requires(Value value) {
    Handle("n", value, Simple::xsdString, false);
};

template <typename Handle, typename Value>
concept BoolSetFrom = requires(Handle handle, Value value) {
    handle.setBool(value);
};

template <typename Value>
concept FlagsSetFrom = requires(Simple handle, Value value) {
    handle.setTypeShouldBeEncoded(value);
}
|| requires(Simple handle, Value value) { handle.setRoot(value); }
|| requires(Simple handle, Value value) { handle.setNull(value); }
|| requires(Simple handle, Value value) { handle.setMustUnderstand(value); };

template <typename Value>
concept FlaggedBy = requires(TzSoapHeader h, TzSoapType e, Value v) {
    h.appendHeaderEntry(e, v);
}
|| requires(TzSoapHeader h, TzSoapType e, Value v) { h.prependHeaderEntry(e, v); }
|| requires(TzSoapHeader h, TzSoapType e, Value v) { h.insertHeaderEntry(h.begin(), e, v); };

template <typename Value>
concept FlaggedFirstBy = requires(TzSoapHeader h, TzSoapType e, Value v) {
    h.appendHeaderEntry(e, v, "a");
}
|| requires(TzSoapHeader h, TzSoapType e, Value v) { h.prependHeaderEntry(e, v, "a"); }
|| requires(TzSoapHeader h, TzSoapType e, Value v) { h.insertHeaderEntry(h.begin(), e, v, "a"); };

template <typename Value>
concept Refers = requires(Value value) {
    TzSoapReferenceType(value);
};

/// Pointers to other things than texts: taken for a boolean, all of them would be true.
template <template <typename> typename Check> constexpr bool anyPointerPasses() {
    return Check<const char8_t*>::value || Check<const char16_t*>::value ||
           Check<const wchar_t*>::value || Check<const unsigned char*>::value ||
           Check<signed char*>::value || Check<volatile char*>::value ||
           Check<const std::string*>::value || Check<std::string*>::value ||
           Check<const void*>::value || Check<void*>::value || Check<int*>::value ||
           Check<const char**>::value || Check<void (*)()>::value || Check<int Other::*>::value;
}

template <typename Value> struct MakesHandle {
    static constexpr bool value = MadeFrom<Simple, Value>;
};
template <typename Value> struct MakesBody {
    static constexpr bool value = MadeFrom<TzSoapSimpleTypeImp, Value>;
};
template <typename Value> struct SetsBool {
    static constexpr bool value =
        BoolSetFrom<Simple, Value> || BoolSetFrom<TzSoapSimpleTypeImp&, Value>;
};
template <typename Value> struct SetsFlag { static constexpr bool value = FlagsSetFrom<Value>; };
template <typename Value> struct Flags { static constexpr bool value = FlaggedBy<Value>; };
template <typename Value> struct FlagsFirst {
    static constexpr bool value = FlaggedFirstBy<Value>;
};

template <typename Value> std::string made(const Value& value) {
    const std::string text = Simple("n", value, Simple::xsdUnknown, false).getString();
    EXPECT_EQ(TzSoapSimpleTypeImp("n", value, Simple::xsdUnknown, false).text(), text);
    return text;
}

template <typename Action> void expectNullRefused(const Action& action) {
    EXPECT_EQ(textThrown<TzXmlBadArgError>(action), NullText);
}

} // namespace

TEST(TzSoapPlainArguments, NoStrayPointerMakesAValue) {
    EXPECT_FALSE(anyPointerPasses<MakesHandle>());
    EXPECT_FALSE(anyPointerPasses<MakesBody>());
}

TEST(TzSoapPlainArguments, NoPointerSetsABoolean) {
    EXPECT_FALSE(anyPointerPasses<SetsBool>());
    EXPECT_FALSE((BoolSetFrom<Simple, const char*>));
    EXPECT_FALSE((BoolSetFrom<Simple, std::nullptr_t>));
    EXPECT_TRUE((BoolSetFrom<Simple, bool>));
}

TEST(TzSoapPlainArguments, NoPointerSetsAFlag) {
    EXPECT_FALSE(anyPointerPasses<SetsFlag>());
    EXPECT_FALSE(FlagsSetFrom<const char*>);
    EXPECT_TRUE(FlagsSetFrom<bool>);
}

TEST(TzSoapPlainArguments, NoStrayPointerFlagsAHeaderEntry) {
    EXPECT_FALSE(anyPointerPasses<Flags>());
    EXPECT_TRUE(FlaggedBy<const char*>);
    EXPECT_TRUE(FlaggedBy<std::string>);
    EXPECT_TRUE(FlaggedBy<bool>);
}

TEST(TzSoapPlainArguments, NoPointerIsTheFlagBesideAnActor) {
    EXPECT_FALSE(anyPointerPasses<FlagsFirst>());
    EXPECT_FALSE(FlaggedFirstBy<const char*>);
    EXPECT_TRUE(FlaggedFirstBy<bool>);
}

TEST(TzSoapPlainArguments, NoPointerMakesAReference) {
    EXPECT_FALSE(Refers<TzSoapType*>);
    EXPECT_FALSE(Refers<const TzSoapSimpleType*>);
    EXPECT_FALSE(Refers<const char*>);
    EXPECT_FALSE(Refers<const char8_t*>);
    EXPECT_FALSE(Refers<void*>);
    EXPECT_TRUE(Refers<bool>);
    EXPECT_TRUE(Refers<TzXmlName>);
}

TEST(TzSoapPlainArguments, ValuesAreMadeFromEveryText) {
    char buffer[] = "false";
    EXPECT_EQ(made("literal"), "literal");
    EXPECT_EQ(made(std::string("string")), "string");
    EXPECT_EQ(made("a\0b"sv), std::string("a\0b", 3));
    EXPECT_EQ(made(static_cast<char*>(buffer)), "false");
    EXPECT_EQ(made(static_cast<const char*>("text")), "text");
}

TEST(TzSoapPlainArguments, ValuesAreMadeFromEveryNumber) {
    EXPECT_EQ(made(true), "1");
    EXPECT_EQ(made(-7), "-7");
    EXPECT_EQ(made(7U), "7");
    EXPECT_EQ(made(-9223372036854775807LL - 1), "-9223372036854775808");
    EXPECT_EQ(made(18446744073709551615ULL), "18446744073709551615");
    EXPECT_EQ(made(static_cast<signed char>(-5)), "-5");
    EXPECT_EQ(made(1234567.0), "1.23457e+06");
    EXPECT_EQ(made(1234567.0F), "1.23457e+06");
    EXPECT_EQ(made(1234567.0L), "1234567");
}

TEST(TzSoapPlainArguments, SettersTakeEveryText) {
    Simple value;
    value.setString("a", Simple::xsdString);
    EXPECT_EQ(value.getString(), "a");
    value.setString("b"sv, Simple::xsdString);
    EXPECT_EQ(value.getString(), "b");
    value.setEncodedString("c", Simple::xsdToken);
    EXPECT_EQ(value.getString(), "c");
    value.setEncodedString("d"sv, Simple::xsdToken);
    EXPECT_EQ(value.getString(), "d");
    EXPECT_EQ(value.getType(), Simple::xsdToken);
}

TEST(TzSoapPlainArguments, LongNumbersAreLabelledByTheirSetter) {
    Simple value;
    value.setLongLong(-5000000000LL);
    EXPECT_EQ(value.getString(), "-5000000000");
    EXPECT_EQ(value.getType(), Simple::xsdLong);
    value.setUnsignedLongLong(18446744073709551615ULL);
    EXPECT_EQ(value.getString(), "18446744073709551615");
    EXPECT_EQ(value.getType(), Simple::xsdUnsignedLong);
}

TEST(TzSoapPlainArguments, AnElementTakesEveryText) {
    TzSoapType value = named("v");
    value.addAttribute("a", "1");
    value.addAttribute("b", "2"sv);
    EXPECT_EQ(value.findAttribute("a")->getValue(), "1");
    EXPECT_EQ(value.findAttribute("b")->getValue(), "2");
    value.addNamespaceAttribute("p"sv, "urn:p"sv);
    value.addNamespaceAttribute("q", "urn:q"sv);
    value.addNamespaceAttribute("r"sv, "urn:r");
    EXPECT_EQ(value.findNamespaceAttribute("q"sv)->getValue(), "urn:q");
    EXPECT_EQ(std::as_const(value).findNamespaceAttribute("r"sv)->getValue(), "urn:r");
    value.removeNamespaceAttribute("p"sv);
    EXPECT_EQ(value.findNamespaceAttribute("p"), value.attributesEnd());
    value.setDefaultNamespaceAttribute("urn:d"sv);
    EXPECT_EQ(value.getDefaultNamespaceAttribute(), "urn:d");
    value.setEncodingStyle("urn:s"sv);
    EXPECT_EQ(value.getEncodingStyleAttribute(), "urn:s");
    value.setIdAttribute("i"sv);
    EXPECT_EQ(value.getIdAttribute(), "i");
    value.setActor("urn:a"sv);
    EXPECT_EQ(value.getActorAttribute(), "urn:a");
}

TEST(TzSoapPlainArguments, AMessageTakesEveryText) {
    TzSoapMessage message;
    message.setSoapPrefix("s"sv);
    message.setSoapEncodingPrefix("c"sv);
    EXPECT_EQ(message.getSoapPrefix() + message.getSoapEncodingPrefix(), "sc");
}

TEST(TzSoapPlainArguments, AHeaderTakesEveryText) {
    TzSoapMessage message;
    TzSoapHeader& header = message.getSoapHeader();
    header.appendHeaderEntry(named("a"), "urn:a"sv);
    header.appendHeaderEntry(named("b"), true, "urn:b"sv);
    header.prependHeaderEntry(named("c"), "urn:c"sv);
    header.prependHeaderEntry(named("d"), true, "urn:d"sv);
    header.insertHeaderEntry(header.end(), named("e"), "urn:e"sv);
    header.insertHeaderEntry(header.end(), named("f"), true, "urn:f"sv);
    header.insertHeaderEntry(header.end(), named("g"), false, "urn:g");
    std::string all;
    for (const TzSoapType& entry : header) {
        all += entry.getActorAttribute() + entry.getMustUnderstandAttribute() + ' ';
    }
    EXPECT_EQ(all, "urn:dtrue urn:c urn:a urn:btrue urn:e urn:ftrue urn:gfalse ");
}

TEST(TzSoapPlainArguments, AFaultTakesEveryText) {
    TzSoapFault fault;
    fault.setReason("r"sv);
    fault.setNode("n"sv);
    fault.setRole("o"sv);
    fault.addFaultCodeQualifier("q"sv);
    fault.addDetailEntry("e"sv, named("x"));
    EXPECT_EQ(fault.getReason() + fault.getNode() + fault.getRole(), "rno");
    EXPECT_EQ(fault.getSubcode(0), TzXmlName("q"));
    EXPECT_EQ(fault.getDetails().getChild("e").getName(), TzXmlName("e"));
    fault.setFaultString("s"sv);
    fault.setFaultActor("a"sv);
    EXPECT_EQ(fault.getReason() + fault.getNode(), "sa");
}

TEST(TzSoapPlainArguments, ANullPointerIsNoValue) {
    Simple value;
    expectNullRefused([] { Simple("n", Null, Simple::xsdString, false); });
    expectNullRefused([] { TzSoapSimpleTypeImp("n", Null, Simple::xsdString, false); });
    expectNullRefused([&] { value.setString(Null, Simple::xsdString); });
    expectNullRefused([&] { value.setEncodedString(Null, Simple::xsdString); });
}

TEST(TzSoapPlainArguments, ANullPointerIsNoPropertyOfAnElement) {
    TzSoapType value = named("v");
    expectNullRefused([&] { value.addAttribute("a", Null); });
    expectNullRefused([&] { value.addNamespaceAttribute("p", Null); });
    expectNullRefused([&] { value.addNamespaceAttribute(Null, "u"); });
    expectNullRefused([&] { value.findNamespaceAttribute(Null); });
    expectNullRefused([&] { value.removeNamespaceAttribute(Null); });
    expectNullRefused([&] { value.setDefaultNamespaceAttribute(Null); });
    expectNullRefused([&] { value.setEncodingStyle(Null); });
    expectNullRefused([&] { value.setIdAttribute(Null); });
    expectNullRefused([&] { value.setActor(Null); });
    expectNullRefused([&] { value.setIdAttribute(nullptr); });
    EXPECT_EQ(value.attributeCount(), 0U);
}

TEST(TzSoapPlainArguments, ANullPointerIsNoPartOfAMessage) {
    TzSoapMessage message;
    TzSoapHeader& header = message.getSoapHeader();
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    expectNullRefused([&] { message.setSoapPrefix(Null); });
    expectNullRefused([&] { message.setSoapEncodingPrefix(Null); });
    expectNullRefused([&] { header.appendHeaderEntry(named("a"), Null); });
    expectNullRefused([&] { header.appendHeaderEntry(named("a"), true, Null); });
    expectNullRefused([&] { header.prependHeaderEntry(named("a"), Null); });
    expectNullRefused([&] { header.prependHeaderEntry(named("a"), true, Null); });
    expectNullRefused([&] { header.insertHeaderEntry(header.begin(), named("a"), Null); });
    expectNullRefused([&] { header.insertHeaderEntry(header.begin(), named("a"), true, Null); });
    expectNullRefused([&] { fault.setReason(Null); });
    expectNullRefused([&] { fault.setFaultString(Null); });
    expectNullRefused([&] { fault.setNode(Null); });
    expectNullRefused([&] { fault.setFaultActor(Null); });
    expectNullRefused([&] { fault.setRole(Null); });
    expectNullRefused([&] { fault.addFaultCodeQualifier(Null); });
    expectNullRefused([&] { fault.addDetailEntry(Null, named("a")); });
    EXPECT_EQ(header.entryCount(), 0U);
}
