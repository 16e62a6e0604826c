# SPDX-License-Identifier: MIT

# Headers, CMake package and pkg-config files of the libraries.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TzSoap)

install(
    DIRECTORY platform/include/tz include/soap "${PROJECT_BINARY_DIR}/generated/include/soap"
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development
    FILES_MATCHING
    PATTERN "*.h")

install(
    EXPORT TzSoapTargets
    NAMESPACE TzSoap::
    DESTINATION ${package_dir}
    COMPONENT development)

# What a library beside the two installs: its headers, and its targets as a component of the package.
function(tzsoap_install_component directory targets)
    install(
        DIRECTORY ${directory}/include/soap
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development
        FILES_MATCHING
        PATTERN "*.h")
    install(
        EXPORT ${targets}
        NAMESPACE TzSoap::
        DESTINATION ${package_dir}
        COMPONENT development)
    tzsoap_install_pkgconfig(tzsoap-${directory})
endfunction()

configure_package_config_file(cmake/TzSoapConfig.cmake.in "${PROJECT_BINARY_DIR}/TzSoapConfig.cmake"
                              INSTALL_DESTINATION ${package_dir})
# As the SOVERSION does: below 1.0 only the same minor version fits.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
else()
    set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TzSoapConfigVersion.cmake"
                                 COMPATIBILITY ${compatibility})
install(
    FILES "${PROJECT_BINARY_DIR}/TzSoapConfig.cmake"
          "${PROJECT_BINARY_DIR}/TzSoapConfigVersion.cmake"
    DESTINATION ${package_dir}
    COMPONENT development)

install(
    FILES LICENSE
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT runtime)

tzsoap_install_pkgconfig(tzsoap-platform)
tzsoap_install_pkgconfig(tzsoap)
if(TZSOAP_HTTP_CLIENT)
    tzsoap_install_component(http TzSoapHttpTargets)
endif()
if(TZSOAP_WS)
    tzsoap_install_component(ws TzSoapWsTargets)
endif()
