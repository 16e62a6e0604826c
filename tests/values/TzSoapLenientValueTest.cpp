// SPDX-License-Identifier: MIT
#include <soap/TzSoapLenientValue.h>
#include <soap/TzSoapSimpleType.h>

#include <gtest/gtest.h>

#include <type_traits>

TEST(TzSoapLenientValue, IsTheValueReaderUnderItsFirstName) {
    EXPECT_TRUE((std::is_same_v<TzSoapLenientValue, TzSoapValueReader>));
    const TzSoapSimpleType amount("amount", "+7", TzSoapContentBase::xsdUnknown, false);
    EXPECT_EQ(TzSoapLenientValue(amount).getInt(), 7);
}
