// SPDX-License-Identifier: MIT
//
// The service of greeter.wsdl, which answers by WS-Addressing and greets the users of WS-Security
// only, on a port of its own choice, which it prints: ws_server
#include "Greeter.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapWsService.h>

#include <httplib.h>

#include <iostream>
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

int main() {
    const TzSoapDispatcher service = makeService();
    httplib::Server server;
    server.set_tcp_nodelay(true);
    server.Post("/", [&service](const httplib::Request& http, httplib::Response& response) {
        const TzSoapHttpAnswer answer =
            service.answer({http.get_header_value("Content-Type"),
                            http.get_header_value("SOAPAction"), http.body});
        response.status = answer.status;
        response.headers.insert(answer.headers.begin(), answer.headers.end());
        response.body = answer.body;
    });
    const int port = server.bind_to_any_port("127.0.0.1");
    std::cout << "listening on http://127.0.0.1:" << port << '/' << std::endl;
    return server.listen_after_bind() ? 0 : 1;
}
