// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

#ifdef TZSOAP_CHECK_HANDOVER
#include <cstdlib>
#include <functional>
#endif

/// Counts the declaration and the tags that a source has delivered, so that another one can go on
/// after them. Under a fuzzer it knows their names too, and ends the program where two sources have
/// seen different ones.
class TzXmlEventCount {
public:
    std::size_t count() const noexcept { return count_; }
    /// Another one; `name` is that of a start tag.
    void add([[maybe_unused]] std::string_view name = {}) noexcept {
        ++count_;
#ifdef TZSOAP_CHECK_HANDOVER
        names_ = names_ * 31 + std::hash<std::string_view>()(name) + 1;
#endif
    }
    /// Whether this one has come to where `other` stands.
    bool reached(const TzXmlEventCount& other) const noexcept {
#ifdef TZSOAP_CHECK_HANDOVER
        if (count_ == other.count_ && names_ != other.names_) {
            std::abort();
        }
#endif
        return count_ == other.count_;
    }
    /// The text ends here, before or after where `other` stands.
    void expectReached([[maybe_unused]] const TzXmlEventCount& other) const noexcept {
#ifdef TZSOAP_CHECK_HANDOVER
        if (count_ < other.count_) {
            std::abort();
        }
#endif
    }

private:
    std::size_t count_ = 0;
#ifdef TZSOAP_CHECK_HANDOVER
    std::size_t names_ = 0;
#endif
};
