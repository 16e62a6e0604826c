// SPDX-License-Identifier: MIT
//
// Builds a stock order and a fault in each version, prints what goes over the wire, reads it back.
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/tools/Tzxmsg.h>

#include <chrono>
#include <iostream>
#include <string>

namespace {

using Base = TzSoapContentBase;

const TzXmlNamespace& stock() {
    static const TzXmlNamespace instance("m", "urn:example:stock");
    return instance;
}

TzSoapMessage emptyMessage(TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    message.setProlog(TzXmlProlog());
    message.declareTypeNamespaces(); // or receivers do not know what "xsd:int" means
    return message;
}

TzSoapMessage order(TzSoapVersion::Version version) {
    TzSoapMessage message = emptyMessage(version);
    const TzSoapSimpleType transaction(TzXmlName("transaction", stock()), 5, Base::xsdInt, true);
    message.getSoapHeader().appendHeaderEntry(transaction, true, TzCString("urn:example:gateway"));
    TzSoapCompositeType request(TzXmlName("placeOrder", stock()));
    request.appendChild(TzSoapSimpleType("symbol", "ACME & Sons", Base::xsdString, true));
    request.appendChild(TzSoapSimpleType("amount", 200, Base::xsdInt, true));
    TzSoapCompositeType limit(TzXmlName("limit"));
    limit.appendChild(TzSoapSimpleType::exact("price", 17.5, Base::xsdDouble, true));
    const std::chrono::year_month_day lastDay(std::chrono::year(2026) / 12 / 31);
    limit.appendChild(TzSoapSimpleType("until", lastDay, Base::xsdDate, true));
    request.appendChild(limit);
    message.getSoapBody().appendEntry(request);
    return message;
}

TzSoapMessage refusal(TzSoapVersion::Version version) {
    TzSoapMessage message = emptyMessage(version);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.setReason("The market is closed");
    fault.setNode("urn:example:exchange");
    fault.addDetailEntry("opens", TzSoapSimpleType("opens", "09:00:00", Base::xsdTime, true));
    return message;
}

void printValue(const TzSoapType& value, const std::string& indent) {
    std::cout << indent << value.getSoapTypeIdAsString() << ' '
              << value.getName().getQualifiedName();
    if (value.getMustUnderstand()) {
        std::cout << " (must be understood by " << value.getActorAttribute() << ')';
    }
    if (const auto simple = tzSoapCast<TzSoapSimpleType>(value)) {
        std::cout << " = " << simple->getString() << " (" << simple->getTypeAttribute() << ')';
    }
    std::cout << '\n';
    if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
        for (const TzSoapType& child : *composite) {
            printValue(child, indent + "  ");
        }
    }
}

void printTree(const TzSoapMessage& message) {
    const TzSoapBody& body = message.getSoapBody();
    std::cout << message.getMessageType() << '\n';
    for (const TzSoapType& entry : message.getSoapHeader()) {
        printValue(entry, "  header: ");
    }
    for (const TzSoapType& entry : body) {
        printValue(entry, "  body: ");
    }
    if (body.hasSoapFault()) {
        const TzSoapFault& fault = body.getSoapFault();
        std::cout << "  fault: " << fault.getCodeValue().getQualifiedName() << ", "
                  << fault.getReason() << ", by " << fault.getNode() << '\n';
        printValue(fault.getDetails(), "    ");
    }
}

void roundTrip(const char* title, const TzSoapMessage& message) {
    const std::string wire = message.asText(TzSoapLayout::Compact);
    std::cout << "--- " << title << " ---\n" << message.asString() << '\n';
    TzSoapMessage received;
    received.extract(wire);
    printTree(received);
    std::cout << '\n';
}

} // namespace

int main() {
    try {
        roundTrip("Order, SOAP 1.1", order(TzSoapVersion::V1_1));
        roundTrip("Order, SOAP 1.2", order(TzSoapVersion::V1_2));
        roundTrip("Fault, SOAP 1.1", refusal(TzSoapVersion::V1_1));
        roundTrip("Fault, SOAP 1.2", refusal(TzSoapVersion::V1_2));
        return 0;
    } catch (const Tzxmsg& error) {
        std::cerr << "round_trip: " << error.describe() << '\n';
        return 1;
    }
}
