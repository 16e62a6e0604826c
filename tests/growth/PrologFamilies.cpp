// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string comments(std::size_t bytes) {
    return "<?xml version='1.0'?>" + fill(bytes, "<!-- c -->") + soap11("<a/>");
}

std::string instructions(std::size_t bytes) {
    return "<?xml version='1.0'?>" + fill(bytes, "<?p i?>") + soap11("<a/>");
}

std::string blanks(std::size_t bytes) {
    return fill(bytes, " \r\n") + "<?xml version='1.0'?>" + soap11("<a/>");
}

std::string oneLongComment(std::size_t bytes) {
    return "<!--" + std::string(bytes, 'c') + "-->" + soap11("<a/>");
}

std::string commentsBehind(std::size_t bytes) {
    return soap11("<a/>") + fill(bytes, "<!-- c -->\n");
}

std::string otherTextBefore(std::size_t bytes) { return std::string(bytes, 'x') + soap11("<a/>"); }

} // namespace

Families prologs() {
    return {
        {"PrologOfComments", "a licence in front of each message", comments},
        {"PrologOfInstructions", "style sheets", instructions},
        {"PrologOfBlanks", "a template with empty lines", blanks},
        {"PrologOfOneLongComment", "a licence in one piece", oneLongComment},
        {"PrologAfterTheEnvelope", "comments at the end", commentsBehind},
        {"PrologOfOtherText", "a transport that leaves its own lines", otherTextBefore},
    };
}

} // namespace growth
