// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapIsExactly.h"

#include <string>
#include <typeinfo>

/// Throws `TzXmlDomainError`: the handle of class `handle` refers to a body of another kind.
[[noreturn]] inline void tzSoapRefuseBody(const char* handle) {
    TzThrow(TzXmlDomainError(
        TzMessage(std::string(handle) + ": the handle refers to a value of another kind")));
}

/// `body` as a `Body`; `TzXmlDomainError` that names the class of the handle for another body.
///
/// A handle of a specific kind gets a body of another kind when something is assigned to it as a
/// `TzSoapType&`. Comparisons find the class itself and the `Usual` ones derived from it, a cast
/// finds those that programs derive.
template <typename Body, typename... Usual>
Body& tzSoapBodyAs(TzBodyBase& body, const char* handle) {
    const std::type_info& actual = typeid(body);
    if ((tzSoapIsExactly<Usual>(actual) || ... || tzSoapIsExactly<Body>(actual))) [[likely]] {
        return static_cast<Body&>(body);
    }
    if (auto* const derived = dynamic_cast<Body*>(&body)) {
        return *derived;
    }
    tzSoapRefuseBody(handle);
}
