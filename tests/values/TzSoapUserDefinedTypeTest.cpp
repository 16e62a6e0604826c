// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedType.h>

#include <soap/TzSoapUserDefinedTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace {

using UserDefined = TzSoapUserDefinedType;
using Imp = TzSoapUserDefinedTypeImp;

} // namespace

TEST(TzSoapUserDefinedType, StartsEmpty) {
    const UserDefined value;
    EXPECT_EQ(value.getValue(), "");
    EXPECT_TRUE(value.getName().isEmpty());
    EXPECT_EQ(value.getSoapTypeId(), UserDefined::UserDefined);
    EXPECT_EQ(value.getSoapTypeIdAsString(), "UserDefined");
    EXPECT_EQ(&value.getSoapTypeIdAsString(), &TzSoapUtils::userDefinedString);
}

TEST(TzSoapUserDefinedType, ShowsTheMarkupOfItsBody) {
    const UserDefined value;
    TzSoapAccess::body(value).setValue("<a  x=\"1\">&</a>");
    EXPECT_EQ(value.getValue(), "<a  x=\"1\">&</a>");
}

TEST(TzSoapUserDefinedType, ABodyTakesItsMarkupByMove) {
    TzCString markup(100, 'x');
    const char* const buffer = markup.data();
    Imp body("n", std::move(markup));
    EXPECT_EQ(body.getValue().data(), buffer);
    EXPECT_EQ(body.getName(), TzXmlName("n"));
    TzCString other(100, 'y');
    const char* const otherBuffer = other.data();
    body.setValue(std::move(other));
    EXPECT_EQ(body.getValue().data(), otherBuffer);
}

TEST(TzSoapUserDefinedType, CopiesOfTheHandleShareTheBody) {
    const UserDefined value;
    const UserDefined shared = value;
    UserDefined assigned;
    assigned = value;
    TzSoapAccess::body(shared).setValue("<b/>");
    EXPECT_EQ(value.getValue(), "<b/>");
    EXPECT_EQ(assigned.getValue(), "<b/>");
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 3U);
}

TEST(TzSoapUserDefinedType, ClonesAreIndependent) {
    Imp body("n", "<n/>");
    body.addAttribute("a", "1");
    const std::unique_ptr<TzSoapElementImp> clone(body.clone());
    auto& copied = dynamic_cast<Imp&>(*clone);
    EXPECT_EQ(copied.getValue(), "<n/>");
    EXPECT_EQ(copied.getName(), TzXmlName("n"));
    EXPECT_TRUE(copied.hasAttribute(TzXmlName("a")));
    copied.setValue("<m/>");
    EXPECT_EQ(body.getValue(), "<n/>");
}

TEST(TzSoapUserDefinedType, CopyClonesTheBody) {
    const UserDefined value;
    TzSoapAccess::body(value).setValue("<b/>");
    const UserDefined copy = value.copy();
    EXPECT_EQ(copy.getValue(), "<b/>");
    EXPECT_FALSE(TzSoapAccess::sameBody(value, copy));
}

TEST(TzSoapUserDefinedType, RefusesEverythingWithoutABody) {
    const UserDefined none = TzSoapAccess::handle<UserDefined>(static_cast<Imp*>(nullptr));
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { none.getValue(); }), "Invalid pointer");
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { none.copy(); }), "Invalid pointer");
}
