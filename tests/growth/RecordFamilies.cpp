// SPDX-License-Identifier: MIT
//
// Lists of records, which programs read into structs or one after the other.
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string list(const std::string& content, const std::string& header = "") {
    return soap11(Envelope{.body = "<list>" + content + "</list>", .header = header});
}

/// A record whose first members are these.
std::string record(const std::string& members) {
    return "<r id='7'>" + members + "<name>n</name><number>1</number></r>";
}

std::string ofMembers(std::size_t bytes) {
    return list(fill(bytes, record("<price>0.5</price><tag>a</tag><tag>b</tag>")));
}

std::string ofMembersBackward(std::size_t bytes) {
    return list(fill(bytes, "<r id='7'><line><amount>1</amount><article>a</article></line>"
                            "<tag>b</tag><number>1</number><name>n</name></r>"));
}

std::string ofOne(std::size_t bytes) { return list(record(fill(bytes, "<tag>a</tag>"))); }

std::string ofListsInTurn(std::size_t bytes) {
    return list(record(fill(
        bytes, "<tag>a</tag><line><article>a</article><amount>1</amount></line><other>c</other>")));
}

std::string ofUnknownMembers(std::size_t bytes) {
    return list(record(fill(
        bytes, [](std::size_t i) { return numbered("<u", i, ">1</u") + numbered("", i, ">"); })));
}

std::string ofAttributes(std::size_t bytes) {
    return list("<r id='7'" + fill(bytes, [](std::size_t i) { return numbered(" a", i, "='1'"); }) +
                "><name>n</name><number>1</number></r>");
}

std::string withAttributesEach(std::size_t bytes) {
    return list(fill(bytes, "<r b='1' c='2' d='3' e='4' f='5' id='7'><name>n</name>"
                            "<number>1</number></r>"));
}

std::string ofALongText(std::size_t bytes) {
    return list("<r id='7'><name>" + std::string(bytes, 'n') + "</name><number>1</number></r>");
}

std::string ofLongNumbers(std::size_t bytes) {
    return list("<r id='7'><name>n</name><number>" + std::string(bytes, '0') + "1</number></r>");
}

std::string ofBlanks(std::size_t bytes) {
    return list(fill(bytes, "<r id='7'> \n\t <name>n</name> \n\t <number> \n\t 1 \n\t </number> "
                            "\n\t </r> \n\t "));
}

std::string ofReferences(std::size_t bytes) {
    return list("<r id='7'><name id='n'>n</name><number id='i'>1</number></r>" +
                fill(bytes, "<r id='7'><name href='#n'/><number href='#i'/></r>"));
}

std::string ofOneRecord(std::size_t bytes) {
    return soap11("<list>" + fill(bytes, "<r href='#r'/>") +
                  "</list><r id='r'><name>n</name><number>1</number></r>");
}

std::string ofAChain(std::size_t bytes) {
    return list(fill(bytes, [](std::size_t i) {
        return numbered("<r id='r", i, "' ") + numbered("href='#r", i + 1, "'/>");
    }));
}

std::string ofWrongNumbers(std::size_t bytes) {
    return list(fill(bytes, "<r id='7'><name>n</name><number>1x</number></r>"));
}

std::string withoutNumbers(std::size_t bytes) {
    return list(fill(bytes, "<r id='7'><name>n</name></r>"));
}

std::string ofManyNames(std::size_t bytes) {
    return list(fill(bytes, [](std::size_t i) {
        return numbered("<r", i, " id='7'><name>n</name><number>1</number></r") +
               numbered("", i, ">");
    }));
}

std::string betweenComments(std::size_t bytes) {
    return list(fill(bytes, "<!-- c --><?p i?>" + record("")));
}

std::string afterALongComment(std::size_t bytes) {
    return list("<!--" + std::string(bytes, 'c') + "-->" + record(""));
}

std::string inEntriesOfTheirOwn(std::size_t bytes) {
    return soap11(fill(bytes, "<list>" + record("") + "</list>"));
}

std::string amongOthers(std::size_t bytes) {
    return soap11(fill(bytes, "<other><a><b/></a></other>") + "<list>" + record("") + "</list>");
}

std::string afterAHeader(std::size_t bytes) {
    return list(record(""), fill(bytes, "<h><a>1</a></h>"));
}

std::string deep(std::size_t bytes) {
    constexpr std::size_t Deep = 90;
    return list(fill(bytes, record(times(Deep, "<deep>") + times(Deep, "</deep>"))));
}

std::string besideText(std::size_t bytes) { return list(fill(bytes, record("t") + "text")); }

std::string ofEntities(std::size_t bytes) {
    return list("<r id='7'><name>" + fill(bytes, "&amp;&#10;") + "</name><number>1</number></r>");
}

std::string ofNil(std::size_t bytes) {
    return list(fill(bytes, record("<price xsi:nil='1'/><tag/>")));
}

} // namespace

Families records() {
    return {
        {"RecordsOfMembers", "a table of a database", ofMembers},
        {"RecordsOfMembersBackward", "the same in another order", ofMembersBackward},
        {"RecordsOfOneLongList", "one record with a list in it", ofOne},
        {"RecordsOfListsInTurn", "the items of several lists one by one", ofListsInTurn},
        {"RecordsOfUnknownMembers", "a later version of the service", ofUnknownMembers},
        {"RecordsOfManyAttributes", "a record in attributes", ofAttributes},
        {"RecordsOfAttributesEach", "attributes that no struct has", withAttributesEach},
        {"RecordsOfALongText", "a document in a member", ofALongText},
        {"RecordsOfALongNumber", "a number with many zeros", ofLongNumbers},
        {"RecordsOfBlanks", "an indented table", ofBlanks},
        {"RecordsOfReferences", "writes each value once", ofReferences},
        {"RecordsOfOneRecord", "writes each record once", ofOneRecord},
        {"RecordsOfAChain", "references to references", ofAChain},
        {"RecordsOfWrongNumbers", "nothing that fits a struct", ofWrongNumbers},
        {"RecordsWithoutNumbers", "the same without a member", withoutNumbers},
        {"RecordsOfManyNames", "a name for each record", ofManyNames},
        {"RecordsBetweenComments", "comments and instructions", betweenComments},
        {"RecordsAfterALongComment", "a comment that does not end", afterALongComment},
        {"RecordsInEntriesOfTheirOwn", "a body entry for each record", inEntriesOfTheirOwn},
        {"RecordsAmongOthers", "many other body entries", amongOthers},
        {"RecordsAfterAHeader", "a long header", afterAHeader},
        {"RecordsOfDepth", "elements within elements", deep},
        {"RecordsBesideText", "text where it has no place", besideText},
        {"RecordsOfEntities", "a text with markup", ofEntities},
        {"RecordsOfNil", "elements without a value", ofNil},
    };
}

} // namespace growth
