// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBodyInBlock.h>

#include <type_traits>
#include <typeinfo>

class TzSoapCompositeTypeImp;
class TzSoapSimpleTypeImp;

/// Whether `actual` is the class `Body` itself, outside of a block or, where readers make such
/// bodies in blocks, within one.
template <typename Body> bool tzSoapIsExactly(const std::type_info& actual) noexcept {
    // Addresses are enough, because bodies of these classes are made in this library or from its
    // exported classes.
    if (&actual == &typeid(Body)) {
        return true;
    }
    if constexpr (std::is_same_v<Body, TzSoapSimpleTypeImp> ||
                  std::is_same_v<Body, TzSoapCompositeTypeImp>) {
        return &actual == &typeid(TzBodyInBlock<Body>);
    }
    return false;
}
