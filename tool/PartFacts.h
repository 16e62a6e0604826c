// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

class TzMimePart;

/// What is known of an attachment without looking into it. Texts are empty where nothing is stated.
struct PartFacts {
    std::string contentId; ///< Without angle brackets.
    std::string location;
    std::string type;     ///< The media type with its parameters.
    std::size_t size = 0; ///< Bytes without the transfer encoding.

    /// The facts of `part`.
    static PartFacts of(const TzMimePart& part);
};
