// SPDX-License-Identifier: MIT
#include "output/TzSoapReadyTags.h"

const TzSoapReadyTags::Tags* TzSoapReadyTags::remember(const TzXmlName& name, const TzXmlName& type,
                                                       const State& state, const Tags& tags) {
    if (entries_.empty()) {
        entries_.resize(Slots);
    }
    Entry& entry = entries_[slotOf(name, type)];
    entry = {state, name, type, tags};
    return &entry.tags;
}
