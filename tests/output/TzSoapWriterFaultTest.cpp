// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>
#include <tz/xml/TzXmlDomainError.h>

#include "output/WireText.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

namespace {

using Version = TzSoapVersion;

/// The fault of `message` with the code Client (Sender), a reason and all else.
TzSoapFault& fillFault(TzSoapMessage& message) {
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(Version::Client));
    fault.setReason("a < b");
    fault.setNode("urn:node&1");
    fault.setRole("urn:role");
    fault.addDetailEntry("d", intValue("x", 5));
    return fault;
}

TEST(TzSoapWriterFault, WritesSoap11) {
    TzSoapMessage message(Version::V1_1);
    fillFault(message);
    EXPECT_EQ(wire(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
    <SOAP-ENV:Fault>
      <faultcode>SOAP-ENV:Client</faultcode>
      <faultstring>a &lt; b</faultstring>
      <faultactor>urn:node&amp;1</faultactor>
      <detail SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
        <d>5</d>
      </detail>
    </SOAP-ENV:Fault>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterFault, WritesSoap12) {
    TzSoapMessage message;
    TzSoapFault& fault = fillFault(message);
    fault.addSubcode(message.getSoapVersion().getSubFaultCode(Version::ProcedureNotPresent));
    fault.addSubcode(TzXmlName("deep", TzXmlNamespace("rpc", "urn:mine")));
    EXPECT_EQ(wire(message), R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Body>
    <env:Fault>
      <env:Code>
        <env:Value>env:Sender</env:Value>
        <env:Subcode xmlns:rpc="http://www.w3.org/2002/06/soap-rpc">
          <env:Value>rpc:ProcedureNotPresent</env:Value>
          <env:Subcode xmlns:rpc="urn:mine">
            <env:Value>rpc:deep</env:Value>
          </env:Subcode>
        </env:Subcode>
      </env:Code>
      <env:Reason>a &lt; b</env:Reason>
      <env:Node>urn:node&amp;1</env:Node>
      <env:Role>urn:role</env:Role>
      <env:Detail env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
        <d>5</d>
      </env:Detail>
    </env:Fault>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterFault, WritesCodeAndReasonAlone) {
    TzSoapMessage message(Version::V1_1);
    message.getSoapBody().getSoapFault().setCode(TzXmlName("Broken"));
    message.getSoapBody().appendEntry(intValue("a", 1));
    message.getSoapBody().setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding/");
    EXPECT_EQ(
        wire(message.getSoapBody()),
        R"(<SOAP-ENV:Body xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Fault>
    <faultcode>Broken</faultcode>
    <faultstring></faultstring>
  </SOAP-ENV:Fault>
  <a>1</a>
</SOAP-ENV:Body>
)");
}

TEST(TzSoapWriterFault, WritesNoFaultWithoutCode) {
    TzSoapMessage message(Version::V1_1);
    message.getSoapBody().getSoapFault().setReason("lost");
    EXPECT_EQ(wire(message.getSoapBody()),
              R"(<SOAP-ENV:Body xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
</SOAP-ENV:Body>
)");
}

TEST(TzSoapWriterFault, DotsSubcodesInSoap11) {
    TzSoapMessage message(Version::V1_1);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(Version::Client));
    fault.addFaultCodeQualifier("a");
    fault.addFaultCodeQualifier("b");
    fault.addSubcode(TzXmlName("c", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(wire(fault),
              R"(<SOAP-ENV:Fault xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <faultcode>SOAP-ENV:Client.a.b.urn:p:c</faultcode>
  <faultstring></faultstring>
</SOAP-ENV:Fault>
)");
}

TEST(TzSoapWriterFault, NestsSubcodesInSoap12) {
    TzSoapFault fault;
    fault.setCode(TzXmlName("Mine", TzXmlNamespace("m", "urn:m")));
    fault.addFaultCodeQualifier("a");
    fault.addSubcode(TzXmlName("b", TzXmlNamespace("p", "urn:p")));
    fault.addSubcode(TzXmlName("c", TzXmlNamespace("p", "urn:p")));
    fault.addSubcode(TzXmlName("d", TzXmlNamespace("m", "urn:other")));
    fault.addSubcode(TzXmlName("q:e"));
    EXPECT_EQ(wire(fault),
              R"(<env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:m="urn:m">
  <env:Code>
    <env:Value>m:Mine</env:Value>
    <env:Subcode>
      <env:Value>a</env:Value>
      <env:Subcode xmlns:p="urn:p">
        <env:Value>p:b</env:Value>
        <env:Subcode xmlns:p="urn:p">
          <env:Value>p:c</env:Value>
          <env:Subcode>
            <env:Value>m:d</env:Value>
            <env:Subcode>
              <env:Value>q:e</env:Value>
            </env:Subcode>
          </env:Subcode>
        </env:Subcode>
      </env:Subcode>
    </env:Subcode>
  </env:Code>
  <env:Reason></env:Reason>
</env:Fault>
)");
}

TEST(TzSoapWriterFault, WritesAnEmptyFaultOnItsOwn) {
    EXPECT_EQ(wire(TzSoapFault()),
              R"(<env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Code>
    <env:Value></env:Value>
  </env:Code>
  <env:Reason></env:Reason>
</env:Fault>
)");
}

TEST(TzSoapWriterFault, TakesNamesFromTheVersionField) {
    TzSoapMessage message(Version::V1_1);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.clear(); // now of SOAP 1.2, under the old name
    fault.setReason("r");
    fault.addDetailEntry("d", intValue("x", 5));
    EXPECT_EQ(wire(fault), R"(<env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Code>
    <env:Value></env:Value>
  </env:Code>
  <env:Reason>r</env:Reason>
  <env:Detail env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
    <d>5</d>
  </env:Detail>
</env:Fault>
)");
}

TEST(TzSoapWriterFault, KeepsItsOwnPrefixInAnEnvelope) {
    TzSoapMessage message(Version::V1_2);
    fillFault(message).setNode("");
    message.setSoapPrefix("E");
    EXPECT_EQ(wire(message), R"(<E:Envelope xmlns:E="http://www.w3.org/2002/06/soap-envelope">
  <E:Body>
    <env:Fault xmlns:env="http://www.w3.org/2002/06/soap-envelope">
      <env:Code>
        <env:Value>env:Sender</env:Value>
      </env:Code>
      <env:Reason>a &lt; b</env:Reason>
      <env:Role>urn:role</env:Role>
      <env:Detail E:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
        <d>5</d>
      </env:Detail>
    </env:Fault>
  </E:Body>
</E:Envelope>
)");
}

TEST(TzSoapWriterFault, TakesTheEnvelopePrefixWhenItHasNone) {
    TzSoapMessage message;
    message.extract(
        R"(<e:Envelope xmlns:e="http://www.w3.org/2002/06/soap-envelope"><e:Body><Fault xmlns="http://www.w3.org/2002/06/soap-envelope"><Code><Value>e:Sender</Value></Code><Reason>r</Reason><Detail><d xmlns="">1</d></Detail></Fault></e:Body></e:Envelope>)");
    EXPECT_EQ(wire(message), R"(<e:Envelope xmlns:e="http://www.w3.org/2002/06/soap-envelope">
  <e:Body>
    <e:Fault>
      <e:Code>
        <e:Value>e:Sender</e:Value>
      </e:Code>
      <e:Reason>r</e:Reason>
      <e:Detail e:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
        <d xmlns="">1</d>
      </e:Detail>
    </e:Fault>
  </e:Body>
</e:Envelope>
)");
}

TEST(TzSoapWriterFault, DoesNotRenameAnotherDetail) {
    TzSoapMessage message(Version::V1_1);
    TzSoapCompositeType mine(TzXmlName("mine", TzXmlNamespace("m", "urn:m")));
    mine.setIdAttribute("i");
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(TzXmlName("c"));
    fault.setDetails(mine);
    const std::string without = wire(fault);
    EXPECT_EQ(without.find("mine"), std::string::npos);
    EXPECT_EQ(without.find("detail"), std::string::npos);
    mine.appendChild(intValue("a", 1));
    EXPECT_EQ(wire(fault),
              R"(<SOAP-ENV:Fault xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <faultcode>c</faultcode>
  <faultstring></faultstring>
  <detail SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" id="i">
    <a>1</a>
  </detail>
</SOAP-ENV:Fault>
)");
    EXPECT_EQ(mine.getName().getLocalName(), "mine");
}

TEST(TzSoapWriterFault, RefusesSubcodesNestedTooDeeply) {
    TzSoapFault fault;
    fault.setCode(TzXmlName("c"));
    for (unsigned int i = 0; i < TzSoapWriter::DepthLimit; ++i) {
        fault.addFaultCodeQualifier("s");
    }
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wire(fault); }),
              "Elements nested deeper than 2000 levels are not written");
}

TEST(TzSoapWriterFault, WritesTheTextOfTheDetailBeforeItsEntries) {
    TzSoapMessage message(Version::V1_1);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(TzXmlName("c"));
    fault.setDetailText("out of <money>");
    fault.addDetailEntry("d", intValue("x", 5));
    EXPECT_EQ(wire(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
    <SOAP-ENV:Fault>
      <faultcode>c</faultcode>
      <faultstring></faultstring>
      <detail SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
        out of &lt;money&gt;
        <d>5</d>
      </detail>
    </SOAP-ENV:Fault>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterFault, WritesADetailForATextAlone) {
    TzSoapMessage message;
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(TzXmlName("c"));
    fault.setDetailText("cause");
    TzSoapMessage read;
    read.extract(message.asString());
    EXPECT_EQ(read.getSoapBody().getSoapFault().getDetailText(), "cause");
    EXPECT_EQ(read.getSoapBody().getSoapFault().getDetails().childCount(), 0U);
}

TEST(TzSoapWriterFault, WritesNoTextIntoADetailThatIsNil) {
    TzSoapMessage message;
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(TzXmlName("c"));
    TzSoapCompositeType detail;
    detail.setNull(true);
    fault.setDetails(detail);
    fault.setDetailText("cause");
    EXPECT_EQ(wire(message).find("cause"), std::string::npos) << wire(message);
}

TEST(TzSoapWriterFault, WritesNoDetailForWhiteSpace) {
    TzSoapMessage message;
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(TzXmlName("c"));
    fault.setDetailText(" \n");
    EXPECT_EQ(wire(message).find("Detail"), std::string::npos) << wire(message);
}

} // namespace
