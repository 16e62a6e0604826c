// SPDX-License-Identifier: MIT
//
// Faults of SOAP 1.2 of 2003, written and read.
#include "output/Wire12Rec.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapVersion.h>

#include <gtest/gtest.h>

namespace {

const std::string Complete = R"(    <env:Fault>
      <env:Code>
        <env:Value>env:Sender</env:Value>
        <env:Subcode xmlns:rpc="http://www.w3.org/2003/05/soap-rpc">
          <env:Value>rpc:BadArguments</env:Value>
          <env:Subcode xmlns:m="urn:m">
            <env:Value>m:TooLong</env:Value>
          </env:Subcode>
        </env:Subcode>
      </env:Code>
      <env:Reason>
        <env:Text xml:lang="en">Too &lt;long&gt;</env:Text>
        <env:Text xml:lang="de-CH">Zu lang</env:Text>
      </env:Reason>
      <env:Node>urn:node</env:Node>
      <env:Role>urn:role</env:Role>
      <env:Detail>
        <m:limit xmlns:m="urn:m" env:encodingStyle="http://www.w3.org/2003/05/soap-encoding">5</m:limit>
      </env:Detail>
    </env:Fault>
)";

TzSoapMessage completeFault() {
    TzSoapMessage message = messageRec({});
    const TzSoapVersion& names = message.getSoapVersion();
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(names.getFaultCode(TzSoapVersion::Client));
    fault.addSubcode(names.getSubFaultCode(TzSoapVersion::BadArguments));
    fault.addSubcode(nameIn("TooLong", "m", "urn:m"));
    fault.setReason("Too <long>");
    fault.addReason("Zu lang", "de-CH");
    fault.setNode("urn:node");
    fault.setRole("urn:role");
    TzSoapSimpleType limit = intValue("limit", 5);
    limit.setName(nameIn("limit", "m", "urn:m"));
    fault.addDetailEntry("m:limit", limit);
    return message;
}

/// The fault of a message whose body holds `lines`.
TzSoapFault faultIn(const std::string& lines) {
    return readRec(bodyRec(lines)).getSoapBody().getSoapFault();
}

std::string withReason(const std::string& reason) {
    return "<env:Fault><env:Code><env:Value>env:Sender</env:Value></env:Code><env:Reason>" +
           reason + "</env:Reason></env:Fault>";
}

} // namespace

TEST(Soap12RecFault, IsWritten) { EXPECT_EQ(wire(completeFault()), bodyRec(Complete)); }

TEST(Soap12RecFault, IsReadAndWrittenAgain) {
    EXPECT_EQ(wire(readRec(bodyRec(Complete))), bodyRec(Complete));
}

TEST(Soap12RecFault, AllOfItIsRead) {
    const TzSoapFault fault = faultIn(Complete);
    EXPECT_EQ(fault.getCode(), nameIn("Sender", "env", EnvUri12Rec));
    ASSERT_EQ(fault.getSubcodeCount(), 2U);
    EXPECT_EQ(fault.getSubcode(0),
              nameIn("BadArguments", "rpc", "http://www.w3.org/2003/05/soap-rpc"));
    EXPECT_EQ(fault.getSubcode(1), nameIn("TooLong", "m", "urn:m"));
    EXPECT_EQ(fault.getReason(), "Too <long>");
    EXPECT_EQ(fault.getReason("de"), "Zu lang");
    EXPECT_EQ(fault.getReasons().size(), 2U);
    EXPECT_EQ(fault.getNode(), "urn:node");
    EXPECT_EQ(fault.getRole(), "urn:role");
    EXPECT_EQ(fault.getDetails().childCount(), 1U);
}

TEST(Soap12RecFault, AReasonWithoutLanguageIsWrittenAsEnglish) {
    const TzSoapMessage message = readRec(bodyRec(withReason("<env:Text>No</env:Text>")));
    EXPECT_EQ(message.getSoapBody().getSoapFault().getReasons().front().language, "");
    EXPECT_NE(wire(message).find("<env:Text xml:lang=\"en\">No</env:Text>"), std::string::npos);
}

TEST(Soap12RecFault, WithoutReasonItHasAnEmptyText) {
    TzSoapMessage message = messageRec({});
    message.getSoapBody().getSoapFault().setCode(nameIn("Sender", "env", EnvUri12Rec));
    EXPECT_NE(wire(message).find("<env:Reason>\n        <env:Text xml:lang=\"en\"></env:Text>\n"
                                 "      </env:Reason>"),
              std::string::npos)
        << wire(message);
}

TEST(Soap12RecFault, AnEmptyTextIsEmpty) {
    const TzSoapFault fault = faultIn(withReason("<env:Text xml:lang=\"en\"/>"));
    ASSERT_EQ(fault.getReasons().size(), 1U);
    EXPECT_EQ(fault.getReason(), "");
}

TEST(Soap12RecFault, AReasonThatIsTextItselfIsRead) {
    const TzSoapFault fault = faultIn(withReason("No"));
    ASSERT_EQ(fault.getReasons().size(), 1U);
    EXPECT_EQ(fault.getReason(), "No");
}

TEST(Soap12RecFault, ChildrenOfSoap11AreRead) {
    const TzSoapFault fault =
        faultIn("<env:Fault><faultcode>env:Client.Bad</faultcode><faultstring>No</faultstring>"
                "<faultactor>urn:a</faultactor><detail><x>1</x></detail></env:Fault>");
    EXPECT_EQ(fault.getCode(), nameIn("Client.Bad", "env", EnvUri12Rec));
    EXPECT_EQ(fault.getReason(), "No");
    EXPECT_EQ(fault.getNode(), "urn:a");
    EXPECT_EQ(fault.getDetails().childCount(), 1U);
}

TEST(Soap12RecFault, TheOtherVersionsWriteTheFirstReason) {
    for (const auto& [version, line] :
         {std::pair(TzSoapVersion::V1_1, "<faultstring>Nein</faultstring>"),
          std::pair(TzSoapVersion::V1_2, "<env:Reason>Nein</env:Reason>")}) {
        TzSoapMessage message(version);
        TzSoapFault& fault = message.getSoapBody().getSoapFault();
        fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
        fault.addReason("Nein", "de");
        fault.addReason("No", "en");
        EXPECT_NE(wire(message).find(line), std::string::npos) << wire(message);
        EXPECT_EQ(wire(message).find("No<"), std::string::npos) << wire(message);
    }
}

TEST(Soap12RecFault, AFaultOnItsOwnIsOfItsVersion) {
    const std::string text = wire(completeFault().getSoapBody().getSoapFault());
    EXPECT_EQ(text.substr(0, text.find('\n')),
              "<env:Fault xmlns:env=\"http://www.w3.org/2003/05/soap-envelope\">");
    EXPECT_NE(text.find("<env:Text xml:lang=\"de-CH\">Zu lang</env:Text>"), std::string::npos);
}
