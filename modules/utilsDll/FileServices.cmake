# File, archive and process services: file management, zip archives, process
# identity and binary versions.
# The library target belongs to the parent folder, so the imported targets it links
# must be visible there too.
find_package(QuaZip-Qt5 REQUIRED)
set_target_properties(QuaZip::QuaZip PROPERTIES IMPORTED_GLOBAL TRUE)

utilsdll_add_sources(
    PUBLIC_HEADERS
        FileManagement.h
        ArchiveHelpers.h
        ProcessIdentity.h
    SOURCES
        FileManagement.cpp
        ArchiveHelpers.cpp
        ProcessIdentity.cpp
        platform/FileManagement.h
        platform/ProcessIdentity.h
)
target_link_libraries(UtilsDll PRIVATE QuaZip::QuaZip)

if(WIN32)
    target_sources(UtilsDll PRIVATE
        platform/win/FileManagement.cpp
        platform/win/ProcessIdentity.cpp)
    target_link_libraries(UtilsDll PRIVATE shell32 psapi version)
else()
    find_package(Qt5 5.15 REQUIRED COMPONENTS DBus)
    set_target_properties(Qt5::DBus PROPERTIES IMPORTED_GLOBAL TRUE)
    target_sources(UtilsDll PRIVATE
        platform/linux/FileManagement.cpp
        platform/linux/RenameNoReplace.cpp
        platform/linux/RenameNoReplace.h
        platform/linux/ProcessIdentity.cpp
        platform/linux/PeVersionReader.cpp
        platform/linux/PeVersionReader.h)
    target_link_libraries(UtilsDll PRIVATE Qt5::DBus)
endif()
