// SPDX-License-Identifier: MIT
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapUtils.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSAXParser.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapErrorDetail.h"
#include "reading/TzSoapParsing.h"
#include "reading/TzSoapReadingState.h"
#include "reading/TzSoapVerbatimAttributes.h"

#include <array>
#include <utility>

using namespace std::string_view_literals;

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapMessageImp";

/// Start of a text in a wide encoding: its first four bytes, and how far before the "<" it begins.
struct WideStart {
    std::string_view bytes;
    std::size_t stepBack;
};

constexpr std::array<WideStart, 4> WideStarts = {{
    {"\0\0\0<"sv, 3},
    {"\0\0<\0"sv, 2},
    {"\0<\0\0"sv, 1},
    {"\0<\0?"sv, 1},
}};

constexpr std::string_view LittleEndianMark = "\xFF\xFE"sv;
constexpr std::string_view BigEndianMark = "\xFE\xFF"sv;
constexpr std::string_view WidePadding = "\0\0"sv;

/// Where the last byte-order mark before `end` begins, its zero bytes included; npos without one.
std::size_t findByteOrderMark(std::string_view text, std::size_t end) {
    const std::string_view before = text.substr(0, end);
    for (std::size_t i = before.size(); i >= 2; --i) {
        const std::string_view pair = before.substr(i - 2, 2);
        if (pair == LittleEndianMark) {
            return i - 2;
        }
        if (pair == BigEndianMark) {
            const bool padded = before.substr(0, i - 2).ends_with(WidePadding);
            return padded ? i - 4 : i - 2;
        }
    }
    return std::string_view::npos;
}

/// Where the document with the first "<" at `tag` begins.
std::size_t findDocument(std::string_view text, std::size_t tag) {
    const std::size_t mark = findByteOrderMark(text, tag);
    if (mark != std::string_view::npos) {
        return mark;
    }
    for (const WideStart& start : WideStarts) {
        if (text.starts_with(start.bytes)) {
            return tag - start.stepBack;
        }
    }
    return tag;
}

} // namespace

/// Ends a reading, however it ends: nothing of it outlives the text.
class TzSoapMessageImp::Reading {
public:
    // Make context and parser here, if necessary: the destructor must not allocate.
    Reading(TzSoapMessageImp& message, std::size_t textSize)
        : message_(message), state_(TzSoapAccess::reading(message.context())),
          parser_(message.parser()), textSize_(textSize) {}
    ~Reading() {
        message_.droppedText_ = state_.droppedText;
        state_.references.dropTargets();
        parser_.setContentHandler(nullptr);
        if (isDone_) {
            Parsing::leave(std::move(message_.parsing_));
        } else {
            state_.clear();
        }
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    /// The reading succeeded: keep the targets of references.
    void succeed() {
        state_.references.keepTargets();
        // The memory that a long text took is not for the next one. A handler that has not given
        // the events back may still look at the context.
        constexpr std::size_t ShortText = std::size_t{4} * 1024;
        isDone_ = textSize_ <= ShortText && parser_.getContentHandler() == &message_;
    }

private:
    TzSoapMessageImp& message_;
    TzSoapReadingState& state_;
    TzXmlSAXParser& parser_;
    std::size_t textSize_;
    bool isDone_ = false;
};

void TzSoapMessageImp::parseEnvelope(std::string_view text) {
    const std::size_t tag = text.find(TzXmlWriter::StartTag);
    if (tag == std::string_view::npos) {
        TzThrow(
            tzWithDetail(TzXmlParseError(TzMessage(tzsoap_NO_SOAP_ENVELOPE()), TzCString(), 1, 1),
                         TzSoapErrorDetail::ofText(text)));
    }
    Reading reading(*this, text.size());
    prepare(text.size());
    parser().parse(text.substr(findDocument(text, tag)));
    reading.succeed();
}

void TzSoapMessageImp::prepare(std::size_t textSize) {
    TzSoapReadingState& state = TzSoapAccess::reading(context());
    state.clear();
    state.parser = &parser();
    state.package = multipart_;
    state.messageStyle = style_;
    state.markupNames = markupNames_;
    state.budget = TzSoapReadBudget(readLimits_, textSize);
    // Values take up three to four times the size of a usual text. Less is expected, because what
    // is taken for too many is wasted.
    state.valueMemory.left = textSize / 4 * 11;
    parser().setDepthLimit(readLimits_.depth);
    parser().setAttributeLimit(readLimits_.attributes);
    parser().setUriLimit(readLimits_.uriLength);
    parser().setPrefixLimit(readLimits_.prefixLength);
    parser().setContentHandler(this);
    readState_ = AwaitingEnvelope;
}

void TzSoapMessageImp::refuse(const TzMessage& message, const TzXmlName& element) {
    TzThrow(tzWithDetail(
        TzXmlParseError(message, TzCString(), parser().getLine(), parser().getColumn()),
        TzSoapErrorDetail::ofElement(element)));
}

void TzSoapMessageImp::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    if (context().getParser() == nullptr) {
        refuseEvent(Unit, 252);
    }
    switch (readState_) {
    case AwaitingEnvelope:
        if (name.getLocalName() != getName().getLocalName()) {
            refuse(TzMessage(tzsoap_NO_SOAP_ENVELOPE()), name);
        }
        populate(name, attributes);
        readState_ = InEnvelope;
        return;
    case InEnvelope:
        return startPart(name, attributes);
    default:
        refuseEvent(Unit, 252);
    }
}

void TzSoapMessageImp::startPart(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(getVersion());
    if (names.matchSoapElement(name, TzSoapVersion::Header)) {
        textPlace_ = BeforeBody;
        TzSoapAccess::body(getSoapHeader()).populate(name, attributes, &context());
    } else if (names.matchSoapElement(name, TzSoapVersion::Body)) {
        textPlace_ = AfterBody;
        TzSoapAccess::body(getSoapBody()).populate(name, attributes, &context());
    } else {
        refuse(TzMessage(tzsoap_UNKNOWN_SOAP_ELEMENT(), name.getLocalName()), name);
    }
}

void TzSoapMessageImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    TzSoapVersion::Version version = getVersion();
    const bool known = readLimits_.soap12Recommendation
                           ? TzSoapVersion::isKnownVersion(name.getNamespace(), version)
                           : TzSoapVersion::isSupportedVersion(name.getNamespace(), version);
    if (!known) {
        refuse(TzMessage(tzsoap_UNKNOWN_VERSION(), name.getUri()), name);
    }
    clear();
    setVersion(version);
    getAttributeSet().clear();
    textPlace_ = BeforeHeader;
    TzSoapReadingState& state = TzSoapAccess::reading(context());
    state.message = this;
    state.setVersion(TzSoapVersionTable::of(version));
    const TzCString* style = nullptr;
    if (state.isLiteral()) {
        setName(name);
        tzSoapReadVerbatim(attributes, *this, state);
    } else {
        style = TzSoapUtils::beginElement(*this, name, attributes);
    }
    state.pushStyle(style != nullptr ? *style : TzSoapAttributeSet::getEmptyString());
    state.names.open(*this);
}

void TzSoapMessageImp::characters(const TzCString& text) {
    TzSoapReadingState& reading = TzSoapAccess::reading(context());
    if (reading.isLiteral()) {
        texts_[textPlace_] = text;
    } else {
        reading.noteDroppedText(text);
    }
}

void TzSoapMessageImp::endElement(const TzXmlName&) {
    TzSoapTypeNames& names = TzSoapAccess::reading(context()).names;
    if (readState_ != InEnvelope || names.isEmpty()) {
        refuseEvent(Unit, 271);
    }
    readState_ = EnvelopeEnded;
    names.close();
}
