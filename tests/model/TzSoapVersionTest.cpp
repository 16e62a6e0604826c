// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersion.h>

#include "support/CataloguedError.h"

#include <soap/TzSoap11Version.h>
#include <soap/TzSoap12Version.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using V = TzSoapVersion;
using Code = TzSoapVersion::SoapFaultCode;

const std::string Env11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string Enc11 = "http://schemas.xmlsoap.org/soap/encoding/";
const std::string Env12 = "http://www.w3.org/2002/06/soap-envelope";
const std::string Enc12 = "http://www.w3.org/2002/06/soap-encoding";
const std::string Faults12 = "http://www.w3.org/2002/06/soap-faults";
const std::string Rpc12 = "http://www.w3.org/2002/06/soap-rpc";
const std::string Upgrade12 = "http://www.w3.org/2002/06/soap-upgrade";

const V& soap11() { return V::getSoapVersion(V::V1_1); }
const V& soap12() { return V::getSoapVersion(V::V1_2); }
const V::Version both[] = {V::V1_1, V::V1_2};
const V::Version noVersions[] = {static_cast<V::Version>(0), static_cast<V::Version>(3),
                                 static_cast<V::Version>(-1)};

std::string invalidCode(const std::string& versions) {
    return "[INVALID_FAULT_CODE] The specified fault code is not valid for \"" + versions +
           "\" version of SOAP";
}

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

/// Opens what only derived classes may use, and adds nothing to the base.
class BareVersion : public TzSoapVersion {
public:
    Version getVersion() const override { return V1_1; }
    const TzXmlNamespace& getSoapEnv() const override { return nothing_; }
    const TzXmlNamespace& getSoapEnc() const override { return nothing_; }
    const TzXmlName& getFaultCode(SoapFaultCode) const override { return DummyXmlName; }
    const TzXmlName& getSubFaultCode(SoapSubFaultCode) const override { return DummyXmlName; }
    const TzCString& getSoapEncodingStyle() const override { return nothing_.getUri(); }
    bool matchSoapEnv(const TzXmlNamespace&) const override { return false; }
    bool matchSoapEnc(const TzXmlNamespace&) const override { return false; }
    const TzXmlName& getSoapAttributeQName(SoapAttribute) const override { return DummyXmlName; }
    const TzXmlName& getSoapElementQName(SoapElement) const override { return DummyXmlName; }

    static bool match(const std::string& left, const std::string& right) {
        return matchNamespaces(TzXmlNamespace("a", left), TzXmlNamespace("b", right));
    }
    static constexpr bool TagsAreStrings =
        std::is_same_v<decltype(EnvelopeTag), const TzCString> &&
        std::is_same_v<decltype(MisunderstoodTag), const TzCString>;
    static const TzXmlName& dummy() { return DummyXmlName; }
    static std::vector<TzCString> tags() {
        return {EnvelopeTag,
                BodyTag,
                HeaderTag,
                FaultTag,
                EncodingStyleTag,
                MustUnderstandTag,
                RootTag,
                PositionTag,
                OffsetTag,
                VersionMismatchTag,
                MustUnderstandFaultTag,
                ClientTag,
                ServerTag,
                ReceiverTag,
                SenderTag,
                DataEncodingUnknownTag,
                DTDNotSupportedTag,
                ProcedureNotPresentTag,
                BadArgumentsTag,
                MissingIDTag,
                UnTypedValueTag,
                MisunderstoodTag};
    }

private:
    TzXmlNamespace nothing_;
};

// Looked up while the program starts, before `main`.
const TzXmlName startupName = V::getSoapElementName(V::Envelope, V::V1_1);
const bool startupMatch = V::isSoapEnc(Enc12);
const std::vector<TzCString> startupTags = BareVersion::tags();

} // namespace

// Enumerations

TEST(TzSoapVersionTest, EnumeratorsHaveFixedNumbers) {
    EXPECT_EQ(int{V::V1_1}, 1);
    EXPECT_EQ(int{V::V1_2}, 2);
    const int attributes[] = {
        V::EncodingStyle, V::MustUnderstand, V::Actor,     V::Root, V::ArrayType, V::Position,
        V::Offset,        V::ItemType,       V::ArraySize, V::Ref,  V::Href};
    const int elements[] = {V::Envelope,    V::Body,         V::Header,     V::Fault,
                            V::FaultCode,   V::FaultString,  V::FaultActor, V::FaultRole,
                            V::FaultDetail, V::FaultSubcode, V::FaultValue, V::Misunderstood};
    const Code codes[] = {Code::VersionMismatch, Code::MustUnderstand,      Code::Server,
                          Code::Client,          Code::DataEncodingUnknown, Code::DTDNotSupported};
    const int subcodes[] = {V::MissingID, V::UnTypedValue, V::ProcedureNotPresent, V::BadArguments};
    const int roles[] = {V::Next, V::None, V::UltimateReceiver};
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(attributes[i], i);
    }
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(elements[i], i);
    }
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(static_cast<int>(codes[i]), i);
    }
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(subcodes[i], i);
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(roles[i], i);
    }
}

TEST(TzSoapVersionTest, FaultCodesAreAlsoMembersOfTheClass) {
    EXPECT_EQ(V::VersionMismatch, Code::VersionMismatch);
    EXPECT_EQ(V::Server, Code::Server);
    EXPECT_EQ(V::Client, Code::Client);
    EXPECT_EQ(V::DataEncodingUnknown, Code::DataEncodingUnknown);
    EXPECT_EQ(V::DTDNotSupported, Code::DTDNotSupported);
    // The unscoped name is the attribute's.
    EXPECT_TRUE((std::is_same_v<decltype(V::MustUnderstand), V::SoapAttribute>));
}

TEST(TzSoapVersionTest, EnumerationsRestOnInt) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::Version>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapAttribute>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapElement>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapFaultCode>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapSubFaultCode>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapRole>, int>));
}

// The objects

TEST(TzSoapVersionTest, OneObjectPerVersion) {
    EXPECT_EQ(soap11().getVersion(), V::V1_1);
    EXPECT_EQ(soap12().getVersion(), V::V1_2);
    EXPECT_EQ(&soap11(), &TzSoap11Version::getSoapVersion());
    EXPECT_EQ(&soap12(), &TzSoap12Version::getSoapVersion());
    EXPECT_NE(dynamic_cast<const TzSoap11Version*>(&soap11()), nullptr);
    EXPECT_NE(dynamic_cast<const TzSoap12Version*>(&soap12()), nullptr);
}

TEST(TzSoapVersionTest, TheLatestVersionIs12) {
    EXPECT_EQ(V::getLatestVersion(), 2);
    EXPECT_EQ(&V::getLatestSoapVersion(), &soap12());
}

TEST(TzSoapVersionTest, OtherNumbersAreNoVersions) {
    const std::string text = "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]";
    for (const V::Version version : noVersions) {
        expectCatalogued<TzXmlError>([&] { V::getSoapVersion(version); }, 0x7011, text);
        expectCatalogued<TzXmlError>([&] { V::getSoapAttributeName(V::Root, version); }, 0x7011,
                                     text);
        expectCatalogued<TzXmlError>([&] { V::getSoapElementName(V::Body, version); }, 0x7011,
                                     text);
        expectCatalogued<TzXmlError>(
            [&] { V::matchSoapAttributeName(TzXmlName("a"), V::Root, version); }, 0x7011, text);
    }
}

TEST(TzSoapVersionTest, VersionsAreCopiedAndNotMade) {
    EXPECT_TRUE(std::is_abstract_v<V>);
    EXPECT_FALSE(std::is_default_constructible_v<TzSoap11Version>);
    EXPECT_FALSE(std::is_default_constructible_v<TzSoap12Version>);
    EXPECT_TRUE(std::is_copy_constructible_v<TzSoap11Version>);
    EXPECT_TRUE(std::is_copy_assignable_v<TzSoap11Version>);
    TzSoap12Version copy = dynamic_cast<const TzSoap12Version&>(soap12());
    EXPECT_EQ(copy.getVersion(), V::V1_2);
    copy = dynamic_cast<const TzSoap12Version&>(soap12());
    EXPECT_EQ(&copy.getSoapEnv(), &soap12().getSoapEnv());
    V& target = copy;
    target = soap11();
    EXPECT_EQ(copy.getVersion(), V::V1_2);
}

TEST(TzSoapVersionTest, UsableBeforeMain) {
    EXPECT_EQ(startupName.getQualifiedName(), "SOAP-ENV:Envelope");
    EXPECT_TRUE(startupMatch);
    EXPECT_EQ(startupTags, BareVersion::tags());
}

TEST(TzSoapVersionTest, ThreadsMayLookUpAtOnce) {
    std::vector<std::thread> threads;
    std::vector<const TzXmlName*> names(8);
    for (std::size_t i = 0; i < names.size(); ++i) {
        threads.emplace_back([&names, i] {
            names[i] = &V::getSoapAttributeName(V::Actor, V::V1_2);
            V::isSoapFaultCode(TzXmlName("Client", soap11().getSoapEnv()));
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const TzXmlName* name : names) {
        EXPECT_EQ(name, names[0]);
    }
}

// Namespaces, roles, names

TEST(TzSoapVersionTest, Namespaces) {
    expectNamespace(soap11().getSoapEnv(), "SOAP-ENV", Env11);
    expectNamespace(soap11().getSoapEnc(), "SOAP-ENC", Enc11);
    expectNamespace(soap11().getSoapFault(), "", "");
    expectNamespace(soap11().getSoapRpc(), "", "");
    expectNamespace(soap11().getSoapUpgrade(), "", "");
    expectNamespace(soap12().getSoapEnv(), "env", Env12);
    expectNamespace(soap12().getSoapEnc(), "enc", Enc12);
    expectNamespace(soap12().getSoapFault(), "f", Faults12);
    expectNamespace(soap12().getSoapRpc(), "rpc", Rpc12);
    expectNamespace(soap12().getSoapUpgrade(), "upgrade", Upgrade12);
}

TEST(TzSoapVersionTest, TheEncodingStyleIsTheEncodingUri) {
    EXPECT_EQ(soap11().getSoapEncodingStyle(), Enc11);
    EXPECT_EQ(soap12().getSoapEncodingStyle(), Enc12);
}

TEST(TzSoapVersionTest, Roles) {
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

TEST(TzSoapVersionTest, AttributeNames) {
    const Named names11[] = {
        {"SOAP-ENV:encodingStyle", Env11},
        {"SOAP-ENV:mustUnderstand", Env11},
        {"SOAP-ENV:actor", Env11},
        {"SOAP-ENC:root", Enc11},
        {"SOAP-ENC:arrayType", Enc11},
        {"SOAP-ENC:position", Enc11},
        {"SOAP-ENC:offset", Enc11},
        {"", ""},
        {"", ""},
        {"href", ""},
        {"href", ""},
    };
    const Named names12[] = {
        {"env:encodingStyle", Env12},
        {"env:mustUnderstand", Env12},
        {"env:role", Env12},
        {"enc:root", Enc12},
        {"", ""},
        {"enc:position", Enc12},
        {"enc:offset", Enc12},
        {"enc:itemType", Enc12},
        {"enc:arraySize", Enc12},
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

TEST(TzSoapVersionTest, ElementNames) {
    const Named names11[] = {
        {"SOAP-ENV:Envelope", Env11},
        {"SOAP-ENV:Body", Env11},
        {"SOAP-ENV:Header", Env11},
        {"SOAP-ENV:Fault", Env11},
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
        {"env:Envelope", Env12}, {"env:Body", Env12},  {"env:Header", Env12},
        {"env:Fault", Env12},    {"env:Code", Env12},  {"env:Reason", Env12},
        {"env:Node", Env12},     {"env:Role", Env12},  {"env:Detail", Env12},
        {"env:Subcode", Env12},  {"env:Value", Env12}, {"f:Misunderstood", Faults12},
    };
    for (int i = 0; i < 12; ++i) {
        const auto element = static_cast<V::SoapElement>(i);
        expectName(soap11().getSoapElementQName(element), names11[i]);
        expectName(soap12().getSoapElementQName(element), names12[i]);
        EXPECT_EQ(&V::getSoapElementName(element, V::V1_1), &soap11().getSoapElementQName(element));
        EXPECT_EQ(&V::getSoapElementName(element, V::V1_2), &soap12().getSoapElementQName(element));
    }
}

TEST(TzSoapVersionTest, WhatAVersionDoesNotHaveIsTheEmptyName) {
    const TzXmlName& dummy = BareVersion::dummy();
    EXPECT_TRUE(dummy.isEmpty());
    EXPECT_EQ(&V::getSoapAttributeName(V::ArrayType, V::V1_2), &dummy);
    EXPECT_EQ(&V::getSoapAttributeName(V::ItemType, V::V1_1), &dummy);
    EXPECT_EQ(&V::getSoapElementName(V::Misunderstood, V::V1_1), &dummy);
    for (const V::Version version : both) {
        for (const int other : {-1, 11, 12, 1000}) {
            EXPECT_EQ(&V::getSoapAttributeName(static_cast<V::SoapAttribute>(other), version),
                      &dummy);
        }
        for (const int other : {-1, 12, 1000}) {
            EXPECT_EQ(&V::getSoapElementName(static_cast<V::SoapElement>(other), version), &dummy);
        }
    }
}

TEST(TzSoapVersionTest, TheReferenceAttributeOf11IsHref) {
    EXPECT_EQ(V::getSoapAttributeName(V::Ref, V::V1_1), V::getSoapAttributeName(V::Href, V::V1_1));
    EXPECT_NE(V::getSoapAttributeName(V::Ref, V::V1_2), V::getSoapAttributeName(V::Href, V::V1_2));
}

TEST(TzSoapVersionTest, FaultCodeNames) {
    const char* names11[] = {"SOAP-ENV:VersionMismatch", "SOAP-ENV:MustUnderstand",
                             "SOAP-ENV:Server", "SOAP-ENV:Client"};
    const char* names12[] = {
        "env:VersionMismatch", "env:MustUnderstand",      "env:Receiver",
        "env:Sender",          "env:DataEncodingUnknown", "env:DTDNotSupported"};
    for (int i = 0; i < 4; ++i) {
        expectName(soap11().getFaultCode(static_cast<Code>(i)), {names11[i], Env11});
    }
    for (int i = 0; i < 6; ++i) {
        expectName(soap12().getFaultCode(static_cast<Code>(i)), {names12[i], Env12});
    }
}

TEST(TzSoapVersionTest, FaultCodesThatAVersionDoesNotHave) {
    for (const int code : {4, 5, 6, 1000, -1}) {
        expectCatalogued<TzXmlError>([&] { soap11().getFaultCode(static_cast<Code>(code)); },
                                     0x7024, invalidCode("V1_1"));
    }
    for (const int code : {6, 1000, -1}) {
        expectCatalogued<TzXmlError>([&] { soap12().getFaultCode(static_cast<Code>(code)); },
                                     0x7024, invalidCode("Version1_2"));
    }
}

TEST(TzSoapVersionTest, FaultSubcodes) {
    expectName(soap12().getSubFaultCode(V::MissingID), {"enc:MissingID", Enc12});
    expectName(soap12().getSubFaultCode(V::UnTypedValue), {"enc:UnTypedValue", Enc12});
    expectName(soap12().getSubFaultCode(V::ProcedureNotPresent),
               {"rpc:ProcedureNotPresent", Rpc12});
    expectName(soap12().getSubFaultCode(V::BadArguments), {"rpc:BadArguments", Rpc12});
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

TEST(TzSoapVersionTest, TheBaseHasNeitherFurtherNamespacesNorRoles) {
    const BareVersion bare;
    EXPECT_TRUE(bare.getSoapFault().isEmpty());
    EXPECT_TRUE(bare.getSoapRpc().isEmpty());
    EXPECT_TRUE(bare.getSoapUpgrade().isEmpty());
    const TzXmlNamespace& empty = TzXmlNamespace::getEmptyNamespace();
    EXPECT_FALSE(bare.matchSoapFault(empty));
    EXPECT_FALSE(bare.matchSoapRpc(empty));
    EXPECT_FALSE(bare.matchSoapUpgrade(empty));
    EXPECT_EQ(bare.getSoapRole(V::Next), "");
}

TEST(TzSoapVersionTest, TagsOfDerivedVersions) {
    const std::vector<TzCString> expected = {"Envelope",
                                             "Body",
                                             "Header",
                                             "Fault",
                                             "encodingStyle",
                                             "mustUnderstand",
                                             "root",
                                             "position",
                                             "offset",
                                             "VersionMismatch",
                                             "MustUnderstand",
                                             "Client",
                                             "Server",
                                             "Receiver",
                                             "Sender",
                                             "DataEncodingUnknown",
                                             "DTDNotSupported",
                                             "ProcedureNotPresent",
                                             "BadArguments",
                                             "MissingID",
                                             "UnTypedValue",
                                             "Misunderstood"};
    EXPECT_EQ(BareVersion::tags(), expected);
    EXPECT_TRUE(BareVersion::TagsAreStrings);
}

// Recognising

TEST(TzSoapVersionTest, NamespacesMatchUpToTheLastCharacter) {
    struct Case {
        std::string left;
        std::string right;
        bool match;
    };
    const Case cases[] = {
        {"urn:a", "urn:a", true},    // equal
        {"urn:a", "urn:b", true},    // only the last character differs
        {"urn:a", "urn:", true},     // the last character is missing
        {"urn:a", "urn:a/", true},   // one character more
        {"urn:a", "urn:a/b", false}, // two more
        {"urn:a", "urn", false},     // two missing
        {"urn:a", "urx:a", false},   // another character differs
        {"urn:a", "Urn:a", false},   // the first character differs
        {"urn:a", "arn", false},     // nothing in common
        {"urn:ab", "urn:cb", false}, // the last but one differs
        {"urn:ab", "urn:c", false},  // shorter, and the last of the shorter differs
        {"", "", true},              // both empty
        {"a", "b", true},            // nothing is left to differ
        {"a", "", true},             // the last character is missing
        {"ab", "", false},           // two missing
    };
    for (const Case& entry : cases) {
        EXPECT_EQ(BareVersion::match(entry.left, entry.right), entry.match)
            << entry.left << " " << entry.right;
        EXPECT_EQ(BareVersion::match(entry.right, entry.left), entry.match)
            << entry.right << " " << entry.left;
    }
}

TEST(TzSoapVersionTest, EachVersionMatchesItsNamespacesWhateverThePrefix) {
    const auto of = [](const std::string& uri) { return TzXmlNamespace("x", uri); };
    EXPECT_TRUE(soap11().matchSoapEnv(of(Env11)));
    EXPECT_TRUE(soap11().matchSoapEnv(of("http://schemas.xmlsoap.org/soap/envelope")));
    EXPECT_FALSE(soap11().matchSoapEnv(of(Env12)));
    EXPECT_FALSE(soap11().matchSoapEnv(of(Enc11)));
    EXPECT_TRUE(soap11().matchSoapEnc(of(Enc11)));
    EXPECT_FALSE(soap11().matchSoapEnc(of(Env11)));
    EXPECT_TRUE(soap12().matchSoapEnv(of(Env12)));
    EXPECT_FALSE(soap12().matchSoapEnv(of(Env11)));
    EXPECT_TRUE(soap12().matchSoapEnc(of(Enc12)));
    EXPECT_FALSE(soap12().matchSoapEnc(of(Env12)));
    EXPECT_TRUE(soap12().matchSoapFault(of(Faults12)));
    EXPECT_FALSE(soap12().matchSoapFault(of(Rpc12)));
    EXPECT_TRUE(soap12().matchSoapRpc(of(Rpc12)));
    EXPECT_FALSE(soap12().matchSoapRpc(of(Upgrade12)));
    EXPECT_TRUE(soap12().matchSoapUpgrade(of(Upgrade12)));
    EXPECT_FALSE(soap12().matchSoapUpgrade(of(Faults12)));
}

TEST(TzSoapVersionTest, Version11MatchesNoNamespaceItDoesNotHave) {
    for (const TzXmlNamespace& candidate :
         {TzXmlNamespace(), TzXmlNamespace("f", Faults12), TzXmlNamespace("rpc", Rpc12),
          TzXmlNamespace("upgrade", Upgrade12)}) {
        EXPECT_FALSE(soap11().matchSoapFault(candidate));
        EXPECT_FALSE(soap11().matchSoapRpc(candidate));
        EXPECT_FALSE(soap11().matchSoapUpgrade(candidate));
    }
}

namespace {

/// A URI and the version expected, 0 for none.
struct UriCase {
    std::string uri;
    int version;
};

void expectVersions(const std::vector<UriCase>& cases, bool (*plain)(const TzCString&),
                    bool (*which)(const TzCString&, V::Version&)) {
    for (const UriCase& entry : cases) {
        const auto untouched = static_cast<V::Version>(77);
        V::Version version = untouched;
        EXPECT_EQ(which(entry.uri, version), entry.version != 0) << entry.uri;
        EXPECT_EQ(plain(entry.uri), entry.version != 0) << entry.uri;
        EXPECT_EQ(int{version}, entry.version != 0 ? entry.version : 77) << entry.uri;
    }
}

const std::vector<UriCase> envelopes = {
    {Env11, 1},
    {Env12, 2},
    {"http://schemas.xmlsoap.org/soap/envelope", 1},
    {"http://schemas.xmlsoap.org/soap/envelope#", 1},
    {"http://schemas.xmlsoap.org/soap/envelope/1", 1},
    {"http://www.w3.org/2002/06/soap-envelopX", 2},
    {"http://www.w3.org/2002/06/soap-envelop", 2},
    {"http://www.w3.org/2002/06/soap-envelope/", 2},
    {"http://www.w3.org/2002/06/soap-envel", 0},
    {"http://www.w3.org/2002/06/soap-envelope/1", 0},
    {"http://www.w3.org/2003/05/soap-envelope", 0},
    {Enc11, 0},
    {Enc12, 0},
    {"", 0},
};

const std::vector<UriCase> encodings = {
    {Enc11, 1},
    {Enc12, 2},
    {"http://schemas.xmlsoap.org/soap/encoding", 1},
    {"http://www.w3.org/2002/06/soap-encodin", 2},
    {"http://www.w3.org/2002/06/soap-encodi", 0},
    {"http://www.w3.org/2003/05/soap-encoding", 0},
    {Env11, 0},
    {Env12, 0},
    {"", 0},
};

} // namespace

TEST(TzSoapVersionTest, EnvelopeUris) { expectVersions(envelopes, V::isSoapEnv, V::isSoapEnv); }

TEST(TzSoapVersionTest, EncodingUris) { expectVersions(encodings, V::isSoapEnc, V::isSoapEnc); }

TEST(TzSoapVersionTest, EncodingStylesAreEncodingUris) {
    expectVersions(encodings, V::isSoapEncodingStyle, V::isSoapEncodingStyle);
}

TEST(TzSoapVersionTest, SupportedVersions) {
    for (const UriCase& entry : envelopes) {
        V::Version version = static_cast<V::Version>(77);
        EXPECT_EQ(V::isSupportedVersion(TzXmlNamespace("p", entry.uri), version),
                  entry.version != 0);
        EXPECT_EQ(int{version}, entry.version != 0 ? entry.version : 77) << entry.uri;
    }
}

TEST(TzSoapVersionTest, AttributesAreKnownByNamespaceAndLocalPart) {
    struct Case {
        const char* localName;
        V::SoapAttribute attribute;
    };
    // The local parts of both versions count in every namespace of SOAP.
    const Case cases[] = {
        {"encodingStyle", V::EncodingStyle},
        {"mustUnderstand", V::MustUnderstand},
        {"offset", V::Offset},
        {"position", V::Position},
        {"root", V::Root},
        {"role", V::Actor},
        {"actor", V::Actor},
        {"itemType", V::ItemType},
        {"arraySize", V::ArraySize},
        {"arrayType", V::ArrayType},
        {"ref", V::Ref},
        {"href", V::Href},
    };
    const std::vector<UriCase> uris = {{Env11, 1},
                                       {Enc11, 1},
                                       {Env12, 2},
                                       {Enc12, 2},
                                       {"http://schemas.xmlsoap.org/soap/envelope", 1}};
    for (const UriCase& uri : uris) {
        for (const Case& entry : cases) {
            const TzXmlName name(entry.localName, TzXmlNamespace("any", uri.uri));
            V::SoapAttribute attribute = static_cast<V::SoapAttribute>(77);
            V::Version version = static_cast<V::Version>(77);
            EXPECT_TRUE(V::isSoapAttribute(name, attribute, version)) << entry.localName;
            EXPECT_TRUE(V::isSoapAttribute(name)) << entry.localName;
            EXPECT_EQ(attribute, entry.attribute) << entry.localName;
            EXPECT_EQ(int{version}, uri.version) << entry.localName << " " << uri.uri;
        }
    }
}

TEST(TzSoapVersionTest, OtherNamesAreNoAttributesOfSoap) {
    const TzXmlName names[] = {
        TzXmlName("href"), // SOAP's own, but without a namespace
        TzXmlName("ref"),
        TzXmlName("mustUnderstand"),
        TzXmlName(),
        TzXmlName("mustUnderstand", TzXmlNamespace("a", "urn:a")),
        TzXmlName("role", TzXmlNamespace("f", Faults12)),
        TzXmlName("MustUnderstand", TzXmlNamespace("env", Env12)),
        TzXmlName("id", TzXmlNamespace("env", Env12)),
        TzXmlName("", TzXmlNamespace("enc", Enc12)),
    };
    for (const TzXmlName& name : names) {
        V::SoapAttribute attribute = static_cast<V::SoapAttribute>(77);
        V::Version version = V::V1_1;
        EXPECT_FALSE(V::isSoapAttribute(name, attribute, version)) << name.getUniqueName();
        EXPECT_FALSE(V::isSoapAttribute(name)) << name.getUniqueName();
        EXPECT_EQ(int{attribute}, 77);
    }
}

TEST(TzSoapVersionTest, TheNamespaceAloneDecidesTheVersionOfAnAttribute) {
    const auto versionAfter = [](const TzXmlName& name) {
        V::SoapAttribute attribute = V::Root;
        V::Version version = static_cast<V::Version>(77);
        EXPECT_FALSE(V::isSoapAttribute(name, attribute, version));
        EXPECT_EQ(attribute, V::Root);
        return int{version};
    };
    EXPECT_EQ(versionAfter(TzXmlName("id", TzXmlNamespace("e", Env11))), 1);
    EXPECT_EQ(versionAfter(TzXmlName("id", TzXmlNamespace("c", Enc12))), 2);
    EXPECT_EQ(versionAfter(TzXmlName("root", TzXmlNamespace("f", Faults12))), 77);
    EXPECT_EQ(versionAfter(TzXmlName("href")), 77);
}

TEST(TzSoapVersionTest, MatchingAnAttributeName) {
    const TzXmlName role("role", TzXmlNamespace("x", Env12));
    EXPECT_TRUE(V::matchSoapAttributeName(role, V::Actor, V::V1_2));
    EXPECT_FALSE(V::matchSoapAttributeName(role, V::Actor, V::V1_1));
    EXPECT_FALSE(V::matchSoapAttributeName(role, V::Root, V::V1_2));
    for (int i = 0; i < 11; ++i) {
        const auto attribute = static_cast<V::SoapAttribute>(i);
        for (const V::Version version : both) {
            EXPECT_TRUE(V::matchSoapAttributeName(V::getSoapAttributeName(attribute, version),
                                                  attribute, version))
                << i;
        }
    }
    EXPECT_TRUE(V::matchSoapAttributeName(TzXmlName("href"), V::Ref, V::V1_1));
    EXPECT_FALSE(V::matchSoapAttributeName(TzXmlName("href"), V::Ref, V::V1_2));
    // The tolerance for namespaces does not reach names.
    EXPECT_FALSE(V::matchSoapAttributeName(
        TzXmlName("actor", TzXmlNamespace("x", "http://schemas.xmlsoap.org/soap/envelope")),
        V::Actor, V::V1_1));
    for (const int other : {-1, 11, 1000}) {
        EXPECT_FALSE(
            V::matchSoapAttributeName(TzXmlName(), static_cast<V::SoapAttribute>(other), V::V1_2));
    }
}

TEST(TzSoapVersionTest, MatchingAnElementName) {
    const auto in = [](const char* localName, const std::string& uri) {
        return TzXmlName(localName, TzXmlNamespace("x", uri));
    };
    EXPECT_TRUE(soap11().matchSoapElement(in("Body", Env11), V::Body));
    // The closing slash may be missing, as for the envelope.
    EXPECT_TRUE(
        soap11().matchSoapElement(in("Body", "http://schemas.xmlsoap.org/soap/envelope"), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(in("Body", Env12), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(in("body", Env11), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(TzXmlName("Body"), V::Body));
    EXPECT_TRUE(soap12().matchSoapElement(in("Code", Env12), V::FaultCode));
    EXPECT_TRUE(soap12().matchSoapElement(in("Misunderstood", Faults12), V::Misunderstood));
    EXPECT_FALSE(soap12().matchSoapElement(in("Misunderstood", Env12), V::Misunderstood));
    // Unqualified names have nothing to be tolerant about.
    EXPECT_TRUE(soap11().matchSoapElement(TzXmlName("faultcode"), V::FaultCode));
    EXPECT_FALSE(soap11().matchSoapElement(in("faultcode", "u"), V::FaultCode));
    // What a version does not have matches nothing, the empty name included.
    EXPECT_FALSE(soap11().matchSoapElement(TzXmlName(), V::FaultRole));
    EXPECT_FALSE(soap12().matchSoapElement(TzXmlName(), static_cast<V::SoapElement>(12)));
}

TEST(TzSoapVersionTest, FaultCodesOfBothVersionsCountInBothEnvelopes) {
    struct Case {
        const char* localName;
        Code code;
    };
    const Case cases[] = {
        {"VersionMismatch", Code::VersionMismatch},
        {"MustUnderstand", Code::MustUnderstand},
        {"Client", Code::Client},
        {"Sender", Code::Client},
        {"Server", Code::Server},
        {"Receiver", Code::Server},
        {"DataEncodingUnknown", Code::DataEncodingUnknown},
        {"DTDNotSupported", Code::DTDNotSupported},
    };
    for (const std::string& uri : {Env11, Env12, Env11.substr(0, Env11.size() - 1)}) {
        for (const Case& entry : cases) {
            const TzXmlName name(entry.localName, TzXmlNamespace("e", uri));
            Code code = static_cast<Code>(77);
            EXPECT_TRUE(V::isSoapFaultCode(name, code)) << entry.localName;
            EXPECT_EQ(code, entry.code) << entry.localName;
            EXPECT_TRUE(V::isSoapFaultCode(name)) << entry.localName;
            EXPECT_EQ(V::getSoapFaultCode(name), entry.code) << entry.localName;
        }
    }
}

TEST(TzSoapVersionTest, OtherNamesAreNoFaultCodes) {
    const TzXmlName names[] = {
        TzXmlName("Client"),
        TzXmlName(),
        TzXmlName("Client", TzXmlNamespace("enc", Enc11)),
        TzXmlName("Client.Auth", TzXmlNamespace("e", Env11)),
        TzXmlName("client", TzXmlNamespace("e", Env11)),
        TzXmlName("", TzXmlNamespace("e", Env11)),
        TzXmlName("MissingID", TzXmlNamespace("enc", Enc12)),
    };
    for (const TzXmlName& name : names) {
        Code code = static_cast<Code>(77);
        EXPECT_FALSE(V::isSoapFaultCode(name, code)) << name.getUniqueName();
        EXPECT_EQ(static_cast<int>(code), 77);
        EXPECT_FALSE(V::isSoapFaultCode(name)) << name.getUniqueName();
        expectCatalogued<TzXmlError>([&] { V::getSoapFaultCode(name); }, 0x7024,
                                     invalidCode("All Soap Versions"));
    }
}
