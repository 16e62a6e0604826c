// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentType.h>

/// The media type of a package whose parts refer to each other (RFC 2387). Threads as for
/// `TzMimeContentType`.
class TZ_PLATFORM_API TzMimeMultipartRelatedType : public TzMimeContentType {
public:
    /// The boundary of a package for which none is set, "MIME_boundary".
    static constexpr char DefaultBoundary[] = "MIME_boundary";

    /// The type multipart/related with these parameters; an empty one is left out.
    TzMimeMultipartRelatedType(const TzCString& startInfo, const TzCString& type,
                               const TzCString& start, const TzCString& boundary);
    /// The type `other`, shared with it: what is set here is set there. Any media type is taken.
    explicit TzMimeMultipartRelatedType(const TzMimeContentType& other) noexcept;
    TzMimeMultipartRelatedType(const TzMimeMultipartRelatedType&) noexcept = default;
    TzMimeMultipartRelatedType(TzMimeMultipartRelatedType&&) noexcept = default;
    TzMimeMultipartRelatedType& operator=(const TzMimeMultipartRelatedType&) noexcept = default;
    TzMimeMultipartRelatedType& operator=(TzMimeMultipartRelatedType&&) noexcept = default;
    ~TzMimeMultipartRelatedType() override;

    /// The text that separates the parts, "" when the type states none.
    TzCString getBoundary() const;
    /// Replaces the boundary; "" removes it.
    void setBoundary(const TzCString& boundary);
    /// The media type of the root part, "" when the type states none.
    TzCString getType() const;
    /// Replaces the media type of the root part; "" removes it.
    void setType(const TzCString& type);
    /// The content id of the root part as it is written, angle brackets included; "" without one.
    TzCString getStart() const;
    /// Replaces the content id of the root part; "" removes it.
    void setStart(const TzCString& start);
    /// The parameter start-info: what the root part's media type needs to know; "" if absent.
    TzCString getStartInfo() const;
    /// Replaces the parameter start-info; "" removes it.
    void setStartInfo(const TzCString& startInfo);
};
