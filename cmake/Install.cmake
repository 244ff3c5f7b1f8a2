# cmake --install: the DLL with its import library, the static support and
# framework libraries, their headers under include/ (same relative paths as
# in the source tree) and a package config for find_package(drawtool CONFIG).
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS drawtool support framework EXPORT drawtoolTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

install(FILES drawtool/DrawTool.h drawtool/DrawToolExport.h drawtool/DrawToolC.h drawtool/DrawToolMethods.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/drawtool)
install(DIRECTORY framework/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/framework FILES_MATCHING PATTERN "*.h")
install(DIRECTORY support/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/support FILES_MATCHING PATTERN "*.h")

install(EXPORT drawtoolTargets NAMESPACE drawtool:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/drawtool)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/drawtoolConfig.cmake.in
  ${PROJECT_BINARY_DIR}/drawtoolConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/drawtool)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/drawtoolConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/drawtoolConfig.cmake ${PROJECT_BINARY_DIR}/drawtoolConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/drawtool)
