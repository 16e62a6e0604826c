// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// The reason of a fault in one language. A plain value.
struct TzSoapReason {
    /// What a reason is written in that names no language, where one has to be named.
    static constexpr std::string_view DefaultLanguage = "en";

    TzCString text;     ///< The reason.
    TzCString language; ///< Its language, such as "en" or "de-CH"; "" for one that is not named.

    /// Whether both texts are the same.
    friend bool operator==(const TzSoapReason&, const TzSoapReason&) = default;
};
