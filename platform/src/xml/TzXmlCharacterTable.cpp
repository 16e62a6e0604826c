// SPDX-License-Identifier: MIT
#include "xml/TzXmlCharacterTable.h"

#include "xml/TzXmlSingleByteEncodings.h"
#include "xml/TzXmlUtf8.h"

#include <tz/tools/TzCString.h>

#include <algorithm>
#include <cstdint>

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

TzCString TzXmlCharacterTable::toUtf8(std::string_view name, std::string_view text) {
    int codes[256];
    if (!fill(name, codes)) {
        return TzCString(text);
    }
    TzCString converted;
    converted.reserve(text.size());
    for (const char byte : text) {
        // A byte without a character was refused before.
        TzXmlUtf8::append(converted,
                          static_cast<std::uint32_t>(codes[static_cast<unsigned char>(byte)]));
    }
    return converted;
}

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
