# Compiler flags of the six code-path levels.
#
# A kernel source names its level by its suffix (_plain, _sse, _sse2, _sse3,
# _ssse3, _sse41) and is compiled with that level's flags only.  Everything
# else (core, tools, tests) is built with the base flags, which on 32-bit x86
# allow plain i686 integer and x87 code and no SSE at all.

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

# The plain level is the scalar reference: no auto-vectorisation, so it
# stays portable code whatever the compiler's defaults.
set(VEK_LEVEL_FLAGS_plain -fno-tree-vectorize)
set(VEK_LEVEL_FLAGS_sse   -msse ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse2  -msse2 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse3  -msse3 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_ssse3 -mssse3 ${_vek_sse_math})
set(VEK_LEVEL_FLAGS_sse41 -msse4.1 ${_vek_sse_math})

function(vek_apply_level_flags)
  foreach(src IN LISTS ARGN)
    if(src MATCHES "_(plain|sse|sse2|sse3|ssse3|sse41)\\.cpp$")
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
