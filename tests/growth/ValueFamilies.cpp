// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string typed(std::size_t bytes) {
    return soap11(fill(bytes, "<a xsi:type='xsd:int'>1</a><b xsi:type='xsd:string'>s</b>"));
}

std::string untyped(std::size_t bytes) { return soap11(fill(bytes, "<a>1</a><b>s</b>")); }

std::string empty(std::size_t bytes) { return soap11(fill(bytes, "<a/>")); }

std::string nil(std::size_t bytes) { return soap11(fill(bytes, "<a xsi:nil='true'/>")); }

std::string withNamesOfTheirOwn(std::size_t bytes) {
    return soap11("<t>" + fill(bytes, [](std::size_t i) { return numbered("<a", i, "/>"); }) +
                  "</t>");
}

std::string withTypesOfTheirOwn(std::size_t bytes) {
    return soap11(
        fill(bytes, [](std::size_t i) { return numbered("<a xsi:type='xsd:t", i, "'>1</a>"); }));
}

std::string withLongNames(std::size_t bytes) {
    const std::string name(2000, 'n');
    return soap11(fill(bytes, "<" + name + "/>"));
}

std::string withLongTypes(std::size_t bytes) {
    return soap11(fill(bytes, "<a xsi:type='xsd:" + std::string(2000, 't') + "'>1</a>"));
}

std::string withUnboundTypes(std::size_t bytes) {
    return soap11(
        fill(bytes, [](std::size_t i) { return numbered("<a xsi:type='u", i, ":t'>1</a>"); }));
}

std::string structs(std::size_t bytes) {
    return soap11("<list>" +
                  fill(bytes, "<item xsi:type='n:Person' xmlns:n='urn:n'><name "
                              "xsi:type='xsd:string'>A</name><age xsi:type='xsd:int'>1</age>"
                              "<at xsi:type='xsd:dateTime'>2026-01-01T00:00:00Z</at></item>") +
                  "</list>");
}

std::string namesInNamespaces(std::size_t bytes) {
    return soap11(
        fill(bytes, [](std::size_t i) { return numbered("<a xmlns='urn:", i, "'><b/></a>"); }));
}

std::string numbers(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<a xsi:type='xsd:double'>0.", i, "e-10</a>");
    }));
}

std::string namesAsValues(std::size_t bytes) {
    return soap11(fill(bytes, "<a xsi:type='xsd:QName'>xsd:int</a>"));
}

std::string binary(std::size_t bytes) {
    return soap11("<a xsi:type='e:base64'>" + fill(bytes, "QUJD\n") + "</a>");
}

} // namespace

Families values() {
    return {
        {"ValuesTyped", "a stack that states types", typed},
        {"ValuesUntyped", "a stack that does not", untyped},
        {"ValuesEmpty", "as many elements as bytes allow", empty},
        {"ValuesNil", "records without content", nil},
        {"ValuesWithNamesOfTheirOwn", "a map written as elements", withNamesOfTheirOwn},
        {"ValuesWithTypesOfTheirOwn", "has each type be new", withTypesOfTheirOwn},
        {"ValuesWithLongNames", "generated names", withLongNames},
        {"ValuesWithLongTypes", "generated types", withLongTypes},
        {"ValuesWithUnboundTypes", "has types searched in all scopes in vain", withUnboundTypes},
        {"ValuesInStructs", "records", structs},
        {"ValuesInNamespacesOfTheirOwn", "has each namespace be new", namesInNamespaces},
        {"ValuesOfNumbers", "measurements", numbers},
        {"ValuesOfNames", "has names resolved in values", namesAsValues},
        {"ValueOfBase64", "a file in an element", binary},
    };
}

} // namespace growth
