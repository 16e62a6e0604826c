// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapFault.h>
#include <tz/tools/TzCString.h>

/// What the error about a missing entry adds when the body holds a fault instead: a program that
/// does not look for faults learns of it here. "" without a fault.
inline TzCString tzSoapHeldFault(const TzSoapBody& body) {
    return body.hasSoapFault()
               ? "; the body holds the fault " + tzQuoted(body.getSoapFault().getReason())
               : TzCString();
}
