# -DUTILSDLL_QT_MAJOR_VERSION=5 (the default) or 6: the Qt the whole tree builds
# against. The Qt 6 build installs under names of its own (UtilsDll-qt6: the library,
# the logger module, the headers' folder, the CMake and pkg-config packages), so that
# both can sit in one prefix; the Qt 5 build keeps the plain names.
set(UTILSDLL_QT_MAJOR_VERSION 5 CACHE STRING "Major version of Qt to build against: 5 or 6")
set_property(CACHE UTILSDLL_QT_MAJOR_VERSION PROPERTY STRINGS 5 6)
if(UTILSDLL_QT_MAJOR_VERSION STREQUAL "5")
    set(UTILSDLL_QT_MIN_VERSION 5.15)
    set(UTILSDLL_NAME_SUFFIX "")
elseif(UTILSDLL_QT_MAJOR_VERSION STREQUAL "6")
    set(UTILSDLL_QT_MIN_VERSION 6.4)
    set(UTILSDLL_NAME_SUFFIX "-qt6")
else()
    message(FATAL_ERROR "UTILSDLL_QT_MAJOR_VERSION is 5 or 6, not '${UTILSDLL_QT_MAJOR_VERSION}'")
endif()
set(UTILSDLL_QT Qt${UTILSDLL_QT_MAJOR_VERSION})
# The installed names: UtilsDll or UtilsDll-qt6.
set(UTILSDLL_PACKAGE_NAME UtilsDll${UTILSDLL_NAME_SUFFIX})

# utilsdll_find_qt(<component>...): components of the chosen Qt, found where they are
# used. Targets are linked by their versionless names (Qt::Widgets).
macro(utilsdll_find_qt)
    find_package(${UTILSDLL_QT} ${UTILSDLL_QT_MIN_VERSION} REQUIRED COMPONENTS ${ARGN})
endmacro()
