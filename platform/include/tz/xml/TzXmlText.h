// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlUtils.h>

#include <concepts>
#include <string_view>
#include <type_traits>

/// Characters up to a NUL, such as a literal. A concept, not a type: "{}" does not become a null
/// pointer.
template <typename Argument>
concept TzXmlCharacters = std::convertible_to<Argument, const char*> &&
    (std::is_pointer_v<Argument> || std::is_null_pointer_v<Argument>);

/// A text that is not a `TzCString`. Operations that take a `const TzCString&` take these too.
template <typename Argument>
concept TzXmlText = TzXmlCharacters<Argument> || std::same_as<Argument, std::string_view>;

/// A copy of `text`.
inline TzCString tzXmlText(std::string_view text) { return TzCString(text); }
/// A copy of `text`; `TzXmlBadArgError` for a null pointer.
inline TzCString tzXmlText(const char* text) { return TzCString(TzXmlUtils::requireText(text)); }
