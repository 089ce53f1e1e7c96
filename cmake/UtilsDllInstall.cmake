# Install rules: the library, its headers flat under include/UtilsDll, an umbrella
# header that includes them all, and a CMake package for find_package(UtilsDll).
include(CMakePackageConfigHelpers)

# Included where the library is made (modules/CMakeLists.txt), which lists its public
# headers in UTILSDLL_PUBLIC_HEADERS. Every name below is UTILSDLL_PACKAGE_NAME's:
# UtilsDll, or UtilsDll-qt6 for a Qt 6 build, whose headers go into a folder of their
# own (include/UtilsDll-qt6/UtilsDll) so that both builds install into one prefix.
set(_name ${UTILSDLL_PACKAGE_NAME})
if(UTILSDLL_NAME_SUFFIX)
    set(_includeRoot ${CMAKE_INSTALL_INCLUDEDIR}/${_name})
else()
    set(_includeRoot ${CMAKE_INSTALL_INCLUDEDIR})
endif()

set(_umbrella "${UTILSDLL_GENERATED_HEADERS}/UtilsDll.h")
set(_content "// Generated: includes every public header of UtilsDll.\n#pragma once\n\n")
foreach(header IN LISTS UTILSDLL_PUBLIC_HEADERS)
    get_filename_component(header "${header}" NAME)
    string(APPEND _content "#include \"${header}\"\n")
endforeach()
file(GENERATE OUTPUT "${_umbrella}" CONTENT "${_content}")

target_include_directories(UtilsDll PUBLIC
    $<INSTALL_INTERFACE:${_includeRoot}>
    $<INSTALL_INTERFACE:${_includeRoot}/UtilsDll>)

install(TARGETS UtilsDll EXPORT UtilsDllTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    PUBLIC_HEADER DESTINATION ${_includeRoot}/UtilsDll)
install(FILES "${_umbrella}" DESTINATION ${_includeRoot}/UtilsDll)

# find_package(UtilsDll) or find_package(UtilsDll-qt6); the target is UtilsDll::UtilsDll.
set(_cmakedir ${CMAKE_INSTALL_LIBDIR}/cmake/${_name})
install(EXPORT UtilsDllTargets NAMESPACE UtilsDll:: DESTINATION ${_cmakedir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/UtilsDllConfig.cmake.in
    ${CMAKE_BINARY_DIR}/${_name}Config.cmake INSTALL_DESTINATION ${_cmakedir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/${_name}ConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/${_name}Config.cmake ${CMAKE_BINARY_DIR}/${_name}ConfigVersion.cmake
    DESTINATION ${_cmakedir})

# A pkg-config file for builds that do not use CMake, relocatable like the CMake package:
# its prefix is found from where the file lies.
file(RELATIVE_PATH _pcToPrefix "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" _pcToPrefix "${_pcToPrefix}")
string(REPLACE ";" " ${UTILSDLL_QT}" _pcRequires "${UTILSDLL_QT}${UTILSDLL_QT_COMPONENTS}")
file(WRITE "${CMAKE_BINARY_DIR}/${_name}.pc" "prefix=\${pcfiledir}/${_pcToPrefix}
libdir=\${prefix}/${CMAKE_INSTALL_LIBDIR}
includedir=\${prefix}/${_includeRoot}

Name: ${_name}
Description: Shared utility library of the photo geometry-correction product
Version: ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}
Requires: ${_pcRequires}
Libs: -L\${libdir} -l${_name}
Cflags: -I\${includedir} -I\${includedir}/UtilsDll
")
install(FILES "${CMAKE_BINARY_DIR}/${_name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
