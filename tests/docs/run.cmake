# SPDX-License-Identifier: MIT
# Runs PROGRAM, which has to end well and to print what is in the file EXPECTED.
cmake_minimum_required(VERSION 3.25)

execute_process(
    COMMAND "${PROGRAM}"
    OUTPUT_VARIABLE printed
    COMMAND_ERROR_IS_FATAL ANY)
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "printed:\n${printed}instead of:\n${expected}")
endif()
