// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapDroppedText.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapTypeRegistry.h>
#include <soap/TzSoapVersion.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlProlog.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

class TzMessage;
class TzSoapEntryReading;
class TzSoapParseContext;
class TzXmlAttributeSet;
class TzXmlSAXParser;

/// Body of a message: the Envelope element with its header and its body. Reads itself.
///
/// Only the reference count is locked.
class TZSOAP_API TzSoapMessageImp : public TzSoapElementImp,
                                    public TzSoapContentHandler,
                                    public TzBodyBase {
public:
    /// An empty message under the names of `version`; `TzXmlError` UNKNOWN_VERSION for an unknown
    /// version.
    explicit TzSoapMessageImp(TzSoapVersion::Version version);
    /// Copies the envelope element, prolog, type registry, version, style, names of markup,
    /// prefixes and limits, and header and body by their `copy()`; shares the kept package and the
    /// attachments.
    TzSoapMessageImp(const TzSoapMessageImp& other);
    TzSoapMessageImp& operator=(const TzSoapMessageImp&) = delete;
    ~TzSoapMessageImp() override;

    /// A new body as the copy constructor makes it; the caller's handle takes it over.
    virtual TzSoapMessageImp* clone() const;
    /// Empties the message in place: attributes and properties of envelope, header and body, their
    /// entries, the fault with its subcodes, the prolog, the attachments that were added. Names,
    /// version, style, type registry, names of markup, encoding prefix, kept package and limits
    /// stay.
    void clear();

    /// The version.
    TzSoapVersion::Version getVersion() const noexcept { return version_; }
    /// The object that answers for the version.
    TzSoapVersion& getSoapVersion() const { return TzSoapVersion::getSoapVersion(version_); }
    /// Records the version and takes its names for envelope, header, body and fault, prefixes
    /// included; the encoding prefix and all entries stay. `TzXmlError` UNKNOWN_VERSION, and
    /// nothing changed, for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// The header.
    TzSoapHeader& getSoapHeader() noexcept { return header_; }
    /// The header.
    const TzSoapHeader& getSoapHeader() const noexcept { return header_; }
    /// The body.
    TzSoapBody& getSoapBody() noexcept { return body_; }
    /// The body.
    const TzSoapBody& getSoapBody() const noexcept { return body_; }
    /// The prefix of the envelope's name.
    const TzCString& getSoapPrefix() const { return getName().getPrefix(); }
    /// Sets the prefix of the envelope's name.
    void setSoapPrefix(const TzCString& prefix) { getName().setPrefix(prefix); }
    /// The prefix to write the encoding namespace with.
    const TzCString& getSoapEncodingPrefix() const noexcept { return encodingPrefix_; }
    /// Sets the prefix to write the encoding namespace with.
    void setSoapEncodingPrefix(TzCString prefix) noexcept { encodingPrefix_ = std::move(prefix); }
    /// The prolog, a default one when none is set.
    const TzXmlProlog& getProlog() const noexcept { return prolog_; }
    /// Sets the prolog.
    void setProlog(const TzXmlProlog& prolog);
    /// Whether a prolog is set.
    bool hasProlog() const noexcept { return hasProlog_; }
    /// Unsets the prolog.
    void removeProlog();
    /// The types of elements without a type attribute.
    TzSoapTypeRegistry& getTypeRegistry() noexcept { return typeRegistry_; }
    /// The types of elements without a type attribute.
    const TzSoapTypeRegistry& getTypeRegistry() const noexcept { return typeRegistry_; }
    /// Replaces the types of elements without a type attribute.
    void setTypeRegistry(const TzSoapTypeRegistry& registry) { typeRegistry_ = registry; }
    /// The style that the message is read and written in.
    TzSoapStyle getStyle() const noexcept { return style_; }
    /// Sets the style that the message is read and written in.
    void setStyle(TzSoapStyle style) noexcept { style_ = style; }
    /// The names of elements that `extract` keeps as markup.
    const std::vector<TzXmlName>& getMarkupElements() const noexcept { return markupNames_; }
    /// Sets the names of elements that `extract` keeps as markup.
    void setMarkupElements(std::vector<TzXmlName> names) noexcept {
        markupNames_ = std::move(names);
    }
    /// What `extract` accepts.
    const TzSoapReadLimits& getReadLimits() const noexcept { return readLimits_; }
    /// Sets what `extract` accepts.
    void setReadLimits(const TzSoapReadLimits& limits) noexcept { readLimits_ = limits; }
    /// What the last `extract` left out.
    const TzSoapDroppedText& getDroppedText() const noexcept { return droppedText_; }
    /// The package that the message was last extracted from, without parts for a bare envelope.
    const TzMimeMultipart& getMimeMultipart() const noexcept { return multipart_; }

    /// Adds a part that travels with the message although no reference refers to it.
    void addAttachment(const TzMimePart& part) { attachments_.push_back(part); }
    /// The parts that were added.
    const std::vector<TzMimePart>& getAttachments() const noexcept { return attachments_; }
    /// Removes the parts that were added.
    void clearAttachments() noexcept { attachments_.clear(); }

    /// Where text of a literal message stands within the envelope.
    enum TextPlace : std::uint8_t { BeforeHeader, BeforeBody, AfterBody };
    /// The text there as it was read, "" without; valid until the message changes.
    const TzCString& text(TextPlace place) const noexcept { return texts_[place]; }

    /// Replaces the content by the message read from the text of an envelope and forgets the kept
    /// package.
    void extract(const TzCString& text) { extractEnvelope(text); }
    /// Replaces the content by the message read from a text that stays the caller's.
    void extractEnvelope(std::string_view text);
    /// Replaces the content by the message in the root part of `multipart`, which is kept for
    /// references to its parts. `TzXmlParseError` MIME_NOT_MULTIPART without a Content-Type header,
    /// NO_MIME_SOAP_BODY_PART without a root part.
    void extract(const TzMimeMultipart& multipart);
    /// The Envelope or a child of it starts.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// The Envelope ends.
    void endElement(const TzXmlName& name) override;
    /// Text beside the children of the Envelope: kept in a literal message, left out otherwise, see
    /// `getDroppedText`.
    void characters(const TzCString& text) override;

private:
    friend class TzSoapEntryReading;

    class Reading;  // ends a reading, however it ends
    struct Parsing; // parser and context

    /// What is expected next.
    enum ReadState : std::int32_t { AwaitingEnvelope = 1, InEnvelope = 2, EnvelopeEnded = 3 };

    // Reads an envelope; the kept package stays.
    void parseEnvelope(std::string_view text);
    // Makes context and parser ready for a text of so many bytes.
    void prepare(std::size_t textSize);
    // Reads the envelope in the root part of a package.
    void parseRoot(const TzMimePart& part);
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void startPart(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    [[noreturn]] void refuse(const TzMessage& message, const TzXmlName& element);
    TzSoapParseContext& context();
    TzXmlSAXParser& parser();
    Parsing& parsing();

    TzSoapHeader header_;
    TzSoapBody body_;
    TzXmlProlog prolog_;
    bool hasProlog_ = false;
    TzSoapTypeRegistry typeRegistry_;
    TzSoapVersion::Version version_;
    TzSoapStyle style_ = TzSoapStyle::Encoded;
    TzCString encodingPrefix_;
    TzMimeMultipart multipart_;
    std::vector<TzMimePart> attachments_;
    TzSoapReadLimits readLimits_;
    std::vector<TzXmlName> markupNames_;
    TzSoapDroppedText droppedText_;
    std::unique_ptr<Parsing> parsing_; // made by the first extract
    std::array<TzCString, AfterBody + 1> texts_;
    ReadState readState_ = AwaitingEnvelope;
    TextPlace textPlace_ = BeforeHeader;
};
