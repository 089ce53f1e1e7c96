# The Windows runtime beside the programs, laid out as Qt's deployment does: the Qt,
# QuaZip, zlib and compiler DLLs next to every executable, Qt's plug-ins in their type
# folders (platforms, styles, imageformats...) below it. Windows finds a program's
# DLLs in its own folder, so each folder that holds an executable gets a copy.

find_package(Qt5 5.15 REQUIRED COMPONENTS Svg Sql Test)

# The executables' folders, from every target of the build.
function(_utilsdll_program_folders directory out)
    set(folders "")
    get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "EXECUTABLE")
            get_target_property(folder ${target} RUNTIME_OUTPUT_DIRECTORY)
            list(APPEND folders ${folder})
        endif()
    endforeach()
    get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
    foreach(subdirectory IN LISTS subdirectories)
        _utilsdll_program_folders(${subdirectory} more)
        list(APPEND folders ${more})
    endforeach()
    list(REMOVE_DUPLICATES folders)
    set(${out} ${folders} PARENT_SCOPE)
endfunction()

# utilsdll_deploy_windows_runtime(): call once, after every target is defined.
function(utilsdll_deploy_windows_runtime)
    set(dlls "")
    foreach(module Core Gui Widgets Xml Network Svg Sql Test)
        list(APPEND dlls $<TARGET_FILE:Qt5::${module}>)
    endforeach()
    # The library itself, for the programs built into folders of their own.
    list(APPEND dlls $<TARGET_FILE:QuaZip::QuaZip> $<TARGET_FILE:UtilsDll>)
    # The compiler's runtime, and the zlib of Debian's mingw-w64 that QuaZip links,
    # where the compiler finds them.
    foreach(runtime libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll zlib1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE "${path}")
            message(FATAL_ERROR "${CMAKE_CXX_COMPILER} does not know ${runtime}")
        endif()
        list(APPEND dlls ${path})
    endforeach()

    # Plug-ins by type folder: the platforms (windows, offscreen), the Windows styles,
    # the image formats and the SVG icon engine, the SQLite driver.
    set(types "")
    foreach(module Gui Widgets Svg Sql)
        foreach(plugin IN LISTS Qt5${module}_PLUGINS)
            get_target_property(location ${plugin} IMPORTED_LOCATION_RELEASE)
            get_filename_component(type "${location}" DIRECTORY)
            get_filename_component(type "${type}" NAME)
            list(APPEND types ${type})
            list(APPEND _plugins_${type} ${location})
        endforeach()
    endforeach()
    list(REMOVE_DUPLICATES types)

    _utilsdll_program_folders(${PROJECT_SOURCE_DIR} folders)
    set(commands "")
    foreach(folder IN LISTS folders)
        if(NOT folder)
            set(folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
        endif()
        list(APPEND commands COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
            COMMAND ${CMAKE_COMMAND} -E copy_if_different ${dlls} ${folder})
        foreach(type IN LISTS types)
            list(APPEND commands COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}/${type}
                COMMAND ${CMAKE_COMMAND} -E copy_if_different ${_plugins_${type}} ${folder}/${type})
        endforeach()
    endforeach()
    add_custom_target(utilsdll_windows_runtime ALL ${commands}
        COMMENT "Placing the library, Qt, QuaZip and compiler DLLs beside the programs" VERBATIM)
    add_dependencies(utilsdll_windows_runtime UtilsDll)
endfunction()
