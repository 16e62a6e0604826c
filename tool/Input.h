// SPDX-License-Identifier: MIT
#pragma once

#include "Files.h"

#include <string>

namespace CLI {
class App;
}

/// A message file that a command reads.
struct Input {
    std::string file = files::Standard;
    std::string contentType; ///< Of a package whose file has no header lines, "" otherwise.

    /// How failures call the file.
    std::string shownName() const { return files::shownName(file); }
    /// The text of the file, with a header line for the content type where there is one.
    std::string read() const;
};

/// Adds the option "--content-type" to `command`; it sets `contentType`.
void addContentType(CLI::App& command, std::string& contentType);
/// Adds the argument "FILE", which is required, and the options of an input to `command`.
void addInput(CLI::App& command, Input& input);
