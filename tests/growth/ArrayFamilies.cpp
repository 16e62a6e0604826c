// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string array(const std::string& type, const std::string& items,
                  const std::string& attributes = "") {
    return "<a e:arrayType='" + type + "'" + attributes + ">" + items + "</a>";
}

std::string one(std::size_t bytes) {
    const std::size_t items = bytes / 8;
    return soap11(array(numbered("xsd:int[", items, "]"), times(items, "<i>1</i>")));
}

std::string open(std::size_t bytes) { return soap11(array("xsd:int[]", fill(bytes, "<i>1</i>"))); }

std::string typed(std::size_t bytes) {
    return soap11(array("xsd:anyType[]", fill(bytes, "<i xsi:type='xsd:int'>1</i>")));
}

std::string twoAxes(std::size_t bytes) {
    const std::size_t rows = bytes / 80;
    return soap11(array(numbered("xsd:int[", rows, ",10]"), times(rows * 10, "<i>1</i>")));
}

std::string manyAxes(std::size_t bytes) {
    std::string ones = "1";
    for (std::size_t i = 0; i < 200; ++i) {
        ones += ",1";
    }
    return soap11(fill(bytes, array("xsd:int[" + ones + "]", "<i>1</i>")));
}

std::string withOffset(std::size_t bytes) {
    const std::size_t items = bytes / 8;
    return soap11(array(numbered("xsd:int[", items + 100, "]"), times(items, "<i>1</i>"),
                        " e:offset='[100]'"));
}

std::string partlyFilled(std::size_t bytes) {
    return soap11(array(numbered("xsd:int[", bytes, "]"), fill(bytes, "<i>1</i>")));
}

std::string manySmall(std::size_t bytes) {
    return soap11(fill(bytes, array("xsd:int[1]", "<i>1</i>")));
}

std::string manyEmpty(std::size_t bytes) { return soap11(fill(bytes, array("xsd:int[0]", ""))); }

std::string manyWithoutMembers(std::size_t bytes) {
    return soap11(fill(bytes, array("xsd:int[20]", "")));
}

std::string typesOfArrays(std::size_t bytes) {
    return soap11(fill(bytes, array("xsd:int" + times(50, "[]") + "[1]", "<i/>")));
}

std::string ofNil(std::size_t bytes) {
    return soap11(array("xsd:int[]", fill(bytes, "<i xsi:nil='1'/>")));
}

std::string ofReferences(std::size_t bytes) {
    return soap11(
        array("xsd:int[]",
              fill(bytes / 2, [](std::size_t i) { return numbered("<i href='#x", i, "'/>"); })) +
        fill(bytes / 2, [](std::size_t i) { return numbered("<x id='x", i, "'>1</x>"); }));
}

std::string ofStructs(std::size_t bytes) {
    return soap11(array("xsd:anyType[]", fill(bytes, "<i><b>1</b><c>2</c></i>")));
}

std::string ofSoap12(std::size_t bytes) {
    return soap12("<a e:itemType='xsd:int' e:arraySize='*'>" + fill(bytes, "<i>1</i>") + "</a>");
}

std::string ofAxesOfSoap12(std::size_t bytes) {
    const std::size_t rows = bytes / 80;
    return soap12(numbered("<a e:itemType='xsd:int' e:arraySize='", rows, " 10'>") +
                  times(rows * 10, "<i>1</i>") + "</a>");
}

std::string smallOfSoap12(std::size_t bytes) {
    return soap12(fill(bytes, "<a e:itemType='xsd:int' e:arraySize='2'><i>1</i><i>2</i></a>"));
}

std::string longNumbers(std::size_t bytes) {
    return soap11(fill(bytes, array("xsd:int[" + std::string(200, '0') + "1]", "<i>1</i>")));
}

} // namespace

Families arrays() {
    return {
        {"ArrayOfItems", "a list of numbers", one},
        {"ArrayThatIsOpen", "a list without its length", open},
        {"ArrayOfTypedItems", "items that state their types", typed},
        {"ArrayOfRows", "a matrix", twoAxes},
        {"ArraysOfManyAxes", "has indices of 200 numbers taken apart", manyAxes},
        {"ArrayFromAnOffset", "a part of a list", withOffset},
        {"ArrayPartlyFilled", "declares as many positions as the text has bytes", partlyFilled},
        {"ArraysOfOneItem", "lists of one", manySmall},
        {"ArraysOfNothing", "empty lists", manyEmpty},
        {"ArraysWithoutMembers", "declares what it does not send", manyWithoutMembers},
        {"ArraysOfArraysOfArrays", "long item types", typesOfArrays},
        {"ArrayOfNilItems", "a column of nothing", ofNil},
        {"ArrayOfReferences", "a multi-reference encoding", ofReferences},
        {"ArrayOfStructs", "records", ofStructs},
        {"ArrayOfSoap12", "a list in SOAP 1.2", ofSoap12},
        {"ArrayOfRowsOfSoap12", "a matrix in SOAP 1.2", ofAxesOfSoap12},
        {"ArraysOfSoap12", "small lists in SOAP 1.2", smallOfSoap12},
        {"ArraysOfLongNumbers", "sizes with leading zeros", longNumbers},
    };
}

} // namespace growth
