// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapWriter.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/mime/TzMimeTextType.h>
#include <tz/mime/TzMimeVersionHeader.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "mime/TzSoapAttachmentFinder.h"
#include "model/TzSoapMessageForm.h"
#include "output/TzSoapWriteText.h"
#include "reading/TzSoapErrorDetail.h"

#include <typeinfo>
#include <utility>

namespace {

constexpr char RootId[] = "<soap.xml@mime.representation>";
constexpr char Boundary[] = "MIME_boundary";
constexpr char RootType[] = "text/xml";

/// Makes `package` a multipart/related one, keeping its boundary and its start; returns the start.
TzCString describe(TzMimeMultipart& package) {
    const std::size_t position = package.findHeader(TzMimeContentTypeHeader::Label);
    if (position == TzMimePart::NotFound) {
        package.insertHeader(TzMimeContentTypeHeader(
            TzMimeMultipartRelatedType(TzCString(), RootType, RootId, Boundary)));
        return RootId;
    }
    // Shared with the header, which changes with it.
    TzMimeMultipartRelatedType type(
        TzMimeContentTypeHeader(package.getHeader(position)).getContentType());
    if (type.getBoundary().empty()) {
        type.setBoundary(Boundary);
    }
    type.setType(RootType);
    if (type.getStart().empty()) {
        type.setStart(RootId);
    }
    return type.getStart();
}

/// The part that holds the envelope.
TzMimePart rootPart(const TzCString& id, TzCString envelope) {
    TzMimePart part;
    part.insertHeader(TzMimeContentTypeHeader(TzMimeTextType("xml", "UTF-8")));
    if (!id.empty()) {
        part.insertHeader(TzMimeContentIdHeader(id));
    }
    part.setBody(std::move(envelope));
    return part;
}

[[noreturn]] void refusePackage(const TzCatMsg* reason, const TzCString& detail) {
    TzThrow(tzWithDetail(TzXmlParseError(TzMessage(reason), TzCString(), 0, 0), detail));
}

/// Puts the envelope in front of the parts it refers to and says what the package is.
void complete(TzMimeMultipart& package, TzCString envelope) {
    const TzCString id = describe(package);
    package.insertPartAt(0, rootPart(id, std::move(envelope)));
}

} // namespace

bool TzSoapMessage::hasAttachments() const {
    TzSoapAttachmentFinder finder;
    acceptVisitor(finder);
    return finder.found();
}

bool TzSoapMessage::hasUserDefinedValues() const {
    TzSoapAttachmentFinder finder;
    acceptVisitor(finder);
    return finder.foundUserDefined();
}

TzCString TzSoapMessage::asString() const {
    // A derived message may look for attachments and make its package in its own way.
    const bool derived = isDerived();
    if (derived && hasAttachments()) {
        return asMimeMultipart().asString();
    }
    TzXmlStringWriter envelope;
    TzMimeMultipart package;
    TzSoapWriter writer(&envelope, &package);
    acceptVisitor(writer);
    // Most messages need no second look: those that led to a part on the way, and those that were
    // written in full and led to none.
    const bool known = writer.attached() || (!package.hasParts() && writer.wroteAll());
    if (derived || !(known ? writer.attached() : hasAttachments())) {
        return envelope.takeString();
    }
    package.insertHeader(TzMimeVersionHeader());
    complete(package, envelope.takeString());
    return package.asString();
}

TzMimeMultipart TzSoapMessage::asMimeMultipart() const {
    TzMimeMultipart package;
    package.insertHeader(TzMimeVersionHeader());
    return asMimeMultipart(package);
}

TzMimeMultipart TzSoapMessage::asMimeMultipart(TzMimeMultipart& multipart) const {
    TzXmlStringWriter envelope;
    TzSoapWriter writer(&envelope, &multipart);
    acceptVisitor(writer);
    complete(multipart, envelope.takeString());
    return multipart;
}

void TzSoapMessage::extract(const TzCString& text) {
    if (!TzSoapUtils::isMimeMultipart(text)) {
        return body().extract(text);
    }
    extractPackage(text);
}

void TzSoapMessage::extract(std::string_view text) {
    if (isDerived()) {
        return extract(static_cast<const TzCString&>(TzCString(text)));
    }
    if (!tzSoapIsMimeMultipart(text)) {
        return body().extractEnvelope(text);
    }
    extractPackage(TzCString(text));
}

void TzSoapMessage::extract(TzCString&& text) {
    if (isDerived() || !TzSoapUtils::isMimeMultipart(text)) {
        return extract(static_cast<const TzCString&>(text));
    }
    extractPackage(std::move(text));
}

void TzSoapMessage::extract(const char* text) { extract(TzXmlUtils::requireText(text)); }

void TzSoapMessage::extractPackage(TzCString text) {
    TzMimeMultipart package;
    package.fromString(std::move(text));
    body().extract(package);
}

bool TzSoapMessage::isDerived() const noexcept { return typeid(*this) != typeid(TzSoapMessage); }

const TzMimeMultipart& TzSoapMessage::getMimeMultipart() const { return body().getMimeMultipart(); }

void TzSoapMessage::extract(const TzMimeMultipart& multipart) { body().extract(multipart); }

void TzSoapMessageImp::extract(const TzMimeMultipart& multipart) {
    // The caller's handle may be the one that is replaced.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const TzMimeMultipart package = multipart;
    const std::size_t type = package.findHeader(TzMimeContentTypeHeader::Label);
    if (type == TzMimePart::NotFound) {
        refusePackage(tzsoap_MIME_NOT_MULTIPART(), "there is no Content-Type header");
    }
    multipart_ = package;
    const std::size_t root = package.findRootPart();
    if (root == TzMimePart::NotFound) {
        refusePackage(tzsoap_NO_MIME_SOAP_BODY_PART(),
                      TzSoapErrorDetail::ofHeader(TzMimeContentTypeHeader::Label,
                                                  package.getHeader(type).getValue()));
    }
    try {
        parseEnvelope(package.getPart(root).getBodyView());
    } catch (Tzxmsg& error) {
        error.addDetail("in the root part of the package");
        throw;
    }
}
