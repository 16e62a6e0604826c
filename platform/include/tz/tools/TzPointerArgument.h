// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <type_traits>

/// An argument that the language would take for a boolean without a word: a pointer of any kind.
/// Operations on booleans delete their overload for it.
template <typename Argument>
concept TzPointerArgument = std::is_pointer_v<Argument> || std::is_member_pointer_v<Argument> ||
    std::is_null_pointer_v<Argument>;

/// A pointer to something else than `char`, such as `u8"text"` or the address of a string.
/// Operations on texts and booleans delete their overload for it.
template <typename Argument>
concept TzStrayPointer = TzPointerArgument<Argument> && !std::convertible_to<Argument, const char*>;
