// SPDX-License-Identifier: MIT
//
// Calls the service of greeter.wsdl that another SOAP stack serves, with WS-Addressing and
// WS-Security: ws_client URL 1.1|1.2. A line for each case: its name and "ok" or what came back
// instead.
#include "../Compare.h"
#include "../InteropValues.h"
#include "Greeter.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHttpClient.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapWsAddressing.h>
#include <soap/TzSoapWsSecurity.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace {

using orders::compare;
using Wsa = TzSoapWsAddressing;
using Security = TzSoapWsSecurity;

constexpr char Name[] = "J\u00FCrgen & <Zo\u00EB>";
constexpr std::chrono::hours Old(1);

TzXmlName wsa(const char* localName) { return {localName, TzXmlNamespace("wsa", Wsa::Namespace)}; }
TzXmlName failed() { return {"FailedAuthentication", TzXmlNamespace("wsse", Security::Namespace)}; }
TzXmlName expired() {
    return {"MessageExpired", TzXmlNamespace("wsu", Security::UtilityNamespace)};
}

Security::Time oldTime() { return std::chrono::system_clock::now() - Old; }
Security password() { return Security().addPassword(greeter::User, greeter::Password); }
Security digest() { return Security().addPasswordDigest(greeter::User, greeter::Password); }

Wsa addressing() {
    Wsa properties;
    properties.action = greeter::Action;
    properties.messageId = Wsa::makeMessageId();
    return properties;
}

TzSoapSimpleType ticket() {
    return {greeter::qualified("ticket"), "a <1>", TzSoapType::xsdUnknown, false};
}

std::string shown(const TzXmlName& name) { return name.getLocalName() + " of " + name.getUri(); }

std::string shown(const Wsa& properties) {
    std::string text = "to " + properties.to + " action " + properties.action;
    for (const Wsa::Relation& relation : properties.relatesTo) {
        text += " about " + relation.messageId;
    }
    return text;
}

std::string parametersOf(const Wsa& properties) {
    std::string text;
    for (const TzSoapType& parameter : properties.referenceParameters) {
        text += shown(parameter.getName()) + ' ' + TzSoapView(parameter).as<std::string>() + ' ';
    }
    return text.empty() ? "no parameter" : text;
}

/// The service of one peer, called in one version.
class Peer {
public:
    Peer(const std::string& url, TzSoapVersion::Version version)
        : client_(url), version_(version) {}

    TzSoapMessage request(const Security& security, Wsa properties = addressing()) const {
        TzSoapMessage made = requestWithoutAddressing(security);
        properties.to = client_.getUrl();
        properties.write(made, true);
        return made;
    }
    TzSoapMessage requestWithoutAddressing(const Security& security) const {
        TzSoapMessage made(version_);
        made.setStyle(TzSoapStyle::Literal);
        made.getSoapBody().appendEntry(
            tzSoapValue(greeter::Request{Name}, greeter::qualified("greet"), TzSoapStyle::Literal));
        security.write(made);
        return made;
    }
    TzSoapHttpResult send(const TzSoapMessage& request) const {
        return client_.tryCall(request, greeter::Action);
    }

    /// "ok" when the service greets.
    std::string greets(const TzSoapMessage& request) const { return greeted(send(request)); }
    std::string greets(const Security& security) const { return greets(request(security)); }
    /// "ok" when the service refuses with `code`, in a subcode where the version has those.
    std::string refuses(const TzXmlName& code, const TzSoapMessage& request) const {
        return refused(code, send(request));
    }
    std::string refuses(const TzXmlName& code, const Security& security) const {
        return refuses(code, request(security));
    }

    /// What `refuses` says of a result.
    static std::string refused(const TzXmlName& code, const TzSoapHttpResult& result) {
        const TzSoapFaultError* const fault = result.findFault();
        if (fault == nullptr) {
            return "no fault, greeted: " + greeted(result);
        }
        const std::vector<TzXmlName> subcodes = fault->getSubcodes();
        return compare(shown(code), shown(subcodes.empty() ? fault->getCode() : subcodes.back()));
    }

private:
    static std::string greeted(const TzSoapHttpResult& result) {
        const TzSoapMessage answer = result.getAnswer();
        const auto found = TzSoapView(answer.getSoapBody().getFirstEntry()).as<greeter::Answer>();
        return compare(std::string("Hello, ") + Name + ", from " + greeter::User, found.greeting);
    }

    TzSoapHttpClient client_;
    TzSoapVersion::Version version_;
};

struct Case {
    const char* name;
    std::function<std::string(const Peer&)> run;
};

Case accepted(const char* name, const std::function<Security()>& security) {
    return {name, [security](const Peer& peer) { return peer.greets(security()); }};
}
Case refused(const char* name, const TzXmlName& code, const std::function<Security()>& security) {
    return {name, [code, security](const Peer& peer) { return peer.refuses(code, security()); }};
}

/// No standard says with which code.
std::string oldDigest(const Peer& peer) {
    const TzSoapHttpResult result = peer.send(
        peer.request(Security().addPasswordDigest(greeter::User, greeter::Password, oldTime())));
    return Peer::refused(failed(), result) == "ok"
               ? "ok\tthe code of the refusal is FailedAuthentication, not MessageExpired"
               : Peer::refused(expired(), result);
}

std::vector<Case> securityCases() {
    return {
        accepted("password", password),
        accepted("digest", digest),
        accepted("digest and timestamp", [] { return digest().addTimestamp(); }),
        refused("wrong password", failed(),
                [] { return Security().addPassword(greeter::User, "wrong"); }),
        refused("wrong digest", failed(),
                [] { return Security().addPasswordDigest(greeter::User, "wrong"); }),
        refused("unknown user", failed(),
                [] { return Security().addPasswordDigest("bob", greeter::Password); }),
        refused("no user", failed(), [] { return Security().addTimestamp(); }),
        {"digest sent twice",
         [](const Peer& peer) {
             const TzSoapMessage request = peer.request(digest());
             const std::string first = peer.greets(request);
             return first == "ok" ? peer.refuses(failed(), request) : "first: " + first;
         }},
        {"old digest", oldDigest},
        refused("old timestamp", expired(),
                [] { return digest().addTimestamp(std::chrono::minutes(5), oldTime()); }),
    };
}

/// The addressing properties of what comes back, an answer or a fault.
Wsa addressingBack(const Peer& peer, const Security& security, const Wsa& sent) {
    const TzSoapHttpResult result = peer.send(peer.request(security, sent));
    const TzSoapFaultError* const fault = result.findFault();
    return Wsa::read(fault != nullptr ? fault->getMessage() : result.getAnswer());
}

std::string answerRelates(const Peer& peer) {
    const Wsa sent = addressing();
    return compare(shown(sent.answer(greeter::AnswerAction)),
                   shown(addressingBack(peer, digest(), sent)));
}

std::string faultRelates(const Peer& peer) {
    const Wsa sent = addressing();
    const Security wrong = Security().addPassword(greeter::User, "wrong");
    return compare(shown(sent.faultAnswer()), shown(addressingBack(peer, wrong, sent)));
}

std::string parameterReturns(const Peer& peer) {
    Wsa sent = addressing();
    sent.replyTo.emplace().referenceParameters.push_back(ticket());
    return compare(parametersOf(sent.answer(greeter::AnswerAction)),
                   parametersOf(addressingBack(peer, digest(), sent)));
}

/// A service may refuse that, or send the answer there.
std::string answerElsewhere(const Peer& peer) {
    Wsa sent = addressing();
    sent.replyTo.emplace().address = "http://127.0.0.1:9/elsewhere";
    const TzSoapMessage request = peer.request(digest(), sent);
    const TzSoapHttpResult result = peer.send(request);
    return result.isEmpty() ? "ok\tthe service takes the request and sends no message back"
                            : Peer::refused(wsa("OnlyAnonymousAddressSupported"), result);
}

std::string otherAction(const Peer& peer) {
    Wsa sent = addressing();
    sent.action = "urn:example:greeter/leave";
    return peer.refuses(wsa("ActionMismatch"), peer.request(digest(), sent));
}

std::string withoutAddressing(const Peer& peer) {
    return peer.greets(peer.requestWithoutAddressing(digest()));
}

std::vector<Case> addressingCases() {
    return {
        {"no addressing", withoutAddressing},
        {"answer relates to the request", answerRelates},
        {"fault relates to the request", faultRelates},
        {"reference parameter comes back", parameterReturns},
        {"answer wanted elsewhere", answerElsewhere},
        {"action of another message", otherAction},
    };
}

void runAll(const std::vector<Case>& cases, const Peer& peer) {
    for (const Case& each : cases) {
        std::string result;
        try {
            result = each.run(peer);
        } catch (const std::exception& error) {
            result = values::onOneLine(error.what());
        }
        std::cout << each.name << '\t' << result << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: ws_client URL 1.1|1.2\n";
        return 1;
    }
    const Peer peer(argv[1],
                    argv[2] == std::string("1.1") ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2Rec);
    runAll(securityCases(), peer);
    runAll(addressingCases(), peer);
}
