// SPDX-License-Identifier: MIT
// Any bytes, read as a MIME package and taken apart: they are refused with an error of the library,
// or the package can be written again, and reads as the same parts.
#include "FuzzTarget.h"

#include <tz/mime/TzMimeMultipart.h>

namespace {

void compare(const TzMimeMultipart& package, const std::string& written) {
    TzMimeMultipart again;
    again.fromString(written);
    if (again.getPartCount() != package.getPartCount()) {
        report("another number of parts after writing", written);
    }
    for (std::size_t i = 0; i < package.getPartCount(); ++i) {
        if (again.getPart(i).getBodyView() != package.getPart(i).getBodyView()) {
            report("another body after writing", written);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    accepted([&] {
        TzMimeMultipart package;
        package.fromString(textOf(data, size));
        compare(package, package.asString());
    });
    return 0;
}
