# validateFileName must answer, never crash, for any text a user can type. The file
# management sources are compiled into the target itself so that the fuzzer's
# coverage instrumentation sees the code under test, not only the entry point.
set(_fileManagementDir ${PROJECT_SOURCE_DIR}/modules/utilsDll)
if(WIN32)
    # No coverage build on Windows: the replay calls the DLL's own exports, which the
    # same functions compiled in beside would clash with.
    set(_fileManagementSources)
    set(_fileManagementLibraries)
else()
    set(_fileManagementSources ${_fileManagementDir}/FileManagement.cpp
        ${_fileManagementDir}/platform/linux/FileManagement.cpp
        ${_fileManagementDir}/platform/linux/RenameNoReplace.cpp)
    set(_fileManagementLibraries Qt5::DBus)
endif()
utilsdll_add_fuzzer(fuzz_file_names
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_file_names.cpp ${_fileManagementSources}
    LIBRARIES ${_fileManagementLibraries}
    INCLUDES ${_fileManagementDir}
    INPUTS ${CMAKE_CURRENT_LIST_DIR}/corpus/file_names)
