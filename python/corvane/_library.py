"""Finding and loading the Corvane shared library, and the C prototypes of
its entry points.

The library is looked for in this order:

1. the path in the environment variable CORVANE_LIBRARY, if it is set (and
   nowhere else then, so that a wrong path is reported, not silently replaced);
2. next to this package: libcorvane.so.0, libcorvane.so, corvane.dll or
   libcorvane.dylib in the package's own folder;
3. the system's library search path: ctypes.util.find_library("corvane"), then
   the library's file name as the dynamic loader resolves it.
"""

import ctypes
import ctypes.util
import functools
import os
import pathlib
from ctypes import POINTER, c_char_p, c_float, c_int32, c_int64

from .errors import LibraryError

ENVIRONMENT_VARIABLE = "CORVANE_LIBRARY"

# Length of the stacking-sequence text the library reads, and of the card text
# it writes, whatever the buffers' hidden lengths say.
LAYUP_LENGTH = 1000
CARDS_LENGTH = 10000

_PACKAGE_DIR = pathlib.Path(__file__).resolve().parent
_FILE_NAMES = ("libcorvane.so.0", "libcorvane.so", "corvane.dll", "libcorvane.dylib")


def candidates(environ=None, package_dir=None, system_name=None):
    """The library paths or names to try, in order.

    The arguments stand in for os.environ, this package's folder and the
    name ctypes.util.find_library gives; they let the order be checked.
    """
    environ = os.environ if environ is None else environ
    package_dir = _PACKAGE_DIR if package_dir is None else pathlib.Path(package_dir)
    explicit = environ.get(ENVIRONMENT_VARIABLE)
    if explicit:
        return [explicit]
    found = [str(package_dir / n) for n in _FILE_NAMES if (package_dir / n).is_file()]
    if system_name is None:
        system_name = ctypes.util.find_library("corvane")
    if system_name:
        found.append(system_name)
    found.append("corvane.dll" if os.name == "nt" else "libcorvane.so.0")
    return found


@functools.cache
def _loaded():
    """The loaded library and the path or name it was loaded under (loaded
    once, on first use)."""
    failures = []
    for candidate in candidates():
        try:
            return ctypes.CDLL(candidate), candidate
        except OSError as error:
            failures.append(f"  {candidate}: {error}")
    raise LibraryError(
        "the Corvane shared library was not found; set CORVANE_LIBRARY to its "
        "path, put it next to the corvane package, or install it on the "
        "system's library path. Tried:\n" + "\n".join(failures)
    )


def library():
    """The loaded library."""
    return _loaded()[0]


def library_path():
    """The path or name under which the library was loaded."""
    return _loaded()[1]


_F = POINTER(c_float)
_I = POINTER(c_int32)
_STIFFNESS_RESULTS = [_I, _F, _F, _F, _F] + [_F] * 8 + [_I, c_char_p, c_int64, _I]

_PROTOTYPES = {
    "LAMINATE_STIFFNESS": [_F] * 7 + [c_char_p, c_int64] + _STIFFNESS_RESULTS,
    "BI_MATERIAL_LAMINATE_STIFFNESS": [_F] * 14
    + [c_char_p, c_int64]
    + _STIFFNESS_RESULTS,
    "LAMINATE_STRAINS_IN_PLANE": [_F] * 13 + [_I],
    "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS": [_F] * 6 + [_I],
    "LAMINATE_RECTANGULAR_SS_BUCKLING_RF": [_F] * 7 + [_I],
    "LAMINATE_SHELL_BUCKLING_LOADS": [_F] * 9 + [_I],
}


@functools.cache
def entry_point(name):
    """The library's entry point `name` as a ctypes function with its
    argument types set. It is made once and shared by every caller and
    thread: call it, never change it."""
    prototype = ctypes.CFUNCTYPE(None, *_PROTOTYPES[name])
    try:
        return prototype((name, library()))
    except AttributeError as error:
        raise LibraryError(
            f"the library {library_path()} has no entry point {name}"
        ) from error
