# SPDX-License-Identifier: MIT
# A project that contains the library, in SOURCE_DIR, installs nothing of it unless it says so.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/consume.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
file(WRITE "${WORK_DIR}/source/CMakeLists.txt"
     "cmake_minimum_required(VERSION 3.25)\nproject(Outer LANGUAGES CXX)\n"
     "add_subdirectory(\"${SOURCE_DIR}\" tzsoap)\n"
     "if(NOT TARGET TzSoap::soap)\n  message(FATAL_ERROR \"TzSoap::soap is missing\")\nendif()\n")
run(${CMAKE_COMMAND} -S "${WORK_DIR}/source" -B "${WORK_DIR}/build"
    -D CMAKE_CXX_COMPILER=${CXX_COMPILER})
# Nothing is built: a rule that installs a library would fail.
run(${CMAKE_COMMAND} --install "${WORK_DIR}/build" --prefix "${WORK_DIR}/prefix")
file(GLOB_RECURSE installed "${WORK_DIR}/prefix/*")
if(installed)
    message(FATAL_ERROR "installed unasked: ${installed}")
endif()
