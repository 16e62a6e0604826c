// SPDX-License-Identifier: MIT
#include "Pack.h"

#include "Attachment.h"
#include "Escape.h"
#include "Files.h"
#include "MessageWalk.h"
#include "Report.h"

#include <soap/TzSoapMessage.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <optional>
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

/// Tells which references of an envelope no part answers.
class DanglingReferences : public ElementSink {
public:
    explicit DanglingReferences(std::string file) : file_(std::move(file)) {}

    void beginMessage(VersionText) override {}
    void endMessage() override {}
    void begin(const Element& element) override {
        const std::optional<ReferenceFacts>& reference = element.reference;
        if (reference && !reference->part && reference->text.starts_with("cid:")) {
            std::cerr << file_ << ": warning: no part for the reference "
                      << escape::quoted(reference->text) << '\n';
        }
    }
    void end() override {}
    void attachment(std::size_t, const PartFacts&) override {}

private:
    std::string file_;
};

/// Reads what is about to be sent as a receiver will.
void check(const TzMimeMultipart& package, const std::string& file) {
    TzSoapMessage message;
    message.extract(package);
    DanglingReferences dangling(file);
    MessageWalk walk(dangling);
    message.acceptVisitor(walk);
}

int pack(const Options& options) {
    const std::string envelope = files::shownName(options.envelope);
    TzMimeMultipart package;
    int status =
        reportFailures(envelope, [&] { package = packageOf(files::read(options.envelope)); });
    for (const std::string& argument : options.attachments) {
        status |= reportFailures(argument, [&] { insert(package, argument); });
    }
    if (status == Done) {
        status = reportFailures(envelope, [&] { check(package, envelope); });
    }
    if (status == Done) {
        status = reportFailures(options.output,
                                [&] { files::write(options.output, package.asString()); });
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
