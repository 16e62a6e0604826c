// SPDX-License-Identifier: MIT
#include <soap/TzSoapHeaderImp.h>

#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"

#include <utility>

TzSoapHeaderImp::TzSoapHeaderImp(TzSoapVersion::Version version)
    : TzSoapElementImp(TzSoapVersion::getSoapElementName(TzSoapVersion::Header, version)),
      version_(version) {}

TzSoapHeaderImp::TzSoapHeaderImp(const TzSoapHeaderImp& other)
    : TzSoapElementImp(other), TzBodyBase(other), TzSoapGenericTypeHandler(other),
      version_(other.version_), entries_(other.entries_.copyValues()), wasRead_(other.wasRead_) {}

TzSoapHeaderImp::~TzSoapHeaderImp() = default;

void TzSoapHeaderImp::setVersion(TzSoapVersion::Version version) {
    setName(TzSoapVersion::getSoapElementName(TzSoapVersion::Header, version));
    version_ = version;
}

TzSoapHeaderImp* TzSoapHeaderImp::clone() const { return new TzSoapHeaderImp(*this); }

void TzSoapHeaderImp::clear() {
    clearElement();
    entries_.clear();
    wasRead_ = false;
}

void TzSoapHeaderImp::appendEntry(TzSoapType entry, bool mustUnderstand) {
    insert(entriesEnd(), std::move(entry), mustUnderstand);
}

void TzSoapHeaderImp::appendEntry(TzSoapType entry, const TzCString& actor) {
    insert(entriesEnd(), std::move(entry), actor);
}

void TzSoapHeaderImp::appendEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor) {
    insert(entriesEnd(), std::move(entry), mustUnderstand, actor);
}

void TzSoapHeaderImp::prependEntry(TzSoapType entry, bool mustUnderstand) {
    insert(entriesBegin(), std::move(entry), mustUnderstand);
}

void TzSoapHeaderImp::prependEntry(TzSoapType entry, const TzCString& actor) {
    insert(entriesBegin(), std::move(entry), actor);
}

void TzSoapHeaderImp::prependEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor) {
    insert(entriesBegin(), std::move(entry), mustUnderstand, actor);
}

TzSoapHeaderImp::iterator TzSoapHeaderImp::insert(iterator position, TzSoapType entry,
                                                  bool mustUnderstand) {
    TzSoapAccess::body(entry).setMustUnderstand(mustUnderstand);
    return entries_.insert(position, std::move(entry));
}

TzSoapHeaderImp::iterator TzSoapHeaderImp::insert(iterator position, TzSoapType entry,
                                                  const TzCString& actor) {
    TzSoapAccess::body(entry).setActor(actor);
    return entries_.insert(position, std::move(entry));
}

TzSoapHeaderImp::iterator TzSoapHeaderImp::insert(iterator position, TzSoapType entry,
                                                  bool mustUnderstand, const TzCString& actor) {
    TzSoapAccess::body(entry).setActor(actor);
    return insert(position, std::move(entry), mustUnderstand);
}

bool operator==(const TzSoapHeaderImp& left, const TzSoapHeaderImp& right) {
    return left.entries().sharesValues(right.entries());
}

bool operator!=(const TzSoapHeaderImp& left, const TzSoapHeaderImp& right) {
    return !(left == right);
}
