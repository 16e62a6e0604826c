// SPDX-License-Identifier: MIT
//
// What is read literally and written again has the same canonical form.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapMessage.h>

#include "literal/XmlOracle.h"
#include "property/Generator.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

/// `text` after it was read and written literally.
std::string again(const std::string& text) {
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    EXPECT_FALSE(message.hasDroppedText());
    return message.asString();
}

/// Makes random envelopes: mixed content, declarations that hide others, attributes of all kinds,
/// comments, character references, CDATA. Equal ones for equal seeds.
class EnvelopeText {
public:
    explicit EnvelopeText(std::uint32_t seed) : random_(seed) {}

    std::string make() {
        version_ = below(static_cast<unsigned int>(Envelopes.size()));
        const std::string prefix = pick({"e", "soap", "", "p"});
        const std::string colon = prefix.empty() ? "" : prefix + ":";
        text_ = below(2) == 0 ? "" : "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        text_ += "<" + colon + "Envelope xmlns" + (prefix.empty() ? "" : ":" + prefix) + "=\"" +
                 Envelopes[version_] + "\"";
        envelopePrefix_ = colon;
        if (prefix != "p") {
            declare("p");
        }
        text_ += ">";
        gap();
        if (below(2) == 0) {
            block("Header");
        }
        block("Body");
        text_ += "</" + colon + "Envelope>";
        return text_;
    }

private:
    static constexpr std::array<const char*, 3> Envelopes = {
        "http://schemas.xmlsoap.org/soap/envelope/", "http://www.w3.org/2002/06/soap-envelope",
        "http://www.w3.org/2003/05/soap-envelope"};

    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(random_() % limit); }
    std::string pick(std::initializer_list<const char*> choices) {
        return *(choices.begin() + below(static_cast<unsigned int>(choices.size())));
    }

    void gap() {
        if (below(2) == 0) {
            text_ += pick({"\n", "  ", "\t\n ", "<!-- c -->", "\n<!---->\n"});
        }
    }

    void declare(const std::string& prefix) {
        const std::string uri = pick({"urn:1", "urn:2", "http://x.org/a?b&amp;c",
                                      "http://schemas.xmlsoap.org/soap/encoding/",
                                      "http://www.w3.org/2003/05/soap-encoding",
                                      "http://www.w3.org/2001/XMLSchema-instance", "urn:3"});
        text_ += " xmlns" + (prefix.empty() ? "" : ":" + prefix) + "=\"" + uri + "\"";
    }

    void block(const std::string& name) {
        text_ += "<" + envelopePrefix_ + name + ">";
        gap();
        const unsigned int count = below(4);
        for (unsigned int i = 0; i < count; ++i) {
            element(0, name == "Header");
            gap();
        }
        text_ += "</" + envelopePrefix_ + name + ">";
        gap();
    }

    void element(unsigned int depth, bool entry) {
        const std::string prefix = pick({"", "", "p", "q"});
        const std::string colon = prefix.empty() ? "" : prefix + ":";
        const std::string name =
            colon + pick({"a", "b", "href", "Misunderstood", "NotUnderstood", "item"});
        text_ += "<" + name;
        declare("q");
        if (below(3) == 0) {
            declare("p");
        }
        if (below(3) == 0) {
            declare("");
        } else if (below(4) == 0) {
            text_ += " xmlns=\"\"";
        }
        attributes(entry);
        if (below(6) == 0) {
            text_ += "/>";
            return;
        }
        text_ += ">";
        const unsigned int count = depth > 4 ? 0 : below(4);
        content();
        for (unsigned int i = 0; i < count; ++i) {
            element(depth + 1, false);
            content();
        }
        text_ += "</" + name + ">";
    }

    void attributes(bool entry) {
        for (const char* name : {"href", "id", "ref", "q:arrayType", "q:root", "plain", "q:nil",
                                 "q:id", "q:ref", "q:itemType", "q:nodeType"}) {
            if (below(5) == 0) {
                text_ += std::string(" ") + name + "=\"" +
                         pick({"#1", "1", "true", "x &lt; &quot; &#10; y", "", "p:int[2]"}) + "\"";
            }
        }
        if (entry && !envelopePrefix_.empty() && envelopePrefix_ != "p:") {
            text_ += " " + envelopePrefix_ + "mustUnderstand=\"" +
                     pick({"0", "1", "true", "false"}) + "\"";
            text_ += " " + envelopePrefix_ + "relay=\"" + pick({"0", "true"}) + "\"";
            text_ += " " + envelopePrefix_ + "role=\"" + Envelopes[version_] + "/role/next\"";
        }
        if (below(6) == 0) {
            text_ += R"( xmlns:xs="http://www.w3.org/2001/XMLSchema-instance" xs:type="p:T")";
        }
        if (below(8) == 0) {
            text_ += R"( xml:lang="en")";
        }
    }

    void content() {
        if (below(3) == 0) {
            text_ += pick({" ", "text", "a &amp; b", "&#13;\n", "<![CDATA[<x>]]>", "<!-- c -->",
                           "\xC3\xA4 <!-- c -->t", "\n  "});
        }
    }

    std::mt19937 random_;
    std::string text_;
    std::string envelopePrefix_;
    std::size_t version_ = 0;
};

TEST(LiteralRoundTrip, EnvelopesOfAllKindsStayTheSame) {
    for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::string text = EnvelopeText(seed).make();
        const std::string written = again(text);
        ASSERT_EQ(XmlOracle::canonical(written), XmlOracle::canonical(text)) << text;
        ASSERT_EQ(again(written), written);
    }
}

TEST(LiteralRoundTrip, MessagesInTheEncodingAreLiteralTextAsWell) {
    for (std::uint32_t seed = 1; seed <= 500; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const TzSoapMessage message = Generator(seed).message();
        const std::string text = message.asText(TzSoapLayout::Compact);
        if (text.starts_with('<')) {
            ASSERT_EQ(XmlOracle::canonical(again(text)), XmlOracle::canonical(text)) << text;
        }
    }
}

TEST(LiteralRoundTrip, SamplesStayTheSame) {
    unsigned int compared = 0;
    for (const std::filesystem::path& file : sampleFiles()) {
        const std::string text = readFile(file);
        if (file.extension() != ".xml") {
            continue;
        }
        SCOPED_TRACE(file);
        EXPECT_EQ(XmlOracle::canonical(again(text)), XmlOracle::canonical(text));
        ++compared;
    }
    EXPECT_GE(compared, 36U);
}

TEST(LiteralRoundTrip, AMessageWrittenInPartsByWritersWithinOneAnotherIsTheSame) {
    const std::string text = EnvelopeText(7).make();
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.extract(text);
    EXPECT_EQ(message.copy().asString(), message.asString());
}

} // namespace
