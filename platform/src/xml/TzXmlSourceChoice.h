// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlSAXParser.h>

#include <cstdint>

/// What reads a whole text that is in UTF-8.
enum class TzXmlSourceChoice : std::uint8_t {
    Fastest, ///< The scanner as this machine runs it best, Expat where it hands over.
    Words,   ///< The scanner as it is on machines without SSE2, Expat where it hands over.
    Expat,   ///< Expat from the beginning.
};

/// Lets tests compare the sources.
struct TzXmlSourceChooser {
    static void choose(TzXmlSAXParser& parser, TzXmlSourceChoice choice) noexcept {
        parser.choice_ = choice;
    }
};
