// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include "model/TzSoapVersionTable.h"

#include <map>
#include <optional>
#include <string_view>

/// Names, roles and styles of one version in the terms of another one.
class TzSoapVersionTerms {
public:
    /// A role in the terms of the target.
    struct Role {
        TzCString uri;
        bool known; ///< Whether the target has it; otherwise it keeps its URI.
    };

    /// From `source` to `target`.
    TzSoapVersionTerms(const TzSoapVersion& source, const TzSoapVersion& target)
        : source_(source), target_(target) {}

    const TzSoapVersion& source() const noexcept { return source_; }
    const TzSoapVersion& target() const noexcept { return target_; }

    /// The target's namespace in place of `nameSpace`, under its prefix; empty when `nameSpace` is
    /// neither the source's envelope nor its encoding namespace.
    std::optional<TzXmlNamespace> nameSpace(const TzXmlNamespace& nameSpace);
    /// The target's namespace for the name of an element or a code, which may also be the source's
    /// rpc namespace; otherwise as `nameSpace`.
    std::optional<TzXmlNamespace> anyNameSpace(const TzXmlNamespace& nameSpace);
    /// The attribute that has that local part in some version, nothing without one.
    static std::optional<TzSoapVersion::SoapAttribute> attributeCalled(std::string_view localName);
    /// Whether `name`, in one of the source's namespaces, is what the source calls the attribute.
    bool isSourceName(const TzXmlName& name, TzSoapVersion::SoapAttribute attribute) const;
    /// Whether `name` is what the target calls a SOAP attribute with a namespace.
    bool isTargetName(const TzXmlName& name) const;
    /// Whether the target reads an element named `name`, which the source does not, as a fault.
    bool isTargetFault(const TzXmlName& name) const;
    /// Whether SOAP defines `nameSpace` and the target has no counterpart.
    bool isLost(const TzXmlNamespace& nameSpace) const;
    /// An encodingStyle text with the target's style in place of the source's.
    TzCString encodingStyle(const TzCString& text) const;
    /// Whether `text` is the target's encoding style and nothing else.
    bool isOwnStyle(const TzCString& text) const { return text == target_.getSoapEncodingStyle(); }
    /// The role `uri`; "" stands for the ultimate receiver, which need not be stated.
    Role role(const TzCString& uri) const;
    /// An index of an array as the target writes it; any other text stays.
    TzCString index(const TzCString& text) const;
    /// Whether item types of arrays are names only, without the shape of inner arrays.
    bool itemTypeIsName() const;
    /// Whether a fault has subcodes; otherwise its code contains qualifiers.
    bool hasSubcodes() const { return isNamed(TzSoapVersion::FaultSubcode); }
    /// Whether a fault has a role.
    bool hasFaultRole() const { return isNamed(TzSoapVersion::FaultRole); }
    /// Whether a header can hold reports of entries that were not understood.
    bool hasMisunderstood() const { return isNamed(TzSoapVersion::Misunderstood); }
    /// Whether `name` is the report of an entry that was not understood, which the target has.
    bool isReport(const TzXmlName& name) const;
    /// Whether `name` is what the source itself calls such a report, and the target has reports.
    bool isSpeltReport(const TzXmlName& name) const;
    /// Whether `name` is a block of the target: its envelope, header, body, fault or detail.
    bool isTargetBlock(const TzXmlName& name) const;
    /// The text of a boolean attribute, in digits where the target knows no words.
    TzCString flag(const TzCString& text) const;
    /// What the source calls a name beyond the enumerations; the empty name if it lacks it.
    const TzXmlName& sourceTerm(TzSoapVersionTable::Term term) const {
        return TzSoapVersionTable::of(source_.getVersion()).term(term);
    }
    /// What the target calls it.
    const TzXmlName& targetTerm(TzSoapVersionTable::Term term) const {
        return TzSoapVersionTable::of(target_.getVersion()).term(term);
    }
    /// What the target does differently from other versions.
    const TzSoapVersionTable::Habits& habits() const {
        return TzSoapVersionTable::of(target_.getVersion()).habits();
    }
    /// Whether the target has an attribute of that kind.
    bool hasAttribute(TzSoapVersion::SoapAttribute attribute) const {
        return !target_.getSoapAttributeQName(attribute).isEmpty();
    }
    /// Whether `name` is a fault code of the source or of a version known by default, and of which
    /// kind.
    bool isFaultCode(const TzXmlName& name, TzSoapVersion::SoapFaultCode& code) const;
    /// A fault subcode in the terms of the target, which has subcodes.
    TzXmlName subcode(const TzXmlName& name);
    /// Whether the target has the fault code.
    bool hasFaultCode(TzSoapVersion::SoapFaultCode code) const;

private:
    /// Namespaces made so far, by prefix: names of one namespace share it.
    using Made = std::map<TzCString, TzXmlNamespace>;

    static const TzXmlNamespace& made(Made& known, const TzCString& prefix, const TzCString& uri);
    bool isNamed(TzSoapVersion::SoapElement element) const;

    const TzSoapVersion& source_;
    const TzSoapVersion& target_;
    Made envelopes_;
    Made encodings_;
    Made rpcs_;
};
