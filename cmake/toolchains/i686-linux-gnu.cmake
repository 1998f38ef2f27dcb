# 32-bit x86 Linux with the host gcc in -m32 mode (Debian's gcc-multilib and
# g++-multilib).  Test programs run through qemu-i386, which also works on
# kernels that cannot execute 32-bit programs themselves.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT "-m32 -march=i686")
set(CMAKE_CXX_FLAGS_INIT "-m32 -march=i686")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
find_program(VEK_QEMU_I386 qemu-i386)
if(VEK_QEMU_I386)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${VEK_QEMU_I386})
endif()
