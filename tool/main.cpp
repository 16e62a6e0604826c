// SPDX-License-Identifier: MIT
#include "Commands.h"

#include <soap/TzSoapLibraryVersion.h>

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

int main(int argc, char** argv) {
    CLI::App app("Shows and rewrites SOAP messages.", "tzsoap");
    app.set_version_flag("--version", "tzsoap " TZSOAP_LIBRARY_VERSION);
    app.require_subcommand(1);

    std::vector<std::string> shown;
    CLI::App* show = app.add_subcommand("show", "Prints messages as trees");
    show->add_option("FILE", shown, "Files to read; standard input when there is none");

    std::string echoed;
    CLI::App* echo = app.add_subcommand("echo", "Reads a message and writes it again");
    echo->add_option("FILE", echoed, "File to read")->required();

    CLI11_PARSE(app, argc, argv);
    return show->parsed() ? commands::show(shown) : commands::echo(echoed);
}
