// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzMessageBase.h>
#include <soap/TzSoapBody.h>
#include <soap/TzSoapDroppedText.h>
#include <soap/TzSoapElementHandle.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapLayout.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapTypeRegistry.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzSink.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlProlog.h>
#include <tz/xml/TzXmlText.h>

#include <string_view>
#include <vector>

class TzMimeMultipart;
class TzMimePart;
class TzSoapConstVisitor;
class TzSoapMessageImp;
class TzSoapVisitor;

/// Handle of a whole message: the Envelope element with its header and its body.
///
/// Copies share everything, `copy()` makes a new message. Every operation on a handle
/// without a body throws `TzTHRInvalidPointer` "Invalid pointer". Handles that share a body may be
/// copied and destroyed on different threads; the message itself is built, written and read by one
/// thread at a time. Writing sets the type of simple values, so messages that share values are not
/// written at once.
class TZSOAP_API TzSoapMessage : public TzMessageBase,
                                 public TzHandleBase,
                                 public TzSoapElementHandle<TzSoapMessage> {
public:
    /// "Envelope", the local name of the envelope element.
    static const TzCString EnvelopeLabel;

    /// An empty message of `version`; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    explicit TzSoapMessage(TzSoapVersion::Version version = TzSoapVersion::getLatestVersion());
    TzSoapMessage(const TzSoapMessage&) noexcept = default;
    TzSoapMessage(TzSoapMessage&&) noexcept = default;
    TzSoapMessage& operator=(const TzSoapMessage&) noexcept = default;
    TzSoapMessage& operator=(TzSoapMessage&&) noexcept = default;
    ~TzSoapMessage() override;

    /// The message as XML text; when `hasAttachments()`, the text of `asMimeMultipart()` instead.
    /// The search for parts does not follow references to values: such a part is not in the
    /// text, though the value's reference to it is. `asPackage` has it. `TzXmlDomainError` for a
    /// value that stands within itself. O(content).
    TzCString asString() const override;
    /// The text of `asString` in `layout`. Compact is how messages are best sent: some peers
    /// take the line end in an indented value that holds nothing for its text. A derived class that
    /// has attachments makes its package in its own layout. O(content).
    TzCString asText(TzSoapLayout layout) const;
    /// Appends what `asText` returns to `text`, whose capacity is used: a text that is cleared and
    /// written again takes no memory. After an error the text is as it was. O(content).
    void writeTo(TzCString& text, TzSoapLayout layout = TzSoapLayout::Indented) const;
    /// Writes what `asText` returns to `sink`, made of a function, a stream or, by
    /// `TzSink::toDescriptor`, a file descriptor. The text is never in memory as a whole: beside
    /// what `TzXmlOutputWriter` and `TzMimePart::writeTo` hold back, about 64 KiB in all, this
    /// takes memory for ids and references and, in a package, for the envelope. Long texts of
    /// values that need no escaping, and attachments, go to the sink from where they lie.
    /// O(content).
    ///
    /// Errors are those of `asText` and of the sink, which then got the beginning of the text: to
    /// send it needs a form that shows the end of a message, such as chunks of HTTP.
    void writeTo(const TzSink& sink, TzSoapLayout layout = TzSoapLayout::Indented) const;
    /// "SOAPMessage:" and the URI of the version's envelope namespace.
    TzCString getMessageType() const override;
    /// Whether parts were added or any value refers to a MIME part. References to values are not
    /// followed: a value outside header and body that refers to a part is not seen. O(content).
    virtual bool hasAttachments() const;
    /// Whether any value, targets of references included, is kept as markup because its encoding
    /// is not that of SOAP. Such markup is written as it stands, so messages of others must not be
    /// sent on with it. O(content).
    bool hasUserDefinedValues() const;
    /// Replaces the content by the message in the root part of a package: the part that its start
    /// parameter names, the first one without that. The package is shared, because references need
    /// its parts. A charset that the root part's Content-Type states applies to an envelope that
    /// does not state one. `TzXmlParseError` MIME_NOT_MULTIPART without a Content-Type header,
    /// NO_MIME_SOAP_BODY_PART without a root part; one without a catalogue entry for a package
    /// without its closing line and for a Content-ID or Content-Location that is longer than the
    /// limits allow; otherwise as for a text.
    virtual void extract(const TzMimeMultipart& multipart);
    /// Replaces the content by the message read from `text`, an envelope or a MIME package.
    /// Whatever stands before the document is skipped. After an error the content is what was read
    /// so far: only extract again. Values may be kept longer than the message. They lie together in
    /// memory, so one that is kept holds back up to 4 KiB beside itself; its `copy()` does not.
    /// O(text). Errors, with line and column in the envelope:
    ///
    /// - `TzXmlParseError`: NO_SOAP_ENVELOPE, UNKNOWN_VERSION, UNKNOWN_SOAP_ELEMENT,
    ///   ILLEGAL_REFERENCE for a reference that holds an element; without a catalogue entry for
    ///   what the parser refuses, for a limit that is exceeded and for a header of a package with a
    ///   carriage return within a line; those of `extract(const TzMimeMultipart&)`;
    /// - `TzXmlBoundsError`: BAD_INDEX_VECTOR for an array that declares more positions than the
    ///   limits allow, INDEX_RANGE_VEC for a position outside of the declared size;
    /// - `TzXmlBadArgError`: BAD_INDEX_STRING for an invalid size, offset or position;
    /// - `TzTHRIllegalUsage` when this message is being read already, and `std::bad_alloc`.
    virtual void extract(const TzCString& text);
    /// Reads a text that stays the caller's: does not copy an envelope, copies a package once,
    /// for its parts. A derived class gets a copy in its `extract(const TzCString&)`.
    void extract(std::string_view text);
    /// Reads a text that it takes over: copies nothing, a package becomes the message's.
    /// A derived class gets the text in its `extract(const TzCString&)`.
    void extract(TzCString&& text);
    /// Reads characters up to a NUL; `TzXmlBadArgError` for a null pointer.
    void extract(const char* text);
    /// Whether the last `extract` left text out because the model has no place for it: text other
    /// than white space beside the children of Envelope, Header, Body, a composite value or an
    /// array, in a reference, in a Misunderstood entry, and directly in a Fault or in those of its
    /// children that hold elements, the detail excepted. False before the first `extract`.
    bool hasDroppedText() const;
    /// How much text the last `extract` left out, and where the first of it was; see
    /// `hasDroppedText`.
    TzSoapDroppedText getDroppedText() const;
    /// Adds a part that travels with the message although no reference refers to it, after those
    /// that references refer to. Shared with the message. A part that a reference refers to as well
    /// travels for the reference only. A serializer leaves added parts out.
    void addAttachment(const TzMimePart& part);
    /// Adds every part of `getMimeMultipart()` but its root part, so that a message that was read
    /// takes along all that came with it. O(parts).
    void addReceivedAttachments();
    /// The parts that were added, in their order. Not those that references refer to, and not those
    /// that were read, unless they were added. None after `extract`. Valid until the next change.
    const std::vector<TzMimePart>& getAttachments() const;
    /// Removes the parts that were added.
    void clearAttachments();
    /// The package that the message was last read from, shared; without parts when that was a bare
    /// envelope, or when nothing was read. Holds parts that no reference refers to as well.
    const TzMimeMultipart& getMimeMultipart() const;
    /// The message and its attachments as a MIME package: the envelope first, then every part that
    /// a reference refers to, in the order of the references and once for each of them, then the
    /// parts that were added.
    virtual TzMimeMultipart asMimeMultipart() const;
    /// Inserts message and attachments into `multipart`, which keeps its boundary and start;
    /// returns a handle that shares it. After an error, attachments met before stay inserted.
    virtual TzMimeMultipart asMimeMultipart(TzMimeMultipart& multipart) const;
    /// The message as it is best sent: `asMimeMultipart()` with each part once, however many
    /// references refer to it. When the root part is the only one, its body, the envelope, can
    /// travel alone. O(content).
    TzMimeMultipart asPackage() const;
    /// `asPackage` with the envelope in `layout`; that of a derived class keeps
    /// its own. O(content).
    TzMimeMultipart asPackage(TzSoapLayout layout) const;

    /// The version.
    TzSoapVersion::Version getVersion() const;
    /// The object that answers for the version.
    TzSoapVersion& getSoapVersion() const;
    /// Makes this a message of `version`: envelope, header, body and fault take its names, and the
    /// soap prefix becomes its default. The encoding prefix and all entries stay. `TzXmlError`
    /// UNKNOWN_VERSION, and nothing changed, for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// The header, shared with the message.
    TzSoapHeader& getSoapHeader();
    /// The header.
    const TzSoapHeader& getSoapHeader() const;
    /// The body, shared with the message.
    TzSoapBody& getSoapBody();
    /// The body.
    const TzSoapBody& getSoapBody() const;

    /// Sets the prefix of the envelope namespace.
    void setSoapPrefix(const TzCString& prefix);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setSoapPrefix(TzXmlText auto prefix) { setSoapPrefix(tzXmlText(prefix)); }
    /// The prefix of the envelope namespace: "SOAP-ENV" in a new SOAP 1.1 message, "env" in a new
    /// SOAP 1.2 message.
    TzCString getSoapPrefix() const;
    /// Sets the prefix of the encoding namespace.
    void setSoapEncodingPrefix(const TzCString& prefix);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setSoapEncodingPrefix(TzXmlText auto prefix) { setSoapEncodingPrefix(tzXmlText(prefix)); }
    /// The prefix of the encoding namespace: "SOAP-ENC" in a new SOAP 1.1 message, "enc" in a new
    /// SOAP 1.2 message; not changed by `setVersion`.
    TzCString getSoapEncodingPrefix() const;

    /// Declares on the envelope what the types of values need: `xsd` for the texts of types, such
    /// as "xsd:int", and `xsi` for the attributes that carry them. A writer declares the namespaces
    /// of names, not those of texts, so that without this call receivers that look the prefix up
    /// refuse the message. A prefix that the envelope declares already keeps its namespace.
    void declareTypeNamespaces();
    /// Sets the XML declaration that is written first.
    void setProlog(const TzXmlProlog& prolog);
    /// The XML declaration, a default one when none is set. Reading sets none.
    const TzXmlProlog& getProlog() const;
    /// Whether an XML declaration is set; false in a new message.
    bool hasProlog() const;
    /// Unsets the XML declaration.
    void removeProlog();

    /// Replaces the types of elements without a type attribute.
    void setTypeRegistry(const TzSoapTypeRegistry& registry);
    /// The types of elements without a type attribute; none in a new message.
    TzSoapTypeRegistry& getTypeRegistry();
    /// The types of elements without a type attribute.
    const TzSoapTypeRegistry& getTypeRegistry() const;

    /// Sets the style that the message is written in and that `extract` reads, and changes no
    /// value. `copy()` has the same style; `extract` and a change of the version keep it. An answer
    /// takes it over with `answer.setStyle(request.getStyle())`.
    void setStyle(TzSoapStyle style);
    /// The style; `TzSoapStyle::Encoded` in a new message.
    ///
    /// Literal is written compact in every layout, without encodingStyle and without a type that no
    /// value asks for. The namespaces of names and types are declared on the envelope, unless an
    /// element around them declares the prefix; unqualified names stay unqualified. Attributes and
    /// text that were read literally stay as they were. A fault that was read stays
    /// as it was spelt until a code or a text of it changes. Arrays are written as their items.
    TzSoapStyle getStyle() const;

    /// Sets the names of elements that `extract` keeps as markup, in either style and wherever they
    /// stand in header or body: each becomes a `TzSoapUserDefinedType` whose `getMarkup` is what
    /// its sender wrote, as signed parts and tokens of others need it. Replaces the names set
    /// before. Each costs a comparison for each element that is read.
    void setMarkupElements(const std::vector<TzXmlName>& names);
    /// These names; none in a new message.
    const std::vector<TzXmlName>& getMarkupElements() const;

    /// Sets what `extract` accepts.
    void setReadLimits(const TzSoapReadLimits& limits);
    /// What `extract` accepts.
    TzSoapReadLimits getReadLimits() const;

    /// A new message with copies of header and body. O(content).
    TzSoapMessage copy() const;
    /// Calls the visitor's operation for messages.
    void acceptVisitor(TzSoapVisitor& visitor);
    /// Calls the visitor's operation for messages.
    void acceptVisitor(TzSoapConstVisitor& visitor) const;

protected:
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    virtual TzSoapMessageImp& body() const;

private:
    friend class TzSoapElementHandle<TzSoapMessage>;
    friend struct TzSoapAccess;

    explicit TzSoapMessage(TzSoapMessageImp* body) noexcept;
    TzSoapElementImp& elementBody() const;
    bool isDerived() const noexcept;
    void extractPackage(TzCString text);
};
