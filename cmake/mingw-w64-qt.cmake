# The mingw-w64 toolchain with the Windows SDK of scripts/windows-sdk.sh (Qt, QuaZip,
# spdlog and fmt headers) as a second search root. The SDK's prefix comes from
# UTILSDLL_WIN_SDK_PREFIX (cache variable or environment), by default the script's.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake)

if(NOT UTILSDLL_WIN_SDK_PREFIX)
    if(DEFINED ENV{UTILSDLL_WIN_SDK_PREFIX})
        set(UTILSDLL_WIN_SDK_PREFIX $ENV{UTILSDLL_WIN_SDK_PREFIX})
    else()
        set(UTILSDLL_WIN_SDK_PREFIX /var/cache/utilsdll-win-sdk/qt5)
    endif()
endif()
list(APPEND CMAKE_FIND_ROOT_PATH ${UTILSDLL_WIN_SDK_PREFIX})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES UTILSDLL_WIN_SDK_PREFIX)

# The tests' launcher: scripts/wine-fresh-prefix.sh when UTILSDLL_WINE_LAUNCHER names it.
if(UTILSDLL_WINE_LAUNCHER)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${UTILSDLL_WINE_LAUNCHER})
endif()
