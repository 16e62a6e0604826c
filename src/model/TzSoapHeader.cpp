// SPDX-License-Identifier: MIT
#include <soap/TzSoapHeader.h>

#include <soap/TzSoapHeaderImp.h>

#include <utility>

TzSoapHeader::TzSoapHeader(TzSoapVersion::Version version)
    : TzSoapHeader(new TzSoapHeaderImp(version)) {}

TzSoapHeader::TzSoapHeader(TzSoapHeaderImp* body) noexcept : TzHandleBase(body) {}

TzSoapHeader::~TzSoapHeader() = default;

[[gnu::hot]] TzSoapHeaderImp& TzSoapHeader::body() const {
    return static_cast<TzSoapHeaderImp&>(bodyBase());
}

TzSoapElementImp& TzSoapHeader::elementBody() const { return body(); }

void TzSoapHeader::appendHeaderEntry(TzSoapType entry, bool mustUnderstand) {
    body().appendEntry(std::move(entry), mustUnderstand);
}

void TzSoapHeader::appendHeaderEntry(TzSoapType entry, const TzCString& actor) {
    body().appendEntry(std::move(entry), actor);
}

void TzSoapHeader::appendHeaderEntry(TzSoapType entry, bool mustUnderstand,
                                     const TzCString& actor) {
    body().appendEntry(std::move(entry), mustUnderstand, actor);
}

void TzSoapHeader::prependHeaderEntry(TzSoapType entry, bool mustUnderstand) {
    body().prependEntry(std::move(entry), mustUnderstand);
}

void TzSoapHeader::prependHeaderEntry(TzSoapType entry, const TzCString& actor) {
    body().prependEntry(std::move(entry), actor);
}

void TzSoapHeader::prependHeaderEntry(TzSoapType entry, bool mustUnderstand,
                                      const TzCString& actor) {
    body().prependEntry(std::move(entry), mustUnderstand, actor);
}

TzSoapHeader::iterator TzSoapHeader::insertHeaderEntry(iterator position, TzSoapType entry,
                                                       bool mustUnderstand) {
    return body().insert(position, std::move(entry), mustUnderstand);
}

TzSoapHeader::iterator TzSoapHeader::insertHeaderEntry(iterator position, TzSoapType entry,
                                                       const TzCString& actor) {
    return body().insert(position, std::move(entry), actor);
}

TzSoapHeader::iterator TzSoapHeader::insertHeaderEntry(iterator position, TzSoapType entry,
                                                       bool mustUnderstand,
                                                       const TzCString& actor) {
    return body().insert(position, std::move(entry), mustUnderstand, actor);
}

TzSoapHeader::iterator TzSoapHeader::entriesBegin() { return body().entries().begin(); }

TzSoapHeader::const_iterator TzSoapHeader::entriesBegin() const { return body().entries().begin(); }

TzSoapHeader::iterator TzSoapHeader::entriesEnd() { return body().entries().end(); }

TzSoapHeader::const_iterator TzSoapHeader::entriesEnd() const { return body().entries().end(); }

unsigned int TzSoapHeader::entryCount() const { return body().entries().size(); }

TzSoapHeader::iterator TzSoapHeader::findHeaderEntry(const TzXmlName& name) {
    return body().entries().find(name);
}

TzSoapHeader::const_iterator TzSoapHeader::findHeaderEntry(const TzXmlName& name) const {
    return body().entries().find(name);
}

void TzSoapHeader::removeHeaderEntry(const TzXmlName& name) { body().entries().remove(name); }

TzSoapHeader::iterator TzSoapHeader::removeHeaderEntry(iterator position) {
    return body().entries().remove(position);
}

void TzSoapHeader::removeAllHeaderEntries(const TzXmlName& name) {
    body().entries().removeAll(name);
}

void TzSoapHeader::clearHeaderEntries() { body().entries().clear(); }

TzSoapHeader TzSoapHeader::copy() const { return TzSoapHeader(body().clone()); }

bool operator==(const TzSoapHeader& left, const TzSoapHeader& right) {
    return left.body() == right.body();
}
