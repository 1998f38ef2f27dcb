# Shared part of the MinGW-w64 toolchains.  The including file sets
# VEK_MINGW_TRIPLE (i686-w64-mingw32 or x86_64-w64-mingw32) and
# VEK_WINE_NAMES, the Wine launchers to look for.
set(CMAKE_SYSTEM_NAME Windows)
# The posix-thread variants provide std::mutex, which GoogleTest needs; the
# library itself uses no threads.
find_program(CMAKE_C_COMPILER NAMES ${VEK_MINGW_TRIPLE}-gcc-posix ${VEK_MINGW_TRIPLE}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${VEK_MINGW_TRIPLE}-g++-posix ${VEK_MINGW_TRIPLE}-g++ REQUIRED)
set(CMAKE_RC_COMPILER ${VEK_MINGW_TRIPLE}-windres)
set(CMAKE_C_COMPILER_TARGET ${VEK_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH /usr/${VEK_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
find_program(VEK_WINE NAMES ${VEK_WINE_NAMES} PATHS /usr/lib/wine)
if(VEK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${VEK_WINE})
endif()
