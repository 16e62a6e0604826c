// SPDX-License-Identifier: MIT
#include "Input.h"

#include <CLI/CLI.hpp>

std::string Input::read() const {
    const std::string text = files::read(file);
    return contentType.empty() ? text : "Content-Type: " + contentType + "\r\n\r\n" + text;
}

void addContentType(CLI::App& command, std::string& contentType) {
    command.add_option("--content-type", contentType,
                       "The Content-Type of a package whose file does not begin with header lines");
}

void addInput(CLI::App& command, Input& input) {
    command.add_option("FILE", input.file, "File to read; - is standard input")->required();
    addContentType(command, input.contentType);
}
