// SPDX-License-Identifier: MIT
#include "Pack.h"

#include "Attachment.h"
#include "Files.h"
#include "Package.h"
#include "Report.h"

#include <tz/mime/TzMimeMultipart.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace {

struct Options {
    std::string envelope;
    std::vector<std::string> attachments;
    std::string output = files::Standard;
};

int pack(const Options& options) {
    const std::string envelope = files::shownName(options.envelope);
    TzMimeMultipart made;
    int status =
        reportFailures(envelope, [&] { made = packages::around(files::read(options.envelope)); });
    for (const std::string& argument : options.attachments) {
        status |= reportFailures(argument, [&] { packages::insert(made, argument); });
    }
    if (status == Done) {
        status = reportFailures(envelope, [&] { packages::check(made, envelope); });
    }
    if (status == Done) {
        status =
            reportFailures(options.output, [&] { files::write(options.output, made.asString()); });
    }
    return status;
}

} // namespace

void addPack(CLI::App& app, int& status) {
    CLI::App* const command =
        app.add_subcommand("pack", "Makes a package of an envelope and attachments");
    const auto options = std::make_shared<Options>();
    command->add_option("ENVELOPE", options->envelope, "File with the envelope, taken as it is")
        ->required();
    command->add_option("PART", options->attachments, AttachmentHelp)->required();
    command->add_option("-o,--output", options->output,
                        "File for the package; standard output unless given");
    command->callback([options, &status] { status = pack(*options); });
}
