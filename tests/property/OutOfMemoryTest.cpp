// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapVersionConverter.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlError.h>

#include "support/AllocationFailure.h"
#include "support/WireForm.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

// Every allocation of every operation fails once, and once with all that follow: the failure
// arrives as std::bad_alloc, everything taken is given back, and what was there can be used.

namespace {

using V = TzSoapVersion;

class OutOfMemoryIn : public testing::TestWithParam<std::tuple<V::Version, OutOfMemory>> {
protected:
    V::Version version() const { return std::get<0>(GetParam()); }
    /// All versions but the one of the test.
    std::vector<V::Version> otherVersions() const {
        std::vector<V::Version> others = {V::V1_1, V::V1_2, V::V1_2Rec};
        std::erase(others, version());
        return others;
    }
    OutOfMemory kind() const { return std::get<1>(GetParam()); }
    const WireForm wire{version()};

    /// Whether each of at least `least` failures of `action` is one.
    template <typename Action> void failEach(const Action& action, std::size_t least) const {
        // std::stable_sort does without memory; it serves sparse arrays of this version only.
        const std::size_t spared = version() == V::V1_2Rec ? 1 : 0;
        EXPECT_GE(failEachAllocation(action, kind(), spared), least);
    }
    /// Lets `action` fail at each of its allocations and runs `check` after each failure.
    template <typename Action, typename Check>
    void afterEach(const Action& action, const Check& check) const {
        bool failed = true;
        for (std::size_t nth = 1; failed; ++nth) {
            SCOPED_TRACE(nth);
            {
                const AllocationFailure failure(nth, kind());
                try {
                    action();
                } catch (const std::bad_alloc&) {
                    EXPECT_TRUE(failure.happened());
                }
                failed = failure.happened();
            }
            check();
        }
    }
};

/// A text that does not fit into a string's own room.
constexpr const char* LongText = "a text of more than fifteen letters";

TzSoapCompositeType record() {
    TzSoapCompositeType record(TzXmlName("record", TzXmlNamespace("p", "urn:of:this:record")));
    record.setIdAttribute("the id of this one record");
    record.addNamespaceAttribute("q", "urn:of:something:else");
    record.appendChild(TzSoapSimpleType("number", 5, TzSoapType::xsdInt, true));
    record.appendChild(TzSoapSimpleType("text", LongText, TzSoapType::xsdString, true));
    return record;
}

void addArrays(TzSoapBody& body) {
    TzSoapCompactArrayType compact("xsd:int", "[2,2]", "[0,0]");
    compact["[1,1]"] = TzSoapSimpleType("item", 1, TzSoapType::xsdInt, false);
    TzSoapSparseArrayType sparse("xsd:string", 90);
    sparse[70] = TzSoapSimpleType("item", LongText, TzSoapType::xsdString, false);
    sparse[7] = record();
    body.appendEntry(compact);
    body.prependEntry(sparse);
}

void addFault(TzSoapMessage& message) {
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(V::Client));
    fault.addSubcode(TzXmlName("sub", TzXmlNamespace("s", "urn:of:the:subcodes")));
    fault.setReason(LongText);
    fault.addReason(LongText, "en-a-language-of-this-reason");
    fault.setRole(LongText);
    fault.addDetailEntry("detail", record());
}

TzSoapReferenceType toPart() {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("the picture of the record"));
    part.setBody(LongText);
    return TzSoapReferenceType("picture", part);
}

/// A message with values of every kind; `attached` adds a reference to a MIME part.
TzSoapMessage build(V::Version version, bool attached = false) {
    TzSoapMessage message(version);
    TzSoapBody& body = message.getSoapBody();
    message.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType("p:block"), true, LongText);
    const TzSoapCompositeType target = record();
    body.appendEntry(target);
    body.appendEntry(TzSoapReferenceType("reference", target));
    addArrays(body);
    addFault(message);
    if (attached) {
        body.appendEntry(toPart());
    }
    return message;
}

std::string serialize(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return std::move(serializer).getSerializedString();
}

/// A message that reads every version.
TzSoapMessage reader() {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    return message;
}

void extract(const std::string& text) { reader().extract(text); }

} // namespace

/// The code and reasons of a fault as `version` has them.
std::string literalFault(V::Version version) {
    if (version == V::V1_1) {
        return "<faultcode>e:Client</faultcode>";
    }
    const std::string text =
        version == V::V1_2Rec ? "<e:Text xml:lang='en'>a</e:Text><e:Text xml:lang='cs'>b</e:Text>"
                              : "a";
    return "<e:Code><e:Value>e:Sender</e:Value></e:Code><e:Reason>" + text + "</e:Reason>";
}

/// A literal message of `version` with text between elements, a fault, a report and markup.
std::string literalText(V::Version version) {
    const std::string detail = version == V::V1_1 ? "detail" : "e:Detail";
    return "<e:Envelope xmlns:e='" + TzSoapVersion::getSoapVersion(version).getSoapEnv().getUri() +
           "'> <e:Header> <h e:mustUnderstand='1'/><e:NotUnderstood qname='e:h'/> </e:Header> " +
           "<e:Body "
           "xmlns:p='urn:of:this:record'><e:Fault>" +
           literalFault(version) + "<" + detail + "> <p:d/> " + LongText + "</" + detail +
           "></e:Fault><p:a q='" + LongText + "'>" + LongText + "<b xmlns=''/>" + LongText +
           "<token><p:x>" + LongText + "</p:x></token></p:a></e:Body>" + "</e:Envelope>";
}

TzSoapMessage literalReader() {
    TzSoapMessage message = reader();
    message.setStyle(TzSoapStyle::Literal);
    message.setMarkupElements({TzXmlName("token")});
    return message;
}

TEST_P(OutOfMemoryIn, LiteralMessagesReadAndWritten) {
    const std::string text = literalText(version());
    TzSoapMessage message = literalReader();
    message.extract(text);
    const std::string written = message.asString();
    failEach([&] { static_cast<void>(message.copy().asString()); }, 20);
    failEach([&] { literalReader().extract(text); }, 20);
    failEach([&] { serialize(message); }, 10);
    afterEach([&] { message.extract(text); },
              [&] {
                  message.extract(text);
                  EXPECT_EQ(message.asString(), written);
              });
}

TEST_P(OutOfMemoryIn, LiteralMessagesConverted) {
    TzSoapMessage message = literalReader();
    message.extract(literalText(version()));
    const std::string written = message.asString();
    for (const V::Version other : otherVersions()) {
        failEach(
            [&] {
                TzSoapMessage copy = message.copy();
                TzSoapVersionConverter(other).convert(copy);
                static_cast<void>(copy.asString());
            },
            20);
    }
    EXPECT_EQ(message.asString(), written);
}

TEST_P(OutOfMemoryIn, AMessageThatCouldNotBeConvertedStaysAsItIs) {
    TzSoapMessage message = literalReader();
    message.extract(literalText(version()));
    const std::string written = message.asString();
    const TzSoapVersionConverter converter(otherVersions().front());
    std::string expected;
    {
        TzSoapMessage copy = message.copy();
        converter.convert(copy);
        expected = copy.asString();
    }
    afterEach([&] { converter.convert(message); },
              [&] {
                  const std::string now = message.asString();
                  EXPECT_TRUE(now == written || now == expected) << now;
              });
    EXPECT_EQ(message.asString(), expected);
}

TEST_P(OutOfMemoryIn, MarkupThatIsChecked) {
    const std::string markup = std::string("<p:a b='") + LongText + "'><c xmlns='urn:c'/></p:a>";
    const TzXmlNamespace declared("p", "urn:of:this:record");
    const TzXmlName name("a", declared);
    failEach([&] { static_cast<void>(TzSoapUserDefinedType(name, markup, {declared})); }, 5);
}

TEST_P(OutOfMemoryIn, Building) {
    failEach([this] { build(version(), true); }, 50);
}

TEST_P(OutOfMemoryIn, Writing) {
    failEach([this] { build(version()).asString(); }, 100);
}

TEST_P(OutOfMemoryIn, WritingAPackage) {
    failEach([this] { build(version(), true).asMimeMultipart().asString(); }, 100);
}

TEST_P(OutOfMemoryIn, Serializing) {
    failEach([this] { serialize(build(version())); }, 100);
}

TEST_P(OutOfMemoryIn, Extracting) {
    const std::string text = build(version()).asString();
    failEach([&text] { extract(text); }, 50);
}

TEST_P(OutOfMemoryIn, ExtractingArrays) {
    const std::string text =
        wire.body("<a " + wire.array("xsd:int", "3") + "><i>1</i><i>2</i></a><b " +
                  wire.array("xsd:int", "900") + "><i " + wire.position("700") + ">1</i></b><c " +
                  wire.array("xsd:int", "3") + " " + wire.offset("2") + "><i><j/></i></c>");
    failEach([&text] { extract(text); }, 20);
}

TEST_P(OutOfMemoryIn, ExtractingReferences) {
    const std::string text = wire.message("<a " + wire.ref("one") + "/><ring " + wire.id("ring") +
                                              "><r " + wire.ref("ring") + "/></ring>",
                                          "<b " + wire.ref("none") + "/><c " + wire.id("one") +
                                              "><d " + wire.ref("one") + "/></c>");
    failEach([&text] { extract(text); }, 30);
}

TEST_P(OutOfMemoryIn, ExtractingAPackage) {
    const std::string text = build(version(), true).asString();
    failEach([&text] { extract(text); }, 50);
}

TEST_P(OutOfMemoryIn, ExtractingMarkupOfOthers) {
    const std::string text =
        wire.body("<a e:encodingStyle='urn:style'><b c='d'>" + std::string(LongText) + "</b></a>");
    failEach([&text] { extract(text); }, 10);
}

TEST_P(OutOfMemoryIn, Converting) {
    for (const V::Version other : otherVersions()) {
        failEach(
            [&] {
                TzSoapMessage message = build(version(), true);
                TzSoapVersionConverter(other).convert(message);
            },
            100);
    }
}

TEST_P(OutOfMemoryIn, Copying) {
    const TzSoapMessage message = build(version(), true);
    failEach([&message] { message.copy(); }, 40);
}

TEST_P(OutOfMemoryIn, RefusingAText) {
    failEach(
        [this] {
            try {
                extract(wire.body("<a " + wire.ref("b") + "><c/></a>"));
            } catch (const TzXmlError& error) {
                EXPECT_EQ(error.getMessage().getId(), tzsoap_ILLEGAL_REFERENCE()->id);
            }
        },
        20);
}

TEST_P(OutOfMemoryIn, AnsweringWithAFault) {
    const TzSoapMessage message = build(version());
    failEach(
        [&] {
            const TzSoapNode node({LongText}, {TzXmlName("understood")});
            TzSoapFaultMessage::makeMustUnderstand(version(), node.findMisunderstood(message))
                .asString();
        },
        20);
}

TEST_P(OutOfMemoryIn, CallingOverHttp) {
    const TzSoapMessage message = build(version(), true);
    failEach(
        [&] {
            TzSoapHttpTransportContext context;
            context.setSoapAction(LongText);
            const TzCString body = TzSoapHttpBinding::pack(message, context);
            TzSoapMessage received = reader();
            TzSoapHttpBinding::unpack(context, body, received);
        },
        100);
}

TEST_P(OutOfMemoryIn, ChangingAttributes) {
    failEach(
        [] {
            TzSoapType value("element");
            for (int i = 0; i < 40; ++i) {
                value.addAttribute(TzXmlName(std::to_string(i) + LongText), LongText);
            }
            for (int i = 0; i < 40; i += 3) {
                value.removeAttribute(TzXmlName(std::to_string(i) + LongText));
            }
            EXPECT_TRUE(std::as_const(value).hasAttribute(TzXmlName(std::string("31") + LongText)));
            value.setEncodingStyle(LongText);
            value.setActor(LongText);
            value.setTypeAttribute(TzXmlName(LongText));
        },
        100);
}

TEST_P(OutOfMemoryIn, AMessageThatCouldNotBeWrittenIsWrittenLater) {
    const TzSoapMessage message = build(version());
    const std::string written = build(version()).asString();
    afterEach([&] { message.asString(); }, [&] { ASSERT_EQ(message.asString(), written); });
}

TEST_P(OutOfMemoryIn, AMessageThatCouldNotBeSerializedIsSerializedLater) {
    const TzSoapMessage message = build(version());
    const std::string written = serialize(build(version()));
    afterEach([&] { serialize(message); }, [&] { ASSERT_EQ(serialize(message), written); });
}

TEST_P(OutOfMemoryIn, AMessageThatCouldNotBeReadReadsTheNextText) {
    const std::string text = build(version(), true).asString();
    TzSoapMessage read = reader();
    read.extract(text);
    const std::string written = read.asString();
    TzSoapMessage message = reader();
    afterEach([&] { message.extract(text); },
              [&] {
                  message.extract(text);
                  ASSERT_EQ(message.asString(), written);
              });
}

TEST_P(OutOfMemoryIn, AMessageThatCouldNotBeCopiedStaysAsItIs) {
    const TzSoapMessage message = build(version());
    const std::string written = message.asString();
    afterEach([&] { message.copy(); }, [&] { ASSERT_EQ(message.asString(), written); });
}

TEST_P(OutOfMemoryIn, AnEntryThatCouldNotBeAddedIsNotThere) {
    TzSoapMessage message(version());
    TzSoapBody& body = message.getSoapBody();
    const TzSoapCompositeType entry = record();
    unsigned int added = 0;
    afterEach(
        [&] {
            body.appendEntry(entry);
            ++added;
            body.prependEntry(entry);
            ++added;
            body.insertEntry(body.entriesEnd(), entry);
            ++added;
        },
        [&] { ASSERT_EQ(body.entryCount(), added); });
    EXPECT_GT(added, 3U);
}

INSTANTIATE_TEST_SUITE_P(
    Each, OutOfMemoryIn,
    testing::Combine(testing::Values(V::V1_1, V::V1_2, V::V1_2Rec),
                     testing::Values(OutOfMemory::Once, OutOfMemory::FromThenOn)),
    [](const auto& parameters) {
        const V::Version version = std::get<0>(parameters.param);
        return (version == V::V1_2Rec ? "V1_2Rec" : "V1_" + std::to_string(version)) +
               (std::get<1>(parameters.param) == OutOfMemory::Once ? "Once" : "FromThenOn");
    });

namespace {

/// What a process says that used the library for the first time while an allocation failed.
enum Outcome : int { Succeeded = 10, OutOfMemoryReported, SomethingElse };

Outcome firstUse(std::size_t nth) {
    try {
        const AllocationFailure failure(nth, OutOfMemory::FromThenOn);
        const std::string text = build(V::V1_2, true).asString();
        extract(text);
        TzSoapMessage message = build(V::V1_1);
        serialize(message);
        TzSoapVersionConverter(V::V1_2).convert(message);
    } catch (const std::bad_alloc&) {
        return OutOfMemoryReported;
    } catch (...) {
        return SomethingElse;
    }
    return Succeeded;
}

/// `firstUse` in a new process; its exit status, -1 when a signal ended it.
int firstUseElsewhere(std::size_t nth) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(firstUse(nth));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

// Meant to run in a new process, where other tests left nothing.
TEST(OutOfMemory, TheFirstUseReportsIt) {
    std::size_t nth = 1;
    int outcome = OutOfMemoryReported;
    for (; outcome == OutOfMemoryReported; ++nth) {
        outcome = firstUseElsewhere(nth);
    }
    EXPECT_EQ(outcome, Succeeded) << "allocation " << nth - 1;
    EXPECT_GT(nth, 300U);
}
