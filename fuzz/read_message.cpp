// SPDX-License-Identifier: MIT
// Any bytes, read as a message: they are refused with an error of the library, or the message can
// be written, and what was written can be read.
#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TzSoapMessage message;
    try {
        message.extract(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const Tzxmsg&) {
        return 0;
    }
    std::string written;
    try {
        written = message.asString();
    } catch (const Tzxmsg&) {
        return 0; // what it holds cannot stand in XML
    }
    TzSoapMessage().extract(written);
    return 0;
}
