// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimePartIndex.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimePart.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

/// The parts of a package, none of which is a package itself.
class TzMimeParts {
public:
    const std::vector<TzMimePart>& all() const noexcept { return parts_; }
    /// Whether the closing line was there when the parts were read; true for parts that were not.
    bool isComplete() const noexcept { return complete_; }
    /// Reads the parts from `text`, from the line that begins at `from` on. Changes nothing when it
    /// refuses a part.
    void read(const std::shared_ptr<const TzCString>& text, std::size_t from,
              std::string_view boundary);
    /// Inserts a handle to `part`, or to its text if it is a package, at `position`.
    void insert(std::size_t position, const TzMimePart& part);
    /// Removes the parts at or after `from`, which must be there, that stand earlier as well.
    void removeRepeats(std::size_t from);
    /// Position of the first part at or after `start` with a header equal to `header`.
    std::size_t find(const TzMimeHeader& header, std::size_t start) const;

    /// Position of the first part with that Content-ID.
    std::size_t findById(std::string_view id) const { return ids_.find(parts_, id, 0); }
    /// Position of the first part with that Content-Location.
    std::size_t findByLocation(std::string_view uri) const {
        return locations_.find(parts_, uri, 0);
    }

private:
    std::size_t search(const TzMimeHeader& header, std::size_t start) const;
    void changed() noexcept;

    std::vector<TzMimePart> parts_;
    bool complete_ = true;
    mutable TzMimePartIndex ids_{TzMimeContentIdHeader::Label};
    mutable TzMimePartIndex locations_{TzMimeContentLocationHeader::Label};
};
