# Compiler flags of the code-path levels.
#
# The levels themselves (index, namespace, instruction-set name) are listed
# once, in core/levels.h; this file reads that list.  A kernel source names
# its level by its suffix (_plain, _sse, _sse2, _sse3, _ssse3, _sse41, _avx2,
# _avx512) and is compiled with that level's flags only.  Everything else
# (core, tools, tests) is built with the base flags, which on 32-bit x86
# allow plain i686 integer and x87 code and no SSE at all.

file(READ ${CMAKE_CURRENT_LIST_DIR}/../core/levels.h _vek_levels_h)
string(REGEX MATCHALL "X\\([0-9]+, *[a-z0-9]+," _vek_level_entries "${_vek_levels_h}")
set(VEK_LEVEL_NAMESPACES)
foreach(entry IN LISTS _vek_level_entries)
  string(REGEX REPLACE "X\\([0-9]+, *([a-z0-9]+)," "\\1" ns "${entry}")
  list(APPEND VEK_LEVEL_NAMESPACES ${ns})
endforeach()
list(LENGTH VEK_LEVEL_NAMESPACES _vek_level_count)
if(_vek_level_count LESS 8)
  message(FATAL_ERROR "could not read the code-path levels from core/levels.h")
endif()

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(VEK_BASE_FLAGS -march=i686 -mno-mmx -mno-sse -mfpmath=387)
  set(_vek_sse_math -mfpmath=sse)
  if(WIN32)
    # Windows callers keep the stack 4-byte aligned: realign where SSE
    # spills need 16.
    list(APPEND VEK_BASE_FLAGS -mincoming-stack-boundary=2)
  endif()
else()
  set(VEK_BASE_FLAGS "")
  set(_vek_sse_math "")
endif()

# GCC for Windows does not realign the stack for 32- and 64-byte spills, so
# an aligned spill of a YMM or ZMM register could fault at random there.
# The assembler turns every aligned vector move into its unaligned form
# (same speed on aligned data), so no spill can fault.
if(WIN32)
  set(_vek_wide_vector_moves -Wa,-muse-unaligned-vector-move)
else()
  set(_vek_wide_vector_moves "")
endif()

# The plain level is the scalar reference: no auto-vectorisation, so it
# stays portable code whatever the compiler's defaults.
set(VEK_LEVEL_FLAGS_plain  -fno-tree-vectorize)
set(VEK_LEVEL_FLAGS_sse    -msse ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse2   -msse2 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse3   -msse3 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_ssse3  -mssse3 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse41  -msse4.1 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_avx2   -mavx2 -mbmi -mbmi2 -mpclmul ${_vek_sse_math} ${_vek_wide_vector_moves})
# GCC 12's AVX-512 intrinsics start many results from a deliberately
# undefined vector, which its -W(maybe-)uninitialized reports inside the
# system header once inlined (GCC bug 105593, fixed in GCC 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  set(_vek_avx512_quiet -Wno-maybe-uninitialized -Wno-uninitialized)
else()
  set(_vek_avx512_quiet "")
endif()
set(VEK_LEVEL_FLAGS_avx512 -mavx2 -mbmi -mbmi2 -mpclmul -mavx512f -mavx512bw -mavx512dq -mavx512vl -mvpclmulqdq
                           ${_vek_sse_math} ${_vek_wide_vector_moves} ${_vek_avx512_quiet})
foreach(ns IN LISTS VEK_LEVEL_NAMESPACES)
  if(NOT DEFINED VEK_LEVEL_FLAGS_${ns})
    message(FATAL_ERROR "code-path level ${ns} (core/levels.h) has no flags in cmake/VekLevels.cmake")
  endif()
endforeach()

string(JOIN "|" _vek_level_alternatives ${VEK_LEVEL_NAMESPACES})
function(vek_apply_level_flags)
  foreach(src IN LISTS ARGN)
    if(src MATCHES "_(${_vek_level_alternatives})\\.cpp$")
      set(level ${CMAKE_MATCH_1})
      # The level flags come after the base flags and so win over -mno-sse.
      set_source_files_properties(${src} PROPERTIES COMPILE_OPTIONS "${VEK_LEVEL_FLAGS_${level}}")
    else()
      message(FATAL_ERROR "kernel source ${src} does not name its level")
    endif()
  endforeach()
endfunction()

# Windows DLL: export the undecorated names of the __stdcall functions and
# give MinGW and MSVC users an import library that maps the decorated names
# their compilers emit (_name@bytes) to them.
function(vek_windows_dll_exports target)
  set(def_raw "${CMAKE_CURRENT_BINARY_DIR}/vek-linker.def")
  set(def "${CMAKE_CURRENT_BINARY_DIR}/vek.def")
  target_link_options(${target} PRIVATE -Wl,--kill-at -Wl,--output-def,${def_raw}
    -static-libgcc -static-libstdc++ -Wl,--gc-sections)
  find_program(VEK_DLLTOOL NAMES ${CMAKE_C_COMPILER_TARGET}-dlltool i686-w64-mingw32-dlltool dlltool REQUIRED)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND sed -E "s/^[ \\t]*[A-Za-z0-9_]+ = ([A-Za-z0-9_]+@[0-9]+).*/    \\1/" ${def_raw} > ${def}
    COMMAND ${VEK_DLLTOOL} --kill-at -d ${def} -D $<TARGET_FILE_NAME:${target}>
            -l $<TARGET_LINKER_FILE:${target}>
    COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_LINKER_FILE:${target}> ${CMAKE_CURRENT_BINARY_DIR}/vek.lib
    VERBATIM)
endfunction()
