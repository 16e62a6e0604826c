// SPDX-License-Identifier: MIT
#include "xml/TzXmlNameCache.h"

TzXmlNameCache::Entry& TzXmlNameCache::take(const TzXmlNameText& spelling) {
    if (losses_ > size_ && size_ < LastSize) {
        grow();
    }
    Entry& entry = roomFrom(homeOf(spelling));
    entry.state = 0;
    entry.stamp = 0;
    entry.spelling.set(spelling);
    return entry;
}

/// The first free one of the places that begin at `home`, or one of them in turn.
TzXmlNameCache::Entry& TzXmlNameCache::roomFrom(std::size_t home) noexcept {
    for (std::size_t step = 0; step < Reach; ++step) {
        if (at(home + step).spelling.isEmpty()) {
            return at(home + step);
        }
    }
    return at(home + losses_++ % Reach);
}

void TzXmlNameCache::grow() {
    more_ = std::vector<Entry>(2 * size_);
    entries_ = more_.data();
    size_ = more_.size();
    losses_ = 0;
}
