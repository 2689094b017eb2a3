# The steps of the installation tests, run with cmake -P:
#   -DSTEP=install     a fresh install of BUILD_DIR into PREFIX, and a look at
#                      what it holds: the library of VERSION with its soname
#                      SOVERSION, the header, the packages and the PROGRAMS
#   -DSTEP=pkg-config  the example program compiled with a plain compiler
#                      command (CC) from the flags of `pkg-config --cflags
#                      --libs corvane`, then run
# PREFIX, LIBDIR (relative to it), SOURCE (the C file) and WORK_DIR as given.
cmake_minimum_required(VERSION 3.25)

if(STEP STREQUAL "install")
  file(REMOVE_RECURSE "${PREFIX}")
  execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}"
                          --config "${CONFIG}"
                  RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "cmake --install failed (is everything built?)")
  endif()
  foreach(file IN ITEMS include/corvane/corvane.h include/corvane/version.h
                        include/corvane/corvane_strength.h
                        ${LIBDIR}/libcorvane_strength.so.${SOVERSION}
                        ${LIBDIR}/pkgconfig/corvane_strength.pc
                        ${LIBDIR}/libcorvane.so.${VERSION}
                        ${LIBDIR}/libcorvane.so.${SOVERSION}
                        ${LIBDIR}/libcorvane.so
                        ${LIBDIR}/cmake/Corvane/CorvaneConfig.cmake
                        ${LIBDIR}/cmake/Corvane/CorvaneConfigVersion.cmake
                        ${LIBDIR}/cmake/Corvane/CorvaneTargets.cmake
                        ${LIBDIR}/pkgconfig/corvane.pc
                        ${PROGRAMS})
    if(NOT EXISTS "${PREFIX}/${file}")
      message(FATAL_ERROR "not installed: ${file}")
    endif()
  endforeach()
  # Installed programs must find the installed library by themselves.
  foreach(program IN LISTS PROGRAMS)
    execute_process(COMMAND "${PREFIX}/${program}" --help
                    OUTPUT_QUIET ERROR_VARIABLE errors RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
      message(FATAL_ERROR "installed ${program} does not run: ${errors}")
    endif()
  endforeach()
  file(GLOB_RECURSE static_libraries "${PREFIX}/*.a")
  if(static_libraries)
    message(FATAL_ERROR "static libraries installed: ${static_libraries}")
  endif()

elseif(STEP STREQUAL "pkg-config")
  find_program(PKG_CONFIG pkg-config)
  if(NOT PKG_CONFIG)
    message("pkg-config not found: skipped")
    return()
  endif()
  set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIBDIR}/pkgconfig")
  execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs corvane
                  OUTPUT_VARIABLE flags RESULT_VARIABLE status
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND "${PKG_CONFIG}" --variable=libdir corvane
                  OUTPUT_VARIABLE libdir OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know corvane")
  endif()
  message("pkg-config --cflags --libs corvane: ${flags}")
  separate_arguments(flags UNIX_COMMAND "${flags}")
  file(MAKE_DIRECTORY "${WORK_DIR}")
  execute_process(COMMAND "${CC}" "${SOURCE}" ${flags} -o "${WORK_DIR}/consumer"
                  RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "the compiler command failed")
  endif()
  execute_process(COMMAND "${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${libdir}"
                          "${WORK_DIR}/consumer"
                  OUTPUT_VARIABLE output RESULT_VARIABLE status)
  message("${output}")
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "the program built through pkg-config failed")
  endif()

else()
  message(FATAL_ERROR "unknown STEP '${STEP}'")
endif()
