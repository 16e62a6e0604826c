// SPDX-License-Identifier: MIT
#include "mime/TzMimePartWriter.h"

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimeParts.h"
#include "mime/TzMimeText.h"

#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>

#include <algorithm>
#include <utility>

namespace {

using TzMimeTransferEncoding::Kind;

constexpr std::string_view BoundaryName = "boundary";

/// Prefetches the parts after the one at `at`. No cache holds a large package, and its parts are
/// spread over the memory: the pieces of a part arrive while others are written, each piece one
/// part after the piece that refers to it.
void prefetch(const std::vector<TzMimePart>& parts, std::size_t at) noexcept {
    if (at + 3 >= parts.size()) {
        return;
    }
    TzMimePartBody::of(parts[at + 1])->headers().prefetchHeaders();
    const TzMimePartBody& second = *TzMimePartBody::of(parts[at + 2]);
    second.headers().prefetch();
    TzMimePrefetch::prefetch(second.stored().data(), second.stored().size());
    TzMimePrefetch::prefetch(TzMimePartBody::of(parts[at + 3]), sizeof(TzMimePartBody));
}

} // namespace

TzMimePartWriter::TzMimePartWriter(const TzMimePartBody& part)
    : part_(part), delimiter_(part.isPackage() ? part.boundary() : TzCString()) {
    if (part.isPackage() && delimiter_.isEmpty() && !part.parts().all().empty()) {
        delimiter_ = TzMimeDelimiter(TzMimeMultipartRelatedType::DefaultBoundary);
        ownBoundary_ = true;
    }
}

TzMimePartWriter::Plan TzMimePartWriter::plan(const TzMimePartBody& part) const {
    Plan plan;
    const Kind stated = part.statedEncoding();
    if (stated == part.storedEncoding()) {
        plan.bytes = part.stored(); // as it was read
        if (part.isFreeOf(delimiter_.boundary())) {
            return plan;
        }
    } else if (stated == Kind::Base64) {
        // writeBody encodes it into the output: it cannot contain a delimiter line.
        plan.bytes = part.bytes();
        plan.encoding = Kind::Base64;
    } else {
        TzMimeTransferEncoding::encode(stated, part.bytes(), plan.kept);
    }
    const std::string_view written = plan.kept.empty() ? plan.bytes : plan.kept;
    if (isSeparated() && plan.encoding == Kind::Identity && delimiter_.occursIn(written)) {
        plan.kept.clear();
        plan.bytes = part.bytes();
        plan.encoding = Kind::Base64;
        plan.forced = true;
    }
    return plan;
}

void TzMimePartWriter::write(TzMimeOutput& out) const {
    out.reserve(expectedSize());
    appendHeaders(out.text());
    if (isSeparated()) {
        writeParts(out);
    } else {
        out.text().append(TzMimeText::LineEnd);
        writeBody(out, plan(part_));
    }
    out.finish();
}

TzCString TzMimePartWriter::writeBody() const {
    if (!isSeparated()) {
        return part_.copyBytes();
    }
    TzCString text;
    TzMimeOutput out(text);
    out.reserve(expectedSize());
    writeParts(out);
    return text.erase(0, TzMimeText::LineEnd.size());
}

std::size_t TzMimePartWriter::expectedSize(const TzMimePartBody& part) {
    constexpr std::size_t LineEnds = 16;
    const Kind stated = part.statedEncoding();
    const Kind encoding = stated == part.storedEncoding() ? Kind::Identity : stated;
    return part.headers().writtenSize() + LineEnds +
           TzMimeTransferEncoding::encodedSize(encoding, part.stored().size());
}

std::size_t TzMimePartWriter::expectedSize() const {
    constexpr std::size_t AroundParts = 128; // the closing line, a header for the boundary
    std::size_t size = expectedSize(part_) + AroundParts;
    if (isSeparated()) {
        for (const TzMimePart& part : part_.parts().all()) {
            size += expectedSize(*TzMimePartBody::of(part)) + delimiter_.boundary().size();
        }
    }
    return size;
}

void TzMimePartWriter::appendHeaders(TzCString& out) const {
    const TzMimeHeaderList& headers = part_.headers();
    const std::size_t type =
        ownBoundary_ ? headers.find(TzMimeContentTypeHeader::Label, 0) : TzMimePart::NotFound;
    for (std::size_t position = 0; position < headers.count(); ++position) {
        if (position == type) {
            appendBoundaryHeader(out, position);
        } else {
            headers.append(position, out);
        }
    }
    if (ownBoundary_ && type == TzMimePart::NotFound) {
        TzMimeContentType mixed("multipart", "mixed");
        mixed.setParameter(BoundaryName, TzMimeMultipartRelatedType::DefaultBoundary);
        TzMimeHeaderValue::append(out, TzMimeContentTypeHeader::Label, mixed.asString());
    }
}

void TzMimePartWriter::appendBoundaryHeader(TzCString& out, std::size_t position) const {
    TzCString kept;
    TzMimeContentType type{TzCString(part_.headers().valueAt(position, kept))};
    type.setParameter(BoundaryName, TzMimeMultipartRelatedType::DefaultBoundary);
    TzMimeHeaderValue::append(out, TzMimeContentTypeHeader::Label, type.asString());
}

void TzMimePartWriter::writeParts(TzMimeOutput& out) const {
    const std::vector<TzMimePart>& parts = part_.parts().all();
    for (std::size_t at = 0; at < parts.size(); ++at) {
        prefetch(parts, at);
        delimiter_.append(out.text(), false);
        out.text().append(TzMimeText::LineEnd);
        writePart(out, *TzMimePartBody::of(parts[at]));
    }
    delimiter_.append(out.text(), true);
    out.text().append(TzMimeText::LineEnd);
}

void TzMimePartWriter::writePart(TzMimeOutput& out, const TzMimePartBody& part) const {
    const Plan how = plan(part);
    appendPartHeaders(out.text(), part, how.forced);
    out.text().append(TzMimeText::LineEnd);
    writeBody(out, how);
}

void TzMimePartWriter::appendPartHeaders(TzCString& out, const TzMimePartBody& part, bool forced) {
    const TzMimeHeaderList& headers = part.headers();
    bool stated = !forced;
    for (std::size_t position = 0; position < headers.count(); ++position) {
        if (!forced ||
            !tzEqualIgnoreCase(headers.labelAt(position), TzMimeTransferEncoding::Label)) {
            headers.append(position, out);
        } else if (!std::exchange(stated, true)) {
            TzMimeHeaderValue::append(out, headers.labelAt(position), "base64");
        }
    }
    if (!stated) {
        TzMimeHeaderValue::append(out, TzMimeTransferEncoding::Label, "base64");
    }
}

void TzMimePartWriter::writeBody(TzMimeOutput& out, const Plan& plan) {
    if (!plan.kept.empty()) {
        out.write(plan.kept);
    } else if (plan.encoding == Kind::Base64 && out.hasSink()) {
        writeBase64(out, plan.bytes);
    } else if (plan.encoding == Kind::Identity) {
        out.write(plan.bytes);
    } else {
        TzMimeTransferEncoding::encode(plan.encoding, plan.bytes, out.text());
    }
}

void TzMimePartWriter::writeBase64(TzMimeOutput& out, std::string_view bytes) {
    constexpr std::size_t Lines = 128;
    constexpr std::size_t AtOnce = Lines * TzMimeTransferEncoding::Base64BytesPerLine;
    while (!bytes.empty()) {
        TzMimeTransferEncoding::encode(Kind::Base64, bytes.substr(0, AtOnce), out.text());
        bytes.remove_prefix(std::min(AtOnce, bytes.size()));
        out.text().append(bytes.empty() ? std::string_view() : TzMimeText::LineEnd);
        out.settle();
    }
}
