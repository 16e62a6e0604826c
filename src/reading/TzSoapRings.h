// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class TzSoapReferenceToSoapTypeImp;

/// Those references, reachable from the targets of `resolved`, that lead back to a value on the way to
/// them. Without their targets no value reaches itself any more. O(values reachable), no recursion.
std::vector<TzSoapReferenceToSoapTypeImp*>
tzSoapFindRingClosers(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved);
