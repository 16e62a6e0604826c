// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What GMime, an independent MIME library, makes of a package.
namespace GMimeOracle {

/// A part as label and value of each header, values unfolded and trimmed, and the decoded body.
struct Part {
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
};

/// A package.
struct Package {
    std::string boundary;
    std::vector<Part> parts;
};

/// Reads the package that `text` holds; no boundary and no parts if it holds none.
Package read(std::string_view text);

} // namespace GMimeOracle
