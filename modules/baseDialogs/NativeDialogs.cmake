# The native file dialogs and the folder chooser that shows image files.
utilsdll_add_sources(
    PUBLIC_HEADERS
        CNativeDialogs.h
    SOURCES
        CNativeDialogs.cpp
        WindowsNativeSelectFolderDialog.h
)

# One implementation of the folder chooser per platform; the build picks the side.
if(WIN32)
    target_sources(UtilsDll PRIVATE platform/win/WindowsNativeSelectFolderDialog.cpp)
    target_link_libraries(UtilsDll PRIVATE ole32 shell32 shlwapi uuid)
else()
    target_sources(UtilsDll PRIVATE platform/linux/WindowsNativeSelectFolderDialog.cpp)
endif()
