// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeMultipart.h>

#include "mime/TzMimePartBody.h"
#include "mime/TzMimeParts.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/xml/TzXmlBoundsError.h>

#include <utility>

TzMimeMultipart::TzMimeMultipart() noexcept = default;

TzMimeMultipart::~TzMimeMultipart() = default;

bool TzMimeMultipart::holdsPackage() const noexcept { return true; }

const TzMimeParts* TzMimeMultipart::parts() const noexcept {
    return body() != nullptr && body()->isPackage() ? &body()->parts() : nullptr;
}

TzMimeParts& TzMimeMultipart::ownParts() {
    if (parts() == nullptr) {
        // A plain part was assigned through TzMimePart&: other handles keep it, this one does not.
        TzMimePart package = TzMimePartBody::make(true);
        if (body() != nullptr) {
            TzMimePartBody::of(package)->assignHeaders(*body());
        }
        TzMimePart::operator=(std::move(package));
    }
    return body()->parts();
}

std::size_t TzMimeMultipart::getPartCount() const noexcept {
    return parts() != nullptr ? parts()->all().size() : 0;
}

bool TzMimeMultipart::isComplete() const noexcept {
    return parts() == nullptr || parts()->isComplete();
}

TzMimePart TzMimeMultipart::getPart(std::size_t position) const {
    if (position >= getPartCount()) {
        throw TzXmlBoundsError(TzMessage("the package has no such part"));
    }
    return parts()->all()[position];
}

std::size_t TzMimeMultipart::findPart(const TzMimeHeader& header, std::size_t start) const {
    return parts() != nullptr ? parts()->find(header, start) : NotFound;
}

std::size_t TzMimeMultipart::findPartById(std::string_view id) const {
    return parts() != nullptr ? parts()->findById(id) : NotFound;
}

std::size_t TzMimeMultipart::findPartByLocation(std::string_view uri) const {
    return parts() != nullptr ? parts()->findByLocation(uri) : NotFound;
}

std::size_t TzMimeMultipart::findLongName(std::size_t length) const {
    for (std::size_t position = 0; position < getPartCount(); ++position) {
        const TzMimeHeaderList& headers = TzMimePartBody::of(parts()->all()[position])->headers();
        if (headers.isLonger(TzMimeContentIdHeader::Label, length) ||
            headers.isLonger(TzMimeContentLocationHeader::Label, length)) {
            return position;
        }
    }
    return NotFound;
}

std::size_t TzMimeMultipart::findRootPart() const {
    const std::size_t position = findHeader(TzMimeContentTypeHeader::Label);
    if (position != NotFound) {
        const TzMimeMultipartRelatedType type(
            TzMimeContentTypeHeader(getHeader(position)).getContentType());
        if (const TzCString start = type.getStart(); !start.empty()) {
            return findPart(TzMimeContentIdHeader(start));
        }
    }
    return hasParts() ? 0 : NotFound;
}

void TzMimeMultipart::insertPart(const TzMimePart& part) { insertPartAt(getPartCount(), part); }

void TzMimeMultipart::insertPartAt(std::size_t position, const TzMimePart& part) {
    if (position > getPartCount()) {
        throw TzXmlBoundsError(TzMessage("the package has no such place for a part"));
    }
    ownParts().insert(position, part);
}

void TzMimeMultipart::removeRepeatedParts(std::size_t from) {
    if (from < getPartCount()) {
        ownParts().removeRepeats(from);
    }
}
