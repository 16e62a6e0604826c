// SPDX-License-Identifier: MIT
//
// Asks the service of exchange rates.
//
//     rates_client URL FROM TO      exit status 1 for faults and failures
#include "Rates.h"

#include <soap/TzSoapHttpClient.h>

#include <iostream>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: rates_client URL FROM TO\n";
        return 1;
    }
    try {
        TzSoapHttpOptions options;
        options.serviceNamespace = RatesNamespace;
        options.style = TzSoapStyle::Literal;
        const TzSoapHttpClient client(argv[1], options);
        const auto answer = client.call<Rate>("GetRate", RateRequest{argv[2], argv[3]});
        std::cout << answer.rate << " (" << answer.source << ")\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "rates_client: " << error.what() << '\n';
        return 1;
    }
}
