// SPDX-License-Identifier: MIT
// Any bytes, read as a message: they are refused with an error of the library, or the message can
// be written, and what was written can be read.
#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    TzSoapMessage message;
    try {
        message.extract(text);
    } catch (const Tzxmsg&) {
        return 0;
    }
    std::string written;
    try {
        written = message.asString();
    } catch (const Tzxmsg&) {
        return 0; // what it holds cannot stand in XML
    }
    // Markup of the application's is written as it stands, and as received it need not be well
    // formed.
    if (!message.hasUserDefinedValues()) {
        TzSoapMessage().extract(written);
    }
    return 0;
}
