// SPDX-License-Identifier: MIT
// Any bytes, read as a message in both styles: what the serializer makes of it can be read.
#include "FuzzTarget.h"

#include <soap/TzSoapSerializer.h>

namespace {

void serialize(const std::string& text, TzSoapStyle style) {
    TzSoapMessage message = readerOf(style);
    std::string written;
    const bool done = accepted([&] {
        message.extract(text);
        TzSoapSerializer serializer;
        message.acceptVisitor(serializer);
        written = serializer.getSerializedString();
    });
    if (done && !message.hasUserDefinedValues()) {
        readerOf(style).extract(written);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    for (const TzSoapStyle style : Styles) {
        serialize(text, style);
    }
    return 0;
}
