// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapFault.h>
#include <tz/tools/TzCString.h>

/// The detail that the error about a missing entry gets when the body holds a fault instead, so
/// that a program that does not look for faults reports it. "" without a fault.
inline TzCString tzSoapHeldFault(const TzSoapBody& body) {
    return body.hasSoapFault()
               ? "; the body holds the fault " + tzQuoted(body.getSoapFault().getReason())
               : TzCString();
}
