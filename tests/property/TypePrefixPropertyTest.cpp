// SPDX-License-Identifier: MIT
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

constexpr unsigned int Prefixes = 2;
constexpr unsigned int Uris = 3;

/// Elements whose types have prefixes that elements around them bind again and again.
class Tree {
public:
    explicit Tree(std::uint32_t seed) : random_(seed) {}

    /// The text of an element and of those within it, at most `depth` levels.
    std::string element(unsigned int depth, std::vector<std::string> bound) {
        std::string declarations;
        for (unsigned int prefix = 0; prefix < Prefixes; ++prefix) {
            if (draw(3) == 0) {
                bound[prefix] = "urn:" + std::to_string(draw(Uris));
                declarations += " xmlns:p" + std::to_string(prefix) + "='" + bound[prefix] + "'";
            }
        }
        std::string attributes = declarations;
        expected_.emplace_back();
        if (draw(4) != 0) {
            const unsigned int prefix = draw(Prefixes);
            const std::string type = " xsi:type='p" + std::to_string(prefix) + ":t'";
            expected_.back() = bound[prefix] + ":t";
            // A declaration holds for the type in front of it, too.
            attributes = draw(2) == 0 ? type + declarations : declarations + type;
        }
        std::string text = "<e" + attributes + ">";
        for (unsigned int children = depth == 0 ? 0 : draw(4); children > 0; --children) {
            text += element(depth - 1, bound);
        }
        return text + "</e>";
    }

    /// URI and name of each element's type, "" without one, in document order.
    const std::vector<std::string>& expected() const { return expected_; }

private:
    unsigned int draw(unsigned int below) { return static_cast<unsigned int>(random_() % below); }

    std::mt19937 random_;
    std::vector<std::string> expected_;
};

void collectTypes(const TzSoapType& value, std::vector<std::string>& types) {
    types.push_back(value.getType().getUniqueName());
    if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
        for (auto child = composite->childrenBegin(); child != composite->childrenEnd(); ++child) {
            collectTypes(*child, types);
        }
    }
}

} // namespace

TEST(TypePrefixProperty, TypesHaveTheNamespacesInForceWhereTheyStand) {
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        Tree tree(seed);
        const std::string text =
            "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/' xmlns:p0='urn:a' "
            "xmlns:p1='urn:b' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'><e:Body>" +
            tree.element(4, {"urn:a", "urn:b"}) + "</e:Body></e:Envelope>";
        TzSoapMessage message;
        message.extract(text);
        std::vector<std::string> types;
        collectTypes(*message.getSoapBody().entriesBegin(), types);
        ASSERT_EQ(types, tree.expected()) << "seed " << seed << "\n" << text;
    }
}
