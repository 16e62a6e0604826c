// SPDX-License-Identifier: MIT
#include <soap/TzSoapFault.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

namespace {

TzSoapFault fault(const std::vector<TzSoapReason>& reasons) {
    TzSoapFault made;
    for (const TzSoapReason& reason : reasons) {
        made.addReason(reason.text, reason.language);
    }
    return made;
}

} // namespace

TEST(TzSoapFaultReasons, TheFirstIsTheReason) {
    EXPECT_EQ(fault({{"Nein", "de"}, {"No", "en"}}).getReason(), "Nein");
    EXPECT_EQ(fault({}).getReason(), "");
    EXPECT_EQ(fault({}).getReason("en"), "");
}

TEST(TzSoapFaultReasons, ALanguageFindsItsReason) {
    const TzSoapFault made = fault({{"Nein", "de"}, {"No", "en"}, {"Nope", "en-US"}});
    EXPECT_EQ(made.getReason("en"), "No");
    EXPECT_EQ(made.getReason("en-US"), "Nope");
    EXPECT_EQ(made.getReason("EN-us"), "Nope");
    EXPECT_EQ(made.getReason("en-GB-oed"), "No");
    EXPECT_EQ(made.getReason("fr"), "Nein");
    EXPECT_EQ(made.getReason("d"), "Nein"); // the first, not the German one
    EXPECT_EQ(made.getReason(""), "Nein");
}

TEST(TzSoapFaultReasons, AMoreParticularLanguageWillDo) {
    EXPECT_EQ(fault({{"Nein", "de"}, {"No", "en-US"}}).getReason("en"), "No");
    EXPECT_EQ(fault({{"Nein", "de"}, {"No", "eng"}}).getReason("en"), "Nein");
}

TEST(TzSoapFaultReasons, SettingTheReasonReplacesAll) {
    TzSoapFault made = fault({{"Nein", "de"}, {"No", "en"}});
    made.setReason("Other");
    ASSERT_EQ(made.getReasons().size(), 1U);
    EXPECT_EQ(made.getReasons().front().text, "Other");
    EXPECT_EQ(made.getReasons().front().language, "");
    made.setReason("");
    EXPECT_TRUE(made.getReasons().empty());
}

TEST(TzSoapFaultReasons, CopiesHaveThemAndClearedFaultsDoNot) {
    TzSoapFault made = fault({{"Nein", "de"}, {"No", "en"}});
    const TzSoapFault copy = made.copy();
    made.clear();
    EXPECT_TRUE(made.getReasons().empty());
    EXPECT_EQ(copy.getReason("en"), "No");
}
