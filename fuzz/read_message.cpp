// SPDX-License-Identifier: MIT
// Any bytes, read as a message: they are refused with an error of the library, or the message can
// be written, and what was written can be read.
#include "FuzzTarget.h"

#include <soap/TzSoapMessage.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TzSoapMessage message;
    if (!accepted([&] { message.extract(textOf(data, size)); })) {
        return 0;
    }
    std::string written;
    if (!accepted([&] { written = message.asString(); })) {
        return 0; // what it holds cannot stand in XML
    }
    // Markup of the application's is written as it stands, and as received it need not be well
    // formed.
    if (!message.hasUserDefinedValues()) {
        TzSoapMessage().extract(written);
    }
    return 0;
}
