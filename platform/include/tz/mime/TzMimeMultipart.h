// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimePart.h>

class TzMimeParts;

/// A MIME package: a part that is made of parts.
///
/// A handle like `TzMimePart`, with the same rules for copies, threads and empty packages.
class TZ_PLATFORM_API TzMimeMultipart : public TzMimePart {
public:
    /// A package without headers and parts; allocates nothing.
    TzMimeMultipart() noexcept;
    TzMimeMultipart(const TzMimeMultipart&) noexcept = default;
    /// Takes the package over; `other` is empty afterwards.
    TzMimeMultipart(TzMimeMultipart&& other) noexcept = default;
    TzMimeMultipart& operator=(const TzMimeMultipart&) noexcept = default;
    /// Takes the package over; `other` is empty afterwards.
    TzMimeMultipart& operator=(TzMimeMultipart&& other) noexcept = default;
    ~TzMimeMultipart() override;

    /// The number of parts.
    std::size_t getPartCount() const noexcept;
    /// Whether the package is whole: false for one that was read from a text without its closing
    /// line, whose last part may lack its end; true for one that a program made.
    bool isComplete() const noexcept;
    /// Whether there is at least one part.
    bool hasParts() const noexcept { return getPartCount() != 0; }
    /// The part at `position`, shared with the package; `TzXmlBoundsError` beyond the last one.
    TzMimePart getPart(std::size_t position) const;
    /// Position of the first part at or after `start` with a header equal to `header`; `NotFound`
    /// if none matches. For Content-ID and Content-Location O(log n) after the first search since
    /// a change, for others linear in the number of headers.
    std::size_t findPart(const TzMimeHeader& header, std::size_t start = 0) const;
    /// Position of the first part with that Content-ID, given without angle brackets; `NotFound` if
    /// no part has it. Like `findPart`, without making a header.
    std::size_t findPartById(std::string_view id) const;
    /// Position of the first part with that Content-Location; `NotFound` if no part has it. Like
    /// `findPart`, without making a header.
    std::size_t findPartByLocation(std::string_view uri) const;
    /// Position of the first part whose Content-ID or Content-Location, each the first of its
    /// label, is longer than `length` bytes; `NotFound` without one. Linear in the number of
    /// parts.
    std::size_t findLongName(std::size_t length) const;
    /// Position of the root part (RFC 2387): the part with the Content-ID that the parameter
    /// "start" of the Content-Type header names, the first part without that parameter; `NotFound`
    /// if it is absent. Costs what `findPart` costs.
    std::size_t findRootPart() const;
    /// Adds `part` as the last one and shares it. A package is added as it is now: as one part that
    /// holds its text.
    void insertPart(const TzMimePart& part);
    /// Inserts `part` before the one at `position`, at the end when that is the number of parts;
    /// `TzXmlBoundsError` beyond that. A package is added as one part that holds its text.
    void insertPartAt(std::size_t position, const TzMimePart& part);
    /// Removes every part at or after `from` that stands earlier in the package as well; handles to
    /// one part are the same part. O(n log n) in the number of parts.
    void removeRepeatedParts(std::size_t from = 0);

private:
    bool holdsPackage() const noexcept override;
    const TzMimeParts* parts() const noexcept;
    TzMimeParts& ownParts();
};
