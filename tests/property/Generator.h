// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// Makes random messages, equal ones for equal seeds.
class Generator {
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    /// A message of either version: header entries, body entries of all kinds, sometimes a fault.
    TzSoapMessage message();

private:
    unsigned int below(unsigned int limit);
    bool chance(unsigned int percent) { return below(100) < percent; }
    std::string word();
    std::string text();
    TzXmlName name();

    TzSoapType value(int depth);
    TzSoapType valueWithoutMarkup(int depth);
    TzSoapType userDefined();
    TzSoapSimpleType simple();
    TzSoapSimpleType plainText();
    TzSoapCompositeType composite(int depth);
    TzSoapType compactArray(int depth);
    TzSoapType sparseArray(int depth);
    TzSoapType reference();
    void addHeader(TzSoapMessage& message);
    void addFault(TzSoapMessage& message);

    std::mt19937 random_;
    std::vector<TzSoapType> targets_; // of the message under way
    TzCString envelopePrefix_;        // of the message under way
};
