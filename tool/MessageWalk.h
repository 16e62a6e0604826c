// SPDX-License-Identifier: MIT
#pragma once

#include "Element.h"

#include <soap/TzSoapConstVisitor.h>

#include <vector>

/// Walks over a message that was read and reports to a sink what is in it. Every value is reported
/// where it stands; references name their target and are not followed, so rings end.
class MessageWalk : public TzSoapConstVisitor {
public:
    /// A walk that reports to `sink`.
    explicit MessageWalk(ElementSink& sink) : sink_(sink) {}

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
    Element describe(const TzSoapType& value);
    Element describeArray(const TzSoapArrayType& array, std::size_t items);
    void report(const Element& element);
    void reportText(const TzCString& text);
    void visitItem(const TzSoapType& item, std::vector<unsigned int> position);
    template <typename Container>
    void visitEntries(std::string_view kind, std::string_view role, const Container& container);

    ElementSink& sink_;
    const TzSoapMessage* message_ = nullptr;
    std::vector<unsigned int> position_; // of the item that comes next
    std::string_view role_;              // of the element that comes next
    bool isHeaderEntry_ = false;         // the element that comes next
};
