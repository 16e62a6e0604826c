// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <tz/thread/TzTSpares.h>
#include <tz/xml/TzXmlSAXParser.h>

#include <memory>

/// What reading needs. A message has it while it is read, and afterwards when that failed; the next
/// message on the thread takes it over.
struct TzSoapMessageImp::Parsing {
    TzXmlSAXParser parser;
    TzSoapParseContext context;

    /// What an earlier message has left, or a new one.
    static std::unique_ptr<Parsing> take();
    /// Leaves `parsing`, which has read a text to its end, to the next message, unless an
    /// application has got hold of parts of it.
    static void leave(std::unique_ptr<Parsing> parsing) noexcept;
};
