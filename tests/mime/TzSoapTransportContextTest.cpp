// SPDX-License-Identifier: MIT
#include "support/VirtualSlot.h"

#include <soap/TzSoapTransportContext.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

class Context : public TzSoapTransportContext {
public:
    void extract(const TzCString& text) override { add("text", text); }
    TzCString asString() const override { return "text"; }
};

std::vector<std::string> listed(const TzSoapTransportContext& context) {
    std::vector<std::string> result;
    for (const auto& [name, value] : context) {
        result.push_back(name + "=" + value);
    }
    return result;
}

} // namespace

TEST(TzSoapTransportContext, IsABaseForTransports) {
    EXPECT_TRUE(std::is_abstract_v<TzSoapTransportContext>);
    const std::unique_ptr<TzSoapTransportContext> context = std::make_unique<Context>();
    EXPECT_EQ(context->begin(), context->end());
    context->extract("a");
    EXPECT_EQ(listed(*context), std::vector<std::string>{"text=a"});
    EXPECT_EQ(context->asString(), "text");
}

TEST(TzSoapTransportContext, TheOrderOfItsVirtualFunctions) {
    using C = TzSoapTransportContext;
    EXPECT_TRUE(std::has_virtual_destructor_v<C>);
    EXPECT_EQ(slotsOf(&C::extract, &C::asString), inARow(2, 2));
}

TEST(TzSoapTransportContext, AddingAgainReplacesTheValue) {
    Context context;
    context.add("A", "1");
    context.add("A", "2");
    EXPECT_EQ(listed(context), std::vector<std::string>{"A=2"});
}

TEST(TzSoapTransportContext, PropertiesAreOrderedByteByByte) {
    Context context;
    for (const char* name : {"b", "\xC3\xA4", "a", "B", "A", "", "aa"}) {
        context.add(name, "");
    }
    EXPECT_EQ(listed(context),
              (std::vector<std::string>{"=", "A=", "B=", "a=", "aa=", "b=", "\xC3\xA4="}));
}

TEST(TzSoapTransportContext, NamesThatDifferInCaseAreTwoProperties) {
    Context context;
    context.add("Host", "one");
    context.add("host", "two");
    EXPECT_EQ(context.find("Host")->second, "one");
    EXPECT_EQ(context.find("host")->second, "two");
    EXPECT_EQ(context.find("HOST"), context.end());
}

TEST(TzSoapTransportContext, Find) {
    Context context;
    context.add("A", "1");
    const Context& constant = context;
    EXPECT_EQ(constant.find("A")->second, "1");
    EXPECT_EQ(constant.find("B"), constant.end());
    EXPECT_EQ(context.find("B"), context.end());
    context.find("A")->second = "2";
    EXPECT_EQ(constant.begin()->second, "2");
}

TEST(TzSoapTransportContext, RemoveAndClear) {
    Context context;
    context.add("A", "1");
    context.add("B", "2");
    context.add("C", "3");
    context.remove("B");
    context.remove("missing");
    EXPECT_EQ(listed(context), (std::vector<std::string>{"A=1", "C=3"}));
    context.clear();
    EXPECT_EQ(context.begin(), context.end());
    context.clear();
}

TEST(TzSoapTransportContext, CopiesCopyTheProperties) {
    Context context;
    context.add("A", "1");
    Context copy(context);
    copy.add("A", "2");
    EXPECT_EQ(listed(context), std::vector<std::string>{"A=1"});
    context = copy;
    copy.clear();
    EXPECT_EQ(listed(context), std::vector<std::string>{"A=2"});
    const Context moved(std::move(context));
    EXPECT_EQ(listed(moved), std::vector<std::string>{"A=2"});
}
