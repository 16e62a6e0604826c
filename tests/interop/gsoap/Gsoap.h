// SPDX-License-Identifier: MIT
#pragma once

#include <stdsoap2.h>

#include <cmath>
#include <functional>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

/// What both programs around gSOAP need.
namespace gsoap {

/// Whether the program is made for SOAP 1.1, not 1.2: gSOAP gives it one of them.
constexpr bool IsFirst = GSOAP_VERSION_OF_SOAP == 1;

/// A number with all its digits; NaN has no sign.
inline std::string shownNumber(double number) {
    if (std::isnan(number)) {
        return "NaN";
    }
    std::ostringstream out;
    out.precision(std::numeric_limits<double>::max_digits10);
    out << number;
    return out.str();
}

/// A fault as the clients of the tests show it.
inline std::string faultText(const std::string& code, const std::string& reason) {
    return "fault " + code + ": " + reason;
}

/// What went wrong in the last call, its code without prefix.
inline std::string lastFault(struct soap* context) {
    soap_set_fault(context); // what this side found has no fault yet
    const char* const name = *soap_faultcode(context);
    const char* const reason = *soap_faultstring(context);
    const std::string code = name == nullptr ? "" : name;
    return faultText(code.substr(code.find(':') + 1), reason == nullptr ? "" : reason);
}

/// Serves on a port of the system's choice, which it prints, until the program is ended.
template <typename Service> int serve(Service& service) {
    constexpr int Waiting = 100;
    if (!soap_valid_socket(service.bind("127.0.0.1", 0, Waiting))) {
        service.soap_stream_fault(std::cerr);
        return 1;
    }
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(service.soap->master, reinterpret_cast<sockaddr*>(&address), &size);
    std::cout << "listening on http://127.0.0.1:" << ntohs(address.sin_port) << '/' << std::endl;
    while (soap_valid_socket(service.accept())) {
        service.serve();
        service.destroy();
    }
    return 1;
}

/// A case by its name.
template <typename Caller> struct Case {
    const char* name;
    std::function<std::string(Caller&)> run;
};

/// The cases of both lists.
template <typename Caller>
std::vector<Case<Caller>> joined(std::vector<Case<Caller>> cases,
                                 const std::vector<Case<Caller>>& others) {
    cases.insert(cases.end(), others.begin(), others.end());
    return cases;
}

/// Serves without arguments; calls the URL in the first argument and prints a line for each case:
/// its name and its result. The exit status.
template <typename Service, typename Caller>
int run(int argc, char** argv, soap_mode mode, const std::vector<Case<Caller>>& cases) {
    if (argc == 1) {
        Service service(soap_new1(mode));
        return serve(service);
    }
    Caller caller(argv[1]);
    for (const Case<Caller>& each : cases) {
        std::string result = each.run(caller);
        for (char& c : result) {
            c = c == '\n' || c == '\t' ? ' ' : c;
        }
        std::cout << each.name << '\t' << result << '\n';
        caller.clear();
    }
    return 0;
}

} // namespace gsoap
