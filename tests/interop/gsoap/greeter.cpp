// SPDX-License-Identifier: MIT
//
// The service of ws/greeter.wsdl and a client for it with gSOAP and its plugins for WS-Security and
// WS-Addressing, around the code that soapcpp2 makes from greeter.gsoap (tests/interop/run does
// that):
//
//     greeter                  serves, on a port of the system's choice, which it prints
//     greeter URL              calls; a line for each case: its name and "ok" or what came back
#include "Compare.h"
#include "Gsoap.h"

#include "Greeter.nsmap"
#include "soapGreeterProxy.h"
#include "soapGreeterService.h"

#include <wsaapi.h>
#include <wsseapi.h>

#include <ctime>
#include <string>
#include <vector>

namespace {

constexpr soap_mode Mode = SOAP_C_UTFSTRING | SOAP_XML_STRICT;
constexpr char Action[] = "urn:example:greeter/greet";
constexpr char AnswerAction[] = "urn:example:greeter/greetResponse";
constexpr char User[] = "ann";
constexpr char Password[] = "s3cr\u00E9t & <\u6F22>";
constexpr char Name[] = "J\u00FCrgen & <Zo\u00EB>";
constexpr char Anonymous[] = "http://www.w3.org/2005/08/addressing/anonymous";
constexpr char FaultAction[] = "http://www.w3.org/2005/08/addressing/soap/fault";
constexpr char Failed[] = "wsse:FailedAuthentication";
constexpr char Expired[] = "wsu:MessageExpired";
constexpr std::time_t Lifetime = 300;
constexpr std::time_t Old = 3600;

using orders::compare;

std::string show(const char* text) { return text == nullptr ? "nothing" : text; }

/// The service: it greets users with their password.
class Greeter : public GreeterService {
public:
    explicit Greeter(struct soap* context) : GreeterService(context) {
        soap_register_plugin(soap, soap_wsa);
        soap_register_plugin(soap, soap_wsse);
    }
    GreeterService* copy() override { return new Greeter(soap); }

    int greet(const std::string& name, std::string& greeting) override {
        const bool isAddressed = soap->header != nullptr && soap->header->wsa5__Action != nullptr;
        if (isAddressed && soap_wsa_check(soap) != SOAP_OK) {
            return soap->error;
        }
        const int status = checkUser(name, greeting);
        soap_wsse_delete_Security(soap);
        if (status != SOAP_OK) {
            return status;
        }
        return isAddressed ? soap_wsa_reply(soap, nullptr, AnswerAction) : SOAP_OK;
    }

private:
    int checkUser(const std::string& name, std::string& greeting) {
        const char* const user = soap_wsse_get_Username(soap);
        if (user == nullptr || soap_wsse_verify_Timestamp(soap) != SOAP_OK) {
            return soap->error;
        }
        if (user != std::string(User)) {
            return soap_wsse_fault(soap, wsse__FailedAuthentication, nullptr);
        }
        if (soap_wsse_verify_Password(soap, Password) != SOAP_OK) {
            return soap->error;
        }
        greeting = "Hello, " + name + ", from " + user;
        return SOAP_OK;
    }
};

/// A client for one version.
class Caller {
public:
    explicit Caller(const char* url) : url_(url), proxy_(url, Mode) {
        soap_register_plugin(soap(), soap_wsa);
        soap_register_plugin(soap(), soap_wsse);
    }

    /// Begins a request.
    Caller& address(const char* action = Action) {
        id_ = soap_wsa_rand_uuid(soap());
        soap_wsa_request(soap(), id_.c_str(), url_.c_str(), action);
        return *this;
    }
    Caller& addPassword(const char* password = Password) {
        soap_wsse_add_UsernameTokenText(soap(), nullptr, User, password);
        return *this;
    }
    Caller& addDigest(const char* user = User, const char* password = Password) {
        soap_wsse_add_UsernameTokenDigest(soap(), nullptr, user, password);
        return *this;
    }
    Caller& addOldDigest() {
        soap_wsse_add_UsernameTokenDigest_at(soap(), nullptr, User, Password,
                                             std::time(nullptr) - Old);
        return *this;
    }
    Caller& addTimestamp() {
        soap_wsse_add_Timestamp(soap(), nullptr, Lifetime);
        return *this;
    }
    Caller& addOldTimestamp() {
        addTimestamp();
        _wsu__Timestamp* const stamp = soap_wsse_Timestamp(soap());
        const std::time_t made = std::time(nullptr) - Old;
        stamp->Created = soap_strdup(soap(), soap_dateTime2s(soap(), made));
        stamp->Expires = soap_strdup(soap(), soap_dateTime2s(soap(), made + Lifetime));
        return *this;
    }
    Caller& replyTo(const char* address) {
        soap_wsa_add_ReplyTo(soap(), address);
        return *this;
    }
    Caller& addTicket() {
        static char ticket[] = "<g:ticket xmlns:g=\"urn:example:greeter\">a &lt;1&gt;</g:ticket>";
        static char* tickets[] = {ticket};
        replyTo(Anonymous);
        auto* const parameters = static_cast<wsa5__ReferenceParametersType*>(
            soap_malloc(soap(), sizeof(wsa5__ReferenceParametersType)));
        soap_default_wsa5__ReferenceParametersType(soap(), parameters);
        parameters->__size = 1;
        parameters->__any = tickets;
        header().wsa5__ReplyTo->ReferenceParameters = parameters;
        return *this;
    }

    /// "ok" when the service greets.
    std::string greets() {
        std::string greeting;
        if (proxy_.greet(Name, greeting) != SOAP_OK) {
            return gsoap::lastFault(soap());
        }
        return compare(std::string("Hello, ") + Name + ", from " + User, greeting);
    }
    /// "ok" when the service refuses with `code`, in a subcode where the version has those.
    std::string refuses(const char* code) {
        std::string greeting;
        if (proxy_.greet(Name, greeting) == SOAP_OK) {
            return "no fault: " + greeting;
        }
        return compare(code, show(lastCode()));
    }
    /// Sends what was begun, and then the same again.
    std::string refusesAgain(const char* code) {
        const SOAP_ENV__Header sent = header();
        const std::string first = greets();
        *soap()->header = sent;
        return first == "ok" ? refuses(code) : "first: " + first;
    }
    /// "ok" when what came back says that it is about the request.
    std::string relates(const char* action) {
        if (soap()->header == nullptr) {
            return "no header";
        }
        const wsa5__RelatesToType* const about = header().wsa5__RelatesTo;
        return compare("to " + show(Anonymous) + " action " + show(action) + " about " + id_,
                       "to " + show(header().wsa5__To) + " action " + show(header().wsa5__Action) +
                           " about " + show(about == nullptr ? nullptr : about->__item));
    }
    std::string isChecked() {
        return soap_wsa_check(soap()) == SOAP_OK ? "ok" : gsoap::lastFault(soap());
    }
    std::string hasTicket() {
        return soap()->header == nullptr ? "no header" : compare("a <1>", show(header().g__ticket));
    }
    /// Frees what the last case took.
    void clear() {
        proxy_.destroy();
        proxy_.soap_noheader();
    }

private:
    /// The code, in a version with subcodes the last of those.
    const char* lastCode() {
        soap_set_fault(soap());
        if (gsoap::IsFirst) {
            return *soap_faultcode(soap());
        }
        const SOAP_ENV__Code* code = soap()->fault->SOAP_ENV__Code;
        while (code->SOAP_ENV__Subcode != nullptr) {
            code = code->SOAP_ENV__Subcode;
        }
        return code->SOAP_ENV__Value;
    }
    struct soap* soap() {
        return proxy_.soap;
    }
    SOAP_ENV__Header& header() { return *soap()->header; }

    std::string url_;
    GreeterProxy proxy_;
    std::string id_;
};

using Case = gsoap::Case<Caller>;

std::string both(const std::string& first, const std::string& second) {
    return first == "ok" ? second : first;
}

std::string answerRelates(Caller& caller) {
    const std::string result = caller.address().addDigest().greets();
    return both(both(result, caller.isChecked()), caller.relates(AnswerAction));
}

std::string faultRelates(Caller& caller) {
    const std::string result = caller.address().addPassword("wrong").refuses(Failed);
    return both(result, caller.relates(FaultAction));
}

std::string parameterReturns(Caller& caller) {
    const std::string result = caller.address().addTicket().addDigest().greets();
    return both(result, caller.hasTicket());
}

std::vector<Case> allCases() {
    return {
        {"password", [](Caller& c) { return c.address().addPassword().greets(); }},
        {"digest", [](Caller& c) { return c.address().addDigest().greets(); }},
        {"digest and timestamp",
         [](Caller& c) { return c.address().addTimestamp().addDigest().greets(); }},
        {"wrong password",
         [](Caller& c) { return c.address().addPassword("wrong").refuses(Failed); }},
        {"wrong digest",
         [](Caller& c) { return c.address().addDigest(User, "wrong").refuses(Failed); }},
        {"unknown user", [](Caller& c) { return c.address().addDigest("bob").refuses(Failed); }},
        {"no user", [](Caller& c) { return c.address().addTimestamp().refuses(Failed); }},
        {"digest sent twice",
         [](Caller& c) { return c.address().addDigest().refusesAgain(Failed); }},
        {"old digest", [](Caller& c) { return c.address().addOldDigest().refuses(Expired); }},
        {"old timestamp",
         [](Caller& c) { return c.address().addOldTimestamp().addDigest().refuses(Expired); }},
        {"no addressing", [](Caller& c) { return c.addDigest().greets(); }},
        {"answer relates to the request", answerRelates},
        {"fault relates to the request", faultRelates},
        {"reference parameter comes back", parameterReturns},
        {"answer wanted elsewhere",
         [](Caller& c) {
             return c.address()
                 .replyTo("http://127.0.0.1:9/elsewhere")
                 .addDigest()
                 .refuses("wsa5:OnlyAnonymousAddressSupported");
         }},
        {"action of another message",
         [](Caller& c) {
             return c.address("urn:example:greeter/leave")
                 .addDigest()
                 .refuses("wsa5:ActionMismatch");
         }},
    };
}

} // namespace

int main(int argc, char** argv) {
    return gsoap::run<Greeter, Caller>(argc, argv, Mode, allCases());
}
