# The PE version reader parses whatever file a process name leads to.
if(NOT WIN32)
    utilsdll_add_fuzzer(fuzz_pe_version
        SOURCES
            ${CMAKE_CURRENT_LIST_DIR}/fuzz_pe_version.cpp
            ${PROJECT_SOURCE_DIR}/modules/utilsDll/platform/linux/PeVersionReader.cpp
        INCLUDES ${PROJECT_SOURCE_DIR}/modules/utilsDll/platform/linux
        INPUTS ${PROJECT_SOURCE_DIR}/tests/files/data)
endif()
