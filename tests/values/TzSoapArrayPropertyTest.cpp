// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSparseArrayType.h>

#include "values/ArrayTesting.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

/// What an array must hold: texts by index.
using Texts = std::map<Index, std::string>;

std::string shown(const Index& index) {
    return TzSoapArrayType::vectorToString(index, true, TzSoapVersion::V1_1);
}

/// Random shapes and indices, equal in every run.
class Chance {
public:
    explicit Chance(unsigned int seed) : engine_(seed) {}

    unsigned int below(unsigned int limit) {
        return std::uniform_int_distribution<unsigned int>(0, limit - 1)(engine_);
    }
    bool oneIn(unsigned int times) { return below(times) == 0; }

    /// Bounds for a number of axes, the leftmost sometimes open.
    Index bounds(std::size_t axes) {
        Index bounds(axes);
        for (unsigned int& bound : bounds) {
            bound = 1 + below(axes > 3 ? 3 : 6);
        }
        if (oneIn(4)) {
            bounds[0] = 0;
        }
        return bounds;
    }

    /// A start within bounds, most often none.
    Index start(const Index& bounds) {
        Index start(bounds.size());
        if (oneIn(3)) {
            for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
                start[axis] = below(std::max(bounds[axis], 1U));
            }
        }
        return start;
    }

    /// An index within a shape.
    Index index(const Index& bounds, const Index& start) {
        Index index(bounds.size());
        for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
            const unsigned int end = bounds[axis] == 0 ? start[axis] + 4 : bounds[axis];
            index[axis] = start[axis] + below(end - start[axis]);
        }
        return index;
    }

private:
    std::mt19937 engine_;
};

bool fits(const Index& index, const Index& bounds, const Index& start) {
    for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
        const bool open = axis == 0 && bounds[0] == 0;
        if (!open && (index[axis] < start[axis] || index[axis] >= bounds[axis])) {
            return false;
        }
    }
    return true;
}

/// The position of an index by the definition: rows before it, then what is left of it in its row.
unsigned int positionOf(const Index& index, const Index& bounds) {
    unsigned int position = 0;
    for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
        position = position * (axis == 0 ? 1 : bounds[axis]) + index[axis];
    }
    return position;
}

/// Calls `action` for every index of a shape; open axes end four after the start.
template <typename Action>
void forEachIndex(const Index& bounds, const Index& start, const Action& action) {
    Index index = start;
    while (true) {
        action(index);
        std::size_t axis = index.size();
        while (axis-- > 0) {
            const unsigned int end = bounds[axis] == 0 ? start[axis] + 4 : bounds[axis];
            if (++index[axis] < end) {
                break;
            }
            index[axis] = start[axis];
            if (axis == 0) {
                return;
            }
        }
    }
}

/// Assigns by one of the ways to reach an item.
template <typename Array>
void assign(Array& array, Chance& chance, const Index& index, const std::string& text) {
    const TzSoapSimpleType value = valueOf(text);
    switch (chance.below(4)) {
    case 0:
        array[index] = value;
        return;
    case 1:
        array(positionOf(index, array.getBounds())) = value;
        return;
    case 2:
        array[shown(index)] = value;
        return;
    default:
        array(index) = value;
    }
}

/// Compares every position of the shape, and every index that has a text.
template <typename Array>
void expectTexts(const Array& array, const Texts& texts, const std::string& missing) {
    forEachIndex(array.getBounds(), array.getStartIndex(), [&](const Index& index) {
        const auto expected = texts.find(index);
        EXPECT_EQ(itemText(array[index]), expected == texts.end() ? missing : expected->second)
            << shown(index) << " of " << array.getArrayType();
        EXPECT_EQ(array.linearToIndex(array.indexToLinear(index)), index);
        EXPECT_EQ(array.indexToLinear(index), positionOf(index, array.getBounds()));
    });
    for (const auto& [index, text] : texts) {
        EXPECT_EQ(itemText(array[index]), text) << shown(index) << " of " << array.getArrayType();
    }
}

void dropMisfits(Texts& texts, const Index& bounds, const Index& start) {
    std::erase_if(texts, [&](const auto& item) { return !fits(item.first, bounds, start); });
}

TEST(TzSoapArrayProperty, CompactArraysLikeAMap) {
    for (unsigned int seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const std::size_t axes = 1 + chance.below(5);
        const Index bounds = chance.bounds(axes);
        const Index start = chance.start(bounds);
        TzSoapCompactArrayType array("xsd:int", bounds, start);
        Texts texts;
        for (unsigned int step = 0; step < 40; ++step) {
            if (chance.oneIn(12)) {
                Index newBounds = chance.bounds(axes);
                for (std::size_t axis = 0; axis < axes; ++axis) {
                    if (newBounds[axis] != 0) {
                        newBounds[axis] = std::max(newBounds[axis], start[axis] + 1);
                    }
                }
                array.setBounds(newBounds);
                dropMisfits(texts, newBounds, start);
            } else {
                const Index index = chance.index(array.getBounds(), start);
                texts[index] = std::to_string(seed) + "." + std::to_string(step);
                assign(array, chance, index, texts[index]);
            }
        }
        expectTexts(array, texts, "-");
        const auto held = std::count_if(array.begin(), array.end(), [](const TzSoapType& item) {
            return itemText(item) != "-";
        });
        EXPECT_EQ(static_cast<std::size_t>(held), texts.size());
        EXPECT_EQ(static_cast<std::size_t>(array.end() - array.begin()), array.entries());
    }
}

/// The number of items by the rule: block by block, each one more than the shape has.
std::size_t sizeAfter(const Index& bounds, const Index& start, const std::vector<Index>& reached) {
    const std::size_t base = positionOf(start, bounds);
    const std::size_t allocated = [&bounds] {
        std::size_t product = bounds == Index{0} ? 0 : 1;
        for (const unsigned int bound : bounds) {
            product *= std::max(bound, 1U);
        }
        return product;
    }();
    const std::size_t block = allocated > base ? allocated - base : 0;
    std::size_t size = block;
    for (const Index& index : reached) {
        while (positionOf(index, bounds) - base >= size) {
            size += block + 1;
        }
    }
    return size;
}

TEST(TzSoapArrayProperty, CompactArraysGrowByTheRule) {
    for (unsigned int seed = 1000; seed < 1200; ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const Index bounds = chance.bounds(1 + chance.below(5));
        const Index start = chance.start(bounds);
        TzSoapCompactArrayType array("xsd:int", bounds, start);
        std::vector<Index> reached;
        for (unsigned int step = 0; step < 10; ++step) {
            Index index = chance.index(bounds, start);
            index[0] += chance.below(4); // sometimes beyond the bounds
            reached.push_back(index);
            array(index) = valueOf("x");
            ASSERT_EQ(array.entries(), sizeAfter(bounds, start, reached));
        }
    }
}

/// The index at a position by the definition, the leftmost axis without a bound.
Index indexOf(std::size_t position, const Index& bounds) {
    Index index(bounds.size());
    for (std::size_t axis = bounds.size(); axis-- > 1;) {
        index[axis] = static_cast<unsigned int>(position % bounds[axis]);
        position /= bounds[axis];
    }
    index[0] = static_cast<unsigned int>(position);
    return index;
}

TEST(TzSoapArrayProperty, ReshapedCompactArraysHaveTheSizeOfTheRule) {
    for (unsigned int seed = 6000; seed < 7000; ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const Index bounds = chance.bounds(1 + chance.below(4));
        const Index start = chance.start(bounds);
        TzSoapCompactArrayType array("xsd:int", bounds, start);
        Index reached = chance.index(bounds, start);
        reached[0] += chance.below(4);
        (void)array(reached);
        Index newBounds = chance.bounds(bounds.size());
        newBounds[0] = chance.oneIn(4) ? newBounds[0] : 0;

        std::vector<Index> kept;
        const std::size_t base = positionOf(start, bounds);
        for (std::size_t at = 0; at < array.entries(); ++at) {
            const Index index = indexOf(base + at, bounds);
            if (fits(index, newBounds, start)) {
                kept.push_back(index);
            }
        }
        array.setBounds(newBounds);
        ASSERT_EQ(array.entries(), sizeAfter(newBounds, start, kept));
    }
}

TEST(TzSoapArrayProperty, SparseArraysLikeAMapAndAList) {
    for (unsigned int seed = 2000; seed < 2300; ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const std::size_t axes = 1 + chance.below(5);
        TzSoapSparseArrayType array("xsd:int", chance.bounds(axes));
        const Index start(axes);
        Texts texts;
        std::vector<Index> order;
        for (unsigned int step = 0; step < 60; ++step) {
            if (chance.oneIn(20)) {
                const Index newBounds = chance.bounds(axes);
                array.setBounds(newBounds);
                dropMisfits(texts, newBounds, start);
                std::erase_if(order, [&](const Index& index) { return !texts.contains(index); });
            } else {
                const Index index = chance.index(array.getBounds(), start);
                if (!texts.contains(index)) {
                    order.push_back(index);
                }
                texts[index] = std::to_string(seed) + "." + std::to_string(step);
                assign(array, chance, index, texts[index]);
            }
        }
        expectTexts(array, texts, "");
        std::vector<Index> found;
        for (const auto& [index, value] : array) {
            found.push_back(index);
            EXPECT_EQ(itemText(value), texts.at(index));
        }
        EXPECT_EQ(found, order);
        EXPECT_EQ(array.entries(), texts.size());
    }
}

/// A message of the version that a text holds.
TzSoapMessage messageOfVersion(TzSoapVersion::Version version, const std::string& text) {
    TzSoapMessage message(version);
    message.extract(text);
    return message;
}

/// The array as only body entry of a message that was written and read again.
template <typename Array> Array readBack(TzSoapVersion::Version version, const Array& array) {
    TzSoapMessage message(version);
    message.getSoapBody().appendEntry(array);
    const std::string text = message.asString();
    const TzSoapMessage read = messageOfVersion(version, text);
    const std::string again = read.asString();
    if (text.find("unnamed") == std::string::npos) {
        EXPECT_EQ(again, text);
    } else {
        // Only what was read has a name, and declares it first.
        EXPECT_EQ(messageOfVersion(version, again).asString(), again);
    }
    return entryAs<Array>(read);
}

TEST(TzSoapArrayProperty, CompactArraysSurviveWritingAndReading) {
    for (unsigned int seed = 3000; seed < 3200; ++seed) {
        Chance chance(seed);
        const Index bounds = chance.bounds(1 + chance.below(5));
        const Index start = chance.start(bounds);
        TzSoapCompactArrayType array("list", "xsd:int", bounds, start);
        Texts texts;
        for (unsigned int count = chance.below(30) + 1; count > 0; --count) {
            const Index index = chance.index(bounds, start);
            texts[index] = std::to_string(count);
            array[index] = valueOf(texts[index]);
        }
        for (const TzSoapVersion::Version version : BothVersions) {
            SCOPED_TRACE(std::to_string(seed) + " as version " + std::to_string(version));
            const TzSoapCompactArrayType read = readBack(version, array);
            EXPECT_EQ(read.getBounds(), bounds);
            EXPECT_EQ(read.getOffsetAttribute(version), array.getOffsetAttribute(version));
            for (const auto& [index, text] : texts) {
                EXPECT_EQ(itemText(read[index]), text) << shown(index);
            }
            for (const TzSoapDefaultType& item : read) {
                const std::string text = itemText(item);
                EXPECT_EQ(item.isNull(), text.empty()); // held nothing between others
            }
        }
    }
}

TEST(TzSoapArrayProperty, ItemsFromTheOffsetOnSurviveWritingAndReading) {
    for (unsigned int seed = 7000; seed < 7200; ++seed) {
        Chance chance(seed);
        const Index bounds = chance.bounds(1 + chance.below(5));
        const Index start(bounds.size());
        TzSoapCompactArrayType array("list", "xsd:int", bounds, start);
        Texts texts;
        forEachIndex(bounds, start, [&](const Index& index) {
            texts[index] = shown(index);
            array[index] = valueOf(texts[index]);
        });
        const Index offset = chance.index(bounds, start);
        array.setOffset(offset);
        for (const TzSoapVersion::Version version : BothVersions) {
            SCOPED_TRACE(std::to_string(seed) + " as version " + std::to_string(version));
            const TzSoapCompactArrayType read = readBack(version, array);
            EXPECT_EQ(read.getOffsetAttribute(version), array.getOffsetAttribute(version));
            for (const auto& [index, text] : texts) {
                EXPECT_EQ(itemText(read[index]), index < offset ? "-" : text) << shown(index);
            }
        }
    }
}

TEST(TzSoapArrayProperty, SparseArraysSurviveWritingAndReading) {
    for (unsigned int seed = 4000; seed < 4200; ++seed) {
        Chance chance(seed);
        const Index bounds = chance.bounds(1 + chance.below(5));
        TzSoapSparseArrayType array("list", "xsd:int", bounds);
        for (unsigned int count = chance.below(40) + 1; count > 0; --count) {
            array[chance.index(bounds, Index(bounds.size()))] = valueOf(std::to_string(count));
        }
        for (const TzSoapVersion::Version version : BothVersions) {
            SCOPED_TRACE(std::to_string(seed) + " as version " + std::to_string(version));
            const TzSoapSparseArrayType read = readBack(version, array);
            EXPECT_EQ(read.getBounds(), bounds);
            ASSERT_EQ(read.entries(), array.entries());
            EXPECT_TRUE(std::equal(read.begin(), read.end(), array.begin(),
                                   [](const auto& left, const auto& right) {
                                       return left.first == right.first &&
                                              itemText(left.second) == itemText(right.second);
                                   }));
        }
    }
}

TEST(TzSoapArrayProperty, TextsOfVectorsReadAsTheyWereWritten) {
    Chance chance(5000);
    for (unsigned int count = 0; count < 2000; ++count) {
        Index vector(1 + chance.below(5));
        for (unsigned int& entry : vector) {
            entry = chance.oneIn(4) ? 0 : chance.below(4294967295U);
        }
        for (const TzSoapVersion::Version version : BothVersions) {
            const std::string text = TzSoapArrayType::vectorToString(vector, true, version);
            EXPECT_EQ(TzSoapArrayType::stringToVector(text), vector) << text;
        }
        Index bounds = vector;
        std::replace(bounds.begin() + 1, bounds.end(), 0U, 1U);
        for (const bool zeroAsDigit : {false, true}) {
            for (const TzSoapVersion::Version version : BothVersions) {
                const std::string text =
                    TzSoapArrayType::vectorToString(bounds, zeroAsDigit, version);
                EXPECT_EQ(TzSoapArrayTypeImp::stringToVector(text, true), bounds) << text;
            }
        }
    }
}

} // namespace
