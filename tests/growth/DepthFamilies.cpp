// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

constexpr std::size_t Deep = 990; // below the limit with Envelope, Body and a leaf

std::string tower(const std::string& start, const std::string& inside, const std::string& end) {
    return times(Deep, start) + inside + times(Deep, end);
}

std::string towers(std::size_t bytes) { return soap11(fill(bytes, tower("<a>", "", "</a>"))); }

std::string leaves(std::size_t bytes) {
    return soap11(tower("<a>", fill(bytes, "<l>1</l>"), "</a>"));
}

std::string leavesAtEachLevel(std::size_t bytes) {
    return soap11(fill(bytes, tower("<a><l>1</l>", "", "<l>1</l></a>")));
}

std::string arrays(std::size_t bytes) {
    return soap11(fill(bytes, tower("<a e:arrayType='xsd:anyType[1]'>", "<i>1</i>", "</a>")));
}

std::string sparse(std::size_t bytes) {
    return soap11(fill(
        bytes, tower("<a e:arrayType='xsd:anyType[9]' e:position='[5]'>", "<i>1</i>", "</a>")));
}

std::string styles(std::size_t bytes) {
    return soap11(
        fill(bytes, tower("<a s:encodingStyle='http://schemas.xmlsoap.org/soap/encoding/'>", "<i/>",
                          "</a>")));
}

std::string declarations(std::size_t bytes) {
    return soap11(fill(bytes, tower("<p:a xmlns:p='u'>", "<p:i/>", "</p:a>")));
}

std::string defaults(std::size_t bytes) {
    return soap11(
        fill(bytes, times(Deep / 2, "<a xmlns='u'><b xmlns=''>") + times(Deep / 2, "</b></a>")));
}

std::string types(std::size_t bytes) {
    return soap11(fill(bytes, tower("<a xsi:type='xsd:anyType'>", "<i/>", "</a>")));
}

std::string ids(std::size_t bytes) {
    return soap11(fill(bytes, tower("<a id='x'>", "<i href='#x'/>", "</a>")));
}

std::string inTheHeader(std::size_t bytes) {
    return soap11({.body = "<a/>", .header = fill(bytes, tower("<a>", "", "</a>"))});
}

std::string asMarkup(std::size_t bytes) {
    return soap11("<a s:encodingStyle='urn:own'>" + fill(bytes, tower("<a>", "", "</a>")) + "</a>");
}

std::string longNames(std::size_t bytes) {
    const std::string name(50, 'n');
    return soap11(fill(bytes, tower("<" + name + ">", "", "</" + name + ">")));
}

std::string indentedLeaves(std::size_t bytes) {
    return soap11(tower("<a>\n", fill(bytes, "\n<l/>\n"), "</a>\n"));
}

std::string soap12Towers(std::size_t bytes) {
    return soap12(fill(bytes, tower("<a>", "", "</a>")));
}

} // namespace

Families depth() {
    return {
        {"DepthInTowers", "has all levels opened and closed again", towers},
        {"DepthAboveLeaves", "has each leaf be written below all levels", leaves},
        {"DepthWithLeavesAtEachLevel", "has leaves on all levels", leavesAtEachLevel},
        {"DepthOfArrays", "arrays in arrays", arrays},
        {"DepthOfSparseArrays", "sparse arrays in sparse arrays", sparse},
        {"DepthOfStyles", "states the encoding at each level", styles},
        {"DepthOfDeclarations", "declares at each level", declarations},
        {"DepthOfDefaultNamespaces", "sets the default and takes it back", defaults},
        {"DepthOfTypes", "states a type at each level", types},
        {"DepthOfIds", "states one id at each level", ids},
        {"DepthInTheHeader", "the same in a header", inTheHeader},
        {"DepthOfMarkup", "within a value that is kept as markup", asMarkup},
        {"DepthOfLongNames", "long names on all levels", longNames},
        {"DepthOfLines", "lines that are indented by others", indentedLeaves},
        {"DepthOfSoap12", "the same in SOAP 1.2", soap12Towers},
    };
}

} // namespace growth
