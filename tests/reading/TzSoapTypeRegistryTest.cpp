// SPDX-License-Identifier: MIT
#include <soap/TzSoapTypeRegistry.h>

#include "support/CataloguedError.h"

#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlNamespace.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace {

const TzXmlName& price() {
    static const TzXmlName name("Price", TzXmlNamespace("m", "urn:shop"));
    return name;
}

TzXmlName type(const char* localName) { return TzXmlName(localName, TzXmlNamespace::getXsd()); }

} // namespace

TEST(TzSoapTypeRegistry, StartsEmpty) {
    const TzSoapTypeRegistry registry;
    EXPECT_TRUE(registry.empty());
    EXPECT_FALSE(registry.typeExists(price()));
    EXPECT_FALSE(registry.typeExists(TzXmlName()));
}

TEST(TzSoapTypeRegistry, FindsWhatWasRegistered) {
    TzSoapTypeRegistry registry;
    registry.registerType(price(), type("double"));
    EXPECT_FALSE(registry.empty());
    EXPECT_TRUE(registry.typeExists(price()));
    EXPECT_EQ(registry.lookupType(price()), type("double"));
    EXPECT_EQ(registry.lookupType(price()).getPrefix(), "xsd");
}

TEST(TzSoapTypeRegistry, TheFirstRegistrationWins) {
    TzSoapTypeRegistry registry;
    registry.registerType(price(), type("double"));
    registry.registerType(price(), type("int"));
    EXPECT_EQ(registry.lookupType(price()), type("double"));
}

TEST(TzSoapTypeRegistry, NamesDifferByNamespaceAndNotByPrefix) {
    TzSoapTypeRegistry registry;
    registry.registerType(price(), type("double"));
    const TzXmlName elsewhere("Price", TzXmlNamespace("m", "urn:other"));
    const TzXmlName unqualified("Price");
    EXPECT_FALSE(registry.typeExists(elsewhere));
    EXPECT_FALSE(registry.typeExists(unqualified));
    EXPECT_TRUE(registry.typeExists(TzXmlName("Price", TzXmlNamespace("q", "urn:shop"))));
    registry.registerType(elsewhere, type("int"));
    registry.registerType(unqualified, type("string"));
    EXPECT_EQ(registry.lookupType(price()), type("double"));
    EXPECT_EQ(registry.lookupType(elsewhere), type("int"));
    EXPECT_EQ(registry.lookupType(unqualified), type("string"));
}

TEST(TzSoapTypeRegistry, LookingUpAnUnknownNameIsRefused) {
    TzSoapTypeRegistry registry;
    registry.registerType(TzXmlName("Price"), type("double"));
    expectCatalogued<TzXmlBadArgError>(
        [&] { registry.lookupType(price()); }, 0x700F,
        "[NO_TYPE][No type is registered for element named m:Price]");
    expectCatalogued<TzXmlBadArgError>(
        [&] { registry.lookupType(TzXmlName("Name", TzXmlNamespace("", "urn:shop"))); }, 0x700F,
        "[NO_TYPE][No type is registered for element named Name]");
}

TEST(TzSoapTypeRegistry, CopiesAreIndependent) {
    TzSoapTypeRegistry registry;
    registry.registerType(price(), type("double"));
    TzSoapTypeRegistry copy(registry);
    copy.registerType(TzXmlName("Name"), type("string"));
    EXPECT_TRUE(copy.typeExists(price()));
    EXPECT_FALSE(registry.typeExists(TzXmlName("Name")));
    registry = copy;
    EXPECT_TRUE(registry.typeExists(TzXmlName("Name")));
    registry = TzSoapTypeRegistry();
    EXPECT_TRUE(registry.empty());
    EXPECT_TRUE(copy.typeExists(price()));
    const TzSoapTypeRegistry moved(std::move(copy));
    EXPECT_TRUE(moved.typeExists(price()));
}

TEST(TzSoapTypeRegistry, IsABase) {
    EXPECT_TRUE(std::has_virtual_destructor_v<TzSoapTypeRegistry>);
}
