// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// What OpenSSL does for this library.
namespace TzSoapWsCrypto {

/// The 20 bytes of SHA-1 (FIPS 180-4) over `bytes`. `std::runtime_error` when OpenSSL fails.
TzCString sha1(std::string_view bytes);

/// So many random bytes that nobody can guess. `std::runtime_error` when the system gives none.
TzCString randomBytes(std::size_t count);

/// Whether both texts are equal; the time it takes depends on their lengths only.
bool equal(std::string_view left, std::string_view right);

} // namespace TzSoapWsCrypto
