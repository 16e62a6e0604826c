// SPDX-License-Identifier: MIT
#include "xml/TzXmlNameResolver.h"

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using Uris = std::map<std::string, std::string>;

/// A resolver with the place of a name, and beside it what is declared, in the plainest form.
class Checked {
public:
    void declare(const std::string& prefix, const std::string& uri) {
        states_.push_back(states_.back());
        states_.back()[prefix] = uri;
        changes_.push_back(resolver_.declare(prefix, uri));
        scopes_.push_back(resolver_.scope());
    }
    void undo() {
        resolver_.undo(changes_.back());
        changes_.pop_back();
        states_.pop_back();
        scopes_.pop_back();
        EXPECT_EQ(resolver_.scope(), scopes_.back());
    }
    void endDocument() {
        resolver_.endDocument();
        changes_.clear();
        states_.assign(1, {});
        scopes_.assign(1, 1);
        EXPECT_EQ(resolver_.scope(), 1U);
    }
    std::size_t open() const { return changes_.size(); }

    /// Whether element and attribute get the namespace that is declared.
    void check(const std::string& prefix, const std::string& localName) {
        const std::string spelling = prefix.empty() ? localName : prefix + ":" + localName;
        resolver_.resolveElement(spelling, element_, elementStamp_);
        expect(element_, prefix, localName, uriOf(prefix));
        resolver_.resolveAttribute(spelling, attribute_, attributeStamp_);
        expect(attribute_, prefix, localName, prefix.empty() ? "" : uriOf(prefix));
    }

private:
    std::string uriOf(const std::string& prefix) const {
        const auto found = states_.back().find(prefix);
        return found == states_.back().end() ? std::string() : found->second;
    }
    static void expect(const TzXmlName& name, const std::string& prefix,
                       const std::string& localName, const std::string& uri) {
        ASSERT_EQ(name.getLocalName(), localName);
        ASSERT_EQ(name.getUri(), uri);
        if (!uri.empty()) {
            ASSERT_EQ(name.getPrefix(), prefix);
        }
    }

    TzXmlNameResolver resolver_;
    std::vector<Uris> states_ = {{}};
    std::vector<std::size_t> changes_;
    std::vector<std::uint64_t> scopes_ = {1};
    TzXmlName element_;
    TzXmlName attribute_;
    std::uint64_t elementStamp_ = 0;
    std::uint64_t attributeStamp_ = 0;
};

/// Resolves the names of a small document.
std::vector<TzXmlName> readDocument(TzXmlNameResolver& resolver, const std::string& uri) {
    const std::array<std::string, 4> spellings = {"p:a", "a", "b", "q:unbound"};
    std::vector<TzXmlName> names(spellings.size());
    resolver.declare("p", uri);
    resolver.declare("", "urn:default");
    for (std::size_t i = 0; i < spellings.size(); ++i) {
        std::uint64_t stamp = 0;
        resolver.resolveElement(spellings[i], names[i], stamp);
    }
    resolver.endDocument();
    return names;
}

} // namespace

TEST(TzXmlNameResolver, KnowsTheNamesOfTheDocumentBefore) {
    TzXmlNameResolver resolver;
    const std::vector<TzXmlName> first = readDocument(resolver, "urn:p");
    const std::vector<TzXmlName> second = readDocument(resolver, "urn:p");
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_TRUE(second[i].isSame(first[i])) << first[i].getQualifiedName();
    }
}

TEST(TzXmlNameResolver, MakesNothingForADocumentLikeTheOneBefore) {
    TzXmlNameResolver resolver;
    TzXmlName name;
    std::uint64_t stamp = 0;
    const auto read = [&] {
        resolver.declare("p", "urn:a-uri-too-long-for-a-small-string");
        resolver.resolveElement("p:a", name, stamp);
        resolver.declare("p", "urn:another-uri-too-long-for-a-small-string");
        resolver.resolveElement("p:a", name, stamp);
        resolver.undo(1);
        resolver.resolveElement("p:a", name, stamp);
        resolver.resolveElement("unbound:a", name, stamp);
        resolver.endDocument();
    };
    read();
    const std::size_t bytes = resolver.bytes();
    const std::size_t made = madeAllocations();
    read();
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(resolver.bytes(), bytes);
}

TEST(TzXmlNameResolver, APrefixBoundOtherwiseInTheNextDocumentHasItsNewUri) {
    TzXmlNameResolver resolver;
    for (const char* uri :
         {"urn:1", "urn:2", "urn:1", "urn:3", "urn:4", "urn:5", "urn:6", "urn:1"}) {
        const std::vector<TzXmlName> names = readDocument(resolver, uri);
        EXPECT_EQ(names[0].getUri(), uri);
        EXPECT_EQ(names[1].getUri(), "urn:default");
        EXPECT_EQ(names[3].getUri(), "");
    }
}

TEST(TzXmlNameResolver, EndsADocumentWhoseDeclarationsAreInForce) {
    TzXmlNameResolver resolver;
    readDocument(resolver, "urn:p");
    EXPECT_EQ(resolver.find("p"), nullptr);
    EXPECT_EQ(resolver.scope(), 1U);
    TzXmlName name;
    std::uint64_t stamp = 0;
    resolver.resolveElement("p:a", name, stamp);
    EXPECT_EQ(name.getUri(), "");
    resolver.resolveElement("a", name, stamp);
    EXPECT_EQ(name.getUri(), "");
}

TEST(TzXmlNameResolver, NumbersDeclarationsInEachDocumentAnew) {
    TzXmlNameResolver resolver;
    for (int document = 0; document < 2; ++document) {
        EXPECT_EQ(resolver.scope(), 1U);
        resolver.declare("p", "urn:p");
        EXPECT_EQ(resolver.scope(), 2U);
        resolver.undo(1);
        resolver.declare("p", "urn:p");
        EXPECT_EQ(resolver.scope(), 3U);
        resolver.endDocument();
    }
}

// Few prefixes and URIs, so that states come again in all ways, and more names than have room.
TEST(TzXmlNameResolver, ResolvesAnyOrderOfDeclarationsAndDocuments) {
    std::mt19937 random(20261122);
    const auto below = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    const std::array<std::string, 4> prefixes = {"", "p", "q", "r"};
    const std::array<std::string, 7> uris = {"", "urn:1", "urn:2", "urn:3", "4", "5", "6"};
    Checked checked;
    for (int step = 0; step < 200000 && !testing::Test::HasFailure(); ++step) {
        switch (below(8)) {
        case 0:
        case 1:
            checked.declare(prefixes[below(prefixes.size())], uris[below(uris.size())]);
            break;
        case 2:
            if (checked.open() > 0) {
                checked.undo();
            }
            break;
        case 3:
            if (below(4) == 0) {
                checked.endDocument();
            }
            break;
        default:
            checked.check(prefixes[below(prefixes.size())],
                          "n" + std::to_string(below(step % 1000 < 500 ? 5 : 3000)));
        }
    }
}

TEST(TzXmlNameResolver, CountsWhatItTakes) {
    constexpr std::size_t Names = 1000;
    const std::string longText(100, 'x');
    TzXmlNameResolver resolver;
    const std::size_t before = askedBytes();
    const std::size_t own = resolver.bytes();
    TzXmlName name;
    std::uint64_t stamp = 0;
    for (std::size_t i = 0; i < Names; ++i) {
        const std::string number = std::to_string(i);
        resolver.declare("p" + number, longText + number);
        resolver.resolveElement("p" + number + ":" + longText, name, stamp);
        resolver.resolveElement("p" + number + ":a", name, stamp);
    }
    resolver.endDocument();
    const std::size_t asked = askedBytes() - before;
    const std::size_t counted = resolver.bytes() - own;
    // A table that grows is asked for again and again; the test itself makes short strings only.
    EXPECT_GT(counted, Names * (longText.size() * 2));
    EXPECT_GT(2 * counted, asked);
    EXPECT_LT(counted, 2 * asked);
}

TEST(TzXmlNameResolver, CountsNamesThatItHasForgotten) {
    constexpr std::size_t Names = 2000; // twice as many as it remembers
    TzXmlNameResolver resolver;
    TzXmlName name;
    for (std::size_t i = 0; i < Names; ++i) {
        std::uint64_t stamp = 0;
        resolver.resolveElement("n" + std::to_string(i), name, stamp);
    }
    EXPECT_GT(resolver.bytes(), Names * 100);
}

TEST(TzXmlNameResolver, SurvivesEachLackOfMemory) {
    std::size_t failures = 0;
    const std::ptrdiff_t before = liveAllocations();
    for (std::size_t nth = 1;; ++nth) {
        EXPECT_EQ(liveAllocations(), before) << nth;
        TzXmlNameResolver resolver;
        readDocument(resolver, "urn:a-uri-too-long-for-a-small-string");
        bool failed = false;
        {
            const AllocationFailure failure(nth);
            try {
                readDocument(resolver, "urn:another-uri-too-long-for-a-small-string");
            } catch (const std::bad_alloc&) {
                resolver.endDocument();
                ++failures;
            }
            failed = failure.happened();
        }
        const auto names = readDocument(resolver, "urn:another-uri-too-long-for-a-small-string");
        EXPECT_EQ(names[0].getUri(), "urn:another-uri-too-long-for-a-small-string") << nth;
        EXPECT_EQ(names[0].getLocalName(), "a") << nth;
        EXPECT_EQ(names[2].getLocalName(), "b") << nth;
        if (!failed) {
            break;
        }
    }
    EXPECT_GE(failures, 3U);
}
