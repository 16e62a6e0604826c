// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace growth {

/// Texts of one shape and of any size, each a way to make a library work more than the size says.
struct Family {
    const char* name;                       ///< An identifier.
    const char* sender;                     ///< Who sends that, or why it was thought of.
    std::string (*text)(std::size_t bytes); ///< A message of about that size.
};

using Families = std::vector<Family>;

/// Those that are read, and whose cost is tested.
Families accepted();
/// Those that are measured only, because they cost too much still.
Families untested();
/// Those that the default limits or the rules of XML and SOAP refuse.
Families refused();

// By theme.
Families attributes();
Families prefixes();
Families prefixClashes();
Families references();
Families depth();
Families styles();
Families arrays();
Families sparseArrays();
Families texts();
Families encodings();
Families values();
Families headers();
Families faults();
Families parts();
Families partHeaders();
Families prologs();
Families literals();
Families finals();
Families records();

} // namespace growth
