// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// Whether the text of a boolean that was received is true.
inline bool tzSoapIsTrue(std::string_view text) noexcept { return text == "1" || text == "true"; }
