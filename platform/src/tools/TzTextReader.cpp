// SPDX-License-Identifier: MIT
#include "tools/TzTextReader.h"

#include "tools/TzDigits.h"

#include <charconv>

namespace {

bool isDigit(char character) noexcept { return character >= '0' && character <= '9'; }

} // namespace

bool TzTextReader::take(char wanted) noexcept {
    if (rest_.empty() || rest_.front() != wanted) {
        return false;
    }
    rest_.remove_prefix(1);
    return true;
}

void TzTextReader::expect(char wanted) noexcept {
    if (!take(wanted)) {
        fail();
    }
}

char TzTextReader::takeAny() noexcept {
    if (rest_.empty()) {
        fail();
        return '\0';
    }
    const char next = rest_.front();
    rest_.remove_prefix(1);
    return next;
}

bool TzTextReader::atDigit() const noexcept { return !rest_.empty() && isDigit(rest_.front()); }

unsigned TzTextReader::number(std::size_t count) noexcept {
    unsigned value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!atDigit()) {
            fail();
            return 0;
        }
        value = value * 10 + static_cast<unsigned>(takeAny() - '0');
    }
    return value;
}

std::uint64_t TzTextReader::number() noexcept {
    const std::string_view run = digits();
    std::uint64_t value = 0;
    if (std::from_chars(run.data(), run.data() + run.size(), value).ec != std::errc()) {
        fail();
    }
    return value;
}

std::string_view TzTextReader::digits() noexcept {
    std::size_t length = 0;
    while (length < rest_.size() && isDigit(rest_[length])) {
        ++length;
    }
    const std::string_view run = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return run;
}

std::uint32_t TzTextReader::billionths() noexcept {
    const std::string_view run = digits();
    if (run.empty()) {
        fail();
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < TzDigits::BillionthsDigits; ++i) {
        value = value * 10 + (i < run.size() ? static_cast<std::uint32_t>(run[i] - '0') : 0);
    }
    return value;
}
