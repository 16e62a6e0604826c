// SPDX-License-Identifier: MIT
#include "Echo.h"
#include "Show.h"

#include <soap/TzSoapLibraryVersion.h>

#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
    CLI::App app("Shows and rewrites SOAP messages.", "tzsoap");
    app.set_version_flag("--version", "tzsoap " TZSOAP_LIBRARY_VERSION);
    app.require_subcommand(1);

    int status = 0;
    addShow(app, status);
    addEcho(app, status);

    CLI11_PARSE(app, argc, argv);
    return status;
}
