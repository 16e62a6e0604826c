// SPDX-License-Identifier: MIT
//
// The service of orders.wsdl, on a port of its own choice, which it prints. It takes every value
// out of the request, by its type, and builds the answer from those: literal_server
#include "Orders.h"

#include "HttpService.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>

#include <stdexcept>
#include <string>

namespace {

using Base = TzSoapContentBase;

TzSoapType placeOrder(const TzSoapType& operation) {
    orders::childrenOf(operation, {"order"});
    orders::Receipt receipt;
    receipt.order = orders::readOrder(operation.getChild(orders::qualified("order")));
    for (const orders::Line& line : receipt.order.lines) {
        if (line.amount == 0) {
            throw TzSoapFaultError(TzSoapVersion::Server,
                                   "Nothing of <" + line.article + "> & co.");
        }
        receipt.amount += line.amount;
        receipt.cost += line.amount * std::stod(line.price.asString());
    }
    return orders::write("placeOrderResponse", receipt);
}

TzSoapType echoValues(const TzSoapType& operation) {
    orders::childrenOf(operation, {"values"});
    const orders::Values values =
        orders::readValues(operation.getChild(orders::qualified("values")));
    return orders::wrap("echoValuesResponse", {orders::write("values", values)});
}

/// No order is known here: a fault says so, with a detail that has types.
TzSoapType cancelOrder(const TzSoapType& operation) {
    const TzXmlName number = orders::qualified("number");
    const std::string wanted = TzSoapValueReader(operation.getChild(number)).getString();
    throw TzSoapFaultError(TzSoapVersion::Client, "No order <" + wanted + "> & co.")
        .addDetailEntry(orders::wrap("unknownOrder", {orders::writeText("number", wanted),
                                                      TzSoapSimpleType(orders::qualified("orders"),
                                                                       42, Base::xsdInt, false)}));
}

/// An operation whose request may hold what the schema does not have.
TzSoapOperation checked(TzSoapType (*operation)(const TzSoapType&)) {
    return [operation](const TzSoapType& request) {
        try {
            return operation(request);
        } catch (const TzSoapFaultError&) {
            throw;
        } catch (const std::runtime_error& error) {
            throw TzSoapFaultError(TzSoapVersion::Client, error.what());
        } catch (const Tzxmsg& error) {
            throw TzSoapFaultError::badArguments(error);
        }
    };
}

} // namespace

int main() {
    TzSoapDispatcher service(TzSoapStyle::Literal);
    service.add(orders::qualified("placeOrder"), checked(placeOrder));
    service.add(orders::qualified("echoValues"), checked(echoValues));
    service.add(orders::qualified("cancelOrder"), checked(cancelOrder));
    serveUntilSignal(service);
}
