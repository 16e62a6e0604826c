# SPDX-License-Identifier: MIT

# The message library itself holds no network code; the servers among the programs use cpp-httplib.
cmake_dependent_option(
    TZSOAP_HTTP "Build the programs that talk HTTP (their servers need cpp-httplib)" ${PROJECT_IS_TOP_LEVEL}
    "TZSOAP_BUILD_TOOL OR TZSOAP_BUILD_EXAMPLES OR TZSOAP_BUILD_TESTS" OFF)
if(TZSOAP_HTTP AND (TZSOAP_BUILD_EXAMPLES OR TZSOAP_BUILD_TESTS))
    find_package(PkgConfig REQUIRED)
    find_package(Threads REQUIRED)
    pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET GLOBAL cpp-httplib)
    add_library(tzsoap_http INTERFACE)
    target_link_libraries(tzsoap_http INTERFACE PkgConfig::HTTPLIB Threads::Threads)
endif()

# The client is a separate library, for those who want it; the programs here do.
option(TZSOAP_HTTP_CLIENT "Build TzSoap::http, the HTTP client (needs libcurl)" ${TZSOAP_HTTP})
