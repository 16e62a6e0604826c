// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>

#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Composite = TzSoapCompositeType;
using Imp = TzSoapCompositeTypeImp;

TzSoapSimpleType member(const std::string& name, int value) {
    return {name, value, TzSoapType::xsdInt, false};
}

/// A composite with the children a=1, b=2, a=3.
Composite aba() {
    Composite composite("s");
    composite.appendChild(member("a", 1));
    composite.appendChild(member("b", 2));
    composite.appendChild(member("a", 3));
    return composite;
}

std::string textOf(const TzSoapType& value) {
    return value.getSoapTypeId() == TzSoapType::Simple
               ? static_cast<TzSoapSimpleTypeImp&>(TzSoapAccess::body(value)).text()
               : value.getSoapTypeIdAsString();
}

/// The children as "name=text;...".
std::string listed(const Composite& composite) {
    std::string text;
    for (auto child = composite.childrenBegin(); child != composite.childrenEnd(); ++child) {
        text += child->getName().getLocalName() + "=" + textOf(*child) + ";";
    }
    return text;
}

/// Hands the document element to a composite and notes what comes back to it.
class Reader : public TzXmlContentHandler {
public:
    explicit Reader(Composite composite) : composite_(std::move(composite)) {
        context_.setParser(&parser_);
    }

    void read(const std::string& text) {
        parser_.setContentHandler(this);
        parser_.parse(text);
    }
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
        if (name.getLocalName() == "outer") {
            return;
        }
        TzSoapAccess::body(composite_).populate(name, attributes, &context_);
        EXPECT_EQ(context_.getNamespaces().size(), 1U);
        stylesInside_ = context_.getEncodingStyles().size();
    }
    void endElement(const TzXmlName& name) override { ended_ += name.getLocalName() + ";"; }
    void characters(const TzCString&) override {}

    TzSoapParseContext& context() { return context_; }
    std::size_t stylesInside() const { return stylesInside_; }
    const std::string& ended() const { return ended_; }

private:
    TzXmlSAXParser parser_;
    TzSoapParseContext context_;
    Composite composite_;
    std::size_t stylesInside_ = 0;
    std::string ended_;
};

} // namespace

TEST(TzSoapCompositeType, StartsEmpty) {
    const Composite composite;
    EXPECT_TRUE(composite.getName().isEmpty());
    EXPECT_EQ(composite.childCount(), 0U);
    EXPECT_EQ(composite.childrenBegin(), composite.childrenEnd());
    EXPECT_EQ(composite.getSoapTypeId(), Composite::Composite);
    EXPECT_EQ(composite.getSoapTypeIdAsString(), "Composite");
    EXPECT_EQ(&composite.getSoapTypeIdAsString(), &TzSoapUtils::compositeString);
    EXPECT_EQ(Composite("n").getName(), TzXmlName("n"));
}

TEST(TzSoapCompositeType, NothingIsFoundInOrRemovedFromAnEmptyOne) {
    Composite composite("s");
    EXPECT_EQ(composite.findChild("a"), composite.childrenEnd());
    composite.removeChild("a");
    composite.removeAllChildren("a");
    composite.clearChildren();
    EXPECT_EQ(composite.childCount(), 0U);
}

TEST(TzSoapCompositeType, ChildrenKeepTheirOrder) {
    Composite composite = aba();
    EXPECT_EQ(composite.childCount(), 3U);
    EXPECT_EQ(listed(composite), "a=1;b=2;a=3;");
    composite.prependChild(member("c", 0));
    EXPECT_EQ(listed(composite), "c=0;a=1;b=2;a=3;");
    const auto inserted = composite.insertChild(composite.findChild("b"), member("d", 9));
    EXPECT_EQ(inserted->getName(), TzXmlName("d"));
    EXPECT_EQ(listed(composite), "c=0;a=1;d=9;b=2;a=3;");
    composite.insertChild(composite.childrenEnd(), member("e", 5));
    EXPECT_EQ(listed(composite), "c=0;a=1;d=9;b=2;a=3;e=5;");
    EXPECT_EQ(composite.childCount(), 6U);
}

TEST(TzSoapCompositeType, TheFirstChildOfANameIsFound) {
    Composite composite = aba();
    EXPECT_EQ(composite.findChild("a"), composite.childrenBegin());
    EXPECT_EQ(textOf(*composite.findChild("b")), "2");
    EXPECT_EQ(composite.findChild("z"), composite.childrenEnd());
    const Composite& constant = composite;
    EXPECT_EQ(textOf(*constant.findChild("a")), "1");
    EXPECT_EQ(constant.findChild("z"), constant.childrenEnd());
}

TEST(TzSoapCompositeType, NamesAreComparedWithTheirNamespace) {
    Composite composite("s");
    const TzXmlName qualified("a", TzXmlNamespace("p", "urn:p"));
    composite.appendChild(member("a", 1));
    composite.appendChild(TzSoapSimpleType(qualified, 2, TzSoapType::xsdInt, false));
    const TzXmlName otherPrefix("a", TzXmlNamespace("q", "urn:p"));
    EXPECT_EQ(textOf(*composite.findChild(otherPrefix)), "2");
    composite.removeAllChildren(otherPrefix);
    EXPECT_EQ(listed(composite), "a=1;");
}

TEST(TzSoapCompositeType, RemovesTheFirstChildOfAName) {
    Composite composite = aba();
    composite.removeChild("a");
    EXPECT_EQ(listed(composite), "b=2;a=3;");
    EXPECT_EQ(composite.childCount(), 2U);
    composite.removeChild("z");
    EXPECT_EQ(composite.childCount(), 2U);
}

TEST(TzSoapCompositeType, RemovesAllChildrenOfAName) {
    Composite composite = aba();
    composite.removeAllChildren("a");
    EXPECT_EQ(listed(composite), "b=2;");
    EXPECT_EQ(composite.childCount(), 1U);
}

TEST(TzSoapCompositeType, RemovesByTheNameOfAChildThatGoes) {
    Composite composite = aba();
    composite.removeAllChildren(std::as_const(*composite.childrenBegin()).getName());
    EXPECT_EQ(listed(composite), "b=2;");
    composite.removeChild(std::as_const(*composite.childrenBegin()).getName());
    EXPECT_EQ(listed(composite), "");
}

TEST(TzSoapCompositeType, RemovesAtAPosition) {
    Composite composite = aba();
    const auto next = composite.removeChild(composite.findChild("b"));
    EXPECT_EQ(textOf(*next), "3");
    EXPECT_EQ(composite.removeChild(next), composite.childrenEnd());
    EXPECT_EQ(listed(composite), "a=1;");
    composite.clearChildren();
    EXPECT_EQ(composite.childCount(), 0U);
}

TEST(TzSoapCompositeType, ChildrenAreShared) {
    TzSoapSimpleType child = member("a", 1);
    Composite composite("s");
    composite.appendChild(child);
    child.setInt(2);
    EXPECT_EQ(listed(composite), "a=2;");
    EXPECT_EQ(TzSoapAccess::body(child).referenceCount(), 2U);
    composite.removeChild("a");
    EXPECT_EQ(TzSoapAccess::body(child).referenceCount(), 1U);
}

TEST(TzSoapCompositeType, CopySharesTheChildren) {
    Composite composite = aba();
    composite.setMustUnderstand(true);
    composite.addAttribute("x", "y");
    Composite copy = composite.copy();
    EXPECT_FALSE(TzSoapAccess::sameBody(composite, copy));
    EXPECT_EQ(copy.getName(), TzXmlName("s"));
    EXPECT_TRUE(copy.getMustUnderstand());
    EXPECT_TRUE(copy.hasAttribute(TzXmlName("x")));
    EXPECT_EQ(listed(copy), "a=1;b=2;a=3;");
    EXPECT_EQ(TzSoapAccess::body(*copy.childrenBegin()).referenceCount(), 2U);

    copy.appendChild(member("z", 9));
    copy.removeChild("b");
    EXPECT_EQ(listed(composite), "a=1;b=2;a=3;");
    static_cast<TzSoapSimpleTypeImp&>(TzSoapAccess::body(*copy.childrenBegin())).setInt(7);
    EXPECT_EQ(listed(composite), "a=7;b=2;a=3;");
}

TEST(TzSoapCompositeType, CopiesOfTheHandleShareTheBody) {
    const Composite composite = aba();
    Composite shared = composite;
    shared.removeChild("b");
    EXPECT_EQ(composite.childCount(), 2U);
    EXPECT_EQ(TzSoapAccess::body(composite).referenceCount(), 2U);
}

TEST(TzSoapCompositeType, EqualityLooksAtTheNameOnly) {
    const Composite left = aba();
    Composite right("s");
    right.setMustUnderstand(true);
    EXPECT_TRUE(left == right);
    EXPECT_FALSE(left != right);
    right.setName("t");
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(left == left);
    EXPECT_TRUE(Composite(TzXmlName("s", TzXmlNamespace("p", "u"))) ==
                Composite(TzXmlName("s", TzXmlNamespace("q", "u"))));
    EXPECT_FALSE(Composite(TzXmlName("s", TzXmlNamespace("p", "u"))) == left);
}

TEST(TzSoapCompositeType, ReplacingAStructByItsOwnMemberIsSafe) {
    TzSoapType value = [] {
        Composite outer("outer");
        outer.appendChild(aba());
        return outer;
    }();
    value = *static_cast<Imp&>(TzSoapAccess::body(value)).childrenBegin();
    EXPECT_EQ(std::as_const(value).getName(), TzXmlName("s"));
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
}

TEST(TzSoapCompositeType, DeepStructuresDieWithoutRecursion) {
    Composite innermost("s");
    TzSoapType top = innermost;
    for (int depth = 0; depth < 300000; ++depth) {
        Composite outer("s");
        outer.appendChild(top);
        top = std::move(outer);
    }
    top = TzSoapType();
    EXPECT_EQ(TzSoapAccess::body(innermost).referenceCount(), 1U);
}

TEST(TzSoapCompositeType, RefusesEverythingWithoutABody) {
    Composite none = TzSoapAccess::handle<Composite>(static_cast<Imp*>(nullptr));
    const Composite& constant = none;
    const Composite::iterator position;
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { none.copy(); });
    refused([&] { none.childCount(); });
    refused([&] { none.childrenBegin(); });
    refused([&] { none.childrenEnd(); });
    refused([&] { constant.childrenBegin(); });
    refused([&] { constant.childrenEnd(); });
    refused([&] { none.appendChild(TzSoapType()); });
    refused([&] { none.prependChild(TzSoapType()); });
    refused([&] { none.insertChild(position, TzSoapType()); });
    refused([&] { none.removeChild(position); });
    refused([&] { none.removeChild("a"); });
    refused([&] { none.removeAllChildren("a"); });
    refused([&] { none.clearChildren(); });
    refused([&] { none.findChild("a"); });
    refused([&] { constant.findChild("a"); });
    refused([&] { static_cast<void>(none == Composite()); });
    refused([&] { static_cast<void>(Composite() == none); });
}

TEST(TzSoapCompositeType, ReadsItsOwnChildren) {
    const Composite composite;
    Reader reader(composite);
    reader.read("<outer><p:s xmlns:p='urn:p' x='1'><a>1</a> <p:b><c>2</c><c>3</c></p:b></p:s>"
                "</outer>");
    EXPECT_EQ(composite.getName(), TzXmlName("s", TzXmlNamespace("", "urn:p")));
    EXPECT_EQ(composite.attributeCount(), 2U);
    EXPECT_TRUE(composite.hasAttribute(TzXmlAttribute("x", "1")));
    EXPECT_EQ(listed(composite), "a=1;b=Composite;");
    const auto inner = TzSoapAccess::handle<Composite>(static_cast<Imp*>(
        &TzSoapAccess::body(*composite.findChild(TzXmlName("b", TzXmlNamespace("", "urn:p"))))));
    EXPECT_EQ(listed(inner), "c=2;c=3;");
    // The events came back and every scope is closed.
    EXPECT_EQ(reader.ended(), "outer;");
    EXPECT_TRUE(reader.context().getNamespaces().empty());
    EXPECT_TRUE(reader.context().getEncodingStyles().empty());
}

TEST(TzSoapCompositeType, ItsEncodingStyleIsInForceWhileItIsRead) {
    const Composite composite;
    Reader reader(composite);
    reader.read("<s e:encodingStyle='urn:mine' xmlns:e='http://www.w3.org/2002/06/soap-envelope'>"
                "<a>1</a></s>");
    EXPECT_EQ(composite.getEncodingStyleAttribute(), "urn:mine");
    EXPECT_EQ(composite.attributeCount(), 1U);
    EXPECT_EQ(listed(composite), "a=UserDefined;");
    EXPECT_EQ(reader.stylesInside(), 1U);
    EXPECT_TRUE(reader.context().getEncodingStyles().empty());
}

TEST(TzSoapCompositeType, AnEmptyEncodingStyleIsInForceToo) {
    const Composite composite;
    Reader reader(composite);
    reader.context().getEncodingStyles().push("urn:mine");
    reader.read("<s e:encodingStyle='' xmlns:e='http://www.w3.org/2002/06/soap-envelope'>"
                "<a>1</a></s>");
    EXPECT_FALSE(composite.hasEncodingStyleAttribute());
    EXPECT_EQ(listed(composite), "a=1;");
    EXPECT_EQ(reader.context().getEncodingStyles().size(), 1U);
}

TEST(TzSoapCompositeType, StartsReadingAtItsFirstChild) {
    TzXmlSAXParser parser;
    TzSoapParseContext context;
    context.setParser(&parser);
    Composite composite("s");
    Imp& body = TzSoapAccess::body(composite);
    TzXmlAttributeSet attributes;
    body.doStart("a", attributes, &context);
    EXPECT_EQ(context.getNamespaces().front(), &body);
    parser.getContentHandler()->characters("5");
    parser.getContentHandler()->endElement("a");
    EXPECT_EQ(parser.getContentHandler(), static_cast<TzXmlContentHandler*>(&body));
    body.endElement("s");
    EXPECT_EQ(parser.getContentHandler(), nullptr);
    EXPECT_TRUE(context.getNamespaces().empty());
    EXPECT_EQ(listed(composite), "a=5;");
}
