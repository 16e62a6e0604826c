// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <tz/tools/Tzxmsg.h>

#include <cstddef>
#include <string>
#include <typeinfo>

/// The text of the `Error` that `action` throws; fails the test when it throws nothing or an
/// exception of any other class, a derived one included.
template <typename Error, typename Action> std::string textThrown(const Action& action) {
    try {
        action();
    } catch (const Tzxmsg& error) {
        EXPECT_EQ(typeid(error), typeid(Error)) << error.what();
        EXPECT_STREQ(error.what(), error.asString().c_str());
        return error.asString();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// The text of the error, of whatever class, that `action` throws; fails the test when it throws
/// nothing.
template <typename Action> std::string errorOf(const Action& action) {
    try {
        action();
    } catch (const Tzxmsg& error) {
        return error.asString();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// The line of the text being read that the `Error` states, 0 for none; see `textThrown`.
template <typename Error, typename Action> std::size_t lineThrown(const Action& action) {
    std::size_t line = 0;
    textThrown<Error>([&] {
        try {
            action();
        } catch (const Tzxmsg& error) {
            line = error.getLine();
            throw;
        }
    });
    return line;
}
