// SPDX-License-Identifier: MIT
#include "xml/TzXmlTagAttributes.h"

#include <algorithm>

namespace {

/// Room for the attributes of most tags.
constexpr std::size_t UsualAttributes = 8;

/// Up to this number all pairs of names are compared.
constexpr std::size_t FewNames = 8;

/// Any order will do, and lengths are compared at once.
bool isBefore(std::string_view one, std::string_view other) noexcept {
    return one.size() != other.size() ? one.size() < other.size() : one < other;
}

} // namespace

TzXmlTagAttributes::TzXmlTagAttributes() { all_.reserve(UsualAttributes); }

bool TzXmlTagAttributes::namesRepeat() {
    if (all_.size() <= FewNames) {
        return fewNamesRepeat();
    }
    // Sorting takes no longer for names that a sender has chosen.
    names_.clear();
    for (const TzXmlSpelledAttribute& attribute : all_) {
        names_.push_back(attribute.name);
    }
    std::sort(names_.begin(), names_.end(), isBefore);
    return std::adjacent_find(names_.begin(), names_.end()) != names_.end();
}

bool TzXmlTagAttributes::fewNamesRepeat() const noexcept {
    for (auto one = all_.begin(); one != all_.end(); ++one) {
        for (auto other = all_.begin(); other != one; ++other) {
            if (other->name == one->name) {
                return true;
            }
        }
    }
    return false;
}

std::span<const TzXmlSpelledAttribute> TzXmlTagAttributes::settled() noexcept {
    const char* written = values_.data();
    for (TzXmlSpelledAttribute& attribute : all_) {
        if (attribute.value.data() == nullptr) {
            attribute.value = {written, attribute.value.size()};
            written += attribute.value.size();
        }
    }
    return all_;
}
