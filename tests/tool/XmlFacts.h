// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// What an XML text says, as libxml2 reads it, in a form that can be compared.
namespace XmlFacts {

/// A line for each element in the order of the text, indented by depth: its name, its attributes
/// in the order of their names, its text. Names have their namespace in braces, and so have values
/// and texts that are qualified names. Left out is what a message may be written again with or
/// without: prefixes, white space between elements, the SOAP encodingStyle, and the size of an
/// empty array. `std::runtime_error` for a text that is not well formed.
std::string of(std::string_view xml);

} // namespace XmlFacts
