// SPDX-License-Identifier: MIT
//
// Calls the service of orders.wsdl that another SOAP stack serves: literal_client URL 1.1|1.2. A
// line for each case: its name and "ok" or what came back instead.
#include "../Compare.h"
#include "Orders.h"

#include "../InteropValues.h"

#include <soap/TzSoapHttpClient.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapValueReader.h>
#include <tz/xml/TzXmlUtils.h>

#include <cmath>
#include <functional>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using orders::compare;

/// The service of one peer, called in one version.
class Peer {
public:
    Peer(const std::string& url, TzSoapVersion::Version version)
        : client_(url), version_(version) {}

    /// The answer, be it a fault.
    TzSoapMessage call(const std::string& operation, const TzSoapCompositeType& entry) const {
        TzSoapMessage request(version_);
        request.setStyle(TzSoapStyle::Literal);
        request.getSoapBody().appendEntry(entry);
        const TzSoapMessage answer =
            values::messageIn(client_.tryCall(request, orders::space().getUri() + '#' + operation));
        if (answer.getVersion() != version_) {
            throw std::runtime_error("the answer is in " + answer.getMessageType());
        }
        return answer;
    }
    /// The element with the results; `std::runtime_error` for a fault.
    TzSoapType result(const std::string& operation, const TzSoapCompositeType& entry) const {
        const TzSoapMessage answer = call(operation, entry);
        if (answer.getSoapBody().hasFaultElement()) {
            const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
            throw std::runtime_error("fault " + fault.getCodeValue().getLocalName() + ": " +
                                     fault.getReason());
        }
        const TzSoapType found = answer.getSoapBody().getFirstEntry();
        const std::string wanted = operation + "Response";
        if (found.getName() != orders::qualified(wanted.c_str())) {
            throw std::runtime_error("the answer is " + found.getName().getQualifiedName());
        }
        return found;
    }
    /// The local name of a code.
    std::string codeName(TzSoapVersion::SoapFaultCode code) const {
        return TzSoapVersion::getSoapVersion(version_).getFaultCode(code).getLocalName();
    }

private:
    TzSoapHttpClient client_;
    TzSoapVersion::Version version_;
};

std::string places(const Peer& peer, const orders::Receipt& wanted) {
    const auto request = orders::wrap("placeOrder", {orders::write("order", wanted.order)});
    const orders::Receipt found = orders::readReceipt(peer.result("placeOrder", request));
    return compare(orders::show(wanted), orders::show(found));
}

std::string echoes(const Peer& peer, const orders::Values& sent) {
    const auto request = orders::wrap("echoValues", {orders::write("values", sent)});
    const TzSoapType answer = peer.result("echoValues", request);
    orders::childrenOf(answer, {"values"});
    const orders::Values found = orders::readValues(answer.getChild(orders::qualified("values")));
    return compare(orders::show(sent), orders::show(found));
}

TzDateTime moment(const char* text) { return TzXmlUtils::convertISODateStringToDateTime(text); }

orders::Receipt fullReceipt() {
    orders::Receipt receipt;
    receipt.order = {.number = "A-<1> & \"2\"",
                     .customer = "Jürgen & Zoë <Ltd> 漢字 😀",
                     .placed = moment("2026-12-31T23:59:59+01:00"),
                     .express = true,
                     .remark = "soon",
                     .lines = {{.article = "nut",
                                .amount = 3,
                                .price = TzDecimalPortable("17.25"),
                                .tags = {"small", "steel"},
                                .currency = "EUR"},
                               {.article = "bolt",
                                .amount = 40,
                                .price = TzDecimalPortable("0.50"),
                                .tags = {},
                                .currency = std::nullopt}}};
    receipt.amount = 43;
    receipt.cost = 71.75;
    return receipt;
}

orders::Receipt plainReceipt() {
    orders::Receipt receipt = fullReceipt();
    receipt.order.lines.clear();
    receipt.amount = 0;
    receipt.cost = 0;
    return receipt;
}

orders::Receipt longReceipt() {
    constexpr int Lines = 1000;
    orders::Receipt receipt = plainReceipt();
    for (int i = 1; i <= Lines; ++i) {
        receipt.order.lines.push_back({.article = "article " + std::to_string(i),
                                       .amount = i,
                                       .price = TzDecimalPortable("0.5"),
                                       .tags = {"a", "b"},
                                       .currency = "EUR"});
        receipt.amount += i;
        receipt.cost += i * 0.5;
    }
    return receipt;
}

/// The code without what SOAP 1.1 lets a sender add after a dot.
std::string genericCode(const TzSoapFault& fault) {
    const std::string name = fault.getCodeValue().getLocalName();
    return name.substr(0, name.find('.'));
}

std::string faultOf(const Peer& peer, const TzSoapMessage& answer,
                    TzSoapVersion::SoapFaultCode code, const std::string& reason) {
    if (!answer.getSoapBody().hasFaultElement()) {
        return "no fault";
    }
    const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
    return compare(peer.codeName(code) + ": " + reason,
                   genericCode(fault) + ": " + fault.getReason());
}

std::string plainFault(const Peer& peer) {
    orders::Receipt receipt = fullReceipt();
    receipt.order.lines.front().amount = 0;
    const auto request = orders::wrap("placeOrder", {orders::write("order", receipt.order)});
    return faultOf(peer, peer.call("placeOrder", request), TzSoapVersion::Server,
                   "Nothing of <nut> & co.");
}

std::string detailedFault(const Peer& peer) {
    const std::string number = "B & <é>";
    const auto request = orders::wrap("cancelOrder", {orders::writeText("number", number)});
    const TzSoapMessage answer = peer.call("cancelOrder", request);
    const std::string result =
        faultOf(peer, answer, TzSoapVersion::Client, "No order <" + number + "> & co.");
    if (result != "ok") {
        return result;
    }
    const TzSoapType detail = answer.getSoapBody().getSoapFault().getDetails().getChild(
        orders::qualified("unknownOrder"));
    const TzSoapValueReader found(detail.getChild(orders::qualified("number")));
    const TzSoapValueReader count(detail.getChild(orders::qualified("orders")));
    return compare(number + " of 42", found.getString() + " of " + std::to_string(count.getInt()));
}

std::string unknownOperation(const Peer& peer) {
    const TzSoapMessage answer = peer.call("burnOrder", orders::wrap("burnOrder", {}));
    if (!answer.getSoapBody().hasFaultElement()) {
        return "no fault";
    }
    return compare(peer.codeName(TzSoapVersion::Client),
                   genericCode(answer.getSoapBody().getSoapFault()));
}

/// A case by its name.
struct Case {
    const char* name;
    std::function<std::string(const Peer&)> run;
};

Case place(const char* name, const orders::Receipt& receipt) {
    return {name, [receipt](const Peer& peer) { return places(peer, receipt); }};
}

Case echo(const char* name, const orders::Values& values) {
    return {name, [values](const Peer& peer) { return echoes(peer, values); }};
}

Case texts(const char* name, const std::vector<std::optional<std::string>>& all) {
    return echo(name, {.texts = all});
}

std::vector<Case> orderCases() {
    orders::Receipt without = plainReceipt();
    without.order.express.reset();
    orders::Receipt nil = plainReceipt();
    nil.order.remark.reset();
    orders::Receipt empty = plainReceipt();
    empty.order.remark = "";
    return {
        place("order", fullReceipt()),
        place("order without lines", plainReceipt()),
        place("order of 1000 lines", longReceipt()),
        place("optional element absent", without),
        place("nil element", nil),
        place("empty element that may be nil", empty),
    };
}

std::vector<Case> valueCases() {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr long long Largest = std::numeric_limits<long long>::max();
    std::string bytes;
    for (int byte = 0; byte <= std::numeric_limits<unsigned char>::max(); ++byte) {
        bytes += static_cast<char>(byte);
    }
    return {
        echo("no values", {}),
        texts("string", {"Hello, world"}),
        texts("string: empty", {"a", "", "b"}),
        texts("string: nil", {"a", std::nullopt, "b"}),
        texts("string: entities", {R"(<tag attr="v">Tom & 'Jerry' &amp; &#65; ]]></tag>)"}),
        texts("string: blanks", {"  two leading, two trailing  ", "\t", "   "}),
        texts("string: line breaks", {"a\nb\r\nc\rd\n"}),
        texts("string: all of Unicode", {values::allOfUnicode()}),
        echo("long", {.counts = {0, -1, 2147483648LL, Largest, -Largest - 1}}),
        echo("double", {.numbers = {0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324}}),
        echo("double: INF and NaN", {.numbers = {Infinity, -Infinity, std::nan("")}}),
        echo("decimal",
             {.decimals = {TzDecimalPortable("17.25"), TzDecimalPortable("-123456789012.125")}}),
        echo("decimal of 33 digits",
             {.decimals = {TzDecimalPortable("-123456789012345678901234567890.125")}}),
        echo("boolean", {.flags = {true, false, true}}),
        echo("dateTime",
             {.moments = {moment("2026-12-31T23:59:59+01:00"), moment("1999-02-28T00:00:00Z")}}),
        echo("dateTime: fraction", {.moments = {moment("2026-12-31T23:59:59.25+01:00")}}),
        echo("base64", {.bytes = {bytes, "a"}}),
    };
}

std::vector<Case> faultCases() {
    return {
        {"fault", plainFault},
        {"fault with typed detail", detailedFault},
        {"unknown operation", unknownOperation},
    };
}

void runAll(const std::vector<Case>& cases, const Peer& peer) {
    for (const Case& entry : cases) {
        std::string result;
        try {
            result = entry.run(peer);
        } catch (const std::exception& error) {
            result = error.what();
        }
        std::cout << entry.name << '\t' << values::onOneLine(result) << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: literal_client URL 1.1|1.2\n";
        return 1;
    }
    const Peer peer(argv[1],
                    argv[2] == std::string("1.1") ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2Rec);
    runAll(orderCases(), peer);
    runAll(valueCases(), peer);
    runAll(faultCases(), peer);
}
