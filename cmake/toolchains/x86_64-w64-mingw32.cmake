# 64-bit Windows build with MinGW-w64, used for testing: its test programs
# run under 64-bit Wine, which needs no 32-bit support from the kernel, and
# so prove the Windows side of the library (load-time selection in DllMain,
# the PE export table, the C runtime) where the 32-bit DLL cannot run.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VEK_MINGW_TRIPLE x86_64-w64-mingw32)
set(VEK_WINE_NAMES wine64)  # Debian keeps it in /usr/lib/wine
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
