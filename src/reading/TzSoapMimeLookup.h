// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlAttribute.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

/// Finds the parts of a package that reference texts mean.
///
/// Answers of the package are remembered for all references: its own location,
/// where a text below that leads, and the text under which each part is referred to. For one
/// resolution: the package must not change, and the reference texts must live meanwhile.
class TzSoapMimeLookup {
public:
    /// A part that was found.
    struct Found {
        TzMimePart part;
        TzXmlAttribute::SharedValue text; ///< Under which all references to it refer to it.
    };

    explicit TzSoapMimeLookup(const TzMimeMultipart& package) : package_(package) {}

    /// The part that `href` means: by Content-ID after "cid:", as it stands or else with its
    /// percent signs decoded; otherwise by Content-Location, as it stands or below the package's
    /// own location. Empty without one. O(log n) in parts, headers and texts.
    std::optional<Found> find(std::string_view href);

private:
    std::size_t positionOf(std::string_view href);
    std::size_t positionBelowBase(std::string_view href);
    const TzMimeContentLocationHeader* base();
    const TzXmlAttribute::SharedValue& textOf(std::size_t position, const TzMimePart& part);

    const TzMimeMultipart& package_;
    std::optional<TzMimeContentLocationHeader> base_;
    bool baseSought_ = false;
    std::map<std::string_view, std::size_t> belowBase_; // misses included
    std::vector<TzXmlAttribute::SharedValue> texts_;    // by position of the part
    TzXmlAttribute::SharedValue::Maker textMaker_;
};
