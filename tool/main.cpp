// SPDX-License-Identifier: MIT
#ifdef TZSOAP_HTTP_CLIENT
#include "Call.h"
#endif
#include "Convert.h"
#include "Echo.h"
#include "Pack.h"
#include "Report.h"
#include "Show.h"
#include "Unpack.h"

#include <soap/TzSoapLibraryVersion.h>

#include <CLI/CLI.hpp>

#include <iostream>

int main(int argc, char** argv) {
    CLI::App app("Shows, rewrites and sends SOAP messages.", "tzsoap");
    app.set_version_flag("--version", "tzsoap " TZSOAP_LIBRARY_VERSION);
    app.require_subcommand(1);

    int status = Done;
    addShow(app, status);
    addEcho(app, status);
    addConvert(app, status);
    addUnpack(app, status);
    addPack(app, status);
#ifdef TZSOAP_HTTP_CLIENT
    addCall(app, status);
#endif

    CLI11_PARSE(app, argc, argv);
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "standard output: cannot be written\n";
        return Failed;
    }
    return status;
}
