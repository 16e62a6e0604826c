// SPDX-License-Identifier: MIT
#include "support/CataloguedError.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlInternalError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

const TzSoapFault& faultOf(const TzSoapMessage& message) {
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    return message.getSoapBody().getSoapFault();
}

/// Local name of the code and the reason of the fault for `error`.
std::string madeFrom(const Tzxmsg& error, TzSoapVersion::Version version = TzSoapVersion::V1_1) {
    const TzSoapMessage message = TzSoapFaultMessage::makeFrom(version, error);
    EXPECT_EQ(message.getVersion(), version);
    return faultOf(message).getCode().getLocalName() + "|" + faultOf(message).getReason();
}

/// The fault, asked for in the later version, for what reading `text` throws.
TzSoapMessage madeFromReading(const std::string& text) {
    try {
        messageOf(text);
    } catch (const Tzxmsg& error) {
        return TzSoapFaultMessage::makeFrom(TzSoapVersion::V1_2, error);
    }
    ADD_FAILURE() << "nothing thrown";
    return TzSoapMessage();
}

} // namespace

TEST(TzSoapFaultMessage, HoldsCodeAndReasonInItsVersion) {
    EXPECT_EQ(
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Client, "a < b").asString(),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<SOAP-ENV:Envelope "
        "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">\n"
        "  <SOAP-ENV:Body>\n"
        "    <SOAP-ENV:Fault>\n"
        "      <faultcode>SOAP-ENV:Client</faultcode>\n"
        "      <faultstring>a &lt; b</faultstring>\n"
        "    </SOAP-ENV:Fault>\n"
        "  </SOAP-ENV:Body>\n"
        "</SOAP-ENV:Envelope>\n");
    const TzSoapMessage second =
        TzSoapFaultMessage::make(TzSoapVersion::V1_2, TzSoapVersion::Server, "down");
    EXPECT_EQ(second.getVersion(), TzSoapVersion::V1_2);
    EXPECT_EQ(faultOf(second).getCode(),
              TzXmlName("Receiver", second.getSoapVersion().getSoapEnv()));
    EXPECT_EQ(faultOf(second).getReason(), "down");
}

TEST(TzSoapFaultMessage, ACodeOfTheLaterVersionIsTheSendersInTheFirst) {
    const auto codeIn = [](TzSoapVersion::Version version) {
        return faultOf(TzSoapFaultMessage::make(version, TzSoapVersion::DataEncodingUnknown, "no"))
            .getCode()
            .getQualifiedName();
    };
    EXPECT_EQ(codeIn(TzSoapVersion::V1_1), "SOAP-ENV:Client");
    EXPECT_EQ(codeIn(TzSoapVersion::V1_2), "env:DataEncodingUnknown");
}

TEST(TzSoapFaultMessage, SubcodesAreOfTheLaterVersion) {
    const auto made = [](TzSoapVersion::Version version) {
        return TzSoapFaultMessage::make(version, TzSoapVersion::Client,
                                        TzSoapVersion::ProcedureNotPresent, "no");
    };
    EXPECT_EQ(faultOf(made(TzSoapVersion::V1_1)).getSubcodeCount(), 0U);
    const TzSoapMessage second = made(TzSoapVersion::V1_2);
    ASSERT_EQ(faultOf(second).getSubcodeCount(), 1U);
    EXPECT_EQ(faultOf(second).getSubcode(0).getQualifiedName(), "rpc:ProcedureNotPresent");
    EXPECT_EQ(faultOf(second).getReason(), "no");
}

TEST(TzSoapFaultMessage, RefusesWhatIsNoVersion) {
    expectCatalogued<TzXmlError>(
        [] {
            TzSoapFaultMessage::make(static_cast<TzSoapVersion::Version>(7), TzSoapVersion::Client,
                                     "no");
        },
        0x7011, "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzSoapFaultMessage, NamesWhatWasNotUnderstood) {
    const std::vector<TzXmlName> names = {TzXmlName("a", TzXmlNamespace("n", "urn:n")),
                                          TzXmlName("b", TzXmlNamespace("m", "urn:m"))};
    const TzSoapMessage first = TzSoapFaultMessage::makeMustUnderstand(TzSoapVersion::V1_1, names);
    EXPECT_EQ(faultOf(first).getCode().getLocalName(), "MustUnderstand");
    EXPECT_EQ(faultOf(first).getReason(), "Header entries not understood: {urn:n}a {urn:m}b");
    EXPECT_EQ(first.getSoapHeader().entryCount(), 0U);

    const TzSoapMessage second = TzSoapFaultMessage::makeMustUnderstand(TzSoapVersion::V1_2, names);
    EXPECT_EQ(faultOf(second).getCode().getLocalName(), "MustUnderstand");
    const TzSoapMessage read = messageOf(second.asString());
    ASSERT_EQ(read.getSoapHeader().entryCount(), 2U);
    auto entry = read.getSoapHeader().entriesBegin();
    EXPECT_EQ(tzSoapCast<TzSoapMisunderstoodType>(*entry).value().getQualifiedName(), names[0]);
    EXPECT_FALSE(entry->getMustUnderstand());
    EXPECT_EQ(tzSoapCast<TzSoapMisunderstoodType>(*++entry).value().getQualifiedName(), names[1]);
}

TEST(TzSoapFaultMessage, MisunderstoodHeadersAreNamedUnderPrefixesOfTheirOwn) {
    const auto name = [](const char* prefix, const char* uri) {
        return TzXmlName("a", TzXmlNamespace(prefix, uri));
    };
    const std::vector<TzXmlName> names = {
        name("f", "urn:f"),     name("env", "urn:env"), name("enc", "urn:enc"),
        name("", "urn:none"),   name("xsi", "urn:xsi"), name("h1", "urn:h1"),
        name("own", "urn:own"), name("", ""),           name("unbound", "")};
    const char* const written[] = {"f1:a", "env1:a", "enc1:a", "h1:a", "xsi1:a",
                                   "h1:a", "own:a",  "a",      "a"};
    const std::string text =
        TzSoapFaultMessage::makeMustUnderstand(TzSoapVersion::V1_2, names).asString();
    const TzSoapMessage read = messageOf(text);
    ASSERT_EQ(read.getSoapHeader().entryCount(), names.size());
    auto entry = read.getSoapHeader().entriesBegin();
    for (std::size_t i = 0; i < names.size(); ++i, ++entry) {
        EXPECT_EQ(tzSoapCast<TzSoapMisunderstoodType>(*entry).value().getQualifiedName(), names[i])
            << text;
        EXPECT_EQ(entry->findAttribute(TzXmlName("qname"))->getValue(), written[i]) << text;
    }
}

TEST(TzSoapFaultMessage, AnUnknownEnvelopeIsAVersionMismatchInTheFirstVersion) {
    const TzSoapMessage made =
        madeFromReading("<e:Envelope xmlns:e='urn:later'><e:Body/></e:Envelope>");
    EXPECT_EQ(made.getVersion(), TzSoapVersion::V1_1);
    EXPECT_EQ(faultOf(made).getCode().getQualifiedName(), "SOAP-ENV:VersionMismatch");
    EXPECT_EQ(faultOf(made).getReason(), "line 1, column 1: [UNKNOWN_VERSION][SOAP Version "
                                         "specified by URI \"urn:later\" is unknown ]");
}

TEST(TzSoapFaultMessage, ABadRequestIsTheSendersFault) {
    const TzSoapMessage made = madeFromReading("nothing");
    EXPECT_EQ(made.getVersion(), TzSoapVersion::V1_2);
    EXPECT_EQ(faultOf(made).getCode().getQualifiedName(), "env:Sender");
    EXPECT_EQ(faultOf(made).getReason(),
              "line 1, column 1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope element]");
    EXPECT_EQ(madeFrom(TzXmlParseError(TzMessage("odd"), "", 3, 7)),
              "Client|line 3, column 7: odd");
    EXPECT_EQ(madeFrom(TzXmlBoundsError(TzMessage("too many"))), "Client|too many");
    EXPECT_EQ(madeFrom(TzXmlBadArgError(TzMessage("no int")), TzSoapVersion::V1_2),
              "Sender|no int");
}

TEST(TzSoapFaultMessage, EverythingElseIsTheReceivers) {
    EXPECT_EQ(madeFrom(Tzxmsg("disk full")), "Server|disk full");
    EXPECT_EQ(madeFrom(TzXmlError(TzCString("wrong type")), TzSoapVersion::V1_2),
              "Receiver|wrong type");
    EXPECT_TRUE(madeFrom(TzXmlInternalError(TzMessage("impossible"))).starts_with("Server|"));
    // The same number in another catalogue is another error.
    const TzCatMsg other = {"other_", tzsoap_UNKNOWN_VERSION()->id, "text"};
    EXPECT_EQ(madeFrom(TzXmlParseError(TzMessage(&other), "", 0, 0)), "Client|text");
}
