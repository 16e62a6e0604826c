// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "output/TzSoapOutput.h"

#include <string_view>

/// How the writer scopes: a prefix once bound stays, prefixes that clash are numbered from 1, and
/// the encoding style stands right behind the declarations.
class TzSoapWriterOutput : public TzSoapOutput {
public:
    using TzSoapOutput::TzSoapOutput;
    TzSoapWriterOutput(const TzSoapWriterOutput&) = default;
    TzSoapWriterOutput& operator=(const TzSoapWriterOutput&) = default;
    ~TzSoapWriterOutput() override;

private:
    void enterDeclarations(const TzXmlAttributeSet& attributes) override;
    void collectDeclaration(const TzXmlAttribute& declaration) override;
    TzCString uniquePrefix(std::string_view prefix, std::string_view uri) const override;
    void collectStyle(std::string_view style) override;
    void doQualifyStyle() override;
    void writeStyle() override;
};
