// SPDX-License-Identifier: MIT
#include "output/TzSoapMessageOutput.h"

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapValueList.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapEnvelopeTag.h"
#include "output/TzSoapScopeRules.h"

#include <algorithm>
#include <tuple>

namespace {

/// While it lives, a message that was read may be written as deep as it could be read.
class DepthAllowance {
public:
    DepthAllowance(TzSoapScope& scope, std::size_t depth)
        : scope_(scope), before_(scope.depthLimit()) {
        scope.setDepthLimit(std::max(before_, depth));
    }
    ~DepthAllowance() { scope_.setDepthLimit(before_); }
    DepthAllowance(const DepthAllowance&) = delete;
    DepthAllowance& operator=(const DepthAllowance&) = delete;

private:
    TzSoapScope& scope_;
    std::size_t before_;
};

/// While it lives, all is written in the style of one message.
class StyleInForce {
public:
    StyleInForce(TzSoapOutputContext& context, TzSoapStyle style)
        : context_(context), rules_(context.setRules(context.rulesOf(style))),
          exactNames_(context.scope().setExactNames(context.rules().style().hasExactNames)),
          compact_(context.xml().isCompact()) {
        context.xml().setCompact(compact_ || context.rules().style().isCompact);
    }
    ~StyleInForce() {
        context_.setRules(rules_);
        context_.scope().setExactNames(exactNames_);
        context_.xml().setCompact(compact_);
    }
    StyleInForce(const StyleInForce&) = delete;
    StyleInForce& operator=(const StyleInForce&) = delete;

private:
    TzSoapOutputContext& context_;
    const TzSoapScopeRules& rules_;
    bool exactNames_;
    bool compact_;
};

} // namespace

[[gnu::hot]] void TzSoapMessageOutput::write(TzSoapConstVisitor& visitor,
                                             const TzSoapMessageImp& message) {
    // Any depth needs no stack, unless a derived visitor is called in between.
    const DepthAllowance allowance(context_.scope(),
                                   context_.isServed(visitor) ? message.getReadLimits().depth : 0);
    if (!context_.isVersionFixed()) {
        context_.setVersion(message.getVersion());
    }
    const StyleInForce style(context_, message.getStyle());
    context_.takePrefixes(message.getSoapPrefix(), message.getSoapEncodingPrefix());
    TzSoapWrittenTogether together(context_);
    together.addAll(TzSoapAccess::body(message.getSoapHeader()).entries());
    addContents(together, TzSoapAccess::body(message.getSoapBody()));
    const TzSoapOutputContext::Flag inEnvelope = context_.enterEnvelope();
    const TzSoapOpenElement element(context_);
    const TzSoapEnvelopeTag* const repeated = enterRepeated(message);
    const TzCString prefix = repeated != nullptr ? blockPrefix(message.getName()) : enter(message);
    writeProlog(message);
    const TzXmlName kept = keptFrom(visitor, message.getName());
    const TzSoapTagName name = blockName(prefix, message.getName());
    if (repeated != nullptr) {
        repeated->write(context_, name);
    } else {
        writeStart(message, name);
    }
    writeText(message.text(TzSoapMessageImp::BeforeHeader));
    writeParts(visitor, message);
    writeText(message.text(TzSoapMessageImp::AfterBody));
    name.endBlock(context_.xml());
}

const TzSoapEnvelopeTag* TzSoapMessageOutput::enterRepeated(const TzSoapMessageImp& message) {
    const TzSoapEnvelopeTag* const before = context_.envelopeTag();
    if (before == nullptr || !before->isOf(message, context_)) {
        return nullptr;
    }
    before->enter(context_.scope());
    startTag_.takeAround(before->around());
    return before;
}

TzCString TzSoapMessageOutput::enter(const TzSoapMessageImp& message) {
    startTag_.begin(message.getAttributeSet());
    startTag_.qualifyName(message.getName());
    startTag_.collectBlock(message);
    startTag_.qualifyStyle();
    TzCString prefix = blockPrefix(message.getName()); // a copy: names may change
    context_.scope().declareUnbound(prefix, envelopeUri());
    context_.rules().declareUsed(context_.scope(), message);
    return prefix;
}

void TzSoapMessageOutput::writeProlog(const TzSoapMessageImp& message) {
    if (message.hasProlog()) {
        std::apply([&](const auto&... pieces) { context_.xml().writeMarkupLine(pieces...); },
                   message.getProlog().pieces());
    }
}

void TzSoapMessageOutput::writeStart(const TzSoapMessageImp& message, const TzSoapTagName& name) {
    startTag_.writeBlock(name);
    if (context_.envelopeTag() != nullptr) {
        context_.envelopeTag()->keep(message, context_, startTag_);
    }
}

[[gnu::hot]] void TzSoapMessageOutput::writeParts(TzSoapConstVisitor& visitor,
                                                  const TzSoapMessageImp& message) {
    const TzSoapHeaderImp& header = TzSoapAccess::body(message.getSoapHeader());
    const bool isServed = context_.isServed(visitor);
    if (isWritten(header)) {
        if (isServed) {
            write(visitor, header);
        } else {
            message.getSoapHeader().acceptVisitor(visitor);
        }
    }
    writeText(message.text(TzSoapMessageImp::BeforeBody));
    if (isServed) {
        write(visitor, TzSoapAccess::body(message.getSoapBody()));
    } else {
        message.getSoapBody().acceptVisitor(visitor);
    }
}

void TzSoapMessageOutput::addContents(TzSoapWrittenTogether& together, const TzSoapBodyImp& body) {
    if (body.hasSoapFault()) {
        together.add(TzSoapAccess::body(body.getSoapFault().getDetails()));
    }
    together.addAll(body.entries());
}

[[gnu::hot]] void TzSoapMessageOutput::write(TzSoapConstVisitor& visitor,
                                             const TzSoapHeaderImp& header) {
    const auto standalone = context_.enterStandalone(!context_.isInEnvelope());
    const TzSoapOpenElement element(context_);
    collect(header.getName(), header);
    TzSoapWrittenTogether together(context_);
    together.addAll(header.entries());
    startTag_.qualifyStyle();
    const TzCString prefix = prefixFor(header.getName());
    const TzXmlName kept = keptFrom(visitor, header.getName());
    const TzSoapTagName name = blockName(prefix, header.getName());
    startTag_.writeBlock(name);
    writeEntries(visitor, header.entries());
    name.endBlock(context_.xml());
}

[[gnu::hot]] void TzSoapMessageOutput::write(TzSoapConstVisitor& visitor,
                                             const TzSoapBodyImp& body) {
    const auto standalone = context_.enterStandalone(!context_.isInEnvelope());
    const TzSoapOpenElement element(context_);
    collect(body.getName(), body);
    TzSoapWrittenTogether together(context_);
    addContents(together, body);
    startTag_.qualifyStyle();
    if (body.hasProperties()) {
        context_.rules().collectBodyProperties(startTag_, body);
    }
    const TzCString prefix = prefixFor(body.getName());
    const TzXmlName kept = keptFrom(visitor, body.getName());
    const TzSoapTagName name = blockName(prefix, body.getName());
    startTag_.writeBlock(name);
    writeText(body.textBeforeFault());
    if (body.hasSoapFault()) {
        body.getSoapFault().acceptVisitor(visitor);
    }
    writeEntries(visitor, body.entries());
    name.endBlock(context_.xml());
}

[[gnu::hot]] void TzSoapMessageOutput::collect(const TzXmlName& name,
                                               const TzSoapElementImp& block) {
    startTag_.begin(block.getAttributeSet());
    if (!context_.isInEnvelope()) {
        TzSoapVersion::Version version{};
        if (TzSoapVersion::isKnownVersion(name.getNamespace(), version)) {
            context_.setVersion(version);
        }
        startTag_.qualifyName(name);
    }
    startTag_.collectBlock(block);
}

TzXmlName TzSoapMessageOutput::keptFrom(const TzSoapConstVisitor& visitor,
                                        const TzXmlName& name) const {
    // Only a visitor of a derived class may change it meanwhile; for all others no count is
    // touched, because threads share the names of blocks.
    return context_.isServed(visitor) ? TzXmlName() : name;
}

const TzCString& TzSoapMessageOutput::prefixFor(const TzXmlName& name) const {
    return context_.isInEnvelope() ? blockPrefix(name) : name.getPrefix();
}

[[gnu::hot]] const TzCString& TzSoapMessageOutput::blockPrefix(const TzXmlName& name) const {
    const TzSoapScope& scope = context_.scope();
    const bool keepsOwn = scope.hasExactNames() && scope.uriFor(name.getPrefix()) == envelopeUri();
    return keepsOwn ? name.getPrefix() : scope.envelopePrefix();
}

const TzCString& TzSoapMessageOutput::envelopeUri() const {
    return context_.table().nameSpace(TzSoapVersionTable::Envelope).getUri();
}

TzSoapTagName TzSoapMessageOutput::blockName(std::string_view prefix, const TzXmlName& name) const {
    return TzSoapTagName::ofBlock(prefix, name, !context_.scope().hasExactNames());
}

bool TzSoapMessageOutput::isWritten(const TzSoapHeaderImp& header) const {
    return header.entryCount() != 0 || (context_.rules().style().keepsAll && header.wasRead());
}

void TzSoapMessageOutput::writeText(const TzCString& text) {
    if (!text.empty() && context_.rules().style().keepsAll) {
        context_.xml().write(text, true);
    }
}

[[gnu::hot]] void TzSoapMessageOutput::writeEntries(TzSoapConstVisitor& visitor,
                                                    const TzSoapValueList& entries) {
    const bool hasText = entries.hasText();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (hasText) {
            writeText(entries.textBefore(entry));
        }
        containers_.writeChild(visitor, *entry);
    }
    if (hasText) {
        writeText(entries.textBefore(entries.end()));
    }
    if (!context_.habits().targetsInline) {
        writeTargets(visitor);
    }
}

[[gnu::hot]] void TzSoapMessageOutput::writeTargets(TzSoapConstVisitor& visitor) {
    struct Writing {
        TzSoapReferenceBook& book;
        explicit Writing(TzSoapReferenceBook& kept) : book(kept) { book.setWritesTargets(true); }
        ~Writing() { book.setWritesTargets(false); }
    };
    TzSoapReferenceBook& book = context_.book();
    const Writing writing(book);
    for (std::size_t next = 0; next < book.targetCount(); ++next) {
        const TzSoapReferenceBook::Target target = book.target(next);
        if (book.isDue(target)) {
            containers_.writeChild(visitor, target.second);
        }
    }
    // Deliberate: not reached when a target cannot be written. The next header or body that this
    // writer writes then ends with the targets that are left.
    book.clearTargets();
}
