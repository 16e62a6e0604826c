// SPDX-License-Identifier: MIT
#include "tool/RunTool.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimePart.h>

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string envelope = R"(<S:Envelope xmlns:S="http://schemas.xmlsoap.org/soap/envelope/">)"
                             R"(<S:Body><file href="cid:a.txt"/></S:Body></S:Envelope>)";

} // namespace

TEST(Pack, MakesAPackage) {
    const ToolDirectory here;
    here.write("e.xml", envelope);
    here.write("a.txt", std::string("\r\nbytes\0\r\n", 10));
    here.write("b", "b");
    const ToolRun run = here.run({"pack", "e.xml", "a.txt", "x@y=b;type=image/x; q=1", "-o", "p"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(here.read("p"),
              std::string("MIME-Version: 1.0\r\n"
                          "Content-Type: multipart/related; boundary=\"MIME_boundary\"; "
                          "type=\"text/xml\"; start=\"<soap.xml@mime.representation>\"\r\n"
                          "\r\n"
                          "--MIME_boundary\r\n"
                          "Content-Type: text/xml; charset=\"UTF-8\"\r\n"
                          "Content-ID: <soap.xml@mime.representation>\r\n"
                          "Content-Transfer-Encoding: binary\r\n"
                          "\r\n") +
                  envelope +
                  std::string("\r\n--MIME_boundary\r\n"
                              "Content-Type: text/plain\r\n"
                              "Content-Transfer-Encoding: binary\r\n"
                              "Content-ID: <a.txt>\r\n"
                              "\r\n"
                              "\r\nbytes") +
                  '\0' +
                  "\r\n\r\n--MIME_boundary\r\n"
                  "Content-Type: image/x; q=1\r\n"
                  "Content-Transfer-Encoding: binary\r\n"
                  "Content-ID: <x@y>\r\n"
                  "\r\n"
                  "b\r\n--MIME_boundary--\r\n");
}

TEST(Pack, ThePackageIsAMessageWithAttachments) {
    const ToolDirectory here;
    here.write("a.txt", "bytes");
    const ToolRun run = here.run({"pack", "-", "a.txt"}, envelope);
    EXPECT_EQ(run.status, 0) << run.error;
    TzSoapMessage message;
    message.extract(run.out);
    const auto reference =
        tzSoapCast<TzSoapReferenceType>(*message.getSoapBody().findEntry(TzXmlName("file")));
    ASSERT_TRUE(reference && reference->hasReference());
    EXPECT_EQ(reference->getMimeReference().getBody(), "bytes");
}

TEST(Pack, UndoesUnpack) {
    const ToolDirectory here;
    EXPECT_EQ(here.run({"unpack", sample("soaplite/mime_crlf.mime").string(), "one"}).status, 0);
    EXPECT_EQ(here.run({"pack", "one/envelope.xml", "lines.bin@corpus.example=one/1-lines.bin",
                        "-o", "p"})
                  .status,
              0);
    EXPECT_EQ(here.run({"unpack", "p", "two"}).status, 0);
    EXPECT_EQ(here.names("two"), here.names("one"));
    for (const std::string& name : here.names("one")) {
        EXPECT_EQ(here.read("two/" + name), here.read("one/" + name));
    }
}

TEST(Pack, StatesTheEncodingOfTheEnvelope) {
    const ToolDirectory here;
    here.write("a.txt", "bytes");
    const auto charset = [&](const std::string& text) {
        const std::string out = here.run({"pack", "-", "a.txt"}, text).out;
        const std::size_t begin = out.find("charset=\"");
        return begin == std::string::npos
                   ? out
                   : out.substr(begin + 9, out.find('"', begin + 9) - begin - 9);
    };
    EXPECT_EQ(charset(envelope), "UTF-8");
    EXPECT_EQ(charset("<?xml version=\"1.0\" encoding='ISO-8859-15'?>" + envelope), "ISO-8859-15");
    std::string wide = "\xFF\xFE";
    for (const char character : envelope) {
        wide += character;
        wide += '\0';
    }
    EXPECT_EQ(charset(wide), "UTF-16");
}

TEST(Pack, WarnsOfReferencesWithoutAPart) {
    const ToolDirectory here;
    here.write("b.txt", "bytes");
    const ToolRun run = here.run({"pack", "-", "b.txt"}, envelope);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "standard input: warning: no part for the reference \"cid:a.txt\"\n");
    EXPECT_EQ(here.run({"pack", "-", "a.txt=b.txt"}, envelope).error, "");
}

TEST(Pack, SaysWhatIsWrong) {
    const ToolDirectory here;
    here.write("e.xml", envelope);
    here.write("bad.xml",
               "<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope/\">\n</b>");
    here.write("a.txt", "bytes");
    const auto error = [&](const std::vector<std::string>& arguments) {
        const ToolRun run = here.run(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        return run.error;
    };
    EXPECT_EQ(error({"pack", "bad.xml", "a.txt", "-o", "p"}),
              "bad.xml:2:3: mismatched tag (in the root part of the package)\n");
    EXPECT_EQ(error({"pack", "no.xml", "a.txt", "none", "-o", "p"}),
              "no.xml: No such file or directory\nnone: No such file or directory\n");
    EXPECT_EQ(error({"pack", "e.xml", "a.txt", "a.txt=e.xml", "-o", "p"}),
              "a.txt=e.xml: another part has its content id a.txt\n");
    EXPECT_EQ(error({"pack", "e.xml", "=a.txt"}), "=a.txt: is neither PATH nor CID=PATH\n");
    EXPECT_EQ(error({"pack", "e.xml", "a="}), "a=: is neither PATH nor CID=PATH\n");
    EXPECT_EQ(error({"pack", "e.xml", "a.txt", "-o", "no/p"}), "no/p: No such file or directory\n");
    EXPECT_EQ(error({"pack", "e.xml", "a.txt", "-o", "/dev/full"}),
              "/dev/full: No space left on device\n");
    EXPECT_FALSE(std::filesystem::exists(here.path() / "p"));
    EXPECT_GT(here.run({"pack", "e.xml"}).status, 100);
}
