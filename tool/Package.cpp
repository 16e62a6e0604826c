// SPDX-License-Identifier: MIT
#include "Package.h"

#include "Attachment.h"
#include "Escape.h"
#include "MessageWalk.h"

#include <soap/TzSoapMessage.h>
#include <tz/mime/TzMimeContentTypeHeader.h>

#include <iostream>
#include <optional>
#include <regex>
#include <stdexcept>
#include <utility>

namespace {

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

} // namespace

std::string packages::encodingOf(const std::string& xml) {
    constexpr std::size_t longestDeclaration = 256;
    const std::string head = xml.substr(0, longestDeclaration);
    if (head.find('\0') != std::string::npos) {
        return "UTF-16";
    }
    static const std::regex declaration(R"(<\?xml[^>]*\sencoding\s*=\s*["']([\w.\-]+)["'])");
    std::smatch found;
    return std::regex_search(head, found, declaration) ? found[1].str() : "UTF-8";
}

TzMimeMultipart packages::around(std::string envelope) {
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

void packages::insert(TzMimeMultipart& package, const std::string& argument) {
    const Attachment attachment = Attachment::parse(argument);
    if (package.findPartById(attachment.contentId) != TzMimePart::NotFound) {
        throw std::runtime_error("another part has its content id " + attachment.contentId);
    }
    package.insertPart(attachment.toPart());
}

void packages::check(const TzMimeMultipart& package, const std::string& name) {
    TzSoapMessage message;
    message.extract(package);
    DanglingReferences dangling(name);
    MessageWalk walk(dangling);
    message.acceptVisitor(walk);
}
