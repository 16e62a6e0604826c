// SPDX-License-Identifier: MIT
#include <soap/TzSoapBody.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapWriter.h>
#include <tz/xml/TzXmlStringWriter.h>

namespace {

/// The text that a new writer produces for `element`.
template <typename Element> TzCString textOf(const Element& element) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    element.acceptVisitor(writer);
    return text.takeString();
}

} // namespace

TzCString TzSoapHeader::asString() const { return textOf(*this); }

TzCString TzSoapBody::asString() const { return textOf(*this); }

TzCString TzSoapFault::asString() const { return textOf(*this); }

TzCString TzSoapType::asString() const { return textOf(*this); }
