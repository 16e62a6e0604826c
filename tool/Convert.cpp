// SPDX-License-Identifier: MIT
#include "Convert.h"

#include "Escape.h"
#include "Files.h"
#include "Input.h"
#include "Outgoing.h"
#include "Report.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersionConverter.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>
#include <memory>
#include <string>

namespace {

struct Options {
    Input input;
    TzSoapVersion::Version version{};
    std::string output = files::Standard;
};

const std::map<std::string, TzSoapVersion::Version>& versions() {
    static const std::map<std::string, TzSoapVersion::Version> known = {
        {"1.1", TzSoapVersion::V1_1},
        {"1.2", TzSoapVersion::V1_2Rec}, // the SOAP 1.2 of living services
        {"1.2-2002", TzSoapVersion::V1_2}};
    return known;
}

int convert(const Options& options) {
    std::string text;
    const ExitStatus status = withMessage(options.input, [&](const TzSoapMessage& read) {
        TzSoapMessage message = read;
        for (const TzCString& loss : TzSoapVersionConverter(options.version).convert(message)) {
            std::cerr << options.input.shownName() << ": " << escape::forTerminal(loss) << '\n';
        }
        text = outgoingText(message);
    });
    if (status != Done) {
        return status;
    }
    return reportFailures(options.output, [&] { files::write(options.output, text); });
}

} // namespace

void addConvert(CLI::App& app, int& status) {
    CLI::App* const command =
        app.add_subcommand("convert", "Rewrites a message for another version of SOAP");
    command->footer("What that version cannot carry is named on standard error; the exit status "
                    "is 0 then too.");
    const auto options = std::make_shared<Options>();
    addInput(*command, options->input);
    addLiteral(*command, options->input.package);
    command->add_option("--to", options->version, "The version to write")
        ->required()
        ->transform(CLI::CheckedTransformer(versions()).description("1.1|1.2|1.2-2002"));
    command->add_option("-o,--output", options->output,
                        "File for the message; standard output unless given");
    command->callback([options, &status] { status = convert(*options); });
}
