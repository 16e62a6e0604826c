// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlSAXParser.h>

#include "xml/TzXmlSourceChoice.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

/// What the parsers of this run of the tests read with: ctest runs the tests of the parser once
/// with each source, and names it in the environment.
inline TzXmlSourceChoice testedSource() {
    const char* const set = std::getenv("TZSOAP_TESTED_SOURCE");
    const std::string_view name = set != nullptr ? set : "scanner";
    if (name == "scanner") {
        return TzXmlSourceChoice::Fastest;
    }
    if (name == "words") {
        return TzXmlSourceChoice::Words;
    }
    if (name == "expat") {
        return TzXmlSourceChoice::Expat;
    }
    throw std::invalid_argument("TZSOAP_TESTED_SOURCE");
}

/// The parser under test.
class TestedParser : public TzXmlSAXParser {
public:
    TestedParser() { TzXmlSourceChooser::choose(*this, testedSource()); }
};
