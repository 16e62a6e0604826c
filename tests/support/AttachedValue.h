// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

/// A message whose only entry, "data", refers to a MIME part.
inline TzSoapMessage messageWithAttachment(TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("<data>"));
    part.setBody("the bytes");
    message.getSoapBody().appendEntry(TzSoapReferenceType(TzXmlName("data"), part));
    return message;
}
