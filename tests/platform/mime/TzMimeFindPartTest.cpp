// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

using MimeTexts::package;
using MimeTexts::packageHead;
using MimeTexts::withBody;

namespace {

/// A part with the headers of one id.
TzMimePart identified(const std::string& id) {
    return withBody("", {{"Content-Type", "a/b"}, {"Content-ID", id}});
}

/// What a search from part to part finds.
std::size_t searched(const TzMimeMultipart& package, const TzMimeHeader& header,
                     std::size_t start) {
    for (std::size_t at = start; at < package.getPartCount(); ++at) {
        const TzMimePart part = package.getPart(at);
        for (std::size_t line = 0; line < part.getHeaderCount(); ++line) {
            if (part.getHeader(line) == header) {
                return at;
            }
        }
    }
    return TzMimePart::NotFound;
}

/// Makes up ids that std::hash of the GNU library, MurmurHash64A, cannot tell apart: the second
/// half takes back what the first half did to the hash.
class CollidingIds {
public:
    std::string operator[](std::uint64_t number) const {
        const std::uint64_t first = number * 0x9E3779B97F4A7C15U + 1;
        const std::uint64_t second = unmixed((start_ ^ mixed(first)) * factor_);
        std::string id(16, '\0');
        std::memcpy(id.data(), &first, 8);
        std::memcpy(id.data() + 8, &second, 8);
        return id;
    }

private:
    static std::uint64_t mixed(std::uint64_t block) {
        block *= factor_;
        block ^= block >> 47U;
        return block * factor_;
    }

    static std::uint64_t unmixed(std::uint64_t block) {
        std::uint64_t inverse = factor_; // modulo 2^64, by Newton's iteration
        for (int round = 0; round < 6; ++round) {
            inverse *= 2 - factor_ * inverse;
        }
        block *= inverse;
        block ^= block >> 47U;
        return block * inverse;
    }

    static constexpr std::uint64_t factor_ = 0xC6A4A7935BD1E995U;
    std::uint64_t start_ = 0xC70F6907U ^ (16 * factor_);
};

} // namespace

TEST(TzMimeFindPart, FindsIdsWithAndWithoutBrackets) {
    TzMimeMultipart made;
    made.insertPart(identified("<a>"));
    made.insertPart(identified("b"));
    for (const char* const id : {"b", "<b>"}) {
        EXPECT_EQ(made.findPart(TzMimeContentIdHeader(id), 0), 1U);
    }
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a")), 0U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("A")), TzMimePart::NotFound);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("c")), TzMimePart::NotFound);
    EXPECT_EQ(made.findPart(TzMimeHeader("content-id", "a")), 0U);
    EXPECT_EQ(made.findPart(TzMimeContentLocationHeader("a")), TzMimePart::NotFound);
}

TEST(TzMimeFindPart, NeedsNoHeaderForIdsAndLocations) {
    TzMimeMultipart made;
    EXPECT_EQ(made.findPartById("a"), TzMimePart::NotFound);
    EXPECT_EQ(made.findPartByLocation("a"), TzMimePart::NotFound);
    for (const char* const id : {"<x>", "<a>", "<a>"}) {
        made.insertPart(identified(id));
    }
    made.insertPart(withBody("", {{"Content-Location", "a"}}));
    made.insertPart(withBody("", {{"Content-Location", "b (comment)"}, {"Content-ID", "c"}}));
    EXPECT_EQ(made.findPartById("a"), 1U);
    EXPECT_EQ(made.findPartById("c"), 4U);
    EXPECT_EQ(made.findPartById("<a>"), TzMimePart::NotFound); // an id has no brackets
    EXPECT_EQ(made.findPartById("b"), TzMimePart::NotFound);
    EXPECT_EQ(made.findPartByLocation("a"), 3U);
    EXPECT_EQ(made.findPartByLocation("b"), 4U);
    EXPECT_EQ(made.findPartByLocation("x"), TzMimePart::NotFound);
    made.insertPartAt(0, identified("<late>"));
    EXPECT_EQ(made.findPartById("a"), 2U);
    EXPECT_EQ(made.findPartById("late"), 0U);
}

TEST(TzMimeFindPart, TheFirstPartWins) {
    TzMimeMultipart made;
    for (const char* const id : {"x", "a", "a", "b", "a"}) {
        made.insertPart(identified(id));
    }
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), 0), 1U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), 1), 1U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), 2), 2U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), 3), 4U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), 5), TzMimePart::NotFound);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("x"), 1), TzMimePart::NotFound);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a"), TzMimePart::NotFound),
              TzMimePart::NotFound);
}

TEST(TzMimeFindPart, FindsWhatWasReadFoldedOrCommented) {
    const TzMimeMultipart read =
        package(packageHead + "--b\r\nContent-ID:\r\n <a@x>\r\n\r\n\r\n"
                              "--b\r\nCONTENT-id: (first) <b@x> (second)\r\n\r\n\r\n"
                              "--b\r\ncontent-location: http://x/\r\n\tfile.bin\r\n\r\n\r\n"
                              "--b\r\nContent-ID: bare@x\r\nContent-Location: other.bin\r\n\r\n\r\n"
                              "--b--\r\n");
    EXPECT_EQ(read.findPart(TzMimeContentIdHeader("a@x")), 0U);
    EXPECT_EQ(read.findPart(TzMimeContentIdHeader("b@x")), 1U);
    EXPECT_EQ(read.findPart(TzMimeContentLocationHeader("http://x/file.bin")), 2U);
    EXPECT_EQ(read.findPart(TzMimeContentIdHeader("bare@x")), 3U);
    EXPECT_EQ(read.findPart(TzMimeContentLocationHeader("other.bin")), 3U);
}

TEST(TzMimeFindPart, FindsOtherHeadersByTheirValue) {
    TzMimeMultipart made;
    made.insertPart(withBody("", {{"X-Tag", "a"}, {"X-Tag", "b"}}));
    made.insertPart(withBody("", {{"x-tag", "<b>"}}));
    made.insertPart(withBody("", {{"x-tag", "b"}}));
    EXPECT_EQ(made.findPart(TzMimeHeader("X-TAG", "b"), 0), 0U);
    EXPECT_EQ(made.findPart(TzMimeHeader("X-TAG", "b"), 1), 2U);
    EXPECT_EQ(made.findPart(TzMimeHeader("X-TAG", "<b>"), 0), 1U);
    EXPECT_EQ(made.findPart(TzMimeHeader("X-TAG", "c"), 0), TzMimePart::NotFound);
}

TEST(TzMimeFindPart, SeesEveryChange) {
    TzMimeMultipart made;
    made.insertPart(identified("a"));
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("b")), TzMimePart::NotFound);
    TzMimePart late;
    late.setBody("x");
    made.insertPart(late);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("b")), TzMimePart::NotFound);
    late.insertHeader(TzMimeContentIdHeader("b"));
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("b")), 1U);
    made.insertPartAt(0, identified("b"));
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("b")), 0U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a")), 1U);
    made.getPart(1).insertHeader(TzMimeContentIdHeader("second"));
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("second")), 1U);
    made.fromString(packageHead + "--b\r\nContent-ID: <c>\r\n\r\n\r\n--b--");
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("c")), 0U);
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("a")), TzMimePart::NotFound);
    made.setBody("--b\r\nContent-ID: <d>\r\n\r\n\r\n--b--");
    EXPECT_EQ(made.findPart(TzMimeContentIdHeader("d")), 0U);
}

TEST(TzMimeFindPart, SeesChangesOfPartsInSeveralPackages) {
    TzMimePart part = withBody("x");
    std::vector<TzMimeMultipart> packages(3);
    for (TzMimeMultipart& package : packages) {
        package.insertPart(part);
        EXPECT_EQ(package.findPart(TzMimeContentIdHeader("a")), TzMimePart::NotFound);
        EXPECT_EQ(package.findPart(TzMimeContentLocationHeader("a")), TzMimePart::NotFound);
    }
    packages[0] = TzMimeMultipart();
    part.insertHeader(TzMimeContentIdHeader("a"));
    EXPECT_EQ(packages[1].findPart(TzMimeContentIdHeader("a")), 0U);
    EXPECT_EQ(packages[2].findPart(TzMimeContentIdHeader("a")), 0U);
    part.insertHeader(TzMimeContentLocationHeader("a"));
    EXPECT_EQ(packages[1].findPart(TzMimeContentLocationHeader("a")), 0U);
    EXPECT_EQ(packages[2].findPart(TzMimeContentLocationHeader("a")), 0U);
}

TEST(TzMimeFindPart, AgreesWithASearch) {
    TzMimeMultipart made;
    for (std::size_t at = 0; at < 200; ++at) {
        TzMimePart part = identified(std::to_string(at * 7 % 60));
        if (at % 3 == 0) {
            part.insertHeader(TzMimeContentIdHeader(std::to_string(at % 11)));
        }
        made.insertPart(at % 10 == 0 ? TzMimePart() : part);
    }
    const TzMimeMultipart read = package([&made] {
        made.insertHeader(TzMimeHeader("Content-Type", "a/b; boundary=x"));
        return made.asString();
    }());
    for (std::size_t id = 0; id < 70; ++id) {
        const TzMimeContentIdHeader header(std::to_string(id));
        for (std::size_t start = 0; start < 201; start += 13) {
            EXPECT_EQ(made.findPart(header, start), searched(made, header, start));
            EXPECT_EQ(read.findPart(header, start), searched(made, header, start));
        }
    }
}

TEST(TzMimeFindPart, ResolvesManyReferences) {
    constexpr std::size_t count = 100000;
    TzMimeMultipart made = MimeTexts::withBoundary("b");
    for (std::size_t at = 0; at < count; ++at) {
        made.insertPart(identified("part" + std::to_string(at) + "@example.org"));
    }
    const TzMimeMultipart read = package(made.asString());
    ASSERT_EQ(read.getPartCount(), count);
    for (std::size_t at = count; at-- > 0;) {
        const std::string id = "part" + std::to_string(at) + "@example.org";
        ASSERT_EQ(read.findPart(TzMimeContentIdHeader(id)), at);
        ASSERT_EQ(read.findPart(TzMimeContentIdHeader(id + "x")), TzMimePart::NotFound);
    }
}

TEST(TzMimeFindPart, TellsIdsOfOneHashApart) {
    constexpr std::uint64_t count = 20000;
    const CollidingIds ids;
    const std::hash<std::string> hash;
    ASSERT_EQ(hash(ids[0]), hash(ids[count])) << "the standard library hashes in another way";
    TzMimeMultipart made;
    for (std::uint64_t at = 0; at < count; ++at) {
        made.insertPart(identified('<' + ids[at] + '>'));
    }
    for (std::uint64_t at = 0; at < count; ++at) {
        ASSERT_EQ(made.findPart(TzMimeHeader("Content-ID", '<' + ids[at] + '>')), at);
        ASSERT_EQ(made.findPart(TzMimeHeader("Content-ID", '<' + ids[at + count] + '>')),
                  TzMimePart::NotFound);
    }
}

TEST(TzMimeFindPart, HeadersAreMadeOnOneThreadWhileOthersWrite) {
    std::string text = "Content-Type: multipart/mixed; boundary=b\r\n\r\n";
    for (std::size_t at = 0; at < 50; ++at) {
        text += "--b\r\nX: " + std::to_string(at) + "\r\n\r\nbody\r\n";
    }
    text += "--b--\r\n";
    TzMimeMultipart read;
    read.fromString(text);
    std::vector<std::string> written(3);
    std::vector<std::thread> threads;
    for (std::string& one : written) {
        threads.emplace_back([&read, &one] { one = TzMimeMultipart(read).asString(); });
    }
    for (std::size_t at = 50; at > 0; --at) {
        EXPECT_EQ(read.getPart(at - 1).getHeader(0).getValue(), std::to_string(at - 1));
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(written, testing::Each(text));
}

TEST(TzMimeFindPart, IsAskedOnSeveralThreadsAtOnce) {
    TzMimeMultipart made;
    for (std::size_t at = 0; at < 50; ++at) {
        made.insertPart(identified(std::to_string(at)));
    }
    std::vector<std::size_t> found(4);
    std::vector<std::thread> threads;
    for (std::size_t& one : found) {
        threads.emplace_back([&made, &one] {
            const TzMimeMultipart own = made;
            for (std::size_t at = 0; at < 50; ++at) {
                one += own.findPart(TzMimeContentIdHeader(std::to_string(at))) == at ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(found, testing::Each(50U));
}
