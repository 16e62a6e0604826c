// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/xml/TzXmlContentHandler.h>

class TzSoapParseContext;

/// Takes part in the reading of a message: receives the parser's events while its element is open.
///
/// The handlers of open elements form a stack linked by `previous`; exactly the innermost one
/// receives. Belongs to one reading on one thread.
class TZSOAP_API TzSoapContentHandler : public TzXmlContentHandler {
public:
    /// Does nothing here.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// Does nothing here.
    void endElement(const TzXmlName& name) override;
    /// Has no use for text: what is not white space is reported as left out, see
    /// `TzSoapMessage::getDroppedText`.
    void characters(const TzCString& text) override;
    ~TzSoapContentHandler() override;

protected:
    TzSoapContentHandler() = default;
    /// Copies nothing: a copy takes part in no reading.
    TzSoapContentHandler(const TzSoapContentHandler&) noexcept : TzXmlContentHandler() {}
    /// Copies nothing.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): there is nothing to handle
    TzSoapContentHandler& operator=(const TzSoapContentHandler&) noexcept { return *this; }

    /// Makes this handler the one that receives, in the reading of `context`. `TzXmlInternalError`
    /// INTERNAL_ERROR naming "..\TzSoapContentHandler", and nothing changed, without a context or
    /// when that has no parser.
    void acceptEvents(TzSoapParseContext* context);
    /// Makes the handler that received before this one receive again.
    void declineEvents();
    /// The reading this handler takes part in, null while it does not receive.
    TzSoapParseContext* context() const noexcept { return context_; }
    /// The reading this handler takes part in. While it does not receive, so that no event can have
    /// come from a parser, `TzXmlInternalError` INTERNAL_ERROR naming `unit` and `line`.
    TzSoapParseContext& reading(const char* unit, int line) const {
        if (context_ == nullptr) [[unlikely]] {
            refuseEvent(unit, line);
        }
        return *context_;
    }
    /// Throws `TzXmlInternalError` INTERNAL_ERROR naming `unit` and `line`: an event came in a
    /// state in which it cannot.
    [[noreturn]] static void refuseEvent(const char* unit, int line);

private:
    TzXmlContentHandler* previous_ = nullptr;
    TzSoapParseContext* context_ = nullptr;
};
