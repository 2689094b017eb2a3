# Checks that the shared library LIBRARY exports exactly the six entry points:
# its dynamic symbol table (read with nm), the Windows definition file DEF_FILE
# and the version script beside it must each list those names and no other.
cmake_minimum_required(VERSION 3.25)

set(expected
  BI_MATERIAL_LAMINATE_STIFFNESS
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF
  LAMINATE_SHELL_BUCKLING_LOADS
  LAMINATE_STIFFNESS
  LAMINATE_STRAINS_IN_PLANE)

function(expect_names what names)
  list(SORT names)
  if(NOT names STREQUAL expected)
    message(FATAL_ERROR "${what} lists:\n  ${names}\nexpected:\n  ${expected}")
  endif()
endfunction()

# The definition file: the names after EXPORTS.
file(STRINGS "${DEF_FILE}" lines)
set(names)
set(in_exports FALSE)
foreach(line IN LISTS lines)
  string(STRIP "${line}" line)
  if(line STREQUAL "EXPORTS")
    set(in_exports TRUE)
  elseif(in_exports AND NOT line STREQUAL "")
    list(APPEND names "${line}")
  endif()
endforeach()
expect_names("${DEF_FILE}" "${names}")

# The version script: the names of its global part.
get_filename_component(directory "${DEF_FILE}" DIRECTORY)
file(READ "${directory}/corvane.map" map)
string(REGEX MATCH "global:([^:]*)local:" global "${map}")
string(REGEX MATCHALL "[A-Z_]+" names "${CMAKE_MATCH_1}")
expect_names("corvane.map" "${names}")

find_program(NM nm)
if(NOT NM)
  message("nm not found: skipped")
  return()
endif()
execute_process(COMMAND "${NM}" -D --defined-only "${LIBRARY}"
                OUTPUT_VARIABLE table RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "nm could not read ${LIBRARY}")
endif()
string(REGEX REPLACE "\n$" "" table "${table}")
string(REPLACE "\n" ";" table "${table}")
set(names)
foreach(line IN LISTS table)
  string(REGEX MATCH "[^ ]+$" name "${line}")
  list(APPEND names "${name}")
endforeach()
expect_names("the dynamic symbol table of ${LIBRARY}" "${names}")
