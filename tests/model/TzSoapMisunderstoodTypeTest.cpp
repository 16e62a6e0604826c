// SPDX-License-Identifier: MIT
#include <soap/TzSoapMisunderstoodType.h>

#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

namespace {

using Misunderstood = TzSoapMisunderstoodType;

const TzXmlName reported("Tx", TzXmlNamespace("p", "urn:u"));

TzCString valueOf(const Misunderstood& value, const TzXmlName& name) {
    const auto* found = value.findAttribute(name);
    return found == value.attributesEnd() ? "(none)" : found->getValue();
}

} // namespace

TEST(TzSoapMisunderstoodType, StartsEmpty) {
    const Misunderstood value;
    EXPECT_TRUE(value.getName().isEmpty());
    EXPECT_TRUE(value.getQualifiedName().isEmpty());
    EXPECT_EQ(value.attributeCount(), 0U);
    EXPECT_EQ(value.getSoapTypeId(), Misunderstood::Misunderstood);
    EXPECT_EQ(value.getSoapTypeIdAsString(), "Misunderstood");
}

TEST(TzSoapMisunderstoodType, DeclaresAndSpellsTheName) {
    const Misunderstood value(reported);
    EXPECT_EQ(value.getName().getLocalName(), "Misunderstood");
    EXPECT_EQ(value.getName().getUri(), "http://www.w3.org/2002/06/soap-faults");
    EXPECT_EQ(value.getName().getPrefix(), "f");
    EXPECT_EQ(value.getQualifiedName(), reported);
    ASSERT_EQ(value.attributeCount(), 2U);
    const auto* declaration = value.findNamespaceAttribute("p");
    ASSERT_EQ(declaration, value.attributesBegin());
    EXPECT_EQ(declaration->getValue(), "urn:u");
    EXPECT_EQ(valueOf(value, "qname"), "p:Tx");
    EXPECT_EQ(value.attributesBegin()[1].getName().getQualifiedName(), "qname");
    EXPECT_TRUE(value.attributesBegin()[1].getName().getUri().empty());
}

TEST(TzSoapMisunderstoodType, ANameWithoutPrefixIsSpeltAlone) {
    const Misunderstood value(TzXmlName("Tx", TzXmlNamespace("", "urn:u")));
    EXPECT_EQ(valueOf(value, "qname"), "Tx");
    EXPECT_EQ(value.getDefaultNamespaceAttribute(), "urn:u");
}

TEST(TzSoapMisunderstoodType, AnotherNameLeavesTheAttributes) {
    Misunderstood value(reported);
    const TzXmlName other("Other", TzXmlNamespace("q", "urn:q"));
    value.setQualifiedName(other);
    EXPECT_EQ(value.getQualifiedName(), other);
    EXPECT_EQ(value.getQualifiedName().getPrefix(), "q");
    EXPECT_EQ(valueOf(value, "qname"), "p:Tx");
    EXPECT_EQ(value.attributeCount(), 2U);
    EXPECT_EQ(value.findNamespaceAttribute("q"), value.attributesEnd());
}

TEST(TzSoapMisunderstoodType, CopiesOfTheHandleShareTheBody) {
    const Misunderstood value(reported);
    Misunderstood shared = value;
    shared.setQualifiedName("x");
    EXPECT_EQ(value.getQualifiedName(), TzXmlName("x"));
}

TEST(TzSoapMisunderstoodType, CopyIsIndependent) {
    const Misunderstood value(reported);
    Misunderstood copy = value.copy();
    EXPECT_EQ(copy.getQualifiedName(), reported);
    EXPECT_EQ(valueOf(copy, "qname"), "p:Tx");
    EXPECT_EQ(copy.getSoapTypeId(), Misunderstood::Misunderstood);
    copy.setQualifiedName("x");
    copy.clearAttributes();
    EXPECT_EQ(value.getQualifiedName(), reported);
    EXPECT_EQ(value.attributeCount(), 2U);
}

TEST(TzSoapMisunderstoodType, RefusesEverythingWithoutABody) {
    Misunderstood none =
        TzSoapAccess::handle<Misunderstood>(static_cast<TzSoapMisunderstoodTypeImp*>(nullptr));
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { none.copy(); });
    refused([&] { none.getQualifiedName(); });
    refused([&] { none.setQualifiedName(reported); });
}
