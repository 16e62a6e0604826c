// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersion.h>

#include "support/CataloguedError.h"
#include "support/VersionNames.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using V = TzSoapVersion;
using Code = TzSoapVersion::SoapFaultCode;

/// Opens what only derived classes may use.
class Opened : public TzSoapVersion {
public:
    static const TzXmlName& dummy() { return DummyXmlName; }
};

void expectNamespace(const TzXmlNamespace& actual, const std::string& prefix,
                     const std::string& uri) {
    EXPECT_EQ(actual.getPrefix(), prefix);
    EXPECT_EQ(actual.getUri(), uri);
}

/// A name as "prefix:local" and its URI.
struct Named {
    const char* qualified;
    std::string uri;
};

void expectName(const TzXmlName& actual, const Named& expected) {
    EXPECT_EQ(actual.getQualifiedName(), expected.qualified);
    EXPECT_EQ(actual.getUri(), expected.uri) << expected.qualified;
}

} // namespace

TEST(TzSoapVersionNames, Namespaces) {
    expectNamespace(soap11().getSoapEnv(), "SOAP-ENV", EnvUri11);
    expectNamespace(soap11().getSoapEnc(), "SOAP-ENC", EncUri11);
    expectNamespace(soap11().getSoapFault(), "", "");
    expectNamespace(soap11().getSoapRpc(), "", "");
    expectNamespace(soap11().getSoapUpgrade(), "", "");
    expectNamespace(soap12().getSoapEnv(), "env", EnvUri12);
    expectNamespace(soap12().getSoapEnc(), "enc", EncUri12);
    expectNamespace(soap12().getSoapFault(), "f", FaultsUri12);
    expectNamespace(soap12().getSoapRpc(), "rpc", RpcUri12);
    expectNamespace(soap12().getSoapUpgrade(), "upgrade", UpgradeUri12);
}

TEST(TzSoapVersionNames, TheEncodingStyleIsTheEncodingUri) {
    EXPECT_EQ(soap11().getSoapEncodingStyle(), EncUri11);
    EXPECT_EQ(soap12().getSoapEncodingStyle(), EncUri12);
}

TEST(TzSoapVersionNames, Roles) {
    EXPECT_EQ(soap11().getSoapRole(V::Next), "http://schemas.xmlsoap.org/soap/envelope/actor/next");
    EXPECT_EQ(soap11().getSoapRole(V::None), "");
    EXPECT_EQ(soap11().getSoapRole(V::UltimateReceiver), "");
    EXPECT_EQ(soap12().getSoapRole(V::Next), "http://www.w3.org/2002/06/soap-envelope/role/next");
    EXPECT_EQ(soap12().getSoapRole(V::None), "http://www.w3.org/2002/06/soap-envelope/role/none");
    EXPECT_EQ(soap12().getSoapRole(V::UltimateReceiver),
              "http://www.w3.org/2002/06/soap-envelope/role/ultimateReceiver");
    for (const int other : {-1, 3, 1000}) {
        EXPECT_EQ(soap11().getSoapRole(static_cast<V::SoapRole>(other)), "");
        EXPECT_EQ(soap12().getSoapRole(static_cast<V::SoapRole>(other)), "");
    }
}

TEST(TzSoapVersionNames, AttributeNames) {
    const Named names11[] = {
        {"SOAP-ENV:encodingStyle", EnvUri11},
        {"SOAP-ENV:mustUnderstand", EnvUri11},
        {"SOAP-ENV:actor", EnvUri11},
        {"SOAP-ENC:root", EncUri11},
        {"SOAP-ENC:arrayType", EncUri11},
        {"SOAP-ENC:position", EncUri11},
        {"SOAP-ENC:offset", EncUri11},
        {"", ""},
        {"", ""},
        {"href", ""},
        {"href", ""},
    };
    const Named names12[] = {
        {"env:encodingStyle", EnvUri12},
        {"env:mustUnderstand", EnvUri12},
        {"env:role", EnvUri12},
        {"enc:root", EncUri12},
        {"", ""},
        {"enc:position", EncUri12},
        {"enc:offset", EncUri12},
        {"enc:itemType", EncUri12},
        {"enc:arraySize", EncUri12},
        {"ref", ""},
        {"href", ""},
    };
    for (int i = 0; i < 11; ++i) {
        const auto attribute = static_cast<V::SoapAttribute>(i);
        expectName(soap11().getSoapAttributeQName(attribute), names11[i]);
        expectName(soap12().getSoapAttributeQName(attribute), names12[i]);
        EXPECT_EQ(&V::getSoapAttributeName(attribute, V::V1_1),
                  &soap11().getSoapAttributeQName(attribute));
        EXPECT_EQ(&V::getSoapAttributeName(attribute, V::V1_2),
                  &soap12().getSoapAttributeQName(attribute));
    }
}

TEST(TzSoapVersionNames, ElementNames) {
    const Named names11[] = {
        {"SOAP-ENV:Envelope", EnvUri11},
        {"SOAP-ENV:Body", EnvUri11},
        {"SOAP-ENV:Header", EnvUri11},
        {"SOAP-ENV:Fault", EnvUri11},
        {"faultcode", ""},
        {"faultstring", ""},
        {"faultactor", ""},
        {"", ""},
        {"detail", ""},
        {"", ""},
        {"", ""},
        {"", ""},
    };
    const Named names12[] = {
        {"env:Envelope", EnvUri12}, {"env:Body", EnvUri12},  {"env:Header", EnvUri12},
        {"env:Fault", EnvUri12},    {"env:Code", EnvUri12},  {"env:Reason", EnvUri12},
        {"env:Node", EnvUri12},     {"env:Role", EnvUri12},  {"env:Detail", EnvUri12},
        {"env:Subcode", EnvUri12},  {"env:Value", EnvUri12}, {"f:Misunderstood", FaultsUri12},
    };
    for (int i = 0; i < 12; ++i) {
        const auto element = static_cast<V::SoapElement>(i);
        expectName(soap11().getSoapElementQName(element), names11[i]);
        expectName(soap12().getSoapElementQName(element), names12[i]);
        EXPECT_EQ(&V::getSoapElementName(element, V::V1_1), &soap11().getSoapElementQName(element));
        EXPECT_EQ(&V::getSoapElementName(element, V::V1_2), &soap12().getSoapElementQName(element));
    }
}

TEST(TzSoapVersionNames, WhatAVersionDoesNotHaveIsTheEmptyName) {
    const TzXmlName& dummy = Opened::dummy();
    EXPECT_TRUE(dummy.isEmpty());
    EXPECT_EQ(&V::getSoapAttributeName(V::ArrayType, V::V1_2), &dummy);
    EXPECT_EQ(&V::getSoapAttributeName(V::ItemType, V::V1_1), &dummy);
    EXPECT_EQ(&V::getSoapElementName(V::Misunderstood, V::V1_1), &dummy);
    for (const V::Version version : BothVersions) {
        for (const int other : {-1, 11, 12, 1000}) {
            EXPECT_EQ(&V::getSoapAttributeName(static_cast<V::SoapAttribute>(other), version),
                      &dummy);
        }
        for (const int other : {-1, 12, 1000}) {
            EXPECT_EQ(&V::getSoapElementName(static_cast<V::SoapElement>(other), version), &dummy);
        }
    }
}

TEST(TzSoapVersionNames, TheReferenceAttributeOf11IsHref) {
    EXPECT_EQ(V::getSoapAttributeName(V::Ref, V::V1_1), V::getSoapAttributeName(V::Href, V::V1_1));
    EXPECT_NE(V::getSoapAttributeName(V::Ref, V::V1_2), V::getSoapAttributeName(V::Href, V::V1_2));
}

TEST(TzSoapVersionNames, FaultCodeNames) {
    const char* names11[] = {"SOAP-ENV:VersionMismatch", "SOAP-ENV:MustUnderstand",
                             "SOAP-ENV:Server", "SOAP-ENV:Client"};
    const char* names12[] = {
        "env:VersionMismatch", "env:MustUnderstand",      "env:Receiver",
        "env:Sender",          "env:DataEncodingUnknown", "env:DTDNotSupported"};
    for (int i = 0; i < 4; ++i) {
        expectName(soap11().getFaultCode(static_cast<Code>(i)), {names11[i], EnvUri11});
    }
    for (int i = 0; i < 6; ++i) {
        expectName(soap12().getFaultCode(static_cast<Code>(i)), {names12[i], EnvUri12});
    }
}

TEST(TzSoapVersionNames, FaultCodesThatAVersionDoesNotHave) {
    for (const int code : {4, 5, 6, 1000, -1}) {
        expectCatalogued<TzXmlError>([&] { soap11().getFaultCode(static_cast<Code>(code)); },
                                     0x7024, invalidCode("V1_1"));
    }
    for (const int code : {6, 1000, -1}) {
        expectCatalogued<TzXmlError>([&] { soap12().getFaultCode(static_cast<Code>(code)); },
                                     0x7024, invalidCode("Version1_2"));
    }
}

TEST(TzSoapVersionNames, FaultSubcodes) {
    expectName(soap12().getSubFaultCode(V::MissingID), {"enc:MissingID", EncUri12});
    expectName(soap12().getSubFaultCode(V::UnTypedValue), {"enc:UnTypedValue", EncUri12});
    expectName(soap12().getSubFaultCode(V::ProcedureNotPresent),
               {"rpc:ProcedureNotPresent", RpcUri12});
    expectName(soap12().getSubFaultCode(V::BadArguments), {"rpc:BadArguments", RpcUri12});
    for (const int code : {4, -1}) {
        expectCatalogued<TzXmlError>(
            [&] { soap12().getSubFaultCode(static_cast<V::SoapSubFaultCode>(code)); }, 0x7024,
            invalidCode("Version1_2"));
    }
    for (const int code : {0, 1, 2, 3, 4, -1}) {
        expectCatalogued<TzXmlError>(
            [&] { soap11().getSubFaultCode(static_cast<V::SoapSubFaultCode>(code)); }, 0x7024,
            invalidCode("V1_1"));
    }
}
