// SPDX-License-Identifier: MIT
#pragma once

#include "Element.h"
#include "JsonWriter.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// Prints what a message holds as a JSON document; docs/tool.md describes its shape.
class JsonPrinter : public ElementSink {
public:
    /// A printer onto `out` of a message that was read from `file`.
    JsonPrinter(std::ostream& out, std::string file) : json_(out), file_(std::move(file)) {}

    void beginMessage(VersionText version) override;
    void endMessage() override;
    void begin(const Element& element) override;
    void end() override;
    void attachment(std::size_t number, const PartFacts& facts) override;

private:
    /// An element that has not ended.
    struct Open {
        std::string children; // what the elements in it are called
        bool listed = false;  // whether their array has begun
    };

    void writeText(std::string_view key, std::string_view text);
    void writeName(std::string_view key, const TzXmlName& name);
    void writeNameMembers(const TzXmlName& name);
    void writeFlags(const Element& element);
    void writeArray(const ArrayFacts& array);
    void writeReference(const ReferenceFacts& reference);
    void writeReasons(const std::vector<TzSoapReason>& reasons);
    void writeFault(const FaultFacts& fault);
    void writeNamespaces(const Element& element);
    void writeAttributes(const Element& element);
    void beginList(Open& parent);

    JsonWriter json_;
    std::string file_;
    std::vector<Open> open_;
    bool attachments_ = false; // whether their array has begun
};
