// SPDX-License-Identifier: MIT
#include "output/TzSoapOutput.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapValueList.h>
#include <tz/xml/TzXmlProlog.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapOutputFlag.h"

#include <utility>

TzSoapOutput::~TzSoapOutput() = default;

void TzSoapOutput::fixVersion(TzSoapVersion::Version version) {
    setVersion(version);
    versionFixed_ = true;
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapMessage& message) {
    TzSoapMessageImp& envelope = TzSoapAccess::body(message);
    if (!versionFixed_) {
        setVersion(envelope.getVersion());
    }
    takePrefixes(envelope.getSoapPrefix(), envelope.getSoapEncodingPrefix());
    const TzSoapOutputFlag inEnvelope(*this, &TzSoapTagOutput::setInEnvelope);
    const Element element(*this, envelope.getAttributeSet());
    const TzXmlName& name = std::as_const(envelope).getName();
    qualifyName(name);
    collectAttributes(static_cast<const TzSoapElementImp&>(envelope));
    qualifyStyle();
    declareUnbound(envelopePrefix(), soap().getSoapEnv().getUri());
    if (envelope.hasProlog()) {
        text().write(envelope.getProlog().asString());
        text().writeNewLine();
    }
    const TagName tag = tagName(envelopePrefix(), name.getLocalName());
    startBlock(tag);
    if (TzSoapAccess::body(envelope.getSoapHeader()).entryCount() != 0) {
        std::as_const(envelope).getSoapHeader().acceptVisitor(visitor);
    }
    std::as_const(envelope).getSoapBody().acceptVisitor(visitor);
    endBlock(tag);
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapHeader& header) {
    const TzSoapHeaderImp& part = TzSoapAccess::body(header);
    const TzSoapOutputFlag standalone(*this, &TzSoapTagOutput::setStandalone, !isInEnvelope());
    const Element element(*this, part.getAttributeSet());
    collectPart(part.getName(), part);
    const TagName tag = partName(part.getName());
    startBlock(tag);
    writeEntries(visitor, part.entries());
    endBlock(tag);
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapBody& body) {
    const TzSoapBodyImp& part = TzSoapAccess::body(body);
    const TzSoapOutputFlag standalone(*this, &TzSoapTagOutput::setStandalone, !isInEnvelope());
    const Element element(*this, part.getAttributeSet());
    collectPart(part.getName(), part);
    collectBodyProperties(part);
    const TagName tag = partName(part.getName());
    startBlock(tag);
    if (part.hasSoapFault()) {
        part.getSoapFault().acceptVisitor(visitor);
    }
    writeEntries(visitor, part.entries());
    endBlock(tag);
}

void TzSoapOutput::collectPart(const TzXmlName& name, const TzSoapElementImp& part) {
    if (!isInEnvelope()) {
        TzSoapVersion::Version version{};
        if (TzSoapVersion::isSupportedVersion(name.getNamespace(), version)) {
            setVersion(version);
        }
        qualifyName(name);
    }
    collectAttributes(part);
    qualifyStyle();
}

TzSoapTagOutput::TagName TzSoapOutput::partName(const TzXmlName& name) const {
    return tagName(isInEnvelope() ? envelopePrefix() : name.getPrefix(), name.getLocalName());
}

void TzSoapOutput::startBlock(const TagName& name) {
    writeStartTag(name);
    text().write(TzXmlWriter::EndTag);
    text().writeNewLine();
    text().incrementIndent();
}

void TzSoapOutput::endBlock(const TagName& name) {
    text().decrementIndent();
    writeEndTag(name);
}

void TzSoapOutput::writeEntries(TzSoapConstVisitor& visitor, const TzSoapValueList& entries) {
    for (const TzSoapType& entry : entries) {
        writeChild(visitor, entry);
    }
    writePending(visitor);
}

void TzSoapOutput::writePending(TzSoapConstVisitor& visitor) {
    auto& pending = state().pendingReferences;
    // Ends with the targets even when one of them cannot be written.
    struct Ending {
        TzSoapOutputState& state;
        ~Ending() {
            state.writesTargets = false;
            state.pendingReferences.clear();
        }
    };
    const Ending ending{state()};
    // What is written may refer to more: the list grows and moves meanwhile.
    std::size_t next = 0;
    state().writesTargets = true;
    while (next < pending.size()) {
        const std::pair<TzCString, TzSoapType> reference = pending[next++];
        if (takePending(reference.first, reference.second)) {
            reference.second.acceptVisitor(visitor);
        }
    }
}

bool TzSoapOutput::takePending(const TzCString& id, const TzSoapType& value) {
    // A value whose id was taken from it since is written once as well, or a ring would never end.
    return id.empty() ? state().writtenWithoutId.insert(&TzSoapAccess::body(value)).second
                      : state().writtenIds.find(id) == state().writtenIds.end();
}
