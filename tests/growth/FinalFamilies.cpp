// SPDX-License-Identifier: MIT
//
// Messages of SOAP 1.2 of 2003.
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string refs(std::size_t bytes) {
    return fill(bytes, [](std::size_t i) { return numbered("<a e:ref='x", i, "'/>"); });
}

std::string targets(std::size_t bytes) {
    return fill(bytes, [](std::size_t i) { return numbered("<x e:id='x", i, "'>1</x>"); });
}

std::string inEntry(const std::string& content) { return soap12Rec("<o>" + content + "</o>"); }

std::string manyToOne(std::size_t bytes) {
    return inEntry("<x e:id='x'>1</x>" + fill(bytes, "<a e:ref='x'/>"));
}

std::string manyToALargeOne(std::size_t bytes) {
    return inEntry(fill(bytes / 2, "<a e:ref='x'/>") + "<x e:id='x'>" +
                   fill(bytes / 2, "<m>1</m>") + "</x>");
}

std::string forward(std::size_t bytes) { return inEntry(refs(bytes / 2) + targets(bytes / 2)); }

std::string backward(std::size_t bytes) { return inEntry(targets(bytes / 2) + refs(bytes / 2)); }

std::string toNothing(std::size_t bytes) { return inEntry(refs(bytes)); }

std::string chain(std::size_t bytes) {
    return soap12Rec("<a e:ref='x0'/>" + fill(bytes, [](std::size_t i) {
                         return numbered("<x e:id='x", i, "'>") +
                                numbered("<r e:ref='x", i + 1, "'/></x>");
                     }));
}

std::string ringOfAll(std::size_t bytes) {
    return soap12Rec(oneRing(bytes, "e:id='x", "e:ref='x"));
}

std::string ringsWithinEntries(std::size_t bytes) {
    return inEntry(fill(bytes, [](std::size_t i) {
        return numbered("<x e:id='x", i, "'>") + numbered("<r e:ref='x", i, "'/></x>");
    }));
}

std::string idsOfNothing(std::size_t bytes) { return inEntry(targets(bytes)); }

std::string plainIds(std::size_t bytes) {
    return inEntry(fill(bytes, [](std::size_t i) {
        return numbered("<x id='x", i, "' ref='x'/>") + numbered("<r e:ref='x", i, "'/>");
    }));
}

std::string fault(const std::string& code, const std::string& reasons) {
    return "<s:Fault><s:Code><s:Value>s:Receiver</s:Value>" + code + "</s:Code><s:Reason>" +
           reasons + "</s:Reason></s:Fault>";
}

std::string subcodes(std::size_t bytes) {
    constexpr std::size_t Levels = 100;
    std::string code;
    for (std::size_t i = 0; i < Levels; ++i) {
        code += numbered("<s:Subcode><s:Value>s:v", i, "</s:Value>");
    }
    code += times(Levels, "</s:Subcode>");
    return soap12Rec(fill(bytes, fault(code, "<s:Text xml:lang='en'>r</s:Text>")));
}

std::string reasons(std::size_t bytes) {
    return soap12Rec(fault("", fill(bytes, [](std::size_t i) {
                               return numbered("<s:Text xml:lang='x-", i, "'>t</s:Text>");
                           })));
}

std::string withHeader(const std::string& header) {
    return soap12Rec(Envelope{.body = "<a/>", .header = header});
}

std::string reports(std::size_t bytes) {
    return withHeader(fill(bytes, "<s:NotUnderstood qname='h:b' xmlns:h='urn:h'/>"));
}

std::string upgrade(std::size_t bytes) {
    return withHeader("<s:Upgrade>" + fill(bytes, "<s:SupportedEnvelope qname='s:Envelope'/>") +
                      "</s:Upgrade>");
}

std::string upgradeAmongTakenPrefixes(std::size_t bytes) {
    const std::string taken =
        " xmlns:ns='urn:n' xmlns:upgrade='urn:u'" +
        fill(bytes / 2, [](std::size_t i) { return numbered(" xmlns:ns", i + 1, "='urn:n'"); });
    return soap12Rec(Envelope{
        .body = "<a/>",
        .header = "<s:Upgrade>" + fill(bytes / 2, "<s:SupportedEnvelope qname='ns:Envelope'/>") +
                  "</s:Upgrade>",
        .attributes = taken});
}

std::string relays(std::size_t bytes) {
    return withHeader(fill(bytes, "<h s:relay='1' s:mustUnderstand='true' "
                                  "s:role='http://www.w3.org/2003/05/soap-envelope/role/next'/>"));
}

std::string arrayOfItems(std::size_t bytes) {
    return inEntry("<l e:itemType='xsd:int' e:arraySize='*'>" + fill(bytes, "<i>1</i>") + "</l>");
}

std::string arraysWithoutShape(std::size_t bytes) {
    return inEntry(fill(bytes, "<l e:nodeType='array'><i>1</i></l>"));
}

std::string emptyStructs(std::size_t bytes) {
    return inEntry(fill(bytes, "<l e:nodeType='struct'/>"));
}

std::string arraysOfReferences(std::size_t bytes) {
    return inEntry("<x e:id='x'>1</x>" + fill(bytes, "<l e:arraySize='1'><i e:ref='x'/></l>"));
}

std::string returned(std::size_t bytes) {
    return soap12Rec("<r:out xmlns:r='http://www.w3.org/2003/05/soap-rpc'>" +
                     fill(bytes, "<r:result>a</r:result><a>1</a>") + "</r:out>");
}

} // namespace

Families finals() {
    return {
        {"FinalReferencesToOneValue", "a value that everything shares", manyToOne},
        {"FinalReferencesToALargeValue", "a large one", manyToALargeOne},
        {"FinalReferencesForward", "targets after their references", forward},
        {"FinalReferencesBackward", "targets before them", backward},
        {"FinalReferencesToNothing", "references whose targets were left out", toNothing},
        {"FinalReferencesInAChain", "a linked list", chain},
        {"FinalReferencesInOneRing", "a list that is linked to its beginning", ringOfAll},
        {"FinalReferencesToValuesAround", "children that know their parent", ringsWithinEntries},
        {"FinalIds", "a producer that names everything", idsOfNothing},
        {"FinalIdsOfTheApplication", "ids that are attributes like others", plainIds},
        {"FinalFaultOfSubcodes", "a code within a code within a code", subcodes},
        {"FinalFaultOfReasons", "says it in many languages", reasons},
        {"FinalHeaderOfReports", "understands no header entry", reports},
        {"FinalUpgrade", "lists many envelopes", upgrade},
        {"FinalUpgradeAmongTakenPrefixes", "has free prefixes be looked for",
         upgradeAmongTakenPrefixes},
        {"FinalHeaderOfRelays", "entries for every node on the way", relays},
        {"FinalArrayOfItems", "a list", arrayOfItems},
        {"FinalArraysWithoutShape", "arrays by their nodeType", arraysWithoutShape},
        {"FinalStructsWithoutMembers", "structs by their nodeType", emptyStructs},
        {"FinalArraysOfReferences", "arrays that share their item", arraysOfReferences},
        {"FinalResults", "an answer that names many return values", returned},
    };
}

} // namespace growth
