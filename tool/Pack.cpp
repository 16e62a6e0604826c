// SPDX-License-Identifier: MIT
#include "Pack.h"

#include "Attachment.h"
#include "Files.h"
#include "Report.h"

#include <soap/TzSoapMessage.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Options {
    std::string envelope;
    std::vector<std::string> attachments;
    std::string output = files::Standard;
};

/// The encoding that the XML text states, which is what a Content-Type must not contradict.
std::string encodingOf(const std::string& xml) {
    constexpr std::size_t longestDeclaration = 256;
    const std::string head = xml.substr(0, longestDeclaration);
    if (head.find('\0') != std::string::npos) {
        return "UTF-16";
    }
    static const std::regex declaration(R"(<\?xml[^>]*\sencoding\s*=\s*["']([\w.\-]+)["'])");
    std::smatch found;
    return std::regex_search(head, found, declaration) ? found[1].str() : "UTF-8";
}

/// A package of the envelope as it stands in the file.
TzMimeMultipart packageOf(std::string envelope) {
    TzMimeMultipart package = TzSoapMessage().asMimeMultipart();
    TzMimePart root = package.getPart(0);
    const std::size_t position = root.findHeader(TzMimeContentTypeHeader::Label);
    TzMimeContentTypeHeader(root.getHeader(position))
        .getContentType()
        .setParameter("charset", encodingOf(envelope));
    root.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "binary"));
    root.setBody(std::move(envelope));
    return package;
}

void insert(TzMimeMultipart& package, const std::string& argument) {
    const Attachment attachment = Attachment::parse(argument);
    if (package.findPart(TzMimeContentIdHeader(attachment.contentId)) != TzMimePart::NotFound) {
        throw std::runtime_error("another part has its content id " + attachment.contentId);
    }
    package.insertPart(attachment.toPart());
}

int pack(const Options& options) {
    TzMimeMultipart package;
    int status = reportFailures(files::shownName(options.envelope), [&] {
        std::string envelope = files::read(options.envelope);
        TzSoapMessage().extract(envelope); // only what can be read is sent
        package = packageOf(std::move(envelope));
    });
    for (const std::string& argument : options.attachments) {
        status |= reportFailures(argument, [&] { insert(package, argument); });
    }
    if (status != Done) {
        return status;
    }
    return reportFailures(options.output,
                          [&] { files::write(options.output, package.asString()); });
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
