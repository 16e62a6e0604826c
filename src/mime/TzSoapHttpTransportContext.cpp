// SPDX-License-Identifier: MIT
#include <soap/TzSoapHttpTransportContext.h>

#include <tz/tools/TzCTokenizer.h>
#include <tz/xml/TzXmlUtils.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapLasting.h"

namespace {

bool continuesLine(const TzCString& line) {
    return line.starts_with(TzXmlUtils::BlankUtf8) || line.starts_with(TzXmlUtils::TabUtf8);
}

} // namespace

TZSOAP_EARLY const TzCString TzSoapHttpTransportContext::SoapActionLabel = "SOAPAction";

TzSoapHttpTransportContext::TzSoapHttpTransportContext() = default;

TzSoapHttpTransportContext::TzSoapHttpTransportContext(const TzSoapHttpTransportContext&) = default;

TzSoapHttpTransportContext::TzSoapHttpTransportContext(TzSoapHttpTransportContext&&) noexcept =
    default;

TzSoapHttpTransportContext&
TzSoapHttpTransportContext::operator=(const TzSoapHttpTransportContext&) = default;

TzSoapHttpTransportContext&
TzSoapHttpTransportContext::operator=(TzSoapHttpTransportContext&&) noexcept = default;

TzSoapHttpTransportContext::~TzSoapHttpTransportContext() = default;

void TzSoapHttpTransportContext::setSoapAction(const TzCString& action) {
    add(SoapActionLabel, action);
}

TzCString TzSoapHttpTransportContext::getSoapAction() const {
    const const_iterator found = find(SoapActionLabel);
    return found == end() ? TzCString() : found->second;
}

TzCString TzSoapHttpTransportContext::getSoapActionLabel() { return SoapActionLabel; }

void TzSoapHttpTransportContext::extract(const TzCString& text) {
    TzCTokenizer lines(text);
    TzCString line = lines.next(TzXmlWriter::Newline);
    // Deliberate: any line that mentions the label matches, even inside of another name.
    while (!line.empty() && (line.find(SoapActionLabel) == TzCString::npos ||
                             line.find(TzXmlWriter::Colon) == TzCString::npos)) {
        line = lines.next(TzXmlWriter::Newline);
    }
    if (line.empty()) {
        return;
    }
    TzCString value = line.substr(line.find(TzXmlWriter::Colon) + TzXmlWriter::Colon.size());
    line = lines.next(TzXmlWriter::Newline);
    while (continuesLine(line)) {
        value += TzXmlWriter::Newline;
        value += line;
        line = lines.next(TzXmlWriter::Newline);
    }
    setSoapAction(value);
}

TzCString TzSoapHttpTransportContext::asString() const {
    TzCString text;
    for (const auto& [name, value] : *this) {
        text += name;
        text += TzXmlWriter::Colon;
        text += value;
        text += TzXmlWriter::Newline;
    }
    return text;
}
