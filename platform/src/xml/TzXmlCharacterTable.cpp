// SPDX-License-Identifier: MIT
#include "xml/TzXmlCharacterTable.h"

#include "xml/TzXmlSingleByteEncodings.h"

#include <tz/tools/TzCString.h>

#include <algorithm>

namespace {

/// Whether `names`, with a blank before and after each, has `name` among them in any case.
bool hasName(std::string_view names, std::string_view name) noexcept {
    for (std::size_t begin = 1; begin < names.size();) {
        const std::size_t end = names.find(' ', begin);
        const std::string_view one = names.substr(begin, end - begin);
        if (one.size() == name.size() && tzFindIgnoreCase(one, name) == 0) {
            return true;
        }
        begin = end + 1;
    }
    return false;
}

} // namespace

bool TzXmlCharacterTable::fill(std::string_view name, int (&codes)[256]) noexcept {
    const auto& all = TzXmlSingleByteEncoding::All;
    const auto* const encoding =
        std::find_if(all.begin(), all.end(), [name](const TzXmlSingleByteEncoding& one) {
            return hasName(one.names, name);
        });
    if (encoding == all.end()) {
        return false;
    }
    const std::size_t upper = encoding->upper.size();
    for (std::size_t byte = 0; byte < upper; ++byte) {
        const char16_t code = encoding->upper[byte];
        codes[byte] = static_cast<int>(byte);
        codes[upper + byte] = code != 0 ? code : -1;
    }
    return true;
}
