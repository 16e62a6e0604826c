// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "model/TzSoapAccess.h"
#include "output/WireText.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

namespace {

TzSoapSimpleType target(const char* name, const char* id, int value = 5) {
    TzSoapSimpleType made = intValue(name, value);
    made.setIdAttribute(id);
    return made;
}

TzSoapReferenceType reference(const char* name, const TzSoapType& to) {
    return {TzXmlName(name), to};
}

TEST(TzSoapWriterReference, WritesATargetOnceBehindTheEntries) {
    const TzSoapSimpleType shared = target("shared", "i");
    const std::vector<TzSoapType> entries = {reference("a", shared), reference("b", shared),
                                             intValue("c", 1)};
    EXPECT_EQ(wire11(entries), envelope11(R"(    <a href="#i"/>
    <b href="#i"/>
    <c>1</c>
    <shared id="i">5</shared>
)"));
    EXPECT_EQ(wire12(entries), envelope12(R"(    <a ref="#i"/>
    <b ref="#i"/>
    <c>1</c>
    <shared id="i">5</shared>
)"));
}

TEST(TzSoapWriterReference, WritesNoTargetThatIsAnEntry) {
    const TzSoapSimpleType before = target("before", "i");
    const TzSoapSimpleType behind = target("behind", "j");
    EXPECT_EQ(wire11({before, reference("a", before), reference("b", behind), behind}),
              envelope11(R"(    <before id="i">5</before>
    <a href="#i"/>
    <b href="#j"/>
    <behind id="j">5</behind>
)"));
}

TEST(TzSoapWriterReference, WritesTargetsOfHeaderEntriesInTheHeader) {
    const TzSoapSimpleType shared = target("shared", "i");
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding/");
    message.getSoapHeader().appendHeaderEntry(reference("h", shared), true);
    message.getSoapBody().appendEntry(reference("b", shared));
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Header>
    <h href="#i" SOAP-ENV:mustUnderstand="1"/>
    <shared id="i">5</shared>
  </SOAP-ENV:Header>
  <SOAP-ENV:Body>
    <b href="#i"/>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterReference, WritesTargetsOfTargets) {
    const TzSoapSimpleType last = target("last", "k");
    TzSoapCompositeType middle("middle");
    middle.setIdAttribute("j");
    for (const char* name : {"x", "y", "z", "u", "v", "w"}) {
        middle.appendChild(reference(name, last));
    }
    EXPECT_EQ(wire11({reference("a", middle)}), envelope11(R"(    <a href="#j"/>
    <middle id="j">
      <x href="#k"/>
      <y href="#k"/>
      <z href="#k"/>
      <u href="#k"/>
      <v href="#k"/>
      <w href="#k"/>
    </middle>
    <last id="k">5</last>
)"));
}

TEST(TzSoapWriterReference, WritesARingOnce) {
    TzSoapCompositeType first("first");
    first.setIdAttribute("1");
    TzSoapCompositeType second("second");
    second.setIdAttribute("2");
    first.appendChild(reference("to2", second));
    second.appendChild(reference("to1", first));
    second.appendChild(reference("self", second));
    EXPECT_EQ(wire11({reference("a", first)}), envelope11(R"(    <a href="#1"/>
    <first id="1">
      <to2 href="#2"/>
    </first>
    <second id="2">
      <to1 href="#1"/>
      <self href="#2"/>
    </second>
)"));
    second.clearChildren();
}

TEST(TzSoapWriterReference, EndsARingWhoseIdWasTaken) {
    TzSoapCompositeType ring("ring");
    ring.setIdAttribute("1");
    ring.appendChild(reference("self", ring));
    ring.removeIdAttribute();
    EXPECT_EQ(wire11({reference("a", target("x", "i")), ring}), envelope11(R"(    <a href="#i"/>
    <ring>
      <self href="#1"/>
    </ring>
    <x id="i">5</x>
    <ring>
      <self href="#1"/>
    </ring>
)"));
    ring.clearChildren();
}

TEST(TzSoapWriterReference, RemembersEveryKindThatHasAnId) {
    TzSoapType generic("g");
    generic.setIdAttribute("1");
    TzSoapReferenceType pointer = reference("p", generic);
    pointer.setIdAttribute("2");
    auto markup = TzSoapAccess::handle<TzSoapUserDefinedType>(
        new TzSoapUserDefinedTypeImp(TzXmlName("m"), "<m encodingStyle=''/>"));
    markup.setIdAttribute("3");
    auto content = TzSoapAccess::handle<TzSoapUserDefinedType>(
        new TzSoapUserDefinedTypeImp(TzXmlName("n"), "text"));
    content.setIdAttribute("4");
    EXPECT_EQ(wire11({generic, pointer, markup, content, reference("a", generic),
                      reference("b", pointer), reference("c", markup), reference("d", content)}),
              envelope11(R"(    <g id="1">
    </g>
    <p href="#1" id="2"/>
    <m encodingStyle=''/><n id="4">text</n>
    <a href="#1"/>
    <b href="#2"/>
    <c href="#3"/>
    <d href="#4"/>
)"));
}

TEST(TzSoapWriterReference, WritesAReferenceWithoutTarget) {
    TzSoapReferenceType empty(TzXmlName("a"));
    empty.addAttribute(TzXmlName("href"), "#gone");
    EXPECT_EQ(wire11({empty}), envelope11("    <a href=\"#gone\"/>\n"));
    EXPECT_EQ(wire12({empty}), envelope12("    <a href=\"#gone\"/>\n"));
}

TEST(TzSoapWriterReference, KeepsOneReferenceAttribute) {
    TzSoapReferenceType twice(TzXmlName("a"));
    twice.addAttribute(TzXmlName("href"), "#old");
    twice.addAttribute(TzXmlName("x"), "1");
    twice.addAttribute(TzXmlName("ref"), "#new");
    EXPECT_EQ(wire11({twice}), envelope11("    <a href=\"#new\" x=\"1\"/>\n"));
}

TEST(TzSoapWriterReference, LosesTargetsOfAValueOnItsOwn) {
    TzSoapCompositeType composite("s");
    composite.appendChild(reference("a", target("x", "i")));
    EXPECT_EQ(
        wire(composite),
        R"(<s xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <a ref="#i"/>
</s>
)");
}

TEST(TzSoapWriterReference, WritesTargetsOfAFaultInTheBody) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("http://schemas.xmlsoap.org/soap/encoding/");
    message.getSoapBody().getSoapFault().setCode(TzXmlName("c"));
    message.getSoapBody().getSoapFault().addDetailEntry("d", reference("x", target("t", "i")));
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Body>
    <SOAP-ENV:Fault>
      <faultcode>c</faultcode>
      <faultstring></faultstring>
      <detail>
        <d href="#i"/>
      </detail>
    </SOAP-ENV:Fault>
    <t id="i">5</t>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterReference, RemembersWhatIsStillToBeWrittenAfterAnError) {
    TzXmlStringWriter output;
    TzSoapWriter writer(&output, nullptr);
    TzSoapMessage broken = encodedMessage(
        TzSoapVersion::V1_1,
        {target("before", "j"), reference("a", target("late", "i")),
         TzSoapSimpleType("bad", std::string("\x01"), TzSoapType::xsdString, false)});
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { broken.acceptVisitor(writer); }),
              "the character U+0001 at offset 0 cannot stand in XML");
    output.setString("");
    encodedMessage(TzSoapVersion::V1_1, {reference("b", target("before", "j"))})
        .acceptVisitor(writer);
    EXPECT_EQ(output.getString(), envelope11(R"(    <b href="#j"/>
    <late id="i">5</late>
)"));
}

TEST(TzSoapWriterReference, InsertsMimeParts) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("p1"));
    part.setBody("bytes");
    const TzSoapReferenceType attached(TzXmlName("a"), part);
    for (const auto& [version, text] :
         {std::pair(TzSoapVersion::V1_1,
                    envelope11("    <a href=\"cid:p1\"/>\n    <a href=\"cid:p1\"/>\n")),
          std::pair(TzSoapVersion::V1_2,
                    envelope12("    <a href=\"cid:p1\"/>\n    <a href=\"cid:p1\"/>\n"))}) {
        const TzSoapMessage message = encodedMessage(version, {attached, attached});
        EXPECT_EQ(wire(message), text);
        TzXmlStringWriter output;
        TzMimeMultipart multipart;
        TzSoapWriter writer(&output, &multipart);
        message.acceptVisitor(writer);
        EXPECT_EQ(output.getString(), text);
        ASSERT_EQ(multipart.getPartCount(), 2U);
        EXPECT_EQ(multipart.getPart(1).getBody(), "bytes");
    }
}

/// A reference that says of what kind it is by a list of answers.
class FickleReference : public TzSoapReferenceTypeImp {
public:
    explicit FickleReference(std::vector<bool> answers)
        : TzSoapReferenceTypeImp(TzXmlName("a")), answers_(std::move(answers)) {
        accept("#x", TzSoapVersion::Ref);
    }
    bool isSoapReference() const override {
        const bool answer = answers_[next_];
        next_ = std::min(next_ + 1, answers_.size() - 1);
        return answer;
    }
    TzSoapElementImp* clone() const override { return nullptr; }
    TzSoapType& getSoapReference() override {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_REFERENCE(), "soap")));
    }

private:
    std::vector<bool> answers_;
    mutable std::size_t next_ = 0;
};

TEST(TzSoapWriterReference, RefusesAReferenceThatChangesItsKind) {
    const auto write = [](const std::vector<bool>& answers) {
        const auto fickle = TzSoapAccess::handle<TzSoapReferenceType>(
            static_cast<TzSoapReferenceTypeImp*>(new FickleReference(answers)));
        TzXmlStringWriter output;
        TzMimeMultipart multipart;
        TzSoapWriter writer(&output, &multipart);
        try {
            fickle.acceptVisitor(writer);
        } catch (...) {
            EXPECT_EQ(output.getString(), "<a ref=\"#x\"/>\n");
            throw;
        }
    };
    expectCatalogued<TzXmlBadArgError>(
        [&] {
            write({true, true, false});
        },
        0x701E, "[BAD_SOAP_REFERENCE][The reference is not to a soap type]");
    expectCatalogued<TzXmlBadArgError>(
        [&] {
            write({true, true, true});
        },
        0x7015, "[BAD_REFERENCE][The referred type is not \"soap\".]");
    expectCatalogued<TzXmlBadArgError>(
        [&] {
            write({true, false, true});
        },
        0x701F, "[BAD_MIME_REFERENCE][The reference is not to a mime part]");
}

} // namespace
