// SPDX-License-Identifier: MIT
#include "output/TzSoapFaultOutput.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapReason.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapFaultSpelling.h"
#include "output/TzSoapScopeRules.h"

#include <algorithm>
#include <utility>

void TzSoapFaultOutput::write(TzSoapConstVisitor& visitor, const TzSoapFaultImp& fault) {
    const bool onItsOwn = !context_.isInEnvelope() && !context_.isStandalone();
    const TzSoapOutputContext::Flag standalone = context_.enterStandalone(onItsOwn);
    if (onItsOwn) {
        context_.setVersion(fault.getVersion());
    }
    TzSoapWrittenTogether together(context_);
    together.add(TzSoapAccess::body(fault.getDetails()));
    const TzSoapOpenElement element(context_);
    if (writeAsRead(visitor, fault)) {
        return;
    }
    startTag_.begin(TzXmlAttributeSet());
    const TzCString prefix = prefixFor(fault);
    const TzSoapTagName name = nameWith(prefix);
    declareFor(name, fault);
    startTag_.writeBlock(name);
    writeChildren(visitor, name, fault);
    name.endBlock(context_.xml());
}

bool TzSoapFaultOutput::writeAsRead(TzSoapConstVisitor& visitor, const TzSoapFaultImp& fault) {
    const TzSoapFaultSpelling* const read =
        context_.rules().style().keepsAll && fault.getVersion() == context_.version()
            ? fault.spelling()
            : nullptr;
    const auto isDeclared = [&](const TzXmlNamespace& needed) {
        return context_.scope().uriFor(needed.getPrefix()) == needed.getUri();
    };
    if (read == nullptr ||
        !std::all_of(read->declarations.begin(), read->declarations.end(), isDeclared)) {
        return false;
    }
    startTag_.begin(read->attributes); // what it declares is in force in the detail
    context_.xml().write(read->before);
    if (read->detail != nullptr) {
        TzSoapCompositeTypeImp& detail = TzSoapAccess::body(fault.getDetails());
        containers_.write(visitor, std::as_const(detail).getName(), detail);
    }
    context_.xml().write(read->after);
    return true;
}

void TzSoapFaultOutput::writeSubcodes(const TzSoapFaultImp& fault, unsigned int first,
                                      unsigned int end) {
    const TzCString prefix = prefixFor(fault);
    writeSubcodes(nameWith(prefix), fault, first, end);
}

TzCString TzSoapFaultOutput::prefixFor(const TzSoapFaultImp& fault) const {
    const TzSoapScope& scope = context_.scope();
    const TzCString& own = fault.getName().getPrefix();
    const bool isBound = !scope.hasExactNames() || !scope.uriFor(own).empty();
    if (context_.isInEnvelope() && !own.empty() && isBound && canMeanEnvelope(own)) {
        return own;
    }
    const TzCString& usual = scope.envelopePrefix();
    return canMeanEnvelope(usual)
               ? usual
               : context_.rules().uniquePrefix(scope, usual, context_.soap().getSoapEnv().getUri());
}

bool TzSoapFaultOutput::canMeanEnvelope(const TzCString& prefix) const {
    const std::string_view bound = context_.scope().uriFor(prefix);
    TzSoapVersion::Version version{};
    return bound.empty() || (TzSoapVersion::isKnownVersion({prefix, bound}, version) &&
                             version == context_.version());
}

TzSoapTagName TzSoapFaultOutput::nameWith(std::string_view prefix) const {
    return TzSoapTagName::withColon(
        prefix, context_.soap().getSoapElementQName(TzSoapVersion::Fault).getLocalName());
}

TzSoapTagName TzSoapFaultOutput::childName(const TzSoapTagName& fault,
                                           TzSoapVersion::SoapElement element) const {
    const TzXmlName& name = context_.soap().getSoapElementQName(element);
    return name.getUri().empty() ? TzSoapTagName::of(name)
                                 : TzSoapTagName::withColon(fault.prefix, name.getLocalName());
}

void TzSoapFaultOutput::declareFor(const TzSoapTagName& name, const TzSoapFaultImp& fault) {
    TzSoapScope& scope = context_.scope();
    scope.declareUnbound(name.prefix, context_.soap().getSoapEnv().getUri());
    // Children without namespace must not get the default one.
    const TzXmlName& child = context_.soap().getSoapElementQName(TzSoapVersion::FaultString);
    if (child.getUri().empty() && scope.needsDeclaration(child)) {
        scope.declare(child.getNamespace());
    }
    const TzXmlName& code = fault.getCode();
    if (!code.getPrefix().empty() && scope.uriFor(code.getPrefix()).empty()) {
        scope.declare(code.getNamespace());
    }
}

void TzSoapFaultOutput::writeChildren(TzSoapConstVisitor& visitor, const TzSoapTagName& name,
                                      const TzSoapFaultImp& fault) {
    const TzSoapVersion& soap = context_.soap();
    // Each version writes only the children that it has names for.
    if (soap.getSoapElementQName(TzSoapVersion::FaultValue).isEmpty()) {
        writeDottedCode(childName(name, TzSoapVersion::FaultCode), fault);
    } else {
        writeNestedCode(name, fault);
    }
    writeReason(childName(name, TzSoapVersion::FaultString), fault);
    if (!fault.getNode().empty()) {
        writeLine(childName(name, TzSoapVersion::FaultActor), fault.getNode());
    }
    if (!fault.getRole().empty() && !soap.getSoapElementQName(TzSoapVersion::FaultRole).isEmpty()) {
        writeLine(childName(name, TzSoapVersion::FaultRole), fault.getRole());
    }
    writeDetail(visitor, name, fault);
}

void TzSoapFaultOutput::writeReason(const TzSoapTagName& name, const TzSoapFaultImp& fault) {
    const TzXmlName& textName = context_.table().term(TzSoapVersionTable::ReasonText);
    if (textName.isEmpty()) {
        return writeLine(name, fault.getReason());
    }
    TzXmlWriter& xml = context_.xml();
    name.writeStartTag(xml);
    xml.writeNewLine();
    xml.incrementIndent();
    const TzSoapTagName text = TzSoapTagName::withColon(name.prefix, textName.getLocalName());
    // A reason without any text is not allowed.
    const std::vector<TzSoapReason> none(1);
    for (const TzSoapReason& reason : fault.getReasons().empty() ? none : fault.getReasons()) {
        xml.writeMarkup(TzXmlWriter::StartTag, text);
        startTag_.writeAttribute(TzXmlNamespace::getXml().getPrefix(), "lang",
                                 reason.language.empty() ? TzSoapReason::DefaultLanguage
                                                         : std::string_view(reason.language));
        xml.writeMarkup(TzXmlWriter::EndTag);
        xml.write(reason.text, true);
        text.writeEndTag(xml);
    }
    name.endBlock(xml);
}

void TzSoapFaultOutput::writeDottedCode(const TzSoapTagName& name, const TzSoapFaultImp& fault) {
    TzCString code = fault.getCode().asString();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        code.append(1, '.').append(fault.getSubcode(i).getUniqueName());
    }
    writeLine(name, code);
}

void TzSoapFaultOutput::writeNestedCode(const TzSoapTagName& name, const TzSoapFaultImp& fault) {
    const TzSoapTagName code = childName(name, TzSoapVersion::FaultCode);
    code.writeStartTag(context_.xml());
    context_.xml().writeNewLine();
    context_.xml().incrementIndent();
    writeLine(childName(name, TzSoapVersion::FaultValue), fault.getCode().asString());
    writeSubcodes(name, fault, 0, fault.getSubcodeCount());
    code.endBlock(context_.xml());
}

void TzSoapFaultOutput::writeSubcodes(const TzSoapTagName& name, const TzSoapFaultImp& fault,
                                      unsigned int first, unsigned int end) {
    const TzSoapTagName subcode = childName(name, TzSoapVersion::FaultSubcode);
    const TzSoapTagName value = childName(name, TzSoapVersion::FaultValue);
    TzXmlWriter& xml = context_.xml();
    context_.scope().checkDepth(end);
    for (unsigned int i = first; i < end; ++i) {
        const TzXmlName& code = fault.getSubcode(i);
        xml.writeMarkup(TzXmlWriter::StartTag, subcode);
        // Deliberate: declared on this tag only; a nested Subcode declares it again.
        if (!code.getPrefix().empty() && !code.getUri().empty() &&
            context_.scope().uriFor(code.getPrefix()).empty()) {
            startTag_.writeDeclaration(code.getPrefix(), code.getUri());
        }
        xml.writeMarkupLine(TzXmlWriter::EndTag);
        xml.incrementIndent();
        writeLine(value, code.asString());
    }
    for (unsigned int i = first; i < end; ++i) {
        subcode.endBlock(xml);
    }
}

void TzSoapFaultOutput::writeDetail(TzSoapConstVisitor& visitor, const TzSoapTagName& name,
                                    const TzSoapFaultImp& fault) {
    TzSoapCompositeTypeImp& detail = TzSoapAccess::body(fault.getDetails());
    if (!fault.hasDetail()) {
        return;
    }
    // Other handles may share the composite: write it under the version's name without renaming it.
    const TzSoapTagName child = childName(name, TzSoapVersion::FaultDetail);
    const TzXmlNamespace nameSpace =
        child.prefix.empty() ? TzXmlNamespace()
                             : TzXmlNamespace(child.prefix, context_.soap().getSoapEnv().getUri());
    // Text that was read literally stands among the entries.
    const bool hasText = context_.rules().style().keepsAll && detail.children().hasText();
    containers_.writeDetail(visitor, TzXmlName(child.local, nameSpace), detail,
                            hasText ? std::string_view() : fault.getDetailText());
}

void TzSoapFaultOutput::writeLine(const TzSoapTagName& name, std::string_view content) {
    name.writeStartTag(context_.xml());
    context_.xml().write(content, true);
    name.writeEndTag(context_.xml());
}
