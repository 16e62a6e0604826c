// SPDX-License-Identifier: MIT
#pragma once

#include "CodePoints.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHttpResult.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

/// The values that travel between the stacks, and how they are compared.
namespace values {

using Base = TzSoapContentBase;

/// Types that came back as others: sent, received.
using TypeChanges = std::set<std::pair<std::string, std::string>>;

TzSoapSimpleType makeString(const char* name, const std::string& text);
TzSoapSimpleType makeInt(const char* name, int number);
TzSoapSimpleType makeNil(const char* name);
/// Each byte once.
TzSoapSimpleType makeBytes(const char* name);
TzSoapCompositeType makePerson(const char* name, const std::string& own, int age);
TzSoapCompositeType makeNested(const char* name);
TzSoapCompactArrayType makeInts(const char* name, const std::vector<int>& numbers);
TzSoapCompactArrayType makeStrings(const char* name, const std::vector<std::string>& texts);
TzSoapCompactArrayType makePersons(const char* name, unsigned int count);
/// The type of a simple value, `xsdUnknown` of any other.
Base::SchemaType schemaTypeOf(const TzSoapType& value);
/// `value`, or what it refers to, as a struct. `std::runtime_error` for another value.
TzSoapCompositeType structOf(const TzSoapType& value);
/// The member of that local name, whatever its namespace. `std::runtime_error` without one.
TzSoapType member(const TzSoapCompositeType& parent, const std::string& name);
/// The text of the first element of that local name in the tree, "" without one.
std::string findDeep(const TzSoapType& value, const std::string& name);
/// Whether both are, or refer to, one value.
bool sameValue(const TzSoapType& left, const TzSoapType& right);

/// How `received` differs from `sent`, "" when it does not: values as their types compare them,
/// members by name, items in order. Types that differ are added to `changes`.
std::string difference(const TzSoapType& sent, const TzSoapType& received, TypeChanges& changes);

/// What a failure says after the URL, which is another in each run.
std::string reasonOf(const TzSoapTransportError& failure);
/// The message in `result`, be it a fault; `std::runtime_error` with the reason of a failure.
TzSoapMessage messageIn(const TzSoapHttpResult& result);

/// `text` without line breaks and tabs, and not longer than a line.
std::string onOneLine(std::string text);

} // namespace values
