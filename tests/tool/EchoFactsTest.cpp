// SPDX-License-Identifier: MIT
//
// Every captured SOAP 1.1 message, read and written again by the tool, says what it said before:
// another XML parser finds equal elements, attributes and texts in both.
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

bool isMessage(const std::filesystem::path& file) {
    if (file.extension() != ".xml" && file.extension() != ".mime") {
        return false;
    }
    return readFile(file).find("=\"http://schemas.xmlsoap.org/soap/envelope/\"") !=
           std::string::npos;
}

/// The files with messages of SOAP 1.1.
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
    EXPECT_EQ(files.size(), 49U);
    for (const std::filesystem::path& file : files) {
        SCOPED_TRACE(file);
        const bool isPackage = file.extension() == ".mime";
        const ToolDirectory here;
        const ToolRun run = here.run({"echo", file.string()});
        ASSERT_EQ(run.status, 0) << run.error;
        EXPECT_EQ(XmlFacts::of(envelopeIn(run.out, isPackage)),
                  XmlFacts::of(envelopeIn(readFile(file), isPackage)));
    }
}

TEST(EchoFacts, TextsAndAttributesStay) {
    expectEchoed(head + "<a x:b='1' b='2' xmlns:y='urn:x'>&lt;&amp; ]]&gt;</a>" + tail);
}
