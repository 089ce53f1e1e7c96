# Cross compilation for 64-bit Windows with Debian's mingw-w64, the programs run by
# Wine. The -posix compilers are the ones whose thread model has std::mutex, which
# GoogleTest needs.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_mingwPrefix x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_mingwPrefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_mingwPrefix}-g++-posix)
set(CMAKE_RC_COMPILER ${_mingwPrefix}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${_mingwPrefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(_wine NAMES wine wine64 REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${_wine})
