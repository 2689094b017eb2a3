"""Ply materials by name from material data files (docs/materials.md): the
strength library's MATERIAL_DATA and MATERIAL_NAMES entry points.

Materials are looked for in the places given (files, or folders of *.mat
files), then in the folder named by the environment variable BASES_DATOS,
in each folder on PATH, and last in the materials installed with Corvane; a
name found in two places is taken from the first."""

import dataclasses
import os
import pathlib
import typing
from ctypes import byref, c_float, c_int32, create_string_buffer

from . import _convert, _library
from .errors import CorvaneError, Error
from .laminate import Ply

Places = typing.Union[
    None, str, "os.PathLike[str]", typing.Iterable[typing.Union[str, "os.PathLike[str]"]]
]


def installed_materials() -> typing.Optional[pathlib.Path]:
    """The folder of the materials installed with Corvane, or None: inside
    the package, beside the strength library (its ../share/corvane/materials),
    or the materials folder of a source checkout."""
    package = pathlib.Path(__file__).resolve().parent
    candidates = [package / "materials"]
    try:
        library = pathlib.Path(_library.strength_library_path()).resolve()
        candidates.append(library.parent.parent / "share" / "corvane" / "materials")
    except OSError:  # LibraryError included
        pass
    candidates.append(package.parent.parent / "materials")
    return next((c for c in candidates if c.is_dir()), None)


def _places(places: Places) -> typing.List[str]:
    if places is None:
        return []
    if isinstance(places, (str, os.PathLike)):
        places = [places]
    return [os.fspath(p) for p in places]


def _search_arguments(places: Places) -> typing.Tuple[typing.Any, ...]:
    joined = "\n".join(_places(places))
    installed = installed_materials()
    return (
        _convert.text_argument(joined, _library.MATERIAL_PLACES_LENGTH, "the places"),
        _library.MATERIAL_PLACES_LENGTH,
        _convert.text_argument(
            str(installed) if installed else "", _library.MATERIAL_PATH_LENGTH, "the folder"
        ),
        _library.MATERIAL_PATH_LENGTH,
    )


@dataclasses.dataclass(frozen=True)
class Material(Ply):
    """A Ply read by name from a material data file, with its name, whether
    it is a woven fabric, and the file and line it was read from. It is a
    Ply: every function that takes a ply material takes it."""

    name: str = ""
    fabric: bool = False
    file: str = ""
    line: int = 0

    @classmethod
    def load(cls, name: str, places: Places = None) -> "Material":
        """The material of that name (letter case and surrounding blanks
        ignored). places: a file or folder, or several, searched first.

        Raises CorvaneError with code 1 when a material file read is faulty
        (the message names its file and line), 2 when no material has the
        name (the message names the nearest ones)."""
        values = (c_float * _library.MATERIAL_VALUES)()
        fabric, line, ierr = c_int32(0), c_int32(0), c_int32(0)
        found = create_string_buffer(_library.MATERIAL_NAME_LENGTH)
        file = create_string_buffer(_library.MATERIAL_PATH_LENGTH)
        message = create_string_buffer(_library.MESSAGE_LENGTH)
        search = _search_arguments(places)
        _library.entry_point("MATERIAL_DATA")(
            _convert.text_argument(name, _library.MATERIAL_NAME_LENGTH, "the name"),
            _library.MATERIAL_NAME_LENGTH,
            *search,
            values,
            byref(fabric),
            found,
            _library.MATERIAL_NAME_LENGTH,
            file,
            _library.MATERIAL_PATH_LENGTH,
            byref(line),
            message,
            _library.MESSAGE_LENGTH,
            byref(ierr),
        )
        if ierr.value != 0:
            raise CorvaneError("MATERIAL_DATA", ierr.value, _convert.text_result(message))
        ply = dict(zip((f.name for f in dataclasses.fields(Ply)), (float(v) for v in values)))
        return cls(
            **ply,
            name=_convert.text_result(found),
            fabric=fabric.value != 0,
            file=_convert.text_result(file),
            line=line.value,
        )


def materials(places: Places = None) -> typing.List[str]:
    """The names of every material found, each once, sorted with letter case
    ignored. places: as for Material.load."""
    count, ierr = c_int32(0), c_int32(0)
    names = create_string_buffer(_library.MATERIAL_NAMES_LENGTH)
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    _library.entry_point("MATERIAL_NAMES")(
        *_search_arguments(places),
        byref(count),
        names,
        _library.MATERIAL_NAMES_LENGTH,
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    if ierr.value != 0:
        raise CorvaneError("MATERIAL_NAMES", ierr.value, _convert.text_result(message))
    listed = _convert.text_result(names).splitlines()
    if len(listed) != count.value:
        raise Error(f"{count.value} material names are more than one call returns")
    return listed
