// SPDX-License-Identifier: MIT
#include <soap/TzSoapBody.h>

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapMissingError.h>

#include "model/TzSoapHeldFault.h"

TzSoapBody::TzSoapBody(TzSoapVersion::Version version) : TzSoapBody(new TzSoapBodyImp(version)) {}

TzSoapBody::TzSoapBody(TzSoapBodyImp* body) noexcept : TzHandleBase(body) {}

TzSoapBody::~TzSoapBody() = default;

[[gnu::hot]] TzSoapBodyImp& TzSoapBody::body() const {
    return static_cast<TzSoapBodyImp&>(bodyBase());
}

TzSoapElementImp& TzSoapBody::elementBody() const { return body(); }

TzSoapFault& TzSoapBody::getSoapFault() { return body().getSoapFault(); }

const TzSoapFault& TzSoapBody::getSoapFault() const { return body().getSoapFault(); }

bool TzSoapBody::hasSoapFault() const { return body().hasSoapFault(); }

bool TzSoapBody::hasFaultElement() const { return body().hasFaultElement(); }

TzSoapBody::iterator TzSoapBody::entriesBegin() { return body().entriesBegin(); }

TzSoapBody::const_iterator TzSoapBody::entriesBegin() const { return body().entriesBegin(); }

TzSoapBody::iterator TzSoapBody::entriesEnd() { return body().entriesEnd(); }

TzSoapBody::const_iterator TzSoapBody::entriesEnd() const { return body().entriesEnd(); }

unsigned int TzSoapBody::entryCount() const { return body().entryCount(); }

TzSoapType TzSoapBody::getFirstEntry() const {
    if (entryCount() == 0) {
        throw TzSoapMissingError(TzCString(), "the body has no entry" + tzSoapHeldFault(*this));
    }
    return *entriesBegin();
}

void TzSoapBody::appendEntry(const TzSoapType& entry) { body().appendEntry(entry); }

void TzSoapBody::prependEntry(const TzSoapType& entry) { body().prependEntry(entry); }

TzSoapBody::iterator TzSoapBody::insertEntry(iterator position, const TzSoapType& entry) {
    return body().insert(position, entry);
}

TzSoapBody::iterator TzSoapBody::findEntry(const TzXmlName& name) { return body().findEntry(name); }

TzSoapBody::const_iterator TzSoapBody::findEntry(const TzXmlName& name) const {
    return body().findEntry(name);
}

void TzSoapBody::removeEntry(const TzXmlName& name) { body().entries().remove(name); }

TzSoapBody::iterator TzSoapBody::removeEntry(iterator position) {
    return body().removeEntry(position);
}

void TzSoapBody::removeAllEntries(const TzXmlName& name) { body().removeAllEntries(name); }

void TzSoapBody::clearEntries() { body().clearEntries(); }

TzSoapBody TzSoapBody::copy() const { return TzSoapBody(body().clone()); }

bool operator==(const TzSoapBody& left, const TzSoapBody& right) {
    return left.body() == right.body();
}
