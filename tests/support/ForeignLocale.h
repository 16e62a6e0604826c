// SPDX-License-Identifier: MIT
#pragma once

#include <clocale>
#include <locale>
#include <string>

/// As long as it lives, the global locale writes 1.234,5 and calls true "ja".
class ForeignLocale {
public:
    ForeignLocale()
        : c_(std::setlocale(LC_ALL, nullptr)),
          cpp_(std::locale::global(std::locale(std::locale::classic(), new Punctuation))) {
        // Not on every machine; the C++ locale above is.
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ForeignLocale(const ForeignLocale&) = delete;
    ForeignLocale& operator=(const ForeignLocale&) = delete;
    ~ForeignLocale() {
        std::locale::global(cpp_);
        std::setlocale(LC_ALL, c_.c_str());
    }

private:
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
        std::string do_truename() const override { return "ja"; }
        std::string do_falsename() const override { return "nein"; }
    };

    std::string c_;
    std::locale cpp_;
};
