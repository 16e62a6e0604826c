# SPDX-License-Identifier: MIT
# Builds and runs the consumer against a copy that is installed below PREFIX; BY is package or pkgconfig.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/consume.cmake")

cmake_language(CALL consume_by_${BY} "${PREFIX}")
