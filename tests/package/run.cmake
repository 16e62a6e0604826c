# SPDX-License-Identifier: MIT
# Installs the build in BUILD_DIR below WORK_DIR, then builds and runs the consumer against that copy.
# With ARCHIVES no shared object of ours may be there.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/consume.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}" --component runtime)
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}" --component development)
file(GLOB_RECURSE shared "${prefix}/*.so*")
if(ARCHIVES AND shared)
    message(FATAL_ERROR "installed although archives were asked for: ${shared}")
endif()
consume("${prefix}")
