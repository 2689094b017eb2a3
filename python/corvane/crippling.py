"""Crippling of a section of laminate segments and its column allowable: the
strength library's SECTION_CRIPPLING entry point."""

import typing
import warnings
from ctypes import POINTER, byref, c_float, c_int32, create_string_buffer

import numpy as np

from . import _convert, _library
from .errors import CorvaneError

# Edge conditions by name and by the library's code.
EDGE_CONDITIONS = {"OEF": 1, "NEF": 2}
COLUMN_MODES = {1: "Johnson", 2: "Euler"}
# The b/t over which each relation is used without a warning.
FITTED_RANGES = {"OEF": (4.0, 30.0), "NEF": (10.0, 50.0)}

_POINTER_F = POINTER(c_float)
_POINTER_I = POINTER(c_int32)


class CripplingRangeWarning(UserWarning):
    """A segment's b/t lies outside the range its crippling relation is used
    on: its result is an extrapolation."""


class Segment(typing.NamedTuple):
    """A flat segment of a section.

    b: centre-line width (from a free edge, or between the supporting
        segments). edge: "OEF" (one edge free) or "NEF" (no edge free).
    layup: its stacking sequence. ply: its ply material, None for the one
    given to section_crippling. y, z: its centre in the section plane; angle:
    the direction of its width from the y axis in degrees (they give the
    column's bending stiffness). Fcu: its compression strength, 0 for the
    first-ply failure stress under compression.
    """

    b: float
    edge: str
    layup: str = "(0/45/-45/90)S"
    ply: typing.Any = None
    y: float = 0.0
    z: float = 0.0
    angle: float = 0.0
    Fcu: float = 0.0


class CripplingResult(typing.NamedTuple):
    """Per segment (float32 arrays in the order of the segments): t, Ex, Fcu
    (the strength used), Fcc (the crippling stress) and warning (0 in range,
    1 b/t below, 2 above). Of the section: A, EA, Fcc_section, Pcc, rho (least
    radius of gyration), column_stress and column_load (Johnson-Euler at the
    length and fixity given), column_mode ("Johnson" or "Euler") and message
    (the library's warning line, or "")."""

    t: np.ndarray
    Ex: np.ndarray
    Fcu: np.ndarray
    Fcc: np.ndarray
    warning: np.ndarray
    A: float
    EA: float
    Fcc_section: float
    Pcc: float
    rho: float
    column_stress: float
    column_load: float
    column_mode: str
    message: str


def section_crippling(
    ply: typing.Any,
    segments: typing.Iterable[Segment],
    *,
    length: float = 0.0,
    fixity: float = 1.0,
    criterion: str = "PUCK",
    f12_star: float = -0.5,
    puck: typing.Tuple[float, float] = (0.35, 0.30),
) -> CripplingResult:
    """Crippling stress and load, EA and column allowable of a section.

    ply: the Ply of the segments that name none (with its strengths where a
    segment's Fcu comes from first-ply failure). segments: Segment values (or
    tuples in their order). length, fixity: the column length L (0: the
    crippling stress alone) and end-fixity coefficient c, L' = L/sqrt(c).
    criterion: the criterion of the first-ply failure under compression that
    gives Fcu where it is not given (PUCK by default). f12_star, puck: as for
    laminate_strength.

    Returns a CripplingResult; a segment outside its fitted b/t range also
    issues a CripplingRangeWarning. Raises CorvaneError with the library's
    code and message when it refuses the call.
    """
    rows = [Segment(*s) if not isinstance(s, Segment) else s for s in segments]
    plies = []
    index = []
    for s in rows:
        p = ply if s.ply is None else s.ply
        if p not in plies:
            plies.append(p)
        index.append(plies.index(p) + 1)
    edges = []
    for s in rows:
        code = EDGE_CONDITIONS.get(str(s.edge).strip().upper())
        if code is None:
            raise ValueError(f"edge {s.edge!r} is neither OEF nor NEF")
        edges.append(code)
    n = len(rows)
    materials = np.array(
        [
            [p.t, p.E1, p.E2, p.G12, p.nu12, p.CTE1, p.CTE2]
            + [p.F1t, p.F1c, p.F2t, p.F2c, p.F12, p.uetall, p.uecall]
            for p in plies
        ],
        dtype=np.float32,
    ).reshape(-1)
    geometry = np.array([[s.b, s.y, s.z, s.angle] for s in rows], dtype=np.float32)
    given = np.array([s.Fcu for s in rows], dtype=np.float32)
    edge = np.array(edges, dtype=np.int32)
    material = np.array(index, dtype=np.int32)
    layups = b"".join(
        _convert.text_argument(s.layup, _library.LAYUP_LENGTH, "a layup") for s in rows
    )
    criterion_buffer = _convert.text_argument(
        criterion, _library.CRITERION_LENGTH, "the criterion"
    )
    out = [np.zeros(n, dtype=np.float32) for _ in range(4)]
    warning = np.zeros(n, dtype=np.int32)
    section = [c_float() for _ in range(7)]
    mode = c_int32(0)
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    ierr = c_int32(0)
    _library.entry_point("SECTION_CRIPPLING")(
        byref(c_int32(len(plies))),
        materials.ctypes.data_as(_POINTER_F),
        byref(c_int32(n)),
        geometry.ctypes.data_as(_POINTER_F),
        edge.ctypes.data_as(_POINTER_I),
        material.ctypes.data_as(_POINTER_I),
        given.ctypes.data_as(_POINTER_F),
        create_string_buffer(layups, len(layups)),
        len(layups),
        criterion_buffer,
        _library.CRITERION_LENGTH,
        (c_float * 3)(f12_star, *puck),
        *_convert.reals(length, fixity),
        *(o.ctypes.data_as(_POINTER_F) for o in out),
        warning.ctypes.data_as(_POINTER_I),
        *(byref(v) for v in section),
        byref(mode),
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    text = _convert.text_result(message)
    if ierr.value != 0:
        raise CorvaneError("SECTION_CRIPPLING", ierr.value, text)
    if text:
        warnings.warn(text, CripplingRangeWarning, stacklevel=2)
    area, ea, fcc_section, pcc, rho, column_stress, column_load = (v.value for v in section)
    return CripplingResult(
        out[0], out[1], out[2], out[3], warning, area, ea, fcc_section, pcc, rho,
        column_stress, column_load, COLUMN_MODES[mode.value], text,
    )
