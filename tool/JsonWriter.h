// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string_view>
#include <vector>

/// Writes one JSON document (RFC 8259), a line for each member.
class JsonWriter {
public:
    /// A writer onto `out`.
    explicit JsonWriter(std::ostream& out) : out_(out) {}

    /// Begins an object, as a value.
    void beginObject() { open('{'); }
    /// Ends the object that began last. A line end follows the outermost one.
    void endObject() { close('}'); }
    /// Begins an array, as a value.
    void beginArray() { open('['); }
    /// Ends the array that began last.
    void endArray() { close(']'); }
    /// The key of the value that comes next.
    void key(std::string_view key);

    /// A string, as a value.
    void text(std::string_view text);
    /// A number, as a value.
    void number(std::size_t number);
    /// true or false, as a value.
    void flag(bool flag);
    /// null, as a value.
    void null();
    /// An array of numbers on one line, as a value.
    void numbers(std::span<const unsigned int> numbers);

private:
    void separate();
    void open(char bracket);
    void close(char bracket);

    std::ostream& out_;
    std::vector<bool> filled_; // for each open object and array
    bool afterKey_ = false;
};
