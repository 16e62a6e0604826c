// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlError.h>
#include <tz/xml/TzXmlInternalError.h>
#include <tz/xml/TzXmlParseError.h>

/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlError& error);
/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlParseError& error);
/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlInternalError& error);
/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlBadArgError& error);
/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlDomainError& error);
/// Throws a copy of `error` as exactly its static class.
[[noreturn]] TZ_PLATFORM_API void TzThrow(const TzXmlBoundsError& error);
