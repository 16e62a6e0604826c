// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlInternalError.h>

#include "model/TzSoapAccess.h"
#include "output/WireText.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

namespace {

TzSoapUserDefinedType userDefined(const char* name, const std::string& markup) {
    return TzSoapAccess::handle<TzSoapUserDefinedType>(
        new TzSoapUserDefinedTypeImp(TzXmlName(name), markup));
}

TEST(TzSoapWriterValue, WritesASimpleValueOnItsOwn) {
    EXPECT_EQ(
        wire(intValue("a", 5)),
        R"(<a xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">5</a>
)");
}

TEST(TzSoapWriterValue, WritesSimpleValuesInAMessage) {
    TzSoapSimpleType typed("b", true, TzSoapType::xsdBoolean, true);
    TzSoapSimpleType nil("c", 7, TzSoapType::xsdInt, true);
    nil.setNull(true);
    TzSoapSimpleType notNil("d", 8, TzSoapType::xsdInt, false);
    notNil.setNull(false);
    const std::vector<TzSoapType> entries = {intValue("a", 5), typed, nil, notNil};
    const std::string lines = R"(    <a>5</a>
    <b xsi:type="xsd:boolean">1</b>
    <c xsi:nil="1" xsi:type="xsd:int"></c>
    <d xsi:nil="0">8</d>
)";
    EXPECT_EQ(wire11(entries), envelope11(lines));
    EXPECT_EQ(wire12(entries), envelope12(lines));
}

TEST(TzSoapWriterValue, WritesEveryTypeUnderItsLabel) {
    const char* const labels[] = {"",
                                  "xsd:string",
                                  "xsd:boolean",
                                  "xsd:decimal",
                                  "xsd:float",
                                  "xsd:double",
                                  "xsd:duration",
                                  "xsd:dateTime",
                                  "xsd:time",
                                  "xsd:date",
                                  "xsd:gYearMonth",
                                  "xsd:gYear",
                                  "xsd:gMonthDay",
                                  "xsd:gDay",
                                  "xsd:gMonth",
                                  "xsd:hexBinary",
                                  "xsd:base64Binary",
                                  "xsd:anyURI",
                                  "xsd:qName",
                                  "xsd:NOTATION",
                                  "xsd:normalizedString",
                                  "xsd:token",
                                  "xsd:language",
                                  "xsd:NMTOKEN",
                                  "xsd:NMTOKENS",
                                  "xsd:name",
                                  "xsd:NCName",
                                  "xsd:ID",
                                  "xsd:IDREF",
                                  "xsd:IDREFS",
                                  "xsd:ENTITY",
                                  "xsd:ENTITIES",
                                  "xsd:integer",
                                  "xsd:nonPositiveInteger",
                                  "xsd:negativeInteger",
                                  "xsd:long",
                                  "xsd:int",
                                  "xsd:short",
                                  "xsd:byte",
                                  "xsd:nonNegativeInteger",
                                  "xsd:unsignedLong",
                                  "xsd:unsignedInt",
                                  "xsd:unsignedShort",
                                  "xsd:unsignedByte",
                                  "xsd:positiveInteger",
                                  ""};
    int number = 0;
    for (const std::string label : labels) {
        const auto type = static_cast<TzSoapType::SchemaType>(number++);
        const TzSoapSimpleType value("a", "x", type, true);
        EXPECT_EQ(wire11({value}),
                  envelope11(label.empty() ? "    <a>x</a>\n"
                                           : "    <a xsi:type=\"" + label + "\">x</a>\n"));
    }
    const TzSoapSimpleType below("a", "x", static_cast<TzSoapType::SchemaType>(-1), true);
    EXPECT_EQ(wire11({below}), envelope11("    <a>x</a>\n"));
}

TEST(TzSoapWriterValue, ChangesATypedValueByWritingIt) {
    TzSoapSimpleType shown("a", 5, TzSoapType::xsdInt, true);
    TzSoapSimpleType hidden("b", 5, TzSoapType::xsdInt, false);
    TzSoapSimpleType unknown("c", "5", TzSoapType::xsdUnknown, true);
    unknown.setTypeAttribute(TzXmlName("t:mine"));
    hidden.setTypeAttribute(TzXmlName("mine", TzXmlNamespace("t", "urn:t")));
    EXPECT_EQ(shown.getTypeAttribute(), "");
    EXPECT_EQ(wire11({shown, hidden, unknown}), envelope11(R"(    <a xsi:type="xsd:int">5</a>
    <b xsi:type="t:mine">5</b>
    <c>5</c>
)"));
    EXPECT_EQ(shown.getTypeAttribute(), "xsd:int");
    EXPECT_EQ(hidden.getTypeAttribute(), "t:mine");
    EXPECT_EQ(unknown.getTypeAttribute(), "");
    shown.setEncodedString("x", TzSoapType::xsdToken);
    EXPECT_EQ(wire11({shown}), envelope11("    <a xsi:type=\"xsd:token\">x</a>\n"));
}

TEST(TzSoapWriterValue, EscapesTextUnlessToldOtherwise) {
    TzSoapSimpleType escaped("a", "<b>&\"'\r\n\t</b>", TzSoapType::xsdString, false);
    TzSoapSimpleType raw("a", "<b>&amp;</b>", TzSoapType::xsdString, false);
    raw.setEscapeText(TzSoapType::EscapeOff);
    TzSoapSimpleType other("a", "<", TzSoapType::xsdString, false);
    other.setEscapeText(static_cast<TzSoapType::EscapeText>(7));
    EXPECT_EQ(wire11({escaped, raw, other}),
              envelope11("    <a>&lt;b&gt;&amp;\"'&#13;\n\t&lt;/b&gt;</a>\n"
                         "    <a><b>&amp;</b></a>\n"
                         "    <a>&lt;</a>\n"));
}

TEST(TzSoapWriterValue, EscapesAttributes) {
    TzSoapSimpleType value = intValue("a", 5);
    value.addAttribute(TzXmlName("x"), "<\"&>\t\n\r");
    EXPECT_EQ(wire11({value}),
              envelope11("    <a x=\"&lt;&quot;&amp;&gt;&#9;&#10;&#13;\">5</a>\n"));
}

TEST(TzSoapWriterValue, RefusesWhatXmlCannotCarry) {
    TzSoapSimpleType value("a", std::string("x\x01y"), TzSoapType::xsdString, false);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { wire(value); }),
              "the character U+0001 at offset 1 cannot stand in XML");
    value.setEscapeText(TzSoapType::EscapeOff);
    EXPECT_NE(wire(value).find("x\x01y"), std::string::npos);
}

TEST(TzSoapWriterValue, WritesCompositesAndTheirMembers) {
    TzSoapCompositeType inner("inner");
    inner.appendChild(intValue("b", 2));
    TzSoapCompositeType outer(TzXmlName("outer", TzXmlNamespace("t", "urn:t")));
    outer.setTypeAttribute(TzXmlName("Outer", TzXmlNamespace("t", "urn:t")));
    outer.appendChild(intValue("a", 1));
    outer.appendChild(inner);
    outer.appendChild(TzSoapCompositeType("empty"));
    const std::string lines = R"(    <t:outer xmlns:t="urn:t" xsi:type="t:Outer">
      <a>1</a>
      <inner>
        <b>2</b>
      </inner>
      <empty>
      </empty>
    </t:outer>
)";
    EXPECT_EQ(wire11({outer}), envelope11(lines));
    EXPECT_EQ(wire12({outer}), envelope12(lines));
}

TEST(TzSoapWriterValue, LeavesTheMembersOfANilCompositeOut) {
    TzSoapCompositeType composite("s");
    composite.appendChild(intValue("a", 1));
    composite.setNull(true);
    EXPECT_EQ(wire11({composite}), envelope11("    <s xsi:nil=\"1\">\n    </s>\n"));
}

TEST(TzSoapWriterValue, WritesGenericValuesAsTwoTags) {
    TzSoapType generic("g");
    generic.addAttribute(TzXmlName("x"), "1");
    EXPECT_EQ(wire(generic), "<g x=\"1\">\n</g>\n");
    generic.setEncodingStyle("urn:s");
    EXPECT_EQ(wire11({generic}),
              envelope11("    <g SOAP-ENV:encodingStyle=\"urn:s\" x=\"1\">\n    </g>\n"));
    EXPECT_EQ(
        wire(generic),
        R"(<g xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="urn:s" x="1">
</g>
)");
}

TEST(TzSoapWriterValue, RefusesAPlaceholder) {
    expectCatalogued<TzXmlError>([] { wire(TzSoapDefaultType()); }, 0x7019,
                                 "[BAD_USAGE][Illegal use of this Class/Method "
                                 "\"TzSoapDefaultType\". Check the documentation]");
}

TEST(TzSoapWriterValue, NamesValuesWithoutName) {
    TzSoapCompositeType outer;
    outer.appendChild(TzSoapSimpleType(TzXmlName(), 1, TzSoapType::xsdInt, true));
    EXPECT_EQ(wire11({outer}), envelope11(R"(    <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed">
      <tznone:unnamed xmlns:tznone="urn:tz-soap:unnamed" xsi:type="xsd:int">1</tznone:unnamed>
    </tznone:unnamed>
)"));
}

TEST(TzSoapWriterValue, DeclaresTheUnnamedNamespaceBehindOthers) {
    TzSoapSimpleType value(TzXmlName(), 1, TzSoapType::xsdInt, true);
    value.setEncodingStyle("urn:s");
    EXPECT_EQ(
        wire(value),
        R"(<tznone:unnamed xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:tznone="urn:tz-soap:unnamed" env:encodingStyle="urn:s" xsi:type="xsd:int">1</tznone:unnamed>
)");
}

TEST(TzSoapWriterValue, WritesMisunderstoodEntriesAsEmptyTags) {
    TzSoapMessage message;
    const TzXmlName name("Lock", TzXmlNamespace("l", "urn:l"));
    message.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(name), false);
    EXPECT_EQ(wire(message), R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Header>
    <f:Misunderstood xmlns:f="http://www.w3.org/2002/06/soap-faults" xmlns:l="urn:l" qname="l:Lock"/>
  </env:Header>
  <env:Body>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterValue, WritesUserDefinedTextAsItStands) {
    TzSoapUserDefinedType nil = userDefined("c", "lost");
    nil.setNull(true);
    EXPECT_EQ(wire11({userDefined("a", "x & y > <b/>"), userDefined("b", ""), nil}),
              envelope11("    <a>x & y > <b/></a>\n    <b></b>\n    <c xsi:nil=\"1\"></c>\n"));
    EXPECT_EQ(
        wire(userDefined("a", "x")),
        R"(<a xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">x</a>
)");
}

TEST(TzSoapWriterValue, AddsTheStyleToUserDefinedMarkup) {
    const auto written = [](const std::string& markup) {
        TzSoapUserDefinedType value = userDefined("ignored", markup);
        value.setEncodingStyle("urn:s");
        return wire(value);
    };
    EXPECT_EQ(written("<a  x=\"1\"><b> </b></a>"),
              "<a env:encodingStyle=\"urn:s\"  x=\"1\"><b> </b></a>");
    EXPECT_EQ(written("<a>x y</a>"), "<a>x env:encodingStyle=\"urn:s\" y</a>");
    EXPECT_EQ(written("<a>x</a>"), "<a env:encodingStyle=\"urn:s\">x</a>");
    EXPECT_EQ(written("<a/>"), "<a env:encodingStyle=\"urn:s\"/>");
    EXPECT_EQ(written("<a><b/></a>"), "<a env:encodingStyle=\"urn:s\"><b/></a>");
    EXPECT_EQ(written("<a>my encodingStyle</a>"), "<a>my encodingStyle</a>");
    expectCatalogued<TzXmlInternalError>([&] { written("<abc"); }, 0x7013,
                                         "[INTERNAL_ERROR][Internal Logic Error in file "
                                         "\"TzSoapWriter\", line \"669\" ]");
}

TEST(TzSoapWriterValue, WritesUserDefinedMarkupInAMessage) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setSoapPrefix("E");
    message.getSoapBody().appendEntry(userDefined("a", "<a >x</a>"));
    EXPECT_EQ(wire(message), R"(<E:Envelope xmlns:E="http://schemas.xmlsoap.org/soap/envelope/">
  <E:Body>
    <a E:encodingStyle="" >x</a></E:Body>
</E:Envelope>
)");
}

// Encoding styles

TEST(TzSoapWriterValue, StatesTheStyleWhereTheScopeDoesNot) {
    TzSoapCompositeType foreign("f");
    foreign.setEncodingStyle("urn:other");
    foreign.appendChild(intValue("a", 1));
    TzSoapCompositeType back("back");
    back.appendChild(intValue("c", 2));
    foreign.appendChild(back);
    TzSoapSimpleType repeated = intValue("r", 3);
    repeated.setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding/");
    EXPECT_EQ(wire11({foreign, repeated, intValue("d", 4)}),
              envelope11(R"(    <f SOAP-ENV:encodingStyle="urn:other">
      <a SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">1</a>
      <back SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
        <c>2</c>
      </back>
    </f>
    <r SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">3</r>
    <d>4</d>
)"));
}

TEST(TzSoapWriterValue, ComparesStylesExactly) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding");
    message.getSoapBody().appendEntry(intValue("a", 1));
    EXPECT_NE(wire(message).find(
                  R"(<a SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">1</a>)"),
              std::string::npos);
}

// Depth

TzSoapCompositeType nested(unsigned int levels) {
    TzSoapCompositeType outermost("s");
    TzSoapCompositeType innermost = outermost;
    for (unsigned int level = 1; level < levels; ++level) {
        TzSoapCompositeType next("s");
        innermost.appendChild(next);
        innermost = next;
    }
    return outermost;
}

TEST(TzSoapWriterValue, WritesUpToTheDepthLimit) {
    const std::string text = wire(nested(TzSoapWriter::DepthLimit));
    std::size_t tags = 0;
    for (std::size_t at = text.find("</s>"); at != std::string::npos;
         at = text.find("</s>", at + 1)) {
        ++tags;
    }
    EXPECT_EQ(tags, TzSoapWriter::DepthLimit);
    for (const unsigned int levels : {TzSoapWriter::DepthLimit + 1, 200000U}) {
        EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wire(nested(levels)); }),
                  "Elements nested deeper than 2000 levels are not written")
            << levels;
    }
}

TEST(TzSoapWriterValue, ClosesItsScopesAfterAnError) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    TzSoapCompositeType outer(TzXmlName("o", TzXmlNamespace("t", "urn:t")));
    outer.appendChild(TzSoapSimpleType("a", std::string("\x01"), TzSoapType::xsdString, false));
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { outer.acceptVisitor(writer); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    text.setString("");
    outer.clearChildren();
    outer.acceptVisitor(writer);
    EXPECT_EQ(
        text.getString(),
        R"(<t:o xmlns:t="urn:t" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
</t:o>
)");
}

} // namespace
