// SPDX-License-Identifier: MIT
#include "TreePrinter.h"

#include "Escape.h"
#include "PartFacts.h"

#include <soap/TzSoapArrayType.h>

#include <ostream>

namespace {

std::string indexText(const std::vector<unsigned int>& index) {
    return TzSoapArrayType::vectorToString(index, true, TzSoapVersion::V1_1);
}

} // namespace

std::ostream& TreePrinter::line() {
    for (int i = 0; i < depth_; ++i) {
        out_ << "  ";
    }
    return out_;
}

void TreePrinter::printName(const TzXmlName& name) {
    const TzCString qualified = name.getQualifiedName();
    out_ << ' ' << (qualified.empty() ? "(unnamed)" : qualified);
    if (!name.getUri().empty()) {
        out_ << " {" << escape::forTerminal(name.getUri()) << '}';
    }
}

void TreePrinter::printField(std::string_view label, std::string_view text) {
    line() << label << ' ' << escape::quoted(text) << '\n';
}

void TreePrinter::printNameField(std::string_view label, const TzXmlName& name) {
    line() << label;
    printName(name);
    out_ << '\n';
}

void TreePrinter::printFlags(const Element& element) {
    if (!element.mustUnderstand.empty()) {
        out_ << " mustUnderstand=" << element.mustUnderstand;
    }
    if (!element.actor.empty()) {
        out_ << " actor=" << escape::forTerminal(element.actor);
    }
    if (element.relay) {
        out_ << " relay=" << (*element.relay ? "true" : "false");
    }
    if (!element.root.empty()) {
        out_ << " root=" << element.root;
    }
    if (element.nil) {
        out_ << " nil";
    }
}

void TreePrinter::printArray(const ArrayFacts& array) {
    out_ << ' ' << escape::forTerminal(array.arrayType);
    if (!array.offset.empty()) {
        out_ << " offset " << indexText(array.offset);
    }
    out_ << ", " << array.items << (array.sparse ? " items, sparse" : " items");
}

void TreePrinter::printReference(const ReferenceFacts& reference) {
    out_ << ' ' << escape::quoted(reference.text) << " -> ";
    if (reference.part) {
        out_ << "attachment " << *reference.part << " of " << reference.size << " bytes";
    } else if (reference.kind.empty()) {
        out_ << "nothing";
    } else {
        out_ << reference.kind;
        printName(reference.name);
    }
}

void TreePrinter::printReason(const TzSoapReason& reason) {
    line() << "reason " << escape::quoted(reason.text);
    if (!reason.language.empty()) {
        out_ << " in " << escape::forTerminal(reason.language);
    }
    out_ << '\n';
}

void TreePrinter::printFault(const FaultFacts& fault) {
    printNameField("code", fault.code);
    for (const TzXmlName& subcode : fault.subcodes) {
        printNameField("subcode", subcode);
    }
    for (const TzSoapReason& reason : fault.reasons) {
        printReason(reason);
    }
    if (!fault.node.empty()) {
        printField("node", fault.node);
    }
    if (!fault.role.empty()) {
        printField("role", fault.role);
    }
    if (!fault.detailText.empty()) {
        printField("detailText", fault.detailText);
    }
}

void TreePrinter::printAttributes(const Element& element) {
    if (element.encodingStyle) {
        printField("encodingStyle", *element.encodingStyle);
    }
    for (const TzXmlAttribute& attribute : element.attributes) {
        line() << '@';
        printName(attribute.getName());
        out_ << " = " << escape::quoted(attribute.getValue()) << '\n';
    }
}

void TreePrinter::beginMessage(VersionText version) {
    line() << "Message SOAP " << version << '\n';
    ++depth_;
}

void TreePrinter::endMessage() { --depth_; }

void TreePrinter::begin(const Element& element) {
    line();
    if (!element.position.empty()) {
        out_ << indexText(element.position) << ' ';
    }
    out_ << element.kind;
    if (element.kind != "Text") {
        printName(element.name);
    }
    if (!element.type.isEmpty()) {
        out_ << " :";
        printName(element.type);
    }
    printFlags(element);
    if (element.array) {
        printArray(*element.array);
    }
    if (element.reference) {
        printReference(*element.reference);
    }
    if (element.misunderstood) {
        out_ << " ->";
        printName(*element.misunderstood);
    }
    if (element.text) {
        out_ << " = " << escape::quoted(*element.text);
    }
    out_ << '\n';
    ++depth_;
    printAttributes(element);
    if (element.fault) {
        printFault(*element.fault);
    }
}

void TreePrinter::end() { --depth_; }

void TreePrinter::attachment(std::size_t number, const PartFacts& facts) {
    line() << "Attachment " << number << ' ' << escape::quoted(facts.contentId);
    if (!facts.location.empty()) {
        out_ << " location " << escape::quoted(facts.location);
    }
    out_ << " type " << escape::quoted(facts.type) << ", " << facts.size << " bytes\n";
}
