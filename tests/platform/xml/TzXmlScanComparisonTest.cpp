// SPDX-License-Identifier: MIT
// The scanner and Expat alone read the same texts, and nothing tells the two apart.
#include "platform/xml/ScanComparison.h"
#include "platform/xml/ScanTexts.h"

#include <gtest/gtest.h>

#include "support/Instrumented.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// `part` repeated.
std::string times(std::size_t count, std::string_view part) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += part;
    }
    return all;
}

/// Whether all sources read `text`, and see the same.
void expectRead(const std::string& text, const ScanTerms& terms = {}) {
    ScanComparison comparison;
    EXPECT_EQ(comparison.differences(text, terms), "") << text.substr(0, 200);
    EXPECT_TRUE(comparison.accepted()) << text.substr(0, 200);
}

/// Whether all sources refuse `text`, and see the same before they do.
void expectRefused(const std::string& text, const ScanTerms& terms = {}) {
    ScanComparison comparison;
    EXPECT_EQ(comparison.differences(text, terms), "") << text.substr(0, 200);
    EXPECT_FALSE(comparison.accepted()) << text.substr(0, 200);
}

} // namespace

TEST(TzXmlScanComparison, MadeTextsAndTheirMutations) {
    const std::size_t wanted = Instrumented ? 4'000 : 60'000;
    ScanTexts texts(16);
    ScanComparison comparison;
    std::size_t accepted = 0;
    for (std::size_t i = 0; i < wanted; ++i) {
        const std::string& text = texts.next();
        const std::size_t terms = texts.below(1 << 12);
        ASSERT_EQ(comparison.differences(text, ScanTerms::of(terms)), "")
            << "text " << i << ", terms " << terms << "\n"
            << text;
        accepted += comparison.accepted() ? 1 : 0;
    }
    // The texts are neither all in order nor all spoilt.
    EXPECT_GT(accepted, wanted / 3);
    EXPECT_LT(accepted, wanted / 2);
}

TEST(TzXmlScanComparison, SamplesAndTheirMutations) {
    ScanTexts texts(17);
    ScanComparison comparison;
    std::size_t files = 0;
    const std::string samples = TZSOAP_SAMPLES_DIR;
    for (const std::string& folder : {samples, samples + "/../fuzz/corpus"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (!entry.is_regular_file()) {
                continue;
            }
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string sample(std::istreambuf_iterator<char>(file), {});
            ASSERT_EQ(comparison.differences(sample, {}), "") << entry.path();
            for (int i = 0; i < (Instrumented ? 2 : 40); ++i) {
                const std::string& text = texts.spoil(sample);
                ASSERT_EQ(comparison.differences(text, {}), "") << entry.path() << "\n" << text;
            }
            ++files;
        }
    }
    EXPECT_GT(files, 50U);
}

TEST(TzXmlScanComparison, TextsCutAnywhere) {
    const std::string text =
        "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8' standalone='yes'?>\n<!--c--><a "
        "b='&amp;&#x41; \t\r\n' c=\"1\"><p:b xmlns:p='u'/>t]] \xE4\xB8\xAD&#65;<![CDATA[]>]]]>"
        "<?p d?></a >\r\n<!-- - -->";
    ScanComparison comparison;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        EXPECT_EQ(comparison.differences(text.substr(0, length), {}), "") << length;
        EXPECT_EQ(comparison.differences(text.substr(length), {}), "") << length;
    }
}

// Each of these is wrong in one way only; what the scanner takes for granted shows here.
TEST(TzXmlScanComparison, SingleMistakes) {
    for (const std::string_view wrong :
         {"<a>]]></a>",
          "<a>x]]]></a>",
          "<a><!-- -- --></a>",
          "<a><!-- --->\n</a>",
          "<a><!--></a>",
          "<a><?xml d?></a>",
          "<a><?XmL d?></a>",
          "<a><?xml?></a>",
          "<a><?"
          "?></a>",
          "<a><?1?></a>",
          "<a><?p?q?></a>",
          "<a><?p<?></a>",
          "<a><!x></a>",
          "<a><![CDATA [x]]></a>",
          "<a><![cdata[x]]></a>",
          "<a><![CDATA[x]]</a>",
          "<a b='1' b='2'/>",
          "<a b='<'/>",
          "<a b='&'/>",
          "<a b='&none;'/>",
          "<a b='&#0;'/>",
          "<a b='1'c='2'/>",
          "<a b/>",
          "<a b='1/>",
          "<a b=1/>",
          "<a b='1\"/>",
          "<a ='1'/>",
          "<a 1='1'/>",
          "<1/>",
          "<a / >",
          "<a/ >",
          "<a><b></a>",
          "<a></a",
          "<a></a b>",
          "<a></aa>",
          "<a></ a>",
          "<aa></a>",
          "<a>&none;</a>",
          "<a>&lt</a>",
          "<a>& </a>",
          "<a>&#;</a>",
          "<a>&#x;</a>",
          "<a>&#xG;</a>",
          "<a>&#A;</a>",
          "<a>&#X41;</a>",
          "<a>&#x110000;</a>",
          "<a>&#xD800;</a>",
          "<a>&#xDFFF;</a>",
          "<a>&#xFFFE;</a>",
          "<a>&#xFFFF;</a>",
          "<a>&#31;</a>",
          "<a>&#4294967361;</a>",
          "<a>&#65</a>",
          "<a/>x",
          "<a/><b/>",
          "<a/>&lt;",
          "<a/><![CDATA[]]>",
          "x<a/>",
          "&lt;<a/>",
          "<![CDATA[]]><a/>",
          "</a>",
          "<a>\x01</a>",
          "<a b='\x01'/>",
          "<a><!--\x01--></a>",
          "<a><?p \x01?></a>",
          "<a><![CDATA[\x01]]></a>",
          "<a>\xC0\x80</a>",
          "<a>\xC1\xBF</a>",
          "<a>\xE0\x9F\xBF</a>",
          "<a>\xED\xA0\x80</a>",
          "<a>\xEF\xBF\xBE</a>",
          "<a>\xEF\xBF\xBF</a>",
          "<a>\xF0\x8F\xBF\xBF</a>",
          "<a>\xF4\x90\x80\x80</a>",
          "<a>\xF8\x88\x80\x80\x80</a>",
          "<a>\x80</a>",
          "<a>\xC3</a>",
          "<a>\xE4\xB8</a>",
          "<a>\xF0\x9F\x98</a>",
          "<a>\xE4\x41\xAD</a>",
          "<a>\xE4\xB8\x41</a>",
          "<a b='\xFF'/>",
          "<a><!--\xFF--></a>",
          "<a><?p \xFF?></a>",
          "<a><![CDATA[\xFF]]></a>",
          "<?xml version='1.0'",
          "<?xml version='1.0'?",
          "<?xml version='1.0' encoding=''?><a/>",
          "<?xml version='1.0' encoding='1'?><a/>",
          "<?xml version='1.0' standalone=''?><a/>",
          "<?xml version='1.0' standalone='on'?><a/>",
          "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>",
          "<?xml version='1.0'encoding='UTF-8'?><a/>",
          "<?xml version '1.0'?><a/>",
          "<?xml version=\"1.0'?><a/>",
          "<?xml encoding='UTF-8'?><a/>",
          "<?xml version='1.0' x=''?><a/>",
          "<?xml version='1.0' encoding='none'?><a/>",
          "\xEF\xBB\xBF<?xml version='1.0' encoding='-'?><a/>",
          "\xEF\xBB\xBF<?xml version='1.0' encoding='a b'?><a/>",
          "<?xml ?><a/>",
          "\n<?xml version='1.0'?><a/>"}) {
        expectRefused(std::string(wrong));
    }
}

TEST(TzXmlScanComparison, VersionsThatExpatReads) {
    for (const std::string_view version : {"", "1.1", "2.0", "1.00", "x"}) {
        expectRead("<?xml version='" + std::string(version) + "'?><a/>");
    }
}

TEST(TzXmlScanComparison, LimitsThatAHandlerSets) {
    const std::string text = "<a><b x='1' y='2'><c/></b><b x='1'/></a>";
    for (std::size_t event = 0; event < 8; ++event) {
        expectRefused(text, {.throwAt = event});
        ScanComparison comparison;
        EXPECT_EQ(comparison.differences(text, {.lowerAt = event}), "") << event;
        EXPECT_EQ(comparison.differences(text + "<", {.lowerAt = event}), "") << event;
    }
    expectRefused(text, {.attributeLimit = 1});
    expectRefused(text, {.depthLimit = 2});
}

TEST(TzXmlScanComparison, LongTags) {
    expectRead("<" + std::string(100'000, 'a') + "/>");
    expectRead("<a b='" + std::string(1'000'000, 'x') + "'/>");
    expectRead("<a b='" + times(100'000, "&amp;") + "' c='" + times(100'000, "\r\n") + "'/>");
    expectRead("<a" + std::string(500'000, ' ') + "b" + std::string(500'000, '\n') + "=''/>");
    expectRefused("<a b='" + std::string(1'000'000, 'x'));
}

TEST(TzXmlScanComparison, ManyAttributes) {
    std::string tag = "<a";
    for (int i = 0; i < 200'000; ++i) {
        tag += " a" + std::to_string(i) + "=''";
    }
    expectRead(tag + "/>");
    expectRefused(tag + " a77=''/>");
    expectRefused(tag + " b=''/>");
    expectRead(tag + " b=''/>", {.attributeLimit = 200'001});
}

TEST(TzXmlScanComparison, AlternatingPieces) {
    for (const std::string_view pieces :
         {"x&lt;", "<![CDATA[x]]>&#65;", "<!--c-->x", "<?p?>", "\r", "x\r\n", "]", "]] ",
          "\xC3\xA9x", "\xE4\xB8\xAD", "&amp;\r<![CDATA[\r]]]]><!---->\xC3\xA9", "<![CDATA[]]]]>",
          "\n\t", "<b/>\n", "<b>\r</b>"}) {
        expectRead("<a>" + times(3'000, pieces) + "</a>");
        expectRead("<a><!--" + times(3'000, "- ") + "-->" + times(3'000, pieces) + "<b/></a>");
        expectRefused("<a>" + times(3'000, pieces) + "&none;</a>");
    }
}

TEST(TzXmlScanComparison, TextsOfSeveralPieces) {
    const std::string half = times(30'000, "<b x='1'>text &amp; text</b>");
    expectRead("<a>" + half + half + "</a>");
    expectRefused("<a>" + half + half + "</b>");
    expectRead("<a>" + half + "<\xC3\xA9/>" + half + "</a>");
}

TEST(TzXmlScanComparison, DeepTexts) {
    const ScanTerms deep{.depthLimit = 20'000};
    expectRead(times(20'000, "<a>") + times(20'000, "</a>"), deep);
    expectRefused(times(20'001, "<a>") + times(20'001, "</a>"), deep);
    expectRefused(times(20'000, "<a>") + times(19'999, "</a>"), deep);
}

TEST(TzXmlScanComparison, RepeatedTags) {
    for (const std::string_view repeated :
         {"<a/>", "<a>x</a>", "<a b='1' c='2'>x</a>\n  ", "<a><b/></a>", "<a></a><ab></ab>",
          "<a b='1'/><a b='12'/>", "<a b='&amp;&#9;'/>", "<a b='/'></a>", "<a b='>'/>",
          "<a\nb = '1'\t></a>", "<p:a p:b='1' b='2' q:b='3'/>", "<q:a/>", "<xml:a xml:b='1'/>",
          "<e xmlns='1'><a b='1'/></e><e xmlns='2'><a b='1'/></e><a b='1'/>",
          "<e xmlns:p='1'><p:a p:b='1'/></e><e xmlns:p='2'><p:a p:b='1'/></e><p:a p:b='1'/>",
          "<a xmlns='1'/><a xmlns='2'/><a xmlns='1'><a xmlns='1'/></a>", "<a xmlnsx='1'/>"}) {
        expectRead("<r xmlns:p='p' xmlns:q='p'>" + times(7, repeated) + "</r>");
    }
    // Longer than the names that are known again by their spelling.
    const std::string longName = times(60, "n");
    expectRead("<r>" + times(4, "<a" + longName + "/><b" + longName + "/>") + "</r>");
}

TEST(TzXmlScanComparison, MoreTagsThanAreRemembered) {
    std::string many;
    std::string few;
    for (int i = 0; i < 20; ++i) {
        many += "<a" + std::to_string(i) + " b='1'/>";
        few = i == 5 ? many : few;
    }
    expectRead("<r>" + times(4, many) + times(4, few) + times(4, many) + "</r>");
    const std::string longTag = "<a b='" + times(300, "b") + "'/>";
    expectRead("<r>" + times(4, longTag + "<c/>") + "</r>");
}

TEST(TzXmlScanComparison, RepeatedTagsBeforeAMistake) {
    for (const std::string_view wrong :
         {"<a b='1'></b>", "<a b='1'", "<a b='1'>", "<a b='1' b='1'/>", "<a b='1'c='1'/>",
          "<a b='1'>&none;</a>"}) {
        expectRefused("<r>" + times(4, "<a b='1'>x</a>") + std::string(wrong) + "</r>");
    }
}

TEST(TzXmlScanComparison, RepeatedTagsOfAHandlerThatThrowsOrLowersTheLimits) {
    const std::string text = "<r xmlns:p='uri' xmlns:q='uri'>" +
                             times(5, "<a p:b='1' q:b='2'><c>x</c></a>\n<c xmlns:p='uri'/>") +
                             "</r>";
    for (std::size_t event = 0; event < 30; ++event) {
        ScanTerms terms;
        terms.throwAt = event;
        expectRefused(text, terms);
        terms = {};
        terms.lowerAt = event;
        expectRefused(text, terms);
        terms = {};
        terms.askAlways = event % 2 == 0;
        terms.depthLimit = event / 2;
        terms.attributeLimit = 2;
        ScanComparison comparison;
        EXPECT_EQ(comparison.differences(text, terms), "") << event;
    }
}
