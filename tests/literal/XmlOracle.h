// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// What libxml2 says about XML texts.
namespace XmlOracle {

/// `xml` in inclusive canonical form, comments and processing instructions left out.
/// `std::runtime_error` for a text that is not well formed.
std::string canonical(std::string_view xml);

/// Why the only child of the Body of the message `xml` is not valid by `schema`; "" when it is.
/// `std::runtime_error` for a text or a schema that cannot be read.
std::string whyInvalid(std::string_view schema, std::string_view xml);

} // namespace XmlOracle
