// SPDX-License-Identifier: MIT
#pragma once

#include "support/Samples.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What a run of the tool left behind.
struct ToolRun {
    int status;
    std::string out;
    std::string error;
};

/// An empty directory that is gone with this object; the tool is run in it.
class ToolDirectory {
public:
    ToolDirectory();
    ~ToolDirectory();
    ToolDirectory(const ToolDirectory&) = delete;
    ToolDirectory& operator=(const ToolDirectory&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }
    /// Makes the file `name`.
    void write(const std::string& name, std::string_view bytes) const;
    /// The bytes of the file `name`.
    std::string read(const std::string& name) const;
    /// The names of all files and directories in the directory, in order.
    std::vector<std::string> names(const std::string& directory = ".") const;
    /// Runs the tool with `arguments` and `input` as standard input. Standard output goes to `out`
    /// where that is not empty.
    ToolRun run(const std::vector<std::string>& arguments, std::string_view input = {},
                const std::filesystem::path& out = {}) const;

private:
    std::filesystem::path path_;
};

/// A file of the samples.
std::filesystem::path sample(const std::string& name);
/// A file of the data beside these tests.
std::filesystem::path data(const std::string& name);
/// Expects `text` to be what the golden file `name` holds.
void expectGolden(const std::string& text, const std::string& name);
