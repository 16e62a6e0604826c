// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <string_view>

class TzMimeMultipart;
class TzSoapHttpTransportContext;
class TzSoapMessage;

/// How messages travel over HTTP: from a message to the body and the header lines of a request or
/// an answer, and back. The sending is the program's.
///
/// Static, without state, usable from any thread on different arguments. Contexts name their
/// properties as the header lines are named; letter case does not matter, so contexts may spell
/// them as HTTP/2 does. What a context has already keeps its spelling.
class TZSOAP_API TzSoapHttpBinding {
public:
    TzSoapHttpBinding() = delete;

    /// "Content-Type".
    static TzCString getContentTypeLabel();
    /// The body that carries `message`; `context` gets the matching "Content-Type": text/xml for
    /// SOAP 1.1, application/soap+xml for SOAP 1.2, the package's own for a message that led to a
    /// MIME part when it was written, even through a reference to a value, or to which parts were
    /// added. Each part is in the package once. The envelope is compact, without line ends and
    /// indentation, which some receivers take for content; a message of a derived class is written
    /// by its own operations.
    ///
    /// A SOAP action that `context` has, with or without quotes, is quoted for SOAP 1.1 and for
    /// packages and moves into the parameter "action" for a SOAP 1.2 envelope; requests have one,
    /// if only "", answers do not. The action stays with the context, so it can serve again.
    /// `TzXmlBadArgError` INVALID_HTTP_HEADER for an action that no header line can contain. Other
    /// errors are those of `TzSoapMessage::asString`. O(message).
    static TzCString pack(const TzSoapMessage& message, TzSoapHttpTransportContext& context);
    /// The body that carries `package`, a message with its attachments; `context` gets the
    /// package's content type, and a SOAP action that it has is quoted. INVALID_HTTP_HEADER for
    /// an action that does not fit into a header line.
    static TzCString pack(const TzMimeMultipart& package, TzSoapHttpTransportContext& context);
    /// Gives `context` what `pack` gives it for an envelope of `version`, without the body: for
    /// texts that exist already, in the encoding `charset`. INVALID_HTTP_HEADER for such an action
    /// or an invalid name of a charset, `TzXmlError` UNKNOWN_VERSION for an unknown version; then
    /// `context` is as before.
    static void describe(TzSoapVersion::Version version, const TzCString& charset,
                         TzSoapHttpTransportContext& context);
    /// Replaces the content of `message` by the one that `body` carries according to the
    /// "Content-Type" of `context`, whose charset applies to a text that does not state one.
    /// Without a content type the text itself decides. A bare envelope under multipart/related, as
    /// some services send their faults, is read as what it is. Envelopes of every version are read,
    /// whatever the limits of `message` say. `TzXmlParseError` INVALID_CONTENT_TYPE for anything
    /// but XML and multipart/related; other errors are those of `TzSoapMessage::extract`. O(body).
    static void unpack(const TzSoapHttpTransportContext& context, const TzCString& body,
                       TzSoapMessage& message);

    /// The SOAP action without quotes, from the header line or the content type; "" for none.
    static TzCString getAction(const TzSoapHttpTransportContext& context);
    /// The version that the content type speaks for: SOAP 1.2 for application/soap+xml, SOAP 1.1
    /// for any other. Good for answers to texts whose envelope cannot be read.
    static TzSoapVersion::Version getVersion(const TzSoapHttpTransportContext& context);
    /// The same where `body`, which came with `context`, could not be read: `V1_2Rec`, which shares
    /// its content type with the SOAP 1.2 of 2002, where `body` names its envelope near the start.
    static TzSoapVersion::Version getVersion(const TzSoapHttpTransportContext& context,
                                             std::string_view body);
    /// The status of an answer: 500 with a fault, be it one that was read without a code, 200
    /// without; 400 with a fault of the sender in `V1_2Rec`.
    static int getStatus(const TzSoapMessage& answer);
};
