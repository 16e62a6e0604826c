// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlWriter.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The tags of elements that were written lately, ready to be copied: most elements of a message
/// are called like one of a few, and have its type.
///
/// A tag is remembered for an element name and a type, and for what is declared and in force: the
/// two counters of changes of the scope.
class TzSoapReadyTags {
public:
    /// The tags of one element.
    struct Tags {
        TzXmlWriter::Ready start;
        TzXmlWriter::Ready end;
    };
    /// What a tag depends on besides its names.
    struct State {
        std::uint64_t declarations = 0;
        std::uint64_t styles = 0;

        friend bool operator==(const State& left, const State& right) noexcept {
            return left.declarations == right.declarations && left.styles == right.styles;
        }
    };

    TzSoapReadyTags() = default;
    /// Nothing is remembered: a copy serves another scope.
    TzSoapReadyTags(const TzSoapReadyTags&) noexcept {}
    TzSoapReadyTags& operator=(const TzSoapReadyTags&) = delete;
    ~TzSoapReadyTags() = default;

    /// The tags for `name` and `type` while `state` holds, null when they are not known. Valid
    /// until the next call of `remember`. O(length of the names).
    const Tags* find(const TzXmlName& name, const TzXmlName& type, const State& state) noexcept {
        if (entries_.empty()) {
            return nullptr;
        }
        Entry& entry = entries_[slotOf(name, type)];
        const bool isKnown = entry.state == state && isSpeltAlike(entry.name, name) &&
                             isSpeltAlike(entry.type, type);
        return isKnown ? &entry.tags : nullptr;
    }
    /// Whether to remember what is written next; not for the first elements, because what is
    /// written of a small message does not pay for it.
    bool isWorthIt() noexcept { return met_ == FirstOnes || ++met_ == FirstOnes; }
    /// Remembers `tags` for `name` and `type` while `state` holds, perhaps in place of others;
    /// returns them as they are kept.
    const Tags* remember(const TzXmlName& name, const TzXmlName& type, const State& state,
                         const Tags& tags);
    /// Forgets everything.
    void clear() noexcept {
        entries_.clear();
        met_ = 0;
    }

private:
    struct Entry {
        State state; // zeros: no tags
        TzXmlName name;
        TzXmlName type;
        Tags tags;
    };

    static constexpr std::size_t Slots = 64;
    static constexpr std::size_t FirstOnes = 16;

    static std::size_t slotOf(const TzXmlName& name, const TzXmlName& type) noexcept {
        const TzCString& local = name.getLocalName();
        const std::size_t ends = local.empty() ? 0
                                               : static_cast<unsigned char>(local.front()) +
                                                     5 * static_cast<unsigned char>(local.back());
        return (ends + 11 * local.size() + 23 * type.getLocalName().size()) % Slots;
    }
    // The next name is likely to share the record of this one.
    static bool isSpeltAlike(TzXmlName& known, const TzXmlName& name) noexcept {
        if (known.isSame(name)) {
            return true;
        }
        const bool isAlike = known.getLocalName() == name.getLocalName() &&
                             known.getNamespace() == name.getNamespace();
        if (isAlike) {
            known = name;
        }
        return isAlike;
    }

    std::vector<Entry> entries_; // none, or Slots
    std::size_t met_ = 0;        // elements, FirstOnes at most
};
