// SPDX-License-Identifier: MIT
#include <soap/TzSoapSerializer.h>

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlInternalError.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"
#include "output/WireText.h"
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

template <typename Element> std::string serialized(const Element& element) {
    TzSoapSerializer serializer;
    element.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

/// A message with something of every kind.
TzSoapMessage everything(TzSoapVersion::Version version) {
    TzSoapSimpleType shared("shared", "text & more", TzSoapType::xsdString, true);
    shared.setIdAttribute("i");
    TzSoapCompositeType order(nameIn("order", "t", "urn:t"));
    order.setTypeAttribute(nameIn("Order", "t", "urn:t"));
    order.appendChild(TzSoapSimpleType("price", 1.5, TzSoapType::xsdDouble, true));
    order.appendChild(TzSoapReferenceType(TzXmlName("ref1"), shared));
    order.appendChild(TzSoapSimpleType(TzXmlName(), 1, TzSoapType::xsdInt, false));
    TzSoapCompactArrayType array(TzXmlName("array"), "xsd:int", 3, 0);
    array(0) = intValue("i", 1);
    array(2) = intValue("i", 3);
    TzSoapSparseArrayType sparse(TzXmlName("sparse"), "xsd:int", 9);
    sparse[4] = intValue("i", 4);
    TzSoapMessage message = encodedMessage(version, {order, array, sparse, TzSoapType("generic")});
    message.setProlog(TzXmlProlog());
    message.getSoapHeader().appendHeaderEntry(intValue("h", 1), true, "urn:actor");
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Server));
    fault.setReason("why");
    fault.addFaultCodeQualifier("sub");
    fault.addDetailEntry("d", intValue("x", 5));
    return message;
}

/// The names that the header of a fault reply reports.
std::string misunderstoodNames(const TzSoapMessage& message) {
    std::string names;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        const auto report = tzSoapCast<TzSoapMisunderstoodType>(*entry);
        const TzXmlName name = report ? report->getQualifiedName() : TzXmlName("another kind");
        names += "{" + name.getUri() + "}" + name.getLocalName() + " ";
    }
    return names;
}

/// `text` after the start tag of its envelope, or that start tag.
std::string content(const std::string& text) {
    return text.substr(text.find('>', text.find("Envelope")));
}
std::string envelopeTag(const std::string& text) {
    const std::size_t begin = text.find('<', 1);
    return text.substr(begin, text.find('>', begin) + 1 - begin);
}

TEST(TzSoapSerializer, WritesWhatTheWriterWrites) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const TzSoapMessage message = everything(version);
        EXPECT_EQ(content(serialized(message)), content(wire(message)));
        EXPECT_GT(content(wire(message)).size(), 1000U);
    }
    // An element's own declarations come first.
    EXPECT_EQ(
        envelopeTag(serialized(everything(TzSoapVersion::V1_2))),
        R"(<env:Envelope xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">)");
    EXPECT_EQ(
        envelopeTag(wire(everything(TzSoapVersion::V1_2))),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">)");
}

TEST(TzSoapSerializer, ReadsBackAsWhatTheWriterWrote) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const TzSoapMessage message = everything(version);
        TzSoapMessage fromWriter;
        fromWriter.extract(wire(message));
        TzSoapMessage fromSerializer;
        fromSerializer.extract(serialized(message));
        EXPECT_EQ(fromSerializer.getVersion(), version);
        EXPECT_EQ(fromSerializer.getSoapHeader().asString(), fromWriter.getSoapHeader().asString());
        EXPECT_EQ(fromSerializer.getSoapBody().asString(), fromWriter.getSoapBody().asString());
        EXPECT_EQ(fromSerializer.getEncodingStyleAttribute(),
                  fromWriter.getEncodingStyleAttribute());
        EXPECT_EQ(fromSerializer.attributeCount(), fromWriter.attributeCount());
    }
}

TEST(TzSoapSerializer, LeavesAStyleInForceOut) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().setEncodingStyle(EncUri11);
    TzSoapSimpleType repeated = intValue("r", 3);
    repeated.setEncodingStyle(EncUri11);
    TzSoapCompositeType foreign("f");
    foreign.setEncodingStyle("urn:other");
    TzSoapSimpleType inner = intValue("i", 4);
    inner.setEncodingStyle("urn:other");
    foreign.appendChild(inner);
    foreign.appendChild(intValue("j", 5));
    message.getSoapBody().appendEntry(repeated);
    message.getSoapBody().appendEntry(foreign);
    EXPECT_EQ(serialized(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
    <r>3</r>
    <f SOAP-ENV:encodingStyle="urn:other">
      <i>4</i>
      <j SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">5</j>
    </f>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
    EXPECT_EQ(
        serialized(repeated),
        R"(<r xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">3</r>
)");
}

TEST(TzSoapSerializer, HeaderAndBodyDoNotRepeatTheStyleOfTheEnvelope) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("urn:s");
    message.getSoapHeader().setEncodingStyle("urn:s");
    message.getSoapHeader().appendHeaderEntry(TzSoapType("h"), false);
    message.getSoapBody().setEncodingStyle("urn:s");
    EXPECT_EQ(
        serialized(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="urn:s">
  <SOAP-ENV:Header>
    <h>
    </h>
  </SOAP-ENV:Header>
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapSerializer, MembersDoNotRepeatTheStyleThatAValueGot) {
    TzSoapCompositeType outer("o");
    outer.appendChild(intValue("a", 1));
    EXPECT_EQ(
        serialized(outer),
        R"(<o xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <a>1</a>
</o>
)");
}

TEST(TzSoapSerializer, WritesTheStyleAtItsPlace) {
    TzSoapSimpleType stated("a", 1, TzSoapType::xsdInt, true);
    stated.addAttribute(TzXmlName("own"), "1");
    stated.setEncodingStyle("urn:s");
    stated.setRoot(true);
    TzSoapSimpleType ensured = stated;
    EXPECT_EQ(
        serialized(stated),
        R"(<a xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" own="1" env:encodingStyle="urn:s" enc:root="1" xsi:type="xsd:int">1</a>
)");
    ensured.removeEncodingStyleAttribute();
    EXPECT_EQ(
        serialized(ensured),
        R"(<a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:env="http://www.w3.org/2002/06/soap-envelope" own="1" enc:root="1" xsi:type="xsd:int" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">1</a>
)");
}

TEST(TzSoapSerializer, WritesTheRootOfABody) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle(EncUri11);
    message.setRoot(true);
    message.getSoapBody().setRoot(true);
    message.getSoapHeader().setRoot(true);
    message.getSoapHeader().appendHeaderEntry(intValue("h", 1), false);
    EXPECT_EQ(
        serialized(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Header>
    <h>1</h>
  </SOAP-ENV:Header>
  <SOAP-ENV:Body xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:root="1">
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapSerializer, DeclaresWhatAnElementDeclaresFirst) {
    TzSoapCompositeType outer(nameIn("o", "p", "urn:p"));
    TzSoapType inner(nameIn("i", "p", "urn:q"));
    inner.addNamespaceAttribute("p", "urn:q");
    inner.addNamespaceAttribute("empty", "");
    inner.addAttribute(nameIn("a", "p", "urn:p"), "1");
    inner.addAttribute(nameIn("b", "p9", "urn:b"), "2");
    inner.addAttribute(nameIn("c", "p9", "urn:c"), "3");
    outer.appendChild(inner);
    EXPECT_EQ(
        serialized(outer),
        R"(<p:o xmlns:p="urn:p" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <p:i xmlns:p="urn:q" xmlns:p1="urn:p" xmlns:p9="urn:b" xmlns:p10="urn:c" p1:a="1" p9:b="2" p10:c="3">
  </p:i>
</p:o>
)");
}

TEST(TzSoapSerializer, TakesADefaultNamespaceBack) {
    TzSoapCompositeType outer(nameIn("o", "", "urn:o"));
    TzSoapType inner("i");
    inner.setDefaultNamespaceAttribute("");
    outer.appendChild(inner);
    EXPECT_NE(serialized(outer).find("<i xmlns=\"\">"), std::string::npos);
}

TEST(TzSoapSerializer, KeepsDefaultPrefixesOfTheLatestVersionWithoutAMessage) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    EXPECT_EQ(
        serialized(fault),
        R"(<env:Fault xmlns:env="http://schemas.xmlsoap.org/soap/envelope/" xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <faultcode>SOAP-ENV:Client</faultcode>
  <faultstring></faultstring>
</env:Fault>
)");
    message.getSoapHeader().appendHeaderEntry(intValue("h", 1), true);
    EXPECT_EQ(serialized(message.getSoapHeader()),
              R"(<SOAP-ENV:Header xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <h xmlns:env="http://schemas.xmlsoap.org/soap/envelope/" env:mustUnderstand="1" env:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">1</h>
</SOAP-ENV:Header>
)");
}

TEST(TzSoapSerializer, WritesTheTextOfTheDetailBeforeItsEntries) {
    TzSoapFault fault;
    fault.setDetailText("out of <money>");
    fault.addDetailEntry("d", intValue("x", 5));
    EXPECT_EQ(serialized(fault),
              R"(<env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Code>
    <env:Value></env:Value>
  </env:Code>
  <env:Reason></env:Reason>
  <env:Detail env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
    out of &lt;money&gt;
    <d>5</d>
  </env:Detail>
</env:Fault>
)");
}

TEST(TzSoapSerializer, WritesFaultAndBodyOnTheirOwn) {
    TzSoapFault fault;
    fault.setCode(nameIn("Mine", "m", "urn:m"));
    fault.addSubcode(nameIn("a", "p", "urn:p"));
    fault.addSubcode(nameIn("b", "p", "urn:p"));
    EXPECT_EQ(serialized(fault),
              R"(<env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:m="urn:m">
  <env:Code>
    <env:Value>m:Mine</env:Value>
    <env:Subcode xmlns:p="urn:p">
      <env:Value>p:a</env:Value>
      <env:Subcode xmlns:p="urn:p">
        <env:Value>p:b</env:Value>
      </env:Subcode>
    </env:Subcode>
  </env:Code>
  <env:Reason></env:Reason>
</env:Fault>
)");
    TzSoapMessage message;
    message.getSoapBody().appendEntry(intValue("a", 1));
    EXPECT_EQ(serialized(message.getSoapBody()),
              R"(<env:Body xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <a env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">1</a>
</env:Body>
)");
}

TEST(TzSoapSerializer, WritesAFaultReplyWithMisunderstoodEntries) {
    TzSoapMessage reply;
    reply.getSoapBody().getSoapFault().setCode(
        reply.getSoapVersion().getFaultCode(TzSoapVersion::SoapFaultCode::MustUnderstand));
    reply.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(nameIn("Lock", "a", "urn:1")),
                                            false);
    reply.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(nameIn("Key", "a", "urn:2")),
                                            false);
    const std::string expected =
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Header>
    <f:Misunderstood xmlns:a="urn:1" xmlns:f="http://www.w3.org/2002/06/soap-faults" qname="a:Lock"/>
    <f:Misunderstood xmlns:a="urn:2" xmlns:f="http://www.w3.org/2002/06/soap-faults" qname="a:Key"/>
  </env:Header>
  <env:Body>
    <env:Fault>
      <env:Code>
        <env:Value>env:MustUnderstand</env:Value>
      </env:Code>
      <env:Reason></env:Reason>
    </env:Fault>
  </env:Body>
</env:Envelope>
)";
    EXPECT_EQ(serialized(reply), expected);
    TzSoapMessage read;
    read.extract(expected);
    EXPECT_EQ(misunderstoodNames(read), "{urn:1}Lock {urn:2}Key ");
    EXPECT_EQ(serialized(read), expected);
    // Another tool uses the prefix for something else and spells the names with another one.
    read.extract(
        R"(<x:Envelope xmlns:x="http://www.w3.org/2002/06/soap-envelope" xmlns:a="urn:else" xmlns:b="urn:2">
  <x:Header>
    <y:Misunderstood xmlns:a="urn:1" xmlns:y="http://www.w3.org/2002/06/soap-faults" qname="a:Lock"/>
    <y:Misunderstood xmlns:y="http://www.w3.org/2002/06/soap-faults" qname="b:Key"/>
  </x:Header>
  <x:Body><x:Fault><x:Code><x:Value>x:MustUnderstand</x:Value></x:Code></x:Fault></x:Body>
</x:Envelope>
)");
    EXPECT_EQ(misunderstoodNames(read), "{urn:1}Lock {urn:2}Key ");
    EXPECT_EQ(read.getSoapBody().getSoapFault().getCode(),
              reply.getSoapBody().getSoapFault().getCode());
    // An own declaration holds as it stands, whatever is bound around it.
    const TzSoapMessage again = [&] {
        TzSoapMessage message;
        message.extract(serialized(read));
        return message;
    }();
    EXPECT_EQ(misunderstoodNames(again), "{urn:1}Lock {urn:2}Key ");
}

TEST(TzSoapSerializer, RenamesAttributesOfTheOtherVersion) {
    TzSoapMessage message;
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("actor", "SOAP-ENV", EnvUri11), "urn:a");
    entry.addAttribute(nameIn("arrayType", "SOAP-ENC", EncUri11), "xsd:int[1]");
    entry.addAttribute(nameIn("encodingStyle", "SOAP-ENV", EnvUri11), EncUri12);
    message.getSoapBody().appendEntry(entry);
    EXPECT_EQ(serialized(message),
              R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Body>
    <a env:role="urn:a" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">1</a>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapSerializer, CollectsParts) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    part.setBody("bytes");
    const TzSoapReferenceType attached(TzXmlName("a"), part);
    TzSoapSerializer serializer;
    attached.acceptVisitor(serializer);
    const TzMimeMultipart one = serializer.getMultipart();
    const TzSoapSerializer copy(serializer);
    attached.acceptVisitor(serializer);
    EXPECT_EQ(one.getPartCount(), 1U);
    EXPECT_EQ(copy.getMultipart().getPartCount(), 1U);
    EXPECT_EQ(serializer.getMultipart().getPartCount(), 2U);
    EXPECT_EQ(serializer.getMultipart().getPart(1).getBody(), "bytes");
    EXPECT_EQ(serializer.getSerializedString(), "<a href=\"cid:p1\"/>\n<a href=\"cid:p1\"/>\n");
    EXPECT_EQ(copy.getSerializedString(), "<a href=\"cid:p1\"/>\n");
}

TEST(TzSoapSerializer, NamesItselfInInternalErrors) {
    const auto broken = TzSoapAccess::handle<TzSoapUserDefinedType>(
        new TzSoapUserDefinedTypeImp(TzXmlName("u"), "<abc"));
    expectCatalogued<TzXmlInternalError>([&] { serialized(broken); }, 0x7013,
                                         "[INTERNAL_ERROR][Internal Logic Error in file "
                                         "\"TzSoapSerializer\", line \"669\" ]");
}

TEST(TzSoapSerializer, KeepsWhatWasWrittenBeforeAnError) {
    TzSoapSerializer serializer;
    intValue("a", 1).acceptVisitor(serializer);
    const std::string before = serializer.getSerializedString();
    const TzSoapSimpleType broken("b", std::string("\x01"), TzSoapType::xsdString, false);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { broken.acceptVisitor(serializer); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    EXPECT_EQ(serializer.getSerializedString().substr(0, before.size()), before);
}

TEST(TzSoapSerializer, HandsItsTextOver) {
    TzSoapSerializer serializer;
    intValue("a", 1).acceptVisitor(serializer);
    const std::string copied = serializer.getSerializedString();
    EXPECT_NE(copied, "");
    EXPECT_EQ(std::move(serializer).getSerializedString(), copied);
    // It goes on with an empty text.
    EXPECT_EQ(serializer.getSerializedString(), "");
    intValue("a", 1).acceptVisitor(serializer);
    EXPECT_EQ(serializer.getSerializedString(), copied);
}

TEST(TzSoapSerializer, IsUsedForSeveralElements) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    message.getSoapBody().acceptVisitor(serializer);
    EXPECT_EQ(serializer.getSerializedString(),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
<SOAP-ENV:Body xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
</SOAP-ENV:Body>
)");
    serializer = TzSoapSerializer();
    EXPECT_EQ(serializer.getSerializedString(), "");
    const TzSoapSerializer& same = serializer;
    serializer = same;
    EXPECT_EQ(serializer.getSerializedString(), "");
}

TEST(TzSoapSerializer, KnowsItsNames) {
    static_assert(std::is_same_v<decltype(TzSoapSerializer::Fault), const TzCString>);
    static_assert(std::is_same_v<decltype(TzSoapSerializer::Prefix), const TzCString>);
    static_assert(std::is_same_v<decltype(TzSoapSerializer::UnknownName), const TzXmlName>);
    EXPECT_EQ(TzSoapSerializer::Fault, "Fault");
    EXPECT_EQ(TzSoapSerializer::Prefix, "prefix");
    EXPECT_EQ(TzSoapSerializer::UnknownName.asString(), "tznone:unnamed");
    EXPECT_EQ(TzSoapSerializer::UnknownName.getUri(), "urn:tz-soap:unnamed");
}

TEST(TzSoapSerializer, GivesEverythingBackWhenMemoryIsShort) {
    const TzSoapMessage message = everything(TzSoapVersion::V1_1);
    EXPECT_GT(failEachAllocation([&] {
                  TzSoapSerializer serializer;
                  message.acceptVisitor(serializer);
                  const TzSoapSerializer copy(serializer);
              }),
              5U);
}

} // namespace
