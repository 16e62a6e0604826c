// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapOutput.h"
#include "output/TzSoapOutputFlag.h"

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapFault& fault) {
    const TzSoapFaultImp& body = TzSoapAccess::body(fault);
    const bool onItsOwn = !isInEnvelope() && !isStandalone();
    const TzSoapOutputFlag standalone(*this, &TzSoapTagOutput::setStandalone, onItsOwn);
    if (onItsOwn) {
        setVersion(body.getVersion());
    }
    const Element element(*this, TzXmlAttributeSet());
    const TagName name = faultName(body);
    declareForFault(name, body);
    startBlock(name);
    writeFaultParts(visitor, name, body);
    endBlock(name);
}

TzSoapTagOutput::TagName TzSoapOutput::faultName(const TzSoapFaultImp& fault) const {
    const TzCString& own = fault.getName().getPrefix();
    return tagName(isInEnvelope() && !own.empty() ? own : envelopePrefix(),
                   soap().getSoapElementQName(TzSoapVersion::Fault).getLocalName());
}

TzSoapTagOutput::TagName TzSoapOutput::faultPart(const TagName& fault,
                                                 TzSoapVersion::SoapElement element) const {
    const TzXmlName& name = soap().getSoapElementQName(element);
    return name.getUri().empty() ? tagName(name) : tagName(fault.prefix, name.getLocalName());
}

void TzSoapOutput::declareForFault(const TagName& name, const TzSoapFaultImp& fault) {
    declareUnbound(name.prefix, soap().getSoapEnv().getUri());
    const TzXmlName& code = fault.getCode();
    if (!code.getPrefix().empty() && uriForPrefix(code.getPrefix()).empty()) {
        declare(code.getNamespace());
    }
}

void TzSoapOutput::writeFaultParts(TzSoapConstVisitor& visitor, const TagName& name,
                                   const TzSoapFaultImp& fault) {
    // Of these a version has what it has a name for.
    if (soap().getSoapElementQName(TzSoapVersion::FaultValue).isEmpty()) {
        writeDottedCode(faultPart(name, TzSoapVersion::FaultCode), fault);
    } else {
        writeNestedCode(name, fault);
    }
    writeLine(faultPart(name, TzSoapVersion::FaultString), fault.getReason());
    if (!fault.getNode().empty()) {
        writeLine(faultPart(name, TzSoapVersion::FaultActor), fault.getNode());
    }
    if (!fault.getRole().empty() &&
        !soap().getSoapElementQName(TzSoapVersion::FaultRole).isEmpty()) {
        writeLine(faultPart(name, TzSoapVersion::FaultRole), fault.getRole());
    }
    writeDetail(visitor, name, fault);
}

void TzSoapOutput::writeDottedCode(const TagName& name, const TzSoapFaultImp& fault) {
    TzCString code = fault.getCode().asString();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        code.append(1, '.').append(fault.getSubcode(i).getUniqueName());
    }
    writeLine(name, code);
}

void TzSoapOutput::writeNestedCode(const TagName& name, const TzSoapFaultImp& fault) {
    const TagName code = faultPart(name, TzSoapVersion::FaultCode);
    text().write(TzXmlWriter::StartTag);
    writeName(code);
    text().write(TzXmlWriter::EndTag);
    text().writeNewLine();
    text().incrementIndent();
    writeLine(faultPart(name, TzSoapVersion::FaultValue), fault.getCode().asString());
    writeSubcodes(name, fault, 0, fault.getSubcodeCount());
    endBlock(code);
}

void TzSoapOutput::writeSubcodes(const TagName& name, const TzSoapFaultImp& fault,
                                 unsigned int first, unsigned int count) {
    const TagName subcode = faultPart(name, TzSoapVersion::FaultSubcode);
    const TagName value = faultPart(name, TzSoapVersion::FaultValue);
    checkDepth(count);
    for (unsigned int i = first; i < count; ++i) {
        const TzXmlName& code = fault.getSubcode(i);
        text().write(TzXmlWriter::StartTag);
        writeName(subcode);
        // Said for this tag only: a subcode within says it again.
        if (!code.getPrefix().empty() && !code.getUri().empty() &&
            uriForPrefix(code.getPrefix()).empty()) {
            text().writeQualifiedAttribute(TzXmlNamespace::getXmlns().getPrefix(), code.getPrefix(),
                                           code.getUri());
        }
        text().write(TzXmlWriter::EndTag);
        text().writeNewLine();
        text().incrementIndent();
        writeLine(value, code.asString());
    }
    for (unsigned int i = first; i < count; ++i) {
        endBlock(subcode);
    }
}

void TzSoapOutput::writeDetail(TzSoapConstVisitor& visitor, const TagName& name,
                               const TzSoapFaultImp& fault) {
    TzSoapCompositeTypeImp& detail = TzSoapAccess::body(fault.getDetails());
    if (detail.childCount() == 0) {
        return;
    }
    // The composite may be somebody else's: it is written under the version's name, not renamed.
    const TagName part = faultPart(name, TzSoapVersion::FaultDetail);
    writeComposite(
        visitor,
        part.prefix.empty()
            ? TzXmlName(part.local, TzXmlNamespace())
            : TzXmlName(part.local, TzXmlNamespace(part.prefix, soap().getSoapEnv().getUri())),
        detail);
}

void TzSoapOutput::writeLine(const TagName& name, std::string_view content) {
    text().write(TzXmlWriter::StartTag);
    writeName(name);
    text().write(TzXmlWriter::EndTag);
    text().write(content, true);
    writeEndTag(name);
}
