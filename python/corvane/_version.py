"""The package's version: the project's, kept once in the project() line of
the repository's CMakeLists.txt. setup.py reads it from there when the package
is built; an installed package reports what was recorded then."""

import importlib.metadata
import os
import pathlib
import re
import typing

_PROJECT_LINE = re.compile(r"^project\(\s*Corvane\s+VERSION\s+([0-9][0-9.]*)", re.M)


def from_cmakelists(path: typing.Union[str, "os.PathLike[str]"]) -> typing.Optional[str]:
    """The VERSION of the project() line of the CMakeLists.txt at `path`, or
    None when there is no such file or line."""
    try:
        found = _PROJECT_LINE.search(pathlib.Path(path).read_text(encoding="utf-8"))
    except OSError:
        return None
    return found.group(1) if found else None


def version() -> str:
    # Run from the source tree, the project's own line decides, whatever copy
    # of the package is installed besides.
    source_tree = pathlib.Path(__file__).resolve().parents[2]
    found = from_cmakelists(source_tree / "CMakeLists.txt")
    if found:
        return found
    try:
        return importlib.metadata.version("corvane")
    except importlib.metadata.PackageNotFoundError:
        return "unknown"
