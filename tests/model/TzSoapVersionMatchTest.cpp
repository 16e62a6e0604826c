// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersion.h>

#include "support/CataloguedError.h"
#include "support/VersionNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using V = TzSoapVersion;
using Code = TzSoapVersion::SoapFaultCode;

/// Opens what only derived classes may use.
class Opened : public TzSoapVersion {
public:
    static bool match(const std::string& left, const std::string& right) {
        return matchNamespaces(TzXmlNamespace("a", left), TzXmlNamespace("b", right));
    }
};

} // namespace

TEST(TzSoapVersionMatch, NamespacesMatchUpToTheLastCharacter) {
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
        EXPECT_EQ(Opened::match(entry.left, entry.right), entry.match)
            << entry.left << " " << entry.right;
        EXPECT_EQ(Opened::match(entry.right, entry.left), entry.match)
            << entry.right << " " << entry.left;
    }
}

TEST(TzSoapVersionMatch, EachVersionMatchesItsNamespacesWhateverThePrefix) {
    const auto of = [](const std::string& uri) { return TzXmlNamespace("x", uri); };
    EXPECT_TRUE(soap11().matchSoapEnv(of(EnvUri11)));
    EXPECT_TRUE(soap11().matchSoapEnv(of("http://schemas.xmlsoap.org/soap/envelope")));
    EXPECT_FALSE(soap11().matchSoapEnv(of(EnvUri12)));
    EXPECT_FALSE(soap11().matchSoapEnv(of(EncUri11)));
    EXPECT_TRUE(soap11().matchSoapEnc(of(EncUri11)));
    EXPECT_FALSE(soap11().matchSoapEnc(of(EnvUri11)));
    EXPECT_TRUE(soap12().matchSoapEnv(of(EnvUri12)));
    EXPECT_FALSE(soap12().matchSoapEnv(of(EnvUri11)));
    EXPECT_TRUE(soap12().matchSoapEnc(of(EncUri12)));
    EXPECT_FALSE(soap12().matchSoapEnc(of(EnvUri12)));
    EXPECT_TRUE(soap12().matchSoapFault(of(FaultsUri12)));
    EXPECT_FALSE(soap12().matchSoapFault(of(RpcUri12)));
    EXPECT_TRUE(soap12().matchSoapRpc(of(RpcUri12)));
    EXPECT_FALSE(soap12().matchSoapRpc(of(UpgradeUri12)));
    EXPECT_TRUE(soap12().matchSoapUpgrade(of(UpgradeUri12)));
    EXPECT_FALSE(soap12().matchSoapUpgrade(of(FaultsUri12)));
}

TEST(TzSoapVersionMatch, Version11MatchesNoNamespaceItDoesNotHave) {
    for (const TzXmlNamespace& candidate :
         {TzXmlNamespace(), TzXmlNamespace("f", FaultsUri12), TzXmlNamespace("rpc", RpcUri12),
          TzXmlNamespace("upgrade", UpgradeUri12)}) {
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
    {EnvUri11, 1},
    {EnvUri12, 2},
    {"http://schemas.xmlsoap.org/soap/envelope", 1},
    {"http://schemas.xmlsoap.org/soap/envelope#", 1},
    {"http://schemas.xmlsoap.org/soap/envelope/1", 1},
    {"http://www.w3.org/2002/06/soap-envelopX", 2},
    {"http://www.w3.org/2002/06/soap-envelop", 2},
    {"http://www.w3.org/2002/06/soap-envelope/", 2},
    {"http://www.w3.org/2002/06/soap-envel", 0},
    {"http://www.w3.org/2002/06/soap-envelope/1", 0},
    {"http://www.w3.org/2003/05/soap-envelope", 0},
    {EncUri11, 0},
    {EncUri12, 0},
    {"", 0},
};

const std::vector<UriCase> encodings = {
    {EncUri11, 1},
    {EncUri12, 2},
    {"http://schemas.xmlsoap.org/soap/encoding", 1},
    {"http://www.w3.org/2002/06/soap-encodin", 2},
    {"http://www.w3.org/2002/06/soap-encodi", 0},
    {"http://www.w3.org/2003/05/soap-encoding", 0},
    {EnvUri11, 0},
    {EnvUri12, 0},
    {"", 0},
};

} // namespace

TEST(TzSoapVersionMatch, EnvelopeUris) { expectVersions(envelopes, V::isSoapEnv, V::isSoapEnv); }

TEST(TzSoapVersionMatch, EncodingUris) { expectVersions(encodings, V::isSoapEnc, V::isSoapEnc); }

TEST(TzSoapVersionMatch, EncodingStylesAreEncodingUris) {
    expectVersions(encodings, V::isSoapEncodingStyle, V::isSoapEncodingStyle);
}

TEST(TzSoapVersionMatch, SupportedVersions) {
    for (const UriCase& entry : envelopes) {
        V::Version version = static_cast<V::Version>(77);
        EXPECT_EQ(V::isSupportedVersion(TzXmlNamespace("p", entry.uri), version),
                  entry.version != 0);
        EXPECT_EQ(int{version}, entry.version != 0 ? entry.version : 77) << entry.uri;
    }
}

TEST(TzSoapVersionMatch, AttributesAreKnownByNamespaceAndLocalPart) {
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
    const std::vector<UriCase> uris = {{EnvUri11, 1},
                                       {EncUri11, 1},
                                       {EnvUri12, 2},
                                       {EncUri12, 2},
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

TEST(TzSoapVersionMatch, OtherNamesAreNoAttributesOfSoap) {
    const TzXmlName names[] = {
        TzXmlName("href"), // SOAP's own, but without a namespace
        TzXmlName("ref"),
        TzXmlName("mustUnderstand"),
        TzXmlName(),
        TzXmlName("mustUnderstand", TzXmlNamespace("a", "urn:a")),
        TzXmlName("role", TzXmlNamespace("f", FaultsUri12)),
        TzXmlName("MustUnderstand", TzXmlNamespace("env", EnvUri12)),
        TzXmlName("id", TzXmlNamespace("env", EnvUri12)),
        TzXmlName("", TzXmlNamespace("enc", EncUri12)),
    };
    for (const TzXmlName& name : names) {
        V::SoapAttribute attribute = static_cast<V::SoapAttribute>(77);
        V::Version version = V::V1_1;
        EXPECT_FALSE(V::isSoapAttribute(name, attribute, version)) << name.getUniqueName();
        EXPECT_FALSE(V::isSoapAttribute(name)) << name.getUniqueName();
        EXPECT_EQ(int{attribute}, 77);
    }
}

TEST(TzSoapVersionMatch, TheNamespaceAloneDecidesTheVersionOfAnAttribute) {
    const auto versionAfter = [](const TzXmlName& name) {
        V::SoapAttribute attribute = V::Root;
        V::Version version = static_cast<V::Version>(77);
        EXPECT_FALSE(V::isSoapAttribute(name, attribute, version));
        EXPECT_EQ(attribute, V::Root);
        return int{version};
    };
    EXPECT_EQ(versionAfter(TzXmlName("id", TzXmlNamespace("e", EnvUri11))), 1);
    EXPECT_EQ(versionAfter(TzXmlName("id", TzXmlNamespace("c", EncUri12))), 2);
    EXPECT_EQ(versionAfter(TzXmlName("root", TzXmlNamespace("f", FaultsUri12))), 77);
    EXPECT_EQ(versionAfter(TzXmlName("href")), 77);
}

TEST(TzSoapVersionMatch, MatchingAnAttributeName) {
    const TzXmlName role("role", TzXmlNamespace("x", EnvUri12));
    EXPECT_TRUE(V::matchSoapAttributeName(role, V::Actor, V::V1_2));
    EXPECT_FALSE(V::matchSoapAttributeName(role, V::Actor, V::V1_1));
    EXPECT_FALSE(V::matchSoapAttributeName(role, V::Root, V::V1_2));
    for (int i = 0; i < 11; ++i) {
        const auto attribute = static_cast<V::SoapAttribute>(i);
        for (const V::Version version : BothVersions) {
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

TEST(TzSoapVersionMatch, MatchingAnElementName) {
    const auto in = [](const char* localName, const std::string& uri) {
        return TzXmlName(localName, TzXmlNamespace("x", uri));
    };
    EXPECT_TRUE(soap11().matchSoapElement(in("Body", EnvUri11), V::Body));
    // The closing slash may be missing, as for the envelope.
    EXPECT_TRUE(
        soap11().matchSoapElement(in("Body", "http://schemas.xmlsoap.org/soap/envelope"), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(in("Body", EnvUri12), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(in("body", EnvUri11), V::Body));
    EXPECT_FALSE(soap11().matchSoapElement(TzXmlName("Body"), V::Body));
    EXPECT_TRUE(soap12().matchSoapElement(in("Code", EnvUri12), V::FaultCode));
    EXPECT_TRUE(soap12().matchSoapElement(in("Misunderstood", FaultsUri12), V::Misunderstood));
    EXPECT_FALSE(soap12().matchSoapElement(in("Misunderstood", EnvUri12), V::Misunderstood));
    // Unqualified names have nothing to be tolerant about.
    EXPECT_TRUE(soap11().matchSoapElement(TzXmlName("faultcode"), V::FaultCode));
    EXPECT_FALSE(soap11().matchSoapElement(in("faultcode", "u"), V::FaultCode));
    // What a version does not have matches nothing, the empty name included.
    EXPECT_FALSE(soap11().matchSoapElement(TzXmlName(), V::FaultRole));
    EXPECT_FALSE(soap12().matchSoapElement(TzXmlName(), static_cast<V::SoapElement>(12)));
}

TEST(TzSoapVersionMatch, FaultCodesOfBothVersionsCountInBothEnvelopes) {
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
    for (const std::string& uri : {EnvUri11, EnvUri12, EnvUri11.substr(0, EnvUri11.size() - 1)}) {
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

TEST(TzSoapVersionMatch, OtherNamesAreNoFaultCodes) {
    const TzXmlName names[] = {
        TzXmlName("Client"),
        TzXmlName(),
        TzXmlName("Client", TzXmlNamespace("enc", EncUri11)),
        TzXmlName("Client.Auth", TzXmlNamespace("e", EnvUri11)),
        TzXmlName("client", TzXmlNamespace("e", EnvUri11)),
        TzXmlName("", TzXmlNamespace("e", EnvUri11)),
        TzXmlName("MissingID", TzXmlNamespace("enc", EncUri12)),
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
