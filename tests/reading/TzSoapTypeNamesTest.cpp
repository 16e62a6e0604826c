// SPDX-License-Identifier: MIT
#include "reading/TzSoapTypeNames.h"

#include <gtest/gtest.h>

#include <tz/xml/TzXmlElementImp.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

/// An element that counts how often its attributes are looked at.
class Scope : public TzXmlElementImp {
public:
    using TzXmlElementImp::getAttributes;

    Scope() = default;
    Scope(const std::string& prefix, const std::string& uri) { declare(prefix, uri); }

    void declare(const std::string& prefix, const std::string& uri) {
        addNamespaceAttribute(TzXmlNamespace(prefix, uri));
    }
    const TzXmlAttributeSet& getAttributes() const override {
        ++looks_;
        return TzXmlElementImp::getAttributes();
    }
    std::size_t looks() const { return looks_; }

private:
    mutable std::size_t looks_ = 0;
};

std::string spelt(const TzXmlName& name) {
    return name.getPrefix() + "|" + name.getLocalName() + "|" + name.getUri();
}

std::string resolved(TzSoapTypeNames& names, const std::string& text) {
    return spelt(names.resolve(text));
}

/// Declares 30 prefixes that nobody uses: too few for an index of the element's own.
void fill(Scope& scope) {
    for (int i = 0; i < 30; ++i) {
        scope.declare("unused" + std::to_string(i), "urn:unused");
    }
}

} // namespace

TEST(TzSoapTypeNames, TheInnermostDeclarationDecides) {
    Scope outer("p", "urn:outer");
    Scope other("q", "urn:q");
    Scope inner("p", "urn:inner");
    TzSoapTypeNames names;
    names.open(outer);
    EXPECT_EQ(names.uriFor("p"), "urn:outer");
    names.open(other);
    names.open(inner);
    EXPECT_EQ(names.uriFor("p"), "urn:inner");
    EXPECT_EQ(names.uriFor("q"), "urn:q");
    names.close();
    EXPECT_EQ(names.uriFor("p"), "urn:outer");
    names.close();
    names.close();
    EXPECT_EQ(names.uriFor("p"), "");
}

TEST(TzSoapTypeNames, ResolvesTheNameThatATextSpells) {
    Scope scope("p", "urn:p");
    scope.declare("", "urn:default");
    TzSoapTypeNames names;
    names.open(scope);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:p");
    EXPECT_EQ(resolved(names, "p:a:b"), "p|a:b|urn:p");
    EXPECT_EQ(resolved(names, "a"), "|a|urn:default");
    EXPECT_EQ(resolved(names, "q:a"), "q|a|");
    EXPECT_EQ(resolved(names, "p:"), "p||urn:p");
    EXPECT_EQ(resolved(names, ""), "||urn:default");
}

TEST(TzSoapTypeNames, ReservedPrefixesAreBoundByDeclarationsOnly) {
    Scope scope("xml", "http://www.w3.org/XML/1998/namespace");
    TzSoapTypeNames names;
    EXPECT_EQ(resolved(names, "xml:a"), "xml|a|");
    EXPECT_EQ(resolved(names, "xmlns:a"), "xmlns|a|");
    names.open(scope);
    EXPECT_EQ(resolved(names, "xml:a"), "xml|a|http://www.w3.org/XML/1998/namespace");
}

TEST(TzSoapTypeNames, ADeclarationOfNoUriHidesAnOuterOne) {
    Scope outer("p", "urn:p");
    Scope inner("p", "");
    TzSoapTypeNames names;
    names.open(outer);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:p");
    names.open(inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|");
}

TEST(TzSoapTypeNames, AnElementMayBeReplacedByAnotherOneAtItsAddress) {
    Scope outer("p", "urn:outer");
    Scope inner;
    TzSoapTypeNames names;
    names.open(outer);
    names.open(inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:outer");
    names.close();
    inner.declare("p", "urn:inner");
    names.open(inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:inner");
    names.close();
    inner.clearAttributes();
    names.open(inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:outer");
}

TEST(TzSoapTypeNames, NamesShareOneRecord) {
    Scope scope("p", "urn:p");
    TzSoapTypeNames names;
    names.open(scope);
    const TzXmlName first = names.resolve("p:a");
    const TzXmlName second = names.resolve("p:b");
    EXPECT_TRUE(first.isSame(names.resolve("p:a")));
    EXPECT_EQ(&first.getNamespace().getUri(), &second.getNamespace().getUri());
}

TEST(TzSoapTypeNames, ElementsWithoutALookUpAreNotLookedAt) {
    Scope scope("p", "urn:p");
    TzSoapTypeNames names;
    for (int i = 0; i < 10; ++i) {
        names.open(scope);
        names.close();
    }
    EXPECT_EQ(scope.looks(), 0U);
}

TEST(TzSoapTypeNames, WorkDoesNotGrowWithTheOpenElements) {
    constexpr std::size_t Depth = 900;
    std::vector<std::unique_ptr<Scope>> open;
    TzSoapTypeNames names;
    for (std::size_t i = 0; i < Depth; ++i) {
        fill(*open.emplace_back(std::make_unique<Scope>("p" + std::to_string(i), "urn:p")));
        names.open(*open.back());
    }
    std::vector<std::unique_ptr<Scope>> leaves;
    for (std::size_t i = 0; i < 2000; ++i) {
        leaves.push_back(std::make_unique<Scope>("leaf", "urn:leaf" + std::to_string(i)));
        names.open(*leaves.back());
        ASSERT_EQ(resolved(names, "leaf:t"), "leaf|t|urn:leaf" + std::to_string(i));
        ASSERT_EQ(resolved(names, "p0:t" + std::to_string(i)),
                  "p0|t" + std::to_string(i) + "|urn:p");
        ASSERT_EQ(resolved(names, "unbound:t" + std::to_string(i)),
                  "unbound|t" + std::to_string(i) + "|");
        names.close();
    }
    std::size_t looks = 0;
    for (const auto& element : open) {
        looks += element->looks();
    }
    for (const auto& leaf : leaves) {
        looks += leaf->looks();
    }
    EXPECT_EQ(looks, Depth + leaves.size());
}

TEST(TzSoapTypeNames, ElementsPushedByHandAreSeenAtOnce) {
    Scope outer("p", "urn:outer");
    Scope inner("p", "urn:inner");
    TzSoapTypeNames names;
    names.open(outer);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:outer");
    TzSoapTypeNames::Elements& elements = names.expose();
    elements.push_back(&inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:inner");
    inner.declare("p", "urn:changed");
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:changed");
    elements.front() = &inner;
    elements.pop_back();
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:changed");
    names.close();
    EXPECT_EQ(resolved(names, "p:a"), "p|a|");
}

TEST(TzSoapTypeNames, ClearForgetsAllElements) {
    Scope outer("p", "urn:outer");
    Scope inner("p", "urn:inner");
    TzSoapTypeNames names;
    names.open(outer);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:outer");
    names.clear();
    EXPECT_EQ(resolved(names, "p:a"), "p|a|");
    names.open(inner);
    EXPECT_EQ(resolved(names, "p:a"), "p|a|urn:inner");
}

// Whatever opens and closes between the look-ups, they answer as a walk over the open elements.
TEST(TzSoapTypeNames, AnswersAsAWalkOverTheOpenElements) {
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same walk each time
    std::vector<std::unique_ptr<Scope>> scopes;
    for (int i = 0; i < 60; ++i) {
        scopes.push_back(std::make_unique<Scope>());
        for (auto j = random() % 5; j > 0; --j) {
            scopes.back()->declare("p" + std::to_string(random() % 20),
                                   random() % 8 == 0 ? "" : "urn:" + std::to_string(random() % 4));
        }
    }
    TzSoapTypeNames indexed;
    TzSoapTypeNames walked;
    walked.expose();
    std::size_t depth = 0;
    for (int step = 0; step < 20000; ++step) {
        if (random() % 2 == 0 && depth < 40) {
            Scope& scope = *scopes[random() % scopes.size()];
            indexed.open(scope);
            walked.open(scope);
            ++depth;
        } else if (depth > 0) {
            indexed.close();
            walked.close();
            --depth;
        }
        if (random() % 3 == 0) {
            const std::string text = "p" + std::to_string(random() % 20) + ":t";
            ASSERT_EQ(resolved(indexed, text), resolved(walked, text)) << step;
        }
    }
}

TEST(TzSoapTypeNames, ShortNamesStayKnownForTheNextText) {
    const std::string longText = "p:" + std::string(100, 'a');
    Scope scope("p", "urn:p");
    TzSoapTypeNames names;
    names.open(scope);
    const TzXmlName first = names.resolve("p:a");
    names.clear();
    names.open(scope);
    EXPECT_TRUE(names.resolve("p:a").isSame(first));
    const TzXmlName second = names.resolve(longText);
    names.clear();
    names.open(scope);
    EXPECT_EQ(names.resolve(longText), second);
    EXPECT_FALSE(names.resolve(longText).isSame(second));
}

TEST(TzSoapTypeNames, APrefixOfTheNextTextMeansWhatThatSays) {
    Scope one("p", "urn:1");
    Scope two("p", "urn:2");
    Scope none;
    TzSoapTypeNames names;
    for (int round = 0; round < 3; ++round) {
        for (Scope* scope : {&one, &two, &none}) {
            names.open(none);
            names.open(*scope);
            EXPECT_EQ(names.resolve("p:a").getUri(), scope == &one   ? "urn:1"
                                                     : scope == &two ? "urn:2"
                                                                     : "");
            names.clear();
        }
    }
}

TEST(TzSoapTypeNames, KnowTheTypeThatANameMeans) {
    Scope scope("p", "urn:p");
    TzSoapTypeNames names;
    names.open(scope);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(names.resolveType("p:int").schemaType, TzSoapContentBase::xsdInt);
        EXPECT_EQ(names.resolveType("string").schemaType, TzSoapContentBase::xsdString);
        EXPECT_EQ(names.resolveType("p:other").schemaType, TzSoapContentBase::xsdUnknown);
    }
}
