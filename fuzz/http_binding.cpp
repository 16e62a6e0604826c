// SPDX-License-Identifier: MIT
// Any bytes: the first line is a Content-Type, the second one a SOAPAction, the rest the body of an
// HTTP message. They are refused with an error of the library, or what was read can be sent.
#include "FuzzTarget.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string body = textOf(data, size);
    TzSoapHttpTransportContext context;
    context.add(TzSoapHttpBinding::getContentTypeLabel(), takeLine(body));
    context.setSoapAction(takeLine(body));
    TzSoapMessage message = readerOf(TzSoapStyle::Encoded);
    const bool done = accepted([&] {
        static_cast<void>(TzSoapHttpBinding::getAction(context));
        TzSoapHttpBinding::unpack(context, body, message);
    });
    if (!done) {
        return 0;
    }
    accepted([&] {
        TzSoapHttpTransportContext answer;
        static_cast<void>(TzSoapHttpBinding::pack(message, answer));
        static_cast<void>(TzSoapHttpBinding::getStatus(message));
    });
    return 0;
}
