# SPDX-License-Identifier: MIT
# consume(PREFIX): builds and runs the consumer against the copy installed below PREFIX twice: by the
# CMake package and by pkg-config; with HTTP and WS those of these components as well. Expects WORK_DIR, CXX_COMPILER,
# LIBDIR and VERSION.

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(consumer_output "SOAPMessage:http://schemas.xmlsoap.org/soap/envelope/\n${VERSION}\n")
set(http_consumer_output "http://127.0.0.1:1/\n")
set(ws_consumer_output "ann\n")
set(components)
if(HTTP)
    list(APPEND components http)
endif()
if(WS)
    list(APPEND components ws)
endif()

function(expect_output how expected)
    execute_process(
        COMMAND ${ARGN} COMMAND_ECHO STDOUT
        OUTPUT_VARIABLE output
        COMMAND_ERROR_IS_FATAL ANY)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "${how}: the consumer printed\n${output}instead of\n${expected}")
    endif()
    message(STATUS "${how}: the consumer runs")
endfunction()

function(expect_file file)
    if(NOT EXISTS "${file}")
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endfunction()

function(consume_by_package prefix)
    list(JOIN components , wanted)
    run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_FUNCTION_LIST_DIR}" -B "${WORK_DIR}/by_package"
        -D CMAKE_BUILD_TYPE=Release -D CMAKE_CXX_COMPILER=${CXX_COMPILER}
        -D CMAKE_PREFIX_PATH=${prefix} -D WANTED_VERSION=${VERSION} -D
        WANTED_COMPONENTS=${wanted})
    run(${CMAKE_COMMAND} --build "${WORK_DIR}/by_package")
    expect_output(find_package "${consumer_output}" "${WORK_DIR}/by_package/consumer")
    foreach(component IN LISTS components)
        expect_output(find_package "${${component}_consumer_output}"
                      "${WORK_DIR}/by_package/${component}_consumer")
    endforeach()
endfunction()

# Compiles and runs `program` with what pkg-config says about `library`.
function(consume_library prefix library program)
    find_program(PKG_CONFIG pkg-config REQUIRED)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    execute_process(
        COMMAND ${PKG_CONFIG} --cflags --libs ${library}
        OUTPUT_VARIABLE flags
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    file(MAKE_DIRECTORY "${WORK_DIR}/by_pkgconfig")
    run(${CXX_COMPILER} -std=c++20 "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${program}.cpp" ${flags} -o
        "${WORK_DIR}/by_pkgconfig/${program}")
    expect_output(pkg-config "${${program}_output}" ${CMAKE_COMMAND} -E env
                  LD_LIBRARY_PATH=${prefix}/${LIBDIR} "${WORK_DIR}/by_pkgconfig/${program}")
endfunction()

function(consume_by_pkgconfig prefix)
    consume_library("${prefix}" tzsoap consumer)
    foreach(component IN LISTS components)
        consume_library("${prefix}" tzsoap-${component} ${component}_consumer)
    endforeach()
endfunction()

function(consume prefix)
    expect_file("${prefix}/share/doc/TzSoap/LICENSE")
    consume_by_package("${prefix}")
    consume_by_pkgconfig("${prefix}")
endfunction()
