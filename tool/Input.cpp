// SPDX-License-Identifier: MIT
#include "Input.h"

#include <CLI/CLI.hpp>

std::string Input::read() const {
    std::string text = files::read(file);
    return package.contentType.empty() ? text
                                       : "Content-Type: " + package.contentType + "\r\n\r\n" + text;
}

void addPackageOptions(CLI::App& command, PackageOptions& options) {
    command.add_option("--content-type", options.contentType,
                       "The Content-Type of a package whose file does not begin with header lines");
    command.add_flag("--incomplete", options.incomplete,
                     "Read a package that was cut short, as far as it goes");
}

void addLiteral(CLI::App& command, PackageOptions& options) {
    command.add_flag("--literal", options.literal,
                     "Take the message as it stands, not by the rules of SOAP encoding");
}

void addInput(CLI::App& command, Input& input) {
    command.add_option("FILE", input.file, "File to read; - is standard input")->required();
    addPackageOptions(command, input.package);
}
