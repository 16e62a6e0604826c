// SPDX-License-Identifier: MIT
#include "Echo.h"

#include "Input.h"
#include "Outgoing.h"
#include "Report.h"

#include <soap/TzSoapMessage.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

int echo(const Input& input) {
    return withMessage(input,
                       [](const TzSoapMessage& message) { std::cout << outgoingText(message); });
}

} // namespace

void addEcho(CLI::App& app, int& status) {
    CLI::App* const command = app.add_subcommand("echo", "Reads a message and writes it again");
    const auto input = std::make_shared<Input>();
    addInput(*command, *input);
    addLiteral(*command, input->package);
    command->callback([input, &status] { status = echo(*input); });
}
