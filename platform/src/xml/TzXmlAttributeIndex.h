// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlAttribute.h>

#include <cstddef>
#include <set>
#include <string_view>
#include <vector>

/// Finds the attributes of one list by name. Trees and not hash tables, so that chosen names cannot
/// make it slow.
///
/// It remembers the names it knows, and the attributes report to it when a caller may rename them:
/// the next question compares these with what it remembers. Attributes that another one tells
/// apart only by an unbound prefix are found by that prefix, otherwise the first of them.
class TzXmlAttributeIndex {
public:
    /// Knows `attributes`, which outlive it.
    explicit TzXmlAttributeIndex(std::vector<TzXmlAttribute>& attributes);
    TzXmlAttributeIndex(const TzXmlAttributeIndex&) = delete;
    TzXmlAttributeIndex& operator=(const TzXmlAttributeIndex&) = delete;
    ~TzXmlAttributeIndex();

    /// The position of the attribute of that name, the number of attributes if absent.
    /// Useless after a failure for want of memory, as is every operation that may fail.
    std::size_t find(const TzXmlNamespace& nameSpace, std::string_view localName);
    /// Enters a name that the list is about to add at the end.
    void add(const TzXmlName& name);
    /// Forgets the attribute at a position that the list is about to close up.
    void remove(std::size_t position) noexcept;
    /// Whether most of what it remembers is of attributes that are there.
    bool isWorthIt() const noexcept { return names_.size() < 2 * numbers_.size() + 64; }
    /// Hears what becomes of the names of the attributes from `position` on.
    void listenFrom(std::size_t position) noexcept { setListener(position, this); }
    /// Hears nothing while the list moves the attributes from `position` on.
    void ignoreFrom(std::size_t position) noexcept { setListener(position, nullptr); }
    /// Somebody may be renaming this attribute.
    void noteRenaming(const TzXmlAttribute& attribute) noexcept;

private:
    /// Attributes are numbered in the order of the list.
    using Number = std::size_t;
    struct Key {
        std::string_view localName;
        std::string_view space; // URI or unbound prefix
    };
    template <bool ByPrefix> struct Less {
        using is_transparent = void;
        const std::vector<TzXmlName>* names;

        Key keyOf(Number number) const noexcept {
            const TzXmlName& name = (*names)[number];
            return {name.getLocalName(), ByPrefix ? name.getPrefix() : name.getUri()};
        }
        static int compare(const Key& left, const Key& right) noexcept {
            const int order = left.localName.compare(right.localName);
            return order != 0 ? order : left.space.compare(right.space);
        }
        bool operator()(Number left, Number right) const noexcept {
            const int order = compare(keyOf(left), keyOf(right));
            return order < 0 || (order == 0 && left < right);
        }
        bool operator()(Number left, const Key& right) const noexcept {
            return compare(keyOf(left), right) < 0;
        }
    };

    void setListener(std::size_t position, TzXmlAttributeIndex* listener) noexcept;
    template <typename Numbers> std::size_t firstOf(const Numbers& numbers, const Key& key) const;
    void settle();
    void compare(Number number);
    void enter(Number number);
    void leave(Number number) noexcept;

    std::vector<TzXmlAttribute>& attributes_;
    std::vector<TzXmlName> names_;       // by number
    std::vector<std::size_t> positions_; // by number
    std::vector<Number> numbers_;        // by position
    std::set<Number, Less<false>> byUri_;
    std::set<Number, Less<true>> byPrefix_; // of the names without URI
    std::vector<Number> renamed_;           // since the last question
    bool allRenamed_ = false;
};
