// SPDX-License-Identifier: MIT
#pragma once

#include "Files.h"

#include <string>

namespace CLI {
class App;
}

/// What is known of messages and packages besides their files.
struct PackageOptions {
    std::string contentType; ///< Of a package whose file has no header lines, "" otherwise.
    bool incomplete = false; ///< Whether a package may lack its end.
    bool literal = false;    ///< Whether the message is read and written literally.
};

/// A message file that a command reads.
struct Input {
    std::string file = files::Standard;
    PackageOptions package;

    /// The name of the file in reports of failures.
    std::string shownName() const { return files::shownName(file); }
    /// The text of the file, with a header line for the content type where there is one.
    std::string read() const;
};

/// Adds the options "--content-type" and "--incomplete" to `command`; they set `options`.
void addPackageOptions(CLI::App& command, PackageOptions& options);
/// Adds the option "--literal" to `command`; it sets `options`.
void addLiteral(CLI::App& command, PackageOptions& options);
/// Adds the argument "FILE", which is required, and the options of an input to `command`.
void addInput(CLI::App& command, Input& input);
