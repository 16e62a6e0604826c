// SPDX-License-Identifier: MIT
#include <soap/TzSoap12RecVersion.h>

#include "support/CataloguedError.h"
#include "support/VersionNames.h"

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>

#include <gtest/gtest.h>

namespace {

using V = TzSoapVersion;
using Code = TzSoapVersion::SoapFaultCode;

const std::string Env = "http://www.w3.org/2003/05/soap-envelope";
const std::string Enc = "http://www.w3.org/2003/05/soap-encoding";
const std::string Rpc = "http://www.w3.org/2003/05/soap-rpc";

const V& rec() { return V::getSoapVersion(V::V1_2Rec); }

/// A name as "{URI}prefix:local".
std::string spelt(const TzXmlName& name) {
    return (name.getUri().empty() ? "" : "{" + name.getUri() + "}") + name.getQualifiedName();
}

} // namespace

TEST(TzSoap12RecVersion, HasANumberAndAnObjectOfItsOwn) {
    EXPECT_EQ(int{V::V1_2Rec}, 2003);
    EXPECT_EQ(rec().getVersion(), V::V1_2Rec);
    EXPECT_EQ(&rec(), &TzSoap12RecVersion::getSoapVersion());
}

TEST(TzSoap12RecVersion, Namespaces) {
    EXPECT_EQ(spelt(TzXmlName("x", rec().getSoapEnv())), "{" + Env + "}env:x");
    EXPECT_EQ(spelt(TzXmlName("x", rec().getSoapEnc())), "{" + Enc + "}enc:x");
    EXPECT_EQ(spelt(TzXmlName("x", rec().getSoapRpc())), "{" + Rpc + "}rpc:x");
    EXPECT_TRUE(rec().getSoapFault().isEmpty());
    EXPECT_TRUE(rec().getSoapUpgrade().isEmpty());
    EXPECT_EQ(rec().getSoapEncodingStyle(), Enc);
}

TEST(TzSoap12RecVersion, AttributeNames) {
    const std::string names[] = {"{" + Env + "}env:encodingStyle",
                                 "{" + Env + "}env:mustUnderstand",
                                 "{" + Env + "}env:role",
                                 "",
                                 "",
                                 "",
                                 "",
                                 "{" + Enc + "}enc:itemType",
                                 "{" + Enc + "}enc:arraySize",
                                 "{" + Enc + "}enc:ref",
                                 "href"};
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(spelt(V::getSoapAttributeName(static_cast<V::SoapAttribute>(i), V::V1_2Rec)),
                  names[i]);
    }
}

TEST(TzSoap12RecVersion, ElementNames) {
    const char* names[] = {"Envelope", "Body", "Header", "Fault",   "Code",  "Reason",
                           "Node",     "Role", "Detail", "Subcode", "Value", "NotUnderstood"};
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(spelt(V::getSoapElementName(static_cast<V::SoapElement>(i), V::V1_2Rec)),
                  "{" + Env + "}env:" + names[i]);
    }
}

TEST(TzSoap12RecVersion, FaultCodes) {
    const char* names[] = {"VersionMismatch", "MustUnderstand", "Receiver", "Sender",
                           "DataEncodingUnknown"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(spelt(rec().getFaultCode(static_cast<Code>(i))), "{" + Env + "}env:" + names[i]);
    }
    for (const int code : {5, 6, -1}) {
        expectCatalogued<TzXmlError>([&] { rec().getFaultCode(static_cast<Code>(code)); }, 0x7024,
                                     invalidCode("V1_2Rec"));
    }
}

TEST(TzSoap12RecVersion, FaultSubcodes) {
    EXPECT_EQ(spelt(rec().getSubFaultCode(V::MissingID)), "{" + Enc + "}enc:MissingID");
    EXPECT_EQ(spelt(rec().getSubFaultCode(V::UnTypedValue)), "{" + Enc + "}enc:UntypedValue");
    EXPECT_EQ(spelt(rec().getSubFaultCode(V::ProcedureNotPresent)),
              "{" + Rpc + "}rpc:ProcedureNotPresent");
    EXPECT_EQ(spelt(rec().getSubFaultCode(V::BadArguments)), "{" + Rpc + "}rpc:BadArguments");
    expectCatalogued<TzXmlError>(
        [&] { rec().getSubFaultCode(static_cast<V::SoapSubFaultCode>(4)); }, 0x7024,
        invalidCode("V1_2Rec"));
}

TEST(TzSoap12RecVersion, Roles) {
    EXPECT_EQ(rec().getSoapRole(V::Next), Env + "/role/next");
    EXPECT_EQ(rec().getSoapRole(V::None), Env + "/role/none");
    EXPECT_EQ(rec().getSoapRole(V::UltimateReceiver), Env + "/role/ultimateReceiver");
    EXPECT_EQ(rec().getSoapRole(static_cast<V::SoapRole>(3)), "");
}

TEST(TzSoap12RecVersion, NamesBeyondTheEnumerations) {
    using Rec = TzSoap12RecVersion;
    EXPECT_EQ(spelt(Rec::getIdName()), "{" + Enc + "}enc:id");
    EXPECT_EQ(spelt(Rec::getNodeTypeName()), "{" + Enc + "}enc:nodeType");
    EXPECT_EQ(spelt(Rec::getRelayName()), "{" + Env + "}env:relay");
    EXPECT_EQ(spelt(Rec::getReasonTextName()), "{" + Env + "}env:Text");
    EXPECT_EQ(spelt(Rec::getUpgradeName()), "{" + Env + "}env:Upgrade");
    EXPECT_EQ(spelt(Rec::getSupportedEnvelopeName()), "{" + Env + "}env:SupportedEnvelope");
    EXPECT_EQ(spelt(Rec::getDuplicateIdCode()), "{" + Enc + "}enc:DuplicateID");
    EXPECT_EQ(spelt(Rec::getRpcResultName()), "{" + Rpc + "}rpc:result");
    EXPECT_EQ(Rec::getNoEncodingStyle(), Env + "/encoding/none");
}

TEST(TzSoap12RecVersion, LookUpsWithoutAVersionDoNotKnowIt) {
    V::Version version = V::V1_1;
    EXPECT_EQ(V::getLatestVersion(), V::V1_2);
    EXPECT_FALSE(V::isSupportedVersion(TzXmlNamespace("env", Env), version));
    EXPECT_FALSE(V::isSoapEnv(TzCString(Env)));
    EXPECT_FALSE(V::isSoapEnc(TzCString(Enc)));
    EXPECT_FALSE(V::isSoapEncodingStyle(TzCString(Enc)));
    EXPECT_FALSE(V::isSoapAttribute(TzXmlName("role", TzXmlNamespace("env", Env))));
    EXPECT_FALSE(V::isSoapFaultCode(TzXmlName("Sender", TzXmlNamespace("env", Env))));
    EXPECT_EQ(version, V::V1_1);
}

TEST(TzSoap12RecVersion, TheAdditionalLookUpKnowsAllThree) {
    const std::pair<std::string, V::Version> uris[] = {
        {Env, V::V1_2Rec}, {EnvUri12, V::V1_2}, {EnvUri11, V::V1_1}};
    for (const auto& [uri, expected] : uris) {
        V::Version version{};
        EXPECT_TRUE(V::isKnownVersion(TzXmlNamespace("p", uri), version)) << uri;
        EXPECT_EQ(version, expected) << uri;
    }
}

TEST(TzSoap12RecVersion, ItsNamespacesAreMatchedExactly) {
    V::Version version = V::V1_1;
    for (const std::string& uri : {Env + "/", Env.substr(0, Env.size() - 1), Env + "2"}) {
        EXPECT_FALSE(V::isKnownVersion(TzXmlNamespace("env", uri), version)) << uri;
        EXPECT_FALSE(rec().matchSoapEnv(TzXmlNamespace("env", uri))) << uri;
    }
    EXPECT_EQ(version, V::V1_1);
    EXPECT_TRUE(rec().matchSoapEnc(TzXmlNamespace("x", Enc)));
    EXPECT_FALSE(rec().matchSoapEnc(TzXmlNamespace("x", Enc + "/")));
    EXPECT_TRUE(rec().matchSoapRpc(TzXmlNamespace("x", Rpc)));
    EXPECT_FALSE(rec().matchSoapFault(TzXmlNamespace()));
}

TEST(TzSoap12RecVersion, MustUnderstandIsAWord) {
    TzSoapElementImp element;
    element.setMustUnderstand(true);
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_2Rec), "true");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_2), "true");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_1), "1");
}

TEST(TzSoap12RecVersion, IndicesHaveNoBrackets) {
    EXPECT_EQ(TzSoapArrayType::vectorToString({2, 3}, true, V::V1_2Rec), "2 3");
    EXPECT_EQ(TzSoapArrayType::vectorToString({0, 3}, false, V::V1_2Rec), "* 3");
    EXPECT_EQ(TzSoapArrayType::vectorToString({2, 3}, true, V::V1_2), "2 3");
    EXPECT_EQ(TzSoapArrayType::vectorToString({2, 3}, true, V::V1_1), "[2,3]");
}

TEST(TzSoap12RecVersion, AnEncodedIdIsTheIdOfASet) {
    TzSoapAttributeSet attributes;
    attributes.setIdAttribute("plain");
    attributes.add(TzSoap12RecVersion::getIdName(), "encoded");
    EXPECT_EQ(attributes.getIdAttribute(), "encoded");
    attributes.setIdAttribute("changed");
    EXPECT_EQ(attributes.find(TzSoap12RecVersion::getIdName())->getValue(), "changed");
    attributes.removeIdAttribute();
    EXPECT_EQ(attributes.getIdAttribute(), "plain");
}

TEST(TzSoap12RecVersion, AFaultTakesNoCodeThatItsVersionLacks) {
    for (const auto& uri : {Env, std::string(EnvUri12)}) {
        const TzXmlName code("DTDNotSupported", TzXmlNamespace("env", uri));
        TzSoapMessage final2003(V::V1_2Rec);
        expectCatalogued<TzXmlError>([&] { final2003.getSoapBody().getSoapFault().setCode(code); },
                                     0x7024, invalidCode("V1_2Rec"));
        TzSoapMessage draft(V::V1_2);
        draft.getSoapBody().getSoapFault().setCode(code);
        EXPECT_EQ(draft.getSoapBody().getSoapFault().getCode(), code);
    }
}

TEST(TzSoap12RecVersion, AFaultTakesOtherCodes) {
    TzSoapMessage message(V::V1_2Rec);
    for (const TzXmlName& code :
         {rec().getFaultCode(V::Client), TzXmlName("DTDNotSupported", TzXmlNamespace("m", "urn:m")),
          V::getSoapVersion(V::V1_1).getFaultCode(V::Client)}) {
        message.getSoapBody().getSoapFault().setCode(code);
        EXPECT_EQ(message.getSoapBody().getSoapFault().getCode(), code);
    }
}
