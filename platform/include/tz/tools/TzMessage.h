// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzCatMsg.h>

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string_view>

/// A text made from a catalogue entry and its arguments.
///
/// "%s" takes the next argument as a character string, "%d" as a number. An argument that is
/// missing inserts nothing, surplus arguments are ignored; a message never reads what was not
/// given.
class TZ_PLATFORM_API TzMessage {
public:
    /// A message without catalogue entry (empty domain, id 0) that says `text`.
    explicit TzMessage(TzCString text);

    /// The text of `entry` with its places filled by `arguments` in order.
    template <typename... Arguments>
    explicit TzMessage(const TzCatMsg* entry, const Arguments&... arguments)
        : TzMessage(*entry, {Argument(arguments)...}) {}

    /// Domain of the catalogue entry, "" without one.
    const char* getDomain() const noexcept { return domain_; }
    /// Number of the catalogue entry, 0 without one.
    std::uint32_t getId() const noexcept { return id_; }
    /// The finished text.
    const TzCString& asString() const noexcept { return text_; }

private:
    /// An argument as text, held only while the message is made.
    class Argument {
    public:
        explicit Argument(std::string_view text) : text_(text) {}
        explicit Argument(const TzCString& text) : text_(text) {}
        explicit Argument(const char* text) : text_(text) {}
        template <std::integral Number>
        explicit Argument(Number number) : text_(std::to_string(number)) {}
        const TzCString& text() const noexcept { return text_; }

    private:
        TzCString text_;
    };

    TzMessage(const TzCatMsg& entry, std::initializer_list<Argument> arguments);

    const char* domain_;
    std::uint32_t id_;
    TzCString text_;
};
