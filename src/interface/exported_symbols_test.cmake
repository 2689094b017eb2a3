# Checks that the shared library LIBRARY exports exactly the names of the list
# EXPORTS: its dynamic symbol table, read with nm, must hold those and no other.
# COUNT is the number of names the list must hold (six unless given).
cmake_minimum_required(VERSION 3.25)

file(STRINGS "${EXPORTS}" expected REGEX "^[A-Z_]+$")
list(SORT expected)
list(LENGTH expected count)
if(NOT DEFINED COUNT)
  set(COUNT 6)
endif()
if(NOT count EQUAL COUNT)
  message(FATAL_ERROR "${EXPORTS} lists ${count} names, not ${COUNT}")
endif()

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
list(SORT names)
if(NOT names STREQUAL expected)
  message(FATAL_ERROR "the dynamic symbol table of ${LIBRARY} holds:\n  ${names}\n"
                      "expected, from ${EXPORTS}:\n  ${expected}")
endif()
