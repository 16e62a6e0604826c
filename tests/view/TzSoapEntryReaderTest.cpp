// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"
#include "support/Throws.h"
#include "view/Orders.h"

#include <soap/TzSoapEntryReader.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMissingError.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::string around(const std::string& body, const std::string& header = "") {
    return "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\" "
           "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">" +
           header + "<e:Body>" + body + "</e:Body></e:Envelope>";
}

const std::string Lines = "<r>\n<line><article>A</article><amount>1</amount></line>\n"
                          "<note>n</note><line><article>B</article><amount>2</amount></line>"
                          "<line><amount>3</amount><article/></line></r>";
const std::vector<Line> ReadLines = {{"A", 1}, {"B", 2}, {"", 3}};

/// The lines that `read` reads at `path`.
template <typename Read>
std::vector<Line> linesOf(const Read& read, const std::string& path = "r/line") {
    std::vector<Line> lines;
    auto reader =
        TzSoapEntryReader::of<Line>(path, [&](Line&& line) { lines.push_back(std::move(line)); });
    read(reader);
    return lines;
}

/// "path=text" of each record of the body `body` at `path`; a composite has the text "...".
std::vector<std::string> recordsOf(const std::string& body, const std::string& path = "*/*",
                                   TzSoapStyle style = TzSoapStyle::Literal) {
    std::vector<std::string> records;
    TzSoapEntryReader reader(
        [&](const TzSoapView& record) {
            records.push_back(record.getPath() + "=" +
                              (record.all().empty() ? record.getText() : "..."));
            return true;
        },
        path);
    reader.setStyle(style);
    reader.read(around(body));
    EXPECT_EQ(reader.getRecordCount(), records.size());
    return records;
}

using Records = std::vector<std::string>;

/// The error of class `Error` about a text.
template <typename Error> std::string refused(const std::string& text) {
    return textThrown<Error>(
        [&] { linesOf([&](TzSoapEntryReader& reader) { reader.read(text); }); });
}

/// Drops what it is given.
TzSoapEntryReader counting() {
    return TzSoapEntryReader([](const TzSoapView&) { return true; });
}

} // namespace

TEST(TzSoapEntryReader, HandsOverStructs) {
    EXPECT_EQ(linesOf([](TzSoapEntryReader& reader) { reader.read(around(Lines)); }), ReadLines);
}

TEST(TzSoapEntryReader, HandsOverTheChildrenOfAllEntries) {
    EXPECT_EQ(recordsOf("<a><b>1</b> <c/><b><x/></b></a><d><e>2</e></d>"),
              (Records{"a/b=1", "a/c=", "a/b[2]=...", "d/e=2"}));
}

TEST(TzSoapEntryReader, AfterManyNamesPathsHaveNoNumbers) {
    std::string body;
    for (char name = 'a'; name <= 'q'; ++name) {
        body += std::string("<") + name + "/>";
    }
    const Records records = recordsOf(body + "<p/><q/>", "*");
    EXPECT_EQ(records.at(16), "q=");
    EXPECT_EQ(records.at(17), "p[2]=");
    EXPECT_EQ(records.at(18), "q=");
}

TEST(TzSoapEntryReader, APathMayBeOneStepOrMany) {
    EXPECT_EQ(recordsOf("<a>1</a><b/><a>2</a>", "a"), (Records{"a=1", "a[2]=2"}));
    EXPECT_EQ(recordsOf("<a><x/><b><c>1</c><d/></b><b><c>2</c><c>3</c></b></a>", "a/b/c"),
              (Records{"a/b/c=1", "a/b[2]/c=2", "a/b[2]/c[2]=3"}));
    EXPECT_EQ(recordsOf("<a><b>t</b></a>", "a/x/c"), Records());
    EXPECT_EQ(recordsOf("<a><b><a><b>1</b></a></b></a>", "a/b/a/b"), (Records{"a/b/a/b=1"}));
}

TEST(TzSoapEntryReader, AnInvalidPathIsRefused) {
    for (const char* path : {"", "/a", "a/", "a//b"}) {
        EXPECT_EQ(textThrown<TzXmlBadArgError>(
                      [&] { TzSoapEntryReader([](const TzSoapView&) { return true; }, path); }),
                  "a path of records has a step without a name")
            << path;
    }
}

TEST(TzSoapEntryReader, ReadsAStream) {
    std::istringstream stream(around(Lines));
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) { reader.read(stream); }), ReadLines);
}

TEST(TzSoapEntryReader, ABrokenStreamIsAnError) {
    struct : std::streambuf {
        int underflow() override { throw std::runtime_error("gone"); }
    } buffer;
    std::istream stream(&buffer);
    TzSoapEntryReader reader = counting();
    EXPECT_EQ(textThrown<TzXmlError>([&] { reader.read(stream); }),
              "the stream of a message broke");
}

TEST(TzSoapEntryReader, ReadsATextThatIsCutAnywhere) {
    const std::string text = around(Lines);
    for (std::size_t at = 0; at <= text.size(); ++at) {
        EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) {
                      reader.feed(text.substr(0, at));
                      reader.feed(text.substr(at));
                      reader.finish();
                  }),
                  ReadLines)
            << at;
    }
}

TEST(TzSoapEntryReader, ReadsChunksOfOneByte) {
    const std::string text = around(Lines);
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) {
                  for (const char& byte : text) {
                      reader.feed({&byte, 1});
                  }
                  reader.finish();
              }),
              ReadLines);
}

TEST(TzSoapEntryReader, ReadsEveryEncoding) {
    std::string wide("\xFF\xFE", 2);
    for (const char byte : around(Lines)) {
        wide += {byte, '\0'};
    }
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) { reader.read(wide); }), ReadLines);
    const std::string latin =
        "<?xml version='1.0' encoding='ISO-8859-1'?>" +
        around("<r><line><article>\xE9</article><amount>1</amount></line></r>");
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) { reader.read(latin); }),
              (std::vector<Line>{{"\xC3\xA9", 1}}));
}

TEST(TzSoapEntryReader, ReadsAllVersions) {
    for (const TzSoapVersion::Version version : BothVersions) {
        EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) {
                      reader.read(envelope(version, Lines));
                      EXPECT_EQ(reader.getMessage().getVersion(), version);
                  }),
                  ReadLines);
    }
    const std::string final12 =
        "<e:Envelope xmlns:e='http://www.w3.org/2003/05/soap-envelope'><e:Body>" + Lines +
        "</e:Body></e:Envelope>";
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) {
                  TzSoapReadLimits limits;
                  limits.soap12Recommendation = true;
                  reader.setReadLimits(limits);
                  reader.read(final12);
              }),
              ReadLines);
    EXPECT_EQ(refused<TzXmlParseError>(final12), errorOf([&] { messageOf(final12); }));
}

TEST(TzSoapEntryReader, HandsOverARecordBeforeTheTextEnds) {
    std::vector<Line> lines;
    auto reader =
        TzSoapEntryReader::of<Line>("r/line", [&](Line&& line) { lines.push_back(line); });
    const std::string text = around(Lines);
    const std::size_t end = text.find("</line>") + 7;
    reader.feed(text.substr(0, end));
    EXPECT_TRUE(lines.empty());
    reader.feed(text.substr(end, 10));
    EXPECT_EQ(lines, (std::vector<Line>{{"A", 1}}));
}

TEST(TzSoapEntryReader, TheHeaderIsThereAtTheFirstRecord) {
    std::string token;
    TzSoapEntryReader* current = nullptr;
    TzSoapEntryReader reader([&](const TzSoapView&) {
        token = current->getMessage().getSoapHeader().getChild("token").asString();
        return true;
    });
    current = &reader;
    reader.read(around(Lines, "<e:Header><token>secret</token></e:Header>"));
    EXPECT_NE(token.find("secret"), std::string::npos) << token;
    EXPECT_EQ(reader.getMessage().getSoapBody().entryCount(), 0U);
}

TEST(TzSoapEntryReader, AFaultIsInTheMessage) {
    TzSoapEntryReader reader = counting();
    reader.read(around("<e:Fault><faultcode>e:Server</faultcode>"
                       "<faultstring>no stock</faultstring></e:Fault>"));
    EXPECT_EQ(reader.getRecordCount(), 0U);
    EXPECT_EQ(reader.getMessage().getSoapBody().getSoapFault().getReason(), "no stock");
}

TEST(TzSoapEntryReader, TheCallbackMayStopTheReading) {
    int seen = 0;
    auto reader = TzSoapEntryReader::of<Line>("r/line", [&](Line&&) { return ++seen < 2; });
    const std::string text = around(Lines);
    reader.read(text.substr(0, text.size() - 20));
    EXPECT_TRUE(reader.isStopped());
    EXPECT_EQ(reader.getRecordCount(), 2U);
    std::istringstream stream(text);
    seen = 0;
    reader.read(stream);
    EXPECT_TRUE(reader.isStopped());
    seen = -10;
    reader.feed(text);
    reader.finish();
    EXPECT_FALSE(reader.isStopped());
    EXPECT_EQ(reader.getRecordCount(), 3U);
}

TEST(TzSoapEntryReader, WhatIsFedAfterAStopIsIgnored) {
    auto reader = TzSoapEntryReader::of<Line>("r/line", [](Line&&) { return false; });
    reader.feed(around(Lines));
    reader.feed("<<<");
    EXPECT_EQ(reader.getRecordCount(), 1U);
    reader.finish();
    EXPECT_TRUE(reader.isStopped());
}

TEST(TzSoapEntryReader, AnExceptionOfTheCallbackEndsTheReading) {
    auto reader = TzSoapEntryReader::of<TzSoapView>(
        "r/line", [](const TzSoapView&) { throw std::runtime_error("full"); });
    EXPECT_THROW(reader.read(around(Lines)), std::runtime_error);
    EXPECT_EQ(reader.getRecordCount(), 1U);
    EXPECT_THROW(reader.feed(around(Lines)), std::runtime_error);
    auto number = TzSoapEntryReader::of<Line>("r/line", [](Line&&) { throw 1; });
    EXPECT_THROW(number.feed(around(Lines)), int);
    EXPECT_THROW(number.feed(around(Lines)), int);
}

TEST(TzSoapEntryReader, AnErrorOfARecordHasItsPathAndPlace) {
    const std::string text = around("<r><line><article/><amount>1</amount></line>\n"
                                    "  <line><article/><amount>x</amount></line></r>");
    const auto read = [&] { linesOf([&](TzSoapEntryReader& reader) { reader.read(text); }); };
    EXPECT_EQ(textThrown<TzXmlBadArgError>(read), "r/line[2]/amount: \"x\" is not an int");
    EXPECT_EQ(lineThrown<TzXmlBadArgError>(read), 2U);
    EXPECT_EQ(refused<TzSoapMissingError>(around("<r><line><article/></line></r>")),
              "r/line/amount is missing");
}

TEST(TzSoapEntryReader, ErrorsOfTheTextAreThoseOfAMessage) {
    for (const std::string& text :
         {std::string("<a/>"), around("<r><line></r>"), around(Lines).substr(0, 300),
          std::string("<e:Envelope xmlns:e='urn:x'/>"), around("<r/>", "<e:Other/>"),
          around("<r><!DOCTYPE a></r>")}) {
        EXPECT_EQ(errorOf([&] {
                      TzSoapEntryReader reader = counting();
                      reader.read(text);
                  }),
                  errorOf([&] { messageOf(text); }))
            << text;
    }
    EXPECT_EQ(refused<TzXmlParseError>(""), "no element found, line 1, column 1");
}

TEST(TzSoapEntryReader, AfterAnErrorAnotherTextIsRead) {
    EXPECT_EQ(linesOf([](TzSoapEntryReader& reader) {
                  EXPECT_THROW(reader.feed(around("<r><line></r>")), TzXmlParseError);
                  reader.feed(around(Lines));
                  reader.finish();
              }),
              ReadLines);
}

TEST(TzSoapEntryReader, LimitsHold) {
    const auto limited = [](std::size_t TzSoapReadLimits::*limit, std::size_t most,
                            const std::string& body) {
        return textThrown<TzXmlParseError>([&] {
            TzSoapEntryReader reader = counting();
            TzSoapReadLimits limits;
            limits.*limit = most;
            reader.setReadLimits(limits);
            reader.read(around(body));
        });
    };
    EXPECT_EQ(limited(&TzSoapReadLimits::depth, 4, "<r><a><b/></a></r>")
                  .find("elements are nested too deeply, line 1"),
              0U);
    EXPECT_EQ(limited(&TzSoapReadLimits::attributes, 2, "<r a='' b='' c=''/>")
                  .find("an element has too many attributes, line 1"),
              0U);
}

TEST(TzSoapEntryReader, ArrayPositionsAreLimitedForAllRecords) {
    const auto read = [](std::size_t most) {
        TzSoapEntryReader reader = counting();
        reader.setStyle(TzSoapStyle::Encoded);
        TzSoapReadLimits limits;
        limits.unfilledArrayPositions = most;
        reader.setReadLimits(limits);
        const std::string array = "<a c:arrayType='x:int[5000]'><i>1</i></a>";
        reader.read(envelope(TzSoapVersion::V1_1, "<r>" + array + array + array + "</r>"));
        return reader.getRecordCount();
    };
    EXPECT_EQ(read(15000), 3U);
    EXPECT_THROW(read(13000), TzXmlBoundsError);
}

TEST(TzSoapEntryReader, ARecordHasALimit) {
    const std::string megabyte(std::size_t{1} << 20, 'x');
    const auto refusedBeyond = [&](const std::string& body) {
        TzSoapEntryReader reader = counting();
        reader.setRecordLimit(500000);
        return textThrown<TzXmlParseError>([&] { reader.read(around(body)); });
    };
    for (const std::string& body :
         {"<r><a>" + megabyte + "</a></r>", "<r>" + megabyte + "</r>",
          "<r><a v='" + megabyte + "'/></r>", "<r><!--" + megabyte + "--></r>"}) {
        const std::string text = refusedBeyond(body);
        EXPECT_EQ(text.find("a record is too long, line 1, column "), 0U) << text;
    }
}

TEST(TzSoapEntryReader, WhatIsPassedOverHasNoLimit) {
    std::string body = "<r>";
    for (int i = 0; i < 50000; ++i) {
        body += "<x><y>text text text</y></x>";
    }
    body += "<line><article>A</article><amount>1</amount></line></r>";
    EXPECT_EQ(linesOf([&](TzSoapEntryReader& reader) {
                  reader.setRecordLimit(70000);
                  reader.read(around(body));
              }),
              (std::vector<Line>{{"A", 1}}));
}

TEST(TzSoapEntryReader, ReferencesStayUnresolvedAndSaySo) {
    const std::string body = "<r><by href='#1'/><x id='1'>Ann</x></r>";
    TzSoapEntryReader reader([](const TzSoapView& record) {
        if (record.getName().getLocalName() == "by") {
            EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { record.getText(); }),
                      "r/by refers to \"#1\", which is no value here");
        } else {
            EXPECT_EQ(record.getText(), "Ann");
        }
        return true;
    });
    reader.setStyle(TzSoapStyle::Encoded);
    reader.read(envelope(TzSoapVersion::V1_1, body));
    EXPECT_EQ(reader.getRecordCount(), 2U);
}

TEST(TzSoapEntryReader, ItemsOfAnEncodedArrayAreRecords) {
    EXPECT_EQ(recordsOf("<r xmlns:c='http://schemas.xmlsoap.org/soap/encoding/' "
                        "c:arrayType='x:int[2]'><i>1</i><i>2</i></r>",
                        "r/i", TzSoapStyle::Encoded),
              (Records{"r/i=1", "r/i[2]=2"}));
}

TEST(TzSoapEntryReader, ARecordMayBeKept) {
    std::vector<TzSoapView> kept;
    {
        auto reader = TzSoapEntryReader::of<TzSoapView>(
            "r/line", [&](const TzSoapView& record) { kept.push_back(record); });
        reader.read(around(Lines));
    }
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[1]["article"].getText(), "B");
    EXPECT_EQ(kept[1]["article"].getPath(), "r/line[2]/article");
}

TEST(TzSoapEntryReader, AReaderMayBeMoved) {
    int seen = 0;
    auto first = TzSoapEntryReader::of<Line>("r/line", [&](Line&&) { ++seen; });
    const std::string text = around(Lines);
    first.feed(text.substr(0, 200));
    TzSoapEntryReader second = std::move(first);
    second.feed(text.substr(200));
    second.finish();
    EXPECT_EQ(seen, 3);
}

TEST(TzSoapEntryReader, TheMessageIsOneLikeAnyOtherAfterwards) {
    TzSoapMessage message;
    {
        TzSoapEntryReader reader = counting();
        reader.feed(around(Lines).substr(0, 300));
        message = reader.getMessage();
    }
    message.extract(around(Lines));
    EXPECT_EQ(TzSoapView(message)["r"].all("line").as<Line>(), ReadLines);
}

TEST(TzSoapEntryReader, RingsOfReferencesInTheHeaderGoWithIt) {
    const std::string header = "<e:Header><a id='1'><b href='#1'/></a></e:Header>";
    const auto read = [&](const std::string& body) {
        TzSoapEntryReader reader = counting();
        reader.setStyle(TzSoapStyle::Encoded);
        try {
            reader.read(around(body, header));
            EXPECT_EQ(
                TzSoapView(reader.getMessage().getSoapHeader().getChild("a"))["b"]["b"].getPath(),
                "a/b/b");
        } catch (const TzXmlParseError&) {
        }
    };
    for (const std::string& body : {Lines, std::string("<a></b>")}) {
        read(body);
        const std::ptrdiff_t before = liveAllocations();
        read(body);
        EXPECT_EQ(liveAllocations(), before) << body;
    }
}

TEST(TzSoapEntryReader, MemoryStaysTheSameHoweverManyRecordsCome) {
    for (const TzSoapStyle style : {TzSoapStyle::Literal, TzSoapStyle::Encoded}) {
        std::ptrdiff_t most = 0;
        std::ptrdiff_t least = 0;
        std::size_t count = 0;
        TzSoapEntryReader reader([&](const TzSoapView& record) {
            const std::ptrdiff_t live = liveAllocations();
            if (++count == 1000) {
                most = least = live;
            } else if (count > 1000) {
                most = std::max(most, live);
                least = std::min(least, live);
            }
            return record["id"].as<int>() >= 0;
        });
        reader.setStyle(style);
        const std::string whole = envelope(TzSoapVersion::V1_1, "<r>|</r>");
        const std::size_t middle = whole.find('|');
        reader.feed(whole.substr(0, middle));
        for (int i = 0; i < 100000; ++i) {
            const std::string id = std::to_string(i);
            reader.feed("<order id='" + id + "'><id>" + id + "</id><by href='#" + id +
                        "'/><n><a>1</a></n></order>");
        }
        reader.feed(whole.substr(middle + 1));
        reader.finish();
        EXPECT_EQ(reader.getRecordCount(), 100000U);
        EXPECT_LE(most - least, 40) << "blocks";
    }
}

TEST(TzSoapEntryReader, EveryAllocationMayFail) {
    const std::string text = around(Lines);
    EXPECT_GT(failEachAllocation([&text] {
                  int seen = 0;
                  auto reader = TzSoapEntryReader::of<Line>("r/line", [&](Line&&) { ++seen; });
                  reader.feed(text.substr(0, 200));
                  reader.feed(text.substr(200));
                  reader.finish();
                  EXPECT_EQ(seen, 3);
              }),
              20U);
}
