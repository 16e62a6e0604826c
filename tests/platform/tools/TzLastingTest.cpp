// SPDX-License-Identifier: MIT
#include <tz/tools/TzLasting.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

TzLastingList list;
std::string destroyed;

/// Ends the list as the end of its library would, so that the next test begins with an empty one.
std::string endOfList() {
    destroyed.clear();
    std::destroy_at(&list);
    std::construct_at(&list);
    return destroyed;
}

/// Notes its destruction.
struct Noted {
    char name;
    ~Noted() { destroyed += name; }
};

template <char name> Noted& noted() {
    static TzLasting<list, Noted> object([] { return Noted{name}; });
    return *object;
}

} // namespace

TEST(TzLasting, IsMadeOnFirstUseAndStays) {
    Noted& first = noted<'a'>();
    EXPECT_EQ(first.name, 'a');
    EXPECT_EQ(&noted<'a'>(), &first);
    EXPECT_EQ(endOfList(), "a");
}

TEST(TzLasting, TheLatestGoesFirst) {
    noted<'b'>();
    noted<'c'>();
    noted<'d'>();
    noted<'c'>();
    EXPECT_EQ(endOfList(), "dcb");
    EXPECT_EQ(endOfList(), "");
}

TEST(TzLasting, RegistersNothingWhereItStands) {
    static_assert(std::is_trivially_destructible_v<TzLasting<list, Noted>>);
    static_assert(std::is_trivially_destructible_v<TzLasting<list, const std::string>>);
}

TEST(TzLasting, AFailureIsTriedAgain) {
    int calls = 0;
    const auto object = [&calls]() -> const std::string& {
        static TzLasting<list, const std::string> made([&calls] {
            if (++calls == 1) {
                throw std::runtime_error("not yet");
            }
            return std::string("a text of more than fifteen letters");
        });
        return *made;
    };
    EXPECT_THROW(object(), std::runtime_error);
    EXPECT_EQ(object(), "a text of more than fifteen letters");
    EXPECT_EQ(calls, 2);
    endOfList();
}

TEST(TzLastingThread, ObjectsOfManyThreadsGoOnceEach) {
    using Use = void (*)();
    const Use uses[] = {[] { noted<'1'>(); }, [] { noted<'2'>(); }, [] { noted<'3'>(); },
                        [] { noted<'4'>(); }, [] { noted<'5'>(); }, [] { noted<'6'>(); }};
    std::vector<std::thread> threads;
    for (int round = 0; round < 2; ++round) {
        for (const Use use : uses) {
            threads.emplace_back(use);
        }
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::string gone = endOfList();
    std::sort(gone.begin(), gone.end());
    EXPECT_EQ(gone, "123456");
}
