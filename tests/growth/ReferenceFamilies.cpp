// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string manyToOne(std::size_t bytes) {
    return soap11("<x id='x'>1</x>" + fill(bytes, "<a href='#x'/>"));
}

std::string manyToALargeOne(std::size_t bytes) {
    return soap11("<x id='x'>" + fill(bytes / 2, "<m>1</m>") + "</x>" +
                  fill(bytes / 2, "<a href='#x'/>"));
}

std::string hrefs(std::size_t bytes) {
    return fill(bytes, [](std::size_t i) { return numbered("<a href='#x", i, "'/>"); });
}

std::string targets(std::size_t bytes) {
    return fill(bytes, [](std::size_t i) { return numbered("<x id='x", i, "'>1</x>"); });
}

std::string forward(std::size_t bytes) { return soap11(hrefs(bytes / 2) + targets(bytes / 2)); }

std::string backward(std::size_t bytes) { return soap11(targets(bytes / 2) + hrefs(bytes / 2)); }

std::string chain(std::size_t bytes) {
    return soap11("<a href='#x0'/>" + fill(bytes, [](std::size_t i) {
                      return numbered("<x id='x", i, "'>") +
                             numbered("<r href='#x", i + 1, "'/></x>");
                  }));
}

std::string chainBackward(std::size_t bytes) {
    return soap11("<x id='x0'>1</x>" + fill(bytes, [](std::size_t i) {
                      return numbered("<x id='x", i + 1, "'>") +
                             numbered("<r href='#x", i, "'/></x>");
                  }));
}

std::string ringOfAll(std::size_t bytes) { return soap11(oneRing(bytes, "id='x", "href='#x")); }

std::string ringsOfTwo(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        const std::string n = std::to_string(i);
        return "<x id='a" + n + "'><r href='#b" + n + "'/></x><x id='b" + n + "'><r href='#a" + n +
               "'/></x>";
    }));
}

std::string ringsOfOne(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        const std::string n = std::to_string(i);
        return "<x id='a" + n + "'><r href='#a" + n + "'/></x>";
    }));
}

std::string allToAll(std::size_t bytes) {
    const std::string members = fill(bytes / 2, "<r href='#x'/>");
    return soap11("<x id='x'>" + members + "</x>" + members);
}

std::string meshed(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<x id='x", i, "'><r href='#x") + std::to_string(i / 2) +
               numbered("'/><r href='#x", i + 7, "'/></x>");
    }));
}

std::string unresolved(std::size_t bytes) { return soap11(hrefs(bytes)); }

std::string withOneBeginning(std::size_t bytes) {
    const std::string same(200, 'i');
    return soap11(fill(bytes, [&](std::size_t i) {
        const std::string id = same + std::to_string(i);
        return "<a href='#" + id + "'/><x id='" + id + "'>1</x>";
    }));
}

std::string duplicates(std::size_t bytes) {
    return soap11(fill(bytes, "<x id='x'>1</x><a href='#x'/>"));
}

std::string fromHeaderToBody(std::size_t bytes) {
    return soap11({.body = targets(bytes / 2), .header = hrefs(bytes / 2)});
}

std::string fromBodyToHeader(std::size_t bytes) {
    return soap11({.body = hrefs(bytes / 2), .header = targets(bytes / 2)});
}

std::string soap12References(std::size_t bytes) {
    return soap12(fill(bytes, [](std::size_t i) {
        const std::string n = std::to_string(i);
        return "<a e:ref='x" + n + "'/><x e:id='x" + n + "'>1</x>";
    }));
}

std::string ofNestedValues(std::size_t bytes) {
    const std::size_t levels = 400;
    std::string start;
    for (std::size_t i = 0; i < levels; ++i) {
        start += numbered("<x id='x", i, "'>");
    }
    return soap11(
        start +
        fill(bytes, [](std::size_t i) { return numbered("<a href='#x", i % levels, "'/>"); }) +
        times(levels, "</x>"));
}

std::string longHrefs(std::size_t bytes) {
    return soap11(fill(bytes, [](std::size_t i) {
        return numbered("<a href='http://h/", i, std::string(500, 'p') + "'/>");
    }));
}

} // namespace

Families references() {
    return {
        {"ReferencesToOneValue", "shared constants of a multi-reference encoding", manyToOne},
        {"ReferencesToALargeValue", "has a large value written for each reference",
         manyToALargeOne},
        {"ReferencesForward", "the usual multi-reference encoding", forward},
        {"ReferencesBackward", "values first", backward},
        {"ReferencesInAChain", "a linked list", chain},
        {"ReferencesInAChainBackward", "a linked list from its end", chainBackward},
        {"ReferencesInOneRing", "a ring of all values", ringOfAll},
        {"ReferencesInRingsOfTwo", "parents and children that know each other", ringsOfTwo},
        {"ReferencesToTheirOwnValue", "values within themselves", ringsOfOne},
        {"ReferencesOfOneValueToItself", "many ways around one ring", allToAll},
        {"ReferencesMeshed", "a graph with many ways from value to value", meshed},
        {"ReferencesToNothing", "ids that were lost", unresolved},
        {"ReferencesByIdsWithOneBeginning", "has ids compared to their ends", withOneBeginning},
        {"ReferencesToAnIdGivenAgain", "a generator that does not count", duplicates},
        {"ReferencesFromHeaderToBody", "signatures", fromHeaderToBody},
        {"ReferencesFromBodyToHeader", "values kept in the header", fromBodyToHeader},
        {"ReferencesOfSoap12", "the same in SOAP 1.2", soap12References},
        {"ReferencesToValuesAround", "has each value be around the references", ofNestedValues},
        {"ReferencesToTheWorld", "long URLs that no part has", longHrefs},
    };
}

} // namespace growth
