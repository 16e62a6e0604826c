// SPDX-License-Identifier: MIT
#include <soap/TzSoapHttpBinding.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlUtils.h>

#include "mime/TzSoapCharset.h"
#include "mime/TzSoapPackaging.h"
#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapErrorDetail.h"

#include <algorithm>
#include <optional>
#include <typeinfo>
#include <utility>

namespace {

constexpr char ActionParameter[] = "action";

/// The media type of a bare envelope.
struct MediaType {
    const char* type;
    const char* subtype;
    TzSoapVersion::Version version;
    bool holdsAction; ///< The SOAP action is a parameter, not a header line.
};

constexpr MediaType MediaTypes[] = {
    {"text", "xml", TzSoapVersion::V1_1, false},
    {"application", "soap+xml", TzSoapVersion::V1_2, true},
    {"application", "soap+xml", TzSoapVersion::V1_2Rec, true},
    {"application", "xml", TzSoapVersion::V1_1, false},
};

/// The first entry for which `wanted` holds, null without one.
template <typename Wanted> const MediaType* findMediaType(const Wanted& wanted) {
    const auto* const found = std::find_if(std::begin(MediaTypes), std::end(MediaTypes), wanted);
    return found == std::end(MediaTypes) ? nullptr : found;
}

const MediaType* mediaTypeOf(const TzMimeContentType& content) {
    return findMediaType(
        [&](const MediaType& entry) { return content.matches(entry.type, entry.subtype); });
}

/// The property that `label` names. Letter case does not matter in header names: programs and
/// HTTP/2 spell them differently; the usual spelling goes first.
template <typename Context> auto findProperty(Context& context, const TzCString& label) {
    const auto exact = context.find(label);
    return exact != context.end()
               ? exact
               : std::find_if(context.begin(), context.end(), [&](const auto& property) {
                     return tzEqualIgnoreCase(property.first, label);
                 });
}

void removeProperty(TzSoapHttpTransportContext& context, const TzCString& label) {
    for (auto found = findProperty(context, label); found != context.end();
         found = findProperty(context, label)) {
        context.remove(TzCString(found->first));
    }
}

/// Makes `value` the only property that `label` names, in the spelling that is there already.
void setProperty(TzSoapHttpTransportContext& context, const TzCString& label,
                 const TzCString& value) {
    const auto found = findProperty(context, label);
    const TzCString spelling = found == context.end() ? label : found->first;
    removeProperty(context, label);
    context.add(spelling, value);
}

/// The value of the property "Content-Type", "" for none.
TzCString contentTypeOf(const TzSoapHttpTransportContext& context) {
    const auto found = findProperty(context, TzSoapHttpBinding::getContentTypeLabel());
    return found == context.end() ? TzCString() : found->second;
}

/// The parameter that holds the action, "" for none.
TzCString actionParameter(const TzSoapHttpTransportContext& context) {
    return TzMimeContentType(contentTypeOf(context)).getParameter(ActionParameter);
}

TzCString withoutQuotes(std::string_view action) {
    const std::size_t from =
        std::min(action.find_first_not_of(TzXmlUtils::WhiteSpace), action.size());
    action = action.substr(from, action.find_last_not_of(TzXmlUtils::WhiteSpace) + 1 - from);
    if (action.size() > 1 && action.front() == '"' && action.back() == '"') {
        action = action.substr(1, action.size() - 2);
    }
    return TzCString(action);
}

bool breaksHeader(char character) noexcept {
    return static_cast<unsigned char>(character) < ' ' || character == '\x7F' || character == '"' ||
           character == '\\';
}

[[noreturn]] void refuseHeader() {
    TzThrow(TzXmlBadArgError(TzMessage(tzsoap_INVALID_HTTP_HEADER())));
}

/// The action without quotes, checked; nothing without one. One that moved into the content type
/// when something was packed before is still there.
std::optional<TzCString> checkedAction(const TzSoapHttpTransportContext& context) {
    const auto found = findProperty(context, TzSoapHttpTransportContext::getSoapActionLabel());
    TzCString action =
        found != context.end() ? withoutQuotes(found->second) : actionParameter(context);
    if (found == context.end() && action.empty()) {
        return std::nullopt;
    }
    if (std::any_of(action.begin(), action.end(), breaksHeader)) {
        refuseHeader();
    }
    return action;
}

/// Gives the action the form of the header line "SOAPAction"; nothing stays nothing.
void quoteAction(TzSoapHttpTransportContext& context) {
    if (const std::optional<TzCString> action = checkedAction(context)) {
        setProperty(context, TzSoapHttpTransportContext::getSoapActionLabel(), '"' + *action + '"');
    }
}

/// Whether a text in any encoding begins with a tag, after byte-order marks and white space.
bool beginsLikeXml(std::string_view text) noexcept {
    constexpr std::string_view skipped{"\xEF\xBB\xBF\xFE\xFF\0 \t\r\n", 10};
    const std::size_t first = text.find_first_not_of(skipped);
    return first != std::string_view::npos && text[first] == '<';
}

/// As long as it lives, a message reads envelopes of every version.
class AllVersions {
public:
    explicit AllVersions(TzSoapMessage& message)
        : message_(message), before_(message.getReadLimits()) {
        TzSoapReadLimits limits = before_;
        limits.soap12Recommendation = true;
        message_.setReadLimits(limits);
    }
    ~AllVersions() { message_.setReadLimits(before_); }
    AllVersions(const AllVersions&) = delete;
    AllVersions& operator=(const AllVersions&) = delete;

private:
    TzSoapMessage& message_;
    TzSoapReadLimits before_;
};

void unpackXml(const TzMimeContentType& content, const TzCString& body, TzSoapMessage& message) {
    const std::optional<TzCString> declared = TzSoapCharset::declare(content, body);
    TzSoapAccess::body(message).extract(declared ? *declared : body);
}

void unpackPackage(const TzCString& contentType, const TzCString& body, TzSoapMessage& message) {
    TzMimeMultipart package;
    package.insertHeader(TzMimeHeader(TzMimeContentTypeHeader::Label, contentType));
    package.setBody(body);
    if (!package.hasParts() && beginsLikeXml(body)) {
        // Some services send their faults bare under the content type of their packages.
        TzSoapAccess::body(message).extract(body);
    } else {
        message.extract(package);
    }
}

} // namespace

TzCString TzSoapHttpBinding::getContentTypeLabel() { return TzMimeContentTypeHeader::Label; }

TzCString TzSoapHttpBinding::pack(const TzSoapMessage& message,
                                  TzSoapHttpTransportContext& context) {
    if (typeid(message) != typeid(TzSoapMessage)) {
        // A derived message may override how it makes its text and its package.
        const TzMimeMultipart package = message.asPackage();
        if (package.getPartCount() > 1 || message.hasAttachments()) {
            return pack(package, context);
        }
        describe(message.getVersion(), "utf-8", context);
        return message.asString();
    }
    // Some receivers take a line end in an empty value for content.
    TzSoapPackaging::Written written = TzSoapPackaging::write(message, TzSoapLayout::Compact);
    if (written.parts.hasParts()) {
        TzSoapPackaging::complete(message, written.parts, std::move(written.envelope));
        return pack(written.parts, context);
    }
    describe(message.getVersion(), "utf-8", context);
    return std::move(written.envelope);
}

TzCString TzSoapHttpBinding::pack(const TzMimeMultipart& package,
                                  TzSoapHttpTransportContext& context) {
    quoteAction(context);
    const std::size_t position = package.findHeader(TzMimeContentTypeHeader::Label);
    setProperty(context, getContentTypeLabel(),
                position == TzMimePart::NotFound ? TzCString()
                                                 : package.getHeader(position).getValue());
    return package.getBody();
}

void TzSoapHttpBinding::describe(TzSoapVersion::Version version, const TzCString& charset,
                                 TzSoapHttpTransportContext& context) {
    // Refuses an unknown version.
    const TzSoapVersion::Version known = TzSoapVersion::getSoapVersion(version).getVersion();
    const MediaType& media =
        *findMediaType([&](const MediaType& entry) { return entry.version == known; });
    // Without quotes, because some peers do not understand them.
    if (!TzSoapCharset::isName(charset)) {
        refuseHeader();
    }
    TzCString text = TzCString(media.type) + '/' + media.subtype + "; charset=" + charset;
    if (media.holdsAction) {
        const TzCString action = checkedAction(context).value_or("");
        text +=
            action.empty() ? TzCString() : TzCString("; ") + ActionParameter + "=\"" + action + '"';
        removeProperty(context, TzSoapHttpTransportContext::getSoapActionLabel());
    } else {
        quoteAction(context);
    }
    setProperty(context, getContentTypeLabel(), text);
}

void TzSoapHttpBinding::unpack(const TzSoapHttpTransportContext& context, const TzCString& body,
                               TzSoapMessage& message) {
    const TzCString contentType = contentTypeOf(context);
    const TzMimeContentType content(contentType);
    const AllVersions allVersions(message);
    if (contentType.empty()) {
        message.extract(body);
    } else if (content.matches("multipart", "related")) {
        unpackPackage(contentType, body, message);
    } else if (mediaTypeOf(content) != nullptr) {
        unpackXml(content, body, message);
    } else {
        TzThrow(tzWithDetail(
            TzXmlParseError(TzMessage(tzsoap_INVALID_CONTENT_TYPE()), TzCString(), 0, 0),
            TzSoapErrorDetail::ofHeader(getContentTypeLabel(), contentType)));
    }
}

TzCString TzSoapHttpBinding::getAction(const TzSoapHttpTransportContext& context) {
    const auto found = findProperty(context, TzSoapHttpTransportContext::getSoapActionLabel());
    const TzCString action = found == context.end() ? TzCString() : withoutQuotes(found->second);
    return action.empty() ? actionParameter(context) : action;
}

TzSoapVersion::Version TzSoapHttpBinding::getVersion(const TzSoapHttpTransportContext& context) {
    const MediaType* const media = mediaTypeOf(TzMimeContentType(contentTypeOf(context)));
    return media == nullptr ? TzSoapVersion::V1_1 : media->version;
}

TzSoapVersion::Version TzSoapHttpBinding::getVersion(const TzSoapHttpTransportContext& context,
                                                     std::string_view body) {
    // The namespace of an envelope stands near the start, whatever else is wrong with the text.
    constexpr std::size_t Start = 4096;
    const TzSoapVersion::Version stated = getVersion(context);
    const bool isLatest =
        body.substr(0, Start).find(
            TzSoapVersion::getSoapVersion(TzSoapVersion::V1_2Rec).getSoapEnv().getUri()) !=
        std::string_view::npos;
    return isLatest ? TzSoapVersion::V1_2Rec : stated;
}

int TzSoapHttpBinding::getStatus(const TzSoapMessage& answer) {
    constexpr int Done = 200;
    constexpr int Failed = 500;
    const TzSoapBody& body = answer.getSoapBody();
    if (!body.hasSoapFault()) {
        return body.hasFaultElement() ? Failed : Done;
    }
    const bool isSenders = body.getSoapFault().getCodeValue() ==
                           answer.getSoapVersion().getFaultCode(TzSoapVersion::Client);
    return isSenders ? TzSoapVersionTable::of(answer.getVersion()).habits().senderStatus : Failed;
}
