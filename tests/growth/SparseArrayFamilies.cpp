// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string item(std::size_t position) {
    return numbered("<i e:position='[", position, "]'>1</i>");
}

std::string sparse(std::size_t size, const std::string& items) {
    return soap11(numbered("<a e:arrayType='xsd:int[", size, "]'>") + items + "</a>");
}

std::string inOrder(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [](std::size_t i) { return item(i); }));
}

std::string everyThird(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [](std::size_t i) { return item(3 * i); }));
}

std::string reversed(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [&](std::size_t i) { return item(bytes - 1 - i); }));
}

std::string shuffled(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [&](std::size_t i) { return item(i * 7919 % bytes); }));
}

std::string outsideIn(std::size_t bytes) {
    return sparse(bytes,
                  fill(bytes, [&](std::size_t i) { return item(i % 2 == 0 ? i : bytes - i); }));
}

std::string repeated(std::size_t bytes) {
    return sparse(10, fill(bytes, [](std::size_t i) { return item(i % 10); }));
}

std::string longDigits(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [](std::size_t i) {
                      return "<i e:position='[" + std::string(200, '0') + numbered("", i, "]'/>");
                  }));
}

std::string twoAxes(std::size_t bytes) {
    return soap11("<a e:arrayType='xsd:int[1000,1000]'>" +
                  fill(bytes,
                       [](std::size_t i) {
                           return numbered("<i e:position='[", i * 7919 % 1000, ",") +
                                  numbered("", i / 1000, "]'>1</i>");
                       }) +
                  "</a>");
}

std::string manySmall(std::size_t bytes) {
    return soap11(fill(
        bytes, "<a e:arrayType='xsd:int[9]'><i e:position='[5]'>1</i><i e:position='[2]'/></a>"));
}

std::string gaps(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [](std::size_t i) {
                      return "<i>1</i>" + item(4 * i + 2) + "<i>2</i>";
                  }));
}

std::string ofStructs(std::size_t bytes) {
    return sparse(bytes, fill(bytes, [](std::size_t i) {
                      return numbered("<i e:position='[", 2 * i, "]'><b>1</b><c>2</c></i>");
                  }));
}

} // namespace

Families sparseArrays() {
    return {
        {"SparseInOrder", "a list with stated positions", inOrder},
        {"SparseEveryThird", "a list with gaps", everyThird},
        {"SparseReversed", "has each item go before the others", reversed},
        {"SparseShuffled", "a hash table's order", shuffled},
        {"SparseFromBothEnds", "has items go to the front and the back in turn", outsideIn},
        {"SparseRepeated", "states the same positions again and again", repeated},
        {"SparseWithLongDigits", "positions with leading zeros", longDigits},
        {"SparseRows", "a sparse matrix", twoAxes},
        {"SparseAndSmall", "many small sparse arrays", manySmall},
        {"SparseWithGaps", "items with and without positions", gaps},
        {"SparseOfStructs", "records with positions", ofStructs},
    };
}

} // namespace growth
