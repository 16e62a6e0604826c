// SPDX-License-Identifier: MIT
//
// The service of greeter.wsdl, which answers by WS-Addressing and greets the users of WS-Security
// only, on a port of its own choice, which it prints: ws_server
#include "Greeter.h"

#include "HttpService.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapWsService.h>

#include <memory>
#include <optional>

namespace {

std::optional<TzCString> passwordOf(const TzCString& user) {
    return user == greeter::User ? std::optional<TzCString>(greeter::Password) : std::nullopt;
}

TzSoapMessage greet(const TzSoapMessage& request, const TzCString& user) {
    const auto wanted = TzSoapView(TzSoapOperation::in(request)).as<greeter::Request>();
    const greeter::Answer answer{"Hello, " + wanted.name + ", from " + user};
    TzSoapMessage message(request.getVersion());
    message.setStyle(request.getStyle());
    message.getSoapBody().appendEntry(
        tzSoapValue(answer, greeter::qualified("greetResponse"), request.getStyle()));
    return message;
}

TzSoapDispatcher makeService() {
    TzSoapWsVerifier::Options options;
    options.plainPasswords = true;
    const auto verifier = std::make_shared<const TzSoapWsVerifier>(passwordOf, options);
    TzSoapDispatcher service(TzSoapStyle::Literal);
    TzSoapWsService::addAddressing(service);
    TzSoapWsService::addSecurity(service, verifier);
    service.add(greeter::qualified("greet"), [verifier](const TzSoapMessage& request) {
        return greet(request, verifier->userOf(request));
    });
    return service;
}

} // namespace

int main() { serveUntilSignal(makeService()); }
