// SPDX-License-Identifier: MIT
// Any bytes, read as a MIME package and taken apart: they are refused with an error of the library,
// or the package can be written again.
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/Tzxmsg.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        TzMimeMultipart package;
        package.fromString(std::string(reinterpret_cast<const char*>(data), size));
        for (std::size_t i = 0; i < package.getPartCount(); ++i) {
            static_cast<void>(package.getPart(i).getBodyView());
        }
        TzMimeMultipart again;
        again.fromString(package.asString());
    } catch (const Tzxmsg&) {
        return 0;
    }
    return 0;
}
