// SPDX-License-Identifier: MIT
#include <soap/TzSoapValueList.h>

#include "model/TzSoapAccess.h"

#include <algorithm>

namespace {

/// Finds values named `name`.
struct Named {
    const TzXmlName& name;

    bool operator()(const TzSoapType& value) const { return value.getName() == name; }
};

} // namespace

TzSoapValueList::iterator TzSoapValueList::find(const TzXmlName& name) {
    return std::find_if(begin(), end(), Named{name});
}

TzSoapValueList::const_iterator TzSoapValueList::find(const TzXmlName& name) const {
    return std::find_if(begin(), end(), Named{name});
}

void TzSoapValueList::remove(const TzXmlName& name) {
    const auto found = find(name);
    if (found != end()) {
        values_.erase(found);
    }
}

void TzSoapValueList::removeAll(const TzXmlName& name) {
    // A copy: the name may belong to a value that is removed.
    std::list<TzSoapType> removed;
    for (auto position = begin(); position != end();) {
        const auto next = std::next(position);
        if (position->getName() == name) {
            removed.splice(removed.end(), values_, position);
        }
        position = next;
    }
}

TzSoapValueList TzSoapValueList::copyValues() const {
    TzSoapValueList copies;
    for (const TzSoapType& value : values_) {
        copies.append(value.copy());
    }
    return copies;
}

bool TzSoapValueList::sharesValues(const TzSoapValueList& other) const noexcept {
    return std::equal(begin(), end(), other.begin(), other.end(),
                      &TzSoapAccess::sameBody<TzSoapType>);
}
