// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class TzSoapReferenceToSoapTypeImp;

/// Those of `resolved`, references that have a target, whose target leads back to them. Without
/// their targets no value reaches itself any more. O(values reachable), no recursion.
std::vector<TzSoapReferenceToSoapTypeImp*>
tzSoapFindRingClosers(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved);
