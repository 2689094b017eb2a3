# The second shared library, corvane_strength: the strength, crippling, solver
# deck and material data entry points over their own copy of the core, with their own
# export list, so that the library of corvane.h and its six exports stay as they
# are. A host loads either or both; neither needs the other.

corvane_module(strength_interface SOURCES strength_entry_points.cc
               material_entry_points.cc solver_deck_entry_points.cc many_entry_points.cc
               packed_stiffness_entry_point.cc
               DEPENDS laminate_stiffness_call laminates_stressed crippling_sections material_files cards buckling
                       plane_stresses_strains)

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS strength_exports.txt)
file(STRINGS strength_exports.txt strength_exports REGEX "^[A-Z_]+$")
set(map "{\n  global:\n")
set(def "LIBRARY corvane_strength\nEXPORTS\n")
foreach(name IN LISTS strength_exports)
  string(APPEND map "    ${name};\n")
  string(APPEND def "    ${name}\n")
endforeach()
string(APPEND map "  local:\n    *;\n};\n")
file(CONFIGURE OUTPUT corvane_strength.map CONTENT "${map}" @ONLY)
file(CONFIGURE OUTPUT corvane_strength.def CONTENT "${def}" @ONLY)

# Every module of the core but the six entry points, and the strength ones.
add_library(corvane_strength SHARED)
set(strength_modules ${corvane_modules} strength_interface)
list(REMOVE_ITEM strength_modules interface)
foreach(module IN LISTS strength_modules)
  target_sources(corvane_strength PRIVATE $<TARGET_OBJECTS:corvane_${module}>)
endforeach()
target_sources(corvane_strength PRIVATE $<TARGET_OBJECTS:corvane_laminate_stiffness_call>)
target_include_directories(corvane_strength PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(corvane_strength PROPERTIES
  LINKER_LANGUAGE CXX
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  INSTALL_RPATH "")
if(WIN32)
  target_sources(corvane_strength PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/corvane_strength.def)
  target_link_options(corvane_strength PRIVATE -static-libgcc -static-libstdc++)
  set_target_properties(corvane_strength PROPERTIES PREFIX "")
else()
  target_link_options(corvane_strength PRIVATE
    -Wl,--version-script=${CMAKE_CURRENT_BINARY_DIR}/corvane_strength.map)
  if(NOT CORVANE_SANITIZED)
    target_link_options(corvane_strength PRIVATE -Wl,--no-undefined)
  endif()
  set_target_properties(corvane_strength PROPERTIES LINK_DEPENDS
                        ${CMAKE_CURRENT_BINARY_DIR}/corvane_strength.map)
endif()
add_library(Corvane::corvane_strength ALIAS corvane_strength)

if(CORVANE_BUILD_TESTS AND NOT WIN32)
  # Every entry point of both libraries as a host meets them, loaded by path and
  # looked up by name (tests/support/entry_point_table.h). A sanitizer runtime
  # brings its own allocation functions, so the out-of-memory test is left out
  # of instrumented builds.
  corvane_add_test(entry_points_test entry_points_test.cc
                   LIBS laminates_stressed)
  set(tests entry_points_test)
  if(NOT CORVANE_SANITIZED)
    corvane_add_test(entry_points_out_of_memory_test entry_points_out_of_memory_test.cc)
    list(APPEND tests entry_points_out_of_memory_test)
  endif()
  foreach(test IN LISTS tests)
    corvane_loads_both_libraries(${test})
  endforeach()

  add_test(NAME strength_interface_exported_symbols
           COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:corvane_strength>
                   -DEXPORTS=${CMAKE_CURRENT_SOURCE_DIR}/strength_exports.txt -DCOUNT=14
                   -P ${CMAKE_CURRENT_SOURCE_DIR}/exported_symbols_test.cmake)
  set_tests_properties(strength_interface_exported_symbols PROPERTIES
                       SKIP_REGULAR_EXPRESSION "nm not found: skipped")
endif()
