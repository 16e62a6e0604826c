// SPDX-License-Identifier: MIT
#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

namespace {

/// A handle class and a body of a program that derives from the library's.
template <typename HandleOf, typename Base> struct Derived {
    using Handle = HandleOf;
    struct Body : Base {
        using Base::Base;
        Body* clone() const override { return new Body(*this); }
    };
};

template <typename Kind> class DerivedBodyCopy : public testing::Test {};
using Kinds =
    testing::Types<Derived<TzSoapBody, TzSoapBodyImp>, Derived<TzSoapHeader, TzSoapHeaderImp>,
                   Derived<TzSoapMessage, TzSoapMessageImp>>;
TYPED_TEST_SUITE(DerivedBodyCopy, Kinds);

} // namespace

TYPED_TEST(DerivedBodyCopy, IsMadeByTheBodysOwnClass) {
    using Handle = typename TypeParam::Handle;
    using Body = typename TypeParam::Body;
    const auto own = TzSoapAccess::handle<Handle>(new Body(TzSoapVersion::V1_1));
    const Handle copy = own.copy();
    EXPECT_FALSE(TzSoapAccess::sameBody(copy, own));
    EXPECT_NE(dynamic_cast<Body*>(&TzSoapAccess::body(copy)), nullptr);
}
