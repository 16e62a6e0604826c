// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"

#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

const WireForm wire(TzSoapVersion::V1_1);

/// `count` structs, each with a number and a reference to the next one.
TzSoapMessage readRing(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "<a id=\"i" + std::to_string(i) + "\"><n>" + std::to_string(i) + "</n><r " +
                wire.ref("i" + std::to_string((i + 1) % count)) + "/></a>";
    }
    return readMessage(wire.body(text));
}

} // namespace

// What one thread does with its value is its own affair, whatever the others let go meanwhile.
TEST(TzSoapRingsThread, EachThreadHasAValueOfTheRing) {
    constexpr unsigned int Threads = 4;
    for (int round = 0; round < 50; ++round) {
        TzSoapMessage message = readRing(Threads);
        std::vector<std::thread> threads;
        for (unsigned int i = 0; i < Threads; ++i) {
            threads.emplace_back([mine = composite(bodyEntry(message, i)), round]() mutable {
                for (int step = 0; step < 10; ++step) {
                    TzSoapType next = reference(child(mine, "r")).getSoapReference();
                    mine.appendChild(TzSoapType(TzXmlName("x")));
                    mine.removeChild(TzXmlName("x"));
                    next = mine;
                }
                if (round % 2 == 0) {
                    mine.clearChildren();
                }
                mine = TzSoapCompositeType();
            });
        }
        message = TzSoapMessage();
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
}

TEST(TzSoapRingsThread, TheLastHandleFreesTheRingOnWhateverThread) {
    for (int round = 0; round < 100; ++round) {
        TzSoapMessage message = readRing(2);
        TzSoapType first = bodyEntry(message, 0);
        TzSoapType second = bodyEntry(message, 1);
        const TzSoapType number = child(first, "n");
        message = TzSoapMessage();
        std::thread other([mine = std::move(first)]() mutable { mine = TzSoapType(); });
        second = TzSoapType();
        other.join();
        ASSERT_EQ(TzSoapAccess::body(number).referenceCount(), 1U) << "the struct is there still";
    }
}
