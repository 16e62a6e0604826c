// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>

#include <string>

/// The messages that are measured.
namespace workloads {

/// A request of about 1 KB: a header entry and five parameters.
TzSoapMessage request();

/// A body entry of `structs` structs of five members: string, int, double, boolean and dateTime,
/// each with its type. 10,000 of them make about 4 MB of text.
TzSoapMessage structs(int structs);

/// Number of values in what `structs` makes: the entry, its structs and their members.
constexpr int valuesOf(int structs) { return 1 + structs * 6; }

/// One array of `items` xsd:int.
TzSoapMessage intArray(int items);

/// An array of `structs` structs of five members.
TzSoapMessage structArray(int structs);

/// A sparse array of `members` xsd:int, every third position.
TzSoapMessage sparseArray(int members);

/// `references` references to `references / 20` shared structs.
TzSoapMessage references(int references);

/// One string of 16 MiB that is written with a reference in each line of about 60 bytes.
TzSoapMessage referenceText();

/// One string of 16 MiB of which one character in 20 is written as a reference.
TzSoapMessage escapedText();

/// The text of `message`.
std::string textOf(const TzSoapMessage& message);

} // namespace workloads
