// SPDX-License-Identifier: MIT
#pragma once

#include "Element.h"

#include <iosfwd>
#include <string_view>

/// Prints what a message holds as an indented tree, one line for each element.
class TreePrinter : public ElementSink {
public:
    /// A printer onto `out`.
    explicit TreePrinter(std::ostream& out) : out_(out) {}

    void beginMessage(VersionText version) override;
    void endMessage() override;
    void begin(const Element& element) override;
    void end() override;
    void attachment(std::size_t number, const PartFacts& facts) override;

private:
    std::ostream& line();
    void printName(const TzXmlName& name);
    void printField(std::string_view label, std::string_view text);
    void printNameField(std::string_view label, const TzXmlName& name);
    void printFlags(const Element& element);
    void printArray(const ArrayFacts& array);
    void printReference(const ReferenceFacts& reference);
    void printReason(const TzSoapReason& reason);
    void printFault(const FaultFacts& fault);
    void printAttributes(const Element& element);

    std::ostream& out_;
    int depth_ = 0;
};
