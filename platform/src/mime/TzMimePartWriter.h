// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimeDelimiter.h"
#include "mime/TzMimeOutput.h"
#include "mime/TzMimePartBody.h"

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// Writes a part or package as MIME text.
class TzMimePartWriter {
public:
    /// A writer of `part`, which must not change meanwhile.
    explicit TzMimePartWriter(const TzMimePartBody& part);

    /// Writes the text with the headers to `out`.
    void write(TzMimeOutput& out) const;
    /// The text after the headers; of a package, the parts with the lines that separate them.
    TzCString writeBody() const;

private:
    /// How the body of a part is going to be written.
    struct Plan {
        std::string_view bytes; // what is written
        TzMimeTransferEncoding::Kind encoding = TzMimeTransferEncoding::Kind::Identity;
        bool forced = false; // whether the headers have to be made to state base64
        TzCString kept;      // what `bytes` refers to when the part does not own it
    };

    bool isSeparated() const noexcept { return !delimiter_.isEmpty(); }
    Plan plan(const TzMimePartBody& part) const;
    static std::size_t expectedSize(const TzMimePartBody& part);
    std::size_t expectedSize() const;
    void appendHeaders(TzCString& out) const;
    void appendBoundaryHeader(TzCString& out, std::size_t position) const;
    void writeParts(TzMimeOutput& out) const;
    void writePart(TzMimeOutput& out, const TzMimePartBody& part) const;
    static void appendPartHeaders(TzCString& out, const TzMimePartBody& part, bool forced);
    static void writeBody(TzMimeOutput& out, const Plan& plan);
    static void writeBase64(TzMimeOutput& out, std::string_view bytes);

    const TzMimePartBody& part_;
    TzMimeDelimiter delimiter_; // empty unless the part is a package
    bool ownBoundary_ = false;  // whether the headers lack the boundary
};
