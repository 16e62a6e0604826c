// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

/// Texts that show values, and how they differ: for the library's programs and gSOAP's.
namespace orders {

/// `text` in quotes; a long one by its length and a sum of its bytes.
inline std::string shownText(const std::string& text) {
    constexpr std::size_t Longest = 200;
    if (text.size() <= Longest) {
        return '"' + text + '"';
    }
    std::size_t sum = 0;
    for (const char byte : text) {
        sum = sum * 31U + static_cast<unsigned char>(byte);
    }
    return std::to_string(text.size()) + " bytes of sum " + std::to_string(sum);
}

/// "ok" for equal texts, or both from the word on in which they begin to differ.
inline std::string compare(const std::string& wanted, const std::string& found) {
    constexpr std::size_t Enough = 60;
    if (wanted == found) {
        return "ok";
    }
    const auto differs =
        std::mismatch(wanted.begin(), wanted.end(), found.begin(), found.end()).first;
    const auto same = static_cast<std::size_t>(differs - wanted.begin());
    const std::size_t space = wanted.rfind(' ', same == 0 ? 0 : same - 1);
    const std::size_t from = space == std::string::npos ? 0 : space + 1;
    return "wanted " + wanted.substr(from, Enough) + ", came back " + found.substr(from, Enough);
}

} // namespace orders
