# Installs the package offline into a fresh virtual environment, with copies of
# the libraries inside it, and runs the tests against that installation with no
# CORVANE_LIBRARY and no PYTHONPATH: the package must find them next to itself.
# Run with cmake -P, given PYTHON, PACKAGE_DIR, LIBRARY, STRENGTH_LIBRARY and
# WORK_DIR.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "failed (${status}): ${command}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
# pip builds inside the folder it installs from: build a copy, not the sources,
# laid out as they are, for setup.py takes the version from ../CMakeLists.txt.
set(source "${WORK_DIR}/source/python")
file(COPY "${PACKAGE_DIR}/pyproject.toml" "${PACKAGE_DIR}/setup.py" "${PACKAGE_DIR}/corvane"
     DESTINATION "${source}" PATTERN "__pycache__" EXCLUDE)
file(COPY "${PACKAGE_DIR}/../CMakeLists.txt" DESTINATION "${WORK_DIR}/source")
file(COPY_FILE "${LIBRARY}" "${source}/corvane/libcorvane.so.0")
file(COPY_FILE "${STRENGTH_LIBRARY}" "${source}/corvane/libcorvane_strength.so.0")
# The installed materials travel with the package too.
file(COPY "${PACKAGE_DIR}/../materials/" DESTINATION "${source}/corvane/materials")

set(venv "${WORK_DIR}/venv")
run("${PYTHON}" -m venv --system-site-packages "${venv}")
set(python "${venv}/bin/python")
run("${python}" -m pip install --quiet --no-index --no-build-isolation --no-cache-dir
    --disable-pip-version-check "${source}")

unset(ENV{CORVANE_LIBRARY})
unset(ENV{CORVANE_STRENGTH_LIBRARY})
unset(ENV{PYTHONPATH})
set(ENV{PYTHONPYCACHEPREFIX} "${WORK_DIR}/pycache")
execute_process(COMMAND "${python}" -c
                        "import corvane; print(corvane.__file__); print(corvane.library_path()); print(corvane.strength_library_path())"
                WORKING_DIRECTORY "${WORK_DIR}" OUTPUT_VARIABLE where
                RESULT_VARIABLE status)
file(REAL_PATH "${venv}" venv_path)
string(STRIP "${where}" where)
string(REPLACE "\n" ";" paths "${where}")
foreach(path IN LISTS paths)
  string(FIND "${path}" "${venv_path}/" position)
  if(NOT status EQUAL 0 OR NOT position EQUAL 0)
    message(FATAL_ERROR "the installed package or its library was not used:\n${where}")
  endif()
endforeach()
# The type check and the cluster run concern the sources, checked once by the
# python_package test; here what the installation changes.
run("${python}" -m pytest -q -p no:cacheprovider "${PACKAGE_DIR}/tests"
    -k "not test_mypy_finds_nothing_in_the_type_hints"
    "--ignore=${PACKAGE_DIR}/tests/test_scale.py"
    WORKING_DIRECTORY "${WORK_DIR}")
