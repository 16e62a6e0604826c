// SPDX-License-Identifier: MIT
#include "xml/TzXmlScanner.h"

#include "xml/TzXmlEventSink.h"
#include "xml/TzXmlSse2Blocks.h"

#include <gtest/gtest.h>

#include "platform/xml/GuardedText.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_view_literals;

/// Writes the events down as they come.
class ScanRecorder : public TzXmlEventSink {
public:
    void declaration(std::string_view version, std::string_view encoding, int standalone) override {
        note("?" + std::string(version) + "," + std::string(encoding) + "," +
             std::to_string(standalone));
    }
    void documentType() override { note("!"); }
    void startTag(std::string_view name,
                  std::span<const TzXmlSpelledAttribute> attributes) override {
        std::string event = "<" + std::string(name);
        for (const TzXmlSpelledAttribute& attribute : attributes) {
            event += " " + std::string(attribute.name) + "=" + std::string(attribute.value);
            views.push_back(attribute.value);
        }
        views.push_back(name);
        note(event + ">");
    }
    bool startTagAgain(const TzXmlTagMark&) override { return false; }
    void endTag() override { note("</>"); }

    std::string log;
    std::vector<std::string_view> views;
    bool throws = false;

private:
    void note(const std::string& event) {
        log += text_ + event;
        text_.clear();
        if (throws) {
            throw std::runtime_error("thrown by the sink");
        }
    }
};

/// One scan of a text.
template <typename Blocks> struct Scan {
    explicit Scan(std::string_view text, std::size_t attributeLimit = 100,
                  TzXmlKnownEncoding encoding = TzXmlKnownEncoding::None) {
        TzXmlScanner<Blocks> scanner(text, encoding, attributeLimit, recorder, places);
        verdict = scanner.read();
        delivered = scanner.delivered().count();
    }

    ScanRecorder recorder;
    TzXmlTextPlaces places;
    TzXmlScanVerdict verdict;
    std::size_t delivered;
};

template <typename Blocks> std::string eventsOf(std::string_view text) {
    const Scan<Blocks> scan(text);
    return (scan.verdict == TzXmlScanVerdict::Finished ? "" : "handed over: ") + scan.recorder.log;
}

template <typename Blocks> class TzXmlScannerBy : public testing::Test {};

using AllBlocks = testing::Types<TzXmlScanBlocks, TzXmlWordBlocks>;
TYPED_TEST_SUITE(TzXmlScannerBy, AllBlocks);

/// Where the blocks find the first stop in `text`.
template <typename Blocks> std::ptrdiff_t found(std::string_view text, TzXmlScanStops stops) {
    return Blocks::find(text.data(), text.data() + text.size(), stops) - text.data();
}

} // namespace

TYPED_TEST(TzXmlScannerBy, FindsEachStopAtEachPlace) {
    GuardedText memory(64);
    for (const bool lines : {false, true}) {
        const TzXmlScanStops stops{'<', '&', ']', lines};
        for (std::size_t length = 0; length <= 40; ++length) {
            for (std::size_t at = 0; at < length; ++at) {
                for (int byte = 0; byte < 256; ++byte) {
                    std::string text(length, 'x');
                    text[at] = static_cast<char>(byte);
                    const bool isStop = "<&]"sv.find(text[at]) != std::string_view::npos ||
                                        byte >= 0x80 ||
                                        (byte < 0x20 && (lines || (byte != 9 && byte != 10)));
                    ASSERT_EQ(found<TypeParam>(memory.atEnd(text), stops),
                              static_cast<std::ptrdiff_t>(isStop ? at : length))
                        << byte << " at " << at << " of " << length;
                }
            }
        }
    }
}

TYPED_TEST(TzXmlScannerBy, FindsTheFirstOfSeveralStops) {
    const TzXmlScanStops stops{'"', '<', '&', true};
    EXPECT_EQ(found<TypeParam>("0123456789\t&\"<0123456789", stops), 10);
    EXPECT_EQ(found<TypeParam>("01234567890123456789\xC3\xA9\"", stops), 20);
    EXPECT_EQ(found<TypeParam>("\n\n\n\n\n\n\n\n\n\"", {'"', '"', '"', false}), 9);
}

TYPED_TEST(TzXmlScannerBy, ReadsWhatItKnows) {
    EXPECT_EQ(eventsOf<TypeParam>("<a/>"), "<a></>");
    EXPECT_EQ(eventsOf<TypeParam>("<?xml-stylesheet href='a'?><a/>"), "<a></>");
    EXPECT_EQ(eventsOf<TypeParam>("<?xml version='1.0' encoding='utf-8' standalone='no'?>\r\n"
                                  "<!-- c --><?p i?><a x='1' y=\"2\">t<b>]] &lt;\xC3\xA9</b >"
                                  "<![CDATA[<]]]]>&#x41;\r\nz</a>\n<!--c-->"),
              "?1.0,utf-8,0<a x=1 y=2>t<b>]] <\xC3\xA9</><]]A\nz</>");
    EXPECT_EQ(eventsOf<TypeParam>("<a b='&#9;\t\r\n&amp;\r' c = ''/>"), "<a b=\t  &  c=></>");
}

TYPED_TEST(TzXmlScannerBy, HandsOverWhatItDoesNotKnow) {
    for (const std::string_view text :
         {"", " ", "text", "<!DOCTYPE a><a/>", "<?xml version='1.1'?><a/>",
          "<?xml version='1.0' encoding='US-ASCII'?><a/>", "<\xC3\xA9/>", "<a \xC3\xA9=''/>",
          " <?xml version='1.0'?><a/>", "<?p\xC3\xA9?><a/>"}) {
        EXPECT_EQ(eventsOf<TypeParam>(text), "handed over: ") << text;
    }
}

TYPED_TEST(TzXmlScannerBy, DeliversATagOnceItIsChecked) {
    EXPECT_EQ(eventsOf<TypeParam>("<a><b x='1' x='2'/></a>"), "handed over: <a>");
    EXPECT_EQ(eventsOf<TypeParam>("<a>text<b x='1'"), "handed over: <a>");
    EXPECT_EQ(eventsOf<TypeParam>("<a></b>"), "handed over: <a>");
    EXPECT_EQ(eventsOf<TypeParam>("<a/><b/>"), "handed over: <a></>");
    EXPECT_EQ(Scan<TypeParam>("<?xml version='1.0'?><a><b/>&none;</a>").delivered, 4U);
}

TYPED_TEST(TzXmlScannerBy, HandsOverATagWithTooManyAttributes) {
    constexpr std::string_view Text = "<a><b x='1' y='2'/></a>";
    EXPECT_EQ(Scan<TypeParam>(Text, 2).verdict, TzXmlScanVerdict::Finished);
    const Scan<TypeParam> crowded(Text, 1);
    EXPECT_EQ(crowded.verdict, TzXmlScanVerdict::HandOver);
    EXPECT_EQ(crowded.recorder.log, "<a>");
}

TYPED_TEST(TzXmlScannerBy, IgnoresTheDeclaredEncodingOfATextWithAByteOrderMark) {
    constexpr std::string_view Text = "<?xml version='1.0' encoding='US-ASCII'?><a/>";
    EXPECT_EQ(Scan<TypeParam>(Text, 1, TzXmlKnownEncoding::Utf8).recorder.log,
              "?1.0,US-ASCII,-1<a></>");
}

TYPED_TEST(TzXmlScannerBy, CopiesNothingThatTheTextHolds) {
    constexpr std::string_view Text = "<name first='value' second='other value'/>";
    const Scan<TypeParam> scan(Text);
    ASSERT_EQ(scan.recorder.views.size(), 3U);
    for (const std::string_view view : scan.recorder.views) {
        EXPECT_GE(view.data(), Text.data());
        EXPECT_LE(view.data() + view.size(), Text.data() + Text.size());
    }
}

TYPED_TEST(TzXmlScannerBy, FindsARepeatedNameAmongMany) {
    std::string attributes;
    for (int i = 0; i < 50; ++i) {
        attributes += " a" + std::to_string(i) + "='1'";
        const std::string before = "<a" + attributes;
        EXPECT_EQ(Scan<TypeParam>(before + "/>").verdict, TzXmlScanVerdict::Finished);
        EXPECT_EQ(Scan<TypeParam>(before + " a" + std::to_string(i / 2) + "='2'/>").verdict,
                  TzXmlScanVerdict::HandOver);
    }
}

TYPED_TEST(TzXmlScannerBy, LetsExceptionsOfTheSinkPass) {
    ScanRecorder recorder;
    recorder.throws = true;
    TzXmlTextPlaces places;
    TzXmlScanner<TypeParam> scanner("<a>\n<b/></a>", TzXmlKnownEncoding::None, 1, recorder, places);
    EXPECT_THROW(scanner.read(), std::runtime_error);
    EXPECT_EQ(recorder.log, "<a>");
}

TYPED_TEST(TzXmlScannerBy, ReadsNoByteOutsideTheText) {
    constexpr std::string_view Text =
        "<?xml version='1.0' encoding=\"UTF-8\" standalone='yes' ?>\r\n<!-- a comment - -->"
        "<?instruction with data?><envelope xmlns:p='urn:p' second=\"&amp;&#x10FFFF;\t\r\n\">"
        "<p:item>0123456789abcdef0123456789</p:item >\xF0\x9F\x98\x80\xE4\xB8\xAD\xC3\xA9]] ] &gt;"
        "<![CDATA[ <&]] \r\n]]]><empty a='1'/>&apos;&#65;\r</envelope>\r\n<?end?>";
    ASSERT_EQ(Scan<TypeParam>(Text).verdict, TzXmlScanVerdict::Finished);
    GuardedText memory(Text.size());
    for (std::size_t length = 0; length < Text.size(); ++length) {
        const std::string_view cut = Text.substr(0, length);
        const std::string atEnd = Scan<TypeParam>(memory.atEnd(cut)).recorder.log;
        EXPECT_EQ(Scan<TypeParam>(memory.atBegin(cut)).recorder.log, atEnd) << length;
    }
}

TEST(TzXmlTextPlaces, CountsLinesAndCharacters) {
    constexpr std::string_view Text = "a\xC3\xA9\nb\r\n\rc\xF0\x9F\x98\x80";
    TzXmlTextPlaces places;
    places.start(Text);
    EXPECT_EQ(places.line(), 1U);
    EXPECT_EQ(places.column(), 1U);
    places.set(Text.data() + 3, Text.data() + 4);
    EXPECT_EQ(places.column(), 3U);
    EXPECT_EQ(places.offset(), 3U);
    EXPECT_EQ(places.length(), 1U);
    places.set(Text.data() + 4, Text.data() + 4);
    EXPECT_EQ(places.line(), 2U);
    EXPECT_EQ(places.column(), 1U);
    places.set(Text.data() + Text.size(), Text.data() + Text.size());
    EXPECT_EQ(places.line(), 4U);
    EXPECT_EQ(places.column(), 3U);
}
