// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlAttributeSet.h>

#include "model/TzSoapFaultSpelling.h"
#include "model/TzSoapOuterNamespaces.h"

#include <cstddef>
#include <memory>

class TzXmlSAXParser;

/// Follows a Fault element while it is read and keeps how it is spelt.
class TzSoapFaultSpellingReader {
public:
    /// The Fault starts, at the event of `parser` under way.
    TzSoapFaultSpellingReader(const TzXmlSAXParser& parser, const TzXmlName& name,
                              const TzXmlAttributeSet& attributes);

    /// An element within starts that is not the detail.
    void open(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    /// It ends.
    void close() { outer_.close(); }
    /// `code` is spelt with its prefix in the text of the innermost element.
    void useCode(const TzXmlName& code) { outer_.use(code.getNamespace()); }
    /// The detail starts.
    void startDetail() noexcept;
    /// It ends.
    void endDetail() noexcept;
    /// The Fault ends: its markup and what that needs; null when it has several details.
    std::unique_ptr<TzSoapFaultSpelling> finish() const;

private:
    const TzXmlSAXParser& parser_;
    TzXmlAttributeSet attributes_;
    TzSoapOuterNamespaces outer_;
    std::size_t begin_;
    std::size_t detailBegin_ = 0;
    std::size_t detailEnd_ = 0;
    unsigned int details_ = 0;
};
