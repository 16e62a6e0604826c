// SPDX-License-Identifier: MIT
#include <soap/TzSoap.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

const std::filesystem::path Folder = std::filesystem::path(TZSOAP_INCLUDE_DIR) / "soap";

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

TEST(UmbrellaHeader, IncludesEveryPublicHeader) {
    const std::string umbrella = contentOf(Folder / "TzSoap.h");
    std::size_t headers = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
        const std::string name = entry.path().filename().string();
        const std::string line = "#include <soap/" + name + ">\n";
        EXPECT_EQ(umbrella.find(line) != std::string::npos, name != "TzSoap.h")
            << "add to include/soap/TzSoap.h: " << line;
        ++headers;
    }
    EXPECT_GT(headers, 60U);
}

TEST(UmbrellaHeader, IsAllThatAProgramIncludes) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapCompositeType order("order");
    order.appendChild(TzSoapSimpleType("on", TzDate(2026, 11, 22), TzSoapType::xsdDate, true));
    order.appendChild(TzSoapReferenceType("file", TzMimePart::make("bytes", "text/plain", "f")));
    message.getSoapBody().appendEntry(order);
    TzSoapMessage read;
    read.extract(message.asString());
    EXPECT_EQ(TzSoapValueReader(read.getSoapBody().getChild("order/on")).getDate(),
              TzDate(2026, 11, 22));
    const auto file = tzSoapAs<TzSoapReferenceType>(read.getSoapBody().getChild("order/file"));
    EXPECT_EQ(file.getMimeReference().getBody(), "bytes");
}
