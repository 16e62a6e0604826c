// SPDX-License-Identifier: MIT
#pragma once

#include "conversion/TzSoapDraft.h"
#include "conversion/TzSoapElementConversion.h"
#include "conversion/TzSoapFaultConversion.h"
#include "conversion/TzSoapLosses.h"
#include "conversion/TzSoapVersionTerms.h"
#include "model/TzSoapMetValues.h"
#include "output/TzSoapInlineTargets.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapType.h>

#include <unordered_map>
#include <utility>
#include <vector>

class TzSoapArrayTypeImp;
class TzSoapMessage;
class TzSoapUserDefinedTypeImp;

/// One rewriting of one message for another version.
///
/// Prepares drafts of everything first, which may fail, and then changes the message, which does
/// not. Values wait in a list instead of on the stack, so their depth does not matter;
/// each is rewritten once however many places and references share it.
class TzSoapConversion {
public:
    /// Of `message`, which is of another version, to `target`.
    TzSoapConversion(TzSoapMessage& message, const TzSoapVersion& target);

    /// Rewrites the message; what could not be carried over.
    std::vector<TzCString> run();

private:
    using Style = TzSharedRecord<TzCString>; // one text for all entries that state it

    /// Whether no attribute of the message refers.
    bool isLiteral() const;

    // Drafts of everything
    void prepareEnvelope();
    void prepareHeader();
    void prepareBody();
    void findTargets();
    void findTargetEntries();
    void loseTextBefore(TzSoapHeader::iterator entry);
    Style prepareBlock(TzSoapElementImp& block, TzSoapVersion::SoapElement element);
    void prepareDetail(TzSoapTypeImp& detail, const Style& style);
    void prepareEntry(TzSoapType& entry, const Style& style);
    void prepareName(TzSoapDraft& entry);
    void prepareEntryValue(TzSoapTypeImp& value, const Style& style);
    void prepareValue(TzSoapTypeImp& value, TzSoapDraft& draft);
    void prepareArray(TzSoapArrayTypeImp& array);
    void loseGaps(TzSoapArrayTypeImp& array);
    void lookAtMarkup(const TzSoapUserDefinedTypeImp& value);
    void enqueue(const TzSoapType& value);
    void walk();

    // Styles: the entries of a container state its style in its place
    static Style takeStyle(TzSoapElementImp& container, const Style& around);
    Style styleOf(const TzSoapTypeImp& entry, const Style& style) const;
    static void stateStyle(TzSoapDraft& draft, const Style& style);

    void apply() noexcept;

    TzSoapMessage& message_;
    TzSoapVersionTerms terms_;
    TzSoapLosses losses_;
    TzSoapElementConversion elements_;
    TzSoapFaultConversion fault_;
    Style style_; // stated by the envelope
    TzCString soapPrefix_;
    TzCString encodingPrefix_;

    bool inBody_ = false;
    TzSoapMetValues met_;
    std::vector<TzSoapTypeImp*> waiting_;
    std::unordered_map<const TzSoapTypeImp*, Style> stated_; // styles of entries

    TzSoapDraft::Changes changes_;
    std::vector<std::pair<TzSoapArrayTypeImp*, TzCString>> itemTypes_;
    std::vector<std::pair<TzSoapType*, TzSoapType>> replaced_;
    std::vector<TzSoapHeader::iterator> leftOut_;
    TzSoapInlineTargets targets_;
    std::vector<TzSoapBody::iterator> moved_; // entries that stand where references to them do
};
