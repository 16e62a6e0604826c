// SPDX-License-Identifier: MIT
#include "Package.h"

#include "Attachment.h"
#include "Escape.h"
#include "MessageWalk.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <tz/mime/TzMimeContentTypeHeader.h>

#include <iostream>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {

/// Reports the references of an envelope to which no part belongs.
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

constexpr const char* Utf8 = "UTF-8";

/// The quoted text after a name and "=" in an XML declaration, "" if absent.
std::string_view valueOf(std::string_view name, std::string_view declaration) {
    const std::size_t at = declaration.find(name);
    if (at == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = declaration.substr(at + name.size());
    const std::size_t from = rest.find_first_of("\"'");
    if (from == std::string_view::npos ||
        rest.substr(0, from).find('=') == std::string_view::npos) {
        return {};
    }
    return rest.substr(from + 1, rest.find(rest[from], from + 1) - from - 1);
}

} // namespace

std::string packages::encodingOf(const std::string& xml) {
    constexpr std::size_t longestDeclaration = 256;
    const std::string_view head = std::string_view(xml).substr(0, longestDeclaration);
    if (head.find('\0') != std::string_view::npos) {
        return "UTF-16";
    }
    const std::size_t begin = head.find("<?xml");
    const std::size_t end = head.find("?>", begin);
    if (begin == std::string_view::npos || end == std::string_view::npos) {
        return Utf8;
    }
    const std::string_view name = valueOf("encoding", head.substr(begin, end - begin));
    return name.empty() ? Utf8 : std::string(name);
}

TzMimeMultipart packages::around(std::string envelope) {
    const TzSoapVersion::Version version = TzSoapHttpBinding::getVersion({}, envelope);
    TzMimeMultipart package = TzSoapMessage(version).asMimeMultipart();
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
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(package);
    DanglingReferences dangling(name);
    MessageWalk walk(dangling);
    message.acceptVisitor(walk);
}
