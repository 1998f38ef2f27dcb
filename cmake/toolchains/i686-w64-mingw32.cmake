# 32-bit Windows DLL cross-compiled with MinGW-w64 (Debian's
# gcc-mingw-w64-i686 and g++-mingw-w64-i686).  Test programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
# The posix-thread variants provide std::mutex, which GoogleTest needs; the
# library itself uses no threads.
find_program(CMAKE_C_COMPILER NAMES i686-w64-mingw32-gcc-posix i686-w64-mingw32-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES i686-w64-mingw32-g++-posix i686-w64-mingw32-g++ REQUIRED)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_C_COMPILER_TARGET i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
find_program(VEK_WINE wine)
if(VEK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${VEK_WINE})
endif()
