// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlNameResolver.h"

#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// An element between its tags.
struct TzXmlOpenElement {
    TzXmlName name;
    std::uint64_t stamp = 0; // of the name
    std::size_t declarations = 0;
};

/// Attributes that are written over from tag to tag, of tags with one number of them.
struct TzXmlAttributePlaces {
    TzXmlAttributeSet set;
    std::vector<std::uint64_t> stamps; // of the names; empty until the set is complete

    /// Makes `count` places, the number of which never changes afterwards.
    void make(std::size_t count);
    /// Forgets the values, and everything if these took much memory. Bytes that are left.
    std::size_t wipe() noexcept;
};

/// What the names of a document are made with. Serves one document after the other.
struct TzXmlNames {
    /// Tags with more attributes have no places.
    static constexpr std::size_t FewAttributes = 12;

    TzXmlNameResolver resolver;
    std::vector<TzXmlOpenElement> elements; // outermost first; those not open lend their memory
    std::array<TzXmlAttributePlaces, FewAttributes + 1> places; // by the number of attributes

    TzXmlNames();
    /// The document has ended, complete or not. Bytes of memory that are left at most.
    std::size_t endDocument() noexcept;
};

/// The names of the document that is read: what the document before on this thread has left, or new
/// ones. A document within another one shares nothing with it. Only names and namespaces are left,
/// nothing of texts and values.
class TzXmlNamesInUse {
public:
    /// Most bytes that one document leaves to the next.
    static constexpr std::size_t MostBytes = std::size_t{48} * 1024;

    TzXmlNamesInUse();
    TzXmlNamesInUse(const TzXmlNamesInUse&) = delete;
    TzXmlNamesInUse& operator=(const TzXmlNamesInUse&) = delete;
    /// The document has ended, complete or not.
    ~TzXmlNamesInUse();

    TzXmlNames* operator->() noexcept { return names_.get(); }
    const TzXmlNames* operator->() const noexcept { return names_.get(); }

private:
    std::unique_ptr<TzXmlNames> names_;
};
