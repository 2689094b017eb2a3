"""Finding the library, argument checks, and the documented example."""

import os
import pathlib
import re
import subprocess
import sys

import pytest

import corvane
from corvane import _library

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]


def test_environment_variable_alone_decides(tmp_path):
    (tmp_path / "libcorvane.so.0").touch()
    found = _library.candidates({"CORVANE_LIBRARY": "/x/libcorvane.so"}, tmp_path, "sys")
    assert found == ["/x/libcorvane.so"]


def test_package_folder_then_system_search_path(tmp_path):
    (tmp_path / "libcorvane.so.0").touch()
    (tmp_path / "corvane.dll").touch()
    found = _library.candidates({"CORVANE_LIBRARY": ""}, tmp_path, "libcorvane.so.0")
    assert found[:3] == [
        str(tmp_path / "libcorvane.so.0"),
        str(tmp_path / "corvane.dll"),
        "libcorvane.so.0",
    ]
    assert _library.candidates({}, tmp_path / "empty", "")[-1] in (
        "libcorvane.so.0",
        "corvane.dll",
    )


def test_the_loaded_library_is_the_one_named_in_the_environment():
    if "CORVANE_LIBRARY" not in os.environ:
        pytest.skip("CORVANE_LIBRARY not set: the library came from elsewhere")
    assert corvane.library_path() == os.environ["CORVANE_LIBRARY"]


def test_a_missing_library_is_named_by_a_package_error(tmp_path):
    missing = str(tmp_path / "libcorvane.so.0")
    probe = (
        "import corvane\n"
        "try: corvane.library_path()\n"
        "except corvane.Error as e: print(repr(e))"
    )
    ran = subprocess.run(
        [sys.executable, "-c", probe],
        env=dict(os.environ, CORVANE_LIBRARY=missing),
        capture_output=True,
        text=True,
        check=True,
    )
    assert ran.stdout.startswith("LibraryError(") and missing in ran.stdout


def test_each_entry_point_is_made_once():
    name = "LAMINATE_RECTANGULAR_SS_BUCKLING_RF"
    assert _library.entry_point(name) is _library.entry_point(name)


def test_the_version_is_the_projects():
    if "CORVANE_VERSION" not in os.environ:
        pytest.skip("CORVANE_VERSION not set: run outside the build's tests")
    assert corvane.__version__ == os.environ["CORVANE_VERSION"]


@pytest.mark.parametrize("value", ["a", None, [1.0]])
def test_non_numbers_are_refused_before_the_call(value):
    with pytest.raises(TypeError):
        corvane.plate_buckling_rf(value, 0.0, 0.0, 1.0, 1.0, 1.0)


def test_examples_in_the_documentation_run():
    # Every Python block that imports corvane in the README and docs/python.md.
    blocks = []
    for name in ("README.md", "docs/python.md"):
        path = REPOSITORY / name
        if path.is_file():
            text = path.read_text(encoding="utf-8")
            found = re.findall(r"```python\n(.*?)```", text, re.S)
            blocks += [b for b in found if "import corvane" in b]
    if not blocks:
        pytest.skip("no documentation beside this copy of the package")
    for block in blocks:
        exec(compile(block, "example", "exec"), {})
