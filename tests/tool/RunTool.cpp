// SPDX-License-Identifier: MIT
#include "tool/RunTool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

/// What a child does to its files before it runs.
class FileActions {
public:
    FileActions() { posix_spawn_file_actions_init(&actions_); }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void redirect(int descriptor, const std::filesystem::path& file, int flags) {
        constexpr mode_t mode = 0600;
        posix_spawn_file_actions_addopen(&actions_, descriptor, file.c_str(), flags, mode);
    }
    void changeDirectory(const std::filesystem::path& directory) {
        posix_spawn_file_actions_addchdir_np(&actions_, directory.c_str());
    }
    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

int spawnAndWait(std::vector<std::string> arguments, const FileActions& actions) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, TZSOAP_TOOL, actions.get(), nullptr, pointers.data(), environ) != 0) {
        throw std::runtime_error("the tool cannot be run");
    }
    int state = 0;
    if (waitpid(child, &state, 0) != child || !WIFEXITED(state)) {
        throw std::runtime_error("the tool did not end by itself");
    }
    return WEXITSTATUS(state);
}

} // namespace

ToolDirectory::ToolDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tzsoap-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no directory can be made");
    }
    path_ = pattern;
}

ToolDirectory::~ToolDirectory() { std::filesystem::remove_all(path_); }

void ToolDirectory::write(const std::string& name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
}

std::string ToolDirectory::read(const std::string& name) const { return readFile(path_ / name); }

std::vector<std::string> ToolDirectory::names(const std::string& directory) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_ / directory)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

ToolRun ToolDirectory::run(const std::vector<std::string>& arguments, std::string_view input,
                           const std::filesystem::path& out) const {
    const ToolDirectory files;
    files.write("in", input);
    FileActions actions;
    actions.redirect(STDIN_FILENO, files.path() / "in", O_RDONLY);
    actions.redirect(STDOUT_FILENO, out.empty() ? files.path() / "out" : out, O_WRONLY | O_CREAT);
    actions.redirect(STDERR_FILENO, files.path() / "error", O_WRONLY | O_CREAT);
    actions.changeDirectory(path_);
    std::vector<std::string> all = {"tzsoap"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const int status = spawnAndWait(all, actions);
    return {status, out.empty() ? files.read("out") : std::string(), files.read("error")};
}

std::filesystem::path sample(const std::string& name) {
    return std::filesystem::path(TZSOAP_SAMPLES_DIR) / name;
}

std::filesystem::path data(const std::string& name) {
    return std::filesystem::path(TZSOAP_TOOL_TESTS_DIR) / "data" / name;
}

void expectGolden(const std::string& text, const std::string& name) {
    EXPECT_EQ(text, readFile(std::filesystem::path(TZSOAP_TOOL_TESTS_DIR) / "golden" / name))
        << name;
}
