// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/mime/TzMimeHeader.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzSink.h>
#include <tz/xml/TzXmlText.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

class TzMimeOutput;
class TzMimePartBody;

/// A MIME part: header lines and a body of bytes.
///
/// A handle: copies share one part, so a change through one is seen through all. An empty part
/// takes no memory; the first change gives it a part. Parts of a package that was
/// read share its text, which lives as long as one of them. Changes need the part for themselves;
/// constant members may be called on several threads at once.
class TZ_PLATFORM_API TzMimePart : public TzHandleBase {
public:
    /// What `findHeader` and `TzMimeMultipart::findPart` return when nothing matches.
    static constexpr std::size_t NotFound = static_cast<std::size_t>(-1);

    /// A part without headers and with an empty body; allocates nothing.
    TzMimePart() noexcept;
    TzMimePart(const TzMimePart&) noexcept = default;
    /// Takes the part over; `other` is empty afterwards.
    TzMimePart(TzMimePart&& other) noexcept = default;
    TzMimePart& operator=(const TzMimePart&) noexcept = default;
    /// Takes the part over; `other` is empty afterwards.
    TzMimePart& operator=(TzMimePart&& other) noexcept = default;
    ~TzMimePart() override;

    /// A part to send: `bytes`, taken over, of the media type `type` such as "image/png", which
    /// references find by `id`, with or without angle brackets; "" gives no Content-ID. The bytes
    /// travel as they are ("binary").
    static TzMimePart make(TzCString bytes, std::string_view type, std::string_view id);
    /// A part to send: `bytes`, taken over; `TzXmlBadArgError` for a null pointer.
    static TzMimePart make(TzCString bytes, TzXmlCharacters auto type, TzXmlCharacters auto id) {
        return make(std::move(bytes), TzXmlUtils::requireText(type), TzXmlUtils::requireText(id));
    }

    /// The number of headers.
    std::size_t getHeaderCount() const noexcept;
    /// Position of the first header `label` at or after `start`, ASCII letters compared without
    /// case; `NotFound` if absent. O(log n) for headers that were read, linear in the number
    /// of those inserted.
    std::size_t findHeader(std::string_view label, std::size_t start = 0) const noexcept;
    /// The header at `position`, shared with the part; `TzXmlBoundsError` beyond the last one.
    TzMimeHeader getHeader(std::size_t position) const;
    /// The id that the first Content-ID header states, without its angle brackets; empty without
    /// such a header. Like `TzMimeContentIdHeader`, without making a header.
    std::optional<TzCString> getContentId() const;
    /// The URI that the first Content-Location header states; empty without such a header. Like
    /// `TzMimeContentLocationHeader`, without making a header.
    std::optional<TzCString> getContentLocation() const;
    /// Adds `header` as the last one.
    void insertHeader(const TzMimeHeader& header);

    /// Makes `bytes` the body. Of a package: replaces its parts by those that `bytes` holds, read
    /// and refused as by `fromString`.
    void setBody(const TzCString& bytes);
    /// Makes `bytes` the body without copying it. Of a package: replaces its parts.
    void setBody(TzCString&& bytes);
    /// A copy of the body: the bytes themselves, without a transfer encoding. Of a package: its
    /// parts with the lines that separate them.
    TzCString getBody() const;
    /// The body without copying it, valid until the part is changed or its last handle goes. A body
    /// that was read in a transfer encoding is decoded once and kept. Empty for a package, whose
    /// bytes are in its parts.
    std::string_view getBodyView() const;

    /// The part as MIME text: header lines that end in CRLF and are not folded, an empty line, the
    /// body in the transfer encoding that the first Content-Transfer-Encoding header states. The
    /// text of a package holds its parts, each one after its delimiter line; a part whose body
    /// contains such a line is written in base64 whatever its header says. A package that has parts
    /// and no boundary is written with the boundary "MIME_boundary".
    TzCString asString() const;
    /// Appends what `asString` returns to `text`, whose capacity is used. After an error, which can
    /// only be `std::bad_alloc`, the text is as it was.
    void writeTo(TzCString& text) const;
    /// Writes what `asString` returns to `sink`. A body that is written as it is kept goes there
    /// from where it lies. Beside the part this takes 40 KiB of memory, and the text of a body
    /// whose transfer encoding, quoted-printable, is not the one that it was read in. Errors are
    /// those of the sink, which then got the beginning of the text.
    void writeTo(const TzSink& sink) const;
    /// Makes this handle one to the part that `text` holds; other handles keep what they had. Lines
    /// before the first header line are skipped, unless the text of a part begins with an empty
    /// line. Lines may end in CRLF or LF, also mixed. `TzXmlParseError` with line and column, and
    /// nothing changed, when the value of a header holds a carriage return without a line feed.
    ///
    /// A `TzMimeMultipart` reads a package: what stands before the first delimiter line and after
    /// the closing one is ignored, a body ends before the line end that precedes its delimiter, and
    /// a part that is a package itself stays one part with its text as the body. A missing closing
    /// line is accepted; `TzMimeMultipart::isComplete` says so. Without a boundary in the
    /// Content-Type header there are no parts. Linear in the text.
    void fromString(const TzCString& text);
    /// Makes this handle one to the part that `text` holds, without copying the text.
    void fromString(TzCString&& text);

protected:
    /// A handle to `body`, which may be null.
    explicit TzMimePart(TzMimePartBody* body) noexcept;

    /// The body, null for an empty part.
    TzMimePartBody* body() const noexcept;
    /// The body; an empty part gets one.
    TzMimePartBody& ownBody();

private:
    friend class TzMimePartBody;

    /// Whether a new body of this handle is a package.
    virtual bool holdsPackage() const noexcept;
    void write(TzMimeOutput& out) const;
};
