// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeVersionHeader.h>
#include <tz/tools/TzMessage.h>
#include <tz/tools/TzTextMark.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlOutputWriter.h>

#include "mime/TzSoapAttachmentFinder.h"
#include "mime/TzSoapCharset.h"
#include "mime/TzSoapPackaging.h"
#include "model/TzSoapMessageForm.h"
#include "output/TzSoapMessageText.h"
#include "reading/TzSoapErrorDetail.h"

#include <optional>
#include <string>
#include <typeinfo>
#include <utility>

namespace {

/// The media type that `part` states, text/plain without one.
TzMimeContentType contentTypeOf(const TzMimePart& part) {
    const std::size_t position = part.findHeader(TzMimeContentTypeHeader::Label);
    return position == TzMimePart::NotFound
               ? TzMimeContentType()
               : TzMimeContentTypeHeader(part.getHeader(position)).getContentType();
}

[[noreturn]] void refusePackage(const TzMessage& reason, const TzCString& detail) {
    TzThrow(tzWithDetail(TzXmlParseError(reason, TzCString(), 0, 0), detail));
}

/// Refuses a package that the limits do not allow.
void checkLimits(const TzMimeMultipart& package, const TzSoapReadLimits& limits) {
    if (!package.isComplete() && !limits.incompletePackages) {
        refusePackage(TzMessage("the package is cut short: it has no closing line"), {});
    }
    const std::optional<TzCString> location = package.getContentLocation();
    if ((location && location->size() > limits.uriLength) ||
        package.findLongName(limits.uriLength) != TzMimePart::NotFound) {
        refusePackage(TzMessage("a Content-ID or Content-Location is too long"),
                      "the limit is " + std::to_string(limits.uriLength));
    }
}

} // namespace

bool TzSoapMessage::hasAttachments() const {
    if (!getAttachments().empty()) {
        return true;
    }
    TzSoapAttachmentFinder finder(TzSoapAttachmentFinder::Targets::LeftOut);
    acceptVisitor(finder);
    return finder.found();
}

bool TzSoapMessage::hasUserDefinedValues() const {
    TzSoapAttachmentFinder finder(TzSoapAttachmentFinder::Targets::Visited);
    acceptVisitor(finder);
    return finder.foundUserDefined();
}

TzCString TzSoapMessage::asString() const { return asText(TzSoapLayout::Indented); }

TzCString TzSoapMessage::asText(TzSoapLayout layout) const {
    TzCString text;
    writeTo(text, layout);
    return text;
}

[[gnu::hot]] void TzSoapMessage::writeTo(TzCString& text, TzSoapLayout layout) const {
    // A derived message may override how it finds attachments and makes its package.
    const bool derived = isDerived();
    if (derived && hasAttachments()) {
        return asMimeMultipart().writeTo(text);
    }
    TzTextMark mark(text);
    TzXmlOutputWriter envelope(text);
    TzMimeMultipart package;
    const std::optional<bool> known = TzSoapMessageText::write(*this, envelope, layout, &package);
    envelope.finish();
    // Most messages need no second look.
    const bool attached = !getAttachments().empty() || (known ? *known : hasAttachments());
    if (!derived && attached) {
        TzCString root = text.substr(mark.size());
        text.resize(mark.size());
        package.insertHeader(TzMimeVersionHeader());
        TzSoapPackaging::addAttachments(*this, package);
        TzSoapPackaging::complete(*this, package, std::move(root));
        package.writeTo(text);
    }
    mark.keep();
}

void TzSoapMessage::writeTo(const TzSink& sink, TzSoapLayout layout) const {
    // The header of a package comes first, so whether it is one must be known before.
    if (!hasAttachments()) {
        TzXmlOutputWriter envelope(sink);
        TzSoapMessageText::write(*this, envelope, layout, nullptr);
        envelope.finish();
    } else if (isDerived()) {
        asMimeMultipart().writeTo(sink);
    } else {
        TzMimeMultipart package;
        package.insertHeader(TzMimeVersionHeader());
        TzSoapPackaging::write(*this, layout, package);
        package.writeTo(sink);
    }
}

TzMimeMultipart TzSoapMessage::asMimeMultipart() const {
    TzMimeMultipart package;
    package.insertHeader(TzMimeVersionHeader());
    return asMimeMultipart(package);
}

TzMimeMultipart TzSoapMessage::asMimeMultipart(TzMimeMultipart& multipart) const {
    TzSoapPackaging::write(*this, TzSoapLayout::Indented, multipart);
    return multipart;
}

TzMimeMultipart TzSoapMessage::asPackage() const { return asPackage(TzSoapLayout::Indented); }

TzMimeMultipart TzSoapMessage::asPackage(TzSoapLayout layout) const {
    TzMimeMultipart package;
    if (isDerived()) {
        package = asMimeMultipart();
    } else {
        package.insertHeader(TzMimeVersionHeader());
        TzSoapPackaging::write(*this, layout, package);
    }
    package.removeRepeatedParts();
    return package;
}

void TzSoapMessage::addAttachment(const TzMimePart& part) { body().addAttachment(part); }

void TzSoapMessage::addReceivedAttachments() {
    const TzMimeMultipart& received = getMimeMultipart();
    const std::size_t root = received.findRootPart();
    for (std::size_t position = 0; position < received.getPartCount(); ++position) {
        if (position != root) {
            addAttachment(received.getPart(position));
        }
    }
}

const std::vector<TzMimePart>& TzSoapMessage::getAttachments() const {
    return body().getAttachments();
}

void TzSoapMessage::clearAttachments() { body().clearAttachments(); }

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
        refusePackage(TzMessage(tzsoap_MIME_NOT_MULTIPART()), "there is no Content-Type header");
    }
    multipart_ = package;
    const std::size_t root = package.findRootPart();
    if (root == TzMimePart::NotFound) {
        refusePackage(TzMessage(tzsoap_NO_MIME_SOAP_BODY_PART()),
                      TzSoapErrorDetail::ofHeader(TzMimeContentTypeHeader::Label,
                                                  package.getHeader(type).getValue()));
    }
    checkLimits(package, readLimits_);
    parseRoot(package.getPart(root));
}

void TzSoapMessageImp::parseRoot(const TzMimePart& part) {
    const std::optional<TzCString> declared =
        TzSoapCharset::declare(contentTypeOf(part), part.getBodyView());
    try {
        parseEnvelope(declared ? *declared : part.getBodyView());
    } catch (Tzxmsg& error) {
        error.addDetail("in the root part of the package");
        throw;
    }
}
