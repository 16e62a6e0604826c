// SPDX-License-Identifier: MIT
// Any bytes, read as a message and converted to every version: what is written then can be read and
// has that version.
#include "FuzzTarget.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersionConverter.h>

namespace {

void convert(const std::string& text, TzSoapVersion::Version version) {
    TzSoapMessage message;
    std::string written;
    const bool done = accepted([&] {
        message.extract(text);
        TzSoapVersionConverter(version).convert(message);
        written = message.asString();
    });
    if (!done || message.hasUserDefinedValues()) {
        return;
    }
    TzSoapMessage again;
    again.extract(written);
    if (again.getVersion() != version) {
        report("another version than it was converted to", written);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    convert(text, TzSoapVersion::V1_1);
    convert(text, TzSoapVersion::V1_2);
    return 0;
}
