// SPDX-License-Identifier: MIT
#include "model/TzSoapFaultSpellingReader.h"

#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlSAXParser.h>

TzSoapFaultSpellingReader::TzSoapFaultSpellingReader(const TzXmlSAXParser& parser,
                                                     const TzXmlName& name,
                                                     const TzXmlAttributeSet& attributes)
    : parser_(parser), attributes_(attributes), begin_(parser.getEventBegin()) {
    outer_.open(name, attributes);
}

void TzSoapFaultSpellingReader::open(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    outer_.open(name, attributes);
}

void TzSoapFaultSpellingReader::startDetail() noexcept {
    ++details_;
    detailBegin_ = parser_.getEventBegin();
}

void TzSoapFaultSpellingReader::endDetail() noexcept { detailEnd_ = parser_.getEventEnd(); }

std::unique_ptr<TzSoapFaultSpelling> TzSoapFaultSpellingReader::finish() const {
    if (details_ > 1) {
        return nullptr;
    }
    auto spelling = std::make_unique<TzSoapFaultSpelling>();
    const std::size_t end = parser_.getEventEnd();
    spelling->before = parser_.getSource(begin_, details_ > 0 ? detailBegin_ : end);
    if (details_ > 0) {
        spelling->after = parser_.getSource(detailEnd_, end);
    }
    spelling->attributes = attributes_;
    spelling->declarations = outer_.declarations();
    return spelling;
}
