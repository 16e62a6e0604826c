// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlScanBytes.h"
#include "xml/TzXmlScanStops.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Goes through a text, and never beyond its end.
///
/// What returns a bool passes what it is named after, and returns false where something else
/// stands; it may have passed a part of it then.
class TzXmlScanCursor {
public:
    explicit TzXmlScanCursor(std::string_view text) noexcept
        : at_(text.data()), end_(at_ + text.size()) {}

    /// Where it stands.
    const char* at() const noexcept { return at_; }
    bool atEnd() const noexcept { return at_ == end_; }
    /// The next byte; not at the end.
    char next() const noexcept { return *at_; }
    std::string_view rest() const noexcept { return {at_, static_cast<std::size_t>(end_ - at_)}; }
    /// What it passed since it stood at `begin`.
    std::string_view from(const char* begin) const noexcept {
        return {begin, static_cast<std::size_t>(at_ - begin)};
    }

    /// Passes so many bytes, which are there.
    void skip(std::size_t bytes) noexcept { at_ += bytes; }
    /// Passes `expected`, or nothing.
    bool pass(std::string_view expected) noexcept {
        if (!rest().starts_with(expected)) {
            return false;
        }
        at_ += expected.size();
        return true;
    }
    /// Passes `expected`, or nothing.
    bool pass(char expected) noexcept {
        if (atEnd() || *at_ != expected) {
            return false;
        }
        ++at_;
        return true;
    }
    /// Passes at least one blank.
    bool passBlanks() noexcept {
        const char* const begin = at_;
        while (!atEnd() && TzXmlScanBytes::is(*at_, TzXmlScanBytes::Blank)) {
            ++at_;
        }
        return at_ != begin;
    }
    /// Passes CR LF, or CR alone.
    bool passReturn() noexcept { return pass('\r') && (pass('\n'), true); }
    /// Passes a name in ASCII, which is empty where none stands.
    std::string_view readName() noexcept {
        const char* const begin = at_;
        if (!atEnd() && TzXmlScanBytes::is(*at_, TzXmlScanBytes::NameStart)) {
            do {
                ++at_;
            } while (!atEnd() && TzXmlScanBytes::is(*at_, TzXmlScanBytes::Name));
        }
        return from(begin);
    }
    /// Passes characters that are none of `stops`, if any, up to one in ASCII that is, or up to a
    /// malformed one.
    template <typename Blocks> bool passPlain(TzXmlScanStops stops) noexcept {
        do {
            at_ = Blocks::find(at_, end_, stops);
            if (atEnd()) {
                return false;
            }
        } while (!TzXmlScanBytes::isAscii(*at_) && passWide());
        return true;
    }
    /// Passes a reference to a character that needs no declaration, and says which.
    bool readReference(std::uint32_t& code) noexcept;

private:
    bool passWide() noexcept;
    bool readNumber(std::uint32_t& code) noexcept;

    const char* at_;
    const char* end_;
};
