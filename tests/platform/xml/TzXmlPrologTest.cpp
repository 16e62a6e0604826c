// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlProlog.h>

#include <gtest/gtest.h>

TEST(TzXmlProlog, IsUtf8ByDefault) {
    const TzXmlProlog prolog;
    EXPECT_EQ(prolog.asString(), R"(<?xml version="1.0" encoding="UTF-8"?>)");
    EXPECT_EQ(prolog.getVersion(), "1.0");
    EXPECT_EQ(prolog.getEncoding(), "UTF-8");
    EXPECT_FALSE(prolog.getStandalone().has_value());
}

TEST(TzXmlProlog, WritesStandaloneOnlyWhenStated) {
    TzXmlProlog prolog;
    prolog.setStandalone(true);
    EXPECT_EQ(prolog.asString(), R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)");
    prolog.setStandalone(false);
    EXPECT_EQ(prolog.asString(), R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>)");
    prolog.setStandalone({});
    EXPECT_EQ(prolog.asString(), R"(<?xml version="1.0" encoding="UTF-8"?>)");
}

TEST(TzXmlProlog, LeavesAnEmptyEncodingOut) {
    EXPECT_EQ(TzXmlProlog("1.1", "").asString(), R"(<?xml version="1.1"?>)");
    EXPECT_EQ(TzXmlProlog("1.0", "", true).asString(), R"(<?xml version="1.0" standalone="yes"?>)");
}

TEST(TzXmlProlog, GivesItsTextInPieces) {
    std::string text;
    const TzXmlProlog prolog("1.0", "UTF-8", true);
    for (const std::string_view piece : prolog.pieces()) {
        text += piece;
    }
    EXPECT_EQ(text, R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)");
}

TEST(TzXmlProlog, TakesChanges) {
    TzXmlProlog prolog;
    prolog.setVersion("1.1");
    prolog.setEncoding("ISO-8859-1");
    EXPECT_EQ(prolog.asString(), R"(<?xml version="1.1" encoding="ISO-8859-1"?>)");
}

TEST(TzXmlProlog, CopiesAreEqualAndIndependent) {
    const TzXmlProlog first("1.0", "UTF-16", false);
    TzXmlProlog second(first);
    EXPECT_EQ(first, second);
    second.setStandalone({});
    EXPECT_FALSE(first == second);
    EXPECT_EQ(first.getStandalone(), false);
}
