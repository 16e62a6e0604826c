// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// The bytes of `file`.
inline std::string readFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in.good()) << file;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// Every message and package among the samples, in order.
inline std::vector<std::filesystem::path> sampleFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TZSOAP_SAMPLES_DIR)) {
        const auto extension = entry.path().extension();
        if (extension == ".xml" || extension == ".mime") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}
