// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayTypeHandler.h>

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUtils.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

#include <utility>

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapArrayTypeHandler";

} // namespace

TzSoapArrayTypeHandler::TzSoapArrayTypeHandler() = default;

TzSoapArrayTypeHandler::~TzSoapArrayTypeHandler() = default;

void TzSoapArrayTypeHandler::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                      const TzCString& type, const TzCString& size,
                                      TzSoapParseContext* context,
                                      TzSoapGenericTypeHandler* owner) {
    name_ = name;
    attributes_ = attributes;
    type_ = type;
    size_ = size;
    owner_ = owner;
    acceptEvents(context);
}

void TzSoapArrayTypeHandler::startElement(const TzXmlName& name,
                                          const TzXmlAttributeSet& attributes) {
    const TzXmlName& position = TzSoapVersion::getSoapAttributeName(TzSoapVersion::Position,
                                                                    reading(Unit, 37).getVersion());
    if (attributes.find(position) != attributes.end()) {
        finishStartElement(TzSoapSparseArrayImp::forReading(name_, type_, size_), name, attributes);
    } else {
        finishStartElement(TzSoapCompactArrayImp::forReading(name_, type_, size_, *context()), name,
                           attributes);
    }
}

void TzSoapArrayTypeHandler::endElement(const TzXmlName&) {
    static_cast<void>(reading(Unit, 47));
    populateArray(TzSoapCompactArrayImp::withoutMembers(name_, type_, size_));
    declineEvents();
}

void TzSoapArrayTypeHandler::finishStartElement(const TzSoapArrayType& array,
                                                const TzXmlName& childName,
                                                const TzXmlAttributeSet& childAttributes) {
    TzSoapParseContext* reading = context();
    populateArray(array);
    declineEvents();
    TzSoapAccess::body(array).doStart(childName, childAttributes, reading);
}

void TzSoapArrayTypeHandler::populateArray(const TzSoapArrayType& array) {
    TzSoapArrayTypeImp& body = TzSoapAccess::body(array);
    TzSoapReadingState& reading = TzSoapAccess::reading(*context());
    // The declarations on the element may bind the prefix of its type.
    reading.names.open(body);
    TzSoapUtils::copyAttributes(std::move(attributes_), body, context());
    reading.names.close();
    TzSoapUtils::removeAndFixArrayTypeAttributes(&body, reading.version());
    reading.references.fileId(array);
    owner_->addChild(array);
}
