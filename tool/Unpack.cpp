// SPDX-License-Identifier: MIT
#include "Unpack.h"

#include "Escape.h"
#include "Files.h"
#include "Input.h"
#include "Report.h"

#include <soap/TzSoapUtils.h>
#include <tz/mime/TzMimeMultipart.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "PartFacts.h"

namespace {

struct Options {
    Input input;
    std::string directory;
    bool force = false;
};

/// A part and the file that it goes to.
struct Target {
    TzMimePart part;
    PartFacts facts;
    std::filesystem::path file;
};

constexpr const char* EnvelopeFile = "envelope.xml";
constexpr std::size_t LongestName = 64;

bool mayStandInName(char character) {
    constexpr std::string_view others = "._-+";
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || others.find(character) != others.npos;
}

/// The name that a part states: the begin of its content id, else the end of its location.
std::string_view ownName(const PartFacts& facts) {
    std::string_view name = facts.contentId;
    if (!name.empty()) {
        return name.substr(0, name.find('@'));
    }
    name = std::string_view(facts.location).substr(0, facts.location.find_first_of("?#"));
    return name.substr(name.find_last_of('/') + 1);
}

/// A file name that received bytes can make neither a path nor another part's name: the number
/// comes first.
std::string fileName(std::size_t position, const PartFacts& facts) {
    const std::string_view own = ownName(facts).substr(0, LongestName);
    std::string name = std::to_string(position) + '-' + std::string(own.empty() ? "part" : own);
    std::replace_if(
        name.begin(), name.end(), [](char character) { return !mayStandInName(character); }, '_');
    return name;
}

std::vector<Target> targets(const TzMimeMultipart& package, const std::string& directory) {
    const std::size_t root = package.findRootPart();
    if (root == TzMimePart::NotFound) {
        throw std::runtime_error(package.hasParts()
                                     ? "holds no part that its Content-Type names as the envelope"
                                     : "is no package of parts");
    }
    std::vector<Target> found;
    for (std::size_t position = 0; position < package.getPartCount(); ++position) {
        TzMimePart part = package.getPart(position);
        PartFacts facts = PartFacts::of(part);
        const std::string name = position == root ? EnvelopeFile : fileName(position, facts);
        found.push_back(
            {std::move(part), std::move(facts), directory / std::filesystem::path(name)});
    }
    return found;
}

/// Removes existing files, or refuses if one of them exists.
ExitStatus makeWay(const std::vector<Target>& targets, bool force) {
    int status = Done;
    for (const Target& target : targets) {
        status |= reportFailures(target.file.string(), [&] {
            if (force) {
                std::filesystem::remove(target.file);
            } else if (std::filesystem::exists(std::filesystem::symlink_status(target.file))) {
                throw std::runtime_error("is there already; --force replaces it");
            }
        });
    }
    return static_cast<ExitStatus>(status);
}

std::string shown(const std::string& text) {
    return text.empty() ? "-" : escape::forTerminal(text);
}

ExitStatus write(const Target& target) {
    return reportFailures(target.file.string(), [&] {
        files::create(target.file, target.part.getBodyView());
        std::cout << target.file.string() << '\t' << target.facts.size << '\t'
                  << shown(target.facts.type) << '\t' << shown(target.facts.contentId) << '\t'
                  << shown(target.facts.location) << '\n';
    });
}

ExitStatus writeAll(const std::vector<Target>& targets) {
    std::cout << "file\tsize\ttype\tcontent id\tlocation\n";
    for (const Target& target : targets) {
        if (write(target) == Failed) {
            return Failed;
        }
    }
    return Done;
}

int unpack(const Options& options) {
    std::vector<Target> found;
    ExitStatus status = reportFailures(options.input.shownName(), [&] {
        TzMimeMultipart package;
        package.fromString(options.input.read());
        found = targets(package, options.directory);
        if (!package.isComplete() && !options.input.package.incomplete) {
            throw std::runtime_error("the package is cut short: it has no closing line");
        }
    });
    if (status == Done) {
        status = reportFailures(options.directory,
                                [&] { std::filesystem::create_directories(options.directory); });
    }
    if (status == Done) {
        status = makeWay(found, options.force);
    }
    return status == Done ? writeAll(found) : status;
}

} // namespace

void addUnpack(CLI::App& app, int& status) {
    CLI::App* const command =
        app.add_subcommand("unpack", "Writes envelope and attachments of a package to files");
    command->footer(
        "The envelope becomes DIR/envelope.xml, every other part DIR/NUMBER-NAME with the "
        "part's number in\nthe package and a name made of its content id or location. An "
        "index of all files goes to standard\noutput: file, size, type, content id, "
        "location, with tabs between them.");
    const auto options = std::make_shared<Options>();
    addInput(*command, options->input);
    command->add_option("DIR", options->directory, "Directory for the files, made if need be")
        ->required();
    command->add_flag("--force", options->force, "Replace files that are there already");
    command->callback([options, &status] { status = unpack(*options); });
}
