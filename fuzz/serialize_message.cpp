// SPDX-License-Identifier: MIT
// Any bytes, read as a message: what the serializer makes of it can be read.
#include "FuzzTarget.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSerializer.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TzSoapMessage message;
    std::string written;
    const bool done = accepted([&] {
        message.extract(textOf(data, size));
        TzSoapSerializer serializer;
        message.acceptVisitor(serializer);
        written = serializer.getSerializedString();
    });
    if (done && !message.hasUserDefinedValues()) {
        TzSoapMessage().extract(written);
    }
    return 0;
}
