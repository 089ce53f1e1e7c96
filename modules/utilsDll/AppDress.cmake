# Dressing an application: bootstrap helpers, the language manager, the web link
# constants, and the compiled resource sets from the resources folder.
utilsdll_add_sources(
    PUBLIC_HEADERS
        AppBootstrap.h
        LanguageManager.h
        WebLinks.h
    SOURCES
        AppBootstrap.cpp
        LanguageManager.cpp
        WebLinks.cpp
        platform/ModuleFile.h
        platform/WindowMenu.h
)

if(WIN32)
    target_sources(UtilsDll PRIVATE
        platform/win/ModuleFile.cpp
        platform/win/WindowMenu.cpp)
    target_link_libraries(UtilsDll PRIVATE user32)
else()
    target_sources(UtilsDll PRIVATE
        platform/linux/ModuleFile.cpp
        platform/linux/WindowMenu.cpp)
    target_link_libraries(UtilsDll PRIVATE ${CMAKE_DL_LIBS})
endif()

# The resource sets register themselves from their static initialisers, so their
# object files go into the library whole, never through an archive that could drop them.
if(TARGET UtilsDllResources)
    target_sources(UtilsDll PRIVATE $<TARGET_OBJECTS:UtilsDllResources>)
    set_source_files_properties(${UTILSDLL_RESOURCE_OBJECTS} TARGET_DIRECTORY UtilsDll
        PROPERTIES GENERATED TRUE EXTERNAL_OBJECT TRUE)
    target_sources(UtilsDll PRIVATE ${UTILSDLL_RESOURCE_OBJECTS})
    add_dependencies(UtilsDll UtilsDllCalibrationResources)
endif()
