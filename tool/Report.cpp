// SPDX-License-Identifier: MIT
#include "Report.h"

#include "Escape.h"
#include "Input.h"
#include "LiteralHints.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapUtils.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzXmlError.h>

#include <exception>
#include <iostream>
#include <utility>

namespace {

/// What `error` says besides the place, which precedes it already.
std::string textWithoutPlace(const Tzxmsg& error) {
    const auto* const known = dynamic_cast<const TzXmlError*>(&error);
    std::string text = known != nullptr ? known->getMessage().asString() : error.asString();
    return error.getDetail().empty() ? text : text + " (" + error.getDetail() + ')';
}

/// Reports a failure; `place` says where in the file lines are counted.
void printFailure(const std::string& file, const char* place, const std::exception& error) {
    std::cerr << file;
    const auto* const known = dynamic_cast<const Tzxmsg*>(&error);
    std::string text = known != nullptr ? known->describe() : error.what();
    if (known != nullptr && known->getLine() != 0) {
        std::cerr << place << ':' << known->getLine() << ':' << known->getColumn();
        text = textWithoutPlace(*known);
    }
    std::cerr << ": " << escape::forTerminal(text) << '\n';
}

ExitStatus report(const std::string& file, const char* place, const std::function<void()>& work) {
    try {
        work();
        return Done;
    } catch (const std::exception& error) {
        printFailure(file, place, error);
        return Failed;
    }
}

} // namespace

ExitStatus reportFailures(const std::string& file, const std::function<void()>& work) {
    return report(file, "", work);
}

ExitStatus withMessage(const Input& input, const std::function<void(const TzSoapMessage&)>& work) {
    const std::string name = input.shownName();
    std::string text;
    TzSoapMessage message;
    message.setReadLimits(
        {.incompletePackages = input.package.incomplete, .soap12Recommendation = true});
    if (input.package.literal) {
        message.setStyle(TzSoapStyle::Literal);
    }
    TzMimeMultipart package;
    bool isPackage = false;
    const ExitStatus status = reportFailures(name, [&] {
        text = input.read();
        isPackage = TzSoapUtils::isMimeMultipart(text);
        if (isPackage) {
            package.fromString(std::move(text));
        }
    });
    return status == Failed ? status : report(name, isPackage ? " (envelope)" : "", [&] {
        isPackage ? message.extract(package) : message.extract(text);
        text = std::string();
        reportLosses(name, isPackage ? " (envelope)" : "", message);
        if (!input.package.literal && LiteralHints::looksLiteral(message)) {
            std::cerr << name << ": hint: the message looks literal; --literal reads it as it is\n";
        }
        work(message);
    });
}

void reportLosses(const std::string& name, const char* place, const TzSoapMessage& message) {
    if (message.hasDroppedText()) {
        const TzSoapDroppedText dropped = message.getDroppedText();
        std::cerr << name << place << ':' << dropped.line << ':' << dropped.column
                  << ": warning: text beside elements is left out, " << dropped.count
                  << (dropped.count == 1 ? " piece\n" : " pieces\n");
    }
    const TzSoapBody& body = message.getSoapBody();
    if (body.hasFaultElement() && !body.hasSoapFault()) {
        const TzCString& reason = body.getSoapFault().getReason();
        std::cerr << name << ": warning: a Fault without a code is left out"
                  << (reason.empty() ? "" : ", its reason is " + escape::quoted(reason)) << '\n';
    }
}
