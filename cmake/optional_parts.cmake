# The parts of the build beyond the library, each a cache variable set to
#   AUTO (the default)  built when Corvane is the top-level project and what the
#                       part needs is found; left out otherwise, saying why
#   ON                  built; anything it needs that is missing is an error
#   OFF                 left out
# so that a plain `cmake -S . -B build` needs nothing beyond a compiler and a
# project that takes Corvane in through add_subdirectory builds the library
# alone. The presets set every part ON or OFF.
#
# After this file each variable is a plain ON or OFF in the top-level scope.

# corvane_wants(<variable> <description>): declares the part <variable> and
# says whether to look for what it needs, and how: corvane_search is empty (no
# search), QUIET (AUTO) or REQUIRED (ON).
function(corvane_wants variable description)
  set(${variable} AUTO CACHE STRING "Build ${description}: AUTO, ON or OFF")
  set_property(CACHE ${variable} PROPERTY STRINGS AUTO ON OFF)
  set(value "${${variable}}")
  if(value STREQUAL "AUTO")
    set(search QUIET)
    if(NOT PROJECT_IS_TOP_LEVEL)
      set(search "")
    endif()
  elseif(value)
    set(search REQUIRED)
  else()
    set(search "")
  endif()
  set(corvane_search "${search}" PARENT_SCOPE)
  set(corvane_description "${description}" PARENT_SCOPE)
endfunction()

# corvane_part(<variable> <needs>...): resolves the part corvane_wants has just
# declared, once what it needs has been looked for. <needs> are pairs of a
# condition that holds when something the part needs is present and the text
# naming it when it is not.
function(corvane_part variable)
  set(what "${corvane_description}")
  set(value "${${variable}}")
  if(value STREQUAL "AUTO")
    if(NOT PROJECT_IS_TOP_LEVEL)
      set(${variable} OFF PARENT_SCOPE)
      return()
    endif()
  elseif(value)
    set(value ON)
  else()
    set(${variable} OFF PARENT_SCOPE)
    return()
  endif()
  set(missing)
  set(needs ${ARGN})
  while(needs)
    list(POP_FRONT needs condition text)
    if(NOT ${condition})
      list(APPEND missing "${text}")
    endif()
  endwhile()
  if(NOT missing)
    set(${variable} ON PARENT_SCOPE)
    return()
  endif()
  list(JOIN missing "; " missing)
  if(value STREQUAL "ON")
    message(FATAL_ERROR "${variable} is ON but ${what} cannot be built: ${missing}")
  endif()
  message(STATUS "Corvane: ${what} left out: ${missing} "
                 "(${variable}=ON makes this an error)")
  set(${variable} OFF PARENT_SCOPE)
endfunction()

corvane_wants(CORVANE_BUILD_TESTS "the C++ test suite")
if(corvane_search)
  find_package(GTest ${corvane_search})
endif()
corvane_part(CORVANE_BUILD_TESTS GTest_FOUND "GoogleTest not found (libgtest-dev)")

corvane_wants(CORVANE_BUILD_TOOLS "the corvane command")
if(corvane_search)
  find_package(CLI11 CONFIG ${corvane_search})
  find_package(nlohmann_json ${corvane_search})
endif()
corvane_part(CORVANE_BUILD_TOOLS CLI11_FOUND "CLI11 not found (libcli11-dev)"
             nlohmann_json_FOUND "nlohmann-json not found (nlohmann-json3-dev)")

corvane_wants(CORVANE_BUILD_BENCHMARKS "the benchmark programs")
if(corvane_search)
  find_package(benchmark ${corvane_search})
endif()
corvane_part(CORVANE_BUILD_BENCHMARKS
             benchmark_FOUND "Google Benchmark not found (libbenchmark-dev)")

# The Python tests run python3 with numpy and pytest: the first on the search
# path that has both (a Python manager's shim without them is passed over for
# the distribution's), or the one CORVANE_PYTHON names. An interpreter not built
# with the sanitizer runtime cannot load an instrumented library, and a
# cross-built library cannot be loaded here at all.
function(corvane_python_has_modules result candidate)
  execute_process(COMMAND "${candidate}" -c "import numpy, pytest"
                  RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
  if(NOT status EQUAL 0)
    set(${result} FALSE PARENT_SCOPE)
  endif()
endfunction()
corvane_wants(CORVANE_PYTHON_TESTS "the Python package's tests")
set(corvane_loadable TRUE)
if(CORVANE_SANITIZED OR CMAKE_CROSSCOMPILING)
  set(corvane_loadable FALSE)
endif()
set(corvane_python_usable FALSE)
if(corvane_search AND corvane_loadable)
  find_program(CORVANE_PYTHON NAMES python3 python VALIDATOR corvane_python_has_modules
               DOC "python3 with numpy and pytest, for the Python package's tests")
  if(CORVANE_PYTHON)
    # A path given on the command line is taken without the validator.
    set(corvane_python_usable TRUE)
    corvane_python_has_modules(corvane_python_usable "${CORVANE_PYTHON}")
  endif()
endif()
corvane_part(CORVANE_PYTHON_TESTS
             corvane_loadable "python cannot load a sanitized or cross-built library"
             corvane_python_usable
             "no python3 with numpy and pytest (python3-numpy, python3-pytest)")

if(CORVANE_BUILD_TESTS OR CORVANE_PYTHON_TESTS)
  enable_testing()
endif()
if(CORVANE_BUILD_TESTS)
  include(GoogleTest)
endif()
