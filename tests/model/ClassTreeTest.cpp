// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapDefaultTypeImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapReferenceToMimePartImp.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>
#include <vector>

namespace {

template <typename Class, typename... Bases>
constexpr bool derives = (std::is_base_of_v<Bases, Class> && ...);

template <typename Base, typename... Classes>
constexpr bool isBaseOfAll = (std::is_base_of_v<Base, Classes> && ...);

/// Whether the parts of `object` that its bases make up lie in this order.
template <typename... Bases, typename Object> bool liesInOrder(const Object& object) {
    const std::vector<const void*> places = {static_cast<const Bases*>(&object)...};
    return places.front() == &object && std::is_sorted(places.begin(), places.end());
}

} // namespace

TEST(ClassTree, HandlesOfValues) {
    EXPECT_TRUE((isBaseOfAll<TzSoapType, TzSoapDefaultType, TzSoapSimpleType, TzSoapCompositeType,
                             TzSoapUserDefinedType, TzSoapReferenceType, TzSoapMisunderstoodType,
                             TzSoapArrayType>));
    EXPECT_TRUE((isBaseOfAll<TzSoapArrayType, TzSoapCompactArrayType, TzSoapSparseArrayType>));
    EXPECT_TRUE((derives<TzSoapType, TzHandleBase, TzSoapContentBase>));
    EXPECT_TRUE(liesInOrder<TzHandleBase>(TzSoapType()));
    EXPECT_TRUE(std::is_empty_v<TzSoapContentBase>);
}

TEST(ClassTree, HandlesOfMessages) {
    EXPECT_TRUE((isBaseOfAll<TzHandleBase, TzSoapHeader, TzSoapBody, TzSoapFault, TzSoapMessage>));
    EXPECT_TRUE((std::is_base_of_v<TzMessageBase, TzSoapMessage>));
    EXPECT_TRUE((liesInOrder<TzMessageBase, TzHandleBase>(TzSoapMessage())));
}

TEST(ClassTree, BodiesAreCountedUnderALock) {
    EXPECT_TRUE((std::is_same_v<TzBodyBase, TzTCountingBody<TzMutexLock>>));
    EXPECT_TRUE((std::is_base_of_v<TzTMonitor<TzMutexLock>, TzBodyBase>));
}

TEST(ClassTree, BodiesOfValues) {
    EXPECT_TRUE((std::is_base_of_v<TzXmlElementImp, TzSoapElementImp>));
    EXPECT_TRUE((liesInOrder<TzSoapElementImp, TzBodyBase>(TzSoapTypeImp())));
    EXPECT_TRUE((isBaseOfAll<TzSoapTypeImp, TzSoapSimpleTypeImp, TzSoapUserDefinedTypeImp,
                             TzSoapMisunderstoodTypeImp, TzSoapDefaultTypeImp>));
    EXPECT_FALSE((std::is_base_of_v<TzSoapGenericTypeHandler, TzSoapSimpleTypeImp>));
    EXPECT_TRUE((liesInOrder<TzSoapTypeImp, TzSoapGenericTypeHandler>(TzSoapCompositeTypeImp())));
    EXPECT_TRUE((derives<TzSoapArrayTypeImp, TzSoapTypeImp, TzSoapGenericTypeHandler>));
    EXPECT_TRUE((isBaseOfAll<TzSoapArrayTypeImp, TzSoapCompactArrayImp, TzSoapSparseArrayImp>));
    EXPECT_TRUE((derives<TzSoapReferenceTypeImp, TzSoapTypeImp, TzSoapGenericTypeHandler>));
    EXPECT_TRUE((isBaseOfAll<TzSoapReferenceTypeImp, TzSoapReferenceToSoapTypeImp,
                             TzSoapReferenceToMimePartImp>));
}

TEST(ClassTree, BodiesOfMessages) {
    using V = TzSoapVersion;
    EXPECT_TRUE((liesInOrder<TzSoapElementImp, TzBodyBase, TzSoapGenericTypeHandler>(
        TzSoapHeaderImp(V::V1_2))));
    EXPECT_TRUE((liesInOrder<TzSoapElementImp, TzBodyBase, TzSoapGenericTypeHandler>(
        TzSoapBodyImp(V::V1_2))));
    EXPECT_TRUE((liesInOrder<TzSoapElementImp, TzSoapContentHandler, TzBodyBase>(
        TzSoapMessageImp(V::V1_2))));
    EXPECT_TRUE((liesInOrder<TzBodyBase, TzSoapContentHandler>(
        TzSoapFaultImp(TzXmlName("Fault"), V::V1_2))));
    EXPECT_FALSE((std::is_base_of_v<TzXmlElementImp, TzSoapFaultImp>));
}
