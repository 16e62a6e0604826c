// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapStyle.h>
#include <soap/TzSoapVersion.h>
#include <soap/TzSoapWriter.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "output/TzSoapGapBudget.h"
#include "output/TzSoapInlineTargets.h"
#include "output/TzSoapReferenceBook.h"
#include "output/TzSoapScope.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <typeinfo>
#include <utility>

class TzMimeMultipart;
class TzSoapConstVisitor;
class TzSoapEnvelopeTag;
class TzSoapScopeRules;

/// What all output of one writer or serializer needs: its destination, version and rules, and the
/// scope and the reference book that it shares with the writers within it.
class TzSoapOutputContext {
public:
    /// What distinguishes the two paths of output from each other.
    struct Kind {
        const TzSoapScopeRules& rules;
        const std::type_info& visitor; ///< The visitor class that is not derived.
        const char* unit;              ///< The source that internal errors name.
    };

    /// What a writer shares with the writers within it.
    struct Shared {
        explicit Shared(const TzSoapVersion& soap) : scope(soap, TzSoapWriter::DepthLimit) {}

        TzSoapScope scope;
        TzSoapReferenceBook book;
        std::optional<TzSoapInlineTargets> targets; // made for the first version that needs them
        TzSoapGapBudget gaps;
    };

    /// Output to `xml` in the latest version, with what `shared` holds, which must outlive this
    /// object and everything within it. MIME parts go into `multipart` unless that is null.
    TzSoapOutputContext(const Kind& kind, TzXmlWriter* xml, TzMimeMultipart* multipart,
                        Shared& shared);
    /// A copy of the settings of `other` and of all that it shares; that of a writer within another
    /// goes on sharing it.
    TzSoapOutputContext(const TzSoapOutputContext& other);
    /// The context of a writer within: the settings of `other`, and what that shares. `keeper`
    /// keeps the path of `other` alive.
    TzSoapOutputContext(const TzSoapOutputContext& other, const std::shared_ptr<void>& keeper);
    TzSoapOutputContext& operator=(const TzSoapOutputContext&) = delete;
    TzSoapOutputContext& operator=(TzSoapOutputContext&&) noexcept = default;
    ~TzSoapOutputContext() = default;

    /// Where the text goes.
    TzXmlWriter& xml() const noexcept { return *xml_; }
    /// Writes to `xml` from now on.
    void setXml(TzXmlWriter* xml) noexcept {
        xml_ = xml;
        if (compact_) {
            xml->setCompact(*compact_);
        }
    }
    /// Makes this and every later XML writer write in compact layout, or not.
    void setCompact(bool compact) noexcept {
        compact_ = compact;
        xml_->setCompact(compact);
    }
    /// Where MIME parts go, null for nowhere.
    TzMimeMultipart* multipart() const noexcept { return multipart_; }
    /// Inserts MIME parts into `multipart` from now on, or nowhere when it is null.
    void setMultipart(TzMimeMultipart* multipart) noexcept { multipart_ = multipart; }

    /// The tag of the envelope before, which serves the next one; null without one, and within
    /// writers that may have something else open.
    TzSoapEnvelopeTag* envelopeTag() const noexcept { return envelopeTag_; }
    /// Lets `tag`, which must outlive this object, serve the envelope that is written next.
    void setEnvelopeTag(TzSoapEnvelopeTag& tag) noexcept { envelopeTag_ = &tag; }

    /// The names of the version written.
    const TzSoapVersion& soap() const noexcept { return *soap_; }
    /// The version written.
    TzSoapVersion::Version version() const { return soap_->getVersion(); }
    /// The table of the version written.
    const TzSoapVersionTable& table() const noexcept { return *table_; }
    /// What the version written does differently.
    const TzSoapVersionTable::Habits& habits() const noexcept { return table_->habits(); }
    /// Writes `version` from now on; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// Writes messages in `version` from now on, whatever their own.
    void fixVersion(TzSoapVersion::Version version);
    /// Whether `fixVersion` fixed the version of messages.
    bool isVersionFixed() const noexcept { return versionFixed_; }
    /// Takes the prefixes that a message wants for the namespaces of SOAP, unless this is the
    /// context of a writer within another.
    void takePrefixes(const TzCString& envelope, const TzCString& encoding);

    /// Whether an envelope is being written.
    bool isInEnvelope() const noexcept { return inEnvelope_; }
    /// Whether a header, body or fault is being written on its own.
    bool isStandalone() const noexcept { return standalone_; }

    /// The scope, shared with outer and inner writers.
    TzSoapScope& scope() const noexcept { return shared_->scope; }
    /// The reference book, shared with outer and inner writers.
    TzSoapReferenceBook& book() const noexcept { return shared_->book; }
    /// Where targets of references stand, shared with outer and inner writers.
    TzSoapInlineTargets& targets() const {
        return shared_->targets ? *shared_->targets : shared_->targets.emplace();
    }
    /// The gaps of arrays written so far, shared with outer and inner writers.
    TzSoapGapBudget& gaps() const noexcept { return shared_->gaps; }
    /// Whether `name` is that of a header entry which lists supported envelopes and never states a
    /// style.
    bool isUpgrade(const TzXmlName& name) const {
        const TzXmlName& upgrade = table_->term(TzSoapVersionTable::UpgradeEntry);
        return !upgrade.isEmpty() && name == upgrade;
    }
    /// How declarations, prefixes and styles are written.
    const TzSoapScopeRules& rules() const noexcept { return *rules_; }
    /// Writes by `rules` from now on; returns those in force so far.
    const TzSoapScopeRules& setRules(const TzSoapScopeRules& rules) noexcept {
        return *std::exchange(rules_, &rules);
    }
    /// The rules for messages of `style`.
    const TzSoapScopeRules& rulesOf(TzSoapStyle style) const noexcept;
    /// The source that internal errors name.
    const char* unit() const noexcept { return kind_->unit; }
    /// Whether every visit of `visitor` comes back here, because its class is not derived.
    bool isServed(const TzSoapConstVisitor& visitor) const noexcept;

    /// Sets one of the flags as long as it lives; one made for false sets nothing.
    class Flag {
    public:
        Flag(bool& flag, bool set) noexcept : flag_(set ? &flag : nullptr) {
            if (set) {
                flag = true;
            }
        }
        ~Flag() {
            if (flag_ != nullptr) {
                *flag_ = false;
            }
        }
        Flag(const Flag&) = delete;
        Flag& operator=(const Flag&) = delete;

    private:
        bool* flag_;
    };
    /// An envelope is being written until the flag dies.
    Flag enterEnvelope() noexcept { return {inEnvelope_, true}; }
    /// A header, body or fault is being written on its own until the flag dies, if `onItsOwn`.
    Flag enterStandalone(bool onItsOwn) noexcept { return {standalone_, onItsOwn}; }

private:
    const Kind* kind_;
    const TzSoapScopeRules* rules_;
    TzXmlWriter* xml_;
    TzMimeMultipart* multipart_;
    const TzSoapVersion* soap_;
    const TzSoapVersionTable* table_;
    Shared* shared_;
    std::shared_ptr<void> keeper_; // of shared_; null while a path holds that for its own context
    std::optional<bool> compact_;  // empty: the layout of the XML writer
    TzSoapEnvelopeTag* envelopeTag_ = nullptr; // not that of copies
    bool isWithin_ = false;
    bool versionFixed_ = false;
    bool inEnvelope_ = false;
    bool standalone_ = false;
};

/// Values that are written together: as long as it lives, the context knows where targets of
/// references stand among them, and their arrays share one budget for gaps. Does nothing when the
/// version writes no target inline, and within another one.
class TzSoapWrittenTogether {
public:
    explicit TzSoapWrittenTogether(const TzSoapOutputContext& context)
        : gaps_(context.gaps()),
          targets_(context.habits().targetsInline && context.targets().isEmpty()
                       ? &context.targets()
                       : nullptr) {}
    ~TzSoapWrittenTogether() {
        if (targets_ != nullptr) {
            targets_->clear();
            gaps_ = TzSoapGapBudget();
        }
    }
    TzSoapWrittenTogether(const TzSoapWrittenTogether&) = delete;
    TzSoapWrittenTogether& operator=(const TzSoapWrittenTogether&) = delete;

    /// `value` is one of them.
    void add(TzSoapTypeImp& value) {
        if (targets_ != nullptr) {
            targets_->add(value);
        }
    }
    /// And so are all of `values`.
    template <typename Values> void addAll(const Values& values) {
        if (targets_ != nullptr) {
            for (const TzSoapType& value : values) {
                targets_->add(TzSoapAccess::body(value));
            }
        }
    }

private:
    TzSoapGapBudget& gaps_;
    TzSoapInlineTargets* targets_;
};

/// An element that is being written: its scope and the indentation of its line, which the
/// destructor restores.
class TzSoapOpenElement {
public:
    /// Opens the element; `TzXmlDomainError` when it is nested too deeply.
    explicit TzSoapOpenElement(const TzSoapOutputContext& context)
        : context_(context), depth_(context.scope().depth()),
          indentation_(context.xml().getIndentation()) {
        context.scope().open();
    }
    ~TzSoapOpenElement() {
        context_.scope().closeTo(depth_);
        context_.xml().setIndentation(indentation_);
    }
    TzSoapOpenElement(const TzSoapOpenElement&) = delete;
    TzSoapOpenElement& operator=(const TzSoapOpenElement&) = delete;

private:
    const TzSoapOutputContext& context_;
    std::size_t depth_;
    std::size_t indentation_;
};
