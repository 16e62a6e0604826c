// SPDX-License-Identifier: MIT
//
// The echo service and a client for it with gSOAP, around the code that soapcpp2 makes from
// echo.gsoap for one version of SOAP (tests/interop/run does that):
//
//     echo          serves, on a port of the system's choice, which it prints
//     echo URL      calls; a line for each case: its name and "ok" or what came back
#include "CodePoints.h"
#include "Compare.h"
#include "Gsoap.h"

#include "Echo.nsmap"
#include "soapEchoProxy.h"
#include "soapEchoService.h"

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using gsoap::IsFirst;
using orders::compare;
using orders::shownText;

constexpr soap_mode Mode = SOAP_C_UTFSTRING;
constexpr char Actor[] = "urn:example:actor";

std::string show(const std::string& text) { return shownText(text); }
std::string show(const std::string* text) { return text == nullptr ? "nil" : shownText(*text); }
std::string show(LONG64 number) { return std::to_string(number); }
std::string show(int number) { return std::to_string(number); }
std::string show(bool flag) { return flag ? "true" : "false"; }
std::string show(double number) { return gsoap::shownNumber(number); }
std::string show(const m__Person& person) {
    return "person " + show(person.name) + ' ' + show(person.age);
}
std::string show(const m__Person* person) { return person == nullptr ? "nil" : show(*person); }
std::string show(const xsd__base64Binary* bytes) {
    return shownText(std::string(reinterpret_cast<const char*>(bytes->__ptr),
                                 static_cast<std::size_t>(bytes->__size)));
}
std::string show(const m__Nested* nested) {
    return show(nested->a->b) + ' ' + show(nested->a->none) + ' ' + show(nested->c);
}
template <typename Array> std::string showItems(const Array* array) {
    std::string all = std::to_string(array->__size) + " items";
    for (int i = 0; i < array->__size; ++i) {
        all += ' ' + show(array->__ptr[i]);
    }
    return all;
}
std::string show(const ArrayOfInt* array) { return showItems(array); }
std::string show(const ArrayOfString* array) { return showItems(array); }
std::string show(const ArrayOfPerson* array) { return showItems(array); }

/// `text` as XML has it in an element.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
    }
    return result;
}

/// The service.
class Echo : public EchoService {
public:
    explicit Echo(struct soap* context) : EchoService(context) {}
    EchoService* copy() override { return new Echo(soap); }

    int echoString(std::string* value, m__echoStringResponse& answer) override {
        return echo(value, answer);
    }
    int echoInt(int value, m__echoIntResponse& answer) override { return echo(value, answer); }
    int echoLong(LONG64 value, m__echoLongResponse& answer) override { return echo(value, answer); }
    int echoDouble(double value, m__echoDoubleResponse& answer) override {
        return echo(value, answer);
    }
    int echoBoolean(bool value, m__echoBooleanResponse& answer) override {
        return echo(value, answer);
    }
    int echoDateTime(const std::string& value, m__echoDateTimeResponse& answer) override {
        return echo(value, answer);
    }
    int echoBase64(xsd__base64Binary* value, m__echoBase64Response& answer) override {
        return echo(value, answer);
    }
    int echoPerson(m__Person* value, m__echoPersonResponse& answer) override {
        return echo(value, answer);
    }
    int echoNested(m__Nested* value, m__echoNestedResponse& answer) override {
        return echo(value, answer);
    }
    int echoInts(ArrayOfInt* value, m__echoIntsResponse& answer) override {
        return echo(value, answer);
    }
    int echoStrings(ArrayOfString* value, m__echoStringsResponse& answer) override {
        return echo(value, answer);
    }
    int echoPersons(ArrayOfPerson* value, m__echoPersonsResponse& answer) override {
        return echo(value, answer);
    }
    int echoPair(m__Person* first, m__Person* second, m__echoPairResponse& answer) override {
        answer.first = first;
        answer.second = second;
        answer.same = first == second;
        return SOAP_OK;
    }
    int echoFault(const std::string& text, m__echoFaultResponse&) override {
        const std::string detail = "<why>" + escaped(text) + "</why>";
        const int status =
            soap_receiverfault(soap_strdup(soap, text.c_str()), soap_strdup(soap, detail.c_str()));
        (IsFirst ? soap->fault->faultactor : soap->fault->SOAP_ENV__Node) =
            soap_strdup(soap, Actor);
        return status;
    }
    int unknownOperation(int, m__unknownOperationResponse&) override { return SOAP_NO_METHOD; }

private:
    template <typename Value, typename Answer> int echo(const Value& value, Answer& answer) {
        answer.value = value;
        return SOAP_OK;
    }
};

m__Person makePerson(const char* name, int age) {
    m__Person person;
    person.name = name;
    person.age = age;
    return person;
}

/// A client for one version.
class Caller {
public:
    explicit Caller(const char* url) : proxy_(url, Mode) {}

    /// Sends each value to an operation and expects it back.
    template <typename Value, typename Answer>
    std::string echoes(int (EchoProxy::*operation)(Value, Answer&),
                       const std::vector<std::decay_t<Value>>& values) {
        for (const auto& each : values) {
            const std::decay_t<Value> value = each;
            Answer answer;
            if ((proxy_.*operation)(value, answer) != SOAP_OK) {
                return fault();
            }
            const std::string result = compare(show(value), show(answer.value));
            if (result != "ok") {
                return result;
            }
        }
        return "ok";
    }
    std::string texts(const std::vector<std::string>& all) {
        for (std::string text : all) {
            m__echoStringResponse answer;
            if (proxy_.echoString(&text, answer) != SOAP_OK) {
                return fault();
            }
            if (answer.value == nullptr || *answer.value != text) {
                return compare(show(text), show(answer.value));
            }
        }
        return "ok";
    }
    std::string pair() {
        m__Person person = makePerson("Ann", 42);
        m__echoPairResponse answer;
        if (proxy_.echoPair(&person, &person, answer) != SOAP_OK) {
            return fault();
        }
        const std::string one = show(person);
        const std::string result =
            compare(one + " and " + one, show(answer.first) + " and " + show(answer.second));
        return result == "ok" && answer.first != answer.second ? "came back as two objects"
                                                               : result;
    }
    std::string header(std::string* SOAP_ENV__Header::*entry) {
        std::string ticket = "ticket 7";
        SOAP_ENV__Header sent;
        soap_default_SOAP_ENV__Header(proxy_.soap, &sent);
        sent.*entry = &ticket;
        proxy_.soap->header = &sent;
        m__echoIntResponse answer;
        const int status = proxy_.echoInt(1, answer);
        const SOAP_ENV__Header* const received = proxy_.soap_header();
        proxy_.soap->header = nullptr;
        if (status != SOAP_OK) {
            return fault();
        }
        if (received == nullptr || received == &sent) {
            return "no header came back";
        }
        return compare(show(&ticket), show(received->m__echo));
    }
    std::string unknownOperation() {
        m__unknownOperationResponse answer;
        return proxy_.unknownOperation(1, answer) == SOAP_OK ? "no fault" : fault();
    }
    /// What went wrong in the last call.
    std::string fault() { return gsoap::lastFault(proxy_.soap); }
    void clear() { proxy_.destroy(); }

private:
    EchoProxy proxy_;
};

using Case = gsoap::Case<Caller>;

Case texts(const char* name, const std::vector<std::string>& all) {
    return {name, [all](Caller& caller) { return caller.texts(all); }};
}

template <typename Array, typename Item> Array arrayOf(std::vector<Item>& items) {
    Array array;
    array.__ptr = items.data();
    array.__size = static_cast<int>(items.size());
    return array;
}

std::string base64(Caller& caller) {
    std::vector<unsigned char> bytes;
    for (int byte = 0; byte <= std::numeric_limits<unsigned char>::max(); ++byte) {
        bytes.push_back(static_cast<unsigned char>(byte));
    }
    auto value = arrayOf<xsd__base64Binary>(bytes);
    return caller.echoes(&EchoProxy::echoBase64, {&value});
}

std::string structs(Caller& caller) {
    m__Person person = makePerson("Ann", 42);
    return caller.echoes(&EchoProxy::echoPerson, {&person});
}

std::string nestedStructs(Caller& caller) {
    m__Person bob = makePerson("Bob", -7);
    m__Person nameless = makePerson("", 7);
    m__Inner inner;
    inner.b = &bob;
    inner.none = nullptr;
    m__Nested nested;
    nested.a = &inner;
    nested.c = &nameless;
    return caller.echoes(&EchoProxy::echoNested, {&nested});
}

std::string simpleArrays(Caller& caller) {
    std::vector<int> numbers = {1, 2, 3};
    std::vector<std::string> names = {"a", "", "c"};
    auto ints = arrayOf<ArrayOfInt>(numbers);
    auto strings = arrayOf<ArrayOfString>(names);
    const std::string result = caller.echoes(&EchoProxy::echoInts, {&ints});
    return result == "ok" ? caller.echoes(&EchoProxy::echoStrings, {&strings}) : result;
}

std::string persons(Caller& caller, int count) {
    std::vector<m__Person> people;
    for (int i = 1; i <= count; ++i) {
        people.push_back(makePerson("Ann", i));
    }
    auto array = arrayOf<ArrayOfPerson>(people);
    return caller.echoes(&EchoProxy::echoPersons, {&array});
}

std::string unknownOperation(Caller& caller) {
    return compare(
        gsoap::faultText(IsFirst ? "Client" : "Sender", "There is no operation unknownOperation"),
        caller.unknownOperation());
}

std::string misunderstood(Caller& caller) {
    const std::string found = caller.header(&SOAP_ENV__Header::u__ticket);
    const std::string wanted = "fault MustUnderstand: ";
    return compare(wanted, found.substr(0, wanted.size()));
}

std::vector<Case> simpleCases() {
    constexpr int Largest = std::numeric_limits<int>::max();
    constexpr LONG64 Long = std::numeric_limits<LONG64>::max();
    return {
        texts("string", {"Hello, world", ""}),
        texts("string: entities", {R"(<tag attr="v">Tom & 'Jerry' &amp; &#65; ]]></tag>)"}),
        texts("string: blanks", {"  two leading, two trailing  ", "\t", "   "}),
        texts("string: line breaks", {"a\nb\r\nc\rd\n"}),
        texts("string: all of Unicode", {values::allOfUnicode()}),
        texts("string: noncharacters", {values::noncharacters()}),
        {"int",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoInt, {0, 1, -1, Largest, -Largest - 1});
         }},
        {"int beyond 32 bits",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoLong, {2147483648LL, Long});
         }},
        {"double",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoDouble,
                                  {0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324});
         }},
        {"double: INF and NaN",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoDouble, {HUGE_VAL, -HUGE_VAL, std::nan("")});
         }},
        {"boolean",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoBoolean, {true, false});
         }},
        {"dateTime",
         [](Caller& caller) {
             return caller.echoes(&EchoProxy::echoDateTime, {"2026-12-31T23:59:59.25+01:00"});
         }},
        {"base64", base64},
        {"nil", [](Caller& caller) { return caller.echoes(&EchoProxy::echoString, {nullptr}); }},
    };
}

std::vector<Case> otherCases() {
    return {
        {"struct", structs},
        {"nested structs", nestedStructs},
        {"array of simple values", simpleArrays},
        {"array of structs", [](Caller& caller) { return persons(caller, 2); }},
        {"empty array", [](Caller& caller) { return persons(caller, 0); }},
        {"two references to one object", [](Caller& caller) { return caller.pair(); }},
        {"header entry", [](Caller& caller) { return caller.header(&SOAP_ENV__Header::m__echo); }},
        {"mandatory header entry",
         [](Caller& caller) { return caller.header(&SOAP_ENV__Header::m__echo_); }},
        {"mandatory header entry, unknown", misunderstood},
        {"fault", unknownOperation},
        {"unknown version",
         [](Caller&) { return "n/a: gSOAP writes the envelope of its version only."; }},
    };
}

} // namespace

int main(int argc, char** argv) {
    return gsoap::run<Echo, Caller>(argc, argv, Mode, gsoap::joined(simpleCases(), otherCases()));
}
