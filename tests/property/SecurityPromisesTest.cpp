// SPDX-License-Identifier: MIT
//
// What SECURITY.md says: a test for each sentence, named after it. Without one are what only the
// caller can do, and what becomes of memory that the library gave back or keeps for the next text.
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/ForeignLocale.h"
#include "support/Instrumented.h"
#include "support/ReadValues.h"
#include "support/Samples.h"
#include "support/Throws.h"
#include "support/WireForm.h"

#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlParseError.h>

#include "model/TzSoapAccess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

using V = TzSoapVersion;

const WireForm& soap11() {
    static const WireForm wire(V::V1_1);
    return wire;
}

std::string numbered(std::string_view before, std::string_view after, std::size_t count) {
    std::string all;
    for (std::size_t number = 0; number < count; ++number) {
        all += before;
        all += std::to_string(number);
        all += after;
    }
    return all;
}

TzSoapMessage read(const std::string& text, const TzSoapReadLimits& limits = {}) {
    TzSoapMessage message;
    message.setReadLimits(limits);
    message.extract(text);
    return message;
}

/// What the error of reading `text` describes, "" when it is accepted.
std::string refusal(const std::string& text, const TzSoapReadLimits& limits = {}) {
    try {
        read(text, limits);
    } catch (const Tzxmsg& error) {
        return error.describe();
    }
    return "";
}

/// A package with `root` and one part that has these further header lines.
std::string package(const std::string& root, const std::string& headers = {},
                    const std::string& end = "--b--\r\n") {
    return "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\n\r\n" + root +
           "\r\n--b\r\nContent-ID: <a>\r\n" + headers + "\r\n1\r\n" + end;
}

std::string withReference(const std::string& href) {
    return soap11().body("<r href='" + href + "'/>");
}

/// The text in the encoding that its declaration states.
std::string declared(const std::string& encoding, const std::string& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?>" + text;
}

/// Runs `action` on a thread with a stack of `size` bytes.
void runWithStack(std::size_t size, std::function<void()> action) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    pthread_t thread{};
    const auto start = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, start, &action), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// From now on the process dies of SIGSYS when it opens a file or a socket.
bool forbidOpening() {
    constexpr unsigned int Forbidden[] = {SYS_openat, SYS_socket, SYS_connect,
#ifdef SYS_open
                                          SYS_open, SYS_creat
#endif
    };
    std::vector<sock_filter> program = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const unsigned int call : Forbidden) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

/// What reading `text` takes.
struct Cost {
    double allocations;
    double bytes;
};

Cost costOf(const std::string& text) {
    const std::size_t allocations = madeAllocations();
    const std::size_t bytes = askedBytes();
    read(text);
    return {static_cast<double>(madeAllocations() - allocations),
            static_cast<double>(askedBytes() - bytes)};
}

/// Texts that are as long as their number says, each of another kind.
std::vector<std::function<std::string(std::size_t)>> families() {
    return {
        [](std::size_t n) { return soap11().body(repeated("<a>1</a>", n)); },
        [](std::size_t n) { return soap11().body(numbered("<a", "/>", n)); },
        [](std::size_t n) { return soap11().body("<a" + numbered(" k", "=''", n) + "/>"); },
        [](std::size_t n) { return soap11().body("<a" + numbered(" xmlns:p", "='u'", n) + "/>"); },
        [](std::size_t n) { return soap11().body(repeated("<a xmlns:p='u' p:k=''/>", n)); },
        [](std::size_t n) { return soap11().body(repeated("<a xsi:type='xsd:int'>1</a>", n)); },
        [](std::size_t n) {
            return soap11().body(numbered("<a id='i", "'/>", n) +
                                 numbered("<r href='#i", "'/>", n));
        },
        [](std::size_t n) {
            return soap11().body("<a " + soap11().array("xsd:int", "") + ">" +
                                 repeated("<i>1</i>", n) + "</a>");
        },
        [](std::size_t n) {
            return soap11().body("<a " + soap11().array("xsd:int", "") + ">" +
                                 numbered("<i c:position='[", "]'>1</i>", n) + "</a>");
        },
        [](std::size_t n) {
            return soap11().body("<u e:encodingStyle='urn:f'>" + repeated("<v k='w'/>", n) +
                                 "</u>");
        },
        [](std::size_t n) { return soap11().body("<a>" + repeated("&amp;", n) + "</a>"); },
        [](std::size_t n) { return soap11().body(repeated("<!-- -->x", n)); },
        [](std::size_t n) {
            return package(soap11().body(numbered("<r href='cid:", "'/>", n) +
                                         repeated("<r href='cid:a'/>", n)));
        },
        [](std::size_t n) { return package(soap11().body("<a/>"), numbered("X-", ": 1\r\n", n)); },
    };
}

} // namespace

TEST(SecurityPromises, WhateverItsBytesAreReadingEndsWithAMessageOrAnException) {
    std::size_t refused = 0;
    for (const auto& file : sampleFiles()) {
        const std::string text = readFile(file);
        for (std::size_t at = 0; at < text.size(); at += 7) {
            std::string damaged = text;
            damaged[at] = "<>&\"'=:;\r\n\0\xFF"[at % 12];
            refused += refusal(damaged).empty() ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 100U);
}

TEST(SecurityPromises, AnExceptionRaisedByAnEnvelopeSaysLineAndColumn) {
    for (const std::string wrong :
         {"<a></b>", "<a b='1' b='2'/>", "<a>\xFF</a>", "<a href='#x'><b/></a>",
          "<a c:arrayType='x[1,]'/>", "<a c:arrayType='x[9999999]'><i/></a>"}) {
        try {
            read(soap11().envelope("\n<e:Body>" + wrong + "</e:Body>"));
            ADD_FAILURE() << "accepted: " << wrong;
        } catch (const Tzxmsg& error) {
            EXPECT_EQ(error.getLine(), 2U) << wrong;
            EXPECT_GT(error.getColumn(), 8U) << wrong;
        }
    }
}

TEST(SecurityPromises, TextThatTheModelHasNoPlaceForIsLeftOutAndCounted) {
    const TzSoapMessage message = read(soap11().body("<a>text<b/></a>"));
    EXPECT_TRUE(message.hasDroppedText());
    EXPECT_EQ(message.asString().find("text"), std::string::npos);
    EXPECT_FALSE(read(soap11().body("<a>text</a>")).hasDroppedText());
}

TEST(SecurityPromises, ADocumentTypeDeclarationIsRefused) {
    for (const char* declaration :
         {"<!DOCTYPE a>", "<!DOCTYPE a [<!ENTITY e 'x'>]>", "<!DOCTYPE a SYSTEM 'file:///x'>"}) {
        EXPECT_EQ(refusal(declaration + soap11().body("<a/>")).find("a document type declaration"),
                  0U)
            << declaration;
    }
}

TEST(SecurityPromises, ThereAreNoEntitiesToExpand) {
    EXPECT_EQ(refusal(soap11().body("<a>&e;</a>")).find("undefined entity"), 0U);
}

TEST(SecurityPromisesDeathTest, TheLibraryOpensNoFileAndNoConnection) {
    std::vector<std::string> texts;
    for (const auto& file : sampleFiles()) {
        texts.push_back(readFile(file));
    }
    for (const char* encoding : {"ISO-8859-15", "koi8-r", "windows-1252", "IBM850", "UTF-16"}) {
        texts.push_back(declared(encoding, soap11().body("<a>1</a>")));
    }
    texts.push_back("<!DOCTYPE a SYSTEM 'file:///etc/passwd'>" + soap11().body("<a>&e;</a>"));
    texts.push_back(declared("no-such-encoding", soap11().body("<a/>")));
    texts.push_back(withReference("http://127.0.0.1/x"));
    texts.push_back(withReference("file:///etc/passwd"));
    const auto readAll = [&texts] {
        if (!forbidOpening()) {
            std::_Exit(3);
        }
        for (const std::string& text : texts) {
            if (refusal(text).empty()) {
                read(text).asString();
            }
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(readAll(), testing::ExitedWithCode(0), "");
}

// Without it the test above could not fail.
TEST(SecurityPromisesDeathTest, OpeningAFileWouldBeSeen) {
    const auto open = [] {
        if (!forbidOpening()) {
            std::_Exit(3);
        }
        static_cast<void>(std::fopen("/dev/null", "r"));
        std::_Exit(0);
    };
    EXPECT_EXIT(open(), testing::KilledBySignal(SIGSYS), "");
}

TEST(SecurityPromises, TheLimitsBoundTheDepthOfElements) {
    const auto deep = [](std::size_t depth) {
        return soap11().body(repeated("<a>", depth - 2) + repeated("</a>", depth - 2));
    };
    EXPECT_EQ(refusal(deep(1000)), "");
    EXPECT_EQ(refusal(deep(1001)).find("elements are nested too deeply"), 0U);
}

TEST(SecurityPromises, TheLimitsBoundTheAttributesOfOneElement) {
    TzSoapReadLimits limits;
    limits.attributes = 5;
    EXPECT_EQ(refusal(soap11().body("<a" + numbered(" k", "=''", 5) + "/>"), limits), "");
    EXPECT_EQ(refusal(soap11().body("<a" + numbered(" k", "=''", 6) + "/>"), limits)
                  .find("an element has too many attributes"),
              0U);
}

TEST(SecurityPromises, TheLimitsBoundPrefixesUrisAndEncodingStyles) {
    const auto text = [](std::size_t prefix, std::size_t uri, std::size_t style) {
        return soap11().body("<a xmlns:" + std::string(prefix, 'p') + "='" + std::string(uri, 'u') +
                             "' e:encodingStyle='" + std::string(style, 's') + "'/>");
    };
    const TzSoapReadLimits limits;
    EXPECT_EQ(refusal(text(limits.prefixLength, limits.uriLength, limits.uriLength)), "");
    EXPECT_THAT(refusal(text(limits.prefixLength + 1, 1, 1)),
                testing::StartsWith("the prefix of a namespace is too long, line 1, column "));
    EXPECT_THAT(refusal(text(1, limits.uriLength + 1, 1)),
                testing::StartsWith("the URI of a namespace is too long, line 1, column "));
    EXPECT_THAT(refusal(text(1, 1, limits.uriLength + 1)),
                testing::StartsWith("an encoding style is too long, line 1, column "));
}

TEST(SecurityPromises, TheLimitsBoundContentIdsAndContentLocations) {
    const std::size_t limit = TzSoapReadLimits().uriLength;
    for (const std::string name : {"Content-ID: <", "Content-Location: <"}) {
        const auto text = [&](std::size_t length) {
            const std::string value(length, 'x');
            return "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\n\r\n" +
                   soap11().body("<a/>") + "\r\n--b\r\n" + name + value + ">\r\n\r\n1\r\n--b--\r\n";
        };
        EXPECT_EQ(refusal(text(limit - 2)), "") << name;
        EXPECT_EQ(refusal(text(limit + 1)).find("a Content-ID or Content-Location is too long"), 0U)
            << name;
    }
}

TEST(SecurityPromises, TheLimitsBoundArrayPositionsWithoutItems) {
    const auto text = [](const std::string& size) {
        return soap11().body("<a " + soap11().array("xsd:int", size) + "><i>1</i></a>");
    };
    EXPECT_EQ(refusal(text("1000000")), "");
    expectCatalogued<TzXmlBoundsError>(
        [&] { read(text("2000000")); }, 0x7009,
        "[BAD_INDEX_VECTOR][Illegal SOAP array vector. Entry at location 0 has value 2000000]");
}

TEST(SecurityPromisesDeathTest, WhatBreaksALimitIsRefusedBeforeMemoryIsTakenForIt) {
    TzSoapReadLimits limits;
    limits.attributes = 10;
    const std::string broken[] = {
        soap11().body("<a" + numbered(" k", "=''", 500'000) + "/>"),
        soap11().body(repeated("<a>", 1'000'000)),
        soap11().body("<a " + soap11().array("xsd:int", "2000000000") + "><i/></a>"),
        soap11().body("<a " + soap11().array("xsd:int", "") + " c:offset='[2000000000]'><i/></a>"),
    };
    for (const std::string& text : broken) {
        const auto grow = [&] {
            // The pages of the program that refusing touches are not memory taken for the text.
            refusal(soap11().body("<a>"), limits);
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            const long before = usage.ru_maxrss;
            const bool refused = !refusal(text, limits).empty();
            getrusage(RUSAGE_SELF, &usage);
            std::fprintf(stderr, "refused %d, grown by %ld KiB", refused ? 1 : 0,
                         usage.ru_maxrss - before);
            std::_Exit(refused && usage.ru_maxrss - before < (Instrumented ? 32768 : 4096) ? 0 : 1);
        };
        EXPECT_EXIT(grow(), testing::ExitedWithCode(0), "refused 1") << text.substr(0, 600);
    }
}

TEST(SecurityPromises, TheWorkAndTheMemoryOfReadingGrowLinearlyWithTheText) {
    constexpr std::size_t Size = 2000;
    for (const auto& family : families()) {
        read(family(1));
        const Cost once = costOf(family(Size));
        const Cost twice = costOf(family(2 * Size));
        EXPECT_LT(twice.allocations, 2.3 * once.allocations) << family(1);
        // A vector that doubles its memory asks unevenly.
        EXPECT_LT(twice.bytes, 2.8 * once.bytes) << family(1);
    }
}

TEST(SecurityPromises, ReadingAndDestroyingNeedAStackOfBoundedSize) {
    constexpr std::size_t Stack = (Instrumented ? 512U : 128U) * 1024U;
    constexpr std::size_t Depth = 50'000;
    TzSoapReadLimits limits;
    limits.depth = Depth + 10;
    const std::string array = "<a " + soap11().array("xsd:int", "1") + ">";
    for (const std::string& tag : {std::string("<a>"), array}) {
        const std::string text =
            soap11().body(repeated(tag, Depth / 10) + repeated("</a>", Depth / 10));
        bool isRead = false;
        runWithStack(Stack, [&] { isRead = refusal(text, limits).empty(); });
        EXPECT_TRUE(isRead) << tag;
    }
    const std::string text = soap11().body(repeated("<a>", Depth) + repeated("</a>", Depth));
    bool isRead = false;
    runWithStack(Stack, [&] { isRead = refusal(text, limits).empty(); });
    EXPECT_TRUE(isRead);
}

TEST(SecurityPromises, BytesThatAreNotValidInTheStatedEncodingAreRefused) {
    const std::pair<const char*, const char*> cases[] = {
        {"UTF-8", "\xFF"},    {"UTF-8", "\xC0\x80"},    {"UTF-8", "\xED\xA0\x80"},
        {"US-ASCII", "\x80"}, {"windows-1252", "\x81"}, {"ISO-8859-7", "\xFF"}};
    for (const auto& [encoding, bytes] : cases) {
        const std::string text =
            declared(encoding, soap11().body("<a>" + std::string(bytes) + "</a>"));
        EXPECT_EQ(refusal(text).find("not well-formed (invalid token)"), 0U) << encoding;
    }
}

TEST(SecurityPromises, ThePrefixesXmlAndXmlnsKeepTheirNamespaces) {
    for (const char* declaration : {"xmlns:xml='urn:x'", "xmlns:xmlns='urn:x'",
                                    "xmlns:p='http://www.w3.org/XML/1998/namespace'",
                                    "xmlns='http://www.w3.org/2000/xmlns/'"}) {
        EXPECT_NE(refusal(soap11().body("<a " + std::string(declaration) + "/>")), "")
            << declaration;
    }
    EXPECT_EQ(refusal(soap11().body("<a xmlns:xml='http://www.w3.org/XML/1998/namespace'/>")), "");
}

TEST(SecurityPromises, APackageThatLacksItsClosingLineIsRefusedUnlessSet) {
    const std::string text = package(soap11().body("<a/>"), "", "");
    EXPECT_EQ(refusal(text), "the package is cut short: it has no closing line");
    TzSoapReadLimits limits;
    limits.incompletePackages = true;
    EXPECT_EQ(refusal(text, limits), "");
}

TEST(SecurityPromises, AMimeHeaderWithACarriageReturnWithinALineIsRefused) {
    EXPECT_EQ(refusal(package(soap11().body("<a/>"), "X-A: 1\rX-B: 2\r\n"))
                  .find("a MIME header has a carriage return within a line"),
              0U);
}

TEST(SecurityPromises, TheResultDoesNotDependOnTheGlobalLocale) {
    const std::string text = soap11().body("<a xsi:type='xsd:double'>1234.5</a>");
    const std::string written = read(text).asString();
    const ForeignLocale locale;
    const TzSoapMessage message = read(text);
    EXPECT_EQ(message.asString(), written);
    EXPECT_EQ(simple(bodyEntry(message)).getDouble(), 1234.5);
}

TEST(SecurityPromises, TheResultDoesNotDependOnEnvironmentVariables) {
    const std::string text = declared("koi8-r", soap11().body("<a>\xC1</a>"));
    const std::string written = read(text).asString();
    const char* const names[] = {"GCONV_PATH", "LANG", "LC_ALL", "TZ", "LOCPATH", "TMPDIR"};
    for (const char* name : names) {
        const char* const old = std::getenv(name);
        const std::string kept = old == nullptr ? "" : old;
        setenv(name, "/nowhere", 1);
        EXPECT_EQ(read(text).asString(), written) << name;
        EXPECT_NE(refusal(declared("no-such-encoding", soap11().body("<a/>"))), "") << name;
        old == nullptr ? unsetenv(name) : setenv(name, kept.c_str(), 1);
    }
}

// What the caller has to know.

TEST(SecurityPromises, TheLibraryReadsATextOfAnySize) {
    constexpr std::size_t Size = 20'000'000;
    const TzSoapMessage message = read(soap11().body("<a>" + std::string(Size, 'x') + "</a>"));
    EXPECT_EQ(textOf(bodyEntry(message)).size(), Size);
}

TEST(SecurityPromises, TheTextOfAUserDefinedValueIsWrittenAsItStands) {
    const TzSoapMessage message =
        read(soap11().body("<a e:encodingStyle='urn:f'>&lt;injected/></a>"));
    EXPECT_EQ(userDefined(bodyEntry(message)).getValue(),
              "<a  e:encodingStyle=\"urn:f\"><injected/></a>");
    EXPECT_NE(message.asString().find("<injected/>"), std::string::npos);
}

TEST(SecurityPromises, AMessageSaysWhetherItHasUserDefinedValues) {
    EXPECT_TRUE(read(soap11().body("<a e:encodingStyle='urn:f'/>")).hasUserDefinedValues());
    EXPECT_FALSE(read(soap11().body("<a/>")).hasUserDefinedValues());
}

TEST(SecurityPromises, AMessageWhoseExtractThrewHoldsWhatWasReadUpToThere) {
    TzSoapMessage message;
    EXPECT_EQ(
        textThrown<TzXmlParseError>([&] { message.extract(soap11().body("\n<a/><b>") + "</c>"); }),
        "mismatched tag, line 2, column 10");
    EXPECT_EQ(bodyEntry(message).getName(), TzXmlName("a"));
    message.extract(soap11().body("<d/>"));
    EXPECT_EQ(bodyEntry(message).getName(), TzXmlName("d"));
}

TEST(SecurityPromises, TransportPropertiesAreHandedOverAsTheyAre) {
    TzSoapHttpTransportContext context;
    context.add("X-Anything", "a\r\nInjected: b");
    TzSoapHttpBinding::pack(TzSoapMessage(), context);
    EXPECT_EQ(context.find("X-Anything")->second, "a\r\nInjected: b");
}

TEST(SecurityPromises, TheHttpBindingRefusesAnActionThatNoHeaderLineCanHold) {
    TzSoapHttpTransportContext context;
    context.add("SOAPAction", "a\r\nInjected: b");
    expectCatalogued<TzXmlBadArgError>(
        [&] { TzSoapHttpBinding::pack(TzSoapMessage(V::V1_1), context); }, 0x7007,
        "[INVALID_HTTP_HEADER][Http header is invalid]");
}

TEST(SecurityPromises, OnlyPackageAndHttpBindingWriteEachPartOnce) {
    const TzSoapMessage message = read(package(soap11().body(repeated("<r href='cid:a'/>", 3))));
    EXPECT_EQ(message.asMimeMultipart().getPartCount(), 4U);
    EXPECT_EQ(read(message.asString()).getMimeMultipart().getPartCount(), 4U);
    EXPECT_EQ(message.asPackage().getPartCount(), 2U);
    TzSoapHttpTransportContext context;
    const TzCString sent = TzSoapHttpBinding::pack(message, context);
    TzSoapMessage received;
    TzSoapHttpBinding::unpack(context, sent, received);
    EXPECT_EQ(received.getMimeMultipart().getPartCount(), 2U);
}

TEST(SecurityPromises, AValueAppendedToItselfCannotBeWrittenAndIsFreedWhenItIsTakenOut) {
    EXPECT_NE(read(soap11().body("<a><b/></a>")).asString(), ""); // statics of the first use stay
    const std::ptrdiff_t before = liveAllocations();
    {
        TzSoapMessage message;
        TzSoapCompositeTypeImp* ring = nullptr;
        {
            TzSoapCompositeType value(TzXmlName("a"));
            ring = &TzSoapAccess::body(value);
            value.appendChild(value);
            message.getSoapBody().appendEntry(value);
        }
        EXPECT_EQ(textThrown<TzXmlDomainError>([&] { message.asString(); }),
                  "A value that stands within itself is not written");
        message.getSoapBody().clearEntries();
        EXPECT_GT(liveAllocations(), before);
        auto value = TzSoapAccess::share<TzSoapCompositeType>(*ring);
        EXPECT_EQ(value.getName(), TzXmlName("a")) << "still there";
        value.clearChildren();
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(SecurityPromises, HandlesMayBeCopiedAndDroppedOnAnyThread) {
    TzSoapType value = bodyEntry(read(soap11().body("<a><b>1</b></a>")));
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([value] {
            for (int copy = 0; copy < 10'000; ++copy) {
                const TzSoapType another(value);
                EXPECT_EQ(another.getName(), TzXmlName("a"));
            }
        });
    }
    value = TzSoapType();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(SecurityPromises, WritingCountsAsChanging) {
    TzSoapMessage message;
    const TzSoapSimpleType value(TzXmlName("a"), 1, TzSoapContentBase::xsdInt, true);
    message.getSoapBody().appendEntry(value);
    EXPECT_EQ(value.getTypeAttribute(), "");
    message.asString();
    EXPECT_EQ(value.getTypeAttribute(), "xsd:int");
}
