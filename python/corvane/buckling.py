"""Buckling of laminated panels: the library's
LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS, LAMINATE_RECTANGULAR_SS_BUCKLING_RF and
LAMINATE_SHELL_BUCKLING_LOADS entry points.

Running loads are forces per unit width; compression is negative in applied
loads, and critical loads are positive magnitudes."""

import typing
from ctypes import byref, c_float, c_int32

from . import _convert, _library
from .errors import CorvaneError


class PlateBucklingLoads(typing.NamedTuple):
    """Critical running loads of a flat plate: compression in x and in y, and
    shear, as positive magnitudes."""

    Nxcr: float
    Nycr: float
    Nxycr: float


class ShellBucklingLoads(typing.NamedTuple):
    """Critical running loads of a curved panel or cylinder: axial and
    circumferential compression, and shear, as positive magnitudes."""

    Nxcr: float
    Nycr: float
    Nxycr: float


def _call_loads(entry, arguments):
    loads = [c_float(0.0), c_float(0.0), c_float(0.0)]
    ierr = c_int32(0)
    _library.entry_point(entry)(*arguments, *(byref(x) for x in loads), byref(ierr))
    return [x.value for x in loads], ierr.value


def plate_buckling_loads(D, a, b):
    """Critical running loads of a flat rectangular plate simply supported on
    all four edges, from its bending stiffness [D] (a 3x3 array-like; only
    D11, D12, D22 and D66 are used), its length a along x and width b along y.

    Compression loads come from a search over half-wave numbers (the plate is
    taken as at most ten times longer than wide), shear from closed-form
    coefficients. The library reports no error here: a load it cannot find (a
    non-positive a, b or D term, D12 included, or a search that does not
    converge) comes back as 0.0, as the library gives it.
    Returns PlateBucklingLoads.
    """
    entry = "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS"
    loads, code = _call_loads(
        entry, [_convert.matrix_argument(D, "D"), *_convert.reals(a, b)]
    )
    if code != 0:
        loads = PlateBucklingLoads(*loads)
        raise CorvaneError(entry, code, "unexpected error code", loads)
    return PlateBucklingLoads(*loads)


def plate_buckling_rf(Nx, Ny, Nxy, Nxcr, Nycr, Nxycr):
    """Buckling reserve factor of applied running loads Nx, Ny, Nxy
    (compression negative) on a plate with critical loads Nxcr, Nycr, Nxycr
    (positive; a PlateBucklingLoads unpacks into them).

    Compression ratios rc = max(-Nx/Nxcr, 0) + max(-Ny/Nycr, 0) and the shear
    ratio rs = |Nxy/Nxycr| combine as rc RF + (rs RF)^2 = 1. Returns the
    library's cap 100000.0 when nothing compresses or shears the plate.

    Raises CorvaneError with code 1 when a critical load is below 1e-6 (its
    result is then the library's 0.0). Returns the reserve factor as a float.
    """
    rf, ierr = c_float(0.0), c_int32(0)
    entry = "LAMINATE_RECTANGULAR_SS_BUCKLING_RF"
    _library.entry_point(entry)(
        *_convert.reals(Nx, Ny, Nxy, Nxcr, Nycr, Nxycr), byref(rf), byref(ierr)
    )
    if ierr.value != 0:
        meaning = (
            "a critical load is below 1e-6"
            if ierr.value == 1
            else "undocumented error code"
        )
        message = f"{meaning} (Nxcr = {Nxcr}, Nycr = {Nycr}, Nxycr = {Nxycr})"
        raise CorvaneError(entry, ierr.value, message, rf.value)
    return rf.value


# The one shell error code corvane.h documents.
_SHELL_ERRORS = {
    1: "the flat-panel shear estimate had non-positive input, so its value is 0",
}


def shell_buckling_loads(A, D, L, b, R, t):
    """Critical running loads of a curved panel or cylinder, each the larger
    of a whole-cylinder and a curved-panel estimate.

    A, D: membrane and bending stiffness [A] and [D] (3x3 array-likes; the
    panel is treated as specially orthotropic). L: axial length. b:
    circumferential panel width (arc length). R: radius (0 or less for a flat
    panel, which gives no cylinder estimate). t: wall thickness.

    A panel estimate that cannot be formed (a non-positive A or D term, A12
    and D12 included, or dimension) counts as 0.0, as the library gives it.
    Raises CorvaneError with the library's code (1 when the flat-panel shear
    estimate had non-positive input) and the loads it computed as its result.
    Returns ShellBucklingLoads.
    """
    entry = "LAMINATE_SHELL_BUCKLING_LOADS"
    loads, code = _call_loads(
        entry,
        [
            _convert.matrix_argument(A, "A"),
            _convert.matrix_argument(D, "D"),
            *_convert.reals(L, b, R, t),
        ],
    )
    if code != 0:
        meaning = _SHELL_ERRORS.get(code, "undocumented error code")
        raise CorvaneError(entry, code, meaning, ShellBucklingLoads(*loads))
    return ShellBucklingLoads(*loads)
