// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlContentHandler.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapOuterNamespaces.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Checks markup that a program hands over: one well-formed element whose prefixes are bound.
class TzSoapMarkupCheck final : private TzXmlContentHandler {
public:
    /// Reads `markup`, which may use the prefixes of `declarations`. `TzXmlParseError` with line
    /// and column when it is not as it should be.
    TzSoapMarkupCheck(std::string_view markup, const std::vector<TzXmlNamespace>& declarations);

    /// The name of the element.
    const TzXmlName& name() const noexcept { return name_; }
    /// The element alone, in UTF-8.
    TzCString takeElement() noexcept { return std::move(element_); }
    /// What has to be declared around it: all that was handed over, and that it stands in no
    /// namespace if it does.
    std::vector<TzXmlNamespace> declarations() const;

private:
    void prolog(const TzXmlProlog&) override;
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    void endElement(const TzXmlName& name) override;
    void characters(const TzCString&) override {}
    TzXmlName resolved(const TzXmlName& name) const;
    void checkBound(const TzXmlName& name) const;
    [[noreturn]] void refuse(const TzCString& reason) const;

    TzXmlSAXParser parser_;
    TzSoapOuterNamespaces::Used around_; // prefixes that may be used
    TzSoapOuterNamespaces used_;
    TzXmlName name_;
    TzCString element_;
    std::size_t begin_ = 0;
    std::size_t depth_ = 0;
};
