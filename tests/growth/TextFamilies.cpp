// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string inOneValue(const std::string& text) { return soap11("<a>" + text + "</a>"); }

std::string oneLong(std::size_t bytes) { return inOneValue(std::string(bytes, 't')); }

std::string sections(std::size_t bytes) { return inOneValue(fill(bytes, "<![CDATA[x]]>")); }

std::string oneLongSection(std::size_t bytes) {
    return inOneValue("<![CDATA[" + std::string(bytes, '<') + "]]>");
}

std::string comments(std::size_t bytes) { return inOneValue(fill(bytes, "t<!--c-->")); }

std::string instructions(std::size_t bytes) { return inOneValue(fill(bytes, "t<?p i?>")); }

std::string characterReferences(std::size_t bytes) {
    return inOneValue(fill(bytes, "&#65;&#x42;"));
}

std::string entities(std::size_t bytes) { return inOneValue(fill(bytes, "&lt;&amp;&gt;")); }

std::string blanks(std::size_t bytes) { return inOneValue(fill(bytes, " \n\t")); }

std::string lineEnds(std::size_t bytes) { return inOneValue(fill(bytes, "\r\nx\r")); }

std::string referencedReturns(std::size_t bytes) { return inOneValue(fill(bytes, "&#13;")); }

std::string blanksBetweenValues(std::size_t bytes) {
    return soap11(fill(bytes, "<a>\n        <b>1</b>\n\n\n        </a>\n\n\n"));
}

std::string commentsBetweenValues(std::size_t bytes) {
    return soap11(fill(bytes, "<a><!-- c --><b><!-- d -->1</b></a><?p i?>"));
}

std::string mixed(std::size_t bytes) { return soap11("<a>" + fill(bytes, "t<b/>u") + "</a>"); }

std::string closingBrackets(std::size_t bytes) { return inOneValue(fill(bytes, "]] ")); }

std::string shortValues(std::size_t bytes) { return soap11(fill(bytes, "<a>t</a>")); }

std::string notAsciiAtTheEnd(std::size_t bytes) {
    return soap11(fill(bytes, "<a>t</a>") + "<\xC3\xA9>t</\xC3\xA9>");
}

std::string returnsInAttributes(std::size_t bytes) {
    return soap11(fill(bytes, "<a b='\r\n\t&amp;\r'>t</a>"));
}

std::string quotes(std::size_t bytes) { return inOneValue(fill(bytes, "\"'")); }

} // namespace

Families texts() {
    return {
        {"TextHandedOverLate", "has the scanner read all for nothing", notAsciiAtTheEnd},
        {"TextInAttributes", "has every value be written anew", returnsInAttributes},
        {"TextOfOneValue", "base64 in an element", oneLong},
        {"TextOfSections", "has a text arrive in many pieces", sections},
        {"TextOfOneSection", "markup as a string", oneLongSection},
        {"TextBetweenComments", "has a text arrive in many pieces", comments},
        {"TextBetweenInstructions", "the same with processing instructions", instructions},
        {"TextOfCharacterReferences", "a producer that escapes everything", characterReferences},
        {"TextOfEntities", "markup escaped as a string", entities},
        {"TextOfBlanks", "blanks that belong to a value", blanks},
        {"TextOfLineEnds", "lines of two systems", lineEnds},
        {"TextOfCarriageReturns", "has each be written as a reference again", referencedReturns},
        {"TextOfBlanksBetweenValues", "a message laid out for people", blanksBetweenValues},
        {"TextOfCommentsBetweenValues", "a message explained", commentsBetweenValues},
        {"TextBesideElements", "a document sent as a value", mixed},
        {"TextOfClosingBrackets", "has the end of a section suspected", closingBrackets},
        {"TextsOfOneCharacter", "flags", shortValues},
        {"TextOfQuotes", "program text", quotes},
    };
}

} // namespace growth
