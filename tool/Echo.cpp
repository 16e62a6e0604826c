// SPDX-License-Identifier: MIT
#include "Echo.h"

#include "Report.h"

#include <soap/TzSoapMessage.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>

namespace {

struct Options {
    std::string file;
};

int echo(const Options& options) {
    return withMessage(options.file,
                       [](const TzSoapMessage& message) { std::cout << message.asString(); });
}

} // namespace

void addEcho(CLI::App& app, int& status) {
    CLI::App* const command = app.add_subcommand("echo", "Reads a message and writes it again");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->file, "File to read")->required();
    command->callback([options, &status] { status = echo(*options); });
}
