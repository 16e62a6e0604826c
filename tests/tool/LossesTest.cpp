// SPDX-License-Identifier: MIT
//
// Every command reports what the model has no place for.
#include "tool/RunTool.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const std::vector<std::vector<std::string>> readers = {
    {"show", "-"}, {"show", "--json", "-"}, {"echo", "-"}, {"convert", "--to", "1.1", "-"}};

/// What every command says about the SOAP 1.1 message with these entries, which it accepts.
void expectTold(const std::string& entries, const std::string& told) {
    const ToolDirectory here;
    for (const auto& reader : readers) {
        const ToolRun run = here.run(reader, envelope(TzSoapVersion::V1_1, entries));
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, told) << reader[0];
    }
}

} // namespace

TEST(ToolLosses, AFaultWithoutACodeIsTold) {
    expectTold("<e:Fault><faultcode/><faultstring>out of\tmoney</faultstring></e:Fault>",
               "standard input: warning: a Fault without a code is left out, its reason is "
               "\"out of\\tmoney\"\n");
    expectTold("<e:Fault><e:Code/></e:Fault>",
               "standard input: warning: a Fault without a code is left out\n");
}

TEST(ToolLosses, AFaultWithACodeIsNone) {
    expectTold("<e:Fault><faultcode>e:Server</faultcode></e:Fault>", "");
}

TEST(ToolLosses, TextBesideElementsIsTold) {
    const std::string before = envelope(TzSoapVersion::V1_1, "");
    const std::size_t column = before.find("</e:Body>") + std::string("<a>text").size() + 1;
    const std::string place = "standard input:1:" + std::to_string(column);
    expectTold("<a>text<b/></a>", place + ": warning: text beside elements is left out, 1 piece\n");
    expectTold("<a>text<b/>and<b/>\n</a>",
               place + ": warning: text beside elements is left out, 2 pieces\n");
    expectTold("<a>\n<b/>\n</a>", "");
}

TEST(ToolLosses, TextBesideElementsOfAPackageIsTold) {
    const ToolDirectory here;
    const std::string text = "Content-Type: multipart/related; boundary=b\n\n--b\n\n" +
                             envelope(TzSoapVersion::V1_1, "\n<a>text<b/></a>") + "\n--b--\n";
    EXPECT_EQ(
        here.run({"echo", "-"}, text).error,
        "standard input (envelope):2:8: warning: text beside elements is left out, 1 piece\n");
}
