// SPDX-License-Identifier: MIT
//
// The service of orders.wsdl, on a port of its own choice, which it prints. It takes every value
// out of the request, by its type, and builds the answer from those: literal_server
#include "Orders.h"

#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/tools/Tzxmsg.h>

#include <httplib.h>

#include <iostream>
#include <stdexcept>
#include <string>

namespace {

using Base = TzSoapContentBase;

TzSoapMessage answer(TzSoapVersion::Version version, const TzSoapType& entry) {
    TzSoapMessage message(version);
    message.setStyle(TzSoapStyle::Literal);
    message.getSoapBody().appendEntry(entry);
    return message;
}

TzSoapMessage fault(TzSoapVersion::Version version, TzSoapVersion::SoapFaultCode code,
                    const std::string& reason) {
    TzSoapMessage message = TzSoapFaultMessage::make(version, code, reason);
    message.setStyle(TzSoapStyle::Literal);
    return message;
}

TzSoapMessage placeOrder(TzSoapVersion::Version version, const TzSoapType& operation) {
    orders::childrenOf(operation, {"order"});
    orders::Receipt receipt;
    receipt.order = orders::readOrder(operation.getChild(orders::qualified("order")));
    for (const orders::Line& line : receipt.order.lines) {
        if (line.amount == 0) {
            return fault(version, TzSoapVersion::Server, "Nothing of <" + line.article + "> & co.");
        }
        receipt.amount += line.amount;
        receipt.cost += line.amount * std::stod(line.price.asString());
    }
    return answer(version, orders::write("placeOrderResponse", receipt));
}

TzSoapMessage echoValues(TzSoapVersion::Version version, const TzSoapType& operation) {
    orders::childrenOf(operation, {"values"});
    const orders::Values values =
        orders::readValues(operation.getChild(orders::qualified("values")));
    return answer(version, orders::wrap("echoValuesResponse", {orders::write("values", values)}));
}

/// No order is known here: a fault says so, with a detail that has types.
TzSoapMessage cancelOrder(TzSoapVersion::Version version, const TzSoapType& operation) {
    const TzXmlName number = orders::qualified("number");
    const std::string wanted = TzSoapValueReader(operation.getChild(number)).getString();
    TzSoapMessage message =
        fault(version, TzSoapVersion::Client, "No order <" + wanted + "> & co.");
    const TzSoapCompositeType unknown = orders::wrap(
        "unknownOrder", {orders::writeText("number", wanted),
                         TzSoapSimpleType(orders::qualified("orders"), 42, Base::xsdInt, false)});
    message.getSoapBody().getSoapFault().addDetailEntry("o:unknownOrder", unknown);
    return message;
}

TzSoapMessage answerTo(const TzSoapMessage& request) {
    const TzSoapVersion::Version version = request.getVersion();
    const TzSoapType operation = request.getSoapBody().getFirstEntry();
    const TzXmlName& name = operation.getName();
    if (name == orders::qualified("placeOrder")) {
        return placeOrder(version, operation);
    }
    if (name == orders::qualified("echoValues")) {
        return echoValues(version, operation);
    }
    if (name == orders::qualified("cancelOrder")) {
        return cancelOrder(version, operation);
    }
    return fault(version, TzSoapVersion::Client, "There is no operation " + name.getLocalName());
}

TzSoapMessage readAndAnswer(const TzSoapHttpTransportContext& headers, const std::string& body) {
    TzSoapMessage request(TzSoapHttpBinding::getVersion(headers, body));
    request.setStyle(TzSoapStyle::Literal);
    try {
        TzSoapHttpBinding::unpack(headers, body, request);
        return answerTo(request);
    } catch (const Tzxmsg& error) {
        return TzSoapFaultMessage::makeFrom(request.getVersion(), error);
    } catch (const std::runtime_error& error) {
        return fault(request.getVersion(), TzSoapVersion::Client, error.what());
    }
}

void serve(const httplib::Request& http, httplib::Response& response) {
    TzSoapHttpTransportContext headers;
    headers.add("Content-Type", http.get_header_value("Content-Type"));
    const TzSoapMessage message = readAndAnswer(headers, http.body);
    TzSoapHttpTransportContext answerHeaders;
    response.body = TzSoapHttpBinding::pack(message, answerHeaders);
    response.status = TzSoapHttpBinding::getStatus(message);
    response.headers.insert(answerHeaders.begin(), answerHeaders.end());
}

} // namespace

int main() {
    httplib::Server server;
    server.set_tcp_nodelay(true);
    server.Post("/", serve);
    const int port = server.bind_to_any_port("127.0.0.1");
    std::cout << "listening on http://127.0.0.1:" << port << '/' << std::endl;
    return server.listen_after_bind() ? 0 : 1;
}
