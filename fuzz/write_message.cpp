// SPDX-License-Identifier: MIT
// Any bytes, line by line: the texts of a message that a program builds - names, prefixes,
// namespaces, an attribute, text. Writing refuses them, or a reader finds one entry with exactly
// that text: nothing that was given as text becomes markup.
#include "FuzzTarget.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace {

bool isAscii(const TzXmlName& name) {
    const std::string text = name.asString();
    return std::none_of(text.begin(), text.end(),
                        [](char character) { return static_cast<unsigned char>(character) > 127; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text = textOf(data, size);
    const TzXmlName name(takeLine(text), TzXmlNamespace(takeLine(text), takeLine(text)));
    const TzXmlName attribute(takeLine(text), TzXmlNamespace(takeLine(text), takeLine(text)));
    const std::string attributeText = takeLine(text);
    if (name.getLocalName().empty()) {
        return 0; // A value without a name is written as one, which no reader accepts.
    }
    std::string written;
    const bool done = accepted([&] {
        TzSoapSimpleType value(name, text, TzSoapContentBase::xsdString, false);
        value.addAttribute(TzXmlAttribute(attribute, attributeText));
        TzSoapMessage message(TzSoapVersion::V1_1);
        message.getSoapBody().appendEntry(value);
        written = message.asString();
    });
    if (!done) {
        return 0;
    }
    TzSoapMessage again;
    TzSoapReadLimits limits; // what a program writes may be longer
    limits.prefixLength = written.size();
    limits.uriLength = written.size();
    again.setReadLimits(limits);
    if (!accepted([&] { again.extract(written); })) {
        // The reader knows the names of the fourth edition of XML 1.0, writing those of the fifth.
        if (isAscii(name) && isAscii(attribute)) {
            report("what was written is refused", written);
        }
        return 0;
    }
    const TzSoapBody body = again.getSoapBody();
    if (std::distance(body.entriesBegin(), body.entriesEnd()) > 1) {
        report("text has become markup", written);
    }
    return 0;
}
