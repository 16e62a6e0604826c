// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpTransportContext.h>
#include <tz/tools/TzCString.h>

#include <string_view>
#include <vector>

/// Texts as a log may have them.
namespace TzSoapHttpSecrets {

/// What stands in the place of a secret.
inline constexpr char Mask[] = "***";

/// Masks the values of header lines that hold credentials or cookies or are named by `further`;
/// letter case does not matter. O(lines * names).
void mask(TzSoapHttpTransportContext& headers, const std::vector<TzCString>& further);

/// `body` with the content of every element masked whose local name is that of a password or a
/// token; masks too much rather than too little where it is not XML. O(body).
TzCString masked(std::string_view body);

} // namespace TzSoapHttpSecrets
