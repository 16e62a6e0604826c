// SPDX-License-Identifier: MIT
//
// Calls the echo service of another SOAP stack: interop_client URL php|perl|gsoap 1.1|1.2. A line
// for each case: its name, "ok" or what came back instead, and the types that changed on the way.
#include "InteropValues.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpClient.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapValueReader.h>

#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace values;

const TzXmlNamespace& service() {
    static const TzXmlNamespace instance("m", "urn:example:echo");
    return instance;
}

/// What the operations of a peer are like.
enum class Kind {
    Php,   ///< Of its own values, which carry their type, but for bytes.
    Perl,  ///< One of its own values, and one that answers the stated type.
    Gsoap, ///< One for each type.
};

/// The service of one peer.
class Peer {
public:
    Peer(const std::string& url, Kind kind, TzSoapVersion::Version version)
        : client_(url), kind_(kind), version_(version) {}

    /// The version that the peer is called in.
    TzSoapVersion::Version version() const { return version_; }

    /// The operation that answers a value of that type with its type.
    const char* operationFor(Base::SchemaType type) const {
        if (kind_ == Kind::Gsoap) {
            return operationsOfGsoap().at(type);
        }
        if (kind_ == Kind::Perl) {
            return "echoTyped";
        }
        return type == Base::xsdBase64Binary ? "echoBase64" : "echoValue";
    }
    /// The operation that answers a value of the peer's own, where there is one for each type
    /// `typed`.
    const char* operationForOwn(const char* typed) const {
        return kind_ == Kind::Gsoap ? typed : "echoValue";
    }
    /// The operation that answers header entries.
    const char* operationForHeaders() const {
        return kind_ == Kind::Perl ? "echoHeaders" : operationForOwn("echoInt");
    }

    /// The answer, be it a fault.
    TzSoapMessage post(const TzSoapMessage& request, const std::string& operation) const {
        return messageIn(client_.tryCall(request, service().getUri() + '#' + operation));
    }
    TzSoapMessage postText(const std::string& text) const {
        TzSoapHttpTransportContext headers;
        headers.setSoapAction("");
        TzSoapHttpBinding::describe(version_, "utf-8", headers);
        try {
            const TzSoapHttpAnswer http = client_.post(text, headers);
            TzSoapMessage answer;
            TzSoapHttpBinding::unpack(http.headers, http.body, answer);
            return answer;
        } catch (const TzSoapTransportError& failure) {
            throw std::runtime_error(reasonOf(failure));
        }
    }

private:
    static const std::map<Base::SchemaType, const char*>& operationsOfGsoap() {
        static const std::map<Base::SchemaType, const char*> instance = {
            {Base::xsdString, "echoString"},      {Base::xsdInt, "echoInt"},
            {Base::xsdLong, "echoLong"},          {Base::xsdDouble, "echoDouble"},
            {Base::xsdBoolean, "echoBoolean"},    {Base::xsdDateTime, "echoDateTime"},
            {Base::xsdBase64Binary, "echoBase64"}};
        return instance;
    }

    TzSoapHttpClient client_;
    Kind kind_;
    TzSoapVersion::Version version_;
};

TzSoapMessage makeRequest(const Peer& peer, const std::string& operation,
                          const std::vector<TzSoapType>& parameters) {
    TzSoapMessage request(peer.version());
    request.setProlog(TzXmlProlog());
    request.declareTypeNamespaces();
    TzSoapCompositeType call(TzXmlName(operation, service()));
    for (const TzSoapType& parameter : parameters) {
        call.appendChild(parameter);
    }
    request.getSoapBody().appendEntry(call);
    return request;
}

void refuseFault(const TzSoapMessage& answer) {
    if (answer.getSoapBody().hasSoapFault()) {
        const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
        throw std::runtime_error("fault " + fault.getCode().getLocalName() + ": " +
                                 fault.getReason());
    }
}

/// The element with the results in the answer to a call.
TzSoapCompositeType resultsOf(const TzSoapMessage& answer) {
    refuseFault(answer);
    return structOf(answer.getSoapBody().getFirstEntry());
}

TzSoapType resultOf(const TzSoapMessage& answer) {
    const auto result = TzSoap12RecVersion::findReturnValue(resultsOf(answer));
    if (!result) {
        throw std::runtime_error("the answer has no result");
    }
    return *result;
}

/// What a case found.
struct Finding {
    std::string result = "ok";
    TypeChanges changes;
};

Finding echoes(const Peer& peer, const std::vector<TzSoapType>& sent) {
    Finding finding;
    for (const TzSoapType& value : sent) {
        const std::string operation = peer.operationFor(schemaTypeOf(value));
        const TzSoapMessage answer = peer.post(makeRequest(peer, operation, {value}), operation);
        const std::string found = difference(value, resultOf(answer), finding.changes);
        if (!found.empty()) {
            finding.result = found;
            break;
        }
    }
    return finding;
}

/// A value, and the operation for it of a peer that has one for each type.
using OwnValue = std::pair<const char*, TzSoapType>;

/// Composites and arrays go through the operation for a peer's own values.
Finding echoesOwn(const Peer& peer, const std::vector<OwnValue>& sent) {
    Finding finding;
    for (const auto& [typed, value] : sent) {
        const char* const operation = peer.operationForOwn(typed);
        const TzSoapMessage answer = peer.post(makeRequest(peer, operation, {value}), operation);
        finding.result = difference(value, resultOf(answer), finding.changes);
        if (!finding.result.empty()) {
            return finding;
        }
    }
    finding.result = "ok";
    return finding;
}

Finding shared(const Peer& peer) {
    TzSoapCompositeType person = makePerson("first", "Ann", 42);
    person.setIdAttribute("p1");
    const TzSoapMessage answer = peer.post(
        makeRequest(peer, "echoPair", {person, TzSoapReferenceType(TzXmlName("second"), person)}),
        "echoPair");
    // PHP answers one struct, SOAP::Lite several results.
    TzSoapCompositeType results = resultsOf(answer);
    if (!results.findChildValue("first")) {
        results = structOf(resultOf(answer));
    }
    Finding finding;
    for (const char* name : {"first", "second"}) {
        const std::string found = difference(person, member(results, name), finding.changes);
        if (!found.empty()) {
            finding.result = found;
            return finding;
        }
    }
    if (!TzSoapValueReader(member(results, "same")).getBool()) {
        finding.result = "the peer read two objects";
    } else if (!sameValue(member(results, "first"), member(results, "second"))) {
        finding.result = "came back as two objects";
    }
    return finding;
}

TzSoapMessage withHeader(const Peer& peer, const std::string& operation, const TzXmlName& entry,
                         bool mandatory) {
    TzSoapMessage request = makeRequest(peer, operation, {makeInt("value", 1)});
    const TzSoapSimpleType ticket(entry, "ticket 7", Base::xsdString, true);
    request.getSoapHeader().appendHeaderEntry(ticket, mandatory);
    return request;
}

Finding answeredHeader(const Peer& peer, bool mandatory) {
    const TzXmlName name("echo", service());
    const std::string operation = peer.operationForHeaders();
    const TzSoapMessage answer = peer.post(withHeader(peer, operation, name, mandatory), operation);
    refuseFault(answer);
    const TzSoapHeader& header = answer.getSoapHeader();
    const auto entry = header.findHeaderEntry(name);
    if (entry == header.entriesEnd()) {
        return {"no entry came back", {}};
    }
    const std::string text = TzSoapValueReader(*entry).getString();
    return {text == "ticket 7" ? "ok" : "came back \"" + text + '"', {}};
}

/// Whether the answer is a fault with that code.
Finding faults(const char* code, const TzSoapMessage& answer) {
    if (!answer.getSoapBody().hasSoapFault()) {
        return {"no fault", {}};
    }
    const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
    const std::string found = fault.getCode().getLocalName();
    return {found == code ? "ok" : "fault " + found + ": " + fault.getReason(), {}};
}

Finding fullFault(const Peer& peer) {
    const std::string reason = "out of <paper> & ink";
    const TzSoapMessage answer =
        peer.post(makeRequest(peer, "echoFault", {makeString("text", reason)}), "echoFault");
    const TzCString code = TzSoapVersion::getSoapVersion(peer.version())
                               .getFaultCode(TzSoapVersion::Server)
                               .getLocalName();
    Finding finding = faults(code.c_str(), answer);
    if (finding.result == "no fault") {
        return finding;
    }
    const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
    const TzSoapCompositeType& details = fault.getDetails();
    const std::string before = finding.result == "ok" ? "" : finding.result + "; ";
    if (fault.getFaultString() != reason || fault.getFaultActor() != "urn:example:actor") {
        finding.result = before + "reason \"" + fault.getFaultString() + "\" by \"" +
                         fault.getFaultActor() + '"';
    } else if (findDeep(details, "why") != reason) {
        finding.result = before + "detail \"" + findDeep(details, "why") + '"';
    }
    return finding;
}

Finding unknownVersion(const Peer& peer) {
    return faults("VersionMismatch",
                  peer.postText("<e:Envelope xmlns:e=\"urn:example:later\"><e:Body><a/></e:Body>"
                                "</e:Envelope>"));
}

/// A case by its name.
struct Case {
    const char* name;
    std::function<Finding(const Peer&)> run;
};

Case strings(const char* name, const std::vector<std::string>& texts) {
    std::vector<TzSoapType> sent;
    for (const std::string& text : texts) {
        sent.emplace_back(makeString("value", text));
    }
    return {name, [sent](const Peer& peer) { return echoes(peer, sent); }};
}

Case typed(const char* name, Base::SchemaType type, const std::vector<const char*>& texts) {
    std::vector<TzSoapType> sent;
    for (const char* text : texts) {
        sent.emplace_back(TzSoapSimpleType(TzXmlName("value"), text, type, true));
    }
    return {name, [sent](const Peer& peer) { return echoes(peer, sent); }};
}

Case own(const char* name, const std::vector<OwnValue>& sent) {
    return {name, [sent](const Peer& peer) { return echoesOwn(peer, sent); }};
}

std::vector<Case> simpleCases() {
    return {
        strings("string", {"Hello, world", ""}),
        strings("string: entities", {R"(<tag attr="v">Tom & 'Jerry' &amp; &#65; ]]></tag>)"}),
        strings("string: blanks", {"  two leading, two trailing  ", "\t", "   "}),
        strings("string: line breaks", {"a\nb\r\nc\rd\n"}),
        strings("string: all of Unicode", {allOfUnicode()}),
        strings("string: noncharacters", {noncharacters()}),
        typed("int", Base::xsdInt, {"0", "1", "-1", "2147483647", "-2147483648"}),
        typed("int beyond 32 bits", Base::xsdLong, {"2147483648", "9223372036854775807"}),
        typed("double", Base::xsdDouble,
              {"0.5", "-17.25", "0.1", "0.30000000000000004", "1.5e300", "5e-324"}),
        typed("double: INF and NaN", Base::xsdDouble, {"INF", "-INF", "NaN"}),
        typed("boolean", Base::xsdBoolean, {"true", "false", "1", "0"}),
        typed("dateTime", Base::xsdDateTime, {"2026-12-31T23:59:59.25+01:00"}),
        {"base64", [](const Peer& peer) { return echoes(peer, {makeBytes("value")}); }},
        own("nil", {{"echoString", makeNil("value")}}),
    };
}

std::vector<Case> otherCases() {
    return {
        own("struct", {{"echoPerson", makePerson("value", "Ann", 42)}}),
        own("nested structs", {{"echoNested", makeNested("value")}}),
        own("array of simple values", {{"echoInts", makeInts("value", {1, 2, 3})},
                                       {"echoStrings", makeStrings("value", {"a", "", "c"})}}),
        own("array of structs", {{"echoPersons", makePersons("value", 2)}}),
        own("empty array", {{"echoPersons", makePersons("value", 0)}}),
        {"two references to one object", shared},
        {"header entry", [](const Peer& peer) { return answeredHeader(peer, false); }},
        {"mandatory header entry", [](const Peer& peer) { return answeredHeader(peer, true); }},
        {"mandatory header entry, unknown",
         [](const Peer& peer) {
             const TzXmlName ticket("ticket", TzXmlNamespace("t", "urn:unknown"));
             const char* const operation = peer.operationForOwn("echoInt");
             return faults("MustUnderstand",
                           peer.post(withHeader(peer, operation, ticket, true), operation));
         }},
        {"fault", fullFault},
        {"unknown version", unknownVersion},
    };
}

void runAll(const std::vector<Case>& cases, const Peer& peer) {
    for (const Case& entry : cases) {
        Finding finding;
        try {
            finding = entry.run(peer);
        } catch (const std::exception& error) {
            finding.result = error.what();
        }
        std::cout << entry.name << '\t' << onOneLine(finding.result) << '\t';
        const char* separator = "";
        for (const auto& [sent, received] : finding.changes) {
            std::cout << separator << sent << " comes back as " << received;
            separator = ", ";
        }
        std::cout << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    static const std::map<std::string, Kind> kinds = {
        {"php", Kind::Php}, {"perl", Kind::Perl}, {"gsoap", Kind::Gsoap}};
    if (argc != 4 || !kinds.contains(argv[2])) {
        std::cerr << "usage: interop_client URL php|perl|gsoap 1.1|1.2\n";
        return 1;
    }
    const Peer peer(argv[1], kinds.at(argv[2]),
                    argv[3] == std::string("1.1") ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2Rec);
    runAll(simpleCases(), peer);
    runAll(otherCases(), peer);
}
