// SPDX-License-Identifier: MIT
//
// Prefixes that are bound to other namespaces where a name, a fault, a style or a declaration needs
// them: what is written keeps its meaning, and the work stays linear.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapSerializer.h>

#include "output/WireText.h"
#include "support/AllocationFailure.h"
#include "support/ReadValues.h"

#include <gtest/gtest.h>

namespace {

/// Longer than a text that fits into a string itself, so that every prefix tried is counted.
const std::string LongPrefix = "aPrefixOfMoreThanFifteenCharacters";

template <typename Element> std::string serialized(const Element& element) {
    TzSoapSerializer serializer;
    element.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

template <typename Element> std::string written(const Element& element) { return wire(element); }

TzSoapMessage read(const std::string& text) {
    TzSoapMessage message;
    message.extract(std::string_view(text));
    return message;
}

std::string envelope(const std::string& body, const std::string& attributes = "") {
    return R"(<S:Envelope xmlns:S="http://schemas.xmlsoap.org/soap/envelope/")" + attributes +
           "><S:Body>" + body + "</S:Body></S:Envelope>";
}

/// An element that binds `prefix` and `count` numbered ones, with as many children that need
/// another number.
std::string clashes(const std::string& prefix, std::size_t count, const std::string& children) {
    std::string text = "<t xmlns:" + prefix + "=\"u\"";
    for (std::size_t i = 1; i <= count; ++i) {
        text += " xmlns:" + prefix + std::to_string(i) + "=\"u\"";
    }
    text += ">";
    for (std::size_t i = 0; i < count; ++i) {
        text += children;
    }
    return envelope(text + "</t>");
}

/// The children of `clashes` for the writer, whose own declarations clash.
std::string declaring(const std::string& prefix) { return "<a xmlns:" + prefix + "=\"v\"/>"; }

/// An element with as many attributes of different namespaces and one prefix.
TzSoapMessage manyNamespaces(std::size_t count) {
    TzSoapCompositeType value("t");
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        value.addAttribute(TzXmlAttribute(
            TzXmlName("x" + number, TzXmlNamespace(LongPrefix, "urn:" + number)), "1"));
    }
    return encodedMessage(TzSoapVersion::V1_1, {value});
}

/// A message whose values need the schema instance namespace, the usual prefix of which is bound
/// to another one, as are the first numbered prefixes.
TzSoapMessage schemaInstanceClashes(std::size_t count) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.addNamespaceAttribute("xsi", "urn:else");
    for (std::size_t i = 1; i <= count; ++i) {
        message.addNamespaceAttribute(("xsi" + std::to_string(i)).c_str(), "urn:else");
    }
    for (std::size_t i = 0; i < count; ++i) {
        TzSoapType value("v");
        value.setTypeAttribute(TzXmlName("xsd:int"));
        message.getSoapBody().appendEntry(value);
    }
    return message;
}

template <typename Write>
void expectLinear(const Write& write, const TzSoapMessage& small, const TzSoapMessage& large) {
    write(large); // what is made once is made
    const std::size_t before = askedBytes();
    write(small);
    const std::size_t between = askedBytes();
    write(large);
    const std::size_t smallWork = between - before;
    const std::size_t largeWork = askedBytes() - between;
    EXPECT_LT(largeWork, 6 * smallWork)
        << "four times the text took " << largeWork << " after " << smallWork << " bytes";
}

TEST(NamespaceClash, NumbersOfOwnDeclarationsAreFoundInLinearWork) {
    const std::string children = declaring(LongPrefix);
    expectLinear(written<TzSoapMessage>, read(clashes(LongPrefix, 250, children)),
                 read(clashes(LongPrefix, 1000, children)));
}

TEST(NamespaceClash, NumbersThatChildrenTakeAndGiveBackAreFoundInLinearWork) {
    const std::string children =
        "<a xmlns:" + LongPrefix + "=\"v\"><b xmlns:" + LongPrefix + "=\"w\"/></a>";
    expectLinear(written<TzSoapMessage>, read(clashes(LongPrefix, 250, children)),
                 read(clashes(LongPrefix, 1000, children)));
}

TEST(NamespaceClash, NumbersOfAttributesAreFoundInLinearWork) {
    const TzSoapMessage small = manyNamespaces(250);
    const TzSoapMessage large = manyNamespaces(1000);
    expectLinear(written<TzSoapMessage>, small, large);
    expectLinear(serialized<TzSoapMessage>, small, large);
}

TEST(NamespaceClash, ValuesFindTheNumberOfTheSchemaInstancePrefix) {
    const std::string text = wire(schemaInstanceClashes(3));
    EXPECT_NE(text.find(R"(<v xmlns:xsi4="http://www.w3.org/2001/XMLSchema-instance" xsi4:type=)"),
              std::string::npos)
        << text;
    EXPECT_EQ(serialized(schemaInstanceClashes(3)).find("xsi5"), std::string::npos);
}

TEST(NamespaceClash, NumbersAreTakenAgainWhenTheirElementIsClosed) {
    const std::string text = wire(read(clashes("p", 2, "<a xmlns:p=\"v\"><b xmlns:p=\"w\"/></a>")));
    EXPECT_NE(text.find(R"(<a xmlns:p3="v">)"), std::string::npos) << text;
    EXPECT_NE(text.find(R"(<b xmlns:p4="w">)"), std::string::npos) << text;
    EXPECT_EQ(text.find("p5"), std::string::npos) << text;
}

TEST(NamespaceClash, AGapInTheNumbersIsTaken) {
    const std::string text = wire(read(envelope(
        R"(<t xmlns:p="u" xmlns:p1="u" xmlns:p3="u"><a xmlns:p="v"/><b xmlns:p="u"/></t>)")));
    EXPECT_NE(text.find(R"(<a xmlns:p2="v">)"), std::string::npos) << text;
}

TEST(NamespaceClash, ANumberBoundToTheNamespaceIsTakenBeforeAFreeOne) {
    const std::string text =
        wire(read(envelope(R"(<t xmlns:p="u" xmlns:p1="u" xmlns:p2="v"><a xmlns:p="v"/></t>)")));
    EXPECT_NE(text.find(R"(<a xmlns:p2="v">)"), std::string::npos) << text;
}

TEST(NamespaceClash, BasesThatEndInDigitsHaveNumbersOfTheirOwn) {
    const std::string text = wire(read(envelope(
        R"(<t xmlns:p="u" xmlns:p1="u" xmlns:p11="u" xmlns:p12="u"><a xmlns:p1="v"/></t>)")));
    EXPECT_NE(text.find(R"(<a xmlns:p13="v">)"), std::string::npos) << text;
}

class NumberedBySerializer : public TzSoapSerializer {
public:
    explicit NumberedBySerializer(const std::vector<const char*>& prefixes) {
        for (const char* prefix : prefixes) {
            verifyQualifiedName(nameIn("a", prefix, "urn:taken"));
        }
    }
    using TzSoapSerializer::getUniquePrefix;
};

TEST(NamespaceClash, TheSerializerCountsOnFromTheNumber) {
    const NumberedBySerializer serializer({"p", "p1", "p9", "p10", "p099", "q09"});
    EXPECT_EQ(serializer.getUniquePrefix("p", "urn:x"), "p2");
    EXPECT_EQ(serializer.getUniquePrefix("p9", "urn:x"), "p11");
    EXPECT_EQ(serializer.getUniquePrefix("p099", "urn:x"), "p100");
    EXPECT_EQ(serializer.getUniquePrefix("q09", "urn:x"), "q10");
    EXPECT_EQ(serializer.getUniquePrefix("p1", "urn:taken"), "p1");
}

TEST(NamespaceClash, TheSerializerCountsBeyondAllNumberTypes) {
    const NumberedBySerializer serializer(
        {"p99999999999999999998", "p99999999999999999999", "p100000000000000000000"});
    EXPECT_EQ(serializer.getUniquePrefix("p99999999999999999998", "urn:x"),
              "p100000000000000000001");
}

TEST(NamespaceClash, ADefaultNamespaceIsUndeclaredWhereAnElementSaysSo) {
    const std::string text =
        envelope(R"(<op xmlns="urn:o"><p xmlns=""><q/></p><r xmlns="urn:o"/></op>)");
    for (const std::string& again : {wire(read(text)), serialized(read(text))}) {
        const TzSoapMessage message = read(again);
        const TzSoapType op = bodyEntry(message, 0);
        EXPECT_EQ(op.getName(), nameIn("op", "", "urn:o")) << again;
        EXPECT_EQ(composite(op).childrenBegin()->getName(), TzXmlName("p")) << again;
        EXPECT_EQ(composite(child(op, "p")).childrenBegin()->getName(), TzXmlName("q")) << again;
    }
    EXPECT_NE(wire(read(text)).find(R"(<p xmlns="")"), std::string::npos);
}

TEST(NamespaceClash, TheNameOfAnElementHoldsAgainstItsOwnUndeclaration) {
    TzSoapCompositeType value(nameIn("a", "", "urn:a"));
    value.setDefaultNamespaceAttribute("");
    EXPECT_NE(wire(encodedMessage(TzSoapVersion::V1_1, {value})).find(R"(<a xmlns="urn:a">)"),
              std::string::npos);
}

/// A message with a fault whose prefix is bound to another namespace.
TzSoapMessage faultUnderForeignPrefix() {
    TzSoapMessage message = read(envelope("", " xmlns:SOAP-ENV=\"urn:mine\""));
    message.getSoapBody().getSoapFault().setCode(
        TzXmlName("Server", TzXmlNamespace("S", EnvUri11)));
    return message;
}

TEST(NamespaceClash, AFaultWhosePrefixMeansSomethingElseTakesThatOfTheEnvelope) {
    const TzSoapMessage message = faultUnderForeignPrefix();
    for (const std::string& text : {wire(message), serialized(message)}) {
        EXPECT_NE(text.find("<S:Fault>"), std::string::npos) << text;
        EXPECT_TRUE(read(text).getSoapBody().hasSoapFault()) << text;
    }
}

TEST(NamespaceClash, AFaultInABodyThatBindsTheUsualPrefixGetsAPrefixOfItsOwn) {
    const TzSoapMessage message =
        read(R"(<B:Envelope xmlns:B="http://schemas.xmlsoap.org/soap/envelope/">)"
             R"(<B:Body xmlns:SOAP-ENV="urn:mine"><B:Fault><faultcode>B:Server</faultcode>)"
             R"(<faultstring>why</faultstring></B:Fault></B:Body></B:Envelope>)");
    const std::string text = wire(message.getSoapBody());
    EXPECT_NE(
        text.find(
            R"(<SOAP-ENV1:Fault xmlns:SOAP-ENV1="http://schemas.xmlsoap.org/soap/envelope/">)"),
        std::string::npos)
        << text;
}

TEST(NamespaceClash, AnEnvelopeSpeltWithoutSlashIsWrittenWithOneStyleOnEachTag) {
    const std::string text =
        R"(<S:Envelope xmlns:S="http://schemas.xmlsoap.org/soap/envelope"><S:Body>)"
        R"(<a S:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">1</a></S:Body></S:Envelope>)";
    const std::string again = wire(read(text));
    EXPECT_NE(again.find(R"( S1:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/")"),
              std::string::npos)
        << again;
    EXPECT_EQ(textOf(bodyEntry(read(again), 0)), "1") << again;
}

} // namespace
