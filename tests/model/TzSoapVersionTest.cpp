// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersion.h>

#include "support/CataloguedError.h"
#include "support/VersionNames.h"

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

const V::Version noVersions[] = {static_cast<V::Version>(0), static_cast<V::Version>(3),
                                 static_cast<V::Version>(-1)};

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

    static constexpr bool TagsAreStrings =
        std::is_same_v<decltype(EnvelopeTag), const TzCString> &&
        std::is_same_v<decltype(MisunderstoodTag), const TzCString>;
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
const bool startupMatch = V::isSoapEnc(EncUri12);
const std::vector<TzCString> startupTags = BareVersion::tags();

} // namespace

TEST(TzSoapVersion, EnumeratorsHaveFixedNumbers) {
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

TEST(TzSoapVersion, FaultCodesAreAlsoMembersOfTheClass) {
    EXPECT_EQ(V::VersionMismatch, Code::VersionMismatch);
    EXPECT_EQ(V::Server, Code::Server);
    EXPECT_EQ(V::Client, Code::Client);
    EXPECT_EQ(V::DataEncodingUnknown, Code::DataEncodingUnknown);
    EXPECT_EQ(V::DTDNotSupported, Code::DTDNotSupported);
    // The unscoped name is the attribute's.
    EXPECT_TRUE((std::is_same_v<decltype(V::MustUnderstand), V::SoapAttribute>));
}

TEST(TzSoapVersion, EnumerationsRestOnInt) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::Version>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapAttribute>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapElement>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapFaultCode>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapSubFaultCode>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<V::SoapRole>, int>));
}

TEST(TzSoapVersion, OneObjectPerVersion) {
    EXPECT_EQ(soap11().getVersion(), V::V1_1);
    EXPECT_EQ(soap12().getVersion(), V::V1_2);
    EXPECT_EQ(&soap11(), &TzSoap11Version::getSoapVersion());
    EXPECT_EQ(&soap12(), &TzSoap12Version::getSoapVersion());
    EXPECT_NE(dynamic_cast<const TzSoap11Version*>(&soap11()), nullptr);
    EXPECT_NE(dynamic_cast<const TzSoap12Version*>(&soap12()), nullptr);
}

TEST(TzSoapVersion, TheLatestVersionIs12) {
    EXPECT_EQ(V::getLatestVersion(), 2);
    EXPECT_EQ(&V::getLatestSoapVersion(), &soap12());
}

TEST(TzSoapVersion, OtherNumbersAreNoVersions) {
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

TEST(TzSoapVersion, VersionsAreCopiedAndNotMade) {
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

TEST(TzSoapVersion, UsableBeforeMain) {
    EXPECT_EQ(startupName.getQualifiedName(), "SOAP-ENV:Envelope");
    EXPECT_TRUE(startupMatch);
    EXPECT_EQ(startupTags, BareVersion::tags());
}

TEST(TzSoapVersion, ThreadsMayLookUpAtOnce) {
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
TEST(TzSoapVersion, TheBaseHasNeitherFurtherNamespacesNorRoles) {
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

TEST(TzSoapVersion, TagsOfDerivedVersions) {
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
