// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

/// What the fuzzer calls; each target defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The bytes as the library takes them.
inline std::string textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes the first line out of `text`, without its end.
inline std::string takeLine(std::string& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = text.substr(0, end);
    text.erase(0, end + 1);
    return line;
}

/// A message that reads every version, in `style`.
inline TzSoapMessage readerOf(TzSoapStyle style) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.setStyle(style);
    return message;
}

/// Both ways to read a message.
inline constexpr TzSoapStyle Styles[] = {TzSoapStyle::Encoded, TzSoapStyle::Literal};

/// Whether the library did it; false after one of its errors. Every other exception is a finding.
inline bool accepted(const std::function<void()>& action) {
    try {
        action();
    } catch (const Tzxmsg&) {
        return false;
    }
    return true;
}

/// Ends the fuzzer with a finding that says what is wrong with which text.
[[noreturn]] inline void report(const char* what, const std::string& text) {
    std::fprintf(stderr, "fuzz: %s\n%s\n", what, text.c_str());
    std::abort();
}
