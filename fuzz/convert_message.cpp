// SPDX-License-Identifier: MIT
// Any bytes, read as a message in both styles and converted to every version: what is written then
// can be read and has that version.
#include "FuzzTarget.h"

#include <soap/TzSoapVersionConverter.h>

namespace {

void convert(const std::string& text, TzSoapVersion::Version version, TzSoapStyle style) {
    TzSoapMessage message = readerOf(style);
    std::string written;
    const bool done = accepted([&] {
        message.extract(text);
        TzSoapVersionConverter(version).convert(message);
        written = message.asString();
    });
    if (!done || message.hasUserDefinedValues()) {
        return;
    }
    TzSoapMessage again = readerOf(style);
    again.extract(written);
    if (again.getVersion() != version) {
        report("another version than it was converted to", written);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2, TzSoapVersion::V1_2Rec}) {
        for (const TzSoapStyle style : Styles) {
            convert(text, version, style);
        }
    }
    return 0;
}
