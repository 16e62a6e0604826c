// SPDX-License-Identifier: MIT
#include "output/TzSoapGapBudget.h"

#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlDomainError.h>

#include <string>

void TzSoapGapBudget::add(std::uint64_t gaps, std::uint64_t items) {
    gaps_ += gaps;
    items_ += items;
    if (gaps_ > Always + items_ * ForEachItem) {
        TzThrow(TzXmlDomainError(TzMessage(
            "An array of " + std::to_string(items) + " items with " + std::to_string(gaps) +
            " positions without one before them is not written: this version of SOAP has neither "
            "positions nor offsets, and the message would get " +
            std::to_string(gaps_) + " nil items in their place")));
    }
}
