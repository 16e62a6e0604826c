// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlNamespace.h>

#include <gtest/gtest.h>

#include <tz/xml/TzXmlName.h>

#include <thread>
#include <vector>

TEST(TzXmlNamespaceThread, SharedNamesAreCopiedAndChangedByMany) {
    const TzXmlName name("local", TzXmlNamespace("p", "urn:shared"));
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&name] {
            for (int round = 0; round < 5000; ++round) {
                TzXmlName copy(name);
                TzXmlName other(copy);
                copy.setPrefix("q");
                other = copy;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(name.getPrefix(), "p");
    EXPECT_EQ(name.getUri(), "urn:shared");
}

TEST(TzXmlNamespaceThread, FirstUseOfConstantsIsSafe) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            EXPECT_EQ(TzXmlNamespace::getXsi().getPrefix(), "xsi");
            EXPECT_EQ(TzXmlNamespace::getXsd().getPrefix(), "xsd");
            EXPECT_EQ(TzXmlNamespace().getUri(), "");
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}
