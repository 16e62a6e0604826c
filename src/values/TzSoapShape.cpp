// SPDX-License-Identifier: MIT
#include "values/TzSoapShape.h"

#include "values/TzSoapIndexText.h"

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include <algorithm>

namespace {

using Index = TzSoapShape::Index;

TzXmlBoundsError badEntry(const Index& vector, Index::const_iterator entry) {
    return TzXmlBoundsError(TzMessage(tzsoap_BAD_INDEX_VECTOR(), entry - vector.begin(), *entry));
}

TzCString textOf(const Index& vector) { return TzSoapIndexText::printLatest(vector, true); }

} // namespace

unsigned int TzSoapShape::allocSizeOf(const Index& bounds) {
    if (bounds.empty()) {
        return 0;
    }
    const auto bad = std::find(bounds.begin() + 1, bounds.end(), 0U);
    if (bad != bounds.end()) {
        TzThrow(badEntry(bounds, bad));
    }
    if (bounds.size() == 1) {
        return bounds.front();
    }
    std::uint64_t product = 1;
    for (const unsigned int bound : bounds) {
        product *= std::max(bound, 1U);
        if (product > Largest) {
            throwTooLarge(bounds);
        }
    }
    return static_cast<unsigned int>(product);
}

void TzSoapShape::check(const Index& bounds, const Index& start) {
    if (bounds.size() != start.size()) {
        TzThrow(TzXmlBoundsError(TzMessage(tzsoap_MISMATCH_BOUNDS(), bounds.size(), start.size())));
    }
    for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
        if (bounds[axis] != 0 && bounds[axis] < start[axis]) {
            TzThrow(TzXmlBoundsError(
                TzMessage(tzsoap_MISMATCH_VECTOR(), textOf(bounds), textOf(start))));
        }
    }
    allocSizeOf(bounds);
}

Index TzSoapShape::stepsOf(const Index& bounds) {
    Index steps(bounds.size(), 1);
    for (std::size_t axis = bounds.size(); axis-- > 1;) {
        steps[axis - 1] = steps[axis] * bounds[axis];
    }
    return steps;
}

Index TzSoapShape::indexAt(std::uint64_t position, const Index& steps) {
    if (!steps.empty() && position / steps.front() > Largest) {
        throwTooLarge(indexAt(position - 1, steps));
    }
    Index index(steps.size());
    for (std::size_t axis = 0; axis < steps.size(); ++axis) {
        index[axis] = static_cast<unsigned int>(position / steps[axis]);
        position %= steps[axis];
    }
    return index;
}

void TzSoapShape::throwOutOfRange(const Index& index, const Index& start, const Index& bounds) {
    TzThrow(TzXmlBoundsError(
        TzMessage(tzsoap_INDEX_RANGE_VEC(), textOf(index), textOf(start), textOf(bounds))));
}

void TzSoapShape::throwTooLarge(const Index& vector, std::string_view detail) {
    TzThrow(tzWithDetail(badEntry(vector, std::max_element(vector.begin(), vector.end())), detail));
}
