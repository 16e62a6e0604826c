// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string fault(const std::string& text, const std::string& detail) {
    return soap11("<s:Fault><faultcode>s:Server</faultcode><faultstring>" + text +
                  "</faultstring><detail>" + detail + "</detail></s:Fault>");
}

std::string fault12(const std::string& code, const std::string& reason, const std::string& detail) {
    return soap12("<s:Fault><s:Code><s:Value>s:Receiver</s:Value>" + code + "</s:Code><s:Reason>" +
                  reason + "</s:Reason><s:Detail>" + detail + "</s:Detail></s:Fault>");
}

std::string entries(std::size_t bytes) { return fault("f", fill(bytes, "<d>1</d>")); }

std::string traces(std::size_t bytes) {
    return fault("f", "<trace>" + fill(bytes, "&#10;at a.b.C(D.java:1)") + "</trace>");
}

std::string longText(std::size_t bytes) { return fault(std::string(bytes, 't'), "<d/>"); }

std::string longCode(std::size_t bytes) {
    return soap11("<s:Fault><faultcode>s:Client." + std::string(bytes, 'c') +
                  "</faultcode><faultstring>f</faultstring></s:Fault>");
}

std::string codeInPieces(std::size_t bytes) {
    return soap11("<s:Fault><faultcode>s:Client" + fill(bytes, ".x<!-- -->") +
                  "</faultcode><faultstring>f</faultstring></s:Fault>");
}

std::string entriesOfSoap12(std::size_t bytes) { return fault12("", "r", fill(bytes, "<d>1</d>")); }

std::string subcodes(std::size_t bytes) {
    const std::size_t levels = 400;
    std::string code;
    for (std::size_t i = 0; i < levels; ++i) {
        code += numbered("<s:Subcode><s:Value>s:v", i, "</s:Value>");
    }
    return fault12(code + times(levels, "</s:Subcode>"), "r", fill(bytes, "<d>1</d>"));
}

std::string reasons(std::size_t bytes) {
    return fault12("", fill(bytes, "<s:Text xml:lang='en'>t</s:Text>"), "<d/>");
}

std::string besideEntries(std::size_t bytes) {
    return soap11("<s:Fault><faultcode>s:Server</faultcode><faultstring>f</faultstring>"
                  "</s:Fault>" +
                  fill(bytes, "<a>1</a>"));
}

std::string again(std::size_t bytes) {
    return soap11(fill(bytes, "<s:Fault><faultcode>s:Server</faultcode><faultstring>f"
                              "</faultstring><detail><d/></detail></s:Fault>"));
}

std::string unknownChildren(std::size_t bytes) {
    return soap11("<s:Fault><faultcode>s:Server</faultcode><faultstring>f</faultstring>" +
                  fill(bytes, "<other><o/></other>") + "</s:Fault>");
}

} // namespace

Families faults() {
    return {
        {"FaultOfEntries", "reports each wrong field", entries},
        {"FaultOfATrace", "reports where it failed", traces},
        {"FaultOfOneLongText", "reports everything in its text", longText},
        {"FaultOfALongCode", "a code made of many words", longCode},
        {"FaultOfACodeInPieces", "the same with comments in between", codeInPieces},
        {"FaultOfSoap12", "reports each wrong field in SOAP 1.2", entriesOfSoap12},
        {"FaultOfSubcodes", "a code within a code within a code", subcodes},
        {"FaultOfReasons", "says it in many languages", reasons},
        {"FaultBesideEntries", "a fault and an answer at once", besideEntries},
        {"FaultAgainAndAgain", "more than one fault", again},
        {"FaultOfUnknownChildren", "elements that no fault has", unknownChildren},
    };
}

} // namespace growth
