// SPDX-License-Identifier: MIT
// Makes texts without a fuzzer, as many as it is asked for, and has the scanner and Expat alone
// read each: scan_mutations <seed> <count>. Ends with an error at the first difference; says how
// many texts were different from each other, how many were over 200 bytes and how many well-formed.
#include "platform/xml/ScanComparison.h"
#include "platform/xml/ScanTexts.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Tells texts that were not there before: never one that was, and all but a few of the others.
class Seen {
public:
    bool isNew(std::string_view text) {
        const std::uint64_t hash = std::hash<std::string_view>()(text);
        bool found = false;
        for (unsigned i = 0; i < 4; ++i) {
            const std::uint64_t bit = (hash + i * (hash >> 31 | 1)) * 0x9E3779B97F4A7C15U >> 32;
            std::uint64_t& word = bits_[bit / 64];
            const std::uint64_t mask = std::uint64_t{1} << bit % 64;
            found |= (word & mask) == 0;
            word |= mask;
        }
        return found;
    }

private:
    std::vector<std::uint64_t> bits_ = std::vector<std::uint64_t>(std::size_t{1} << 26);
};

/// One text in eight is read by the form without SSE2.
ScanComparison::Forms formOf(std::uint64_t number) {
    return number % 8 == 0 ? ScanComparison::Forms::Words : ScanComparison::Forms::Fastest;
}

struct Counts {
    std::uint64_t made = 0;
    std::uint64_t distinct = 0;
    std::uint64_t isLong = 0;
    std::uint64_t wellFormed = 0;

    void print() const {
        std::printf(
            "made %llu, distinct %llu, of these over 200 bytes %llu, well-formed %llu\n",
            static_cast<unsigned long long>(made), static_cast<unsigned long long>(distinct),
            static_cast<unsigned long long>(isLong), static_cast<unsigned long long>(wellFormed));
        std::fflush(stdout);
    }
};

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: scan_mutations <seed> <count of distinct texts>\n");
        return 2;
    }
    ScanTexts texts(std::strtoull(arguments[1], nullptr, 10));
    const std::uint64_t wanted = std::strtoull(arguments[2], nullptr, 10);
    ScanComparison comparison;
    Seen seen;
    Counts counts;
    while (counts.distinct < wanted) {
        const std::string& text = texts.next();
        ++counts.made;
        if (!seen.isNew(text)) {
            continue;
        }
        ++counts.distinct;
        const std::size_t terms = texts.below(1 << 12);
        const std::string found =
            comparison.differences(text, ScanTerms::of(terms), formOf(counts.distinct));
        if (!found.empty()) {
            std::printf("terms %zu: %s\n%s\n", terms, found.c_str(), text.c_str());
            counts.print();
            return 1;
        }
        counts.isLong += text.size() > 200 ? 1 : 0;
        counts.wellFormed += comparison.accepted() ? 1 : 0;
        if (counts.distinct % 10'000'000 == 0) {
            counts.print();
        }
    }
    counts.print();
    return 0;
}
