// SPDX-License-Identifier: MIT
#include "support/Throws.h"
#include "view/Orders.h"

#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr char TooMany[] = "references repeat too many values, the limit is 1048576";

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// A list of `count` references to `target`, which has the id "1".
std::string references(std::size_t count, const std::string& target) {
    return "<list>" + times(count, "<item href='#1'/>") + "</list>" + target;
}

/// What the error about reading 2000 references to `target` says after the path.
template <typename Item> std::string refusedRepeating(const std::string& target) {
    const TzSoapView view = encoded(references(2000, target));
    const std::string text =
        textThrown<TzXmlBadArgError>([&] { view["list"].as<std::vector<Item>>(); });
    return text.substr(text.find(": ") + 2);
}

} // namespace

TEST(TzSoapPlace, ReferencesDoNotRepeatLongTexts) {
    const std::string text(100000, ' ');
    EXPECT_EQ(refusedRepeating<std::string>("<x id='1'>" + text + "</x>"), TooMany);
    EXPECT_EQ(refusedRepeating<int>("<x id='1'>" + text + "1</x>"), TooMany);
}

TEST(TzSoapPlace, ReferencesDoNotRepeatElementsWithoutField) {
    const std::string line = "<article>A</article><amount>1</amount>";
    EXPECT_EQ(refusedRepeating<Line>("<x id='1'>" + line + times(2000, "<z/>") + "</x>"), TooMany);
}

TEST(TzSoapPlace, ReferencesDoNotRepeatManyAttributes) {
    std::string target = "<x id='1'";
    for (int i = 0; i < 20000; ++i) {
        target += " a" + std::to_string(i) + "=''";
    }
    EXPECT_EQ(refusedRepeating<Line>(target + "><article/><amount>1</amount></x>"), TooMany);
}

TEST(TzSoapPlace, ReferencesDoNotRepeatPositionsWithoutItem) {
    EXPECT_EQ(refusedRepeating<std::vector<int>>("<x id='1' c:arrayType='x:int[50001]'><i>1</i>"
                                                 "<i c:position='[50000]'>1</i></x>"),
              TooMany);
}

TEST(TzSoapPlace, ReferencesDoNotRepeatValuesThatAreTakenWhole) {
    EXPECT_EQ(refusedRepeating<TzSoapType>("<x id='1'><y>" + times(2000, "<z/>") + "</y></x>"),
              TooMany);
}

TEST(TzSoapPlace, ReferencesMayShareAText) {
    const TzSoapView view =
        encoded(references(1000, "<x id='1'>" + std::string(1000, 'a') + "</x>"));
    EXPECT_EQ(view["list"].as<std::vector<std::string>>(),
              std::vector<std::string>(1000, std::string(1000, 'a')));
}
