# Installs the library, its public headers, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

install(
  TARGETS zrBase
  EXPORT zrBaseTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(
  DIRECTORY "${PROJECT_SOURCE_DIR}/zrBase/"
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zrBase
  FILES_MATCHING
  PATTERN "*.h"
  PATTERN "internal" EXCLUDE)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/zrBase)
install(
  EXPORT zrBaseTargets
  NAMESPACE zrBase::
  DESTINATION ${packageDir})
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/zrBaseConfig.cmake.in"
                              "${CMAKE_CURRENT_BINARY_DIR}/zrBaseConfig.cmake" INSTALL_DESTINATION ${packageDir})
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/zrBaseConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/zrBaseConfig.cmake" "${CMAKE_CURRENT_BINARY_DIR}/zrBaseConfigVersion.cmake"
        DESTINATION ${packageDir})

# The prefix is told relative to the file itself, so that an installed tree can be moved.
cmake_path(IS_ABSOLUTE CMAKE_INSTALL_LIBDIR libDirIsAbsolute)
if(libDirIsAbsolute)
  set(pkgConfigPrefix "${CMAKE_INSTALL_PREFIX}")
  set(pkgConfigLibDir "${CMAKE_INSTALL_LIBDIR}")
else()
  file(RELATIVE_PATH prefixFromPkgConfig "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  string(REGEX REPLACE "/$" "" prefixFromPkgConfig "${prefixFromPkgConfig}")
  set(pkgConfigPrefix "\${pcfiledir}/${prefixFromPkgConfig}")
  set(pkgConfigLibDir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/zrBase.pc.in" "${CMAKE_CURRENT_BINARY_DIR}/zrBase.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/zrBase.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
