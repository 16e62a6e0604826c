// SPDX-License-Identifier: MIT
#include "Report.h"

#include "Escape.h"
#include "Input.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapUtils.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlParseError.h>

#include <exception>
#include <iostream>
#include <utility>

namespace {

/// Tells a failure; `place` says where in the file lines are counted.
void tell(const std::string& file, const char* place, const std::exception& error) {
    std::cerr << file;
    const auto* const parseError = dynamic_cast<const TzXmlParseError*>(&error);
    const bool placed = parseError != nullptr && parseError->getLine() != 0;
    if (placed) {
        std::cerr << place << ':' << parseError->getLine() << ':' << parseError->getColumn();
    }
    // Some texts end with the place that the file name has already.
    const std::string text = placed ? parseError->getMessage().asString() : error.what();
    std::cerr << ": " << escape::forTerminal(text) << '\n';
}

ExitStatus report(const std::string& file, const char* place, const std::function<void()>& work) {
    try {
        work();
        return Done;
    } catch (const std::exception& error) {
        tell(file, place, error);
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
    message.setReadLimits({.incompletePackages = input.package.incomplete});
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
        work(message);
    });
}
