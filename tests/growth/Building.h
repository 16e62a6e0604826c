// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// What the texts of the families are put together from.
namespace growth {

/// `unit(0)`, `unit(1)` and so on, one after the other, until they have `bytes`.
std::string fill(std::size_t bytes, const std::function<std::string(std::size_t)>& unit);
/// `unit` as often as it takes.
std::string fill(std::size_t bytes, std::string_view unit);
/// `unit` `times` times.
std::string times(std::size_t times, std::string_view unit);

/// `before`, the number, `after`.
std::string numbered(std::string_view before, std::size_t number, std::string_view after = "");

/// What an envelope is made of.
struct Envelope {
    std::string body;            ///< Content of the Body.
    std::string header = {};     ///< Content of the Header; empty: no Header.
    std::string attributes = {}; ///< Of the Envelope, each after a blank.
    std::string ofBody = {};     ///< Attributes of the Body.
    std::string prefix = "s";    ///< Of the envelope namespace.
};

/// A SOAP 1.1 message; xsi, xsd and e (the encoding) are declared.
std::string soap11(const Envelope& envelope);
/// The same with this content of the Body.
std::string soap11(const std::string& body);
/// A SOAP 1.2 message; as above.
std::string soap12(const Envelope& envelope);
/// The same with this content of the Body.
std::string soap12(const std::string& body);

/// A message of SOAP 1.2 of 2003; as above.
std::string soap12Rec(const Envelope& envelope);
/// The same with this content of the Body.
std::string soap12Rec(const std::string& body);

/// Structs of about `bytes` in all: each has an id and a member that refers to the next struct, the
/// last one's to the first. `idOf` and `refTo` write an attribute up to its number.
std::string oneRing(std::size_t bytes, std::string_view idOf, std::string_view refTo);

/// What a package is made of.
struct Package {
    std::string envelope;         ///< Its root part.
    std::string parts;            ///< The other parts, see `part`.
    std::string headers = {};     ///< Header lines of the package, each with its end.
    std::string rootHeaders = {}; ///< Header lines of the root part.
    std::string parameters = {};  ///< Of the package's type, each after a semicolon.
    std::string boundary = "B";   ///< Without the leading hyphens.
    std::string preamble = {};    ///< Before the first part.
};

/// A package of that.
std::string package(const Package& package);
/// A part with these header lines, for a package with the boundary B.
std::string part(const std::string& headers, const std::string& body);

} // namespace growth
