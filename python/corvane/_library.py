"""Finding and loading the Corvane shared libraries, and the C prototypes of
their entry points.

The library of corvane.h is looked for in this order:

1. the path in the environment variable CORVANE_LIBRARY, if it is set (and
   nowhere else then, so that a wrong path is reported, not silently replaced);
2. next to this package: libcorvane.so.0, libcorvane.so, corvane.dll or
   libcorvane.dylib in the package's own folder;
3. the system's library search path: ctypes.util.find_library("corvane"), then
   the library's file name as the dynamic loader resolves it.

The strength library of corvane_strength.h (libcorvane_strength.so.0,
corvane_strength.dll, ...) is looked for in the same order, with the
environment variable CORVANE_STRENGTH_LIBRARY; when only CORVANE_LIBRARY is
set, in that library's folder alone, so that both come from one build.
"""

import ctypes
import ctypes.util
import functools
import os
import pathlib
import typing
from ctypes import POINTER, c_char_p, c_float, c_int32, c_int64, c_void_p

from .errors import LibraryError

ENVIRONMENT_VARIABLE = "CORVANE_LIBRARY"

# Length of the stacking-sequence text the library reads, and of the card text
# it writes, whatever the buffers' hidden lengths say.
LAYUP_LENGTH = 1000
CARDS_LENGTH = 10000

STRENGTH_ENVIRONMENT_VARIABLE = "CORVANE_STRENGTH_LIBRARY"

# Lengths of the strength entry point's texts, and of the solver deck.
CRITERION_LENGTH = 32
MESSAGE_LENGTH = 200
SOLVER_DECK_LENGTH = 32768

# Lengths of the material data entry points' texts, and their values.
MATERIAL_NAME_LENGTH = 80
MATERIAL_PLACES_LENGTH = 4000
MATERIAL_PATH_LENGTH = 1000
MATERIAL_NAMES_LENGTH = 10000
MATERIAL_VALUES = 14
PROPERTIES_LENGTH = 1000
MODEL_LENGTH = 200

_PACKAGE_DIR = pathlib.Path(__file__).resolve().parent


class _Kind(typing.NamedTuple):
    """One of the two libraries: its variable, base name and file names."""

    variable: str
    name: str  # as ctypes.util.find_library takes it
    description: str

    def file_names(self) -> typing.Tuple[str, ...]:
        n = self.name
        return (f"lib{n}.so.0", f"lib{n}.so", f"{n}.dll", f"lib{n}.dylib")

    def loader_name(self) -> str:
        return f"{self.name}.dll" if os.name == "nt" else f"lib{self.name}.so.0"


_MAIN = _Kind(ENVIRONMENT_VARIABLE, "corvane", "the Corvane shared library")
_STRENGTH = _Kind(
    STRENGTH_ENVIRONMENT_VARIABLE, "corvane_strength", "the Corvane strength library"
)


Environment = typing.Optional[typing.Mapping[str, str]]
Folder = typing.Union[None, str, "os.PathLike[str]"]


def _candidates(
    kind: _Kind, environ: Environment, package_dir: Folder, system_name: typing.Optional[str]
) -> typing.List[str]:
    environ = os.environ if environ is None else environ
    package_dir = _PACKAGE_DIR if package_dir is None else pathlib.Path(package_dir)
    explicit = environ.get(kind.variable)
    if explicit:
        return [explicit]
    first = environ.get(ENVIRONMENT_VARIABLE)
    if kind is _STRENGTH and first:
        folder = pathlib.Path(first).parent
        found = [str(folder / n) for n in kind.file_names() if (folder / n).is_file()]
        return found or [str(folder / kind.loader_name())]
    found = [str(package_dir / n) for n in kind.file_names() if (package_dir / n).is_file()]
    if system_name is None:
        system_name = ctypes.util.find_library(kind.name)
    if system_name:
        found.append(system_name)
    found.append(kind.loader_name())
    return found


def candidates(
    environ: Environment = None, package_dir: Folder = None, system_name: typing.Optional[str] = None
) -> typing.List[str]:
    """The library paths or names to try, in order.

    The arguments stand in for os.environ, this package's folder and the
    name ctypes.util.find_library gives; they let the order be checked.
    """
    return _candidates(_MAIN, environ, package_dir, system_name)


def strength_candidates(
    environ: Environment = None, package_dir: Folder = None, system_name: typing.Optional[str] = None
) -> typing.List[str]:
    """The strength library's paths or names to try, in order; the arguments
    as for candidates()."""
    return _candidates(_STRENGTH, environ, package_dir, system_name)


@functools.cache
def _loaded(kind: _Kind) -> typing.Tuple[ctypes.CDLL, str]:
    """The loaded library and the path or name it was loaded under (loaded
    once, on first use)."""
    failures = []
    for candidate in _candidates(kind, None, None, None):
        try:
            return ctypes.CDLL(candidate), candidate
        except OSError as error:
            failures.append(f"  {candidate}: {error}")
    raise LibraryError(
        f"{kind.description} was not found; set {kind.variable} to its "
        "path, put it next to the corvane package, or install it on the "
        "system's library path. Tried:\n" + "\n".join(failures)
    )


def library() -> ctypes.CDLL:
    """The loaded library."""
    return _loaded(_MAIN)[0]


def library_path() -> str:
    """The path or name under which the library was loaded."""
    return _loaded(_MAIN)[1]


def strength_library_path() -> str:
    """The path or name under which the strength library was loaded."""
    return _loaded(_STRENGTH)[1]


_F = POINTER(c_float)
_I = POINTER(c_int32)
# The stiffness entry points take addresses, so that a call passes plain
# integers into two arrays rather than a ctypes object per argument.
_STIFFNESS_RESULTS = [c_void_p] * 14 + [c_char_p, c_int64, c_void_p]

# What follows the materials in the strength entry points: layup, criterion,
# options, the load cases and their results, the message and the error code.
_STRENGTH_REST = [c_char_p, c_int64, c_char_p, c_int64, _F, _I, _F]
_STRENGTH_REST += [_F, _I, _I, _I, c_char_p, c_int64, _I]
# What follows the materials in the solver deck entry points: layup, line ends,
# the deck and its length, the message and the error code.
_DECK_REST = [c_char_p, c_int64, _I, c_char_p, c_int64, _I, c_char_p, c_int64, _I]
_PROTOTYPES: typing.Dict[str, typing.List[typing.Any]] = {
    "LAMINATE_STIFFNESS": [c_void_p] * 7 + [c_char_p, c_int64] + _STIFFNESS_RESULTS,
    "BI_MATERIAL_LAMINATE_STIFFNESS": [c_void_p] * 14
    + [c_char_p, c_int64]
    + _STIFFNESS_RESULTS,
    "LAMINATE_STRAINS_IN_PLANE": [_F] * 13 + [_I],
    "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS": [c_void_p] * 6 + [_I],
    "LAMINATE_RECTANGULAR_SS_BUCKLING_RF": [c_void_p] * 7 + [_I],
    "LAMINATE_SHELL_BUCKLING_LOADS": [_F] * 9 + [_I],
    "LAMINATE_STRENGTH": [_F] * 14 + _STRENGTH_REST,
    "BI_MATERIAL_LAMINATE_STRENGTH": [_F] * 28 + _STRENGTH_REST,
    "MATERIAL_DATA": [c_char_p, c_int64] * 3
    + [_F, _I, c_char_p, c_int64, c_char_p, c_int64, _I, c_char_p, c_int64, _I],
    "MATERIAL_NAMES": [c_char_p, c_int64] * 2 + [_I, c_char_p, c_int64, c_char_p, c_int64, _I],
    "LAMINATE_SOLVER_DECK": [_F] * 12 + _DECK_REST,
    "BI_MATERIAL_LAMINATE_SOLVER_DECK": [_F] * 24 + _DECK_REST,
    "SECTION_CRIPPLING": [_I, _F, _I, _F, _I, _I, _F, c_char_p, c_int64, c_char_p, c_int64]
    + [_F] * 7
    + [_I]
    + [_F] * 7
    + [_I, c_char_p, c_int64, _I],
    # The many-element entry points take addresses: numpy arrays' data.
    "PLATE_BUCKLING_LOADS_MANY": [c_void_p] * 8,
    "PLATE_BUCKLING_RF_MANY": [c_void_p] * 10,
    "SHELL_BUCKLING_LOADS_MANY": [c_void_p] * 12,
    "STRAINS_IN_PLANE_MANY": [c_void_p] * 16,
    "LAMINATE_STIFFNESS_PACKED": [c_void_p, c_void_p, c_char_p, c_int64, c_void_p, c_void_p]
    + [c_char_p, c_int64, c_void_p],
}
# The keyed material of the notched and impact entry points: constants,
# allowables, the property text; then layup and check or model texts.
_KEYED = [_F] * 7 + [c_char_p, c_int64, c_char_p, c_int64, c_char_p, c_int64]
_KEYED_END = [c_char_p, c_int64, _I]  # message, its length, the error code
_PROTOTYPES["NOTCHED_LAMINATE_STRENGTH"] = _KEYED + [_F, _I, _F, _F, _F] + _KEYED_END
_PROTOTYPES["IMPACT_LAMINATE_STRENGTH"] = _KEYED + [_F, _F, _I, _F, _F] + _KEYED_END
# The entry points of the strength library; the others are of the first.
_STRENGTH_ENTRY_POINTS = {
    "LAMINATE_STRENGTH",
    "BI_MATERIAL_LAMINATE_STRENGTH",
    "MATERIAL_DATA",
    "MATERIAL_NAMES",
    "LAMINATE_SOLVER_DECK",
    "BI_MATERIAL_LAMINATE_SOLVER_DECK",
    "SECTION_CRIPPLING",
    "NOTCHED_LAMINATE_STRENGTH",
    "IMPACT_LAMINATE_STRENGTH",
    "PLATE_BUCKLING_LOADS_MANY",
    "PLATE_BUCKLING_RF_MANY",
    "SHELL_BUCKLING_LOADS_MANY",
    "STRAINS_IN_PLANE_MANY",
    "LAMINATE_STIFFNESS_PACKED",
}


@functools.cache
def entry_point(name: str) -> typing.Any:
    """The library's entry point `name` as a ctypes function with its
    argument types set. It is made once and shared by every caller and
    thread: call it, never change it."""
    prototype = ctypes.CFUNCTYPE(None, *_PROTOTYPES[name])
    loaded, path = _loaded(_STRENGTH if name in _STRENGTH_ENTRY_POINTS else _MAIN)
    try:
        return prototype((name, loaded))
    except AttributeError as error:
        raise LibraryError(f"the library {path} has no entry point {name}") from error
