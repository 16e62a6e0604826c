// SPDX-License-Identifier: MIT
//
// An echo service over HTTP: any operation named "echo..." answers its parameters, header entries
// named "echo" in its namespace are answered too.
//
//     echo_server [PORT [LARGEST_REQUEST]]      port 0: any; ends on SIGTERM and SIGINT
#include "HttpService.h"

#include <soap/TzSoapDispatcher.h>

#include <exception>
#include <iostream>
#include <string>

namespace {

constexpr char Namespace[] = "urn:example:echo";

/// Turns the request into the answer, so that values keep all that they refer to: namespaces, other
/// values, attachments. Other operations make a message or, simpler, take and give structs.
TzSoapMessage echo(const TzSoapNode& node, TzSoapMessage& request) {
    TzSoapType operation = TzSoapOperation::in(request);
    const TzXmlName name = operation.getName();
    if (!name.getLocalName().starts_with("echo")) {
        throw TzSoapFaultError::procedureNotPresent(name);
    }
    operation.setName(TzXmlName(name.getLocalName() + "Response", name.getNamespace()));
    node.retainUnderstood(request.getSoapHeader());
    request.setProlog(TzXmlProlog());
    request.addReceivedAttachments();
    return request;
}

} // namespace

int main(int argc, char** argv) {
    try {
        TzSoapDispatcher service;
        service.getNode().addRole(Namespace);
        service.getNode().addUnderstood(TzXmlName("echo", TzXmlNamespace("", Namespace)));
        service.setDefault(
            [&service](TzSoapMessage& request) { return echo(service.getNode(), request); });
        serveUntilSignal(service, argc > 1 ? std::stoi(argv[1]) : 0,
                         argc > 2 ? std::stoul(argv[2]) : 8U << 20U);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "echo_server: " << error.what() << '\n';
        return 1;
    }
}
