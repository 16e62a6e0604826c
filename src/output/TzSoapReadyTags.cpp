// SPDX-License-Identifier: MIT
#include "output/TzSoapReadyTags.h"

const TzSoapReadyTags::Tags* TzSoapReadyTags::remember(const TzXmlName& name, const TzXmlName& type,
                                                       const State& state, const Tags& tags) {
    constexpr std::size_t FirstRemembered = 16;
    if (++met_ < FirstRemembered) {
        return nullptr;
    }
    if (entries_.empty()) {
        entries_.resize(Slots);
    }
    Entry& entry = entries_[slotOf(name, type)];
    entry = {state, name, type, tags};
    return &entry.tags;
}
