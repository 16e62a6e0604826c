// SPDX-License-Identifier: MIT
#include "tool/RunTool.h"

#include <glib.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <memory>
#include <string>

namespace {

using Json = nlohmann::json;

std::string sha256(const std::string& bytes) {
    const std::unique_ptr<char, decltype(&g_free)> sum(
        g_compute_checksum_for_string(G_CHECKSUM_SHA256, bytes.data(),
                                      static_cast<gssize>(bytes.size())),
        g_free);
    return sum.get();
}

/// A package of an envelope and of parts that have these header lines.
std::string package(const std::vector<std::string>& headers) {
    std::string text = "Content-Type: multipart/related; boundary=b\r\n\r\n"
                       "--b\r\n\r\n<e/>\r\n";
    for (const std::string& lines : headers) {
        text += "--b\r\n" + lines + "\r\n\r\nbytes\r\n";
    }
    return text + "--b--\r\n";
}

} // namespace

TEST(Unpack, WritesThePartsOfEverySample) {
    std::size_t packages = 0;
    for (const auto& entry : std::filesystem::directory_iterator(sample("soaplite"))) {
        if (entry.path().extension() != ".mime") {
            continue;
        }
        ++packages;
        const ToolDirectory here;
        const ToolRun run = here.run({"unpack", entry.path().string(), "to"});
        EXPECT_EQ(run.status, 0) << run.error;
        auto description = entry.path();
        const Json parts =
            Json::parse(readFile(description.replace_extension(".json")))["mime"]["parts"];
        ASSERT_EQ(here.names("to").size(), parts.size()) << entry.path();
        for (const std::string& name : here.names("to")) {
            const std::size_t position = name == "envelope.xml" ? 0 : std::stoul(name);
            EXPECT_EQ(sha256(here.read("to/" + name)), parts[position]["sha256"]) << entry.path();
        }
    }
    EXPECT_EQ(packages, 6U);
}

TEST(Unpack, PrintsAnIndex) {
    const ToolDirectory here;
    const ToolRun run = here.run({"unpack", sample("soaplite/mime_three.mime").string(), "to"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.out,
              "file\tsize\ttype\tcontent id\tlocation\n"
              "to/envelope.xml\t444\ttext/xml\tmain_envelope\t/main_envelope\n"
              "to/1-hello.txt\t40\tapplication/octet-stream\thello.txt@corpus.example\t-\n"
              "to/2-all256.bin\t256\tapplication/octet-stream\tall256.bin@corpus.example\t-\n"
              "to/3-png.png\t69\tapplication/octet-stream\tpng.png@corpus.example\t-\n");
}

TEST(Unpack, ReadsStandardInputAndMakesDirectories) {
    const ToolDirectory here;
    EXPECT_EQ(here.run({"unpack", "-", "a/b"}, package({"Content-ID: <x>"})).status, 0);
    EXPECT_EQ(here.read("a/b/envelope.xml"), "<e/>");
    EXPECT_EQ(here.read("a/b/1-x"), "bytes");
}

TEST(Unpack, TakesTheContentTypeFromTheCommandLine) {
    const ToolDirectory here;
    const std::string body = "--c\r\n\r\none\r\n--c\r\n\r\ntwo\r\n--c--\r\n";
    EXPECT_EQ(here.run({"unpack", "-", "to"}, body).status, 1);
    const ToolRun run =
        here.run({"unpack", "--content-type", "multipart/related; boundary=c", "-", "to"}, body);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(here.read("to/1-part"), "two");
}

TEST(Unpack, TheEnvelopeIsThePartThatTheStartNames) {
    const ToolDirectory here;
    const std::string text = "Content-Type: multipart/related; boundary=b; start=\"<root>\"\r\n\r\n"
                             "--b\r\nContent-ID: <a>\r\n\r\none\r\n"
                             "--b\r\nContent-ID: <root>\r\n\r\ntwo\r\n--b--\r\n";
    EXPECT_EQ(here.run({"unpack", "-", "to"}, text).status, 0);
    EXPECT_EQ(here.names("to"), (std::vector<std::string>{"0-a", "envelope.xml"}));
    EXPECT_EQ(here.read("to/envelope.xml"), "two");
}

TEST(Unpack, NamesCannotLeaveTheDirectory) {
    const ToolDirectory here;
    const std::string text =
        package({"Content-ID: <../../up>", "Content-ID: </etc/passwd>", "Content-ID: <..>",
                 "Content-Location: http://host/a/../b%2F..?q=/x", "Content-Location: dir\\file:1",
                 "Content-ID: <" + std::string(5000, 'x') + ">", "Content-ID: <a\tb\x1b[0m\xff>",
                 "Content-ID: <>", "X: y", "Content-ID: <@host>"});
    const ToolRun run = here.run({"unpack", "-", "to"}, text);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(here.names(), std::vector<std::string>{"to"});
    EXPECT_EQ(here.names("to"),
              (std::vector<std::string>{"1-.._.._up", "10-part", "2-_etc_passwd", "3-..",
                                        "4-b_2F..", "5-dir_file_1", "6-" + std::string(64, 'x'),
                                        "7-a_b__0m_", "8-part", "9-part", "envelope.xml"}));
    EXPECT_EQ(run.out.find('\x1b'), std::string::npos);
    EXPECT_NE(run.out.find("to/7-a_b__0m_\t5\t-\ta\\tb\\x1b[0m\\xff\t-\n"), std::string::npos)
        << run.out;
}

TEST(Unpack, ReplacesNothingUnlessToldTo) {
    const ToolDirectory here;
    const std::string text = package({"Content-ID: <x>", "Content-ID: <y>"});
    EXPECT_EQ(here.run({"unpack", "-", "to"}, text).status, 0);
    here.write("to/1-x", "mine");
    std::filesystem::remove(here.path() / "to/2-y");

    const ToolRun refused = here.run({"unpack", "-", "to"}, text);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.error, "to/envelope.xml: is there already; --force replaces it\n"
                             "to/1-x: is there already; --force replaces it\n");
    EXPECT_EQ(here.read("to/1-x"), "mine");
    EXPECT_EQ(here.names("to").size(), 2U); // nothing was written at all

    EXPECT_EQ(here.run({"unpack", "--force", "-", "to"}, text).status, 0);
    EXPECT_EQ(here.read("to/1-x"), "bytes");
    EXPECT_EQ(here.read("to/2-y"), "bytes");
}

TEST(Unpack, FollowsNoLinks) {
    const ToolDirectory here;
    here.write("outside", "mine");
    std::filesystem::create_directory(here.path() / "to");
    std::filesystem::create_symlink("../outside", here.path() / "to/1-x");
    std::filesystem::create_symlink("../nowhere", here.path() / "to/envelope.xml");
    const std::string text = package({"Content-ID: <x>"});
    EXPECT_EQ(here.run({"unpack", "-", "to"}, text).status, 1);
    EXPECT_EQ(here.run({"unpack", "--force", "-", "to"}, text).status, 0);
    EXPECT_EQ(here.read("outside"), "mine");
    EXPECT_EQ(here.read("to/1-x"), "bytes");
    EXPECT_FALSE(std::filesystem::exists(here.path() / "nowhere"));
}

TEST(Unpack, SaysWhatIsWrong) {
    const ToolDirectory here;
    EXPECT_EQ(here.run({"unpack", "none", "to"}).error, "none: No such file or directory\n");
    const ToolRun xml = here.run({"unpack", sample("php/map.xml").string(), "to"});
    EXPECT_EQ(xml.status, 1);
    EXPECT_EQ(xml.error, sample("php/map.xml").string() + ": is no package of parts\n");
    const ToolRun rootless = here.run(
        {"unpack", "-", "to"},
        "Content-Type: multipart/related; boundary=b; start=r\r\n\r\n--b\r\n\r\nx\r\n--b--\r\n");
    EXPECT_EQ(rootless.status, 1);
    EXPECT_EQ(rootless.error,
              "standard input: holds no part that its Content-Type names as the envelope\n");
    here.write("to", "a file");
    const ToolRun file = here.run({"unpack", "-", "to"}, package({}));
    EXPECT_EQ(file.status, 1);
    EXPECT_TRUE(file.error.starts_with("to: ")) << file.error;
}
