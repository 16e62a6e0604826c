# SPDX-License-Identifier: MIT

# Until 1.0 a minor version may change the binary interface.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(TZSOAP_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
else()
    set(TZSOAP_SOVERSION ${PROJECT_VERSION_MAJOR})
endif()

# Shared unless the program that builds the libraries asks for archives.
if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
    set(TZSOAP_LIBRARY_TYPE STATIC)
else()
    set(TZSOAP_LIBRARY_TYPE SHARED)
endif()

# What the libraries have in common: tzsoap_add_library(<target> <export name> <source>...). TZSOAP_EXPORT is the
# set that it is installed with.
set(TZSOAP_EXPORT TzSoapTargets)
function(tzsoap_add_library target export_name)
    add_library(${target} ${TZSOAP_LIBRARY_TYPE} ${ARGN})
    add_library(TzSoap::${export_name} ALIAS ${target})
    set_target_properties(
        ${target}
        PROPERTIES EXPORT_NAME ${export_name}
                   VERSION ${PROJECT_VERSION}
                   SOVERSION ${TZSOAP_SOVERSION}
                   POSITION_INDEPENDENT_CODE ON
                   INSTALL_RPATH "$ORIGIN")
    target_compile_features(${target} PUBLIC cxx_std_20)
    # Exported functions are never replaced by those of another library, so calls within one may be
    # inlined and need no table.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    target_link_options(
        ${target} PRIVATE -Wl,-Bsymbolic-functions
        -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/hidden-symbols.map)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS
                                                  "${PROJECT_SOURCE_DIR}/cmake/hidden-symbols.map")
    # The sanitizers of clang are in the program only.
    if(NOT TZSOAP_SANITIZERS)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    tzsoap_set_warnings(${target})
    # Built beside the usual libraries, which find what a source forgets to include: half the time is enough.
    if(TZSOAP_COUNT_WORK OR TZSOAP_SANITIZERS)
        target_precompile_headers(${target} PRIVATE <algorithm> <cstdint> <functional> <map> <memory>
                                  <optional> <set> <string> <string_view> <utility> <vector>)
    endif()
    if(TZSOAP_INSTALL)
        install(
            TARGETS ${target}
            EXPORT ${TZSOAP_EXPORT}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                    COMPONENT runtime
                    NAMELINK_COMPONENT development)
    endif()
endfunction()

# A library that is a folder: its headers in include/, for all who link it, and its sources in src/.
function(tzsoap_include_folder target)
    target_include_directories(
        ${target}
        PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE src)
endfunction()

# A library beside the two, which is a component of the package: tzsoap_add_component(<name> <export set> <library that it
# needs>)
function(tzsoap_add_component name export needed)
    file(GLOB sources CONFIGURE_DEPENDS src/*.cpp)
    set(TZSOAP_EXPORT ${export})
    tzsoap_add_library(tzsoap-${name} ${name} ${sources})
    tzsoap_include_folder(tzsoap-${name})
    target_link_libraries(
        tzsoap-${name}
        PUBLIC TzSoap::soap
        PRIVATE ${needed})
endfunction()

# Writes and installs the pkg-config file of a library from <name>.pc.in.
function(tzsoap_install_pkgconfig name)
    # A program that links archives links what they use as well.
    if(TZSOAP_LIBRARY_TYPE STREQUAL "STATIC")
        set(TZSOAP_PC_REQUIRES_PRIVATE Requires)
    else()
        set(TZSOAP_PC_REQUIRES_PRIVATE Requires.private)
    endif()
    # Relative to the file itself, so that an installed tree can be moved.
    cmake_path(SET pc_dir NORMALIZE "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY "${pc_dir}"
               OUTPUT_VARIABLE TZSOAP_PC_PREFIX)
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc"
                   @ONLY)
    install(
        FILES "${PROJECT_BINARY_DIR}/${name}.pc"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endfunction()
