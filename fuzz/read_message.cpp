// SPDX-License-Identifier: MIT
// Any bytes, read as a message in both styles: they are refused with an error of the library, or
// the message can be written, and what was written can be read. What a literal message is written
// as does not change any more.
#include "FuzzTarget.h"

namespace {

void read(const std::string& text, TzSoapStyle style) {
    TzSoapMessage message = readerOf(style);
    if (!accepted([&] { message.extract(text); })) {
        return;
    }
    std::string written;
    if (!accepted([&] { written = message.asString(); })) {
        return; // what it holds cannot stand in XML
    }
    // Markup of the application's is written as it stands, and as received it need not be well
    // formed.
    if (message.hasUserDefinedValues()) {
        return;
    }
    TzSoapMessage again = readerOf(style);
    again.extract(written);
    if (style == TzSoapStyle::Literal && !again.hasAttachments() && again.asString() != written) {
        report("a literal message is written differently the second time", written);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    for (const TzSoapStyle style : Styles) {
        read(text, style);
    }
    return 0;
}
