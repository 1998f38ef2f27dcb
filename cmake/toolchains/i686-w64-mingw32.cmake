# 32-bit Windows DLL cross-compiled with MinGW-w64 (Debian's
# gcc-mingw-w64-i686 and g++-mingw-w64-i686).  Test programs run under Wine.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(VEK_MINGW_TRIPLE i686-w64-mingw32)
set(VEK_WINE_NAMES wine)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
