// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <vector>

/// Faults of the sender whose codes SOAP does not define.
namespace TzSoapWsFaults {

/// A fault in the version of the request: with the subcodes `codes`, the general ones first, where
/// the version has subcodes, and with the last of them as its code where it has not.
TzSoapFaultError make(TzSoapVersion::Version version, const std::vector<TzXmlName>& codes,
                      const TzCString& reason);

} // namespace TzSoapWsFaults
