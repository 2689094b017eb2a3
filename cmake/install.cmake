# What `cmake --install` puts under the prefix: the shared libraries corvane and
# corvane_strength (versioned, with their sonames), the public headers, a CMake
# package and a pkg-config file for each library. The static module libraries
# are inside the shared ones and are not installed.
include(CMakePackageConfigHelpers)

install(TARGETS corvane corvane_strength EXPORT CorvaneTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/corvane/corvane.h
              ${PROJECT_SOURCE_DIR}/include/corvane/corvane_strength.h
              ${PROJECT_BINARY_DIR}/include/corvane/version.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvane)

set(corvane_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Corvane)
install(EXPORT CorvaneTargets NAMESPACE Corvane:: DESTINATION ${corvane_package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CorvaneConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake
                              INSTALL_DESTINATION ${corvane_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake
              ${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
        DESTINATION ${corvane_package_dir})

# The pkg-config file finds the prefix from its own place, so the installed
# tree still works when installed with `cmake --install --prefix` or moved.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
  set(pc_libdir "${CMAKE_INSTALL_FULL_LIBDIR}")
  set(pc_includedir "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
else()
  file(RELATIVE_PATH pc_up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  string(REGEX REPLACE "/$" "" pc_up "${pc_up}")
  set(pc_prefix "\${pcfiledir}/${pc_up}")
  set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
  set(pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
foreach(pc corvane corvane_strength)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${pc}.pc.in ${PROJECT_BINARY_DIR}/${pc}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pc}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
