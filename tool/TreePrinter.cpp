// SPDX-License-Identifier: MIT
#include "TreePrinter.h"

#include "Escape.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/mime/TzMimePart.h>

#include <ostream>

/// Indents what is printed while it lives.
class TreePrinter::Nested {
public:
    explicit Nested(TreePrinter& printer) : printer_(printer) { ++printer_.depth_; }
    ~Nested() { --printer_.depth_; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

private:
    TreePrinter& printer_;
};

std::ostream& TreePrinter::line() {
    for (int i = 0; i < depth_; ++i) {
        out_ << "  ";
    }
    return out_;
}

void TreePrinter::printName(const TzXmlName& name) {
    out_ << ' ' << (name.isEmpty() ? TzCString("(unnamed)") : name.getQualifiedName());
    if (!name.getUri().empty()) {
        out_ << " {" << name.getUri() << '}';
    }
}

void TreePrinter::printQuoted(std::string_view text) { out_ << escape::quoted(text); }

void TreePrinter::printField(std::string_view label, std::string_view text) {
    line() << label << ' ';
    printQuoted(text);
    out_ << '\n';
}

void TreePrinter::printFlags(const TzSoapType& value) {
    const TzCString mustUnderstand = value.getMustUnderstandAttribute();
    if (!mustUnderstand.empty()) {
        out_ << " mustUnderstand=" << mustUnderstand;
    }
    if (const TzCString actor = value.getActorAttribute(); !actor.empty()) {
        out_ << " actor=" << actor;
    }
    if (value.isRootAttributeSet()) {
        out_ << " root=" << value.getRootAttribute();
    }
    if (value.isNull()) {
        out_ << " nil";
    }
}

void TreePrinter::printHead(std::string_view kind, const TzSoapType& value) {
    line() << kind;
    printName(value.getName());
    if (const TzXmlName& type = value.getType(); !type.isEmpty()) {
        out_ << " :";
        printName(type);
    }
    printFlags(value);
}

template <typename Element> void TreePrinter::printAttributes(const Element& element) {
    const Nested nested(*this);
    if (element.hasEncodingStyleAttribute()) {
        printField("encodingStyle", element.getEncodingStyleAttribute());
    }
    for (const auto* attribute = element.attributesBegin(); attribute != element.attributesEnd();
         ++attribute) {
        line() << '@';
        printName(attribute->getName());
        out_ << " = ";
        printQuoted(attribute->getValue());
        out_ << '\n';
    }
}

template <typename Element>
void TreePrinter::printElement(std::string_view kind, const Element& element) {
    line() << kind;
    printName(element.getName());
    out_ << '\n';
    printAttributes(element);
}

void TreePrinter::visit(const TzSoapMessage& message) {
    const bool isFirst = message.getVersion() == TzSoapVersion::V1_1;
    line() << "Message SOAP " << (isFirst ? "1.1" : "1.2") << '\n';
    const Nested nested(*this);
    printElement("Envelope", message);
    if (message.getSoapHeader().entryCount() != 0) {
        message.getSoapHeader().acceptVisitor(*this);
    }
    message.getSoapBody().acceptVisitor(*this);
}

void TreePrinter::visit(const TzSoapHeader& header) {
    printElement("Header", header);
    const Nested nested(*this);
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        entry->acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapBody& body) {
    printElement("Body", body);
    const Nested nested(*this);
    if (body.hasSoapFault()) {
        body.getSoapFault().acceptVisitor(*this);
    }
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        entry->acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapFault& fault) {
    line() << "Fault";
    printName(fault.getName());
    out_ << '\n';
    const Nested nested(*this);
    line() << "code";
    printName(fault.getCode());
    out_ << '\n';
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        line() << "subcode";
        printName(fault.getSubcode(i));
        out_ << '\n';
    }
    printField("reason", fault.getReason());
    if (!fault.getNode().empty()) {
        printField("node", fault.getNode());
    }
    if (!fault.getRole().empty()) {
        printField("role", fault.getRole());
    }
    if (fault.getDetails().childCount() != 0) {
        fault.getDetails().acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapSimpleType& value) {
    printHead("Simple", value);
    out_ << " = ";
    printQuoted(value.getString());
    out_ << '\n';
    printAttributes(value);
}

void TreePrinter::visit(const TzSoapCompositeType& value) {
    printHead("Composite", value);
    out_ << '\n';
    printAttributes(value);
    const Nested nested(*this);
    for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
        child->acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapUserDefinedType& value) {
    printHead("UserDefined", value);
    out_ << " = ";
    printQuoted(value.getValue());
    out_ << '\n';
    printAttributes(value);
}

void TreePrinter::visit(const TzSoapReferenceType& value) {
    printHead("Reference", value);
    if (!value.hasReference()) {
        out_ << " -> nothing\n";
    } else if (value.isMimeReference()) {
        out_ << " -> part of " << value.getMimeReference().getBody().size() << " bytes\n";
    } else {
        const TzSoapType& target = value.getSoapReference();
        out_ << " -> " << target.getSoapTypeIdAsString();
        printName(target.getName());
        out_ << '\n';
    }
    printAttributes(value);
}

void TreePrinter::printShape(const TzSoapArrayType& array) {
    out_ << ' ' << array.getArrayType();
    const TzCString offset = array.getOffsetAttribute(TzSoapVersion::V1_1);
    if (!offset.empty()) {
        out_ << " offset " << offset;
    }
    out_ << '\n';
    printAttributes(array);
}

void TreePrinter::visit(const TzSoapSparseArrayType& value) {
    printHead("SparseArray", value);
    printShape(value);
    const Nested nested(*this);
    for (auto item = value.begin(); item != value.end(); ++item) {
        line() << "at " << TzSoapArrayType::vectorToString(item->first, true, TzSoapVersion::V1_1)
               << '\n';
        const Nested inner(*this);
        item->second.acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapCompactArrayType& value) {
    printHead("CompactArray", value);
    printShape(value);
    const Nested nested(*this);
    for (const auto* item = value.begin(); item != value.end(); ++item) {
        item->acceptVisitor(*this);
    }
}

void TreePrinter::visit(const TzSoapArrayType& value) {
    printHead("Array", value);
    printShape(value);
}

void TreePrinter::visit(const TzSoapMisunderstoodType& value) {
    printHead("Misunderstood", value);
    out_ << " ->";
    printName(value.getQualifiedName());
    out_ << '\n';
    printAttributes(value);
}

void TreePrinter::visit(const TzSoapType& value) {
    // A position of an array that holds no item has neither name nor attributes to ask for.
    if (dynamic_cast<const TzSoapDefaultType*>(&value) != nullptr) {
        line() << "(no item)\n";
        return;
    }
    printHead("Generic", value);
    out_ << '\n';
    printAttributes(value);
}
