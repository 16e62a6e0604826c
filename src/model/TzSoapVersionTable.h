// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <array>
#include <cstddef>
#include <string_view>

/// All names of one version, made once from constant texts and indexed by the enumerators.
class TzSoapVersionTable {
public:
    /// Where a name lives; numbers the namespaces.
    enum Home : std::size_t { Unqualified, Envelope, Encoding, Faults, Rpc, Upgrade, Homes };

    /// A name as constant text; without local part the version lacks the name.
    struct NameText {
        std::string_view localName;
        Home home = Unqualified;
    };
    /// A namespace as constant text.
    struct NamespaceText {
        std::string_view prefix;
        std::string_view uri;
    };
    /// The texts of a version; it lacks what is left out.
    struct Texts {
        const char* errorName;
        std::array<NamespaceText, Homes> namespaces;
        std::array<NameText, 11> attributes;
        std::array<NameText, 12> elements;
        std::array<NameText, 6> faultCodes;
        std::array<NameText, 4> subFaultCodes;
        std::array<std::string_view, 3> roleSuffixes;
    };

    TzSoapVersionTable(const TzSoapVersionTable&) = delete;
    TzSoapVersionTable& operator=(const TzSoapVersionTable&) = delete;
    ~TzSoapVersionTable() = default;

    /// The role of the next receiver as SOAP 1.1 publishes it (4.2.2); its URI does not begin with
    /// that of the envelope, unlike the one in the table.
    static constexpr char PublishedNextRole[] = "http://schemas.xmlsoap.org/soap/actor/next";

    /// The table of SOAP 1.1.
    static const TzSoapVersionTable& soap11();
    /// The table of SOAP 1.2.
    static const TzSoapVersionTable& soap12();

    /// The namespace, empty if the version lacks it.
    const TzXmlNamespace& nameSpace(Home home) const noexcept { return namespaces_[home]; }
    /// The name of an attribute or `TzSoapVersion::DummyXmlName`.
    const TzXmlName& attribute(TzSoapVersion::SoapAttribute attribute) const;
    /// The name of an element or `TzSoapVersion::DummyXmlName`.
    const TzXmlName& element(TzSoapVersion::SoapElement element) const;
    /// The name of a fault code; `TzXmlError` INVALID_FAULT_CODE if absent.
    const TzXmlName& faultCode(TzSoapVersion::SoapFaultCode code) const;
    /// The name of a fault subcode; `TzXmlError` INVALID_FAULT_CODE if absent.
    const TzXmlName& subFaultCode(TzSoapVersion::SoapSubFaultCode code) const;
    /// The URI of a role or "".
    const TzCString& role(TzSoapVersion::SoapRole role) const;

    /// Number of the attribute with that local part, -1 if absent.
    int findAttribute(std::string_view localName) const noexcept;
    /// Number of the fault code with that local part, -1 if absent.
    int findFaultCode(std::string_view localName) const noexcept;

    /// Whether two URIs stand for the same namespace: equal, or equal except for the last
    /// character.
    static bool matchUris(std::string_view left, std::string_view right) noexcept;
    /// The version whose namespace `home` is `uri`; tries the latest version first.
    static bool findVersion(std::string_view uri, Home home, TzSoapVersion::Version& version);
    /// Throws INVALID_FAULT_CODE for `versions`.
    [[noreturn]] static void refuseFaultCode(const char* versions);

private:
    explicit TzSoapVersionTable(const Texts& texts);

    const TzXmlName& validCode(const TzXmlName& name) const;

    const char* errorName_;
    std::array<TzXmlNamespace, Homes> namespaces_;
    std::array<TzXmlName, 11> attributes_;
    std::array<TzXmlName, 12> elements_;
    std::array<TzXmlName, 6> faultCodes_;
    std::array<TzXmlName, 4> subFaultCodes_;
    std::array<TzCString, 3> roles_;
    TzCString noRole_;
};
