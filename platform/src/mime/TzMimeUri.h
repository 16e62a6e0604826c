// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// URI references (RFC 3986).
namespace TzMimeUri {

/// What `reference` means below `base`: RFC 3986, 5.2. A base without a scheme serves too; then a
/// path is put after the last slash of the base's path without resolving its dots. Linear.
TzCString resolve(std::string_view base, std::string_view reference);

} // namespace TzMimeUri
