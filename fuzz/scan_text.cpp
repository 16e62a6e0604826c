// SPDX-License-Identifier: MIT
// Any bytes, read by the scanner and by Expat alone: nothing tells the two apart.
#include "FuzzTarget.h"

#include "platform/xml/ScanComparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static ScanComparison comparison;
    const std::string text = textOf(data, size);
    for (const std::size_t terms : {15U, 16U, 33U, 82U, 51U, 4U}) {
        const std::string found = comparison.differences(text, ScanTerms::of(terms));
        if (!found.empty()) {
            report(found.c_str(), text);
        }
    }
    return 0;
}
