// SPDX-License-Identifier: MIT
#include "UseLibrary.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersionConverter.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlError.h>

#include <cstdio>
#include <exception>
#include <string>
#include <utility>

#include <unistd.h>

namespace {

TzSoapMessage build(TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    const TzSoapSimpleType number("number", 5, TzSoapType::xsdInt, true);
    TzSoapCompositeType record("record");
    record.setIdAttribute("an id of more than fifteen letters");
    record.appendChild(number);
    TzSoapCompactArrayType compact("xsd:int", 2, 0);
    compact[1] = number;
    TzSoapSparseArrayType sparse("xsd:int", 9);
    sparse[7] = number;
    TzSoapBody& body = message.getSoapBody();
    body.appendEntry(record);
    body.appendEntry(compact);
    body.appendEntry(sparse);
    body.appendEntry(TzSoapReferenceType("reference", record));
    message.getSoapHeader().appendHeaderEntry(
        TzSoapMisunderstoodType(TzXmlName("block", TzXmlNamespace("p", "urn:p"))), true);
    TzSoapFault& fault = body.getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.setReason("no reason");
    return message;
}

TzSoapMessage withAttachment(TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("picture"));
    part.setBody("bytes");
    message.getSoapBody().appendEntry(TzSoapReferenceType("attached", part));
    return message;
}

TzCString serialize(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

TzCString convert(TzSoapMessage message) {
    const bool latest = message.getVersion() == TzSoapVersion::getLatestVersion();
    TzSoapVersionConverter(latest ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2).convert(message);
    return message.asString();
}

TzCString readAndWrite(const TzCString& text) {
    TzSoapMessage message;
    message.extract(text);
    return message.copy().asString();
}

TzCString errorText() {
    TzSoapMessage message;
    try {
        message.extract(TzCString("<Envelope xmlns='urn:unknown'/>"));
    } catch (const TzXmlError& error) {
        return error.asString();
    }
    return "none";
}

/// All that the library says about messages of `version`.
TzCString say(TzSoapVersion::Version version) {
    const TzSoapMessage message = build(version);
    TzCString text = message.asString() + serialize(message) + readAndWrite(message.asString());
    text += convert(message.copy());
    text += readAndWrite(withAttachment(version).asString());
    text += message.getSoapVersion().getSoapRole(TzSoapVersion::Next);
    text += std::as_const(message).getSoapBody().getName().asString() + TzSoapUtils::ISO8601Format;
    return text + errorText();
}

} // namespace

namespace {

/// What the library said first; used when the process has nearly ended, so no object that goes.
const std::string* first = nullptr;

} // namespace

void endUse() {
    delete first;
    first = nullptr;
}

void useLibrary(const char* place) {
    if (first == nullptr) {
        first = new std::string(say(TzSoapVersion::V1_1) + say(TzSoapVersion::V1_2));
    }
    std::string failure;
    try {
        if (say(TzSoapVersion::V1_1) + say(TzSoapVersion::V1_2) != *first) {
            failure = "other texts than before";
        }
    } catch (const std::exception& error) {
        failure = error.what();
    }
    if (!failure.empty()) {
        std::fprintf(stderr, "%s: %s\n", place, failure.c_str());
        _exit(1);
    }
}
