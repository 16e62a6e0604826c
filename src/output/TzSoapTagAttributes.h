// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>

#include "output/TzSoapInlineVector.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

/// The attributes that the start tag being prepared will carry, in order, each expanded name once.
///
/// Refers to names and values where they are: they must stay until `clear`. What has to be made for
/// one tag is kept by `keep`. Usual tags take no memory.
class TzSoapTagAttributes {
public:
    /// One attribute: the name it stands for, the prefix it is spelt with, its value.
    struct Attribute {
        const TzXmlName* name;
        std::string_view prefix;
        std::string_view value;
    };

    TzSoapTagAttributes() noexcept = default;
    /// An empty list: the contents of `other` belong to the tag that it prepares.
    TzSoapTagAttributes(const TzSoapTagAttributes&) noexcept {}
    TzSoapTagAttributes& operator=(const TzSoapTagAttributes&) = delete;
    ~TzSoapTagAttributes() = default;

    /// Adds an attribute that the element carries under this very name. O(attributes made so far).
    void addOwn(const Attribute& attribute);
    /// Adds an attribute made or renamed for this tag; one of that name takes it in place. O(size).
    void addMade(const Attribute& attribute);
    /// The attribute of that name, null if absent; valid until the next change. O(size).
    const Attribute* find(const TzXmlName& name) const;
    /// Whether an attribute of that name is there. O(size).
    bool contains(const TzXmlName& name) const { return find(name) != nullptr; }
    /// Gives the attribute of that name another value; false when it is not there. O(size).
    bool replaceValue(const TzXmlName& name, std::string_view value);
    /// Puts `to` in the place of the attribute `from`, or of one that has its name already. To be
    /// called when all is added. O(size).
    void rename(const TzXmlName& from, const Attribute& to);
    /// Keeps the text that the `pieces` make in one until `clear`.
    template <typename... Pieces> std::string_view keep(const Pieces&... pieces) {
        const std::size_t size = (std::string_view(pieces).size() + ...);
        char* const begin = roomFor(size);
        char* to = begin;
        ((to += std::string_view(pieces).copy(to, std::string_view::npos)), ...);
        return {begin, size};
    }
    /// Forgets attributes and texts.
    void clear() noexcept {
        attributes_.clear();
        made_.clear();
        textsUsed_ = 0;
        longTexts_.clear();
    }

    bool empty() const noexcept { return attributes_.empty(); }
    const Attribute* begin() const noexcept { return attributes_.begin(); }
    const Attribute* end() const noexcept { return attributes_.end(); }

private:
    /// Where the attribute `name` is in a list of them, its end if absent. O(size).
    template <typename Attributes>
    static auto positionIn(Attributes& attributes, const TzXmlName& name) {
        auto* each = attributes.begin();
        while (each != attributes.end() && !(*each->name == name)) {
            ++each;
        }
        return each;
    }
    char* roomFor(std::size_t size) {
        return size <= texts_.size() - textsUsed_
                   ? texts_.data() + std::exchange(textsUsed_, textsUsed_ + size)
                   : ownRoomFor(size);
    }
    char* ownRoomFor(std::size_t size);

    TzSoapInlineVector<Attribute, 8> attributes_;
    // Positions; an element's own names differ from each other anyway.
    TzSoapInlineVector<std::size_t, 8> made_;
    std::size_t textsUsed_ = 0;                                // of texts_
    TzSoapInlineVector<std::unique_ptr<char[]>, 2> longTexts_; // those that had no room there
    std::array<char, 256> texts_;
};
