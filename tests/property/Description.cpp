// SPDX-License-Identifier: MIT
#include "property/Description.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>

#include <set>

namespace {

std::string uniqueName(const TzXmlName& name) {
    return name.getPrefix() + "|" + name.getUri() + "|" + name.getLocalName();
}

class Describer : public TzSoapConstVisitor {
public:
    std::string takeText() { return std::move(text_); }

    void visit(const TzSoapMessage& message) override {
        line("message " + uniqueName(message.getName()));
        line("style " + message.getEncodingStyleAttribute());
        message.getSoapHeader().acceptVisitor(*this);
        message.getSoapBody().acceptVisitor(*this);
    }
    void visit(const TzSoapHeader& header) override {
        line("header " + uniqueName(header.getName()));
        for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
            if (entry->getIdAttribute().empty()) {
                visitNested(*entry);
            }
        }
    }
    void visit(const TzSoapBody& body) override {
        line("body " + uniqueName(body.getName()));
        if (body.hasSoapFault()) {
            body.getSoapFault().acceptVisitor(*this);
        }
        for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
            if (entry->getIdAttribute().empty()) {
                visitNested(*entry);
            }
        }
    }
    void visit(const TzSoapFault& fault) override {
        line("fault " + uniqueName(fault.getName()) + " code " + uniqueName(fault.getCode()));
        for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
            line("subcode " + uniqueName(fault.getSubcode(i)));
        }
        line("reason " + fault.getReason());
        line("node " + fault.getNode());
        line("role " + fault.getRole());
        for (auto entry = fault.getDetails().childrenBegin();
             entry != fault.getDetails().childrenEnd(); ++entry) {
            visitNested(*entry);
        }
    }
    void visit(const TzSoapSimpleType& value) override {
        // Writing leaves the items of sparse arrays without the type that they show.
        const bool shown = value.getTypeShouldBeEncoded();
        head(value, shown ? "xsd:" + std::string(TzSoapType::schemaTypeName(value.getType()))
                          : value.getTypeAttribute());
        line("text " + value.getString());
    }
    void visit(const TzSoapCompositeType& value) override {
        head(value);
        for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
            visitNested(*child);
        }
    }
    void visit(const TzSoapSparseArrayType& value) override {
        head(value);
        line("sparse " + value.getArrayType());
        for (auto item = value.begin(); item != value.end(); ++item) {
            line("at " + TzSoapArrayType::vectorToString(item->first, true, TzSoapVersion::V1_1));
            visitNested(item->second);
        }
    }
    void visit(const TzSoapCompactArrayType& value) override {
        head(value);
        line("compact " + value.getArrayType());
        for (const auto* item = value.begin(); item != value.end(); ++item) {
            visitNested(*item);
        }
    }
    void visit(const TzSoapReferenceType& value) override {
        head(value);
        const bool pointing = value.hasReference();
        line(pointing ? "points at " + value.getSoapReference().getIdAttribute() : "dangles");
        if (pointing && seen_.insert(value.getSoapReference().getIdAttribute()).second) {
            visitNested(value.getSoapReference());
        }
    }
    void visit(const TzSoapUserDefinedType& value) override {
        head(value);
        line("markup " + value.getValue());
    }
    void visit(const TzSoapMisunderstoodType& value) override {
        head(value);
        line("misunderstood " + uniqueName(value.getQualifiedName()));
    }
    void visit(const TzSoapArrayType& value) override { head(value); }
    void visit(const TzSoapType& value) override { head(value); }

private:
    void line(const std::string& text) {
        text_.append(depth_, ' ');
        text_ += text;
        text_ += '\n';
    }

    void visitNested(const TzSoapType& value) {
        ++depth_;
        value.acceptVisitor(*this);
        --depth_;
    }

    void head(const TzSoapType& value) { head(value, value.getTypeAttribute()); }
    void head(const TzSoapType& value, const std::string& type) {
        line(value.getSoapTypeIdAsString() + " " + uniqueName(value.getName()));
        line("type " + type);
        line("id " + value.getIdAttribute());
        line("mustUnderstand " + value.getMustUnderstandAttribute());
        line("actor " + value.getActorAttribute());
        line("root " + value.getRootAttribute());
        std::set<std::string> attributes; // their order is not kept on the way
        for (const auto* attribute = value.attributesBegin(); attribute != value.attributesEnd();
             ++attribute) {
            if (!attribute->isNamespaceDeclaration()) {
                attributes.insert(uniqueName(attribute->getName()) + "=" + attribute->getValue());
            }
        }
        for (const std::string& attribute : attributes) {
            line("@" + attribute);
        }
    }

    std::string text_;
    std::size_t depth_ = 0;
    std::set<std::string> seen_;
};

} // namespace

std::string describe(const TzSoapMessage& message) {
    Describer describer;
    message.acceptVisitor(describer);
    return describer.takeText();
}
