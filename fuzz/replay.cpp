// SPDX-License-Identifier: MIT
// Gives every file below the folders named as arguments to the target it is linked with, without a
// fuzzer: so any compiler and any sanitizer can run what fuzzers have found.
#include "FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <iterator>

int main(int count, char** arguments) {
    std::size_t replayed = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[i])) {
            if (!entry.is_regular_file()) {
                continue;
            }
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout); // the last name is that of the finding
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++replayed;
        }
    }
    std::printf("replayed: %zu\n", replayed);
    return replayed == 0 ? 1 : 0;
}
