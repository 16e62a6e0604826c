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

#include "model/TzSoapAccess.h"
#include "reading/TzSoapErrorDetail.h"

#include <algorithm>

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
    {"application", "xml", TzSoapVersion::V1_1, false},
};

/// The first entry for which `wanted` holds, null when there is none.
template <typename Wanted> const MediaType* findMediaType(const Wanted& wanted) {
    const auto* const found = std::find_if(std::begin(MediaTypes), std::end(MediaTypes), wanted);
    return found == std::end(MediaTypes) ? nullptr : found;
}

const MediaType* mediaTypeOf(const TzMimeContentType& content) {
    return findMediaType(
        [&](const MediaType& entry) { return content.matches(entry.type, entry.subtype); });
}

/// The value of the property "Content-Type", "" for none.
TzCString contentTypeOf(const TzSoapHttpTransportContext& context) {
    const auto found = context.find(TzSoapHttpBinding::getContentTypeLabel());
    return found == context.end() ? TzCString() : found->second;
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

/// The action without quotes, checked.
TzCString checkedAction(const TzSoapHttpTransportContext& context) {
    TzCString action = withoutQuotes(context.getSoapAction());
    if (std::any_of(action.begin(), action.end(), breaksHeader)) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_INVALID_HTTP_HEADER())));
    }
    return action;
}

/// Gives the action the form of the header line "SOAPAction"; none stays none.
void quoteAction(TzSoapHttpTransportContext& context) {
    if (context.find(TzSoapHttpTransportContext::getSoapActionLabel()) != context.end()) {
        context.setSoapAction('"' + checkedAction(context) + '"');
    }
}

bool isCharsetName(std::string_view name) noexcept {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '-' || character == '_' ||
               character == '.' || character == ':';
    });
}

/// Whether the text begins with a tag: a text in another form says by itself what it is.
bool beginsWithTag(std::string_view text) noexcept {
    return text.size() > 1 && text[0] == '<' && text[1] != '?' && text[1] != '\0';
}

void unpackXml(const TzMimeContentType& content, const TzCString& body, TzSoapMessage& message) {
    const TzCString charset = content.getParameter("charset");
    TzSoapMessageImp& reader = TzSoapAccess::body(message);
    if (isCharsetName(charset) && !tzEqualIgnoreCase(charset, "utf-8") && beginsWithTag(body)) {
        reader.extract(TzXmlProlog("1.0", charset).asString() + body);
    } else {
        reader.extract(body);
    }
}

void unpackPackage(const TzCString& contentType, const TzCString& body, TzSoapMessage& message) {
    TzCString text = TzMimeHeader(TzMimeContentTypeHeader::Label, contentType).asString();
    text += "\r\n\r\n";
    text += body;
    TzMimeMultipart package;
    package.fromString(std::move(text));
    message.extract(package);
}

} // namespace

TzCString TzSoapHttpBinding::getContentTypeLabel() { return TzMimeContentTypeHeader::Label; }

TzCString TzSoapHttpBinding::pack(const TzSoapMessage& message,
                                  TzSoapHttpTransportContext& context) {
    if (message.hasAttachments()) {
        return pack(message.asMimeMultipart(), context);
    }
    describe(message.getVersion(), "utf-8", context);
    return message.asString();
}

TzCString TzSoapHttpBinding::pack(const TzMimeMultipart& package,
                                  TzSoapHttpTransportContext& context) {
    quoteAction(context);
    const std::size_t position = package.findHeader(TzMimeContentTypeHeader::Label);
    context.add(getContentTypeLabel(), position == TzMimePart::NotFound
                                           ? TzCString()
                                           : package.getHeader(position).getValue());
    return package.getBody();
}

void TzSoapHttpBinding::describe(TzSoapVersion::Version version, const TzCString& charset,
                                 TzSoapHttpTransportContext& context) {
    // Refuses what is no version.
    const TzSoapVersion::Version known = TzSoapVersion::getSoapVersion(version).getVersion();
    const MediaType& media =
        *findMediaType([&](const MediaType& entry) { return entry.version == known; });
    // Without quotes, for not every peer knows them.
    TzCString text = TzCString(media.type) + '/' + media.subtype + "; charset=" + charset;
    if (media.holdsAction) {
        const TzCString action = checkedAction(context);
        text +=
            action.empty() ? TzCString() : TzCString("; ") + ActionParameter + "=\"" + action + '"';
        context.remove(TzSoapHttpTransportContext::getSoapActionLabel());
    } else {
        quoteAction(context);
    }
    context.add(getContentTypeLabel(), text);
}

void TzSoapHttpBinding::unpack(const TzSoapHttpTransportContext& context, const TzCString& body,
                               TzSoapMessage& message) {
    const TzCString contentType = contentTypeOf(context);
    const TzMimeContentType content(contentType);
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
    const TzCString action = withoutQuotes(context.getSoapAction());
    return action.empty() ? TzMimeContentType(contentTypeOf(context)).getParameter(ActionParameter)
                          : action;
}

TzSoapVersion::Version TzSoapHttpBinding::getVersion(const TzSoapHttpTransportContext& context) {
    const MediaType* const media = mediaTypeOf(TzMimeContentType(contentTypeOf(context)));
    return media == nullptr ? TzSoapVersion::V1_1 : media->version;
}

int TzSoapHttpBinding::getStatus(const TzSoapMessage& answer) {
    constexpr int Done = 200;
    constexpr int Failed = 500;
    return answer.getSoapBody().hasSoapFault() ? Failed : Done;
}
