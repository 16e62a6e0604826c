// SPDX-License-Identifier: MIT
#pragma once

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <tz/xml/TzXmlError.h>

#include <cstdint>
#include <string>

/// Expects `action` to throw exactly an `Error` with that catalogue id and text.
template <typename Error, typename Action>
void expectCatalogued(const Action& action, std::uint32_t id, const std::string& text) {
    std::uint32_t thrown = 0;
    const auto observed = [&] {
        try {
            action();
        } catch (const TzXmlError& error) {
            thrown = error.getMessage().getId();
            throw;
        }
    };
    EXPECT_EQ(textThrown<Error>(observed), text);
    EXPECT_EQ(thrown, id) << text;
}
