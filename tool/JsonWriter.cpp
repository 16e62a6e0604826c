// SPDX-License-Identifier: MIT
#include "JsonWriter.h"

#include "Escape.h"

#include <ostream>

void JsonWriter::separate() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (filled_.empty()) {
        return;
    }
    out_ << (filled_.back() ? ",\n" : "\n");
    filled_.back() = true;
    for (std::size_t i = 0; i < filled_.size(); ++i) {
        out_ << "  ";
    }
}

void JsonWriter::open(char bracket) {
    separate();
    out_ << bracket;
    filled_.push_back(false);
}

void JsonWriter::close(char bracket) {
    const bool filled = filled_.back();
    filled_.pop_back();
    if (filled) {
        out_ << '\n';
        for (std::size_t i = 0; i < filled_.size(); ++i) {
            out_ << "  ";
        }
    }
    out_ << bracket;
    if (filled_.empty()) {
        out_ << '\n';
    }
}

void JsonWriter::key(std::string_view key) {
    separate();
    out_ << escape::json(key) << ": ";
    afterKey_ = true;
}

void JsonWriter::text(std::string_view text) {
    separate();
    out_ << escape::json(text);
}

void JsonWriter::number(std::size_t number) {
    separate();
    out_ << number;
}

void JsonWriter::flag(bool flag) {
    separate();
    out_ << (flag ? "true" : "false");
}

void JsonWriter::null() {
    separate();
    out_ << "null";
}

void JsonWriter::numbers(std::span<const unsigned int> numbers) {
    separate();
    const char* before = "[";
    for (const unsigned int number : numbers) {
        out_ << before << number;
        before = ", ";
    }
    out_ << (numbers.empty() ? "[]" : "]");
}
