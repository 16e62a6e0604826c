// SPDX-License-Identifier: MIT
//
// What a service does with a request and a client with an answer, without the network between them.
#include "growth/Operations.h"

#include "TzSoapHttpSecrets.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <string_view>

namespace growth {

namespace {

/// `text` as it travels over HTTP: the header lines of a package are not in the body.
TzSoapHttpRequest overHttp(const std::string& text) {
    constexpr std::string_view Type = "Content-Type: ";
    constexpr std::string_view LineEnd = "\r\n";
    if (!text.starts_with("MIME-Version: ")) {
        return {"", "urn:act", text}; // the text itself says what it is
    }
    const std::size_t type = text.find(Type) + Type.size();
    return {text.substr(type, text.find(LineEnd, type) - type), "urn:act",
            text.substr(text.find("\r\n\r\n") + 2 * LineEnd.size())};
}

TzSoapMessage echo(TzSoapMessage& request) {
    request.addReceivedAttachments();
    return request;
}

template <TzSoapStyle Style> Measured answering(const std::string& text) {
    Measured measured{.text = text.size()};
    TzSoapDispatcher service(Style);
    service.setDefault(echo);
    service.addForAction("urn:act", echo);
    service.setForeignEncodings(true);
    service.setReadLimits({}); // or texts would be refused that messages may hold
    const TzSoapHttpRequest request = overHttp(text);
    startCounting();
    measured.written = service.answer(request).body.size();
    measured.count = counted();
    return measured;
}

Measured takingAnswer(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapHttpRequest http = overHttp(text);
    TzSoapHttpTransportContext context;
    if (!http.contentType.empty()) {
        context.add("Content-Type", http.contentType);
    }
    startCounting();
    measured.written = TzSoapHttpSecrets::masked(http.body).size();
    TzSoapMessage answer;
    try {
        TzSoapHttpBinding::unpack(context, http.body, answer);
        if (answer.getSoapBody().hasFaultElement()) {
            const TzSoapFaultError fault(answer, 0);
            fault.getSubcodes();
        }
    } catch (const Tzxmsg&) {
    }
    measured.count = counted();
    return measured;
}

} // namespace

// Twice the largest that was counted.
std::vector<Operation> httpOperations() {
    return {
        {"Answer", answering<TzSoapStyle::Encoded>, 6800, 100},
        {"AnswerLiterally", answering<TzSoapStyle::Literal>, 6800, 100},
        {"TakeAnswer", takingAnswer, 4500, 140},
    };
}

} // namespace growth
