// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlContentHandler.h>
#include <tz/xml/TzXmlName.h>

#include <gtest/gtest.h>

#include "platform/xml/TestedParser.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace {

/// Notes at each start tag what a prefix stands for and the number of the declarations in force.
class ScopeWatcher final : public TzXmlContentHandler {
public:
    explicit ScopeWatcher(const TzXmlSAXParser& parser) : parser_(parser) {}
    void startElement(const TzXmlName&, const TzXmlAttributeSet&) override {
        const TzXmlNamespace* found = parser_.findNamespace("p");
        uris += found == nullptr ? "-" : found->getUri();
        scopes.push_back(parser_.getNamespaceScope());
    }
    void endElement(const TzXmlName&) override {}
    void characters(const TzCString&) override {}

    std::string uris;
    std::vector<std::uint64_t> scopes;

private:
    const TzXmlSAXParser& parser_;
};

} // namespace

TEST(TzXmlSAXParser, TellsWhatPrefixesStandForAndWhenThatChanges) {
    TestedParser parser;
    ScopeWatcher watcher(parser);
    parser.setContentHandler(&watcher);
    parser.parse("<r><a xmlns:p='1'><b/><c xmlns:p='1'/><d xmlns:p='2'/><e/></a><f/><g "
                 "xmlns:p='1'/></r>");
    EXPECT_EQ(watcher.uris, "-11121-1");
    ASSERT_EQ(watcher.scopes.size(), 8U);
    std::array<std::uint64_t, 8> scopes{};
    std::copy(watcher.scopes.begin(), watcher.scopes.end(), scopes.begin());
    const auto [r, a, b, c, d, e, f, g] = scopes;
    EXPECT_NE(r, 0U);
    EXPECT_NE(a, r);
    EXPECT_EQ(b, a);
    EXPECT_EQ(c, a); // it declares what is declared already
    EXPECT_NE(d, a);
    EXPECT_EQ(e, a);
    EXPECT_EQ(f, r);
    EXPECT_NE(g, a); // a number is not used again for other declarations, be they alike
    EXPECT_EQ(parser.getNamespaceScope(), 0U);
    EXPECT_EQ(parser.findNamespace("p"), nullptr);
}
