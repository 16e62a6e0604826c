// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

/// What errors say of values.
namespace TzSoapValueText {

/// How errors call a value: by its name, as far as it has one.
inline TzCString described(const TzSoapType& value) {
    return TzSoapArrayTypeImp::isPlaceholder(value)
               ? TzCString("an array position without item")
               : "element " + tzQuoted(value.getName().getQualifiedName());
}

/// The error text about a value that is not `wanted`, such as "a composite".
inline TzCString notOfKind(const TzSoapType& value, const char* wanted) {
    return described(value) + " is not " + wanted + " but of kind " +
           tzQuoted(value.getSoapTypeIdAsString());
}

} // namespace TzSoapValueText
