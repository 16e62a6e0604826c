// SPDX-License-Identifier: MIT
#include "Show.h"

#include "Input.h"
#include "JsonPrinter.h"
#include "MessageWalk.h"
#include "Report.h"
#include "TreePrinter.h"

#include <soap/TzSoapMessage.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Options {
    std::vector<std::string> files;
    PackageOptions package;
    bool json = false;
};

void print(const TzSoapMessage& message, ElementSink&& sink) {
    MessageWalk walk(sink);
    message.acceptVisitor(walk);
}

ExitStatus showFile(const Input& input, bool asJson, bool several) {
    return withMessage(input, [&](const TzSoapMessage& message) {
        if (asJson) {
            return print(message, JsonPrinter(std::cout, input.file));
        }
        if (several) {
            std::cout << input.shownName() << ":\n";
        }
        print(message, TreePrinter(std::cout));
    });
}

int show(const Options& options) {
    const std::vector<std::string> all =
        options.files.empty() ? std::vector<std::string>{files::Standard} : options.files;
    int status = Done;
    for (const std::string& file : all) {
        status |= showFile({file, options.package}, options.json, all.size() > 1);
    }
    return status;
}

} // namespace

void addShow(CLI::App& app, int& status) {
    CLI::App* const command = app.add_subcommand("show", "Prints messages as trees");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->files, "Files to read; standard input without any");
    addPackageOptions(*command, options->package);
    addLiteral(*command, options->package);
    command->add_flag("--json", options->json,
                      "Print each message as a JSON document; docs/tool.md describes it");
    command->callback([options, &status] { status = show(*options); });
}
