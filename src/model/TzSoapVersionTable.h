// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

/// All names of one version, made once from constant texts and indexed by the enumerators.
class TzSoapVersionTable {
public:
    /// Where a name lives; numbers the namespaces.
    enum Home : std::size_t { Unqualified, Envelope, Encoding, Faults, Rpc, Upgrade, Homes };

    /// Names beyond the enumerations; numbers them.
    enum Term : std::size_t {
        Id,                ///< The attribute that references name a value by.
        NodeType,          ///< The attribute that says what an encoded node is.
        Relay,             ///< The attribute that asks to pass a header entry on.
        ReasonText,        ///< The element of a reason in one language.
        UpgradeEntry,      ///< The header entry that lists supported envelopes.
        SupportedEnvelope, ///< The element of one of them.
        DuplicateId,       ///< A fault subcode.
        RpcResult,         ///< The element that names the member with the return value.
        Terms
    };

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
    /// What a version does differently, beside its names.
    struct Habits {
        bool booleansAreWords = true;    ///< mustUnderstand is "true" instead of "1".
        bool indicesInBrackets = false;  ///< Indices are "[2,3]" instead of "2 3".
        bool blocksStateStyle = true;    ///< Envelope, Header, Body and Detail may state a style.
        bool targetsInline = false;      ///< A target stands where the first reference to it would.
        bool itemTypeIsOptional = false; ///< An array of anything need not say so.
        bool refersByFragment = true;    ///< A reference is "#id" instead of "id".
        bool refusesForeignCodes = false; ///< A fault takes no code that only other versions have.
        /// Peers write the children of faults as in this version, too; empty: they do not.
        std::optional<TzSoapVersion::Version> readsFaultsOf = std::nullopt;
        int senderStatus = 500;               ///< HTTP status of a fault of the sender.
        const char* packageType = "text/xml"; ///< Media type of the envelope in a package.
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
        std::array<NameText, Terms> terms;
        std::string_view noStyleSuffix;
        Habits habits;
    };

    TzSoapVersionTable(const TzSoapVersionTable&) = delete;
    TzSoapVersionTable& operator=(const TzSoapVersionTable&) = delete;
    ~TzSoapVersionTable() = default;

    /// The role of the next receiver as SOAP 1.1 publishes it (4.2.2); its URI does not begin with
    /// that of the envelope, unlike the one in the table.
    static constexpr char PublishedNextRole[] = "http://schemas.xmlsoap.org/soap/actor/next";

    /// The table of SOAP 1.1.
    static const TzSoapVersionTable& soap11();
    /// The table of SOAP 1.2 of 2002.
    static const TzSoapVersionTable& soap12();
    /// The table of SOAP 1.2 of 2003.
    static const TzSoapVersionTable& soap12Rec();

    /// The versions that look-ups without a version know, the latest first.
    static constexpr std::array Supported = {TzSoapVersion::V1_2, TzSoapVersion::V1_1};
    /// All versions.
    static constexpr std::array Known = {TzSoapVersion::V1_2Rec, TzSoapVersion::V1_2,
                                         TzSoapVersion::V1_1};
    /// The table of `version`, null for an unknown version.
    static const TzSoapVersionTable* find(TzSoapVersion::Version version);
    /// The table of `version`; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    static const TzSoapVersionTable& of(TzSoapVersion::Version version);

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

    /// A name beyond the enumerations, the empty name if the version lacks it.
    const TzXmlName& term(Term term) const noexcept { return terms_[term]; }
    /// The encoding style that claims nothing, "" if the version lacks it.
    const TzCString& noEncodingStyle() const noexcept { return noStyle_; }
    /// What the version does differently, beside its names.
    const Habits& habits() const noexcept { return habits_; }
    /// Whether the version writes what it encodes without saying so under `style`: it is its own
    /// encoding style, or claims nothing.
    bool isSettled(std::string_view style) const noexcept {
        return style == nameSpace(Encoding).getUri() || (!noStyle_.empty() && style == noStyle_);
    }

    /// `name` in the namespace of `standard`: that name itself if the local parts are the same.
    static TzXmlName renamed(const TzXmlName& name, const TzXmlName& standard) {
        return name.getLocalName() == standard.getLocalName()
                   ? standard
                   : TzXmlName(name.getLocalName(), standard.getNamespace());
    }

    /// Number of the attribute with that local part, -1 if absent.
    int findAttribute(std::string_view localName) const noexcept;
    /// Number of the fault code with that local part, -1 if absent.
    int findFaultCode(std::string_view localName) const noexcept;

    /// Whether two URIs stand for the same namespace: equal, or equal except for the last
    /// character.
    static bool matchUris(std::string_view left, std::string_view right) noexcept;
    /// The version whose namespace `home` is `uri`; tries the latest version first.
    static bool findVersion(std::string_view uri, Home home, TzSoapVersion::Version& version);
    /// Whether `name` is a fault code of some version for which this version has none.
    bool lacksFaultCode(const TzXmlName& name) const;
    /// Throws INVALID_FAULT_CODE for `versions`.
    [[noreturn]] static void refuseFaultCode(const char* versions);
    /// Throws INVALID_FAULT_CODE for this version.
    [[noreturn]] void refuseFaultCode() const { refuseFaultCode(errorName_); }

private:
    explicit TzSoapVersionTable(const Texts& texts);
    static Texts soap12Texts();
    /// The texts of 2002 with the differences of 2003.
    static Texts soap12RecTexts();

    const TzXmlName& validCode(const TzXmlName& name) const;

    const char* errorName_;
    std::array<TzXmlNamespace, Homes> namespaces_;
    std::array<TzXmlName, 11> attributes_;
    std::array<TzXmlName, 12> elements_;
    std::array<TzXmlName, 6> faultCodes_;
    std::array<TzXmlName, 4> subFaultCodes_;
    std::array<TzCString, 3> roles_;
    TzCString noRole_;
    std::array<TzXmlName, Terms> terms_;
    TzCString noStyle_;
    Habits habits_;
};
