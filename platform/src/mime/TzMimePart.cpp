// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimePart.h>

#include "mime/TzMimePartBody.h"
#include "mime/TzMimePartWriter.h"
#include "mime/TzMimeText.h"
#include "mime/TzMimeTransferEncoding.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/tools/TzTextMark.h>
#include <tz/xml/TzXmlBoundsError.h>

#include <memory>
#include <utility>

TzMimePart::TzMimePart() noexcept : TzHandleBase(nullptr) {}

TzMimePart::TzMimePart(TzMimePartBody* body) noexcept : TzHandleBase(body) {}

TzMimePart::~TzMimePart() = default;

TzMimePart TzMimePart::make(TzCString bytes, std::string_view type, std::string_view id) {
    TzMimePart part;
    part.insertHeader(TzMimeHeader(TzMimeContentTypeHeader::Label, TzCString(type)));
    part.insertHeader(TzMimeHeader(TzMimeTransferEncoding::Label, "binary"));
    if (!id.empty()) {
        part.insertHeader(TzMimeContentIdHeader(TzCString(id)));
    }
    part.setBody(std::move(bytes));
    return part;
}

TzMimePartBody* TzMimePart::body() const noexcept {
    return static_cast<TzMimePartBody*>(bodyPointer());
}

bool TzMimePart::holdsPackage() const noexcept { return false; }

TzMimePartBody& TzMimePart::ownBody() {
    if (body() == nullptr) {
        TzMimePart::operator=(TzMimePartBody::make(holdsPackage()));
    }
    return *body();
}

std::size_t TzMimePart::getHeaderCount() const noexcept {
    return body() != nullptr ? body()->headers().count() : 0;
}

std::size_t TzMimePart::findHeader(std::string_view label, std::size_t start) const noexcept {
    return body() != nullptr ? body()->headers().find(label, start) : NotFound;
}

TzMimeHeader TzMimePart::getHeader(std::size_t position) const {
    if (position >= getHeaderCount()) {
        throw TzXmlBoundsError(TzMessage("the part has no such header"));
    }
    return body()->headers().at(position);
}

std::optional<TzCString> TzMimePart::getContentId() const {
    return body() != nullptr ? body()->headers().comparable(TzMimeContentIdHeader::Label)
                             : std::nullopt;
}

std::optional<TzCString> TzMimePart::getContentLocation() const {
    return body() != nullptr ? body()->headers().comparable(TzMimeContentLocationHeader::Label)
                             : std::nullopt;
}

void TzMimePart::insertHeader(const TzMimeHeader& header) { ownBody().insertHeader(header); }

void TzMimePart::setBody(const TzCString& bytes) { setBody(TzCString(bytes)); }

void TzMimePart::setBody(TzCString&& bytes) { ownBody().setBytes(std::move(bytes)); }

TzCString TzMimePart::getBody() const {
    if (body() == nullptr) {
        return {};
    }
    return body()->isPackage() ? TzMimePartWriter(*body()).writeBody() : body()->copyBytes();
}

std::string_view TzMimePart::getBodyView() const {
    return body() != nullptr ? body()->bytes() : std::string_view();
}

TzCString TzMimePart::asString() const {
    TzCString text;
    writeTo(text);
    return text;
}

void TzMimePart::writeTo(TzCString& text) const {
    TzTextMark mark(text);
    TzMimeOutput out(text);
    write(out);
    mark.keep();
}

void TzMimePart::writeTo(const TzSink& sink) const {
    TzMimeOutput out(sink);
    write(out);
}

void TzMimePart::write(TzMimeOutput& out) const {
    if (body() != nullptr) {
        TzMimePartWriter(*body()).write(out);
    } else {
        out.write(TzMimeText::LineEnd);
        out.finish();
    }
}

void TzMimePart::fromString(const TzCString& text) { fromString(TzCString(text)); }

void TzMimePart::fromString(TzCString&& text) {
    TzMimePart read = TzMimePartBody::make(holdsPackage());
    read.body()->readText(std::make_shared<const TzCString>(std::move(text)));
    TzMimePart::operator=(std::move(read));
}
