# validateFileName must answer, never crash, for any text a user can type. The file
# management sources are compiled into the target itself so that the fuzzer's
# coverage instrumentation sees the code under test, not only the entry point.
set(_fileManagementDir ${PROJECT_SOURCE_DIR}/modules/utilsDll)
if(WIN32)
    set(_fileManagementPlatform ${_fileManagementDir}/platform/win/FileManagement.cpp)
    set(_fileManagementLibraries shell32 ole32)
    set(_fileManagementDefinitions UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
else()
    set(_fileManagementPlatform ${_fileManagementDir}/platform/linux/FileManagement.cpp
        ${_fileManagementDir}/platform/linux/RenameNoReplace.cpp)
    set(_fileManagementLibraries Qt5::DBus)
endif()
utilsdll_add_fuzzer(fuzz_file_names
    SOURCES
        ${CMAKE_CURRENT_LIST_DIR}/fuzz_file_names.cpp
        ${_fileManagementDir}/FileManagement.cpp
        ${_fileManagementPlatform}
    LIBRARIES ${_fileManagementLibraries}
    INCLUDES ${_fileManagementDir}
    INPUTS ${CMAKE_CURRENT_LIST_DIR}/corpus/file_names)
if(_fileManagementDefinitions AND TARGET fuzz_file_names_replay)
    target_compile_definitions(fuzz_file_names_replay PRIVATE ${_fileManagementDefinitions})
endif()
