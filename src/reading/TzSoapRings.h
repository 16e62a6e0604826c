// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class TzSoapReferenceToSoapTypeImp;

/// Finds the circles through `resolved`, references that have a target: the values of a circle make
/// a ring (`TzBodyRing`), which lives as long as a handle outside of it refers to one of
/// them. What leads to a ring but not back is not part of it, nor is what is in a ring already.
/// `std::bad_alloc` without memory: some rings are missing then. O(values reachable), no
/// recursion.
void tzSoapCloseRings(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved);
