// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// `TzSoapUtils::isMimeMultipart` for a text that stays the caller's.
bool tzSoapIsMimeMultipart(std::string_view text) noexcept;
