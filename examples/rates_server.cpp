// SPDX-License-Identifier: MIT
//
// A document/literal service of exchange rates over HTTP.
//
//     rates_server [PORT]      port 0: any; ends on SIGTERM and SIGINT
#include "HttpService.h"
#include "Rates.h"

#include <soap/TzSoapDispatcher.h>

#include <iostream>
#include <map>

namespace {

Rate getRate(const RateRequest& request) {
    static const std::map<std::string, double> rates = {{"EURUSD", 1.25}, {"USDJPY", 150.5}};
    const auto found = rates.find(request.from + request.to);
    if (found == rates.end()) {
        throw TzSoapFaultError(TzSoapVersion::Client,
                               "There is no rate of " + request.from + " in " + request.to);
    }
    return {found->second, "example"};
}

} // namespace

int main(int argc, char** argv) {
    try {
        TzSoapDispatcher service(TzSoapStyle::Literal);
        service.add(TzXmlName("GetRate", TzXmlNamespace("r", RatesNamespace)), getRate);
        serveUntilSignal(service, argc > 1 ? std::stoi(argv[1]) : 0);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "rates_server: " << error.what() << '\n';
        return 1;
    }
}
