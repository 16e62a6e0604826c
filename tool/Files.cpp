// SPDX-License-Identifier: MIT
#include "Files.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace {

std::string readAll(std::istream& in) {
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace

std::string files::shownName(const std::string& file) {
    return file == Standard ? "standard input" : file;
}

std::string files::read(const std::string& file) {
    if (file == Standard) {
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
