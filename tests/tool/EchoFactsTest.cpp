// SPDX-License-Identifier: MIT
//
// Every captured message of SOAP 1.1 and of SOAP 1.2 as of 2003, read and written again by the
// tool, says what it said before: another XML parser finds equal elements, attributes and texts in
// both.
#include "tool/RunTool.h"
#include "tool/XmlFacts.h"

#include <tz/mime/TzMimeMultipart.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

/// The envelope in a file, which may hold a package.
std::string envelopeIn(const std::string& text, bool isPackage) {
    if (!isPackage) {
        return text;
    }
    TzMimeMultipart package;
    package.fromString(text);
    return package.getPart(package.findRootPart()).getBody();
}

constexpr char final2003[] = "=\"http://www.w3.org/2003/05/soap-envelope\"";

bool isMessage(const std::filesystem::path& file) {
    if (file.extension() != ".xml" && file.extension() != ".mime") {
        return false;
    }
    const std::string text = readFile(file);
    const bool isFirst =
        text.find("=\"http://schemas.xmlsoap.org/soap/envelope/\"") != std::string::npos;
    // Children of SOAP 1.1 in a fault of SOAP 1.2 become those of SOAP 1.2.
    return isFirst || (text.find(final2003) != std::string::npos &&
                       text.find("<faultcode>") == std::string::npos);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// The message `text` without what some senders get wrong in SOAP 1.2 as of 2003: they leave out
/// the language of a reason and write an IDREF like a fragment.
std::string corrected(const std::string& text) {
    return text.find(final2003) == std::string::npos
               ? text
               : replaced(replaced(text, "<env:Text>", "<env:Text xml:lang=\"en\">"), "enc:ref=\"#",
                          "enc:ref=\"");
}

/// The files with these messages.
std::vector<std::filesystem::path> captured() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TZSOAP_SAMPLES_DIR)) {
        if (isMessage(entry.path())) {
            files.push_back(entry.path());
        }
    }
    return files;
}

/// Expects the envelope `text` to say the same when the tool has written it again.
void expectEchoed(const std::string& text) {
    const ToolDirectory here;
    const ToolRun run = here.run({"echo", "-"}, text);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(XmlFacts::of(run.out), XmlFacts::of(text)) << run.out;
}

const std::string head = "<S:Envelope xmlns:S='http://schemas.xmlsoap.org/soap/envelope/' "
                         "xmlns:x='urn:x'><S:Body>";
const std::string tail = "</S:Body></S:Envelope>";

} // namespace

TEST(EchoFacts, EveryCapturedMessageSaysTheSame) {
    const std::vector<std::filesystem::path> files = captured();
    EXPECT_EQ(files.size(), 56U);
    for (const std::filesystem::path& file : files) {
        SCOPED_TRACE(file);
        const bool isPackage = file.extension() == ".mime";
        const ToolDirectory here;
        const ToolRun run = here.run({"echo", file.string()});
        ASSERT_EQ(run.status, 0) << run.error;
        EXPECT_EQ(XmlFacts::of(envelopeIn(run.out, isPackage)),
                  XmlFacts::of(corrected(envelopeIn(readFile(file), isPackage))));
    }
}

TEST(EchoFacts, TextsAndAttributesStay) {
    expectEchoed(head + "<a x:b='1' b='2' xmlns:y='urn:x'>&lt;&amp; ]]&gt;</a>" + tail);
}
