// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlProlog.h>

/// Receives the events of a parser (`TzXmlSAXParser`). What it throws ends the parse.
class TZ_PLATFORM_API TzXmlContentHandler {
public:
    /// An element starts; `attributes` holds its attributes and namespace declarations in document
    /// order.
    virtual void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) = 0;
    /// An element ends.
    virtual void endElement(const TzXmlName& name) = 0;
    /// The whole text between two tags, white space included; for an element without any content
    /// the empty text.
    virtual void characters(const TzCString& text) = 0;
    /// The XML declaration; does nothing here.
    virtual void prolog(const TzXmlProlog& prolog);
    virtual ~TzXmlContentHandler();

protected:
    TzXmlContentHandler() = default;
    TzXmlContentHandler(const TzXmlContentHandler&) = default;
    TzXmlContentHandler& operator=(const TzXmlContentHandler&) = default;
};
