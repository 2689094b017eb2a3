"""Buckling of laminated panels: the library's
LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS, LAMINATE_RECTANGULAR_SS_BUCKLING_RF and
LAMINATE_SHELL_BUCKLING_LOADS entry points, and over arrays the strength
library's PLATE_BUCKLING_LOADS_MANY, PLATE_BUCKLING_RF_MANY and
SHELL_BUCKLING_LOADS_MANY.

Running loads are forces per unit width; compression is negative in applied
loads, and critical loads are positive magnitudes. Every number may be an array
(a matrix an array of shape (..., 3, 3)): the arguments broadcast by numpy's
rules, the library loops over the elements, and the results are float32 arrays
of the broadcast shape. Single numbers give floats."""

import ctypes
import struct
import typing
from ctypes import byref, c_float, c_int32

import numpy as np
import numpy.typing as npt

from . import _convert, _library
from .errors import CorvaneError

# A result: a float for a call on single numbers, an array for arrays.
FloatOrArray = typing.Union[float, np.ndarray]


class PlateBucklingLoads(typing.NamedTuple):
    """Critical running loads of a flat plate: compression in x and in y, and
    shear, as positive magnitudes (floats, or float32 arrays)."""

    Nxcr: FloatOrArray
    Nycr: FloatOrArray
    Nxycr: FloatOrArray


class ShellBucklingLoads(typing.NamedTuple):
    """Critical running loads of a curved panel or cylinder: axial and
    circumferential compression, and shear, as positive magnitudes (floats, or
    float32 arrays)."""

    Nxcr: FloatOrArray
    Nycr: FloatOrArray
    Nxycr: FloatOrArray


def _call_loads(entry: str, arguments: typing.List[typing.Any]) -> typing.Tuple[typing.List[float], int]:
    loads = [c_float(0.0), c_float(0.0), c_float(0.0)]
    ierr = c_int32(0)
    _library.entry_point(entry)(*arguments, *(byref(x) for x in loads), byref(ierr))
    return [x.value for x in loads], ierr.value


def _call_many(
    entry: str, batch: _convert.Batch, inputs: typing.List[np.ndarray], outputs: int, codes: bool
) -> typing.Tuple[typing.List[np.ndarray], typing.Optional[np.ndarray]]:
    """One call of a many-element entry point; its results shaped as the batch."""
    results = [np.empty(batch.size, dtype=np.float32) for _ in range(outputs)]
    code_array = np.zeros(batch.size, dtype=np.int32) if codes else None
    ierr = c_int32(0)
    _library.entry_point(entry)(
        byref(c_int32(batch.size)),
        *(_convert.address(a) for a in inputs),
        *(_convert.address(r) for r in results),
        *((_convert.address(code_array),) if code_array is not None else ()),
        byref(ierr),
    )
    if ierr.value not in (0, 1):
        raise CorvaneError(entry, ierr.value, "unexpected error code")
    return [r.reshape(batch.shape) for r in results], code_array


def _singles(*values: npt.ArrayLike) -> typing.Sequence[float]:
    """Single numbers, as ctypes takes them (a text is refused there)."""
    return typing.cast(typing.Sequence[float], values)


_PLATE = c_float * 14
_RF = c_float * 7
_PACKINGS = {n: struct.Struct(f"={n}f") for n in (7, 11)}


def _packed(
    kind: typing.Any, matrix: typing.Sequence[float], *values: npt.ArrayLike
) -> typing.Any:
    """A float array of `kind` holding the matrix then the values, each rounded
    to 32 bits, and zeros after. Packed at once; the array's own constructor,
    slower, takes what the packing does not (a value beyond the float range
    becomes infinite there, a text is refused)."""
    numbers = (*matrix, *_singles(*values))
    try:
        data = _PACKINGS[len(numbers)].pack(*numbers)
    except (struct.error, OverflowError, TypeError):
        return kind(*numbers)
    return kind.from_buffer_copy(data.ljust(ctypes.sizeof(kind), b"\0"))


def plate_buckling_loads(D: npt.ArrayLike, a: npt.ArrayLike, b: npt.ArrayLike) -> PlateBucklingLoads:
    """Critical running loads of a flat rectangular plate simply supported on
    all four edges, from its bending stiffness [D] (a 3x3 array-like; only
    D11, D12, D22 and D66 are used), its length a along x and width b along y.

    Compression loads come from a search over half-wave numbers (the plate is
    taken as at most ten times longer than wide), shear from closed-form
    coefficients. The library reports no error here: a load it cannot find (a
    non-positive a, b or D term, D12 included, or a search that does not
    converge) comes back as 0.0, as the library gives it.
    Many plates: D of shape (..., 3, 3), a and b arrays; they broadcast.
    Returns PlateBucklingLoads.
    """
    if _convert.is_scalar((a, b), (D,)):
        # [D], a, b and the three loads in one array, passed by address.
        values = _packed(_PLATE, _convert.matrix_values(D, "D"), a, b)
        ierr = c_int32(0)
        at = ctypes.addressof(values)
        entry = "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS"
        _library.entry_point(entry)(at, at + 36, at + 40, at + 44, at + 48, at + 52, byref(ierr))
        loads = PlateBucklingLoads(*values[11:])
        if ierr.value != 0:
            raise CorvaneError(entry, ierr.value, "unexpected error code", loads)
        return loads
    batch = _convert.batch((a, b), ("a", "b"), (D,), ("D",))
    results, _ = _call_many(
        "PLATE_BUCKLING_LOADS_MANY", batch, [batch.matrices[0], *batch.values], 3, codes=False
    )
    return PlateBucklingLoads(*results)


_RF_ERRORS = {1: "a critical load is below 1e-6"}


def plate_buckling_rf(
    Nx: npt.ArrayLike,
    Ny: npt.ArrayLike,
    Nxy: npt.ArrayLike,
    Nxcr: npt.ArrayLike,
    Nycr: npt.ArrayLike,
    Nxycr: npt.ArrayLike,
) -> FloatOrArray:
    """Buckling reserve factor of applied running loads Nx, Ny, Nxy
    (compression negative) on a plate with critical loads Nxcr, Nycr, Nxycr
    (positive; a PlateBucklingLoads unpacks into them).

    Compression ratios rc = max(-Nx/Nxcr, 0) + max(-Ny/Nycr, 0) and the shear
    ratio rs = |Nxy/Nxycr| combine as rc RF + (rs RF)^2 = 1. Returns the
    library's cap 100000.0 when nothing compresses or shears the plate.

    Raises CorvaneError with code 1 when a critical load is below 1e-6 (its
    result is then the library's 0.0; over arrays, every element's result and
    `codes`). Returns the reserve factor as a float, or a float32 array.
    """
    arguments = (Nx, Ny, Nxy, Nxcr, Nycr, Nxycr)
    if not _convert.is_scalar(arguments):
        batch = _convert.batch(arguments, ("Nx", "Ny", "Nxy", "Nxcr", "Nycr", "Nxycr"))
        entry = "PLATE_BUCKLING_RF_MANY"
        (rf_array,), codes = _call_many(entry, batch, batch.values, 1, codes=True)
        assert codes is not None
        _convert.check_codes(entry, codes, batch.shape, _RF_ERRORS, rf_array)
        return rf_array
    # The six loads and the result in one array, passed by address.
    values = _packed(_RF, (), *arguments, 0.0)
    ierr = c_int32(0)
    at = ctypes.addressof(values)
    entry = "LAMINATE_RECTANGULAR_SS_BUCKLING_RF"
    _library.entry_point(entry)(*range(at, at + 28, 4), byref(ierr))
    rf: float = values[6]
    if ierr.value != 0:
        meaning = _RF_ERRORS.get(ierr.value, "undocumented error code")
        message = f"{meaning} (Nxcr = {Nxcr!s}, Nycr = {Nycr!s}, Nxycr = {Nxycr!s})"
        raise CorvaneError(entry, ierr.value, message, rf)
    return rf


# The one shell error code corvane.h documents.
_SHELL_ERRORS = {
    1: "the flat-panel shear estimate had non-positive input, so its value is 0",
}


def shell_buckling_loads(
    A: npt.ArrayLike,
    D: npt.ArrayLike,
    L: npt.ArrayLike,
    b: npt.ArrayLike,
    R: npt.ArrayLike,
    t: npt.ArrayLike,
) -> ShellBucklingLoads:
    """Critical running loads of a curved panel or cylinder, each the larger
    of a whole-cylinder and a curved-panel estimate.

    A, D: membrane and bending stiffness [A] and [D] (3x3 array-likes; the
    panel is treated as specially orthotropic). L: axial length. b:
    circumferential panel width (arc length). R: radius (0 or less for a flat
    panel, which gives no cylinder estimate). t: wall thickness.
    Many panels: A and D of shape (..., 3, 3), the others arrays; they
    broadcast.

    A panel estimate that cannot be formed (a non-positive A or D term, A12
    and D12 included, or dimension) counts as 0.0, as the library gives it.
    Raises CorvaneError with the library's code (1 when the flat-panel shear
    estimate had non-positive input) and the loads it computed as its result
    (over arrays, every element's, and `codes`). Returns ShellBucklingLoads.
    """
    entry = "LAMINATE_SHELL_BUCKLING_LOADS"
    if not _convert.is_scalar((L, b, R, t), (A, D)):
        batch = _convert.batch((L, b, R, t), ("L", "b", "R", "t"), (A, D), ("A", "D"))
        entry = "SHELL_BUCKLING_LOADS_MANY"
        results, codes = _call_many(entry, batch, [*batch.matrices, *batch.values], 3, True)
        assert codes is not None
        loads = ShellBucklingLoads(*results)
        _convert.check_codes(entry, codes, batch.shape, _SHELL_ERRORS, loads)
        return loads
    scalar_loads, code = _call_loads(
        entry,
        [
            _convert.matrix_argument(A, "A"),
            _convert.matrix_argument(D, "D"),
            *_convert.reals(L, b, R, t),
        ],
    )
    if code != 0:
        meaning = _SHELL_ERRORS.get(code, "undocumented error code")
        raise CorvaneError(entry, code, meaning, ShellBucklingLoads(*scalar_loads))
    return ShellBucklingLoads(*scalar_loads)
