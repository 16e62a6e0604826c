# SPDX-License-Identifier: MIT
# Installs the build in BUILD_DIR below WORK_DIR, then builds and runs the consumer against that
# copy twice: by the CMake package and by pkg-config.
cmake_minimum_required(VERSION 3.25)

set(prefix "${WORK_DIR}/prefix")
set(libraries "${prefix}/${LIBDIR}")
set(expected "SOAPMessage:http://schemas.xmlsoap.org/soap/envelope/\n${VERSION}\n")

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(expect_output how)
    execute_process(
        COMMAND ${ARGN} COMMAND_ECHO STDOUT
        OUTPUT_VARIABLE output
        COMMAND_ERROR_IS_FATAL ANY)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "${how}: the consumer printed\n${output}instead of\n${expected}")
    endif()
    message(STATUS "${how}: the consumer runs")
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}" --component runtime)
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}" --component development)

run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}" -B "${WORK_DIR}/by_package" -G Ninja
    -D CMAKE_BUILD_TYPE=Release -D CMAKE_CXX_COMPILER=${CXX_COMPILER}
    -D CMAKE_PREFIX_PATH=${prefix} -D WANTED_VERSION=${VERSION})
run(${CMAKE_COMMAND} --build "${WORK_DIR}/by_package")
expect_output(find_package "${WORK_DIR}/by_package/consumer")

find_program(PKG_CONFIG pkg-config REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${libraries}/pkgconfig")
execute_process(
    COMMAND ${PKG_CONFIG} --cflags --libs tzsoap
    OUTPUT_VARIABLE flags
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
file(MAKE_DIRECTORY "${WORK_DIR}/by_pkgconfig")
run(${CXX_COMPILER} -std=c++20 "${CMAKE_CURRENT_LIST_DIR}/consumer.cpp" ${flags} -o
    "${WORK_DIR}/by_pkgconfig/consumer")
expect_output(pkg-config ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${libraries}
              "${WORK_DIR}/by_pkgconfig/consumer")
