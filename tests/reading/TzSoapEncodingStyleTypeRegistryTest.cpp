// SPDX-License-Identifier: MIT
#include <soap/TzSoapEncodingStyleTypeRegistry.h>

#include <tz/xml/TzXmlNamespace.h>

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

namespace {

using Registry = TzSoapEncodingStyleTypeRegistry;

const char* const Style = "http://schemas.xmlsoap.org/soap/encoding/";

TzXmlName type(const char* localName, const char* uri = "urn:types") {
    return TzXmlName(localName, TzXmlNamespace("t", uri));
}

} // namespace

TEST(TzSoapEncodingStyleTypeRegistry, StartsEmpty) {
    const Registry registry;
    EXPECT_TRUE(registry.empty());
    EXPECT_FALSE(registry.lookupType(Style, type("Map")));
    EXPECT_FALSE(registry.lookupType("", TzXmlName()));
}

TEST(TzSoapEncodingStyleTypeRegistry, FindsExactlyTheRegisteredPairs) {
    Registry registry;
    registry.registerType(Style, type("Map"));
    registry.registerType(Style, type("Blob"));
    registry.registerType("urn:style", type("Tree"));
    EXPECT_FALSE(registry.empty());
    EXPECT_TRUE(registry.lookupType(Style, type("Map")));
    EXPECT_TRUE(registry.lookupType(Style, type("Blob")));
    EXPECT_TRUE(registry.lookupType("urn:style", type("Tree")));
    EXPECT_FALSE(registry.lookupType(Style, type("Tree")));
    EXPECT_FALSE(registry.lookupType("urn:style", type("Map")));
    EXPECT_FALSE(registry.lookupType("urn:other", type("Map")));
}

TEST(TzSoapEncodingStyleTypeRegistry, StylesAreComparedLetterByLetter) {
    Registry registry;
    registry.registerType(Style, type("Map"));
    EXPECT_FALSE(registry.lookupType("http://schemas.xmlsoap.org/soap/encoding", type("Map")));
    EXPECT_FALSE(registry.lookupType("HTTP://schemas.xmlsoap.org/soap/encoding/", type("Map")));
    EXPECT_FALSE(registry.lookupType("", type("Map")));
}

TEST(TzSoapEncodingStyleTypeRegistry, TypesAreComparedByNamespaceAndNotByPrefix) {
    Registry registry;
    registry.registerType(Style, type("Map"));
    EXPECT_TRUE(registry.lookupType(Style, TzXmlName("Map", TzXmlNamespace("q", "urn:types"))));
    EXPECT_FALSE(registry.lookupType(Style, type("Map", "urn:other")));
    EXPECT_FALSE(registry.lookupType(Style, TzXmlName("Map")));
    EXPECT_FALSE(registry.lookupType(Style, type("map")));
}

TEST(TzSoapEncodingStyleTypeRegistry, APairMayBeRegisteredTwice) {
    Registry registry;
    registry.registerType(Style, type("Map"));
    registry.registerType(Style, type("Map"));
    EXPECT_TRUE(registry.lookupType(Style, type("Map")));
    EXPECT_FALSE(registry.lookupType(Style, type("Blob")));
    EXPECT_FALSE(registry.lookupType("urn:other", type("Map")));
}

TEST(TzSoapEncodingStyleTypeRegistry, CopiesAreIndependent) {
    Registry registry;
    registry.registerType(Style, type("Map"));
    Registry copy(registry);
    copy.registerType(Style, type("Blob"));
    EXPECT_TRUE(copy.lookupType(Style, type("Map")));
    EXPECT_FALSE(registry.lookupType(Style, type("Blob")));
    registry = copy;
    EXPECT_TRUE(registry.lookupType(Style, type("Blob")));
    registry = Registry();
    EXPECT_TRUE(registry.empty());
    const Registry moved(std::move(copy));
    EXPECT_TRUE(moved.lookupType(Style, type("Blob")));
}

TEST(TzSoapEncodingStyleTypeRegistry, TheProcessHasOne) {
    Registry* const registry = Registry::getRegistry();
    ASSERT_NE(registry, nullptr);
    EXPECT_EQ(Registry::getRegistry(), registry);
    // A style of this test alone, because the entry stays as long as the process.
    EXPECT_FALSE(registry->lookupType("urn:test:shared", type("Map")));
    Registry::getRegistry()->registerType("urn:test:shared", type("Map"));
    EXPECT_TRUE(registry->lookupType("urn:test:shared", type("Map")));
    EXPECT_FALSE(Registry().lookupType("urn:test:shared", type("Map")));
}

TEST(TzSoapEncodingStyleTypeRegistry, ThreadsGetTheSameOne) {
    std::vector<const Registry*> seen(8);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        threads.emplace_back([&seen, i] { seen[i] = Registry::getRegistry(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Registry* registry : seen) {
        EXPECT_EQ(registry, Registry::getRegistry());
    }
}
