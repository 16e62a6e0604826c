// SPDX-License-Identifier: MIT
#include "TzXmlCharacterTable.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace {

/// A conversion to big-endian UTF-32, closed at the end.
class Conversion {
public:
    explicit Conversion(const char* from) noexcept : handle_(iconv_open("UTF-32BE", from)) {}
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    ~Conversion() {
        if (known()) {
            iconv_close(handle_);
        }
    }

    bool known() const noexcept {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    /// The character of `byte`, -1 if it has none. False when `byte` alone does not end a
    /// character.
    bool convert(unsigned char byte, int& code) noexcept {
        char in = static_cast<char>(byte);
        std::array<char, 8> out{};
        char* from = &in;
        char* to = out.data();
        std::size_t inLeft = 1;
        std::size_t outLeft = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &from, &inLeft, &to, &outLeft) == static_cast<std::size_t>(-1)) {
            code = -1;
            return errno == EILSEQ;
        }
        code = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            code = code * 256 + static_cast<unsigned char>(out.at(i));
        }
        return outLeft == out.size() - 4;
    }

private:
    iconv_t handle_;
};

} // namespace

bool tzFillCharacterTable(const char* name, int (&codes)[256]) noexcept {
    Conversion conversion(name);
    if (!conversion.known()) {
        return false;
    }
    for (int byte = 0; byte < 256; ++byte) {
        if (!conversion.convert(static_cast<unsigned char>(byte), codes[byte])) {
            return false;
        }
    }
    return true;
}
