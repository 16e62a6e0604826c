// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Makes texts to read, the same ones for the same seed on every machine: a third of them mostly
/// well-formed documents, the others such documents with mistakes in them, and tokens in any order.
class ScanTexts {
public:
    explicit ScanTexts(std::uint64_t seed) noexcept : state_(seed) {}

    /// The next text, valid until the next call.
    const std::string& next();
    /// `text` with a few mistakes in it, valid until the next call.
    const std::string& spoil(std::string_view text);
    /// A number below `bound`.
    std::size_t below(std::size_t bound) noexcept;

private:
    bool oneIn(std::size_t count) noexcept { return below(count) == 0; }
    template <std::size_t Size>
    std::string_view oneOf(const std::string_view (&all)[Size]) noexcept {
        return all[below(Size)];
    }

    void writeDocument();
    void writeDeclaration();
    void writeMisc();
    void writeElement(std::size_t depth);
    void writeAttributes();
    void writeValue(char quote);
    void writeContent(std::size_t depth);
    void repeatFrom(std::size_t begin);
    void writeText(bool isValue);
    void writeReference();
    void writeComment();
    void writeInstruction();
    void writeSection();
    void writeTokens();
    void spoilOnce();

    std::uint64_t state_;
    std::string text_;
    std::size_t wanted_ = 0; // length of the document that is being made
};
