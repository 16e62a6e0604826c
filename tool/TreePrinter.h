// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitor.h>

#include <iosfwd>
#include <string_view>

class TzSoapElementImp;
class TzXmlAttribute;
class TzXmlName;

/// Prints what a message holds as an indented tree, one line for each element.
class TreePrinter : public TzSoapConstVisitor {
public:
    /// A printer onto `out`.
    explicit TreePrinter(std::ostream& out) : out_(out) {}

    void visit(const TzSoapMisunderstoodType& value) override;
    void visit(const TzSoapReferenceType& value) override;
    void visit(const TzSoapUserDefinedType& value) override;
    void visit(const TzSoapSimpleType& value) override;
    void visit(const TzSoapFault& fault) override;
    void visit(const TzSoapCompositeType& value) override;
    void visit(const TzSoapSparseArrayType& value) override;
    void visit(const TzSoapCompactArrayType& value) override;
    void visit(const TzSoapArrayType& value) override;
    void visit(const TzSoapType& value) override;
    void visit(const TzSoapBody& body) override;
    void visit(const TzSoapHeader& header) override;
    void visit(const TzSoapMessage& message) override;

private:
    class Nested;

    std::ostream& line();
    void printName(const TzXmlName& name);
    void printQuoted(std::string_view text);
    void printField(std::string_view label, std::string_view text);
    void printHead(std::string_view kind, const TzSoapType& value);
    void printFlags(const TzSoapType& value);
    void printShape(const TzSoapArrayType& array);
    template <typename Element> void printAttributes(const Element& element);
    template <typename Element> void printElement(std::string_view kind, const Element& element);

    std::ostream& out_;
    int depth_ = 0;
};
