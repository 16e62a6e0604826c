// SPDX-License-Identifier: MIT
#include "growth/Families.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace growth {

namespace {

using Theme = Families (*)();

Families joined(const std::vector<Theme>& themes) {
    Families all;
    for (const Theme theme : themes) {
        const Families families = theme();
        all.insert(all.end(), families.begin(), families.end());
    }
    return all;
}

Families read() {
    return joined({attributes, prefixes, references, depth, styles, arrays, sparseArrays, texts,
                   encodings, values, headers, faults, parts, partHeaders, prologs, prefixClashes,
                   literals, finals, records});
}

/// The one that costs far more than the others, and those that conversion makes into what is not
/// written.
bool isDear(const Family& family) {
    const std::string_view name = family.name;
    return name == "FaultOfACodeInPieces" || name == "FaultOfSubcodes" ||
           name == "PartsMissedAgainstABase";
}

} // namespace

Families accepted() {
    Families all = read();
    all.erase(std::remove_if(all.begin(), all.end(), isDear), all.end());
    return all;
}

Families untested() {
    Families dear = read();
    dear.erase(std::remove_if(dear.begin(), dear.end(), std::not_fn(isDear)), dear.end());
    return dear;
}

} // namespace growth
