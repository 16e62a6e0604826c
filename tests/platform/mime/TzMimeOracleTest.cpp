// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/GMimeOracle.h"

#include <tz/mime/TzMimeMultipart.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <glib.h>
#include <nlohmann/json.hpp>

namespace {

void expectAgreement(const std::string& text) {
    SCOPED_TRACE(text.substr(0, 2000));
    const GMimeOracle::Package other = GMimeOracle::read(text);
    const TzMimeMultipart read = MimeTexts::package(text);
    EXPECT_EQ(other.boundary, MimeTexts::boundary(read));
    ASSERT_EQ(other.parts.size(), read.getPartCount());
    for (std::size_t at = 0; at < other.parts.size(); ++at) {
        EXPECT_EQ(other.parts[at].body, read.getPart(at).getBody());
        EXPECT_EQ(other.parts[at].headers, MimeTexts::headers(read.getPart(at)));
    }
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string sha256(const std::string& bytes) {
    gchar* const sum = g_compute_checksum_for_data(
        G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
    std::string text(sum);
    g_free(sum);
    return text;
}

} // namespace

TEST(TzMimeOracle, AgreesOnWhatIsBetweenDelimiters) {
    const char* const bodies[] = {
        "--b\r\nA: 1\r\n\r\nx\r\n--b--\r\n",
        ("pre\r\n--b \t\r\nA: 1\r\n\r\nx\r\n\r\n--b\r\nB: 2\r\n\r\ny\r\n--b-- "
         "\r\nepi\r\n--b\r\n\r\nz"),
        "--b\r\nA: 1\r\n\r\nx",
        "--b\r\nA: 1\r\n\r\nx\r\n",
        "--b\r\nA: 1\r\n\r\nx\r\n--b-",
        "--b\r\nA: 1\r\n\r\nx\r\n--b--x\r\n--b--\r\n",
        "--b\r\nA: 1\r\n--b--\r\n",
        "--b\r\n\r\n--b--\r\n",
        "--b\nA: 1\n\nx\ny\n--b\nB: 2\n\nz\r\r\n--b--\r\n",
        "--b\nA: 1\n\nx\r\r\n--b\r\n\r\nw\r\r\n--b--\r\n",
        "--b\r\nA: 1\r\n\r\nx\r\n--bb\r\n-b\r\n --b\r\n--b--\r\n",
    };
    for (const char* const body : bodies) {
        expectAgreement(MimeTexts::packageHead + body);
    }
}

TEST(TzMimeOracle, AgreesOnHeaders) {
    const char* const headers[] = {
        "A: 1\r\n folded\r\n\tmore\r\nB : 2\r\n",
        "A: 1\r\ngarbage\r\nB: 2\r\n",
        " no: 1\r\nA: 1\r\n",
        "A: 1\r\n \r\nB: 2\r\n",
        "A:\r\nB:   \r\nC: a \r\n\tb  \r\n",
        "=E: 1\r\n\"F\": 2\r\nB: \x01\x7F\xFF\r\n",
        "Content-ID: <a@b> (c)\r\n",
        "A: \"x\\\" y\" (c (d)) ; e=f\r\n",
    };
    for (const char* const header : headers) {
        expectAgreement(MimeTexts::packageHead + "--b\r\n" + header + "\r\nx\r\n--b--\r\n");
    }
}

TEST(TzMimeOracle, AgreesOnContentTypes) {
    const char* const types[] = {
        "multipart/related; boundary=b",
        "Multipart/Related;BOUNDARY=b;x=y",
        "multipart/related; boundary=b; boundary=c",
        "multipart/related; boundary*0=b; boundary*1=c",
        "multipart/related; boundary*1=c; boundary*0=b",
        "multipart/related; boundary*=us-ascii'en'b%63",
        "multipart/related; boundary*0*=us-ascii'en'b%63; boundary*1=\"d\"",
        "multipart/related; boundary=\"b\\\"c\"",
        "multipart/related; boundary=----=_P.1",
        "multipart / related; boundary=uuid:12",
        "multipart/related (c;boundary=x) ; boundary (d) = (e) b",
        "multipart/related; boundary='b'",
        "multipart/related;;boundary=b;",
        "multipart/related;\r\n\tstart=\"<a>\";\r\n boundary=\"b c\"",
    };
    for (const char* const type : types) {
        expectAgreement("Content-Type: " + std::string(type) +
                        "\r\n\r\n--b\r\n\r\nx\r\n--bc\r\n\r\ny\r\n--b c\r\n\r\nz\r\n--b--\r\n");
    }
}

TEST(TzMimeOracle, AgreesOnEncodings) {
    const std::pair<const char*, const char*> parts[] = {
        {"base64", "QUJD\r\n!!REVG\r\nRw=="},
        {"BASE64", "QUJDRA=="},
        {"base64", "\r\n\r\n"},
        {"quoted-printable", "a=3D =\r\nb =20\r\nc=0d=0A=zz="},
        {"Quoted-Printable", "a\r\n\r\n=C3=A4\r\n"},
        {"7bit", "=3D"},
        {"binary", "=3D\r\r\n"},
        {"x-other", "=3D"},
    };
    for (const auto& [encoding, body] : parts) {
        expectAgreement(MimeTexts::packageHead + "--b\r\nContent-Transfer-Encoding: " + encoding +
                        "\r\n\r\n" + body + "\r\n--b--\r\n");
    }
}

TEST(TzMimeOracle, AgreesOnSamples) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TZSOAP_SAMPLES_DIR)) {
        if (entry.path().extension() != ".mime") {
            continue;
        }
        SCOPED_TRACE(entry.path());
        ++count;
        const std::string text = contentOf(entry.path());
        expectAgreement(text);
        const TzMimeMultipart read = MimeTexts::package(text);
        const auto expected = nlohmann::json::parse(
            contentOf(std::filesystem::path(entry.path()).replace_extension("json")));
        const auto& parts = expected.at("mime").at("parts");
        ASSERT_EQ(read.getPartCount(), parts.size());
        for (std::size_t at = 0; at < parts.size(); ++at) {
            const TzMimePart part = read.getPart(at);
            EXPECT_EQ(sha256(part.getBody()), parts[at].at("sha256").get<std::string>());
            EXPECT_EQ(part.getBody().size(), parts[at].at("bytes").get<std::size_t>());
            EXPECT_EQ(part.getHeaderCount(), parts[at].at("headers").size());
            for (const auto& [label, value] : parts[at].at("headers").items()) {
                EXPECT_EQ(part.getHeader(part.findHeader(label)).getValue(), value);
            }
        }
        expectAgreement(read.asString());
        EXPECT_EQ(MimeTexts::bodies(MimeTexts::package(read.asString())), MimeTexts::bodies(read));
    }
    EXPECT_GT(count, 0U);
}
