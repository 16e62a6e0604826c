// SPDX-License-Identifier: MIT
#include "mime/TzSoapPackaging.h"

#include <soap/TzSoapMessage.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "model/TzSoapVersionTable.h"
#include "output/TzSoapMessageText.h"

#include <utility>

namespace {

constexpr char RootId[] = "<soap.xml@mime.representation>";

/// Makes `package` a multipart/related one, keeping its boundary and its start; returns the start.
TzCString describe(TzMimeMultipart& package, const TzCString& rootType) {
    const std::size_t position = package.findHeader(TzMimeContentTypeHeader::Label);
    if (position == TzMimePart::NotFound) {
        package.insertHeader(TzMimeContentTypeHeader(TzMimeMultipartRelatedType(
            TzCString(), rootType, RootId, TzMimeMultipartRelatedType::DefaultBoundary)));
        return RootId;
    }
    // Shared with the header, which changes with it.
    TzMimeMultipartRelatedType type(
        TzMimeContentTypeHeader(package.getHeader(position)).getContentType());
    if (type.getBoundary().empty()) {
        type.setBoundary(TzMimeMultipartRelatedType::DefaultBoundary);
    }
    type.setType(rootType);
    if (type.getStart().empty()) {
        type.setStart(RootId);
    }
    return type.getStart();
}

/// The envelope of `message`; the parts that its references refer to go into `parts`.
TzCString writeEnvelope(const TzSoapMessage& message, TzSoapLayout layout, TzMimeMultipart& parts) {
    TzXmlStringWriter envelope;
    TzSoapMessageText::write(message, envelope, layout, &parts);
    return envelope.takeString();
}

/// The part that holds the envelope.
TzMimePart rootPart(const TzCString& rootType, const TzCString& id, TzCString envelope) {
    TzMimePart part;
    TzMimeContentType type(rootType);
    type.setParameter("charset", "UTF-8");
    part.insertHeader(TzMimeContentTypeHeader(type));
    if (!id.empty()) {
        part.insertHeader(TzMimeContentIdHeader(id));
    }
    part.setBody(std::move(envelope));
    return part;
}

} // namespace

TzSoapPackaging::Written TzSoapPackaging::write(const TzSoapMessage& message, TzSoapLayout layout) {
    Written written;
    written.envelope = writeEnvelope(message, layout, written.parts);
    addAttachments(message, written.parts);
    written.parts.removeRepeatedParts();
    return written;
}

void TzSoapPackaging::write(const TzSoapMessage& message, TzSoapLayout layout,
                            TzMimeMultipart& package) {
    TzCString envelope = writeEnvelope(message, layout, package);
    addAttachments(message, package);
    complete(message, package, std::move(envelope));
}

void TzSoapPackaging::addAttachments(const TzSoapMessage& message, TzMimeMultipart& package) {
    const std::size_t first = package.getPartCount();
    for (const TzMimePart& part : message.getAttachments()) {
        package.insertPart(part);
    }
    package.removeRepeatedParts(first);
}

void TzSoapPackaging::complete(const TzSoapMessage& message, TzMimeMultipart& package,
                               TzCString envelope) {
    const TzCString type = TzSoapVersionTable::of(message.getVersion()).habits().packageType;
    const TzCString id = describe(package, type);
    package.insertPartAt(0, rootPart(type, id, std::move(envelope)));
}
