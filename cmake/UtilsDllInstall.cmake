# Install rules: the library, its headers flat under include/UtilsDll, an umbrella
# header that includes them all, and a CMake package for find_package(UtilsDll).
include(CMakePackageConfigHelpers)

# Included where the library is made (modules/CMakeLists.txt), which lists its public
# headers in UTILSDLL_PUBLIC_HEADERS.
set(_umbrella "${UTILSDLL_GENERATED_HEADERS}/UtilsDll.h")
set(_content "// Generated: includes every public header of UtilsDll.\n#pragma once\n\n")
foreach(header IN LISTS UTILSDLL_PUBLIC_HEADERS)
    get_filename_component(name "${header}" NAME)
    string(APPEND _content "#include \"${name}\"\n")
endforeach()
file(GENERATE OUTPUT "${_umbrella}" CONTENT "${_content}")

target_include_directories(UtilsDll PUBLIC
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/UtilsDll>)

install(TARGETS UtilsDll EXPORT UtilsDllTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/UtilsDll)
install(FILES "${_umbrella}" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/UtilsDll)

set(_cmakedir ${CMAKE_INSTALL_LIBDIR}/cmake/UtilsDll)
install(EXPORT UtilsDllTargets NAMESPACE UtilsDll:: DESTINATION ${_cmakedir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/UtilsDllConfig.cmake.in
    ${CMAKE_BINARY_DIR}/UtilsDllConfig.cmake INSTALL_DESTINATION ${_cmakedir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/UtilsDllConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/UtilsDllConfig.cmake ${CMAKE_BINARY_DIR}/UtilsDllConfigVersion.cmake
    DESTINATION ${_cmakedir})

# A pkg-config file for builds that do not use CMake, relocatable like the CMake package:
# its prefix is found from where the file lies.
file(RELATIVE_PATH _pcToPrefix "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" _pcToPrefix "${_pcToPrefix}")
string(REPLACE ";" " Qt5" _pcRequires "Qt5${UTILSDLL_QT_COMPONENTS}")
file(WRITE "${CMAKE_BINARY_DIR}/UtilsDll.pc" "prefix=\${pcfiledir}/${_pcToPrefix}
libdir=\${prefix}/${CMAKE_INSTALL_LIBDIR}
includedir=\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}

Name: UtilsDll
Description: Shared utility library of the photo geometry-correction product
Version: ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}
Requires: ${_pcRequires}
Libs: -L\${libdir} -lUtilsDll
Cflags: -I\${includedir} -I\${includedir}/UtilsDll
")
install(FILES "${CMAKE_BINARY_DIR}/UtilsDll.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
