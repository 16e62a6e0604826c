// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class TzSoapReferenceToSoapTypeImp;

/// Lets go what `resolved`, references that have a target, and the values around them hold in a
/// circle: such values make a ring (`TzBodyRing`), which lives as long as anybody else holds one of
/// them. What leads to a ring but not back is not part of it, nor is what is in a ring already.
/// `std::bad_alloc` without memory: some rings are not made then. O(values reachable), no
/// recursion.
void tzSoapCloseRings(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved);
