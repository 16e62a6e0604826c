// SPDX-License-Identifier: MIT
#include "Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

using Handle = std::unique_ptr<std::FILE, Close>;

[[noreturn]] void fail(int error) {
    throw std::runtime_error(std::generic_category().message(error));
}

Handle open(const char* file, const char* mode) {
    Handle opened(std::fopen(file, mode));
    if (!opened) {
        fail(errno);
    }
    return opened;
}

std::string readAll(std::FILE* in) {
    std::string text;
    std::array<char, 65536> piece;
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), in)) {
        text.append(piece.data(), count);
    }
    if (std::ferror(in) != 0) {
        fail(errno);
    }
    return text;
}

/// Writes `bytes` to the file that `mode` opens; an incomplete file is a failure.
void writeAs(const char* file, const char* mode, std::string_view bytes) {
    Handle out = open(file, mode);
    if (std::fwrite(bytes.data(), 1, bytes.size(), out.get()) != bytes.size() ||
        std::fclose(out.release()) != 0) {
        fail(errno);
    }
}

} // namespace

std::string files::shownName(const std::string& file) {
    return file == Standard ? "standard input" : file;
}

std::string files::read(const std::string& file) {
    return file == Standard ? readAll(stdin) : readAll(open(file.c_str(), "rb").get());
}

void files::write(const std::string& file, std::string_view bytes) {
    if (file == Standard) {
        std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return;
    }
    writeAs(file.c_str(), "wb", bytes);
}

void files::create(const std::filesystem::path& path, std::string_view bytes) {
    writeAs(path.c_str(), "wbx", bytes);
}
