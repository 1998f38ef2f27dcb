# Installation: the header, the shared library (and, with VEK_BUILD_STATIC,
# the static one), a CMake package giving Vek::vek, and vek.pc.
include(CMakePackageConfigHelpers)

set(_vek_targets vek)
if(VEK_BUILD_STATIC)
  list(APPEND _vek_targets vek_static)
endif()
install(TARGETS ${_vek_targets} EXPORT VekTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(VEK_BUILD_STATIC)
  install(FILES include/vek.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()
if(WIN32)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vek.def ${CMAKE_CURRENT_BINARY_DIR}/vek.lib
    DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

set(VEK_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Vek)
install(EXPORT VekTargets NAMESPACE Vek:: DESTINATION ${VEK_CMAKE_DIR})
configure_package_config_file(cmake/VekConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/VekConfig.cmake
  INSTALL_DESTINATION ${VEK_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VekConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VekConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/VekConfigVersion.cmake
  DESTINATION ${VEK_CMAKE_DIR})

# vek.pc locates the prefix from its own place, so the installed tree can
# be moved (or installed with --prefix) and still be found.
file(RELATIVE_PATH VEK_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" VEK_PC_TO_PREFIX "${VEK_PC_TO_PREFIX}")
configure_file(cmake/vek.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vek.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vek.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
