// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "TreePrinter.h"

#include <soap/TzSoapMessage.h>
#include <tz/xml/TzXmlParseError.h>

#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace {

constexpr const char* StandardInput = "-";

std::string readAll(std::istream& in) {
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string readFile(const std::string& file) {
    if (file == StandardInput) {
        return readAll(std::cin);
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot be opened");
    }
    std::string text = readAll(in);
    if (in.bad()) {
        throw std::runtime_error("cannot be read");
    }
    return text;
}

/// Reads the message in `file` and hands it to `work`; true unless something failed, which is told on
/// standard error.
bool withMessage(const std::string& file, const std::function<void(const TzSoapMessage&)>& work) {
    const std::string shownName = file == StandardInput ? "standard input" : file;
    try {
        TzSoapMessage message;
        message.extract(readFile(file));
        work(message);
        return true;
    } catch (const TzXmlParseError& error) {
        std::cerr << shownName << ':' << error.getLine() << ':' << error.getColumn() << ": "
                  << error.what() << '\n';
    } catch (const std::exception& error) {
        std::cerr << shownName << ": " << error.what() << '\n';
    }
    return false;
}

} // namespace

int commands::show(const std::vector<std::string>& files) {
    const std::vector<std::string> all =
        files.empty() ? std::vector<std::string>{StandardInput} : files;
    bool good = true;
    for (const std::string& file : all) {
        good &= withMessage(file, [&file, several = all.size() > 1](const TzSoapMessage& message) {
            if (several) {
                std::cout << file << ":\n";
            }
            TreePrinter printer(std::cout);
            message.acceptVisitor(printer);
        });
    }
    return good ? 0 : 1;
}

int commands::echo(const std::string& file) {
    return withMessage(file,
                       [](const TzSoapMessage& message) { std::cout << message.asString(); })
               ? 0
               : 1;
}
