// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <soap/TzSoapMisunderstoodType.h>
#include <tz/xml/TzXmlParseError.h>

#include <string>
#include <utility>
#include <vector>

// One set of handlers serves all elements of a reading, however they nest: nothing of an element
// that is open may be left in a handler that reads the next one.

namespace {

/// Markup of a value and how `shown` shows what it is read as.
struct Kind {
    std::string markup;
    std::string shown;
};

std::string shown(const TzSoapType& value);

std::string shownContent(const TzSoapType& value) {
    switch (value.getSoapTypeId()) {
    case TzSoapContentBase::Composite: {
        const TzSoapCompositeType parent = composite(value);
        std::string all;
        for (auto at = parent.childrenBegin(); at != parent.childrenEnd(); ++at) {
            all += shown(*at) + " ";
        }
        return "{ " + all + "}";
    }
    case TzSoapContentBase::Array:
        if (tzSoapCast<TzSoapArrayType>(value).value().isSparse()) {
            const TzSoapSparseArrayType array = sparse(value);
            std::string all;
            for (auto at = array.begin(); at != array.end(); ++at) {
                all += shown(at->second) + " ";
            }
            return "( " + all + ")";
        } else {
            const TzSoapCompactArrayType array = compact(value);
            std::string all;
            for (auto at = array.begin(); at != array.end(); ++at) {
                all += shown(*at) + " ";
            }
            return "[ " + all + "]";
        }
    case TzSoapContentBase::Reference:
        return "->" + reference(value).getSoapReference().getName().getLocalName();
    case TzSoapContentBase::UserDefined:
        return "markup";
    default:
        return "'" + textOf(value) + "'";
    }
}

/// Name, type, attributes and content of a value.
std::string shown(const TzSoapType& value) {
    std::string all = value.getName().getLocalName();
    if (!value.getTypeAttribute().empty()) {
        all += ":" + value.getTypeAttribute();
    }
    for (auto at = value.attributesBegin(); at != value.attributesEnd(); ++at) {
        all += "@" + at->getName().getLocalName();
    }
    return all + "=" + shownContent(value);
}

/// Every kind of element that holds no element; `name` makes them different.
std::vector<Kind> leaves(const std::string& name) {
    return {
        {"<" + name + ">text</" + name + ">", name + "='text'"},
        {"<" + name + " xsi:type='xsi:int' k='v'>1</" + name + ">", name + ":xsi:int@k='1'"},
        {"<" + name + "/>", name + "=''"},
        {"<" + name + " href='#target'/>", name + "@ref=->target"},
        {"<" + name + " e:encodingStyle='urn:own'>a<b/>c</" + name + ">", name + "=markup"},
        {"<" + name + " c:arrayType='xsi:int[]'/>", name + "=[ ]"},
    };
}

/// Every kind of element that holds `content`.
std::vector<Kind> around(const std::vector<Kind>& content) {
    std::string markup;
    std::string shownContent;
    for (const Kind& one : content) {
        markup += one.markup;
        shownContent += one.shown + " ";
    }
    return {
        {"<s m='n'>" + markup + "</s>", "s@m={ " + shownContent + "}"},
        {"<a c:arrayType='x[]'>" + markup + "</a>", "a=[ " + shownContent + "]"},
    };
}

void expectRead(const Kind& kind) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, kind.markup + "<target id='target'>t</target>"));
    EXPECT_EQ(shown(*message.getSoapBody().entriesBegin()), kind.shown) << kind.markup;
}

} // namespace

TEST(HandlersOfOneReading, ReadEveryKindInEveryKind) {
    for (const Kind& first : leaves("one")) {
        for (const Kind& second : leaves("two")) {
            for (const Kind& outer : around({first, second})) {
                expectRead(outer);
            }
        }
    }
}

TEST(HandlersOfOneReading, ReadOnAfterEveryKindOfContainer) {
    for (const Kind& inner : leaves("in")) {
        for (const Kind& middle : around({inner})) {
            for (const Kind& after : leaves("after")) {
                for (const Kind& outer : around({middle, after})) {
                    expectRead(outer);
                }
            }
        }
    }
}

TEST(HandlersOfOneReading, ReadFirstChildrenThatAreContainersThemselves) {
    std::vector<Kind> nested = leaves("in");
    for (int depth = 0; depth < 4; ++depth) {
        std::vector<Kind> next;
        for (const Kind& one : nested) {
            for (const Kind& outer : around({one, leaves("next")[0]})) {
                next.push_back(outer);
            }
        }
        nested = std::move(next);
    }
    for (const Kind& one : nested) {
        expectRead(one);
    }
}

TEST(HandlersOfOneReading, LeaveNothingOfAReadingThatFailed) {
    const std::string rest = "</broken></e:Body></e:Envelope>";
    for (const Kind& half : leaves("half")) {
        for (const Kind& whole : leaves("whole")) {
            TzSoapMessage message;
            const std::string text = envelope(TzSoapVersion::V1_1, half.markup);
            // Cut inside the value, where it has been begun.
            EXPECT_THAT(textThrown<TzXmlParseError>([&] {
                            message.extract(text.substr(0, text.find("half")) +
                                            "half z='z' c:root='1'>left" + rest);
                        }),
                        testing::StartsWith("mismatched tag, line 1, column "));
            message.extract(
                envelope(TzSoapVersion::V1_1, whole.markup + "<target id='target'>t</target>"));
            EXPECT_EQ(shown(*message.getSoapBody().entriesBegin()), whole.shown) << whole.markup;
        }
    }
}

TEST(HandlersOfOneReading, ReadMisunderstoodEntriesBesideOthers) {
    const std::string misunderstood =
        "<f:Misunderstood xmlns:f='http://www.w3.org/2002/06/soap-faults' qname='e:a'/>";
    const TzSoapMessage message = messageOf(
        envelope(TzSoapVersion::V1_2, "<b/>", "<s><t>1</t></s>" + misunderstood + "<u>2</u>"));
    std::string all;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto at = header.entriesBegin(); at != header.entriesEnd(); ++at) {
        all +=
            at->getSoapTypeId() == TzSoapContentBase::Misunderstood ? "misunderstood" : shown(*at);
        all += " ";
    }
    EXPECT_EQ(all, "s={ t='1' } misunderstood u='2' ");
}
