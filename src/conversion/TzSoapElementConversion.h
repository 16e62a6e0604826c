// SPDX-License-Identifier: MIT
#pragma once

#include "conversion/TzSoapDraft.h"
#include "conversion/TzSoapLosses.h"
#include "conversion/TzSoapVersionTerms.h"

#include <tz/pointer/TzSharedRecord.h>

#include <unordered_map>
#include <utility>

class TzSoapAttributeSet;
class TzSoapInlineTargets;
class TzSoapMessage;
class TzXmlAttribute;

/// Rewrites names, attributes and properties of elements for another version.
class TzSoapElementConversion {
public:
    /// What an unqualified attribute that makes a reference means to an element.
    enum class Reference {
        Block,   ///< Nothing: the element is not a value, or stands in a literal message.
        None,    ///< A value other than a reference.
        Waiting, ///< A reference to a value, without target: only its text.
        Settled, ///< A reference to a value, with its target.
        Mime,    ///< A reference to a MIME part.
    };

    TzSoapElementConversion(TzSoapVersionTerms& terms, TzSoapLosses& losses)
        : terms_(terms), losses_(losses) {}

    /// The ids that references of the message name, without which a plain "id" has no meaning in
    /// some versions. To be set before the first element; outlives this object.
    void setTargets(const TzSoapInlineTargets& targets) noexcept { targets_ = &targets; }
    /// The message, whose envelope and header bind prefixes that stand in texts. To be set before
    /// the first element, not changed before the last one; outlives this object.
    void setMessage(const TzSoapMessage& message) noexcept { message_ = &message; }
    /// Makes `draft` one of the target version.
    void convert(TzSoapDraft& draft, Reference reference);

private:
    using Style = TzSharedRecord<TzCString>;

    void convertNames(TzSoapDraft& draft);
    bool isOfUpgrade(const TzXmlName& name) const;
    void keepUpgrade(TzSoapDraft& draft);
    void bindListedName(TzSoapDraft& draft);
    const TzCString* uriForListed(const TzSoapElementImp& element, const TzCString& prefix) const;
    const TzCString& freePrefix(TzCString& known, std::string_view base) const;
    bool isStyleOfBlock(TzSoapVersion::SoapAttribute attribute) const;
    void convertProperties(TzSoapDraft& draft);
    void convertAttributes(TzSoapDraft& draft, Reference reference);
    void convertPlain(const TzXmlAttribute& attribute, Reference reference);
    void convertOwn(const TzXmlAttribute& attribute, const TzXmlNamespace& home,
                    Reference reference);
    bool convertTerm(const TzXmlAttribute& attribute, const TzXmlName& moved);
    bool wouldName(const TzXmlAttribute& attribute, Reference reference) const;
    void convertReference(const TzXmlAttribute& attribute, Reference reference);
    void convertForeign(const TzXmlAttribute& attribute);
    bool isOwnText(const TzXmlName& name, Reference reference) const;
    bool wouldRefer(const TzXmlName& name, Reference reference) const;
    TzXmlName freeName(const TzXmlName& name) const;
    const Style& style(const Style& text);
    TzCString valueOf(TzSoapVersion::SoapAttribute attribute, const TzCString& value);
    TzCString role(const TzCString& uri);
    void loseAttribute(const TzXmlName& name, std::string_view how);

    TzSoapVersionTerms& terms_;
    TzSoapLosses& losses_;
    // What texts that elements share became, so that they share it again; with the text, which must
    // live as long
    std::unordered_map<const TzCString*, std::pair<Style, Style>> styles_;
    const TzSoapInlineTargets* targets_ = nullptr;
    const TzSoapMessage* message_ = nullptr;
    const TzSoapElementImp* upgrade_ = nullptr; // the list of envelopes that began last
    // Prefixes that neither envelope nor header declares, looked for once
    TzCString upgradePrefix_;
    TzCString listedPrefix_;
    // Of the current element
    const TzSoapElementImp* element_ = nullptr;
    TzSoapAttributeSet converted_;
    TzCString text_; // of a reference without target
};
