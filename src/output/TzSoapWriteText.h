// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapWriter.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlStringWriter.h>

/// The text that a writer of its own produces for `element` (a message, header, body, fault or
/// value).
template <typename Element> TzCString tzSoapWriteText(const Element& element) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    element.acceptVisitor(writer);
    return text.takeString();
}
