// SPDX-License-Identifier: MIT
//
// The service of orders.wsdl and a client for it with gSOAP, around the code that wsdl2h and
// soapcpp2 make from orders.wsdl (tests/interop/run does that):
//
//     orders                  serves, on a port of the system's choice, which it prints
//     orders URL 1.1|1.2      calls; a line for each case: its name and "ok" or what came
//     back
#include "CodePoints.h"
#include "Compare.h"
#include "Gsoap.h"

#include "Orders11.nsmap"
#include "soapOrders11Proxy.h"
#include "soapOrders11Service.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

// Strict: what the schema does not have is a fault.
constexpr soap_mode Mode = SOAP_C_UTFSTRING | SOAP_XML_STRICT;
constexpr std::time_t LastMoment = 1798757999; // 2026-12-31T23:59:59+01:00

using orders::compare;

std::string show(const std::string& text) { return orders::shownText(text); }
std::string show(const std::string* text) { return text == nullptr ? "nil" : show(*text); }
std::string show(LONG64 number) { return std::to_string(number); }
std::string show(bool flag) { return flag ? "true" : "false"; }
std::string show(double number) { return gsoap::shownNumber(number); }
std::string show(const xsd__base64Binary& bytes) {
    return show(std::string(reinterpret_cast<const char*>(bytes.__ptr),
                            static_cast<std::size_t>(bytes.__size)));
}
std::string show(const ns1__Line* line);

template <typename Item> std::string showAll(const char* name, const std::vector<Item>& items) {
    std::string all = std::string(" ") + name + '[';
    for (std::size_t i = 0; i < items.size(); ++i) {
        all += (i == 0 ? "" : ", ") + show(static_cast<Item>(items[i]));
    }
    return all + ']';
}

std::string show(const ns1__Line* line) {
    return "article " + show(line->article) + " amount " + std::to_string(line->amount) +
           " price " + show(line->price) + " currency " + show(line->currency) +
           showAll("tags", line->tag);
}

std::string show(const ns1__Order& order) {
    return "order " + show(order.number) + " of " + show(order.customer) + " at " +
           std::to_string(order.placed) + " express " +
           (order.express == nullptr ? "absent" : show(*order.express)) + " remark " +
           show(order.remark) + showAll("lines", order.line);
}

std::string show(const ns1__Values& values) {
    return showAll("texts", values.text) + showAll("counts", values.count) +
           showAll("numbers", values.number) + showAll("decimals", values.decimal) +
           showAll("flags", values.flag) + showAll("moments", values.moment) +
           showAll("bytes", values.bytes);
}

/// The service.
class Orders : public Orders11Service {
public:
    explicit Orders(struct soap* context) : Orders11Service(context) {}
    Orders11Service* copy() override { return new Orders(soap); }

    int placeOrder(_ns1__placeOrder* request, _ns1__placeOrderResponse& answer) override {
        answer.order = request->order;
        answer.amount = 0;
        answer.cost = 0;
        for (const ns1__Line* line : request->order->line) {
            if (line->amount == 0) {
                return soap_receiverfault(text("Nothing of <" + line->article + "> & co."),
                                          nullptr);
            }
            answer.amount += line->amount;
            answer.cost += line->amount * std::stod(line->price);
        }
        return SOAP_OK;
    }
    int echoValues(_ns1__echoValues* request, _ns1__echoValuesResponse& answer) override {
        answer.values = request->values;
        return SOAP_OK;
    }
    int cancelOrder(_ns1__cancelOrder* request, _ns1__cancelOrderResponse&) override {
        const int status =
            soap_senderfault(text("No order <" + request->number + "> & co."), nullptr);
        auto* unknown = soap_new__ns1__unknownOrder(soap);
        unknown->number = request->number;
        unknown->orders = 42;
        auto* detail = static_cast<SOAP_ENV__Detail*>(soap_malloc(soap, sizeof(SOAP_ENV__Detail)));
        soap_default_SOAP_ENV__Detail(soap, detail);
        detail->ns1__unknownOrder = unknown;
        (gsoap::IsFirst ? soap->fault->detail : soap->fault->SOAP_ENV__Detail) = detail;
        return status;
    }
    // The second binding of the WSDL, by the same elements.
    int placeOrder_(_ns1__placeOrder* request, _ns1__placeOrderResponse& answer) override {
        return placeOrder(request, answer);
    }
    int echoValues_(_ns1__echoValues* request, _ns1__echoValuesResponse& answer) override {
        return echoValues(request, answer);
    }
    int cancelOrder_(_ns1__cancelOrder* request, _ns1__cancelOrderResponse& answer) override {
        return cancelOrder(request, answer);
    }

private:
    const char* text(const std::string& value) { return soap_strdup(soap, value.c_str()); }
};

/// A client for one version.
class Caller {
public:
    explicit Caller(const char* url) : proxy_(url, Mode) {}

    std::string* makeString(const std::string& text) {
        std::string* const made = soap_new_std__string(proxy_.soap);
        *made = text;
        return made;
    }
    ns1__Order* makeOrder() {
        ns1__Order* const order = soap_new_ns1__Order(proxy_.soap);
        order->number = "A-<1> & \"2\"";
        order->customer = "Jürgen & Zoë <Ltd> 漢字 😀";
        order->placed = LastMoment;
        order->express = soap_new_bool(proxy_.soap);
        *order->express = true;
        order->remark = makeString("soon");
        return order;
    }
    void addLine(ns1__Order* order, const std::string& article, int amount, const char* price,
                 const std::vector<std::string>& tags, const char* currency) {
        ns1__Line* const line = soap_new_ns1__Line(proxy_.soap);
        line->article = article;
        line->amount = amount;
        line->price = price;
        line->tag = tags;
        line->currency = currency == nullptr ? nullptr : makeString(currency);
        order->line.push_back(line);
    }

    std::string places(ns1__Order* order, LONG64 amount, double cost) {
        _ns1__placeOrder request;
        request.order = order;
        _ns1__placeOrderResponse answer;
        if (proxy_.placeOrder(&request, answer) != SOAP_OK) {
            return fault();
        }
        return compare(show(*order) + " amount " + show(amount) + " cost " + show(cost),
                       show(*answer.order) + " amount " + show(answer.amount) + " cost " +
                           show(answer.cost));
    }
    std::string echoes(const std::function<void(ns1__Values&)>& fill) {
        _ns1__echoValues request;
        request.values = soap_new_ns1__Values(proxy_.soap);
        fill(*request.values);
        _ns1__echoValuesResponse answer;
        if (proxy_.echoValues(&request, answer) != SOAP_OK) {
            return fault();
        }
        return compare(show(*request.values), show(*answer.values));
    }
    std::string plainFault() {
        ns1__Order* const order = makeOrder();
        addLine(order, "nut", 0, "1", {}, nullptr);
        return compare(faultText("Server", "Receiver", "Nothing of <nut> & co."),
                       places(order, 0, 0));
    }
    std::string detailedFault() {
        _ns1__cancelOrder request;
        request.number = "B & <é>";
        _ns1__cancelOrderResponse answer;
        if (proxy_.cancelOrder(&request, answer) == SOAP_OK) {
            return "no fault";
        }
        const std::string wanted =
            faultText("Client", "Sender", "No order <" + request.number + "> & co.");
        const SOAP_ENV__Fault* const found = proxy_.soap_fault();
        const SOAP_ENV__Detail* const detail =
            gsoap::IsFirst ? found->detail : found->SOAP_ENV__Detail;
        if (detail == nullptr || detail->ns1__unknownOrder == nullptr) {
            return fault() + " without detail";
        }
        const _ns1__unknownOrder& unknown = *detail->ns1__unknownOrder;
        return compare(wanted + ": " + request.number + " of 42",
                       fault() + ": " + unknown.number + " of " + std::to_string(unknown.orders));
    }
    /// Frees what the last case took.
    void clear() { proxy_.destroy(); }

private:
    static std::string faultText(const char* first, const char* second, const std::string& reason) {
        return gsoap::faultText(gsoap::IsFirst ? first : second, reason);
    }
    std::string fault() { return gsoap::lastFault(proxy_.soap); }

    Orders11Proxy proxy_;
};

using Case = gsoap::Case<Caller>;

Case order(const char* name, const std::function<void(Caller&, ns1__Order&)>& change) {
    return {name, [change](Caller& caller) {
                ns1__Order* const made = caller.makeOrder();
                change(caller, *made);
                return caller.places(made, 0, 0);
            }};
}

Case echo(const char* name, const std::function<void(ns1__Values&)>& fill) {
    return {name, [fill](Caller& caller) { return caller.echoes(fill); }};
}

Case texts(const char* name, const std::vector<std::string>& all) {
    return echo(name, [all](ns1__Values& values) { values.text = all; });
}

std::string fullOrder(Caller& caller) {
    ns1__Order* const made = caller.makeOrder();
    caller.addLine(made, "nut", 3, "17.25", {"small", "steel"}, "EUR");
    caller.addLine(made, "bolt", 40, "0.50", {}, nullptr);
    return caller.places(made, 43, 71.75);
}

std::string longOrder(Caller& caller) {
    ns1__Order* const made = caller.makeOrder();
    for (int i = 1; i <= 1000; ++i) {
        caller.addLine(made, "article " + std::to_string(i), i, "0.5", {"a", "b"}, "EUR");
    }
    return caller.places(made, 500500, 250250);
}

std::vector<Case> orderCases() {
    return {
        {"order", fullOrder},
        order("order without lines", [](Caller&, ns1__Order&) {}),
        {"order of 1000 lines", longOrder},
        order("optional element absent", [](Caller&, ns1__Order& made) { made.express = nullptr; }),
        order("nil element", [](Caller&, ns1__Order& made) { made.remark = nullptr; }),
        order("empty element that may be nil",
              [](Caller& caller, ns1__Order& made) { made.remark = caller.makeString(""); }),
    };
}

std::vector<Case> valueCases() {
    static unsigned char bytes[256];
    for (int byte = 0; byte < 256; ++byte) {
        bytes[byte] = static_cast<unsigned char>(byte);
    }
    return {
        echo("no values", [](ns1__Values&) {}),
        texts("string", {"Hello, world"}),
        texts("string: empty", {"a", "", "b"}),
        {"string: nil",
         [](Caller&) {
             return "n/a: gSOAP has texts of a list as std::string, which is never nil.";
         }},
        texts("string: entities", {R"(<tag attr="v">Tom & 'Jerry' &amp; &#65; ]]></tag>)"}),
        texts("string: blanks", {"  two leading, two trailing  ", "\t", "   "}),
        texts("string: line breaks", {"a\nb\r\nc\rd\n"}),
        texts("string: all of Unicode", {values::allOfUnicode()}),
        echo("long",
             [](ns1__Values& values) {
                 constexpr LONG64 Largest = std::numeric_limits<LONG64>::max();
                 values.count = {0, -1, 2147483648LL, Largest, -Largest - 1};
             }),
        echo("double",
             [](ns1__Values& values) {
                 values.number = {0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324};
             }),
        echo("double: INF and NaN",
             [](ns1__Values& values) {
                 values.number = {HUGE_VAL, -HUGE_VAL, std::nan("")};
             }),
        echo("decimal",
             [](ns1__Values& values) {
                 values.decimal = {"17.25", "-123456789012.125"};
             }),
        echo("decimal of 33 digits",
             [](ns1__Values& values) { values.decimal = {"-123456789012345678901234567890.125"}; }),
        echo("boolean",
             [](ns1__Values& values) {
                 values.flag = {true, false, true};
             }),
        echo("dateTime",
             [](ns1__Values& values) {
                 values.moment = {LastMoment, 920160000};
             }),
        {"dateTime: fraction",
         [](Caller&) { return "n/a: gSOAP has moments as time_t, without fraction."; }},
        echo("base64",
             [](ns1__Values& values) {
                 xsd__base64Binary all;
                 all.__ptr = bytes;
                 all.__size = 256;
                 xsd__base64Binary one;
                 one.__ptr = bytes + 'a';
                 one.__size = 1;
                 values.bytes = {all, one};
             }),
        {"fault", [](Caller& caller) { return caller.plainFault(); }},
        {"fault with typed detail", [](Caller& caller) { return caller.detailedFault(); }},
        {"unknown operation",
         [](Caller&) { return "n/a: gSOAP calls the operations of the WSDL only."; }},
    };
}

} // namespace

int main(int argc, char** argv) {
    return gsoap::run<Orders, Caller>(argc, argv, Mode, gsoap::joined(orderCases(), valueCases()));
}
