"""Builds the corvane package with the project's version, from the project()
line of the CMakeLists.txt above this folder (the rest is in pyproject.toml)."""

import pathlib
import runpy

from setuptools import setup

HERE = pathlib.Path(__file__).resolve().parent
# By path: importing the package would need numpy and the library.
_version = runpy.run_path(str(HERE / "corvane" / "_version.py"))
VERSION = _version["from_cmakelists"](HERE.parent / "CMakeLists.txt")
if VERSION is None:
    raise SystemExit(
        "corvane: no project(Corvane VERSION ...) line in ../CMakeLists.txt; "
        "build the package from its place in Corvane's source tree"
    )

setup(version=VERSION)
